/* Settings by key and station: texts, numbers, defaults, deleting. Usage: settings SOURCE [USER PASSWORD] */
#include <KyODBC.h>
#include <stdio.h>

/* The station of settings that hold for the whole practice. */
static const char station[] = "-";

static void PrintSettings(void) {
  char colour[129];
  LONG rows = 0;
  DB_GetProfileString("ExampleColour", station, "none", colour, sizeof colour, NULL);
  DB_GetProfileInt("ExampleRows", station, 20, &rows);
  printf("colour %s, rows %d\n", colour, rows);
}

int main(int argc, char** argv) {
  tagDBCONNECT source = {0};
  snprintf(source.szDSN, sizeof source.szDSN, "%s", argc > 1 ? argv[1] : "practice");
  snprintf(source.szUID, sizeof source.szUID, "%s", argc > 3 ? argv[2] : "");
  snprintf(source.szPWD, sizeof source.szPWD, "%s", argc > 3 ? argv[3] : "");
  if (DB_InitDatabase(&source) != KYODBC_OK) return 1;

  PrintSettings(); /* nothing is stored yet: the defaults */
  DB_WriteProfileString("ExampleColour", station, "blue");
  DB_WriteProfileInt("ExampleRows", station, 50);
  PrintSettings();
  DB_WriteProfileString("ExampleColour", station, ""); /* an empty text deletes the setting */
  DB_WriteProfileString("ExampleRows", station, "");
  PrintSettings();
  return DB_CloseDatabase();
}
