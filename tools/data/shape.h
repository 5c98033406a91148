// The practice's tables with all their columns, those that no record carries included.
#ifndef KYODBC_TOOLS_DATA_SHAPE_H
#define KYODBC_TOOLS_DATA_SHAPE_H

#include <KyODBC.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// By their short names. The settings come last: without them no program takes the database for a practice.
inline constexpr std::array kTableNames = {"TDoctor", "TStation", "TUnit",      "TPatient", "TImage",
                                           "TMakro",  "TGroup",   "TDiagnosis", "TTest",    "TConfig"};

// A value as text; nothing for NULL.
using Value = std::optional<std::string>;
using Row = std::vector<Value>;

enum class Kind { kNumber, kText, kDate, kTime };

struct Shape {
  std::string table;
  std::vector<std::string> columns;  // in small letters, in alphabetical order
  std::vector<Kind> kinds;
  std::size_t key = 0;  // the index of the key's column

  std::string KeyName() const { return columns.at(key); }
};

// The one form of a value that databases write differently: a date without a time of zeros, a time with its
// seconds and without zeros at the end of a fraction.
void MakeUniform(Value& value, Kind kind);

// Throws ToolError when it is no key.
LONG KeyOf(const Shape& shape, const Row& row);

// Names of tables and columns: databases write them in capital letters or not.
std::string Lower(std::string_view text);

#endif
