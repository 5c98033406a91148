// The rows of a procedure call, all read when it runs and held in memory from then on. They can be moved
// over in every direction, where one driver gives a call's rows forwards only; and the connection is free for
// other statements, where another driver refuses them until the last row of a call is read. A call is not
// expected to return what would not fit the memory: a static cursor holds its rows there, too.
#ifndef KYODBC_PLATFORM_BUFFERED_ROWS_H
#define KYODBC_PLATFORM_BUFFERED_ROWS_H

#include <optional>
#include <string>
#include <vector>

#include "platform/static_cursor.h"

class BufferedRows : public StaticCursor {
 public:
  using StaticCursor::StaticCursor;

  // Further results of the call are dropped; an error that comes with them fails the call.
  RETCODE Execute(const RowQuery& query) override;
  RETCODE ColumnCount(SWORD* count) override;
  RETCODE DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info) override;
  RETCODE Nullability(SQLUSMALLINT column, SWORD* nullability) override;
  RETCODE BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                     SQLLEN* indicator) override;
  RETCODE GetData(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size, SQLLEN* indicator) override;

 protected:
  RETCODE FetchRow(SQLLEN row) override;
  RETCODE CountPhysical(SQLLEN* count) override;

 private:
  using Cell = std::optional<std::string>;  // text, or the bytes of a binary column; nothing for NULL

  struct Bound {
    SQLUSMALLINT column;
    SWORD c_type;
    void* buffer;
    SQLLEN size;
    SQLLEN* indicator;
  };

  RETCODE TakeResult();
  RETCODE DescribeResult();
  RETCODE TakeRow();
  RETCODE EndCall();

  bool m_taken = false;  // the rows are here; before that, reading goes to the driver
  std::vector<CODBCFieldInfo> m_columns;
  std::vector<std::vector<Cell>> m_rows;
  std::vector<Bound> m_bound;
  std::vector<Cell>* m_current = nullptr;
  std::vector<std::size_t> m_given;  // bytes of each column of the current row that were handed out
};

#endif
