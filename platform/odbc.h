// The only door to the driver manager: typed handles that free themselves, and one function per ODBC
// call that the library makes. Every call repeats while the driver is still executing; every call and
// its return code can be traced. Return codes are handed up; exceptions begin one floor above.
#ifndef KYODBC_PLATFORM_ODBC_H
#define KYODBC_PLATFORM_ODBC_H

#include <optional>
#include <string>
#include <vector>

#include "platform/cfieldinfo.h"
#include "platform/types.h"

namespace odbc {

struct DiagRecord {
  std::string state;  // five characters
  SQLINTEGER native = 0;
  std::string message;  // with the bracketed origin in front
};
using Diagnostics = std::vector<DiagRecord>;

// Success with or without information.
inline bool Succeeded(RETCODE code) { return code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO; }

// How long a call is repeated that the driver answers with "still executing"; 0 for ever, 15 at first.
void SetPatience(DWORD seconds);

// What the configuration of the driver manager says of a data source or of a driver; empty when it has no
// such entry, or no such data source or driver.
std::string SourceEntry(const char* source, const char* key);
std::string DriverEntry(const char* driver, const char* key);

class Statement;

// An environment and a connection handle. Its statements may outlive a disconnect as empty shells.
class Connection {
 public:
  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection();  // frees statements, disconnects, frees the handles

  // From now on the driver is left to end the statements with the connection. Without this each is freed
  // before, which some drivers need and with which others ask the server about each.
  void EndStatementsToo() { m_ends_statements = true; }

  // From now on statements that answer with rows are prepared also where they are run directly: one driver
  // brings the process down when the connection is lost in the middle of an answer to one run directly.
  void PrepareWhatAnswers() { m_prepares_what_answers = true; }

  RETCODE Allocate();  // before anything else; SQL_ERROR when the driver manager has no memory
  RETCODE SetLoginTimeout(DWORD seconds);
  RETCODE SetAccessReadOnly();
  RETCODE Connect(const char* connection_string);  // never prompts; leaves the process's locale as it was
  RETCODE SetAutocommit(bool on);
  RETCODE EndTransaction(bool commit);
  bool IsDead() const;                               // what the driver knows; servers are not asked
  std::string InfoText(SQLUSMALLINT item) const;     // empty when the driver cannot tell
  SQLUSMALLINT InfoNumber(SQLUSMALLINT item) const;  // 0 when the driver cannot tell
  std::optional<SQLUINTEGER> InfoBits(SQLUSMALLINT item) const;
  std::string DatabaseName() const;
  Diagnostics Diagnose() const;

 private:
  friend class Statement;

  void Disconnect();
  void FreeStatements();
  void ForgetStatements();

  SQLHENV m_environment = SQL_NULL_HENV;
  SQLHDBC m_connection = SQL_NULL_HDBC;
  bool m_connected = false;
  bool m_autocommit = true;
  bool m_ends_statements = false;
  bool m_prepares_what_answers = false;
  std::vector<Statement*> m_statements;
};

// Reads all diagnostic records of a statement handle.
Diagnostics DiagnoseStatement(SQLHSTMT statement);

// One value to send. The pointed-to memory must stay until the statement was executed.
struct Parameter {
  SWORD c_type = SQL_C_CHAR;
  SWORD sql_type = SQL_VARCHAR;
  SQLULEN size = 0;
  SWORD digits = 0;
  LONG number = 0;
  std::string text;
  SQLLEN indicator = SQL_NULL_DATA;
};

class Statement {
 public:
  explicit Statement(Connection& connection);
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement();

  // Null when the allocation failed or the connection was freed; every call then gives
  // SQL_INVALID_HANDLE.
  SQLHSTMT Handle() const { return m_statement; }

  // Refusals and substitutions by the driver are not errors here: a static cursor is what every driver
  // can give, and changes never go through the cursor.
  void AskForStaticCursor();
  void AskForQueryTimeout(DWORD seconds);

  RETCODE Prepare(const CString& sql);
  RETCODE Execute();
  RETCODE ExecuteDirect(const CString& sql);
  RETCODE MoreResults();
  RETCODE CloseCursor();
  RETCODE ColumnCount(SWORD* count);
  // All but the nullability: one driver asks the server's catalogue for it.
  RETCODE DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info);
  RETCODE Nullability(SQLUSMALLINT column, SWORD* nullability);
  RETCODE BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size, SQLLEN* indicator);
  RETCODE UnbindColumns();
  RETCODE BindParameter(SQLUSMALLINT position, Parameter* parameter);
  RETCODE ExtendedFetch(SQLUSMALLINT type, SQLLEN row);
  // Rows that a fetch brings at once, each column of them bound to an array. False when the driver refuses.
  bool AskForRows(SQLULEN rows);
  // Fetches the next rows, at most as many as were asked for; *fetched tells how many.
  RETCODE FetchRows(SQLULEN rows, SQLULEN* fetched);
  RETCODE GetData(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size, SQLLEN* indicator);
  // The first column of the next row; *number stays when that is NULL.
  RETCODE ReadNumber(LONG* number);
  RETCODE RowCount(SQLLEN* count);
  SQLULEN RowNumber() const;  // of the current row; 0 when the driver cannot tell
  // Asks the catalogue on this otherwise unused statement. False only when it knows no view of that name.
  bool MayBeView(const CString& name);
  Diagnostics Diagnose() const { return DiagnoseStatement(m_statement); }

 private:
  friend class Connection;

  RETCODE Logged(const CString& sql, RETCODE (Statement::*run)());
  RETCODE ColumnNumber(SQLUSMALLINT column, SQLUSMALLINT attribute, SWORD* number);
  void Free();
  RETCODE WithoutCuts(RETCODE code) const;
  template <class Read>
  RETCODE ReadFromCursor(Read read);
  RETCODE RunPrepared();
  RETCODE RunDirect();

  Connection* m_connection;
  SQLHSTMT m_statement = SQL_NULL_HSTMT;
  bool m_given_up = false;  // a call for a row was cancelled
  CString m_sql;
};

}  // namespace odbc

#endif
