// Storing whole rows, keys included.
#ifndef KYODBC_TOOLS_DATA_ROW_WRITER_H
#define KYODBC_TOOLS_DATA_ROW_WRITER_H

#include <deque>

#include "tools/data/practice_database.h"
#include "tools/data/shape.h"

class RowWriter {
 public:
  // Database and shape must outlive the writer.
  RowWriter(PracticeDatabase& database, const Shape& shape);

  // In one transaction. When the database refuses a row, those before it are stored, and ToolError names it
  // by its key.
  void Store(const std::deque<Row>& rows);

 private:
  using Iterator = std::deque<Row>::const_iterator;

  std::string Statement(Iterator& row, const Iterator& end) const;
  std::string Values(const Row& row) const;

  PracticeDatabase& m_database;
  const Shape& m_shape;
};

// A text as an SQL literal. It relies on the session that the library sets up and proves at every connection,
// in which a backslash is an ordinary character.
std::string TextLiteral(const std::string& text);

#endif
