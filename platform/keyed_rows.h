// Rows held by their keys: the query reads the keys of its rows, in their order, and a row is read by its key
// when it is visited. Opening costs little and memory a few bytes a row; what a visit shows is what the row
// holds then. A walk reads ahead; rows read ahead are out of date after a moment, or when this connection
// changes something. Rows that others delete are not there any more: their positions stay empty.
#ifndef KYODBC_PLATFORM_KEYED_ROWS_H
#define KYODBC_PLATFORM_KEYED_ROWS_H

#include <memory>
#include <vector>

#include "platform/cdatabase.h"
#include "platform/read_ahead.h"
#include "platform/row_page.h"
#include "platform/static_cursor.h"

class KeyedRows : public StaticCursor {
 public:
  // `key_column` counts the columns of the select list from 0.
  KeyedRows(CDatabase& database, std::size_t key_column);
  ~KeyedRows() override;

  HSTMT Handle() override { return m_handle; }
  RETCODE Execute(const RowQuery& query) override;
  void ExecuteNothing() override;
  // Not when rows have no key or share one.
  bool CanHold() const override { return m_unique; }
  RETCODE ColumnCount(SWORD* count) override;
  RETCODE DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info) override;
  RETCODE Nullability(SQLUSMALLINT column, SWORD* nullability) override;
  std::shared_ptr<RowBuffer> Bound() override { return nullptr; }
  void BeginBinding(const std::shared_ptr<RowBuffer>& /*row*/) override {}
  RETCODE BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                     SQLLEN* indicator) override;
  void EveryColumnIsBound() override { m_pages_allowed = true; }
  RETCODE GetData(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size, SQLLEN* indicator) override;
  RETCODE Refresh() override;
  bool TakeChange(LONG key) override;
  SQLLEN FindKey(LONG key) const override;

 protected:
  RETCODE FetchRow(SQLLEN row) override;
  RETCODE CountPhysical(SQLLEN* count) override;
  bool IsGone(SQLLEN row) const override { return row >= 1 && row <= Count(); }

 private:
  SQLLEN Count() const { return static_cast<SQLLEN>(m_keys.size()); }
  LONG KeyAt(SQLLEN row) const { return m_keys[static_cast<std::size_t>(row - 1)]; }
  void Forget();
  RETCODE ReadKeys();
  bool KeysAreUnique() const;
  ReadAhead::Moment Now() const;
  RETCODE ReadRow(LONG key);
  RETCODE ReadPage(const ReadAhead::Range& range);
  RETCODE GiveFromPage(SQLLEN row);
  CString RowCondition() const;

  CDatabase& m_database;
  std::size_t m_key_column;
  RowQuery m_query;
  HSTMT m_handle = SQL_NULL_HSTMT;
  std::vector<LONG> m_keys;
  bool m_unique = true;
  std::vector<BoundColumn> m_bound;
  bool m_pages_allowed = false;

  std::unique_ptr<KeptStatement> m_row;  // reads one row, into the bound buffers
  bool m_row_bound = false;
  LONG m_row_key = 0;
  bool m_row_holds = false;  // its result is the row with m_row_key

  std::unique_ptr<RowPage> m_page;
  ReadAhead m_ahead;
};

#endif
