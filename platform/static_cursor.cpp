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

RETCODE StaticCursor::Bind(RowFields& fields) { return fields.Bind(m_statement); }

RETCODE StaticCursor::Fetch(WORD type, SQLLEN row) {
  switch (type) {
    case SQL_FETCH_FIRST:
      return FetchLogical(1);
    case SQL_FETCH_LAST:
      return FetchFromEnd(1);
    case SQL_FETCH_NEXT:
      if (m_position == kAfterLast) return SQL_NO_DATA;
      return FetchLogical(m_position + 1);
    case SQL_FETCH_PRIOR:
      return FetchLogical(RelativeBase(-1) - 1);
    case SQL_FETCH_RELATIVE:
      return FetchLogical(RelativeBase(row) + row);
    case SQL_FETCH_ABSOLUTE:
      return row < 0 ? FetchFromEnd(-row) : FetchLogical(row);
    default:
      return SQL_ERROR;
  }
}

// The row that a relative move of `rows` counts from. Backwards from a gap, the row before the gap is
// one step away.
SQLLEN StaticCursor::RelativeBase(SQLLEN rows) {
  if (m_position == kAfterLast) return Count() + 1;
  return m_in_gap && rows < 0 ? m_position + 1 : m_position;
}

RETCODE StaticCursor::FetchFromEnd(SQLLEN rows_from_end) { return FetchLogical(Count() + 1 - rows_from_end); }

RETCODE StaticCursor::FetchLogical(SQLLEN row) {
  m_in_gap = false;
  if (row < 1) {
    m_position = kBeforeFirst;
    return SQL_NO_DATA;
  }
  const RETCODE code = FetchPhysical(PhysicalRow(row));
  m_position = odbc::Succeeded(code) ? row : kAfterLast;
  return code;
}

RETCODE StaticCursor::FetchPhysical(SQLLEN row) {
  // NEXT is the only direction that a forward-only result has.
  const bool next = m_driver_row != kUnknown && row == m_driver_row + 1;
  const RETCODE code = next ? m_statement.ExtendedFetch(SQL_FETCH_NEXT, 0)
                            : m_statement.ExtendedFetch(SQL_FETCH_ABSOLUTE, row);
  m_driver_row = odbc::Succeeded(code) ? row : kUnknown;
  return code;
}

RETCODE StaticCursor::Refresh() { return FetchPhysical(PhysicalRow(m_position)); }

void StaticCursor::ForgetCurrentRow() {
  const SQLLEN physical = PhysicalRow(m_position);
  m_deleted.insert(std::upper_bound(m_deleted.begin(), m_deleted.end(), physical), physical);
  --m_position;
  m_in_gap = true;
}

SQLLEN StaticCursor::PhysicalRow(SQLLEN logical) const {
  SQLLEN physical = logical;
  for (const SQLLEN deleted : m_deleted) {
    if (deleted > physical) break;
    ++physical;
  }
  return physical;
}

SQLLEN StaticCursor::Count() { return CountPhysical() - static_cast<SQLLEN>(m_deleted.size()); }

// The driver's row number on the last row is believed only when a fetch confirms it: two of three
// drivers give none.
SQLLEN StaticCursor::CountPhysical() {
  if (m_physical_count != kUnknown) return m_physical_count;
  m_driver_row = kUnknown;
  const RETCODE code = m_statement.ExtendedFetch(SQL_FETCH_LAST, 0);
  if (code == SQL_NO_DATA) return m_physical_count = 0;
  const SQLLEN number = odbc::Succeeded(code) ? static_cast<SQLLEN>(m_statement.RowNumber()) : 0;
  m_physical_count = number > 0 && IsLastRow(number) ? number : ProbeCount();
  return m_physical_count;
}

bool StaticCursor::IsLastRow(SQLLEN row) {
  return odbc::Succeeded(FetchPhysical(row)) && FetchPhysical(row + 1) == SQL_NO_DATA;
}

// Finds the highest row that can be fetched, by doubling and then halving a step.
SQLLEN StaticCursor::ProbeCount() {
  SQLLEN low = 0;
  SQLLEN step = 1;
  while (odbc::Succeeded(FetchPhysical(low + step))) {
    low += step;
    step *= 2;
  }
  for (; step > 0; step /= 2) {
    if (odbc::Succeeded(FetchPhysical(low + step))) low += step;
  }
  return low;
}
