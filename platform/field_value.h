// Values of columns and of the members bound to them, apart from any row.
#ifndef KYODBC_PLATFORM_FIELD_VALUE_H
#define KYODBC_PLATFORM_FIELD_VALUE_H

#include <string>

#include "platform/types.h"

enum class FieldKind { kLong, kInt, kBool, kText, kDate };

// Numbers share one width.
inline bool IsNumber(FieldKind kind) { return kind != FieldKind::kText && kind != FieldKind::kDate; }

// The part that the kind names is used. A NULL is what it is read as: 0, empty, all zero.
struct FieldValue {
  bool null = false;
  LONG number = 0;
  TIMESTAMP_STRUCT time = {};
  std::string text;
};

// In place, so that texts keep their memory.
void ReadMember(FieldKind kind, const void* member, FieldValue* value);
// True when the member holds the value, whether that is NULL or not.
bool MemberIs(FieldKind kind, const void* member, const FieldValue& value);
void WriteMember(FieldKind kind, const FieldValue& value, void* member);

// A value that no caller assigns to a member: after AddNew a member that still holds it was not assigned, and
// its column is left to the database. An integer 0, a false flag and an empty text are therefore written when
// assigned; an all-zero date is no date and is not.
const FieldValue& UnassignedValue(FieldKind kind);

// As the literals of a filter write it: yyyy-mm-dd hh:mm:ss, with a fraction only when there is one.
std::string DateText(const TIMESTAMP_STRUCT& time, bool date_only);
// The value as a text, for a column read on demand.
std::string ValueText(const FieldValue& value, FieldKind kind, bool date_only);

// True when the date is one that a date or timestamp column can hold.
bool IsStorableDate(const TIMESTAMP_STRUCT& value);
bool IsAllZero(const TIMESTAMP_STRUCT& value);
// `value` at midnight.
TIMESTAMP_STRUCT DayOf(const TIMESTAMP_STRUCT& value);

#endif
