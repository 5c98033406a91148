// How a record set gets at its rows. The record set above speaks of logical rows, counted from 1, in
// which rows deleted through the set do not occur; how they are held and fetched is the source's affair.
#ifndef KYODBC_PLATFORM_ROW_SOURCE_H
#define KYODBC_PLATFORM_ROW_SOURCE_H

#include <memory>
#include <string>

#include "platform/cstring.h"
#include "platform/odbc.h"
#include "platform/types.h"

// A statement, whole and in its parts. Of a call only the whole is given.
struct RowQuery {
  // The whole. Most queries run in parts and never need it.
  const CString& Whole() const {
    if (sql.IsEmpty()) sql = select + condition + order;
    return sql;
  }

  mutable CString sql;  // of a call; else empty until the whole is asked for
  bool direct = false;  // run unprepared
  CString select;       // SELECT columns FROM tables
  CString condition;    // " WHERE ..." or empty
  CString order;        // " ORDER BY ..." or empty
  // For rows held by key:
  CString tables;
  CString key;   // the expression that is the row key
  CString join;  // what besides the key makes a row of several tables one; empty for one table
};

struct RowBuffer;

class RowSource {
 public:
  static constexpr SQLLEN kBeforeFirst = 0;
  static constexpr SQLLEN kAfterLast = -1;
  static constexpr SQLLEN kNoKeys = -1;

  virtual ~RowSource() = default;

  // The statement used last, on which the diagnostics of a failed call are found; null before the first use.
  virtual HSTMT Handle() = 0;

  // Runs the query, again if it ran before, and stands before the first row. Deletions and positions of
  // an earlier run are forgotten.
  virtual RETCODE Execute(const RowQuery& query) = 0;
  // As Execute for a query that no row meets, without asking the database.
  virtual void ExecuteNothing() = 0;
  // False when the rows of the query cannot be held this way after all.
  virtual bool CanHold() const { return true; }

  // The columns of the result; counted from 1. Zero columns: the statement gave no result.
  virtual RETCODE ColumnCount(SWORD* count) = 0;
  virtual RETCODE DescribeColumn(SQLUSMALLINT column, CODBCFieldInfo* info) = 0;  // all but the nullability
  virtual RETCODE Nullability(SQLUSMALLINT column, SWORD* nullability) = 0;
  // What the columns are bound to already, from an earlier use of the statement; null for nothing.
  virtual std::shared_ptr<RowBuffer> Bound() = 0;
  // All columns are going to be bound to this, which lives as long as they are.
  virtual void BeginBinding(const std::shared_ptr<RowBuffer>& row) = 0;
  // Every fetch from now on leaves the column in `buffer` and its length, or SQL_NULL_DATA, in `indicator`.
  virtual RETCODE BindColumn(SQLUSMALLINT column, SWORD c_type, void* buffer, SQLLEN size,
                             SQLLEN* indicator) = 0;
  // All columns of the result are bound: a row that is in the buffers need not be fetched again.
  virtual void EveryColumnIsBound() = 0;
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
  // The current row was changed in the database and has this key now. True when the source will show the
  // change by itself on the next visit; else the record set has to.
  virtual bool TakeChange(LONG /*key*/) { return false; }
  // A logical row that a fetch did not find has a place among the rows: it was there when the query ran.
  virtual bool HasPlace(SQLLEN row) const = 0;
  // The logical row with this key, 0 for none; kNoKeys when only reading the rows can tell.
  virtual SQLLEN FindKey(LONG /*key*/) const { return kNoKeys; }
};

#endif
