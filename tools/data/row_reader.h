// Whole rows of a table in the order of their keys, a few hundred at a time.
#ifndef KYODBC_TOOLS_DATA_ROW_READER_H
#define KYODBC_TOOLS_DATA_ROW_READER_H

#include <deque>
#include <optional>

#include "tools/data/practice_database.h"
#include "tools/data/shape.h"

inline constexpr LONG kBeforeAllKeys = -2147483647 - 1;

class RowReader {
 public:
  // Rows with keys above `after`. Database and shape must outlive the reader. Values are made uniform by the
  // kinds of the shape, whatever the database calls its types.
  RowReader(PracticeDatabase& database, const Shape& shape, LONG after = kBeforeAllKeys);

  // Throws ToolError when the database refuses.
  std::optional<Row> Next();
  // What is read at once, for those who write it at once: empty at the end.
  std::deque<Row> NextPage();

 private:
  std::string Query() const;

  PracticeDatabase& m_database;
  const Shape& m_shape;
  LONG m_after;
  std::deque<Row> m_page;
  bool m_end = false;
};

// The condition, without WHERE, that leaves out what copying notes for itself among the settings.
std::string RowsOfPractice(const Shape& shape);

// The setting in which copying notes where an unfinished copy comes from.
inline constexpr const char* kCopyNote = "KyODBC copy";

#endif
