#include "tests/differential/cell.h"

#include <cctype>

namespace differential {
namespace {

bool Continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// Bytes that the character beginning with `byte` takes; 0 when none begins with it.
std::size_t LengthOf(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  if (value < 0x80) return 1;
  if (value >= 0xC2 && value < 0xE0) return 2;
  if (value >= 0xE0 && value < 0xF0) return 3;
  if (value >= 0xF0 && value < 0xF5) return 4;
  return 0;
}

// Whether bytes could follow that make `bytes` a character, or they are one. They stand for the numbers from
// `low` to `high` then.
bool MayBecomeCharacter(std::string_view bytes) {
  constexpr unsigned kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  constexpr unsigned kMost = 0x10FFFF, kFirstSurrogate = 0xD800, kLastSurrogate = 0xDFFF;
  const std::size_t length = LengthOf(bytes[0]);
  if (length < 2 || bytes.size() > length) return false;
  unsigned low = static_cast<unsigned char>(bytes[0]) & (0x7Fu >> length);
  for (const char byte : bytes.substr(1)) {
    if (!Continues(byte)) return false;
    low = low << 6 | (static_cast<unsigned char>(byte) & 0x3Fu);
  }
  const std::size_t missing = 6 * (length - bytes.size());
  low <<= missing;
  const unsigned high = low | ((1u << missing) - 1);
  return high >= kLeast[length] && low <= kMost && (high < kFirstSurrogate || low > kLastSurrogate);
}

bool Same(char left, char right, bool ignore_case) {
  const auto fold = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; };
  return ignore_case ? fold(left) == fold(right) : left == right;
}

int Sign(bool less, bool greater) { return less ? -1 : greater ? 1 : 0; }

}  // namespace

int Compare(const Cell& left, const Cell& right) {
  if (const auto* text = std::get_if<std::string>(&left)) return text->compare(std::get<std::string>(right));
  return Sign(left < right, right < left);
}

bool Like(std::string_view text, std::string_view pattern, bool ignore_case) {
  if (pattern.empty()) return text.empty();
  if (pattern[0] == '%') {
    for (std::size_t at = 0; at <= text.size(); ++at) {
      if (Like(text.substr(at), pattern.substr(1), ignore_case)) return true;
    }
    return false;
  }
  if (text.empty()) return false;
  if (pattern[0] == '_') return Like(text.substr(CharacterAt(text, 0)), pattern.substr(1), ignore_case);
  return Same(text[0], pattern[0], ignore_case) && Like(text.substr(1), pattern.substr(1), ignore_case);
}

std::size_t CharacterAt(std::string_view text, std::size_t at) {
  const std::size_t length = LengthOf(text[at]);
  if (length == 0 || at + length > text.size()) return 1;
  for (std::size_t i = 1; i < length; ++i) {
    if (!Continues(text[at + i])) return 1;
  }
  return length;
}

std::string Cut(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return std::string(text);
  std::size_t start = bytes;
  while (start > 0 && bytes - start < 3 && Continues(text[start])) --start;
  const std::size_t length = start < bytes ? LengthOf(text[start]) : 0;
  const bool inside = start + length > bytes && MayBecomeCharacter(text.substr(start, length));
  return std::string(text.substr(0, inside ? start : bytes));
}

bool IsZero(const Time& time) { return time == Time{}; }

bool IsPossible(const Time& time) {
  const auto [year, month, day, hour, minute, second] = time;
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (year < 1 || year > 9999 || month < 1 || month > 12) return false;
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  const int days = kDays[month - 1] + (month == 2 && leap ? 1 : 0);
  return day >= 1 && day <= days && hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 &&
         second < 60;
}

Time DateOf(const Time& time) { return {time[0], time[1], time[2], 0, 0, 0}; }

}  // namespace differential
