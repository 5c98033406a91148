#include "bench/statement.h"

#include <stdexcept>

namespace bench {
namespace {

[[noreturn]] void Fail(SQLSMALLINT kind, SQLHANDLE handle) {
  SQLCHAR state[6] = {};
  SQLCHAR message[500] = {};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  SQLGetDiagRec(kind, handle, 1, state, &native, message, sizeof message, &length);
  throw std::runtime_error(std::string(reinterpret_cast<char*>(state)) + " " +
                           reinterpret_cast<char*>(message));
}

SQLPOINTER Number(SQLULEN number) { return reinterpret_cast<SQLPOINTER>(number); }

}  // namespace

Connection::Connection(const std::string& source) {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment);
  SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection);
  std::string text = "DSN=" + source;
  const SQLRETURN code = SQLDriverConnect(m_connection, nullptr, reinterpret_cast<SQLCHAR*>(text.data()),
                                          SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(code)) Fail(SQL_HANDLE_DBC, m_connection);
}

Connection::~Connection() {
  SQLDisconnect(m_connection);
  SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
  SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

void Connection::Begin() {
  SQLSetConnectAttr(m_connection, SQL_ATTR_AUTOCOMMIT, Number(SQL_AUTOCOMMIT_OFF), 0);
}

void Connection::Commit() {
  if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, m_connection, SQL_COMMIT))) {
    Fail(SQL_HANDLE_DBC, m_connection);
  }
  SQLSetConnectAttr(m_connection, SQL_ATTR_AUTOCOMMIT, Number(SQL_AUTOCOMMIT_ON), 0);
}

void Connection::Rollback() {
  SQLEndTran(SQL_HANDLE_DBC, m_connection, SQL_ROLLBACK);
  SQLSetConnectAttr(m_connection, SQL_ATTR_AUTOCOMMIT, Number(SQL_AUTOCOMMIT_ON), 0);
}

Statement::Statement(const Connection& connection, bool is_static) {
  SQLAllocHandle(SQL_HANDLE_STMT, connection.Handle(), &m_statement);
  if (is_static) SQLSetStmtAttr(m_statement, SQL_ATTR_CURSOR_TYPE, Number(SQL_CURSOR_STATIC), 0);
}

Statement::~Statement() { SQLFreeHandle(SQL_HANDLE_STMT, m_statement); }

void Statement::Require(SQLRETURN code) const {
  if (!SQL_SUCCEEDED(code)) Fail(SQL_HANDLE_STMT, m_statement);
}

void Statement::Prepare(const char* sql) {
  Require(SQLPrepare(m_statement, reinterpret_cast<SQLCHAR*>(const_cast<char*>(sql)), SQL_NTS));
}

void Statement::Column(int number, SQLSMALLINT type, void* buffer, SQLLEN size) {
  Require(SQLBindCol(m_statement, static_cast<SQLUSMALLINT>(number), type, buffer, size, &m_columns[number]));
}

void Statement::Parameter(int number, SQLINTEGER* value) {
  Require(SQLBindParameter(m_statement, static_cast<SQLUSMALLINT>(number), SQL_PARAM_INPUT, SQL_C_SLONG,
                           SQL_INTEGER, 0, 0, value, 0, &m_parameters[number]));
}

void Statement::Parameter(int number, char* text, SQLULEN width) {
  m_parameters[number] = SQL_NTS;
  Require(SQLBindParameter(m_statement, static_cast<SQLUSMALLINT>(number), SQL_PARAM_INPUT, SQL_C_CHAR,
                           SQL_VARCHAR, width, 0, text, static_cast<SQLLEN>(width) + 1,
                           &m_parameters[number]));
}

void Statement::Execute() {
  CloseRows();
  Require(SQLExecute(m_statement));
}

void Statement::Execute(const char* sql) {
  CloseRows();
  Require(SQLExecDirect(m_statement, reinterpret_cast<SQLCHAR*>(const_cast<char*>(sql)), SQL_NTS));
}

}  // namespace bench
