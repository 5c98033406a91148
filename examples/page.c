/* Patients in alphabetical order, page by page. Usage: page SOURCE [USER PASSWORD] */
#include <KyODBC.h>
#include <stdio.h>

enum { PAGE_ROWS = 5 };

static int Connect(int argc, char** argv) {
  tagDBCONNECT source = {0};
  snprintf(source.szDSN, sizeof source.szDSN, "%s", argc > 1 ? argv[1] : "practice");
  snprintf(source.szUID, sizeof source.szUID, "%s", argc > 3 ? argv[2] : "");
  snprintf(source.szPWD, sizeof source.szPWD, "%s", argc > 3 ? argv[3] : "");
  return DB_InitDatabase(&source) == KYODBC_OK;
}

/* Prints the rows from `first` on. Only these are read: a page costs the same wherever it lies. */
static void PrintPage(LONG first) {
  tagTPATIENT patient;
  LONG position;
  for (position = first; position < first + PAGE_ROWS; ++position) {
    if (DB_GetTPatByPos(position, &patient) != KYODBC_OK) return; /* 64 behind the last row */
    printf("%4d  %s, %s\n", position, patient.szName, patient.szFirstname);
  }
}

int main(int argc, char** argv) {
  LONG count = 0, first;
  if (!Connect(argc, argv)) return 1;
  DB_SetTPatSortIndex(KYODBC_PACK(KYODBC_FIELD_NAME, KYODBC_FIELD_FIRSTNAME, 0, 0));
  if (DB_OpenTPat() != KYODBC_OK || DB_GetTPatMaxPos(&count) != KYODBC_OK) return 1;
  for (first = 1; first <= count; first += PAGE_ROWS) {
    printf("page %d of %d\n", 1 + first / PAGE_ROWS, (count + PAGE_ROWS - 1) / PAGE_ROWS);
    PrintPage(first);
  }
  return DB_CloseDatabase();
}
