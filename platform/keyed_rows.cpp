#include "platform/keyed_rows.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace {

using Cursor = KeptStatements::Cursor;

constexpr SQLULEN kKeysAtOnce = 1024;

}  // namespace

KeyedRows::KeyedRows(CDatabase& database, std::size_t key_column)
    : StaticCursor(database.Statements()), m_database(database), m_key_column(key_column) {}

KeyedRows::~KeyedRows() { m_database.Statements().GiveBack(std::move(m_row)); }

void KeyedRows::Forget() {
  ForgetPositions();
  m_database.Statements().GiveBack(std::move(m_row));
  m_keys.clear();
  m_bound.clear();
  m_page.reset();
  m_ahead.Forget();
  m_unique = true;
  m_pages_allowed = m_row_bound = m_row_holds = false;
}

RETCODE KeyedRows::Execute(const RowQuery& query) {
  Forget();
  m_query = query;
  const RETCODE code = ReadKeys();
  m_unique = !odbc::Succeeded(code) || (m_unique && KeysAreUnique());
  return code;
}

void KeyedRows::ExecuteNothing() {
  Forget();
  m_handle = SQL_NULL_HSTMT;
}

// All at once, so that the driver's copy of them can go.
RETCODE KeyedRows::ReadKeys() {
  // Without an order a query of the keys alone may come in that of any index; one of all columns would not.
  const CString order = m_query.order.IsEmpty() ? " ORDER BY " + m_query.key : m_query.order;
  const MarkedSQL marked = TakeOutLiterals(("SELECT " + m_query.key + " FROM " + m_query.tables).View(),
                                           m_query.condition.View(), order.View());
  KeptStatements& statements = m_database.Statements();
  std::unique_ptr<KeptStatement>& kept = Kept();
  statements.GiveBack(std::move(kept));
  kept = statements.TakeForIndex(marked);
  RETCODE code = statements.Run(marked, &kept);
  m_handle = kept->statement.Handle();
  std::array<LONG, kKeysAtOnce> keys = {};
  std::array<SQLLEN, kKeysAtOnce> indicators = {};
  if (odbc::Succeeded(code) && !kept->statement.AskForRows(kKeysAtOnce)) code = SQL_ERROR;
  if (odbc::Succeeded(code)) {
    code = kept->statement.BindColumn(1, SQL_C_SLONG, keys.data(), sizeof keys[0], indicators.data());
  }
  while (odbc::Succeeded(code)) {
    SQLULEN fetched = 0;
    code = kept->statement.FetchRows(kKeysAtOnce, &fetched);
    if (!odbc::Succeeded(code)) break;
    for (SQLULEN i = 0; i < fetched; ++i) m_unique = m_unique && indicators[i] != SQL_NULL_DATA;
    m_keys.insert(m_keys.end(), keys.begin(), keys.begin() + static_cast<std::ptrdiff_t>(fetched));
  }
  if (code != SQL_NO_DATA) return code;
  kept->statement.UnbindColumns();
  kept->statement.CloseCursor();
  return SQL_SUCCESS;
}

bool KeyedRows::KeysAreUnique() const {
  if (m_keys.empty()) return true;
  const auto [lowest, highest] = std::minmax_element(m_keys.begin(), m_keys.end());
  const auto range = static_cast<std::size_t>(std::int64_t{*highest} - *lowest) + 1;
  constexpr std::size_t kDense = 64;  // bits spent on a key where that is quicker than sorting
  if (range / kDense <= m_keys.size()) {
    std::vector<bool> seen(range);
    for (const LONG key : m_keys) {
      const auto place = static_cast<std::size_t>(std::int64_t{key} - *lowest);
      if (seen[place]) return false;
      seen[place] = true;
    }
    return true;
  }
  std::vector<LONG> sorted = m_keys;
  std::sort(sorted.begin(), sorted.end());
  return std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end();
}

// The columns are those of the statement that reads a row; without rows it looks for a key that is not there.
RETCODE KeyedRows::ColumnCount(SWORD* count) {
  if (m_row == nullptr) {
    const RETCODE code = ReadRow(m_keys.empty() ? 0 : m_keys.front());
    if (!odbc::Succeeded(code) && code != SQL_NO_DATA) return code;
  }
  return m_row->statement.ColumnCount(count);
}

RETCODE KeyedRows::DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info) {
  SWORD count = 0;
  const RETCODE code = ColumnCount(&count);
  return odbc::Succeeded(code) ? m_row->statement.DescribeColumn(column, info) : code;
}

RETCODE KeyedRows::Nullability(SQLUSMALLINT column, SWORD* nullability) {
  SWORD count = 0;
  const RETCODE code = ColumnCount(&count);
  return odbc::Succeeded(code) ? m_row->statement.Nullability(column, nullability) : code;
}

