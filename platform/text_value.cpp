#include "platform/text_value.h"

#include <charconv>
#include <cstring>
#include <limits>

#include "platform/local_time.h"
#include "platform/row_fields.h"

namespace text_value {
namespace {

template <class T>
RETCODE Put(T value, void* target, SQLLEN* indicator) {
  std::memcpy(target, &value, sizeof value);
  *indicator = sizeof value;
  return SQL_SUCCESS;
}

template <class T>
RETCODE ReadInteger(std::string_view text, T most, void* target, SQLLEN* indicator) {
  int64_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  const bool whole = error == std::errc() && (stopped == end || *stopped == '.');
  if (!whole || number < std::numeric_limits<T>::min() || number > most) return SQL_ERROR;
  return Put(static_cast<T>(number), target, indicator);
}

template <class T>
RETCODE ReadReal(std::string_view text, void* target, SQLLEN* indicator) {
  T number = 0;
  const char* end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stopped != end) return SQL_ERROR;
  return Put(number, target, indicator);
}

// Takes digits, then one of `ends` or the end of the text.
bool TakeNumber(std::string_view& text, std::string_view ends, SQLUSMALLINT* number) {
  const auto [stopped, error] = std::from_chars(text.data(), text.data() + text.size(), *number);
  if (error != std::errc()) return false;
  text.remove_prefix(static_cast<std::size_t>(stopped - text.data()));
  if (text.empty()) return true;
  if (ends.find(text.front()) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

// Up to nine digits behind the point, as billionths.
bool TakeFraction(std::string_view text, SQLUINTEGER* fraction) {
  constexpr std::size_t kDigits = 9;
  *fraction = 0;
  for (std::size_t digit = 0; digit < kDigits; ++digit) {
    const char character = digit < text.size() ? text[digit] : '0';
    if (character < '0' || character > '9') return false;
    *fraction = *fraction * 10 + static_cast<SQLUINTEGER>(character - '0');
  }
  return true;
}

bool TakeTimeOfDay(std::string_view text, TIMESTAMP_STRUCT* time) {
  return TakeNumber(text, ":", &time->hour) && TakeNumber(text, ":", &time->minute) &&
         TakeNumber(text, ".", &time->second) && TakeFraction(text, &time->fraction);
}

bool TakeTime(std::string_view text, TIMESTAMP_STRUCT* time) {
  if (text.find('-') == std::string_view::npos) {
    *time = LocalToday();
    return TakeTimeOfDay(text, time);
  }
  SQLUSMALLINT year = 0;
  if (!TakeNumber(text, "-", &year) || !TakeNumber(text, "-", &time->month) ||
      !TakeNumber(text, " T", &time->day)) {
    return false;
  }
  time->year = static_cast<SQLSMALLINT>(year);
  return text.empty() || TakeTimeOfDay(text, time);
}

RETCODE ReadTime(std::string_view text, void* target, SQLLEN* indicator) {
  TIMESTAMP_STRUCT time = {};
  if (TakeTime(text, &time) && IsStorableDate(time)) return Put(time, target, indicator);
  *indicator = SQL_NULL_DATA;
  return SQL_SUCCESS;
}

}  // namespace

RETCODE Read(std::string_view text, SWORD c_type, void* target, SQLLEN* indicator) {
  switch (c_type) {
    case SQL_C_BIT:
      return ReadInteger<unsigned char>(text, 1, target, indicator);
    case SQL_C_UTINYINT:
      return ReadInteger<unsigned char>(text, UINT8_MAX, target, indicator);
    case SQL_C_SSHORT:
      return ReadInteger<short>(text, INT16_MAX, target, indicator);
    case SQL_C_SLONG:
      return ReadInteger<LONG>(text, INT32_MAX, target, indicator);
    case SQL_C_FLOAT:
      return ReadReal<float>(text, target, indicator);
    case SQL_C_DOUBLE:
      return ReadReal<double>(text, target, indicator);
    case SQL_C_TYPE_TIMESTAMP:
      return ReadTime(text, target, indicator);
    default:
      return SQL_ERROR;
  }
}

}  // namespace text_value
