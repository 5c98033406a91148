// Rows through a static, read-only, scrollable cursor: the form that every driver offers. The cursor
// keeps showing rows deleted meanwhile, so logical rows are mapped around the set's own deletions.
#ifndef KYODBC_PLATFORM_STATIC_CURSOR_H
#define KYODBC_PLATFORM_STATIC_CURSOR_H

#include <memory>
#include <vector>

#include "platform/kept_statements.h"
#include "platform/row_source.h"

class StaticCursor : public RowSource {
 public:
  // On a statement of its own, or on kept ones with the values taken out of the query.
  StaticCursor(odbc::Connection& connection, DWORD query_timeout);
  explicit StaticCursor(KeptStatements& statements);
  ~StaticCursor() override;

  HSTMT Handle() override;
  RETCODE Execute(const RowQuery& query) override;
  void ExecuteNothing() override;
  RETCODE ColumnCount(SWORD* count) override;
  RETCODE DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info) override;
  RETCODE Nullability(SQLUSMALLINT column, SWORD* nullability) override;
  std::shared_ptr<RowBuffer> Bound() override;
  void BeginBinding(const std::shared_ptr<RowBuffer>& row) override;
  RETCODE BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                     SQLLEN* indicator) override;
  void EveryColumnIsBound() override { m_all_bound = m_statements != nullptr; }
  RETCODE GetData(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size, SQLLEN* indicator) override;
  RETCODE Fetch(WORD type, SQLLEN row) override;
  SQLLEN Position() const override { return m_position; }
  SQLLEN RowIdentity() const override { return m_driver_row; }
  RETCODE Refresh() override;
  void ForgetCurrentRow() override;
  bool HasPlace(SQLLEN row) const override { return IsGone(PhysicalRow(row)); }

 protected:
  static constexpr SQLLEN kUnknown = -1;

  odbc::Statement& Statement() { return m_kept->statement; }
  std::unique_ptr<KeptStatement>& Kept() { return m_kept; }
  virtual KeptStatements::Cursor Kind() const { return KeptStatements::Cursor::kStatic; }
  // Rows as the driver counts them, deleted ones included.
  virtual RETCODE FetchRow(SQLLEN row);
  virtual RETCODE CountPhysical(SQLLEN* count);
  // A fetch that found no row: the row was there when the query ran, and is not any more.
  virtual bool IsGone(SQLLEN /*row*/) const { return false; }
  void ForgetPositions();
  SQLLEN LogicalRow(SQLLEN physical) const;  // 0 for one deleted through the set

 private:
  RETCODE FetchLogical(SQLLEN row, SQLLEN step);
  RETCODE FetchPhysical(SQLLEN row);
  RETCODE FetchFromEnd(SQLLEN rows_from_end, SQLLEN step);
  RETCODE FetchRelative(SQLLEN rows);
  SQLLEN PhysicalRow(SQLLEN logical) const;
  RETCODE Count(SQLLEN* count);
  bool IsLastRow(SQLLEN row);
  RETCODE ProbeCount(SQLLEN* count);

  RETCODE ExecuteOwn(const RowQuery& query);
  RETCODE ExecuteKept(const RowQuery& query);

  KeptStatements* m_statements = nullptr;  // null: the statement is this cursor's own
  std::unique_ptr<KeptStatement> m_kept;
  CString m_prepared_sql;  // what an own statement is prepared for
  bool m_executed = false;
  bool m_all_bound = false;
  SQLLEN m_buffered_row = kUnknown;  // physical row that the bound buffers hold
  SQLLEN m_position = kBeforeFirst;
  bool m_in_gap = false;    // the row after m_position follows where the current one was deleted
  SQLLEN m_driver_row = 0;  // physical row of the driver's cursor; kUnknown after a failed fetch
  SQLLEN m_physical_count = kUnknown;
  std::vector<SQLLEN> m_deleted;  // physical rows, ascending
};

#endif
