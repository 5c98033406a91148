// The language of filters and sort orders on the command line, and the packed words that the library takes.
//
//   filter:  clause, then up to three more, each behind "and" or "or"
//   clause:  FIELD OPERATOR VALUE, or for dates FIELD between VALUE and VALUE, which counts as two clauses
//   sort:    up to four fields apart by commas, "-" before one for descending order
//
//   name like M% and birthday >= 1960-01-01           name = "van der Berg" or name = 'O''Neil'
#ifndef KYODBC_TOOLS_FILTER_WORDS_H
#define KYODBC_TOOLS_FILTER_WORDS_H

#include <KyODBC.h>

#include <array>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

// What is wrong with a filter or a sort order, for the person who wrote it.
class WordsError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A filter as the DB_Set...Filter functions take it. Pointers given out live as long as the filter and until
// it is moved or copied.
class Filter {
 public:
  using Value = std::variant<std::monostate, LONG, std::string, TIMESTAMP_STRUCT>;
  static constexpr std::size_t kMostValues = 4;

  LONG Fields() const;
  LONG Operators() const;
  const void* ValuePointer(std::size_t slot) const;

  bool IsFull() const { return m_used == kMostValues; }
  // Takes the next slot. Field 0 gives only a value, the upper bound of the slot before.
  void Append(int field, int operation, Value value);

 private:
  std::array<int, kMostValues> m_fields{};
  std::array<int, kMostValues> m_operators{};
  std::array<Value, kMostValues> m_values{};
  std::size_t m_used = 0;
};

// The ids of fields that a table can be filtered and sorted by.
using FieldIds = std::span<const int>;

// All texts together, joined by "and". Throws WordsError.
Filter ReadFilter(const std::vector<std::string>& texts, FieldIds known);

// The sort index. Throws WordsError.
LONG ReadSort(std::string_view text, FieldIds known);

// The words for the fields that a table knows, in alphabetical order, for messages and help.
std::string FieldNames(FieldIds known);

#endif
