#include "platform/field_value.h"

#include <cstring>
#include <string_view>

#include "platform/coledatetime.h"
#include "platform/cstring.h"

namespace {

constexpr LONG kUnassignedNumber = 0x4A4D4120;  // outside the ordinals, too
constexpr LONG kUnassignedFlag = 255;
constexpr std::string_view kUnassignedText("\0", 1);  // a text that ends at its first zero cannot be this
constexpr std::size_t kWidestTime = 29;

// The last `width` digits of `number`.
void AppendDigits(unsigned number, std::size_t width, std::string* text) {
  text->append(width, '0');
  for (auto digit = text->rbegin(); width > 0; --width, ++digit) {
    *digit = static_cast<char>('0' + number % 10);
    number /= 10;
  }
}

}  // namespace

bool IsAllZero(const TIMESTAMP_STRUCT& value) {
  static constexpr TIMESTAMP_STRUCT kZero = {};
  return std::memcmp(&value, &kZero, sizeof value) == 0;
}

bool IsStorableDate(const TIMESTAMP_STRUCT& value) {
  constexpr SQLUINTEGER kBillion = 1000000000;
  return IsCalendarDay(value.year, value.month, value.day) && value.hour < 24 && value.minute < 60 &&
         value.second < 60 && value.fraction < kBillion;
}

TIMESTAMP_STRUCT DayOf(const TIMESTAMP_STRUCT& value) {
  return {value.year, value.month, value.day, 0, 0, 0, 0};
}

void ReadMember(FieldKind kind, const void* member, FieldValue* value) {
  value->null = false;
  if (kind == FieldKind::kText) {
    value->text = static_cast<const CString*>(member)->View();
  } else if (kind == FieldKind::kDate) {
    value->time = *static_cast<const TIMESTAMP_STRUCT*>(member);
  } else {
    value->number = *static_cast<const LONG*>(member);
  }
}

bool MemberIs(FieldKind kind, const void* member, const FieldValue& value) {
  if (kind == FieldKind::kText) return static_cast<const CString*>(member)->View() == value.text;
  if (kind == FieldKind::kDate) return std::memcmp(member, &value.time, sizeof value.time) == 0;
  return *static_cast<const LONG*>(member) == value.number;
}

void WriteMember(FieldKind kind, const FieldValue& value, void* member) {
  if (kind == FieldKind::kText) {
    static_cast<CString*>(member)->Assign(value.text.data(), value.text.size());
  } else if (kind == FieldKind::kDate) {
    *static_cast<TIMESTAMP_STRUCT*>(member) = value.time;
  } else {
    *static_cast<LONG*>(member) = value.number;
  }
}

const FieldValue& UnassignedValue(FieldKind kind) {
  static const FieldValue flag = {false, kUnassignedFlag, {}, std::string(kUnassignedText)};
  static const FieldValue any = {false, kUnassignedNumber, {}, std::string(kUnassignedText)};
  return kind == FieldKind::kBool ? flag : any;
}

std::string DateText(const TIMESTAMP_STRUCT& time, bool date_only) {
  std::string text;
  text.reserve(kWidestTime);
  // Drivers may give years that no filter can write.
  if (time.year < 0 || time.year > 9999) {
    text += std::to_string(time.year);
  } else {
    AppendDigits(static_cast<unsigned>(time.year), 4, &text);
  }
  AppendDigits(time.month, 2, &(text += '-'));
  AppendDigits(time.day, 2, &(text += '-'));
  if (date_only) return text;
  AppendDigits(time.hour, 2, &(text += ' '));
  AppendDigits(time.minute, 2, &(text += ':'));
  AppendDigits(time.second, 2, &(text += ':'));
  if (time.fraction == 0) return text;
  AppendDigits(time.fraction, 9, &(text += '.'));
  text.erase(text.find_last_not_of('0') + 1);
  return text;
}

std::string ValueText(const FieldValue& value, FieldKind kind, bool date_only) {
  if (kind == FieldKind::kText) return value.text;
  if (kind == FieldKind::kDate) return DateText(value.time, date_only);
  return std::to_string(value.number);
}
