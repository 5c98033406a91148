// Comparing two practices row by row and field by field.
#ifndef KYODBC_TOOLS_DATA_COMPARE_H
#define KYODBC_TOOLS_DATA_COMPARE_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tools/data/practice_database.h"
#include "tools/data/shape.h"

// What a row of the first practice is expected to be in the second one.
using Expected = std::function<void(const Shape& shape, Row& row)>;

class Differences {
 public:
  // Remembers the first few.
  void Add(const Shape& shape, LONG key, const std::string& what);

  std::uint64_t Count() const { return m_count; }
  const std::vector<std::string>& First() const { return m_first; }

 private:
  std::uint64_t m_count = 0;
  std::vector<std::string> m_first;
};

// Calls `row_compared` after each row. Values are never told, only where they stand.
void CompareTable(PracticeDatabase& one, PracticeDatabase& other, const Shape& shape,
                  const Expected& expected, const std::function<void()>& row_compared,
                  Differences& differences);

#endif
