#include "platform/odbc.h"

#include <odbcinst.h>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <limits>
#include <type_traits>

#include <fmt/format.h>

#include "platform/dialect.h"
#include "platform/log.h"
#include "platform/secret_text.h"

namespace odbc {
namespace {

constexpr std::size_t kMessageSize = 1024;
constexpr std::size_t kNameSize = 256;
constexpr SQLULEN kDateCharacters = 10;       // 2001-05-06
constexpr SQLULEN kTimestampCharacters = 19;  // and 10:11:12 behind it

// Text parameters of ODBC are not const in C, though none is written to.
SQLCHAR* Text(const char* text) { return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text)); }

// Numeric attributes travel in the pointer argument.
SQLPOINTER Number(SQLULEN value) { return reinterpret_cast<SQLPOINTER>(value); }

// Only a driver that has been asked to run in the background is "still executing". One that does so unasked
// gets as long as a statement may take; 0 is for ever.
DWORD the_patience_seconds = 15;

// How long a call has been repeated. Looks at the clock only when a call is.
class Patience {
 public:
  bool IsOver() {
    const auto now = std::chrono::steady_clock::now();
    if (!m_start) m_start = now;
    return the_patience_seconds != 0 && now - *m_start > std::chrono::seconds(the_patience_seconds);
  }

 private:
  std::optional<std::chrono::steady_clock::time_point> m_start;
};

// The driver manager refuses to free a statement that is still executing, so it is cancelled; what other
// handles are at, nothing can end.
template <class Handle, class... Rest>
void Cancel(Handle handle, Rest...) {
  if constexpr (std::is_pointer_v<Handle>) SQLCancel(handle);
}

unsigned the_calls_given_up = 0;

// Makes one ODBC call: repeats it at once while the driver is still executing, and traces it.
template <class... Parameters>
RETCODE Call(const char* name, RETCODE (*function)(Parameters...),
             std::type_identity_t<Parameters>... arguments) {
  RETCODE code = function(arguments...);
  for (Patience patience; code == SQL_STILL_EXECUTING;) {
    const bool over = patience.IsOver();
    if (over) Cancel(arguments...);
    if (over) ++the_calls_given_up;
    code = function(arguments...);
    if (over && code == SQL_STILL_EXECUTING) code = SQL_ERROR;
  }
  if (klog::Enabled(klog::Level::kTrace)) klog::Trace(fmt::format("{} -> {}", name, code));
  return code;
}

Diagnostics Diagnose(SQLSMALLINT kind, SQLHANDLE handle) {
  Diagnostics records;
  if (handle == SQL_NULL_HANDLE) return records;
  for (SQLSMALLINT number = 1;; ++number) {
    SQLCHAR state[6] = {};
    SQLCHAR message[kMessageSize] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const RETCODE code = Call("SQLGetDiagRec", SQLGetDiagRec, kind, handle, number, state, &native, message,
                              static_cast<SQLSMALLINT>(sizeof message), &length);
    if (!Succeeded(code)) return records;
    records.push_back({reinterpret_cast<char*>(state), native, reinterpret_cast<char*>(message)});
  }
}

std::string Entry(const char* file, const char* section, const char* key) {
  if (*section == '\0') return std::string();  // would list the sections
  char value[kMessageSize] = {};
  SQLGetPrivateProfileString(section, key, "", value, static_cast<int>(sizeof value), file);
  return value;
}

// One driver sets the character type of the whole process at connect. The locale belongs to the program, and
// no driver needs the change for texts in UTF-8.
class KeptLocale {
 public:
  KeptLocale() : m_character_type(Current()) {}
  ~KeptLocale() {
    if (Current() != m_character_type) std::setlocale(LC_CTYPE, m_character_type.c_str());
  }
  KeptLocale(const KeptLocale&) = delete;
  KeptLocale& operator=(const KeptLocale&) = delete;

 private:
  static std::string Current() { return std::setlocale(LC_CTYPE, nullptr); }

  const std::string m_character_type;
};

}  // namespace

void SetPatience(DWORD seconds) { the_patience_seconds = seconds; }

std::string SourceEntry(const char* source, const char* key) { return Entry("odbc.ini", source, key); }
std::string DriverEntry(const char* driver, const char* key) { return Entry("odbcinst.ini", driver, key); }

