// Filling and reading packed records in tests.
#ifndef KYODBC_TESTS_SUPPORT_RECORDS_H
#define KYODBC_TESTS_SUPPORT_RECORDS_H

#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/types.h"

namespace support {

// Fills the field, with zero bytes behind the text. A text that does not fit is a mistake of the test:
// throws.
template <std::size_t N>
void SetText(char (&field)[N], std::string_view text) {
  if (text.size() >= N) throw std::length_error("too long for the field: " + std::string(text));
  std::memset(field, 0, N);
  std::memcpy(field, text.data(), text.size());
}

// Fills the field to its last byte without a zero byte, repeating `c`.
template <std::size_t N>
void SetUnterminated(char (&field)[N], char c) {
  std::memset(field, c, N);
}

// The field up to its zero byte, or all of it when there is none.
template <std::size_t N>
std::string Text(const char (&field)[N]) {
  return {field, strnlen(field, N)};
}

// The value of a packed field: EXPECT_EQ takes references, which packed fields do not allow.
template <class T>
T Val(T field) {
  return field;
}

inline TIMESTAMP_STRUCT Ts(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  TIMESTAMP_STRUCT time{};
  time.year = static_cast<SQLSMALLINT>(year);
  time.month = static_cast<SQLUSMALLINT>(month);
  time.day = static_cast<SQLUSMALLINT>(day);
  time.hour = static_cast<SQLUSMALLINT>(hour);
  time.minute = static_cast<SQLUSMALLINT>(minute);
  time.second = static_cast<SQLUSMALLINT>(second);
  return time;
}

// "2001-05-06 10:00:00", with ".fraction" in nanoseconds behind it when there is one. For comparing times and
// for seeing the difference.
std::string TimeText(TIMESTAMP_STRUCT time);

// The local time now, whole seconds.
TIMESTAMP_STRUCT Now();
// The seconds from `from` to `to`, both local times.
double SecondsBetween(TIMESTAMP_STRUCT from, TIMESTAMP_STRUCT to);

}  // namespace support

#endif
