// The records of the flat calls and the columns behind them, as rows of data. A table's row has one cell for
// each field of its record, in the same order; the first is the key.
#ifndef KYODBC_TESTS_DIFFERENTIAL_LAYOUT_H
#define KYODBC_TESTS_DIFFERENTIAL_LAYOUT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace differential {

// Every browse set, and the two compact records, which have no set of their own.
enum class Stem { kDr, kStat, kUnit, kPat, kPatEx, kImg, kMak, kGrp, kDiag, kCfg, kTest, kCompact };
constexpr int kStems = 11;  // those with a browse set
constexpr Stem kTables[] = {Stem::kDr,  Stem::kStat, Stem::kUnit, Stem::kPat, Stem::kImg,
                            Stem::kMak, Stem::kGrp,  Stem::kDiag, Stem::kCfg, Stem::kTest};

enum class Kind { kLong, kFlag, kWord, kByte, kText, kDate, kTime };

struct Field {
  const char* name;
  Kind kind;
  int width;          // in bytes
  std::uint32_t bit;  // of the field mask; 0 for the key
  std::size_t offset;
};

struct Layout {
  Stem stem;
  const char* name;   // as in the names of the functions: "TPat"
  const char* table;  // short name; empty when there is no table
  std::vector<Field> fields;
  std::size_t size;

  int Index(const std::string& name) const;  // of the field; throws for an unknown name
};

const Layout& LayoutOf(Stem stem);
// Throws for an unknown name.
Stem StemOf(const std::string& name);

// What a field id names in a set.
constexpr int kUnknownField = -1;
constexpr int kMissingColumn = -2;  // the library knows the id, the database does not know the column
int FieldOfId(Stem stem, int id);
std::vector<int> KnownIds(Stem stem);

enum class ValueType { kNone, kInteger, kText, kDate, kTime };
ValueType TypeOfId(int id);

}  // namespace differential

#endif