Diagnostics DiagnoseStatement(SQLHSTMT statement) { return Diagnose(SQL_HANDLE_STMT, statement); }

RETCODE Connection::Allocate() {
  RETCODE code = Call("SQLAllocHandle", SQLAllocHandle, SQL_HANDLE_ENV, nullptr, &m_environment);
  if (!Succeeded(code)) return SQL_ERROR;
  code = Call("SQLSetEnvAttr", SQLSetEnvAttr, m_environment, SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0);
  if (!Succeeded(code)) return SQL_ERROR;
  return Call("SQLAllocHandle", SQLAllocHandle, SQL_HANDLE_DBC, m_environment, &m_connection);
}

Connection::~Connection() {
  if (!m_ends_statements) FreeStatements();
  if (m_connected) Disconnect();
  FreeStatements();
  if (m_connection != SQL_NULL_HDBC) Call("SQLFreeHandle", SQLFreeHandle, SQL_HANDLE_DBC, m_connection);
  if (m_environment != SQL_NULL_HENV) Call("SQLFreeHandle", SQLFreeHandle, SQL_HANDLE_ENV, m_environment);
}

void Connection::Disconnect() {
  // One driver refuses to disconnect inside a transaction. Without one nothing is asked of the server: it
  // may have fallen silent.
  if (!m_autocommit) EndTransaction(false);
  RETCODE code = Call("SQLDisconnect", SQLDisconnect, m_connection);
  // A connection that was not ended keeps its locks, and can never be freed.
  if (!Succeeded(code)) {
    EndTransaction(false);
    code = Call("SQLDisconnect", SQLDisconnect, m_connection);
  }
  if (Succeeded(code)) ForgetStatements();
}

void Connection::FreeStatements() {
  // Freeing a statement takes it off the list.
  while (!m_statements.empty()) m_statements.back()->Free();
}

void Connection::ForgetStatements() {
  for (Statement* statement : m_statements) statement->m_statement = SQL_NULL_HSTMT;
  m_statements.clear();
}

RETCODE Connection::SetLoginTimeout(DWORD seconds) {
  return Call("SQLSetConnectAttr", SQLSetConnectAttr, m_connection, SQL_ATTR_LOGIN_TIMEOUT, Number(seconds),
              SQL_IS_UINTEGER);
}

RETCODE Connection::SetAccessReadOnly() {
  return Call("SQLSetConnectAttr", SQLSetConnectAttr, m_connection, SQL_ATTR_ACCESS_MODE,
              Number(SQL_MODE_READ_ONLY), SQL_IS_UINTEGER);
}

RETCODE Connection::Connect(const char* connection_string) {
  const KeptLocale locale;
  SecretBuffer<SQLCHAR> completed(kMessageSize);
  SQLSMALLINT length = 0;
  const RETCODE code =
      Call("SQLDriverConnect", SQLDriverConnect, m_connection, nullptr, Text(connection_string), SQL_NTS,
           completed.data(), static_cast<SQLSMALLINT>(completed.size()), &length, SQL_DRIVER_NOPROMPT);
  m_connected = Succeeded(code);
  return code;
}

RETCODE Connection::SetAutocommit(bool on) {
  const SQLULEN value = on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
  const RETCODE code = Call("SQLSetConnectAttr", SQLSetConnectAttr, m_connection, SQL_ATTR_AUTOCOMMIT,
                            Number(value), SQL_IS_UINTEGER);
  // After a failure either may hold: a transaction is then reckoned with.
  m_autocommit = on && Succeeded(code);
  return code;
}

RETCODE Connection::EndTransaction(bool commit) {
  const SQLSMALLINT end = commit ? SQL_COMMIT : SQL_ROLLBACK;
  return Call("SQLEndTran", SQLEndTran, SQL_HANDLE_DBC, m_connection, end);
}

bool Connection::IsDead() const {
  SQLUINTEGER dead = SQL_CD_FALSE;
  const RETCODE code = Call("SQLGetConnectAttr", SQLGetConnectAttr, m_connection, SQL_ATTR_CONNECTION_DEAD,
                            &dead, SQL_IS_UINTEGER, nullptr);
  return Succeeded(code) && dead == SQL_CD_TRUE;
}

