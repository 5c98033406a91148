#include "tools/data/compare.h"

#include <fmt/format.h>

#include <optional>

#include "tools/data/row_reader.h"

namespace {

constexpr std::size_t kMostTold = 20;

// The fields that differ, apart by commas.
std::string FieldsThatDiffer(const Shape& shape, const Row& one, const Row& other) {
  std::vector<std::string> fields;
  for (std::size_t i = 0; i < shape.columns.size(); ++i) {
    if (one[i] != other[i]) fields.push_back(shape.columns[i]);
  }
  return fmt::format("{}", fmt::join(fields, ", "));
}

}  // namespace

void Differences::Add(const Shape& shape, LONG key, const std::string& what) {
  if (++m_count <= kMostTold) m_first.push_back(fmt::format("{}, key {}: {}", shape.table, key, what));
}

void CompareTable(PracticeDatabase& one, PracticeDatabase& other, const Shape& shape,
                  const Expected& expected, const std::function<void()>& row_compared,
                  Differences& differences) {
  RowReader ones(one, shape);
  RowReader others(other, shape);
  std::optional<Row> row = ones.Next();
  std::optional<Row> copy = others.Next();
  while (row || copy) {
    if (!copy || (row && KeyOf(shape, *row) < KeyOf(shape, *copy))) {
      differences.Add(shape, KeyOf(shape, *row), "the row is missing in the copy");
      row = ones.Next();
    } else if (!row || KeyOf(shape, *copy) < KeyOf(shape, *row)) {
      differences.Add(shape, KeyOf(shape, *copy), "the copy has a row that the practice does not have");
      copy = others.Next();
      continue;
    } else {
      expected(shape, *row);
      const std::string fields = FieldsThatDiffer(shape, *row, *copy);
      if (!fields.empty()) differences.Add(shape, KeyOf(shape, *row), "differs in " + fields);
      row = ones.Next();
      copy = others.Next();
    }
    row_compared();
  }
}
