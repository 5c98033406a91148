// A thin hand over ODBC for the bare program: it calls the driver manager and throws, nothing else.
#ifndef KYODBC_BENCH_STATEMENT_H
#define KYODBC_BENCH_STATEMENT_H

#include <sql.h>
#include <sqlext.h>

#include <string>

namespace bench {

class Connection {
 public:
  explicit Connection(const std::string& source);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  void Begin();
  void Commit();
  void Rollback();
  SQLHDBC Handle() const { return m_connection; }

 private:
  SQLHENV m_environment = SQL_NULL_HENV;
  SQLHDBC m_connection = SQL_NULL_HDBC;
};

class Statement {
 public:
  // A static cursor can be positioned; without one rows come forwards.
  Statement(const Connection& connection, bool is_static);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void Prepare(const char* sql);
  void Column(int number, SQLSMALLINT type, void* buffer, SQLLEN size);
  // Parameters stand where they are until the statement ends.
  void Parameter(int number, SQLINTEGER* value);
  // Dates too: one of the drivers stores a bound structure in a form that no literal equals.
  void Parameter(int number, char* text, SQLULEN width);
  // Both close the rows of the last time.
  void Execute();
  void Execute(const char* sql);
  bool Fetch() { return Reached(SQLFetch(m_statement)); }
  bool Fetch(SQLSMALLINT orientation, SQLLEN row) {
    return Reached(SQLFetchScroll(m_statement, orientation, row));
  }
  void CloseRows() { SQLFreeStmt(m_statement, SQL_CLOSE); }

 private:
  bool Reached(SQLRETURN code) {
    if (code != SQL_NO_DATA) Require(code);
    return code != SQL_NO_DATA;
  }
  void Require(SQLRETURN code) const;

  static constexpr int kMost = 24;

  SQLHSTMT m_statement = SQL_NULL_HSTMT;
  SQLLEN m_columns[kMost] = {};
  SQLLEN m_parameters[kMost] = {};
};

}  // namespace bench

#endif
