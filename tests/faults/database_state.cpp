#include "tests/faults/database_state.h"

#include <algorithm>

namespace faults {
namespace {

constexpr const char* kTables[] = {"TConfig", "TDiagnosis", "TDoctor",  "TGroup", "TImage",
                                   "TMakro",  "TPatient",   "TStation", "TTest",  "TUnit"};

// The tests' own rows have times of long ago.
constexpr const char* kFirstOfToday = "2020";

bool IsOfToday(const std::string& value) {
  return value.size() >= 10 && value[4] == '-' && value[7] == '-' && value.compare(0, 4, kFirstOfToday) > 0;
}

std::string Literal(const support::Value& value) {
  if (!value) return "NULL";
  std::string literal = "'";
  for (const char c : *value) literal += c == '\'' ? std::string("''") : std::string(1, c);
  return literal + "'";
}

std::string Values(const support::Row& row) {
  std::string values;
  for (const support::Value& value : row) values += (values.empty() ? "" : ", ") + Literal(value);
  return values;
}

}  // namespace

std::string Difference(const State& wanted, const State& found) {
  std::string text;
  for (const char* table : kTables) {
    const std::vector<std::string>& before = wanted.at(table);
    const std::vector<std::string>& after = found.at(table);
    std::vector<std::string> gone;
    std::vector<std::string> come;
    std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(gone));
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(come));
    for (const std::string& line : gone) text += std::string("\n- ") + table + line;
    for (const std::string& line : come) text += std::string("\n+ ") + table + line;
  }
  return text;
}

DatabaseState::DatabaseState(support::RawOdbc& raw) : m_raw(raw) {
  for (const char* table : kTables) m_rows[table] = ReadTable(table);
  for (const char* table : kTables) m_before[table] = Lines(table, m_rows[table]);
}

DatabaseState::Rows DatabaseState::ReadTable(const std::string& table) {
  return m_raw.Query("SELECT * FROM " + table);
}

std::vector<std::string> DatabaseState::Lines(const std::string& table, const Rows& rows) const {
  const Rows& known = m_rows.at(table);
  std::vector<std::string> lines;
  for (const support::Row& row : rows) {
    const bool is_known = std::any_of(known.begin(), known.end(),
                                      [&](const support::Row& other) { return other[0] == row[0]; });
    std::string& line = lines.emplace_back(" " + (is_known ? row[0].value_or("NULL") : "new"));
    for (std::size_t i = 1; i < row.size(); ++i) {
      line += "|" + (!row[i] ? "NULL" : IsOfToday(*row[i]) ? "today" : *row[i]);
    }
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

State DatabaseState::Read() {
  State state;
  for (const char* table : kTables) state[table] = Lines(table, ReadTable(table));
  return state;
}

void DatabaseState::PutBack() {
  for (const auto& [table, rows] : m_rows) {
    if (Lines(table, ReadTable(table)) == m_before.at(table)) continue;
    m_raw.Exec("DELETE FROM " + table);
    for (const support::Row& row : rows) m_raw.Exec("INSERT INTO " + table + " VALUES (" + Values(row) + ")");
  }
}

}  // namespace faults