std::string Connection::InfoText(SQLUSMALLINT item) const {
  char text[kNameSize] = {};
  SQLSMALLINT length = 0;
  const RETCODE code = Call("SQLGetInfo", SQLGetInfo, m_connection, item, text,
                            static_cast<SQLSMALLINT>(sizeof text - 1), &length);
  return Succeeded(code) ? std::string(text) : std::string();
}

SQLUSMALLINT Connection::InfoNumber(SQLUSMALLINT item) const {
  SQLUSMALLINT value = 0;
  SQLSMALLINT length = 0;
  const RETCODE code = Call("SQLGetInfo", SQLGetInfo, m_connection, item, &value,
                            static_cast<SQLSMALLINT>(sizeof value), &length);
  return Succeeded(code) ? value : SQLUSMALLINT{0};
}

std::optional<SQLUINTEGER> Connection::InfoBits(SQLUSMALLINT item) const {
  SQLUINTEGER bits = 0;
  SQLSMALLINT length = 0;
  const RETCODE code = Call("SQLGetInfo", SQLGetInfo, m_connection, item, &bits,
                            static_cast<SQLSMALLINT>(sizeof bits), &length);
  return Succeeded(code) ? std::optional(bits) : std::nullopt;
}

std::string Connection::DatabaseName() const {
  std::string name(kMessageSize, '\0');
  SQLSMALLINT length = 0;
  const RETCODE code = Call("SQLGetInfo", SQLGetInfo, m_connection, SQL_DATABASE_NAME, name.data(),
                            static_cast<SQLSMALLINT>(name.size() - 1), &length);
  if (!Succeeded(code)) return std::string();
  name.resize(name.find('\0'));
  return name;
}

Diagnostics Connection::Diagnose() const { return odbc::Diagnose(SQL_HANDLE_DBC, m_connection); }

Statement::Statement(Connection& connection) : m_connection(&connection) {
  // First, because it takes memory: a handle that nobody knows would never be freed.
  connection.m_statements.push_back(this);
  const RETCODE code =
      Call("SQLAllocHandle", SQLAllocHandle, SQL_HANDLE_STMT, connection.m_connection, &m_statement);
  if (!Succeeded(code)) {
    m_statement = SQL_NULL_HSTMT;
    connection.m_statements.pop_back();
  }
}

Statement::~Statement() { Free(); }

void Statement::Free() {
  if (m_statement == SQL_NULL_HSTMT) return;
  Call("SQLFreeHandle", SQLFreeHandle, SQL_HANDLE_STMT, m_statement);
  m_statement = SQL_NULL_HSTMT;
  auto& statements = m_connection->m_statements;
  statements.erase(std::find(statements.begin(), statements.end(), this));
}

void Statement::AskForStaticCursor() {
  if (m_statement == SQL_NULL_HSTMT) return;
  Call("SQLSetStmtAttr", SQLSetStmtAttr, m_statement, SQL_ATTR_CURSOR_TYPE, Number(SQL_CURSOR_STATIC),
       SQL_IS_UINTEGER);
  Call("SQLSetStmtAttr", SQLSetStmtAttr, m_statement, SQL_ATTR_CONCURRENCY, Number(SQL_CONCUR_READ_ONLY),
       SQL_IS_UINTEGER);
}

void Statement::AskForQueryTimeout(DWORD seconds) {
  if (m_statement == SQL_NULL_HSTMT || seconds == 0) return;  // no limit is what every statement begins with
  Call("SQLSetStmtAttr", SQLSetStmtAttr, m_statement, SQL_ATTR_QUERY_TIMEOUT, Number(seconds),
       SQL_IS_UINTEGER);
}

RETCODE Statement::Logged(const CString& sql, RETCODE (Statement::*run)()) {
  m_given_up = false;
  if (!klog::Enabled(klog::Level::kDebug)) return (this->*run)();
  const auto start = std::chrono::steady_clock::now();
  const RETCODE code = (this->*run)();
  klog::Statement(sql.View(), std::chrono::steady_clock::now() - start);
  return code;
}

