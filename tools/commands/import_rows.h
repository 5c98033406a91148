// How a row of a CSV file becomes a row of the practice.
#ifndef KYODBC_TOOLS_COMMANDS_IMPORT_ROWS_H
#define KYODBC_TOOLS_COMMANDS_IMPORT_ROWS_H

#include <cstddef>
#include <string>
#include <vector>

#include "tools/csv_table.h"
#include "tools/record_text.h"

struct Stored {
  bool added = false;  // else the practice had the row, and it was brought up to date
  int texts_cut = 0;   // texts that were longer than their fields
};

// Stores the current row. Throws RowRejected when it cannot be stored; nothing has changed then.
using StoreRow = Stored (*)(const CsvTable& row);

// One row for each kind of file, in the order of importing: images need their patients.
struct ImportKind {
  const char* what;
  const char* option;
  std::vector<std::string> columns;
  StoreRow store;
};
const std::vector<ImportKind>& ImportKinds();

// Fills the field with a column's text by which rows are found again. Throws RowRejected when it is empty or
// does not fit: it must not be cut.
template <std::size_t N>
void SetIdentifier(char (&field)[N], const CsvTable& row, const char* column) {
  const std::string text = row.Field(column);
  if (text.empty()) throw RowRejected(std::string(column) + " is empty");
  if (!SetText(field, text)) {
    throw RowRejected(std::string(column) + " is longer than " + std::to_string(N - 1) + " bytes");
  }
}

Stored StoreDoctor(const CsvTable& row);
Stored StorePatient(const CsvTable& row);
Stored StoreImage(const CsvTable& row);

#endif