RETCODE KeyedRows::BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                              SQLLEN* indicator) {
  m_bound.push_back({column, c_type, buffer, size, indicator});
  m_row_bound = false;
  return SQL_SUCCESS;
}

CString KeyedRows::RowCondition() const {
  return m_query.join.IsEmpty() ? " WHERE " + m_query.key : " WHERE " + m_query.join + " AND " + m_query.key;
}

RETCODE KeyedRows::ReadRow(LONG key) {
  KeptStatements& statements = m_database.Statements();
  m_row_holds = false;
  if (m_row == nullptr) {
    m_row = statements.Take({m_query.select + RowCondition() + "=?", {NumberValue(key)}}, Cursor::kNone);
    m_row_bound = false;
  } else {
    m_row->statement.CloseCursor();
  }
  const KeptStatement* before = m_row.get();
  m_row->values.front().number = key;
  RETCODE code = statements.RunAgain(&m_row);
  m_row_bound = m_row_bound && m_row.get() == before;
  m_handle = m_row->statement.Handle();
  if (!odbc::Succeeded(code)) return code;
  if (!m_row_bound) {
    for (const BoundColumn& bound : m_bound) {
      code =
          m_row->statement.BindColumn(bound.column, bound.c_type, bound.buffer, bound.size, bound.indicator);
      if (!odbc::Succeeded(code)) return code;
    }
    m_row_bound = true;
  }
  code = m_row->statement.ExtendedFetch(SQL_FETCH_NEXT, 0);
  m_row_holds = odbc::Succeeded(code);
  m_row_key = key;
  return code;
}

RETCODE KeyedRows::ReadPage(const ReadAhead::Range& range) {
  if (m_page == nullptr) {
    m_page =
        std::make_unique<RowPage>(*m_database.Connection(), m_database.QueryTimeout(), m_bound, m_key_column);
  }
  std::string keys;
  for (SQLLEN row = range.first; row < range.first + range.rows; ++row) {
    if (!keys.empty()) keys += ',';
    keys += std::to_string(KeyAt(row));
  }
  const CString sql = m_query.select + RowCondition() + " IN (" + CString(std::move(keys)) + ")";
  m_ahead.BeginPage();
  m_handle = m_page->Statement().Handle();
  const ReadAhead::Moment then = Now();
  const RETCODE code = m_page->Read(sql, static_cast<std::size_t>(range.rows));
  if (odbc::Succeeded(code)) m_ahead.HavePage(range, then);
  return code;
}

ReadAhead::Moment KeyedRows::Now() const { return {ReadAhead::Clock::now(), m_database.ChangeCount()}; }

RETCODE KeyedRows::GiveFromPage(SQLLEN row) {
  m_ahead.Give(row);
  m_row_holds = false;
  return m_page->Give(KeyAt(row)) ? SQL_SUCCESS : SQL_NO_DATA;
}

RETCODE KeyedRows::FetchRow(SQLLEN row) {
  if (row < 1 || row > Count()) return SQL_NO_DATA;
  if (row == m_ahead.Visited() || !m_pages_allowed) {
    m_ahead.VisitAlone(row);
    return ReadRow(KeyAt(row));
  }
  const ReadAhead::Range range = m_ahead.Visit(row, Count(), Now());
  if (range.rows == 1) return ReadRow(KeyAt(row));
  if (range.rows > 1) {
    const RETCODE code = ReadPage(range);
    if (!odbc::Succeeded(code)) return code;
  }
  return GiveFromPage(row);
}

RETCODE KeyedRows::CountPhysical(SQLLEN* count) {
  *count = Count();
  return SQL_SUCCESS;
}

RETCODE KeyedRows::GetData(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size, SQLLEN* indicator) {
  const SQLLEN row = RowIdentity();
  if (row < 1 || row > Count()) return SQL_NO_DATA;
  if (!m_row_holds || m_row_key != KeyAt(row)) {
    const RETCODE code = ReadRow(KeyAt(row));
    if (!odbc::Succeeded(code)) return code;
  }
  return m_row->statement.GetData(column, c_type, buffer, size, indicator);
}

RETCODE KeyedRows::Refresh() {
  const SQLLEN row = RowIdentity();
  return row < 1 || row > Count() ? RETCODE{SQL_NO_DATA} : ReadRow(KeyAt(row));
}

bool KeyedRows::TakeChange(LONG key) {
  m_keys[static_cast<std::size_t>(RowIdentity() - 1)] = key;
  m_row_holds = false;
  return true;
}

SQLLEN KeyedRows::FindKey(LONG key) const {
  for (std::size_t i = 0; i < m_keys.size(); ++i) {
    if (m_keys[i] != key) continue;
    if (const SQLLEN row = LogicalRow(static_cast<SQLLEN>(i) + 1); row != 0) return row;
  }
  return 0;
}
