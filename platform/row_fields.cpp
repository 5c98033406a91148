#include "platform/row_fields.h"

#include <algorithm>
#include <cstring>

#include "platform/kept_statements.h"
#include "platform/row_source.h"
#include "platform/text.h"

namespace {

// Texts up to this many bytes land in the fetch buffer; longer columns are read on demand, which the
// drivers do faster than filling a buffer of a million bytes for every row.
constexpr int kBufferedTextLimit = 4096;
constexpr std::size_t kBytesPerCharacter = 4;
constexpr std::size_t kSpareBytes = 4;  // one driver writes no zero byte on an exact fit
constexpr std::size_t kWideTextStep = 65536;
constexpr std::size_t kAlignment = 8;

std::size_t RoundUp(std::size_t size) { return (size + kAlignment - 1) / kAlignment * kAlignment; }

std::size_t CapacityFor(const Field& field) {
  if (IsNumber(field.kind)) return sizeof(LONG);
  if (field.kind == FieldKind::kDate) return sizeof(TIMESTAMP_STRUCT);
  if (field.max_length > kBufferedTextLimit) return 0;
  return static_cast<std::size_t>(field.max_length) * kBytesPerCharacter + 1;
}

SWORD FetchType(FieldKind kind) {
  if (kind == FieldKind::kText) return SQL_C_CHAR;
  return kind == FieldKind::kDate ? SQL_C_TYPE_TIMESTAMP : SQL_C_SLONG;
}

}  // namespace

bool IsDateColumn(const Field& field) { return field.only_day || IsDateType(field.column.m_nSQLType); }

void RowFields::BeginAdding(const CString& tables) {
  m_added = 0;
  if (m_tables == tables) return;
  ForgetColumns();
  m_tables = tables;
}

void RowFields::ForgetColumns() {
  m_fields.resize(m_added);
  m_select.Empty();
  m_described = -1;
  m_row = nullptr;
}

// A set over the same tables usually names the same columns: what is known of them then stays known.
void RowFields::Add(const FieldRef& ref) {
  const int max_length = std::max(ref.max_length, 0);
  const char* const name = ref.name == nullptr ? "" : ref.name;
  if (m_added < m_fields.size()) {
    Field& field = m_fields[m_added];
    if (field.kind == ref.kind && field.max_length == max_length && field.only_day == ref.only_day &&
        std::strcmp(field.name, name) == 0) {
      field.member = ref.member;
      field.null = field.nulled = field.forced = field.unassigned = field.dirty = false;
      ++m_added;
      return;
    }
  }
  ForgetColumns();
  Field field;
  field.name = name;
  field.kind = ref.kind;
  field.member = ref.member;
  field.max_length = max_length;
  field.only_day = ref.only_day;
  m_fields.push_back(std::move(field));
  ++m_added;
}

void RowFields::EndAdding() {
  if (m_added != m_fields.size()) ForgetColumns();
}

const CString& RowFields::Select() {
  if (!m_select.IsEmpty()) return m_select;
  m_select = "SELECT ";
  for (const Field& field : m_fields) {
    if (&field != m_fields.data()) m_select += ',';
    m_select += field.name;
  }
  m_select += " FROM " + m_tables;
  return m_select;
}

SWORD RowFields::TakeShape(const ColumnShape& shape, unsigned state) {
  for (std::size_t i = 0; i < m_fields.size(); ++i) m_fields[i].column = shape.fields[i];
  m_described = shape.columns;
  m_state = state;
  return m_described;
}

ColumnShape RowFields::Shape(SWORD columns, unsigned state) {
  ColumnShape shape{columns, {}};
  for (const Field& field : m_fields) shape.fields.push_back(field.column);
  m_described = columns;
  m_state = state;
  return shape;
}

// Gives every field its place in the buffer.
std::vector<std::size_t> RowFields::LayOut(std::size_t* size) {
  std::vector<std::size_t> layout;
  layout.reserve(2 * m_fields.size());
  *size = 0;
  for (Field& field : m_fields) {
    field.capacity = CapacityFor(field);
    field.offset = *size;
    *size += RoundUp(field.capacity + kSpareBytes);
    layout.push_back(static_cast<std::size_t>(field.kind));
    layout.push_back(field.capacity);
  }
  return layout;
}

RETCODE RowFields::Bind(RowSource& source, bool moves) {
  // Room for every text the buffer can give, so that moving allocates nothing.
  for (const Field& field : m_fields) {
    if (!moves || field.kind != FieldKind::kText || CapacityFor(field) == 0) continue;
    static_cast<CString*>(field.member)->Preallocate(field.max_length);
  }
  const std::shared_ptr<RowBuffer> bound = source.Bound();
  if (bound != nullptr && bound == m_row) return SQL_SUCCESS;
  std::size_t size = 0;
  std::vector<std::size_t> layout = LayOut(&size);
  m_row = bound;
  if (m_row != nullptr && m_row->layout == layout) return SQL_SUCCESS;
  return BindTo(source, std::move(layout), size);
}

