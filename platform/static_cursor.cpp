#include "platform/static_cursor.h"

#include <algorithm>

StaticCursor::StaticCursor(odbc::Connection& connection, DWORD query_timeout)
    : m_kept(std::make_unique<KeptStatement>(connection)) {
  Statement().AskForStaticCursor();
  Statement().AskForQueryTimeout(query_timeout);
}

StaticCursor::StaticCursor(KeptStatements& statements) : m_statements(&statements) {}

StaticCursor::~StaticCursor() {
  if (m_statements != nullptr) m_statements->GiveBack(std::move(m_kept));
}

HSTMT StaticCursor::Handle() { return m_kept == nullptr ? SQL_NULL_HSTMT : Statement().Handle(); }

void StaticCursor::ForgetPositions() {
  m_position = kBeforeFirst;
  m_in_gap = false;
  m_driver_row = 0;
  m_buffered_row = kUnknown;
  m_physical_count = kUnknown;
  m_deleted.clear();
}

RETCODE StaticCursor::Execute(const RowQuery& query) {
  ForgetPositions();
  return m_statements == nullptr ? ExecuteOwn(query) : ExecuteKept(query);
}

void StaticCursor::ExecuteNothing() {
  ForgetPositions();
  if (m_statements != nullptr) m_statements->GiveBack(std::move(m_kept));
  m_physical_count = 0;
}

RETCODE StaticCursor::ExecuteOwn(const RowQuery& query) {
  // One driver refuses to execute again while the old result is open.
  if (m_executed) Statement().CloseCursor();
  m_executed = true;
  if (query.direct) return Statement().ExecuteDirect(query.Whole());
  if (query.Whole() != m_prepared_sql) {
    const RETCODE code = Statement().Prepare(query.Whole());
    if (!odbc::Succeeded(code)) return code;
    m_prepared_sql = query.Whole();
  }
  return Statement().Execute();
}

RETCODE StaticCursor::ExecuteKept(const RowQuery& query) {
  m_statements->GiveBack(std::move(m_kept));
  const MarkedSQL marked = TakeOutLiterals(query.select.View(), query.condition.View(), query.order.View());
  m_kept = m_statements->Take(marked, Kind());
  return m_statements->Run(marked, &m_kept);
}

RETCODE StaticCursor::ColumnCount(SWORD* count) { return Statement().ColumnCount(count); }

RETCODE StaticCursor::DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info) {
  if (m_kept == nullptr) return SQL_ERROR;
  return Statement().DescribeColumn(column, info);
}

RETCODE StaticCursor::Nullability(SQLUSMALLINT column, SWORD* nullability) {
  if (m_kept == nullptr) return SQL_ERROR;
  return Statement().Nullability(column, nullability);
}

std::shared_ptr<RowBuffer> StaticCursor::Bound() {
  return m_statements != nullptr && m_kept != nullptr ? m_kept->row : nullptr;
}

void StaticCursor::BeginBinding(const std::shared_ptr<RowBuffer>& row) {
  if (m_statements == nullptr || m_kept == nullptr) return;
  if (m_kept->row != nullptr) Statement().UnbindColumns();
  m_kept->row = row;
}

RETCODE StaticCursor::BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                                 SQLLEN* indicator) {
  return Statement().BindColumn(column, c_type, buffer, size, indicator);
}

RETCODE StaticCursor::GetData(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                              SQLLEN* indicator) {
  // The row may stand in the buffers while the driver's cursor has gone on.
  if (m_all_bound && m_driver_row != PhysicalRow(m_position)) {
    const RETCODE code = Refresh();
    if (!odbc::Succeeded(code)) return code;
  }
  return Statement().GetData(column, c_type, buffer, size, indicator);
}

RETCODE StaticCursor::Fetch(WORD type, SQLLEN row) {
  switch (type) {
    case SQL_FETCH_FIRST:
      return FetchLogical(1, 1);
    case SQL_FETCH_LAST:
      return FetchFromEnd(1, -1);
    case SQL_FETCH_NEXT:
      return FetchRelative(1);
    case SQL_FETCH_PRIOR:
      return FetchRelative(-1);
    case SQL_FETCH_RELATIVE:
      return FetchRelative(row);
    case SQL_FETCH_ABSOLUTE:
      return row < 0 ? FetchFromEnd(-row, 0) : FetchLogical(row, 0);
    default:
      return SQL_ERROR;
  }
}

RETCODE StaticCursor::FetchRelative(SQLLEN rows) {
  // One row on is a walk, which passes over rows that are gone; a longer way leads to a row or to none.
  const SQLLEN step = rows == 1 || rows == -1 ? rows : 0;
  if (m_position == kAfterLast) return rows < 0 ? FetchFromEnd(-rows, step) : RETCODE{SQL_NO_DATA};
  // Backwards from a gap, the row before the gap is one step away.
  const SQLLEN base = m_in_gap && rows < 0 ? m_position + 1 : m_position;
  return FetchLogical(base + rows, step);
}

