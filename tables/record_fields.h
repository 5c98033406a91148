// Reading the fields of a packed record by copy.
#ifndef KYODBC_TABLES_RECORD_FIELDS_H
#define KYODBC_TABLES_RECORD_FIELDS_H

#include <cstddef>
#include <cstring>

#include "platform/cstring.h"
#include "platform/text.h"
#include "platform/types.h"

namespace fields {

// The text of a fixed field. An unterminated field gives what fits beside a zero byte.
template <std::size_t N>
CString Text(const char (&field)[N]) {
  return CString(field, static_cast<int>(text::FieldLength(field, N)));
}

// The date at an address of any alignment.
inline TIMESTAMP_STRUCT Time(const void* field) {
  TIMESTAMP_STRUCT time;
  std::memcpy(&time, field, sizeof time);
  return time;
}

}  // namespace fields

#endif
