#include <KyODBC.h>

int main(void) {
  WORD version = 0;
  tagTPATIENT patient = {0};
  int answers = DB_CheckVersion(KYODBC_INTERFACE_VERSION, &version) && !DB_IsDatabaseOpen();
  return answers && version == KYODBC_INTERFACE_VERSION && DB_GetTPat(&patient) == KYODBC_NOT_OPENED ? 0 : 1;
}
