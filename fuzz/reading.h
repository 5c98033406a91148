// Reads back what the library writes as SQL: texts, dates and times. A second view on the same rules.
#ifndef KYODBC_FUZZ_READING_H
#define KYODBC_FUZZ_READING_H

#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "platform/types.h"

namespace fuzz {

// Takes `expected` off the front of `rest`.
inline void Take(std::string_view* rest, std::string_view expected) {
  Require(rest->substr(0, expected.size()) == expected, "another text stands where this belongs", expected);
  rest->remove_prefix(expected.size());
}

// Takes a quoted text: it ends at the first quote that is not written twice.
inline std::string TakeText(std::string_view* rest) {
  Take(rest, "'");
  std::string text;
  for (;;) {
    Require(!rest->empty(), "a quote is not closed");
    const char c = rest->front();
    rest->remove_prefix(1);
    if (c == '\'') {
      if (rest->empty() || rest->front() != '\'') return text;
      rest->remove_prefix(1);
    }
    text += c;
  }
}

// Takes a whole number of any length.
inline int TakeNumber(std::string_view* rest) {
  while (!rest->empty() && rest->front() == ' ') rest->remove_prefix(1);
  const bool negative = !rest->empty() && rest->front() == '-';
  if (negative) rest->remove_prefix(1);
  Require(!rest->empty() && rest->front() >= '0' && rest->front() <= '9', "no number", *rest);
  long long number = 0;
  while (!rest->empty() && rest->front() >= '0' && rest->front() <= '9') {
    number = number * 10 + (rest->front() - '0');
    rest->remove_prefix(1);
    Require(number <= 2147483648LL, "a number is too great");
  }
  return static_cast<int>(negative ? -number : number);
}

inline void TakeDatePart(std::string_view* rest, const TIMESTAMP_STRUCT& date) {
  Require(TakeNumber(rest) == date.year, "another year");
  Take(rest, "-");
  Require(TakeNumber(rest) == date.month, "another month");
  Take(rest, "-");
  Require(TakeNumber(rest) == date.day, "another day");
}

inline void TakeDate(std::string_view* rest, const TIMESTAMP_STRUCT& date) {
  Take(rest, "{d '");
  TakeDatePart(rest, date);
  Take(rest, "'}");
}

inline void TakeTimestamp(std::string_view* rest, const TIMESTAMP_STRUCT& time) {
  Take(rest, "{ts '");
  TakeDatePart(rest, time);
  Take(rest, " ");
  Require(TakeNumber(rest) == time.hour, "another hour");
  Take(rest, ":");
  Require(TakeNumber(rest) == time.minute, "another minute");
  Take(rest, ":");
  Require(TakeNumber(rest) == time.second, "another second");
  Take(rest, "'}");
}

}  // namespace fuzz

#endif
