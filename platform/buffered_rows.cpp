#include "platform/buffered_rows.h"

#include <algorithm>
#include <cstring>

#include "platform/text_value.h"

namespace {

bool IsBinary(SWORD sql_type) {
  return sql_type == SQL_BINARY || sql_type == SQL_VARBINARY || sql_type == SQL_LONGVARBINARY;
}

// The next piece of the value, as SQLGetData hands it out.
RETCODE GivePiece(const std::string& bytes, bool zero_byte, void* buffer, SQLLEN size, SQLLEN* indicator,
                  std::size_t* given) {
  if (*given != 0 && *given == bytes.size()) return SQL_NO_DATA;
  const std::size_t left = bytes.size() - *given;
  const std::size_t room = static_cast<std::size_t>(size) - (zero_byte ? 1 : 0);
  const std::size_t piece = std::min(left, room);
  std::memcpy(buffer, bytes.data() + *given, piece);
  if (zero_byte) static_cast<char*>(buffer)[piece] = '\0';
  *given += piece;
  *indicator = static_cast<SQLLEN>(left);
  return piece < left ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

RETCODE Give(const std::optional<std::string>& cell, SWORD c_type, void* buffer, SQLLEN size,
             SQLLEN* indicator, std::size_t* given) {
  if (!cell) {
    *indicator = SQL_NULL_DATA;
    return SQL_SUCCESS;
  }
  if (c_type == SQL_C_CHAR || c_type == SQL_C_BINARY) {
    return GivePiece(*cell, c_type == SQL_C_CHAR, buffer, size, indicator, given);
  }
  return text_value::Read(*cell, c_type, buffer, indicator);
}

}  // namespace

RETCODE BufferedRows::Execute(const RowQuery& query) {
  m_taken = false;
  m_columns.clear();
  m_rows.clear();
  m_bound.clear();
  m_current = nullptr;
  const RETCODE code = StaticCursor::Execute(query);
  return odbc::Succeeded(code) ? TakeResult() : code;
}

RETCODE BufferedRows::TakeResult() {
  RETCODE code = DescribeResult();
  if (!odbc::Succeeded(code)) return code;
  if (!m_columns.empty()) {
    do {
      code = TakeRow();
    } while (odbc::Succeeded(code));
    if (code != SQL_NO_DATA) return code;
  }
  m_taken = true;
  return EndCall();
}

RETCODE BufferedRows::DescribeResult() {
  SWORD count = 0;
  RETCODE code = StaticCursor::ColumnCount(&count);
  if (!odbc::Succeeded(code)) return code;
  m_columns.resize(static_cast<std::size_t>(count));
  SQLUSMALLINT column = 0;
  for (CODBCFieldInfo& info : m_columns) {
    code = StaticCursor::DescribeColumn(++column, &info);
    if (odbc::Succeeded(code)) code = StaticCursor::Nullability(column, &info.m_nNullability);
    if (!odbc::Succeeded(code)) return code;
  }
  return SQL_SUCCESS;
}

RETCODE BufferedRows::TakeRow() {
  const RETCODE fetched = Statement().ExtendedFetch(SQL_FETCH_NEXT, 0);
  if (!odbc::Succeeded(fetched)) return fetched;
  std::vector<Cell> row;
  row.reserve(m_columns.size());
  std::string bytes;
  bool null = false;
  SQLUSMALLINT column = 0;
  for (const CODBCFieldInfo& info : m_columns) {
    const SWORD c_type = IsBinary(info.m_nSQLType) ? SWORD{SQL_C_BINARY} : SWORD{SQL_C_CHAR};
    const RETCODE code = ReadWhole(++column, c_type, &bytes, &null);
    if (!odbc::Succeeded(code)) return code;
    row.push_back(null ? Cell() : Cell(bytes));
  }
  m_rows.push_back(std::move(row));
  return SQL_SUCCESS;
}

RETCODE BufferedRows::EndCall() {
  RETCODE code = SQL_SUCCESS;
  while (odbc::Succeeded(code)) code = Statement().MoreResults();
  if (code != SQL_NO_DATA) return code;
  Statement().CloseCursor();
  return SQL_SUCCESS;
}

RETCODE BufferedRows::ColumnCount(SWORD* count) {
  *count = static_cast<SWORD>(m_columns.size());
  return SQL_SUCCESS;
}

RETCODE BufferedRows::DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info) {
  if (column < 1 || column > m_columns.size()) return SQL_ERROR;
  *info = m_columns[column - 1U];
  return SQL_SUCCESS;
}

RETCODE BufferedRows::Nullability(SQLUSMALLINT column, SWORD* nullability) {
  if (column < 1 || column > m_columns.size()) return SQL_ERROR;
  *nullability = m_columns[column - 1U].m_nNullability;
  return SQL_SUCCESS;
}

RETCODE BufferedRows::BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                                 SQLLEN* indicator) {
  if (column < 1 || column > m_columns.size()) return SQL_ERROR;
  m_bound.push_back({column, c_type, buffer, size, indicator});
  return SQL_SUCCESS;
}

RETCODE BufferedRows::FetchRow(SQLLEN row) {
  m_current = nullptr;
  if (row < 1 || static_cast<std::size_t>(row) > m_rows.size()) return SQL_NO_DATA;
  m_current = &m_rows[static_cast<std::size_t>(row - 1)];
  m_given.assign(m_columns.size(), 0);
  for (const Bound& bound : m_bound) {
    std::size_t given = 0;  // a bound column is given whole each time
    const RETCODE code = Give((*m_current)[bound.column - 1U], bound.c_type, bound.buffer, bound.size,
                              bound.indicator, &given);
    if (!odbc::Succeeded(code)) return code;
  }
  return SQL_SUCCESS;
}

RETCODE BufferedRows::CountPhysical(SQLLEN* count) {
  *count = static_cast<SQLLEN>(m_rows.size());
  return SQL_SUCCESS;
}

RETCODE BufferedRows::GetData(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                              SQLLEN* indicator) {
  if (!m_taken) return StaticCursor::GetData(column, c_type, buffer, size, indicator);
  if (m_current == nullptr || column < 1 || column > m_columns.size()) return SQL_ERROR;
  return Give((*m_current)[column - 1U], c_type, buffer, size, indicator, &m_given[column - 1U]);
}
