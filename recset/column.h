// What a browse set knows of one column: its name, its member, its field in the plain record, its mask bit.
//
// To add a column: its name in tables/<table>.h; a member and one more m_nFields in the class; a row here in
// the class's list; a field in tables/records.h when callers see it; a line in schema/.
#ifndef KYODBC_RECSET_COLUMN_H
#define KYODBC_RECSET_COLUMN_H

#include <cstddef>

#include "platform/cstring.h"
#include "platform/types.h"

// Where a field lies in a packed record. Fields are reached by copying bytes, never by pointer.
struct Slot {
  std::size_t offset;
  std::size_t size;
};
#define SLOT(record, field) \
  Slot { offsetof(record, field), sizeof(record::field) }

enum class Kind {
  kKey,       // primary key; copied out, never in
  kNumber,    // 32-bit integer
  kOrdinal,   // 32-bit member, unsigned 16-bit field
  kFlag,      // 0 or 1
  kDay,       // date without a time of day, whatever type the database gives the column
  kTime,      // date and time
  kText,      // at most 255 bytes
  kLongText,  // at most 1,000,000 bytes
};

// The field sizes that fit a kind. Texts may have any.
constexpr bool Fits(Kind kind, Slot slot) {
  switch (kind) {
    case Kind::kOrdinal:
      return slot.size == sizeof(WORD);
    case Kind::kDay:
    case Kind::kTime:
      return slot.size == sizeof(TIMESTAMP_STRUCT);
    case Kind::kText:
    case Kind::kLongText:
      return slot.size > 1;
    default:
      return slot.size == sizeof(LONG);
  }
}

template <class Set>
struct Column {
  const char* name;  // as bound
  Kind kind;         // how it is exchanged and copied
  Slot slot;         // its field in the plain record
  DWORD bit;         // its bit in the field mask; 0: never copied in
  // Exactly one of these is set: the bound member.
  LONG Set::*number = nullptr;
  TIMESTAMP_STRUCT Set::*date = nullptr;
  CString Set::*text = nullptr;

  // A row whose kind suits neither its member nor its field does not compile.
  consteval Column(const char* n, Kind k, LONG Set::*member, Slot s, DWORD b)
      : name(n), kind(k), slot(s), bit(b), number(member) {
    Require(k == Kind::kKey || k == Kind::kNumber || k == Kind::kOrdinal || k == Kind::kFlag);
    Require(k != Kind::kKey || b == 0);
  }
  consteval Column(const char* n, Kind k, TIMESTAMP_STRUCT Set::*member, Slot s, DWORD b)
      : name(n), kind(k), slot(s), bit(b), date(member) {
    Require(k == Kind::kDay || k == Kind::kTime);
  }
  consteval Column(const char* n, Kind k, CString Set::*member, Slot s, DWORD b)
      : name(n), kind(k), slot(s), bit(b), text(member) {
    Require(k == Kind::kText || k == Kind::kLongText);
  }

 private:
  consteval void Require(bool suits) const {
    if (!suits || !Fits(kind, slot)) throw "kind, member and field of a column do not fit";
  }
};

// What a field id stands for in filters and sorts.
struct FieldId {
  LONG id;
  const char* column;
};

#endif
