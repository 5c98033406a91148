// CSV files whose first row names the columns.
#ifndef KYODBC_TOOLS_CSV_TABLE_H
#define KYODBC_TOOLS_CSV_TABLE_H

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tools/csv.h"

// Why a row cannot be taken; the rows behind it can.
class RowRejected : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class CsvTable {
 public:
  // Throws ToolError when the file cannot be read, its first row has wrong quotes, or it lacks one of the
  // columns or has it twice.
  CsvTable(const std::filesystem::path& file, const std::vector<std::string>& columns);

  // Moves to the next row; false at the end. Throws RowRejected for one with wrong quotes or another number
  // of fields than the first row, with zero bytes, or not in UTF-8; the next call goes on behind it.
  bool Next();

  // A field of the current row, without blanks around it; the column must be one of those given above.
  std::string Field(std::string_view column) const;

  int Line() const { return m_row.line; }
  std::uint64_t BytesRead() const { return m_reader.BytesRead(); }

 private:
  std::ifstream m_stream;
  CsvReader m_reader;
  std::vector<std::string> m_titles;
  CsvRow m_row;
};

#endif
