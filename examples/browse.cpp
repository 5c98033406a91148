#include <KyODBC.h>

#include <iostream>
#include <string>

int main(int argc, char** argv) {
  tagDBCONNECT source{};
  tagTPATIENT patient{};
  std::string(argc > 1 ? argv[1] : "practice").copy(source.szDSN, sizeof source.szDSN - 1);
  if (DB_InitDatabase(&source) != 0) return 1;
  DB_SetTPatFilter(KYODBC_FIELD_NAME, KYODBC_LIKE, "M%", nullptr, nullptr, nullptr);
  DB_SetTPatSortIndex(KYODBC_FIELD_NAME);
  if (DB_OpenTPat() != 0) return 1;
  for (LONG position = 1; DB_GetTPatByPos(position, &patient) == 0; ++position)
    std::cout << patient.szName << ", " << patient.szFirstname << '\n';
  return DB_CloseDatabase();
}
