// Comma-separated values: fields apart by commas, lines ended by LF or CR LF, fields with such characters in
// double quotes, double quotes within them written twice.
#ifndef KYODBC_TOOLS_CSV_H
#define KYODBC_TOOLS_CSV_H

#include <cstdint>
#include <istream>
#include <string>
#include <vector>

struct CsvRow {
  int line = 0;  // where the row begins, from 1
  std::vector<std::string> fields;
  std::string fault;  // what is wrong with the row's quotes; empty when nothing is
};

// Fields apart by commas and a line end, each in quotes where that is needed.
std::string CsvLine(const std::vector<std::string>& fields);

class CsvReader {
 public:
  // `input` should be opened as binary and must outlive the reader. A byte-order mark at its start is not
  // read as text.
  explicit CsvReader(std::istream& input);

  // Reads the next row, leaving out empty lines. False at the end. After a row with a fault, reading goes on
  // with the line that follows; after a quote that is never closed there is none.
  bool Next(CsvRow& row);

  std::uint64_t BytesRead() const { return m_bytes; }

 private:
  int Get();
  bool TakeLineEnd(int c);
  void ReadField(CsvRow& row);
  void ReadQuoted(CsvRow& row, std::string& field);
  void SkipLine();

  std::istream& m_input;
  std::uint64_t m_bytes = 0;
  int m_line = 1;
  bool m_row_ended = false;
};

#endif
