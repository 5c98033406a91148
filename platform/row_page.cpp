#include "platform/row_page.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr SQLULEN kRowsAtOnce = 32;

}  // namespace

RowPage::RowPage(odbc::Connection& connection, DWORD query_timeout, std::vector<BoundColumn> columns,
                 std::size_t key)
    : m_statement(connection), m_columns(std::move(columns)), m_key(key) {
  m_statement.AskForQueryTimeout(query_timeout);
}

RETCODE RowPage::Bind() {
  if (!m_blocks.empty()) return SQL_SUCCESS;
  if (!m_statement.AskForRows(kRowsAtOnce)) return SQL_ERROR;
  m_blocks.resize(m_columns.size());
  for (std::size_t i = 0; i < m_columns.size(); ++i) {
    const BoundColumn& column = m_columns[i];
    m_blocks[i].values.resize(kRowsAtOnce * static_cast<std::size_t>(column.size));
    m_blocks[i].indicators.resize(kRowsAtOnce);
    const RETCODE code = m_statement.BindColumn(column.column, column.c_type, m_blocks[i].values.data(),
                                                column.size, m_blocks[i].indicators.data());
    if (!odbc::Succeeded(code)) return code;
  }
  return SQL_SUCCESS;
}

RETCODE RowPage::Read(const CString& sql, std::size_t expected) {
  m_rows.clear();
  m_places.clear();
  m_places.reserve(expected);
  RETCODE code = Bind();
  if (odbc::Succeeded(code)) code = m_statement.ExecuteDirect(sql);
  while (odbc::Succeeded(code)) {
    SQLULEN fetched = 0;
    code = m_statement.FetchRows(kRowsAtOnce, &fetched);
    if (!odbc::Succeeded(code)) break;
    for (std::size_t row = 0; row < fetched; ++row) TakeRow(row);
  }
  if (code != SQL_NO_DATA) return code;
  m_statement.CloseCursor();
  // Most databases have sorted them already.
  std::sort(m_places.begin(), m_places.end());
  return SQL_SUCCESS;
}

// The bytes of a value, its zero byte not among them.
std::size_t RowPage::Length(std::size_t column, SQLLEN indicator) const {
  if (indicator == SQL_NULL_DATA) return 0;
  const auto size = static_cast<std::size_t>(m_columns[column].size);
  if (m_columns[column].c_type != SQL_C_CHAR || indicator < 0) return size;
  return std::min(static_cast<std::size_t>(indicator), size);
}

void RowPage::TakeRow(std::size_t row) {
  LONG key = 0;
  std::memcpy(&key, m_blocks[m_key].values.data() + row * sizeof key, sizeof key);
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < m_columns.size(); ++i) {
    bytes += sizeof(SQLLEN) + Length(i, m_blocks[i].indicators[row]);
  }
  m_places.emplace_back(key, m_rows.size());
  m_rows.resize(m_rows.size() + bytes);
  char* to = m_rows.data() + m_rows.size() - bytes;
  for (std::size_t i = 0; i < m_columns.size(); ++i) {
    const SQLLEN indicator = m_blocks[i].indicators[row];
    const std::size_t length = Length(i, indicator);
    std::memcpy(to, &indicator, sizeof indicator);
    std::memcpy(to + sizeof indicator,
                m_blocks[i].values.data() + row * static_cast<std::size_t>(m_columns[i].size), length);
    to += sizeof indicator + length;
  }
}

bool RowPage::Give(LONG key) const {
  const auto place = std::lower_bound(m_places.begin(), m_places.end(), std::pair<LONG, std::size_t>(key, 0));
  if (place == m_places.end() || place->first != key) return false;
  const char* from = m_rows.data() + place->second;
  for (std::size_t i = 0; i < m_columns.size(); ++i) {
    const BoundColumn& column = m_columns[i];
    std::memcpy(column.indicator, from, sizeof *column.indicator);
    from += sizeof *column.indicator;
    const std::size_t length = Length(i, *column.indicator);
    std::memcpy(column.buffer, from, length);
    from += length;
  }
  return true;
}
