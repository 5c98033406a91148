// Reading and filling the fields of compact records.
#ifndef KYODBC_ROWOPS_COMPACT_FIELDS_H
#define KYODBC_ROWOPS_COMPACT_FIELDS_H

#include <cstddef>
#include <string_view>

#include "platform/text.h"
#include "platform/types.h"

namespace compact {

// The text of a field, which may be unterminated. Valid as long as the field.
template <std::size_t N>
std::string_view FieldText(const char (&field)[N]) {
  return {field, text::FieldLength(field, N)};
}

// Cuts `value` to the field.
template <std::size_t N>
void PutText(char (&field)[N], std::string_view value) {
  text::BoundedCopy(field, N, value.data(), value.size());
}

// A date with time of day and fraction 0.
inline TIMESTAMP_STRUCT DateOf(WORD year, BYTE month, BYTE day) {
  TIMESTAMP_STRUCT date{};
  date.year = static_cast<SQLSMALLINT>(year);
  date.month = month;
  date.day = day;
  return date;
}

}  // namespace compact

#endif
