#include "platform/one_way_cursor.h"

#include <limits>

RETCODE OneWayCursor::Execute(const RowQuery& query) {
  m_row = 0;
  m_count = kUnknown;
  return StaticCursor::Execute(query);
}

RETCODE OneWayCursor::Restart() {
  m_row = kUnknown;
  m_count = kUnknown;
  Statement().CloseCursor();
  const RETCODE code = Statement().Execute();
  if (odbc::Succeeded(code)) m_row = 0;
  return code;
}

RETCODE OneWayCursor::FetchRow(SQLLEN row) {
  if (m_count != kUnknown && row > m_count) return SQL_NO_DATA;
  RETCODE code = SQL_SUCCESS;
  if (m_row == kUnknown || row <= m_row) code = Restart();
  while (odbc::Succeeded(code) && m_row < row) {
    const SQLLEN before = m_row;
    m_row = kUnknown;
    code = Statement().ExtendedFetch(SQL_FETCH_NEXT, 0);
    if (odbc::Succeeded(code)) m_row = before + 1;
    if (code == SQL_NO_DATA) m_count = before;
  }
  return code;
}

RETCODE OneWayCursor::CountPhysical(SQLLEN* count) {
  const RETCODE code = FetchRow(std::numeric_limits<SQLLEN>::max());
  if (code != SQL_NO_DATA) return code;
  *count = m_count;
  return SQL_SUCCESS;
}
