// What a direct-access set knows of one column: its name, its member in the record class, its mask bit.
//
// To add a column: its name and its member in tables/<table>.h; its mask bit in tables/<table>_raw_rec.h; a
// row in that class's list; a line in schema/.
#ifndef KYODBC_TABLES_RAW_COLUMN_H
#define KYODBC_TABLES_RAW_COLUMN_H

#include <cstddef>

#include "recset/column_ops.h"

template <class Record>
struct RawColumn {
  const char* name;  // as bound
  Kind kind;         // how it is exchanged
  LONG bit;          // its bit in the field mask; 0: never copied in
  // Exactly one of these is set: the bound member.
  LONG Record::*number = nullptr;
  TIMESTAMP_STRUCT Record::*date = nullptr;
  CString Record::*text = nullptr;

  // A row whose kind does not suit its member does not compile.
  consteval RawColumn(const char* n, Kind k, LONG Record::*member, LONG b)
      : name(n), kind(k), bit(b), number(member) {
    Require(k == Kind::kKey || k == Kind::kNumber || k == Kind::kFlag);
    Require(k != Kind::kKey || b == 0);
  }
  consteval RawColumn(const char* n, Kind k, TIMESTAMP_STRUCT Record::*member, LONG b)
      : name(n), kind(k), bit(b), date(member) {
    Require(k == Kind::kDay || k == Kind::kTime);
  }
  consteval RawColumn(const char* n, Kind k, CString Record::*member, LONG b)
      : name(n), kind(k), bit(b), text(member) {
    Require(k == Kind::kText || k == Kind::kLongText);
  }

 private:
  consteval void Require(bool suits) const {
    if (!suits) throw "kind and member of a column do not fit";
  }
};

namespace raw_column {

template <class Record>
void CopyOne(const Record& from, const RawColumn<Record>& column, Record* to) {
  if (column.text != nullptr) {
    to->*column.text = from.*column.text;
  } else if (column.date != nullptr) {
    to->*column.date = from.*column.date;
  } else {
    to->*column.number = from.*column.number;
    // Any other value of a flag could not be filtered on.
    if (column.kind == Kind::kFlag && to->*column.number != 0) to->*column.number = TRUE;
  }
}

// Copies the members whose bit is set in `mask`.
template <class Record, std::size_t N>
void CopySelected(const Record& from, const RawColumn<Record> (&columns)[N], DWORD mask, Record* to) {
  for (const RawColumn<Record>& column : columns) {
    if ((static_cast<DWORD>(column.bit) & mask) != 0) CopyOne(from, column, to);
  }
}

}  // namespace raw_column

#endif
