// The loops over the column lists and field ids of the browse sets.
#ifndef KYODBC_RECSET_COLUMN_OPS_H
#define KYODBC_RECSET_COLUMN_OPS_H

#include <cstddef>
#include <cstring>

#include "platform/cfieldexchange.h"
#include "platform/field_access.h"
#include "platform/text.h"
#include "recset/column.h"
#include "recset/kyrecset.h"

namespace column {

inline constexpr int kTextMaximum = 255;
inline constexpr int kLongTextMaximum = 1000000;

template <class Object, class Row>
void ExchangeOne(Object& object, const Row& column, CFieldExchange* exchange) {
  switch (column.kind) {
    case Kind::kKey:
    case Kind::kNumber:
      return RFX_Long(exchange, column.name, object.*column.number);
    case Kind::kOrdinal:
      return RFX_Int(exchange, column.name, object.*column.number);
    case Kind::kFlag:
      return RFX_Bool(exchange, column.name, object.*column.number);
    case Kind::kDay:
      return FieldAccess::ExchangeDay(exchange, column.name, object.*column.date);
    case Kind::kTime:
      return RFX_Date(exchange, column.name, object.*column.date);
    case Kind::kText:
      return RFX_Text(exchange, column.name, object.*column.text, kTextMaximum);
    case Kind::kLongText:
      return RFX_Text(exchange, column.name, object.*column.text, kLongTextMaximum);
  }
}

// Binds every column to its member of `object`, in the order of the list.
template <class Object, class Row, std::size_t N>
void Exchange(Object& object, const Row (&columns)[N], CFieldExchange* exchange) {
  exchange->SetFieldType(CFieldExchange::outputColumn);
  for (const Row& column : columns) ExchangeOne(object, column, exchange);
}

template <class Set>
void CopyOneOut(const Set& set, const Column<Set>& column, char* field) {
  if (column.text != nullptr) {
    const CString& value = set.*column.text;
    text::BoundedCopy(field, column.slot.size, value.GetString(),
                      static_cast<std::size_t>(value.GetLength()));
  } else if (column.date != nullptr) {
    std::memcpy(field, &(set.*column.date), column.slot.size);
  } else if (column.kind == Kind::kOrdinal) {
    const WORD ordinal = static_cast<WORD>(set.*column.number);
    std::memcpy(field, &ordinal, sizeof ordinal);
  } else {
    std::memcpy(field, &(set.*column.number), column.slot.size);
  }
}

// Copies the bound members into a plain record, texts cut to their fields.
template <class Set, std::size_t N>
void CopyOut(const Set& set, const Column<Set> (&columns)[N], void* record) {
  for (const Column<Set>& column : columns) {
    CopyOneOut(set, column, static_cast<char*>(record) + column.slot.offset);
  }
}

template <class Set>
void CopyOneIn(Set& set, const Column<Set>& column, const char* field) {
  if (column.text != nullptr) {
    (set.*column.text).Assign(field, text::FieldLength(field, column.slot.size));
  } else if (column.date != nullptr) {
    std::memcpy(&(set.*column.date), field, column.slot.size);
  } else if (column.kind == Kind::kOrdinal) {
    WORD ordinal = 0;
    std::memcpy(&ordinal, field, sizeof ordinal);
    set.*column.number = ordinal;
  } else {
    std::memcpy(&(set.*column.number), field, column.slot.size);
    // Any other value of a flag could not be filtered on.
    if (column.kind == Kind::kFlag && set.*column.number != 0) set.*column.number = TRUE;
  }
}

// Copies the fields whose bit is set in the set's field mask from a plain record into the bound members.
// Unterminated texts end with their field.
template <class Set, std::size_t N>
void CopyIn(Set& set, const Column<Set> (&columns)[N], const void* record) {
  for (const Column<Set>& column : columns) {
    if ((column.bit & set.m_dwFieldMask) == 0) continue;
    CopyOneIn(set, column, static_cast<const char*>(record) + column.slot.offset);
  }
}

// The expression of a field id: `lead` and the column's name, with error 0; for every other id what the base
// class answers.
template <std::size_t N>
CString Expression(CKyRecSet& set, const FieldId (&ids)[N], const char* lead, LONG field, LONG* error) {
  for (const FieldId& row : ids) {
    if (row.id != field) continue;
    if (error != nullptr) *error = 0;
    return CString(lead) + row.column;
  }
  return set.CKyRecSet::GetFieldName(field, error);
}

}  // namespace column

#endif