RETCODE StaticCursor::FetchFromEnd(SQLLEN rows_from_end, SQLLEN step) {
  SQLLEN count = 0;
  const RETCODE code = Count(&count);
  return odbc::Succeeded(code) ? FetchLogical(count + 1 - rows_from_end, step) : code;
}

// After a fetch that failed, rather than found no row, the position is what it was. `step` leads on from rows
// that are gone; 0 for not at all.
RETCODE StaticCursor::FetchLogical(SQLLEN row, SQLLEN step) {
  bool before = row < 1;
  RETCODE code = before ? RETCODE{SQL_NO_DATA} : FetchPhysical(PhysicalRow(row));
  while (code == SQL_NO_DATA && !before && step != 0 && IsGone(PhysicalRow(row))) {
    row += step;
    before = row < 1;
    if (!before) code = FetchPhysical(PhysicalRow(row));
  }
  if (!odbc::Succeeded(code) && code != SQL_NO_DATA) return code;
  m_in_gap = false;
  m_position = odbc::Succeeded(code) ? row : before ? kBeforeFirst : kAfterLast;
  return code;
}

RETCODE StaticCursor::FetchPhysical(SQLLEN row) {
  if (m_all_bound && row == m_buffered_row) return SQL_SUCCESS;
  if (m_physical_count != kUnknown && row > m_physical_count) return SQL_NO_DATA;
  const RETCODE code = FetchRow(row);
  m_driver_row = odbc::Succeeded(code) ? row : kUnknown;
  if (code != SQL_NO_DATA) m_buffered_row = code == SQL_SUCCESS ? row : kUnknown;
  return code;
}

RETCODE StaticCursor::FetchRow(SQLLEN row) {
  // Drivers reach the next row faster by NEXT than by its number.
  const bool next = m_driver_row != kUnknown && row == m_driver_row + 1;
  return next ? Statement().ExtendedFetch(SQL_FETCH_NEXT, 0)
              : Statement().ExtendedFetch(SQL_FETCH_ABSOLUTE, row);
}

RETCODE StaticCursor::Refresh() {
  m_buffered_row = kUnknown;
  return FetchPhysical(PhysicalRow(m_position));
}

void StaticCursor::ForgetCurrentRow() {
  const SQLLEN physical = PhysicalRow(m_position);
  m_deleted.insert(std::upper_bound(m_deleted.begin(), m_deleted.end(), physical), physical);
  --m_position;
  m_in_gap = true;
}

// Deleted row number i (from 0) stood where logical row m_deleted[i] - i is now: those up to `logical` are
// stepped over.
SQLLEN StaticCursor::PhysicalRow(SQLLEN logical) const {
  std::size_t low = 0;
  std::size_t high = m_deleted.size();
  while (low < high) {
    const std::size_t middle = low + (high - low) / 2;
    if (m_deleted[middle] - static_cast<SQLLEN>(middle) <= logical) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return logical + static_cast<SQLLEN>(low);
}

SQLLEN StaticCursor::LogicalRow(SQLLEN physical) const {
  const auto behind = std::lower_bound(m_deleted.begin(), m_deleted.end(), physical);
  return behind != m_deleted.end() && *behind == physical ? 0 : physical - (behind - m_deleted.begin());
}

RETCODE StaticCursor::Count(SQLLEN* count) {
  const RETCODE code = CountPhysical(count);
  *count -= static_cast<SQLLEN>(m_deleted.size());
  return code;
}

// The driver's row number on the last row is believed only when a fetch confirms it: two of three
// drivers give none.
RETCODE StaticCursor::CountPhysical(SQLLEN* count) {
  if (m_physical_count == kUnknown) {
    m_driver_row = kUnknown;
    RETCODE code = Statement().ExtendedFetch(SQL_FETCH_LAST, 0);
    SQLLEN rows = 0;
    if (odbc::Succeeded(code)) {
      rows = static_cast<SQLLEN>(Statement().RowNumber());
      if (rows < 1 || !IsLastRow(rows)) code = ProbeCount(&rows);
    }
    if (!odbc::Succeeded(code) && code != SQL_NO_DATA) return code;
    m_physical_count = rows;
  }
  *count = m_physical_count;
  return SQL_SUCCESS;
}

bool StaticCursor::IsLastRow(SQLLEN row) {
  return odbc::Succeeded(FetchPhysical(row)) && FetchPhysical(row + 1) == SQL_NO_DATA;
}

// Finds the highest row that can be fetched, by doubling and then halving a step. A failed fetch ends it:
// the rows behind it are not known not to be.
RETCODE StaticCursor::ProbeCount(SQLLEN* count) {
  *count = 0;
  SQLLEN step = 1;
  bool doubling = true;
  while (step > 0) {
    const RETCODE code = FetchPhysical(*count + step);
    if (!odbc::Succeeded(code) && code != SQL_NO_DATA) return code;
    if (odbc::Succeeded(code)) *count += step;
    doubling = doubling && odbc::Succeeded(code);
    step = doubling ? 2 * step : step / 2;
  }
  return SQL_SUCCESS;
}
