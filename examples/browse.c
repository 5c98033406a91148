#include <KyODBC.h>
#include <stdio.h>

int main(int argc, char** argv) {
  tagDBCONNECT source = {0};
  tagTPATIENT first;
  LONG count = 0;
  snprintf(source.szDSN, sizeof source.szDSN, "%s", argc > 1 ? argv[1] : "practice");
  if (DB_InitDatabase(&source) != 0 || DB_OpenTPat() != 0 || DB_GetTPatMaxPos(&count) != 0) return 1;
  printf("%d patients\n", count);
  if (DB_GetTPatByPos(1, &first) == 0) printf("the first: %s %s\n", first.szFirstname, first.szName);
  return DB_CloseDatabase();
}
