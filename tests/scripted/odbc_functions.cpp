// The functions of the played ODBC library that the library calls.
#include <odbcinst.h>

#include <algorithm>
#include <cstring>

#include "tests/scripted/script.h"

using scripted::Handle;
using scripted::TheScript;

namespace {

constexpr SQLRETURN kDone = SQL_SUCCESS;

bool Works(SQLRETURN code) { return code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO; }

const char* KindName(SQLSMALLINT kind) {
  return kind == SQL_HANDLE_ENV ? " env" : kind == SQL_HANDLE_DBC ? " dbc" : " stmt";
}

std::string Given(const SQLCHAR* text, SQLINTEGER length) {
  const char* bytes = reinterpret_cast<const char*>(text);
  return length == SQL_NTS ? std::string(bytes) : std::string(bytes, static_cast<std::size_t>(length));
}

SQLSMALLINT CopyText(const std::string& text, SQLCHAR* buffer, SQLSMALLINT size) {
  if (buffer != nullptr && size > 0) {
    const std::size_t copied = std::min(text.size(), static_cast<std::size_t>(size - 1));
    std::memcpy(buffer, text.data(), copied);
    buffer[copied] = 0;
  }
  return static_cast<SQLSMALLINT>(text.size());
}

// Texts that do not fit are cut to the last byte when the driver writes no zero byte.
SQLRETURN PutText(const std::string& text, SQLPOINTER buffer, SQLLEN size, bool zero_byte) {
  const std::size_t room = static_cast<std::size_t>(size) - (zero_byte ? 1 : 0);
  const std::size_t copied = std::min(text.size(), room);
  std::memcpy(buffer, text.data(), copied);
  if (zero_byte) static_cast<char*>(buffer)[copied] = 0;
  return copied < text.size() ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

SQLRETURN PutCell(const scripted::Cell& cell, const Handle::Bound& bound, bool zero_byte) {
  if (!cell) {
    *bound.indicator = SQL_NULL_DATA;
    return SQL_SUCCESS;
  }
  if (bound.type == SQL_C_SLONG) {
    const SQLINTEGER number = std::stoi(*cell);
    std::memcpy(bound.buffer, &number, sizeof number);
    *bound.indicator = sizeof number;
    return SQL_SUCCESS;
  }
  *bound.indicator = TheScript().lengths ? static_cast<SQLLEN>(cell->size()) : SQL_NO_TOTAL;
  return PutText(*cell, bound.buffer, bound.size, zero_byte);
}

SQLLEN Target(const Handle& statement, SQLUSMALLINT type, SQLLEN row) {
  switch (type) {
    case SQL_FETCH_FIRST:
      return 1;
    case SQL_FETCH_LAST:
      return statement.Rows();
    case SQL_FETCH_NEXT:
      return statement.row + 1;
    case SQL_FETCH_PRIOR:
      return statement.row - 1;
    case SQL_FETCH_RELATIVE:
      return statement.row + row;
    default:
      return row < 0 ? statement.Rows() + 1 + row : row;
  }
}

SQLRETURN FillBound(Handle* statement) {
  SQLRETURN code = SQL_SUCCESS;
  for (const auto& [column, bound] : statement->bound) {
    const auto& row = statement->result.rows[static_cast<std::size_t>(statement->row - 1)];
    if (PutCell(row[column - 1U], bound, TheScript().zero_bytes) != SQL_SUCCESS) code = SQL_SUCCESS_WITH_INFO;
  }
  if (code == SQL_SUCCESS_WITH_INFO) statement->records.push_back({"01004"});
  return code;
}

SQLRETURN RunChange(const std::string& sql) {
  const bool change = sql.starts_with("UPDATE") || sql.starts_with("DELETE") || sql.starts_with("INSERT");
  return change && TheScript().row_count == 0 && TheScript().no_data_for_none ? SQL_NO_DATA : SQL_SUCCESS;
}

}  // namespace

// The headers of ODBC name parameters in a way of their own.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT kind, SQLHANDLE input, SQLHANDLE* output) {
  static Handle root;
  Handle* parent = kind == SQL_HANDLE_ENV ? &root : TheScript().Find(input);
  const SQLRETURN code = TheScript().Begin(std::string("SQLAllocHandle") + KindName(kind), parent);
  *output = Works(code) ? TheScript().Make(kind, parent) : SQL_NULL_HANDLE;
  return code;
}

SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT kind, SQLHANDLE handle) {
  Handle* found = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin(std::string("SQLFreeHandle") + KindName(kind), found);
  if (Works(code)) TheScript().Free(found);
  return code;
}

SQLRETURN SQL_API SQLSetEnvAttr(SQLHENV handle, SQLINTEGER, SQLPOINTER, SQLINTEGER) {
  return TheScript().Begin("SQLSetEnvAttr", TheScript().Find(handle));
}

SQLRETURN SQL_API SQLSetConnectAttr(SQLHDBC handle, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
  const SQLRETURN code = TheScript().Begin("SQLSetConnectAttr", TheScript().Find(handle));
  if (Works(code)) TheScript().connection_attributes[attribute] = reinterpret_cast<SQLULEN>(value);
  return code;
}

SQLRETURN SQL_API SQLGetConnectAttr(SQLHDBC handle, SQLINTEGER, SQLPOINTER value, SQLINTEGER, SQLINTEGER*) {
  const SQLRETURN code = TheScript().Begin("SQLGetConnectAttr", TheScript().Find(handle));
  if (Works(code)) *static_cast<SQLUINTEGER*>(value) = TheScript().dead ? SQL_CD_TRUE : SQL_CD_FALSE;
  return code;
}

SQLRETURN SQL_API SQLDriverConnect(SQLHDBC handle, SQLHWND, SQLCHAR* in, SQLSMALLINT length, SQLCHAR* out,
                                   SQLSMALLINT size, SQLSMALLINT* needed, SQLUSMALLINT completion) {
  TheScript().connection_string = Given(in, length);
  *needed = CopyText(TheScript().connection_string, out, size);
  TheScript().completion = completion;
  return TheScript().Begin("SQLDriverConnect", TheScript().Find(handle));
}

SQLRETURN SQL_API SQLDisconnect(SQLHDBC handle) {
  return TheScript().Begin("SQLDisconnect", TheScript().Find(handle));
}

SQLRETURN SQL_API SQLEndTran(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT) {
  return TheScript().Begin("SQLEndTran", TheScript().Find(handle));
}

SQLRETURN SQL_API SQLGetInfo(SQLHDBC handle, SQLUSMALLINT item, SQLPOINTER value, SQLSMALLINT size,
                             SQLSMALLINT* length) {
  const SQLRETURN code = TheScript().Begin("SQLGetInfo", TheScript().Find(handle));
  if (!Works(code)) return code;
  if (TheScript().untold.contains(item)) return SQL_ERROR;
  switch (item) {
    case SQL_TXN_CAPABLE:
      *static_cast<SQLUSMALLINT*>(value) = TheScript().transactions ? SQL_TC_ALL : SQL_TC_NONE;
      return code;
    case SQL_IDENTIFIER_CASE:
      *static_cast<SQLUSMALLINT*>(value) = TheScript().identifier_case;
      return code;
    case SQL_SCROLL_OPTIONS:
      *static_cast<SQLUINTEGER*>(value) = TheScript().scroll_options;
      return code;
    default:
      break;
  }
  const std::string text = item == SQL_DBMS_NAME    ? TheScript().dbms
                           : item == SQL_PROCEDURES ? (TheScript().procedures ? "Y" : "N")
                                                    : "played";
  *length = CopyText(text, static_cast<SQLCHAR*>(value), size);
  return code;
}

