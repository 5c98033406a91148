/* The chief header as a C program sees it, and the library as it links it. Prints the phase it is in; the
 * exit status is the number of failures. */
#include <KyODBC.h>

#include <stdio.h>
#include <string.h>

static int failures = 0;

static void Check(int holds, const char* what) {
  if (holds) return;
  printf("failed: %s\n", what);
  ++failures;
}

static void CheckVersion(void) {
  WORD version = 0;
  printf("version\n");
  Check(DB_CheckVersion(KYODBC_INTERFACE_VERSION, &version), "the library serves this header's version");
  Check(version == 261, "the library has interface version 261");
  Check(!DB_CheckVersion(KYODBC_INTERFACE_VERSION + 1, NULL), "the library refuses the next version");
}

static void CheckWithoutConnection(void) {
  tagTPATIENT patient;
  LONG count = 0;
  printf("without a connection\n");
  memset(&patient, 0, sizeof patient);
  Check(DB_GetDatabase() == NULL, "there is no database");
  Check(!DB_IsDatabaseOpen() && !DB_IsTPatOpen(), "nothing is open");
  Check(DB_OpenTPat() == KYODBC_NOT_OPENED, "opening gives 3");
  Check(DB_MoveToTPatByPos(1) == 0, "positions are 0");
  Check(DB_GetTPatByPos(1, &patient) == KYODBC_NOT_OPENED, "reading gives 3");
  Check(DB_GetNumTPat(&count) == KYODBC_NOT_OPENED, "counting gives 3");
  Check(DB_CloseDatabase() == KYODBC_OK, "closing gives 0");
}

static void CheckArguments(void) {
  tagDBCONNECT parameters;
  printf("arguments\n");
  memset(&parameters, 0, sizeof parameters);
  Check(DB_InitDatabase(NULL) == KYODBC_BAD_ARGUMENT, "null parameters give 1");
  Check(DB_InitDatabase(&parameters) == KYODBC_BAD_ARGUMENT, "an empty data source name gives 1");
  Check(KYODBC_PACK(KYODBC_FIELD_NAME, KYODBC_FIELD_DATE | KYODBC_DESCENDING, 0, 0) == 0xA111,
        "entries are packed from the lowest byte on");
}

int main(void) {
  CheckVersion();
  CheckWithoutConnection();
  CheckArguments();
  printf("%s\n", failures == 0 ? "passed" : "failed");
  return failures;
}
