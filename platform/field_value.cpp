#include "platform/field_value.h"

#include <cstring>

#include <fmt/format.h>

#include "platform/coledatetime.h"
#include "platform/cstring.h"

namespace {

constexpr LONG kUnassignedNumber = 0x4A4D4120;  // outside the ordinals, too
constexpr LONG kUnassignedFlag = 255;
constexpr const char* kUnassignedText = "\xFF";  // can begin no UTF-8 text

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

bool FieldValue::SameAs(const FieldValue& other, FieldKind kind) const {
  if (kind == FieldKind::kText) return text == other.text;
  if (kind == FieldKind::kDate) return std::memcmp(&time, &other.time, sizeof time) == 0;
  return number == other.number;
}

FieldValue ReadMember(FieldKind kind, const void* member) {
  FieldValue value;
  if (kind == FieldKind::kText) {
    value.text = static_cast<const CString*>(member)->View();
  } else if (kind == FieldKind::kDate) {
    value.time = *static_cast<const TIMESTAMP_STRUCT*>(member);
  } else {
    value.number = *static_cast<const LONG*>(member);
  }
  return value;
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

FieldValue UnassignedValue(FieldKind kind) {
  FieldValue value;
  value.number = kind == FieldKind::kBool ? kUnassignedFlag : kUnassignedNumber;
  value.text = kUnassignedText;
  return value;
}

std::string DateText(const TIMESTAMP_STRUCT& time, bool date_only) {
  std::string text = fmt::format("{:04}-{:02}-{:02}", time.year, time.month, time.day);
  if (date_only) return text;
  text += fmt::format(" {:02}:{:02}:{:02}", time.hour, time.minute, time.second);
  if (time.fraction == 0) return text;
  text += fmt::format(".{:09}", time.fraction);
  text.erase(text.find_last_not_of('0') + 1);
  return text;
}

std::string ValueText(const FieldValue& value, FieldKind kind, bool date_only) {
  if (kind == FieldKind::kText) return value.text;
  if (kind == FieldKind::kDate) return DateText(value.time, date_only);
  return std::to_string(value.number);
}
