// What tells whether a table holds the same rows, in whatever order they are read.
#ifndef KYODBC_TOOLS_DATA_CHECKSUM_H
#define KYODBC_TOOLS_DATA_CHECKSUM_H

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "tools/data/shape.h"

// The number of rows and the sum of the first half of their SHA-256. Two rows that change places keep it, any
// other difference changes it.
class Checksum {
 public:
  // Values in the order of a shape's columns, made uniform.
  void Add(const Row& row);

  std::uint64_t Rows() const { return m_rows; }
  std::string Text() const;  // 32 hexadecimal digits
  bool operator==(const Checksum&) const = default;

 private:
  std::uint64_t m_rows = 0;
  std::array<std::uint64_t, 2> m_sum{};
};

// Hexadecimal. The second throws ToolError when the file cannot be read.
std::string Sha256OfText(const std::string& text);
std::string Sha256OfFile(const std::filesystem::path& file);

#endif
