#include "platform/row_fields.h"

#include <algorithm>
#include <cstring>

#include <fmt/format.h>

#include "platform/coledatetime.h"
#include "platform/text.h"

namespace {

// Values that no caller assigns to a member: after AddNew a member that still holds its own was not
// assigned, and its column is left to the database. An integer 0, a false flag and an empty text are
// therefore written when assigned; an all-zero date is no date and is not.
constexpr LONG kUnassignedNumber = 0x4A4D4120;
constexpr LONG kUnassignedFlag = 255;
constexpr const char* kUnassignedText = "\xFF";

// Texts up to this many bytes land in the fetch buffer; longer columns are read on demand, which the
// drivers do faster than filling a buffer of a million bytes for every row.
constexpr int kBufferedTextLimit = 4096;
constexpr std::size_t kBytesPerCharacter = 4;
constexpr std::size_t kSpareBytes = 4;  // one driver writes no zero byte on an exact fit
constexpr std::size_t kWideTextStep = 64 * 1024;
constexpr std::size_t kAlignment = 8;
constexpr SQLULEN kLongTextParameter = 8000;
constexpr SQLULEN kDateWidth = 10;
constexpr SQLULEN kTimestampWidth = 19;

bool IsNumber(FieldKind kind) { return kind != FieldKind::kText && kind != FieldKind::kDate; }

bool IsDateType(SWORD type) { return type == SQL_TYPE_DATE || type == SQL_DATE; }
bool IsTimestampType(SWORD type) { return type == SQL_TYPE_TIMESTAMP || type == SQL_TIMESTAMP; }

std::size_t RoundUp(std::size_t size) { return (size + kAlignment - 1) / kAlignment * kAlignment; }

std::size_t CapacityFor(const Field& field) {
  if (IsNumber(field.kind)) return sizeof(LONG);
  if (field.kind == FieldKind::kDate) return sizeof(TIMESTAMP_STRUCT);
  if (field.max_length > kBufferedTextLimit) return 0;
  return static_cast<std::size_t>(field.max_length) * kBytesPerCharacter + 1;
}

FieldValue UnassignedValue(FieldKind kind) {
  FieldValue value;
  value.number = kind == FieldKind::kBool ? kUnassignedFlag : kUnassignedNumber;
  value.text = kUnassignedText;
  return value;
}

bool IsNullRead(const FieldValue& value, FieldKind kind) { return value.SameAs(FieldValue(), kind); }

std::string DateText(const TIMESTAMP_STRUCT& time, bool date_only) {
  std::string text = fmt::format("{:04}-{:02}-{:02}", time.year, time.month, time.day);
  if (date_only) return text;
  text += fmt::format(" {:02}:{:02}:{:02}", time.hour, time.minute, time.second);
  if (time.fraction == 0) return text;
  text += fmt::format(".{:09}", time.fraction);
  text.erase(text.find_last_not_of('0') + 1);
  return text;
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

void RowFields::Add(const FieldRef& ref) {
  Field field;
  field.name = ref.name;
  field.kind = ref.kind;
  field.member = ref.member;
  field.max_length = ref.max_length;
  m_fields.push_back(std::move(field));
}

CString RowFields::SelectList() const {
  CString list;
  for (const Field& field : m_fields) {
    if (!list.IsEmpty()) list += ",";
    list += field.name;
  }
  return list;
}

RETCODE RowFields::Bind(odbc::Statement& statement) {
  std::size_t size = 0;
  for (Field& field : m_fields) {
    field.capacity = CapacityFor(field);
    field.offset = size;
    size += RoundUp(field.capacity + kSpareBytes);
    // Room for every text the buffer can give, so that moving allocates nothing.
    if (field.kind == FieldKind::kText && field.capacity != 0) {
      static_cast<CString*>(field.member)->Preallocate(field.max_length);
    }
  }
  m_buffer = std::make_unique<char[]>(size);
  SQLUSMALLINT column = 0;
  for (Field& field : m_fields) {
    ++column;
    if (field.capacity == 0) continue;
    const SWORD c_type = field.kind == FieldKind::kText   ? SWORD{SQL_C_CHAR}
                         : field.kind == FieldKind::kDate ? SWORD{SQL_C_TYPE_TIMESTAMP}
                                                          : SWORD{SQL_C_SLONG};
    const RETCODE code = statement.BindColumn(column, c_type, m_buffer.get() + field.offset,
                                              static_cast<SQLLEN>(field.capacity), &field.indicator);
    if (!odbc::Succeeded(code)) return code;
  }
  return SQL_SUCCESS;
}

void RowFields::LoadNull(Field& field) {
  static const FieldValue null_read;
  field.null = true;
  WriteMember(field.kind, null_read, field.member);
}

// One driver writes no zero byte when a text fills the buffer, so the length comes from the indicator.
std::size_t RowFields::BufferedLength(const Field& field) const {
  const std::size_t most = field.capacity - 1;
  if (field.indicator >= 0) return std::min(static_cast<std::size_t>(field.indicator), most);
  return strnlen(m_buffer.get() + field.offset, most);
}

void RowFields::LoadBuffered(Field& field) {
  const char* source = m_buffer.get() + field.offset;
  if (field.kind == FieldKind::kText) {
    const std::size_t limit = static_cast<std::size_t>(field.max_length);
    static_cast<CString*>(field.member)
        ->Assign(source, text::CutLength(source, BufferedLength(field), limit));
  } else if (field.kind == FieldKind::kDate) {
    TIMESTAMP_STRUCT time;
    std::memcpy(&time, source, sizeof time);
    if (IsDateType(field.column.m_nSQLType)) time = {time.year, time.month, time.day, 0, 0, 0, 0};
    *static_cast<TIMESTAMP_STRUCT*>(field.member) = time;
  } else {
    std::memcpy(field.member, source, sizeof(LONG));
  }
}

RETCODE RowFields::LoadWideText(Field& field, SQLUSMALLINT column, odbc::Statement& statement) {
  std::size_t length = 0;
  for (;;) {
    if (m_wide_text.size() < length + kWideTextStep) m_wide_text.resize(2 * length + kWideTextStep);
    const std::size_t room = m_wide_text.size() - length;
    SQLLEN indicator = 0;
    const RETCODE code = statement.GetData(column, SQL_C_CHAR, m_wide_text.data() + length,
                                           static_cast<SQLLEN>(room), &indicator);
    if (code == SQL_NO_DATA) break;
    if (!odbc::Succeeded(code)) return code;
    if (indicator == SQL_NULL_DATA) {
      LoadNull(field);
      return SQL_SUCCESS;
    }
    const bool all = indicator >= 0 && static_cast<std::size_t>(indicator) < room;
    length += all ? static_cast<std::size_t>(indicator) : room - 1;
    if (all) break;
  }
  const std::size_t cut =
      text::CutLength(m_wide_text.data(), length, static_cast<std::size_t>(field.max_length));
  static_cast<CString*>(field.member)->Assign(m_wide_text.data(), cut);
  return SQL_SUCCESS;
}

bool RowFields::LoadEdit(Field& field, std::size_t index, SQLLEN row) {
  if (m_edits.empty()) return false;
  const auto edited_row = m_edits.find(row);
  if (edited_row == m_edits.end()) return false;
  const auto edited = edited_row->second.find(index);
  if (edited == edited_row->second.end()) return false;
  field.null = edited->second.null;
  WriteMember(field.kind, edited->second, field.member);
  return true;
}

RETCODE RowFields::Load(std::size_t index, odbc::Statement& statement, SQLLEN row) {
  Field& field = m_fields[index];
  if (LoadEdit(field, index, row)) return SQL_SUCCESS;
  field.null = false;
  if (field.capacity == 0) return LoadWideText(field, static_cast<SQLUSMALLINT>(index + 1), statement);
  if (field.indicator == SQL_NULL_DATA) {
    LoadNull(field);
  } else {
    LoadBuffered(field);
  }
  return SQL_SUCCESS;
}

FieldValue RowFields::Fetched(std::size_t index) const {
  const Field& field = m_fields[index];
  const char* source = m_buffer.get() + field.offset;
  FieldValue value;
  value.null = field.indicator == SQL_NULL_DATA;
  if (value.null) return value;
  if (field.kind == FieldKind::kText) {
    value.text.assign(source, BufferedLength(field));
  } else if (field.kind == FieldKind::kDate) {
    std::memcpy(&value.time, source, sizeof value.time);
  } else {
    std::memcpy(&value.number, source, sizeof value.number);
  }
  return value;
}

void RowFields::BeginAdd() {
  for (Field& field : m_fields) {
    field.before = ReadMember(field.kind, field.member);
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
    field.before = field.clean = ReadMember(field.kind, field.member);
    field.null_before = field.null;
    field.nulled = field.forced = field.dirty = false;
  }
}

bool RowFields::MarkDirty(bool adding) {
  bool any = false;
  for (Field& field : m_fields) {
    const FieldValue now = ReadMember(field.kind, field.member);
    // A value assigned after the NULL was asked for stands.
    if (field.nulled && !IsNullRead(now, field.kind)) field.nulled = false;
    const bool no_date = adding && field.kind == FieldKind::kDate && IsAllZero(now.time);
    field.dirty = field.nulled || field.forced || (!no_date && !now.SameAs(field.clean, field.kind));
    any = any || field.dirty;
  }
  return any;
}

void RowFields::End(bool restore) {
  for (Field& field : m_fields) {
    field.nulled = field.forced = field.dirty = false;
    if (!restore) continue;
    field.null = field.null_before;
    WriteMember(field.kind, field.before, field.member);
  }
}

void RowFields::RememberEdit(SQLLEN row) {
  for (std::size_t index = 0; index < m_fields.size(); ++index) {
    const Field& field = m_fields[index];
    if (!field.dirty) continue;
    FieldValue value = ReadMember(field.kind, field.member);
    value.null = field.nulled;
    m_edits[row][index] = std::move(value);
  }
}

Field* RowFields::Find(const void* member) {
  const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                  [member](const Field& field) { return field.member == member; });
  return found == m_fields.end() ? nullptr : &*found;
}

odbc::Parameter RowFields::MakeParameter(const Field& field, const FieldValue& value) const {
  odbc::Parameter parameter;
  if (IsNumber(field.kind)) {
    parameter.c_type = SQL_C_SLONG;
    parameter.sql_type = SQL_INTEGER;
    parameter.number = value.number;
    parameter.indicator = value.null ? SQLLEN{SQL_NULL_DATA} : 0;
    return parameter;
  }
  if (field.kind == FieldKind::kDate) {
    // Sent as the text that a filter's literal would have: one driver stores a bound timestamp in a form
    // that no literal equals.
    const bool date_only = IsDateType(field.column.m_nSQLType);
    if (!IsAllZero(value.time)) parameter.text = DateText(value.time, date_only);
    parameter.sql_type = date_only                                  ? SWORD{SQL_TYPE_DATE}
                         : IsTimestampType(field.column.m_nSQLType) ? SWORD{SQL_TYPE_TIMESTAMP}
                                                                    : SWORD{SQL_VARCHAR};
    parameter.size = std::max<SQLULEN>(date_only ? kDateWidth : kTimestampWidth, parameter.text.size());
    if (parameter.text.size() > kTimestampWidth + 1) {
      parameter.digits = static_cast<SWORD>(parameter.text.size() - kTimestampWidth - 1);
    }
  } else {
    const std::size_t limit = static_cast<std::size_t>(field.max_length);
    parameter.text = value.text.substr(0, text::CutLength(value.text.data(), value.text.size(), limit));
    parameter.size = std::max<SQLULEN>(parameter.text.size(), 1);
    parameter.sql_type = parameter.size > kLongTextParameter ? SWORD{SQL_LONGVARCHAR} : SWORD{SQL_VARCHAR};
  }
  const bool null = value.null || (field.kind == FieldKind::kDate && parameter.text.empty());
  parameter.indicator = null ? SQLLEN{SQL_NULL_DATA} : static_cast<SQLLEN>(parameter.text.size());
  return parameter;
}