RETCODE RowFields::BindTo(RowSource& source, std::vector<std::size_t> layout, std::size_t size) {
  m_row = std::make_shared<RowBuffer>();
  m_row->layout = std::move(layout);
  m_row->bytes = std::make_unique<char[]>(size);
  m_row->indicators.resize(m_fields.size());
  source.BeginBinding(m_row);
  SQLUSMALLINT column = 0;
  for (const Field& field : m_fields) {
    SQLLEN* indicator = &m_row->indicators[column];
    ++column;
    if (field.capacity == 0) continue;
    const RETCODE code = source.BindColumn(column, FetchType(field.kind), m_row->bytes.get() + field.offset,
                                           static_cast<SQLLEN>(field.capacity), indicator);
    if (!odbc::Succeeded(code)) {
      source.BeginBinding(nullptr);
      return code;
    }
  }
  return SQL_SUCCESS;
}

SQLLEN RowFields::Indicator(const Field& field) const {
  return m_row->indicators[static_cast<std::size_t>(&field - m_fields.data())];
}

bool RowFields::AllFit() const {
  return std::all_of(m_fields.begin(), m_fields.end(),
                     [](const Field& field) { return CapacityFor(field) != 0; });
}

bool RowFields::AllAreBuffered(short columns) const {
  return m_fields.size() == static_cast<std::size_t>(columns) &&
         std::all_of(m_fields.begin(), m_fields.end(),
                     [](const Field& field) { return field.capacity != 0; });
}

void RowFields::LoadNull(Field& field) {
  static const FieldValue null_read;
  field.null = true;
  WriteMember(field.kind, null_read, field.member);
}

// One driver writes no zero byte when a text fills the buffer, so the length comes from the indicator.
std::size_t RowFields::BufferedLength(const Field& field) const {
  const std::size_t most = field.capacity - 1;
  if (Indicator(field) >= 0) return std::min(static_cast<std::size_t>(Indicator(field)), most);
  return strnlen(m_row->bytes.get() + field.offset, most);
}

void RowFields::LoadBuffered(Field& field) {
  const char* source = m_row->bytes.get() + field.offset;
  if (field.kind == FieldKind::kText) {
    const std::size_t limit = static_cast<std::size_t>(field.max_length);
    static_cast<CString*>(field.member)
        ->Assign(source, text::CutLength(source, BufferedLength(field), limit));
  } else if (field.kind == FieldKind::kDate) {
    TIMESTAMP_STRUCT time;
    std::memcpy(&time, source, sizeof time);
    *static_cast<TIMESTAMP_STRUCT*>(field.member) = IsDateColumn(field) ? DayOf(time) : time;
  } else {
    std::memcpy(field.member, source, sizeof(LONG));
  }
}

RETCODE RowFields::LoadWideText(Field& field, SQLUSMALLINT column, RowSource& source) {
  const std::size_t limit = static_cast<std::size_t>(field.max_length);
  const std::size_t enough = limit + kBytesPerCharacter;  // to see where to cut
  std::size_t length = 0;
  while (length < enough) {
    if (m_wide_text.size() < length + kWideTextStep) m_wide_text.resize(2 * length + kWideTextStep);
    const std::size_t room = m_wide_text.size() - length;
    SQLLEN indicator = 0;
    const RETCODE code = source.GetData(column, SQL_C_CHAR, m_wide_text.data() + length,
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
  static_cast<CString*>(field.member)
      ->Assign(m_wide_text.data(), text::CutLength(m_wide_text.data(), length, limit));
  return SQL_SUCCESS;
}

RETCODE RowFields::Load(std::size_t index, RowSource& source, SQLLEN row) {
  Field& field = m_fields[index];
  if (const FieldValue* edited = Edited(index, row)) {
    field.null = edited->null;
    WriteMember(field.kind, *edited, field.member);
    return SQL_SUCCESS;
  }
  field.null = false;
  if (field.capacity == 0) return LoadWideText(field, static_cast<SQLUSMALLINT>(index + 1), source);
  if (Indicator(field) == SQL_NULL_DATA) {
    LoadNull(field);
  } else {
    LoadBuffered(field);
  }
  return SQL_SUCCESS;
}

const FieldValue* RowFields::Edited(std::size_t index, SQLLEN row) const {
  if (m_edits.empty()) return nullptr;
  const auto edited_row = m_edits.find(row);
  if (edited_row == m_edits.end()) return nullptr;
  const auto edited = edited_row->second.find(index);
  return edited == edited_row->second.end() ? nullptr : &edited->second;
}

bool RowFields::IsWholeInBuffer(const Field& field) const {
  if (field.capacity == 0) return false;
  if (field.kind != FieldKind::kText || Indicator(field) == SQL_NULL_DATA) return true;
  return Indicator(field) >= 0 && static_cast<std::size_t>(Indicator(field)) < field.capacity;
}

bool RowFields::Held(std::size_t index, SQLLEN row, FieldValue* value) const {
  if (const FieldValue* edited = Edited(index, row)) {
    *value = *edited;
    return true;
  }
  const Field& field = m_fields[index];
  if (!IsWholeInBuffer(field)) return false;
  const char* source = m_row->bytes.get() + field.offset;
  *value = FieldValue();
  value->null = Indicator(field) == SQL_NULL_DATA;
  if (value->null) return true;
  if (field.kind == FieldKind::kText) {
    value->text.assign(source, BufferedLength(field));
  } else if (field.kind == FieldKind::kDate) {
    std::memcpy(&value->time, source, sizeof value->time);
  } else {
    std::memcpy(&value->number, source, sizeof value->number);
  }
  return true;
}

const Field* RowFields::Find(const void* member) const {
  const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                  [member](const Field& field) { return field.member == member; });
  return found == m_fields.end() ? nullptr : &*found;
}