SQLRETURN SQL_API SQLGetDiagRec(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT number, SQLCHAR* state,
                                SQLINTEGER* native, SQLCHAR* message, SQLSMALLINT size, SQLSMALLINT* length) {
  const Handle* found = TheScript().Find(handle);
  if (found == nullptr) return SQL_INVALID_HANDLE;
  if (static_cast<std::size_t>(number) > found->records.size()) return SQL_NO_DATA;
  const scripted::Record& record = found->records[static_cast<std::size_t>(number - 1)];
  CopyText(record.state, state, 6);
  *native = record.native;
  *length = CopyText(record.message, message, size);
  return kDone;
}

SQLRETURN SQL_API SQLSetStmtAttr(SQLHSTMT handle, SQLINTEGER, SQLPOINTER, SQLINTEGER) {
  return TheScript().Begin("SQLSetStmtAttr", TheScript().Find(handle));
}

SQLRETURN SQL_API SQLGetStmtAttr(SQLHSTMT handle, SQLINTEGER, SQLPOINTER value, SQLINTEGER, SQLINTEGER*) {
  Handle* statement = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin("SQLGetStmtAttr", statement);
  if (!Works(code)) return code;
  const SQLULEN number = TheScript().true_row_number && statement->OnRow()
                             ? static_cast<SQLULEN>(statement->row)
                             : TheScript().row_number;
  std::memcpy(value, &number, sizeof number);
  return code;
}

SQLRETURN SQL_API SQLPrepare(SQLHSTMT handle, SQLCHAR* sql, SQLINTEGER length) {
  Handle* statement = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin("SQLPrepare", statement);
  if (Works(code)) statement->sql = Given(sql, length);
  return code;
}

SQLRETURN SQL_API SQLExecute(SQLHSTMT handle) {
  Handle* statement = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin("SQLExecute", statement);
  if (Works(code)) TheScript().Run(statement, statement->sql);
  return code;
}

SQLRETURN SQL_API SQLExecDirect(SQLHSTMT handle, SQLCHAR* sql, SQLINTEGER length) {
  Handle* statement = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin("SQLExecDirect", statement);
  if (!Works(code)) return code;
  TheScript().Run(statement, Given(sql, length));
  return RunChange(statement->sql) == SQL_NO_DATA ? SQL_NO_DATA : code;
}

SQLRETURN SQL_API SQLTables(SQLHSTMT handle, SQLCHAR*, SQLSMALLINT, SQLCHAR*, SQLSMALLINT, SQLCHAR* name,
                            SQLSMALLINT length, SQLCHAR*, SQLSMALLINT) {
  Handle* statement = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin("SQLTables", statement);
  if (Works(code) && TheScript().views) statement->result = {{{"TABLE_NAME"}}, {{Given(name, length)}}};
  return code;
}

SQLRETURN SQL_API SQLMoreResults(SQLHSTMT handle) {
  const SQLRETURN code = TheScript().Begin("SQLMoreResults", TheScript().Find(handle));
  return code == SQL_SUCCESS ? SQL_NO_DATA : code;
}

SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT handle, SQLUSMALLINT) {
  return TheScript().Begin("SQLFreeStmt", TheScript().Find(handle));
}

SQLRETURN SQL_API SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT* count) {
  Handle* statement = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin("SQLNumResultCols", statement);
  if (Works(code)) *count = static_cast<SQLSMALLINT>(statement->result.columns.size());
  return code;
}

SQLRETURN SQL_API SQLDescribeCol(SQLHSTMT handle, SQLUSMALLINT column, SQLCHAR* name, SQLSMALLINT size,
                                 SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* precision,
                                 SQLSMALLINT* scale, SQLSMALLINT* nullable) {
  Handle* statement = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin("SQLDescribeCol", statement);
  if (!Works(code)) return code;
  const scripted::Column& described = statement->result.columns[column - 1U];
  if (type != nullptr || nullable != nullptr) ++TheScript().catalogue_questions;
  *length = CopyText(described.name, name, size);
  if (type != nullptr) *type = described.type;
  if (precision != nullptr) *precision = described.size;
  if (scale != nullptr) *scale = 0;
  if (nullable != nullptr) *nullable = described.nullable;
  return code;
}

