#include "tools/shell/row_set.h"

#include <KyODBCDiag.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "tools/field_names.h"

namespace shell {
namespace {

// A set keeps its filter when it is closed, so that "all rows" has to be said.
Filter FilterBy(const std::string& words, FieldIds known) {
  if (words.find_first_not_of(' ') != std::string::npos) return ReadFilter({words}, known);
  Filter all;
  all.Append(KYODBC_FIELD_KEY, KYODBC_GREATER, LONG{0});
  return all;
}

// False for a descending order, and for one that begins with a number or a date.
bool BeginsWithText(std::string_view sort, FieldIds known) {
  if (sort.starts_with('-')) return false;
  return FindField(sort.substr(0, sort.find(',')), known).type == ValueType::kText;
}

}  // namespace

SetError::SetError(WORD code, const std::string& doing)
    : ToolError(kFailed, fmt::format("{}: {} (code {})", doing, MeaningOf(code), code)) {}

void CheckSet(WORD code, const std::string& doing) {
  if (code != KYODBC_OK) throw SetError(code, doing);
}

Words UsualWords(const Table& table) {
  if (PositioningOf(table).move_to_text == nullptr) return {};
  return {"", "name,firstname"};
}

LONG Row::Key() const {
  LONG key = 0;
  if (!Gone()) std::memcpy(&key, record.data(), sizeof key);
  return key;
}

RowSet::RowSet(const Table& table) : m_table(table), m_positioning(PositioningOf(table)) {}

RowSet::~RowSet() { m_table.close(); }

std::string RowSet::Reading() const { return fmt::format("reading the {}", m_table.plural); }

// Filter and sort go to the closed set, so that it is read once only. An open that restores a lost connection
// forgets them: where it does, that comes before.
void RowSet::Open(const Words& words) {
  const Filter filter = FilterBy(words.filter, m_table.fields);
  const LONG sort = ReadSort(words.sort, m_table.fields);
  if (m_positioning.restores) Heal();
  m_table.close();
  SetWords(filter, sort);
  CheckSet(m_table.open(), fmt::format("opening the {}", m_table.plural));
  CountRows();
  m_words = words;
}

void RowSet::SetWords(const Filter& filter, LONG sort) {
  CheckSet(m_table.set_filter(filter.Fields(), filter.Operators(), filter.ValuePointer(0),
                              filter.ValuePointer(1), filter.ValuePointer(2), filter.ValuePointer(3)),
           "filtering");
  CheckSet(m_table.set_sort(sort), "sorting");
}

void RowSet::CountRows() {
  LONG count = 0;
  CheckSet(m_table.count(&count), fmt::format("counting the {}", m_table.plural));
  m_count = count;
}

LONG RowSet::OpenAtKey(LONG key) {
  // The filter given last may be one that the database refused.
  Heal();
  m_table.close();
  SetWords(FilterBy(m_words.filter, m_table.fields), ReadSort(m_words.sort, m_table.fields));
  LONG position = 0;
  const WORD code = DB_ReopenAtKey(m_positioning.set, key, &position);
  if (code != KYODBC_NO_ROW) CheckSet(code, fmt::format("opening the {}", m_table.plural));
  CountRows();
  return key == 0 ? 0 : position;
}

// A call answers "no such row" also when the database failed to read it, and a move answers 0 for every
// failure; what it was, only the last failure tells.
void RowSet::CheckGone() const {
  tagDBERRORDETAIL failure{};
  DB_GetLastErrorDetail(&failure, sizeof failure);
  if (failure.wCode != KYODBC_NO_ROW) CheckSet(failure.wCode, Reading());
  if (failure.szState[0] != '\0') CheckSet(KYODBC_DB_EXCEPTION, Reading());
}

LONG RowSet::Moved(LONG position) const {
  if (position > 0) return position;
  CheckGone();
  return 0;
}

Row RowSet::Current(LONG position) const {
  Row row{position, std::vector<char>(m_table.data->record_size)};
  const WORD code = m_table.get_by_pos(0, row.record.data());
  if (code != KYODBC_NO_ROW) {
    CheckSet(code, Reading());
    return row;
  }
  CheckGone();
  return {position, {}};
}

// Steps where it can, since the library reads ahead of steps. A step passes over rows that are gone.
std::vector<Row> RowSet::Read(LONG first, LONG last) {
  std::vector<Row> rows;
  LONG at = 0;
  for (LONG position = first; position <= last; ++position) {
    if (at > 0 && at == position - 1) {
      at = Moved(m_positioning.move_by(1));
    } else if (at < position) {
      at = Moved(m_positioning.move_to(position));
    }
    rows.push_back(at == position ? Current(position) : Row{position, {}});
  }
  return rows;
}

LONG RowSet::KeyAt(LONG position) const {
  const LONG at = position == 0 ? 1 : Moved(m_positioning.move_to(position));
  return at == 0 ? 0 : Current(position).Key();
}

LONG RowSet::PositionOfKey(LONG key, LONG near) {
  if (near > 0 && KeyAt(near) == key) return near;
  LONG at = Moved(m_positioning.move_to(1));
  if (m_positioning.move_to_key != nullptr && at > 0) {
    at = Moved(m_positioning.move_to_key(key));
    return KeyAt(0) == key ? at : 0;
  }
  while (at > 0 && KeyAt(0) != key) at = Moved(m_positioning.move_by(1));
  return at;
}

LONG RowSet::PositionOfText(const std::string& text) {
  if (m_positioning.move_to_text == nullptr) {
    throw WordsError("jumping works in the patients only, with and without their doctors");
  }
  if (!BeginsWithText(m_words.sort, m_table.fields)) {
    throw WordsError("jumping needs an ascending order that begins with a text, as 'name'");
  }
  return Moved(m_positioning.move_to_text(text.c_str()));
}

// Any set restores a connection; there are few stations to read.
void Heal() {
  const WORD code = DB_ReopenAtKey(KYODBC_SET_TSTAT, 0, nullptr);
  DB_CloseTStat();
  CheckSet(code, "connecting again");
}

LONG ReopenAtKey(RowSet& set, LONG key, LONG position) {
  const LONG found = set.OpenAtKey(key);
  return found > 0 ? found : std::min(position, set.Count());
}

}  // namespace shell
