#include "platform/static_cursor.h"

#include <algorithm>

StaticCursor::StaticCursor(odbc::Connection& connection, DWORD query_timeout) : m_statement(connection) {
  m_statement.AskForStaticCursor();
  m_statement.AskForQueryTimeout(query_timeout);
}

RETCODE StaticCursor::Execute(const CString& sql, Run run) {
  // One driver refuses to execute again while the old result is open.
  if (m_executed) m_statement.CloseCursor();
  m_executed = true;
  m_position = kBeforeFirst;
  m_in_gap = false;
  m_driver_row = 0;
  m_physical_count = kUnknown;
  m_deleted.clear();
  if (run == Run::kDirect) return m_statement.ExecuteDirect(sql);
  if (sql != m_prepared_sql) {
    const RETCODE code = m_statement.Prepare(sql);
    if (!odbc::Succeeded(code)) return code;
    m_prepared_sql = sql;
  }
  return m_statement.Execute();
}

RETCODE StaticCursor::ColumnCount(SWORD* count) { return m_statement.ColumnCount(count); }

RETCODE StaticCursor::DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info) {
  return m_statement.DescribeColumn(column, info);
}

RETCODE StaticCursor::BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                                 SQLLEN* indicator) {
  return m_statement.BindColumn(column, c_type, buffer, size, indicator);
}

RETCODE StaticCursor::GetData(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                              SQLLEN* indicator) {
  return m_statement.GetData(column, c_type, buffer, size, indicator);
}

RETCODE StaticCursor::Fetch(WORD type, SQLLEN row) {
  switch (type) {
    case SQL_FETCH_FIRST:
      return FetchLogical(1);
    case SQL_FETCH_LAST:
      return FetchFromEnd(1);
    case SQL_FETCH_NEXT:
      return FetchRelative(1);
    case SQL_FETCH_PRIOR:
      return FetchRelative(-1);
    case SQL_FETCH_RELATIVE:
      return FetchRelative(row);
    case SQL_FETCH_ABSOLUTE:
      return row < 0 ? FetchFromEnd(-row) : FetchLogical(row);
    default:
      return SQL_ERROR;
  }
}

RETCODE StaticCursor::FetchRelative(SQLLEN rows) {
  if (m_position == kAfterLast) return rows < 0 ? FetchFromEnd(-rows) : RETCODE{SQL_NO_DATA};
  // Backwards from a gap, the row before the gap is one step away.
  const SQLLEN base = m_in_gap && rows < 0 ? m_position + 1 : m_position;
  return FetchLogical(base + rows);
}

RETCODE StaticCursor::FetchFromEnd(SQLLEN rows_from_end) {
  SQLLEN count = 0;
  const RETCODE code = Count(&count);
  return odbc::Succeeded(code) ? FetchLogical(count + 1 - rows_from_end) : code;
}

// After a fetch that failed, rather than found no row, the position is what it was.
RETCODE StaticCursor::FetchLogical(SQLLEN row) {
  const bool before = row < 1;
  const RETCODE code = before ? RETCODE{SQL_NO_DATA} : FetchPhysical(PhysicalRow(row));
  if (!odbc::Succeeded(code) && code != SQL_NO_DATA) return code;
  m_in_gap = false;
  m_position = odbc::Succeeded(code) ? row : before ? kBeforeFirst : kAfterLast;
  return code;
}

RETCODE StaticCursor::FetchPhysical(SQLLEN row) {
  const RETCODE code = FetchRow(row);
  m_driver_row = odbc::Succeeded(code) ? row : kUnknown;
  return code;
}

RETCODE StaticCursor::FetchRow(SQLLEN row) {
  // Drivers reach the next row faster by NEXT than by its number.
  const bool next = m_driver_row != kUnknown && row == m_driver_row + 1;
  return next ? m_statement.ExtendedFetch(SQL_FETCH_NEXT, 0)
              : m_statement.ExtendedFetch(SQL_FETCH_ABSOLUTE, row);
}

RETCODE StaticCursor::Refresh() { return FetchPhysical(PhysicalRow(m_position)); }

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
    RETCODE code = m_statement.ExtendedFetch(SQL_FETCH_LAST, 0);
    SQLLEN rows = 0;
    if (odbc::Succeeded(code)) {
      rows = static_cast<SQLLEN>(m_statement.RowNumber());
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