SQLRETURN SQL_API SQLColAttribute(SQLHSTMT handle, SQLUSMALLINT column, SQLUSMALLINT attribute, SQLPOINTER,
                                  SQLSMALLINT, SQLSMALLINT*, SQLLEN* number) {
  Handle* statement = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin("SQLColAttribute", statement);
  if (!Works(code)) return code;
  const SQLSMALLINT type = statement->result.columns[column - 1U].type;
  const bool is_time = type >= SQL_TYPE_DATE && type <= SQL_TYPE_TIMESTAMP;
  *number = is_time && attribute == SQL_DESC_TYPE ? SQLSMALLINT{SQL_DATETIME} : type;
  return code;
}

SQLRETURN SQL_API SQLBindCol(SQLHSTMT handle, SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER buffer,
                             SQLLEN size, SQLLEN* indicator) {
  Handle* statement = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin("SQLBindCol", statement);
  if (Works(code)) statement->bound[column] = {type, buffer, size, indicator};
  return code;
}

SQLRETURN SQL_API SQLBindParameter(SQLHSTMT handle, SQLUSMALLINT, SQLSMALLINT, SQLSMALLINT, SQLSMALLINT,
                                   SQLULEN, SQLSMALLINT, SQLPOINTER, SQLLEN, SQLLEN*) {
  return TheScript().Begin("SQLBindParameter", TheScript().Find(handle));
}

SQLRETURN SQL_API SQLExtendedFetch(SQLHSTMT handle, SQLUSMALLINT type, SQLLEN row, SQLULEN* fetched,
                                   SQLUSMALLINT* status) {
  Handle* statement = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin("SQLExtendedFetch", statement);
  if (!Works(code)) return code;
  const SQLLEN target = Target(*statement, type, row);
  statement->row = std::clamp<SQLLEN>(target, 0, statement->Rows() + 1);
  statement->given.clear();
  if (!statement->OnRow()) return SQL_NO_DATA;
  *fetched = 1;
  *status = TheScript().row_error ? SQL_ROW_ERROR : SQL_ROW_SUCCESS;
  const SQLRETURN filled = FillBound(statement);
  return code == SQL_SUCCESS ? filled : code;
}

SQLRETURN SQL_API SQLGetData(SQLHSTMT handle, SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER buffer,
                             SQLLEN size, SQLLEN* indicator) {
  Handle* statement = TheScript().Find(handle);
  const SQLRETURN code = TheScript().Begin("SQLGetData", statement);
  if (!Works(code)) return code;
  if (!statement->OnRow()) return SQL_ERROR;
  const scripted::Cell& cell =
      statement->result.rows[static_cast<std::size_t>(statement->row - 1)][column - 1U];
  if (!cell || type != SQL_C_CHAR) return PutCell(cell, {type, buffer, size, indicator}, true);
  std::size_t& given = statement->given[column];
  if (given > cell->size()) return SQL_NO_DATA;
  const std::string rest = cell->substr(given);
  *indicator = static_cast<SQLLEN>(rest.size());
  const SQLRETURN put = PutText(rest, buffer, size, true);
  given += put == SQL_SUCCESS ? rest.size() + 1 : static_cast<std::size_t>(size - 1);
  return put;
}

SQLRETURN SQL_API SQLRowCount(SQLHSTMT handle, SQLLEN* count) {
  const SQLRETURN code = TheScript().Begin("SQLRowCount", TheScript().Find(handle));
  if (Works(code)) *count = TheScript().row_count;
  return code;
}

int INSTAPI SQLGetPrivateProfileString(LPCSTR section, LPCSTR key, LPCSTR fallback, LPSTR value, int size,
                                       LPCSTR file) {
  const auto& ini = TheScript().ini;
  const auto found = ini.find(std::string(file) + "/" + section + "/" + key);
  const std::string text = found == ini.end() ? fallback : found->second;
  return CopyText(text, reinterpret_cast<SQLCHAR*>(value), static_cast<SQLSMALLINT>(size));
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
