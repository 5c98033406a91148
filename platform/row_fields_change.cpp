// The pending change of a row: which fields it writes, and what.
#include <algorithm>

#include "platform/row_fields.h"
#include "platform/text.h"

namespace {

constexpr SQLULEN kLongTextParameter = 8000;
constexpr SQLULEN kDateWidth = 10;
constexpr SQLULEN kTimestampWidth = 19;

bool IsTimestampType(SWORD type) { return type == SQL_TYPE_TIMESTAMP || type == SQL_TIMESTAMP; }

// What a NULL is read as.
bool HoldsNullRead(const Field& field) {
  static const FieldValue null_read;
  return MemberIs(field.kind, field.member, null_read);
}

// Sent as the text that a filter's literal would have: one driver stores a bound timestamp in a form that no
// literal equals.
void SetDate(const Field& field, const TIMESTAMP_STRUCT& time, odbc::Parameter* parameter) {
  const bool date_only = IsDateColumn(field);
  parameter->text = DateText(time, date_only);
  parameter->size = std::max<SQLULEN>(date_only ? kDateWidth : kTimestampWidth, parameter->text.size());
  if (parameter->text.size() > kTimestampWidth + 1) {
    parameter->digits = static_cast<SWORD>(parameter->text.size() - kTimestampWidth - 1);
  }
}

SWORD DateParameterType(const Field& field) {
  if (IsDateType(field.column.m_nSQLType)) return SQL_TYPE_DATE;
  return IsTimestampType(field.column.m_nSQLType) ? SQL_TYPE_TIMESTAMP : SQL_VARCHAR;
}

}  // namespace

void RowFields::BeginAdd() {
  for (Field& field : m_fields) {
    ReadMember(field.kind, field.member, &field.before);
    field.null_before = field.null;
  }
  for (Field& field : m_fields) {
    field.clean = UnassignedValue(field.kind);
    field.null = true;
    field.nulled = field.forced = field.dirty = false;
    WriteMember(field.kind, field.clean, field.member);
  }
}

void RowFields::BeginEdit() {
  for (Field& field : m_fields) {
    ReadMember(field.kind, field.member, &field.before);
    ReadMember(field.kind, field.member, &field.clean);
    field.null_before = field.null;
    field.nulled = field.forced = field.dirty = false;
  }
}

bool RowFields::MarkDirty(bool adding) {
  bool any = false;
  for (Field& field : m_fields) {
    const bool changed = !MemberIs(field.kind, field.member, field.clean);
    // A value assigned after the NULL was asked for stands.
    if (field.nulled && !HoldsNullRead(field)) field.nulled = false;
    field.unassigned = !changed && (adding || field.null);
    field.dirty = field.nulled || field.forced || changed;
    any = any || field.dirty;
  }
  return any;
}

FieldValue RowFields::Written(const Field& field) const {
  FieldValue value;
  value.null = true;
  if (field.nulled || field.unassigned) return value;
  ReadMember(field.kind, field.member, &value);
  if (field.kind == FieldKind::kDate) {
    value.null = IsAllZero(value.time);
    if (IsDateColumn(field)) value.time = DayOf(value.time);
  } else if (field.kind == FieldKind::kText) {
    const std::size_t limit = static_cast<std::size_t>(field.max_length);
    value.text.resize(text::CutLength(value.text.data(), value.text.size(), limit));
  }
  return value;
}

bool RowFields::IsNull(const Field& field, bool changing) const {
  if (!changing) return field.null;
  if (field.nulled || field.kind == FieldKind::kDate) {
    if (HoldsNullRead(field)) return true;
    if (field.nulled) return false;
  }
  return field.null && MemberIs(field.kind, field.member, field.clean);
}

void RowFields::End(bool restore) {
  for (Field& field : m_fields) {
    field.nulled = field.forced = field.unassigned = field.dirty = false;
    if (!restore) continue;
    field.null = field.null_before;
    WriteMember(field.kind, field.before, field.member);
  }
}

void RowFields::RememberEdit(SQLLEN row, bool show) {
  for (std::size_t index = 0; index < m_fields.size(); ++index) {
    Field& field = m_fields[index];
    if (!field.dirty) continue;
    FieldValue value = Written(field);
    field.null = value.null;
    if (show) m_edits[row][index] = std::move(value);
  }
}

odbc::Parameter RowFields::MakeParameter(const Field& field, FieldValue value) const {
  odbc::Parameter parameter;
  if (IsNumber(field.kind)) {
    parameter.c_type = SQL_C_SLONG;
    parameter.sql_type = SQL_INTEGER;
    parameter.number = value.number;
    parameter.indicator = value.null ? SQLLEN{SQL_NULL_DATA} : 0;
    return parameter;
  }
  if (field.kind == FieldKind::kDate) {
    parameter.sql_type = DateParameterType(field);
    parameter.size = IsDateColumn(field) ? kDateWidth : kTimestampWidth;
    if (!value.null) SetDate(field, value.time, &parameter);
  } else {
    parameter.text = std::move(value.text);
    parameter.size = std::max<SQLULEN>(parameter.text.size(), 1);
    parameter.sql_type = parameter.size > kLongTextParameter ? SWORD{SQL_LONGVARCHAR} : SWORD{SQL_VARCHAR};
  }
  parameter.indicator = value.null ? SQLLEN{SQL_NULL_DATA} : static_cast<SQLLEN>(parameter.text.size());
  return parameter;
}
