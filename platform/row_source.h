// How a record set gets at its rows. The record set above speaks of logical rows, counted from 1, in
// which rows deleted through the set do not occur; how they are held and fetched is the source's affair.
#ifndef KYODBC_PLATFORM_ROW_SOURCE_H
#define KYODBC_PLATFORM_ROW_SOURCE_H

#include <string>

#include "platform/cstring.h"
#include "platform/odbc.h"
#include "platform/types.h"

class RowSource {
 public:
  enum class Run { kPrepared, kDirect };
  static constexpr SQLLEN kBeforeFirst = 0;
  static constexpr SQLLEN kAfterLast = -1;

  virtual ~RowSource() = default;

  // The statement that positions; diagnostics of a failed call are found on it.
  virtual odbc::Statement& Statement() = 0;

  // Runs the query, again if it ran before, and stands before the first row. Deletions and positions of
  // an earlier run are forgotten.
  virtual RETCODE Execute(const CString& sql, Run run) = 0;

  // The columns of the result; counted from 1. Zero columns: the statement gave no result.
  virtual RETCODE ColumnCount(SWORD* count) = 0;
  virtual RETCODE DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info) = 0;
  // Every fetch from now on leaves the column in `buffer` and its length, or SQL_NULL_DATA, in `indicator`.
  virtual RETCODE BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                             SQLLEN* indicator) = 0;
  // Reads a column of the current row as SQLGetData does: long values in pieces.
  virtual RETCODE GetData(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                          SQLLEN* indicator) = 0;
  // Reads all of a column as text or bytes (SQL_C_CHAR, SQL_C_BINARY).
  RETCODE ReadWhole(SQLUSMALLINT column, SWORD c_type, std::string* bytes, bool* null);

  // Fetches a logical row as SQLExtendedFetch would; SQL_NO_DATA beyond either end.
  virtual RETCODE Fetch(WORD type, SQLLEN row) = 0;
  // The logical row fetched last, kBeforeFirst or kAfterLast.
  virtual SQLLEN Position() const = 0;
  // A number that stays with the current row while others are deleted.
  virtual SQLLEN RowIdentity() const = 0;
  // Fetches the current row again, so that its columns can be read once more on demand.
  virtual RETCODE Refresh() = 0;
  // The current row was deleted in the database: it vanishes. The row after it becomes the next one.
  virtual void ForgetCurrentRow() = 0;
};

#endif