RETCODE Statement::Prepare(const CString& sql) {
  if (m_statement == SQL_NULL_HSTMT) return SQL_INVALID_HANDLE;
  m_sql = sql;
  const RETCODE code = Call("SQLPrepare", SQLPrepare, m_statement, Text(sql), sql.GetLength());
  // The statement that will not be executed is the one that a reader of the log looks for.
  if (!Succeeded(code)) klog::Statement(sql.View(), {});
  return code;
}

RETCODE Statement::RunPrepared() { return Call("SQLExecute", SQLExecute, m_statement); }

RETCODE Statement::RunDirect() {
  return Call("SQLExecDirect", SQLExecDirect, m_statement, Text(m_sql), m_sql.GetLength());
}

RETCODE Statement::Execute() {
  if (m_statement == SQL_NULL_HSTMT) return SQL_INVALID_HANDLE;
  return Logged(m_sql, &Statement::RunPrepared);
}

RETCODE Statement::ExecuteDirect(const CString& sql) {
  if (m_statement == SQL_NULL_HSTMT) return SQL_INVALID_HANDLE;
  if (m_connection->m_prepares_what_answers && (IsSelect(sql) || IsCall(sql))) {
    const RETCODE code = Prepare(sql);
    return Succeeded(code) ? Execute() : code;
  }
  m_sql = sql;
  return Logged(m_sql, &Statement::RunDirect);
}

RETCODE Statement::MoreResults() { return Call("SQLMoreResults", SQLMoreResults, m_statement); }

RETCODE Statement::CloseCursor() { return Call("SQLFreeStmt", SQLFreeStmt, m_statement, SQL_CLOSE); }

RETCODE Statement::ColumnCount(SWORD* count) {
  return Call("SQLNumResultCols", SQLNumResultCols, m_statement, count);
}

// The type is asked for otherwise: asked for it here, one driver asks the server's catalogue.
RETCODE Statement::DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info) {
  SQLCHAR name[kNameSize] = {};
  SQLSMALLINT length = 0;
  SQLULEN precision = 0;
  RETCODE code =
      Call("SQLDescribeCol", SQLDescribeCol, m_statement, column, name, static_cast<SQLSMALLINT>(sizeof name),
           &length, nullptr, &precision, &info->m_nScale, nullptr);
  if (!Succeeded(code)) return code;
  info->m_strName = reinterpret_cast<char*>(name);
  info->m_nPrecision = static_cast<DWORD>(std::min<SQLULEN>(precision, std::numeric_limits<DWORD>::max()));
  code = ColumnNumber(column, SQL_DESC_TYPE, &info->m_nSQLType);
  if (!Succeeded(code) || info->m_nSQLType != SQL_DATETIME) return code;
  if (precision == kDateCharacters && info->m_nScale == 0) {  // with a digit of the second it is a time
    info->m_nSQLType = SQL_TYPE_DATE;
  } else if (precision >= kTimestampCharacters) {
    info->m_nSQLType = SQL_TYPE_TIMESTAMP;
  } else {
    code = ColumnNumber(column, SQL_DESC_CONCISE_TYPE, &info->m_nSQLType);
  }
  return code;
}

RETCODE Statement::ColumnNumber(SQLUSMALLINT column, SQLUSMALLINT attribute, SWORD* number) {
  SQLLEN value = 0;
  const RETCODE code = Call("SQLColAttribute", SQLColAttribute, m_statement, column, attribute, nullptr,
                            SQLSMALLINT{0}, nullptr, &value);
  if (Succeeded(code)) *number = static_cast<SWORD>(value);
  return code;
}

RETCODE Statement::Nullability(SQLUSMALLINT column, SWORD* nullability) {
  SQLCHAR name[kNameSize] = {};
  SQLSMALLINT length = 0;
  return Call("SQLDescribeCol", SQLDescribeCol, m_statement, column, name,
              static_cast<SQLSMALLINT>(sizeof name), &length, nullptr, nullptr, nullptr, nullability);
}

RETCODE Statement::BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                              SQLLEN* indicator) {
  return Call("SQLBindCol", SQLBindCol, m_statement, column, c_type, buffer, size, indicator);
}

RETCODE Statement::UnbindColumns() { return Call("SQLFreeStmt", SQLFreeStmt, m_statement, SQL_UNBIND); }

