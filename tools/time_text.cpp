#include "tools/time_text.h"

#include <fmt/format.h>

#include <chrono>
#include <cstddef>

namespace {

// Takes exactly `digits` digits off the front of `text`.
bool TakeNumber(std::string_view& text, std::size_t digits, unsigned& number) {
  if (text.size() < digits) return false;
  number = 0;
  for (const char c : text.substr(0, digits)) {
    if (c < '0' || c > '9') return false;
    number = number * 10 + static_cast<unsigned>(c - '0');
  }
  text.remove_prefix(digits);
  return true;
}

bool TakeOneOf(std::string_view& text, std::string_view choice) {
  if (text.empty() || choice.find(text.front()) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

bool TakeDate(std::string_view& text, TIMESTAMP_STRUCT& time) {
  unsigned year = 0;
  unsigned month = 0;
  unsigned day = 0;
  if (!TakeNumber(text, 4, year) || !TakeOneOf(text, "-") || !TakeNumber(text, 2, month) ||
      !TakeOneOf(text, "-") || !TakeNumber(text, 2, day)) {
    return false;
  }
  time.year = static_cast<SQLSMALLINT>(year);
  time.month = static_cast<SQLUSMALLINT>(month);
  time.day = static_cast<SQLUSMALLINT>(day);
  return year > 0 && std::chrono::year_month_day(std::chrono::year(static_cast<int>(year)),
                                                 std::chrono::month(month), std::chrono::day(day))
                         .ok();
}

bool TakeClock(std::string_view& text, TIMESTAMP_STRUCT& time) {
  unsigned hour = 0;
  unsigned minute = 0;
  unsigned second = 0;
  if (!TakeNumber(text, 2, hour) || !TakeOneOf(text, ":") || !TakeNumber(text, 2, minute)) return false;
  if (TakeOneOf(text, ":") && !TakeNumber(text, 2, second)) return false;
  TakeOneOf(text, "Z");
  time.hour = static_cast<SQLUSMALLINT>(hour);
  time.minute = static_cast<SQLUSMALLINT>(minute);
  time.second = static_cast<SQLUSMALLINT>(second);
  return hour < 24 && minute < 60 && second < 60;
}

bool IsNone(const TIMESTAMP_STRUCT& time) { return time.year == 0 && time.month == 0 && time.day == 0; }

}  // namespace

std::optional<TIMESTAMP_STRUCT> ReadTime(std::string_view text) {
  TIMESTAMP_STRUCT time{};
  if (!TakeDate(text, time)) return std::nullopt;
  if (TakeOneOf(text, " T") && !TakeClock(text, time)) return std::nullopt;
  if (!text.empty()) return std::nullopt;
  return time;
}

std::string DateText(const TIMESTAMP_STRUCT& time) {
  if (IsNone(time)) return {};
  return fmt::format("{:04}-{:02}-{:02}", time.year, time.month, time.day);
}

std::string TimeText(const TIMESTAMP_STRUCT& time) {
  if (IsNone(time)) return {};
  return fmt::format("{} {:02}:{:02}:{:02}", DateText(time), time.hour, time.minute, time.second);
}
