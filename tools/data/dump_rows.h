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
// Whatever is not exactly as the program writes it is refused with ToolError: a line that is taken may be
// given to the database's own client, so that nothing else than rows of these tables must hide in it.
class DumpRows {
 public:
  explicit DumpRows(const std::vector<Shape>& shapes);
  virtual ~DumpRows() = default;
  DumpRows(const DumpRows&) = delete;
  DumpRows& operator=(const DumpRows&) = delete;

  // True when the line belongs to the rows of a practice's table.
  virtual bool Line(std::string_view line) = 0;
  // The line taken last, for a database in which `owner` stands before the names of the practice's tables.
  virtual std::string For(const std::string& owner, const std::string& line) const;
  // To be called behind the last line. Throws ToolError when the dump ends among the rows of a table.
  void End() const;
  const Checksums& Sums() const { return m_sums; }

 protected:
  // From here on rows are those of the table, with its columns in this order. False for other tables.
  bool Begin(std::string_view table, const std::vector<std::string>& columns);
  void Add(const Row& row);

  bool m_inside = false;  // among the rows of a table

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
  std::string For(const std::string& owner, const std::string& line) const override;

 private:
  bool m_ours = false;
  std::string m_head;  // of a table, without its schema; empty unless the line taken last was it
};

// Of MariaDB: "INSERT INTO `table` (columns) VALUES", then "(values)" apart by commas, on one or more lines.
class InsertRows : public DumpRows {
 public:
  using DumpRows::DumpRows;
  bool Line(std::string_view line) override;
};

// A row with tabs between its values, as MariaDB's client prints it too. Throws ToolError for a backslash at
// the end of a value, which neither writes.
Row CopyRow(std::string_view line);

#endif