RETCODE Statement::BindParameter(SQLUSMALLINT position, Parameter* parameter) {
  void* value = parameter->c_type == SQL_C_SLONG ? static_cast<void*>(&parameter->number)
                                                 : static_cast<void*>(parameter->text.data());
  return Call("SQLBindParameter", SQLBindParameter, m_statement, position, SQL_PARAM_INPUT, parameter->c_type,
              parameter->sql_type, parameter->size, parameter->digits, value,
              static_cast<SQLLEN>(parameter->text.size()), &parameter->indicator);
}

// Cutting a bound text is the layer's own affair: a fetch whose only information is a cut text succeeded.
RETCODE Statement::WithoutCuts(RETCODE code) const {
  if (code != SQL_SUCCESS_WITH_INFO) return code;
  const Diagnostics records = Diagnose();
  const bool only_cut = std::all_of(records.begin(), records.end(),
                                    [](const DiagRecord& record) { return record.state == "01004"; });
  return only_cut && !records.empty() ? RETCODE{SQL_SUCCESS} : code;
}

// One driver tells of a row at every number, and fills none, once a call for a row was given up: there are no
// more until the statement is executed again.
template <class Read>
RETCODE Statement::ReadFromCursor(Read read) {
  if (m_statement == SQL_NULL_HSTMT) return SQL_INVALID_HANDLE;
  if (m_given_up) return SQL_ERROR;
  const unsigned before = the_calls_given_up;
  const RETCODE code = read();
  m_given_up = the_calls_given_up != before;
  return code;
}

RETCODE Statement::ExtendedFetch(SQLUSMALLINT type, SQLLEN row) {
  SQLULEN fetched = 0;
  SQLUSMALLINT status = 0;
  return ReadFromCursor([&] {
    return WithoutCuts(Call("SQLExtendedFetch", SQLExtendedFetch, m_statement, type, row, &fetched, &status));
  });
}

bool Statement::AskForRows(SQLULEN rows) {
  return Succeeded(
      Call("SQLSetStmtAttr", SQLSetStmtAttr, m_statement, SQL_ROWSET_SIZE, Number(rows), SQL_IS_UINTEGER));
}

RETCODE Statement::FetchRows(SQLULEN rows, SQLULEN* fetched) {
  *fetched = 0;
  std::vector<SQLUSMALLINT> status(rows);
  const RETCODE code = ReadFromCursor([&] {
    return Call("SQLExtendedFetch", SQLExtendedFetch, m_statement, SQL_FETCH_NEXT, SQLLEN{0}, fetched,
                status.data());
  });
  if (Succeeded(code) && std::find(status.begin(), status.end(), SQL_ROW_ERROR) != status.end()) {
    return SQL_ERROR;
  }
  return WithoutCuts(code);
}

RETCODE Statement::GetData(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size, SQLLEN* indicator) {
  return ReadFromCursor(
      [&] { return Call("SQLGetData", SQLGetData, m_statement, column, c_type, buffer, size, indicator); });
}

RETCODE Statement::ReadNumber(LONG* number) {
  SQLLEN indicator = 0;
  const RETCODE code = ExtendedFetch(SQL_FETCH_NEXT, 0);
  return Succeeded(code) ? GetData(1, SQL_C_SLONG, number, sizeof *number, &indicator) : code;
}

RETCODE Statement::RowCount(SQLLEN* count) { return Call("SQLRowCount", SQLRowCount, m_statement, count); }

SQLULEN Statement::RowNumber() const {
  SQLULEN number = 0;
  const RETCODE code = Call("SQLGetStmtAttr", SQLGetStmtAttr, m_statement, SQL_ATTR_ROW_NUMBER, &number,
                            SQL_IS_UINTEGER, nullptr);
  return Succeeded(code) ? number : 0;
}

bool Statement::MayBeView(const CString& name) {
  SQLCHAR view[] = "VIEW";
  RETCODE code =
      Call("SQLTables", SQLTables, m_statement, nullptr, 0, nullptr, 0, Text(name), SQL_NTS, view, SQL_NTS);
  if (Succeeded(code)) code = ExtendedFetch(SQL_FETCH_NEXT, 0);
  return code != SQL_NO_DATA;
}

}  // namespace odbc
