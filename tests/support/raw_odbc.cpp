#include "tests/support/raw_odbc.h"

#include <sqlext.h>

#include <array>
#include <stdexcept>

namespace support {
namespace {

SQLCHAR* Chars(const std::string& text) {
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

std::string Diagnosis(SQLSMALLINT type, SQLHANDLE handle) {
  std::array<SQLCHAR, 6> state{};
  std::array<SQLCHAR, 512> message{};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  if (!SQL_SUCCEEDED(SQLGetDiagRec(type, handle, 1, state.data(), &native, message.data(),
                                   static_cast<SQLSMALLINT>(message.size()), &length))) {
    return "no diagnosis";
  }
  return std::string(reinterpret_cast<char*>(state.data())) + " " + reinterpret_cast<char*>(message.data());
}

void Require(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle, const std::string& what) {
  if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA) return;
  throw std::runtime_error(what + ": " + Diagnosis(type, handle));
}

class Statement {
 public:
  explicit Statement(SQLHDBC connection) {
    Require(SQLAllocHandle(SQL_HANDLE_STMT, connection, &m_handle), SQL_HANDLE_DBC, connection, "statement");
  }
  ~Statement() { SQLFreeHandle(SQL_HANDLE_STMT, m_handle); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void Run(const std::string& sql, const std::vector<std::string>& parameters) {
    std::vector<SQLLEN> lengths(parameters.size(), SQL_NTS);
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      const auto number = static_cast<SQLUSMALLINT>(i + 1);
      const SQLULEN size = parameters[i].empty() ? 1 : parameters[i].size();
      Check(SQLBindParameter(m_handle, number, SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR, size, 0,
                             Chars(parameters[i]), 0, &lengths[i]),
            sql);
    }
    Check(SQLExecDirect(m_handle, Chars(sql), SQL_NTS), sql);
  }

  std::vector<Row> Rows(const std::string& sql) {
    SQLSMALLINT columns = 0;
    Check(SQLNumResultCols(m_handle, &columns), sql);
    std::vector<Row> rows;
    while (columns > 0) {
      const SQLRETURN code = SQLFetch(m_handle);
      Check(code, sql);
      if (code == SQL_NO_DATA) break;
      Row& row = rows.emplace_back();
      for (SQLUSMALLINT column = 1; column <= columns; ++column) {
        row.push_back(WithoutEmptyFraction(ReadColumn(column, sql), column));
      }
    }
    return rows;
  }

 private:
  void Check(SQLRETURN code, const std::string& sql) const { Require(code, SQL_HANDLE_STMT, m_handle, sql); }

  // Long texts come in pieces; each piece but the last fills the buffer up to its zero byte.
  Value ReadColumn(SQLUSMALLINT column, const std::string& sql) {
    std::string text;
    std::array<char, 4096> piece{};
    for (;;) {
      SQLLEN left = 0;
      const SQLRETURN code = SQLGetData(m_handle, column, SQL_C_CHAR, piece.data(), piece.size(), &left);
      Check(code, sql);
      if (left == SQL_NULL_DATA) return std::nullopt;
      if (code == SQL_NO_DATA) return text;
      const auto room = static_cast<SQLLEN>(piece.size() - 1);
      const bool cut = left == SQL_NO_TOTAL || left > room;
      text.append(piece.data(), static_cast<std::size_t>(cut ? room : left));
      if (!cut) return text;
    }
  }

  // Databases tell a time of whole seconds with a fraction of nothing, or without one.
  Value WithoutEmptyFraction(Value value, SQLUSMALLINT column) const {
    const std::string fraction = ".000000";
    SQLLEN type = 0;
    SQLColAttribute(m_handle, column, SQL_DESC_CONCISE_TYPE, nullptr, 0, nullptr, &type);
    if (value && type == SQL_TYPE_TIMESTAMP && value->ends_with(fraction)) {
      value->resize(value->size() - fraction.size());
    }
    return value;
  }

  SQLHSTMT m_handle = SQL_NULL_HSTMT;
};

std::string ConnectionString(const Practice& practice) {
  const tagDBCONNECT parameters = practice.Parameters();
  std::string text = "DSN=" + practice.Dsn();
  if (parameters.szUID[0] != '\0') text += std::string(";UID=") + parameters.szUID;
  if (parameters.szPWD[0] != '\0') text += std::string(";PWD=") + parameters.szPWD;
  return text;
}

}  // namespace

RawOdbc::RawOdbc(const Practice& practice) : RawOdbc(ConnectionString(practice)) {}

RawOdbc::RawOdbc(const std::string& connection_string) {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment);
  SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection);
  const SQLRETURN code = SQLDriverConnect(m_connection, nullptr, Chars(connection_string), SQL_NTS, nullptr,
                                          0, nullptr, SQL_DRIVER_NOPROMPT);
  if (SQL_SUCCEEDED(code)) return;
  const std::string diagnosis = Diagnosis(SQL_HANDLE_DBC, m_connection);
  SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
  SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
  throw std::runtime_error("connecting: " + diagnosis);
}

RawOdbc::~RawOdbc() {
  SQLDisconnect(m_connection);
  SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
  SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

void RawOdbc::Exec(const std::string& sql) { Statement(m_connection).Run(sql, {}); }

std::vector<Row> RawOdbc::Query(const std::string& sql) { return Query(sql, {}); }

std::vector<Row> RawOdbc::Query(const std::string& sql, const std::vector<std::string>& parameters) {
  Statement statement(m_connection);
  statement.Run(sql, parameters);
  return statement.Rows(sql);
}

std::string TextOf(const std::vector<Row>& rows) {
  std::string text;
  for (const Row& row : rows) {
    for (const Value& value : row) text += value.value_or("") + "\n";
  }
  return text;
}

Value RawOdbc::Scalar(const std::string& sql) {
  const std::vector<Row> rows = Query(sql);
  if (rows.empty() || rows[0].empty()) throw std::runtime_error(sql + ": no row");
  return rows[0][0];
}

std::string RawOdbc::Text(const std::string& sql) {
  const Value value = Scalar(sql);
  if (!value) throw std::runtime_error(sql + ": NULL");
  return *value;
}

int RawOdbc::Number(const std::string& sql) { return std::stoi(Text(sql)); }

int RawOdbc::Count(const std::string& table, const std::string& condition) {
  return Number("SELECT COUNT(*) FROM " + table + " WHERE " + condition);
}

}  // namespace support
