// Rows through a static, read-only, scrollable cursor: the form that every driver offers. The cursor
// keeps showing rows deleted meanwhile, so logical rows are mapped around the set's own deletions.
#ifndef KYODBC_PLATFORM_STATIC_CURSOR_H
#define KYODBC_PLATFORM_STATIC_CURSOR_H

#include <vector>

#include "platform/row_source.h"

class StaticCursor : public RowSource {
 public:
  StaticCursor(odbc::Connection& connection, DWORD query_timeout);

  odbc::Statement& Statement() override { return m_statement; }
  RETCODE Execute(const CString& sql, Run run) override;
  RETCODE ColumnCount(SWORD* count) override;
  RETCODE DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info) override;
  RETCODE BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                     SQLLEN* indicator) override;
  RETCODE GetData(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size, SQLLEN* indicator) override;
  RETCODE Fetch(WORD type, SQLLEN row) override;
  SQLLEN Position() const override { return m_position; }
  SQLLEN RowIdentity() const override { return m_driver_row; }
  RETCODE Refresh() override;
  void ForgetCurrentRow() override;

 protected:
  // Rows as the driver counts them, deleted ones included.
  virtual RETCODE FetchRow(SQLLEN row);
  virtual RETCODE CountPhysical(SQLLEN* count);

 private:
  static constexpr SQLLEN kUnknown = -1;

  RETCODE FetchLogical(SQLLEN row);
  RETCODE FetchPhysical(SQLLEN row);
  RETCODE FetchFromEnd(SQLLEN rows_from_end);
  RETCODE FetchRelative(SQLLEN rows);
  SQLLEN PhysicalRow(SQLLEN logical) const;
  RETCODE Count(SQLLEN* count);
  bool IsLastRow(SQLLEN row);
  RETCODE ProbeCount(SQLLEN* count);

  odbc::Statement m_statement;
  CString m_prepared_sql;  // what the statement is prepared for
  bool m_executed = false;
  SQLLEN m_position = kBeforeFirst;
  bool m_in_gap = false;    // the row after m_position follows where the current one was deleted
  SQLLEN m_driver_row = 0;  // physical row of the driver's cursor; kUnknown after a failed fetch
  SQLLEN m_physical_count = kUnknown;
  std::vector<SQLLEN> m_deleted;  // physical rows, ascending
};

#endif
