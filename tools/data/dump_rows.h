// The rows of the practice in the texts that the databases' own programs write.
#ifndef KYODBC_TOOLS_DATA_DUMP_ROWS_H
#define KYODBC_TOOLS_DATA_DUMP_ROWS_H

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tools/data/checksum.h"
#include "tools/data/shape.h"

using Checksums = std::map<std::string, Checksum>;  // by the tables' short names

// Adds up the rows of a dump, line by line. Lines that are none of a practice's tables are passed over.
// Throws ToolError at a line that cannot be read.
class DumpRows {
 public:
  explicit DumpRows(const std::vector<Shape>& shapes);
  virtual ~DumpRows() = default;
  DumpRows(const DumpRows&) = delete;
  DumpRows& operator=(const DumpRows&) = delete;

  // True when the line belongs to the rows of a practice's table.
  virtual bool Line(std::string_view line) = 0;
  const Checksums& Sums() const { return m_sums; }

 protected:
  // From here on rows are those of the table, with its columns in this order. False for other tables.
  bool Begin(std::string_view table, const std::vector<std::string>& columns);
  void Add(const Row& row);

 private:
  const std::vector<Shape>& m_shapes;
  const Shape* m_shape = nullptr;
  std::vector<std::size_t> m_places;  // in the shape, of the columns in the text
  Checksums m_sums;
};

// Of PostgreSQL: "COPY schema.table (columns) FROM stdin;", rows with tabs between the values, "\.".
class CopyRows : public DumpRows {
 public:
  using DumpRows::DumpRows;
  bool Line(std::string_view line) override;

 private:
  bool m_inside = false;
  bool m_ours = false;
};

// Of MariaDB: "INSERT INTO `table` (columns) VALUES", then "(values)" apart by commas, on one or more lines.
class InsertRows : public DumpRows {
 public:
  using DumpRows::DumpRows;
  bool Line(std::string_view line) override;

 private:
  bool m_inside = false;
};

// A row of the first form, and the last two steps of it for other users.
Row CopyRow(std::string_view line);
void UnescapeTo(std::string& text, std::string_view escaped);

#endif
