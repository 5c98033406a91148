// One value of a row or of a filter, and how databases compare values.
#ifndef KYODBC_TESTS_DIFFERENTIAL_CELL_H
#define KYODBC_TESTS_DIFFERENTIAL_CELL_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

namespace differential {

// Year, month, day, hour, minute, second. Fractions do not occur: databases round them differently.
using Time = std::array<int, 6>;

// Nothing stands for NULL.
using Cell = std::variant<std::monostate, int, std::string, Time>;

inline bool IsNull(const Cell& cell) { return std::holds_alternative<std::monostate>(cell); }

// Negative, 0 or positive; numbers by value, texts by code point, which in UTF-8 is by byte. Both cells hold
// the same type, no NULL.
int Compare(const Cell& left, const Cell& right);

// `%` and `_` of SQL; `_` is one character of UTF-8. Without case of A to Z when `ignore_case`.
bool Like(std::string_view text, std::string_view pattern, bool ignore_case);

// Bytes of the character of UTF-8 that begins there; 1 when none does.
std::size_t CharacterAt(std::string_view text, std::size_t at);

// The longest beginning of `text` of at most `bytes` bytes that ends between characters. A byte that belongs
// to no character counts as one of its own.
std::string Cut(std::string_view text, std::size_t bytes);

bool IsZero(const Time& time);
// A date of the calendar, in the years 1000 to 9999, with a time of the day.
bool IsPossible(const Time& time);
Time DateOf(const Time& time);

}  // namespace differential

#endif
