// The rows of a stored procedure, whatever its columns are: a procedure, a function that returns a table, or
// a view, as the database has it. Usage: procedure SOURCE NAME [USER PASSWORD]
#include <KyODBC.h>

#include <cstdio>
#include <iostream>

namespace {

void PrintTitles(CDynamicRec& rows) {
  for (short column = 0; column < rows.GetODBCFieldCount(); ++column)
    std::cout << rows.GetFieldName(column, nullptr) << '\t';
  std::cout << '\n';
}

void PrintRow(CDynamicRec& rows) {
  for (short column = 0; column < rows.GetODBCFieldCount(); ++column) {
    CString value;
    rows.GetFieldValue(column, value);
    std::cout << value << '\t';
  }
  std::cout << '\n';
}

void PrintProcedure(const char* name) {
  CDynamicRec rows;
  rows.ExecuteSProc(name);
  PrintTitles(rows);
  for (; !rows.IsEOF(); rows.MoveNext()) PrintRow(rows);
  // All rows are at hand: the set goes backwards just as well.
  if (rows.IsBOF()) return;
  rows.MoveLast();
  std::cout << rows.GetIndexPos() << " rows\n";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  tagDBCONNECT source{};
  std::snprintf(source.szDSN, sizeof source.szDSN, "%s", argv[1]);
  std::snprintf(source.szUID, sizeof source.szUID, "%s", argc > 4 ? argv[3] : "");
  std::snprintf(source.szPWD, sizeof source.szPWD, "%s", argc > 4 ? argv[4] : "");
  if (DB_InitDatabase(&source) != KYODBC_OK) return 1;
  int status = 0;
  try {
    PrintProcedure(argv[2]);
  } catch (CDBException* exception) {
    // Exceptions of the classes belong to whoever catches them.
    std::cerr << exception->m_strError << '\n';
    exception->Delete();
    status = 1;
  }
  return DB_CloseDatabase() + status;
}
