// The one row of a query of numbers and times that the library has written itself: read on a kept statement
// whose columns stay bound, with no record set around it.
#ifndef KYODBC_PLATFORM_ONE_ROW_H
#define KYODBC_PLATFORM_ONE_ROW_H

#include <initializer_list>
#include <memory>

#include "platform/cdatabase.h"
#include "platform/kept_statements.h"

class OneRow {
 public:
  // Whether rows can be read this way: connected to a database whose statements are kept.
  static bool Suits(CDatabase* database);

  // The columns of the query in order.
  enum class Column { kNumber, kTime };

  // How the database finds the row: a few are read for it, or an index is read through.
  enum class By { kRows, kIndex };

  // Runs the query and reads its first row. Database exceptions pass on.
  OneRow(CDatabase& database, const MarkedSQL& query, std::initializer_list<Column> columns,
         By by = By::kRows);
  ~OneRow();
  OneRow(const OneRow&) = delete;
  OneRow& operator=(const OneRow&) = delete;

  bool IsThere() const { return m_is_there; }
  // Of a row that is there; NULL is 0, or all zero. A column of dates has no time of day.
  LONG Number(std::size_t column) const;
  TIMESTAMP_STRUCT Time(std::size_t column) const;

 private:
  RETCODE Read(const MarkedSQL& query, std::initializer_list<Column> columns, By by);
  RETCODE Bind(std::initializer_list<Column> columns);
  bool IsNull(std::size_t column) const;
  const char* Value(std::size_t column) const;

  CDatabase& m_database;
  std::unique_ptr<KeptStatement> m_kept;
  bool m_is_there = false;
};

#endif
