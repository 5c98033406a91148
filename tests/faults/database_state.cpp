#include "tests/faults/database_state.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

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

std::string Shown(const support::Value& value) {
  return !value ? "NULL" : IsOfToday(*value) ? "today" : *value;
}

// The lines of `lines` that are not among `others`, each as often as it is there more often.
std::vector<std::string> Without(const std::vector<std::string>& lines,
                                 const std::vector<std::string>& others) {
  std::vector<std::string> rest;
  std::set_difference(lines.begin(), lines.end(), others.begin(), others.end(), std::back_inserter(rest));
  return rest;
}

std::vector<std::string> Common(const std::vector<std::string>& lines,
                                const std::vector<std::string>& others) {
  std::vector<std::string> common;
  std::set_intersection(lines.begin(), lines.end(), others.begin(), others.end(), std::back_inserter(common));
  return common;
}

std::vector<std::string> Either(const std::vector<std::string>& lines,
                                const std::vector<std::string>& others) {
  std::vector<std::string> all;
  std::set_union(lines.begin(), lines.end(), others.begin(), others.end(), std::back_inserter(all));
  return all;
}

constexpr char kPatients[] = "TPatient";
// Where the schema has the day of entry and the derived time.
constexpr std::size_t kEntryColumn = 10;
constexpr std::size_t kDerivedColumn = 11;

}  // namespace

std::string Difference(const State& wanted, const State& found) {
  std::string text;
  for (const auto& [table, lines] : wanted) {
    for (const std::string& line : Without(lines, found.at(table))) {
      text.append("\n- ").append(table).append(line);
    }
    for (const std::string& line : Without(found.at(table), lines)) {
      text.append("\n+ ").append(table).append(line);
    }
  }
  return text;
}

DatabaseState::DatabaseState(support::RawOdbc& raw) : m_raw(raw) {
  for (const char* table : kTables) m_rows[table] = ReadTable(table);
  m_before = StateOf(m_rows);
  const Rows derived = m_raw.Query("SELECT tPatDEntry, tPatTsLastDisp FROM TPatient ORDER BY 1");
  for (const support::Row& row : m_rows.at(kPatients)) {
    const support::Row wanted = {row.at(kEntryColumn), row.at(kDerivedColumn)};
    if (std::find(derived.begin(), derived.end(), wanted) == derived.end()) {
      throw std::runtime_error("the columns of the patients are not where they are looked for");
    }
  }
}

DatabaseState::Rows DatabaseState::ReadTable(const std::string& table) {
  return m_raw.Query("SELECT * FROM " + table);
}

std::string DatabaseState::KeyOf(const std::string& table, const support::Row& row) const {
  const Rows& known = m_rows.at(table);
  const bool is_known =
      std::any_of(known.begin(), known.end(), [&](const support::Row& other) { return other[0] == row[0]; });
  return is_known ? row[0].value_or("NULL") : "new";
}

std::vector<std::string> DatabaseState::Lines(const std::string& table, const Rows& rows) const {
  std::vector<std::string> lines;
  for (const support::Row& row : rows) {
    std::string& line = lines.emplace_back(" " + KeyOf(table, row));
    for (std::size_t i = 1; i < row.size(); ++i) {
      if (table != kPatients || i != kDerivedColumn) line += "|" + Shown(row[i]);
    }
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

std::vector<std::string> DatabaseState::Derived(const Rows& patients) const {
  std::vector<std::string> lines;
  for (const support::Row& row : patients) {
    // The day of entry is told as such: it is what stands for a time that cannot be read.
    const bool is_entry = row[kDerivedColumn] && row[kEntryColumn] &&
                          row[kDerivedColumn]->substr(0, 10) == row[kEntryColumn]->substr(0, 10);
    lines.push_back(" " + KeyOf(kPatients, row) + "|" +
                    (is_entry ? "the day of entry" : Shown(row[kDerivedColumn])));
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

State DatabaseState::StateOf(const std::map<std::string, Rows>& rows) const {
  State state;
  for (const auto& [table, its_rows] : rows) state[table] = Lines(table, its_rows);
  state[kDerived] = Derived(rows.at(kPatients));
  return state;
}

State DatabaseState::Read() {
  std::map<std::string, Rows> rows;
  for (const char* table : kTables) rows[table] = ReadTable(table);
  return StateOf(rows);
}

void DatabaseState::PutBack() {
  for (const auto& [table, rows] : m_rows) {
    const Rows found = ReadTable(table);
    const bool same = Lines(table, found) == m_before.at(table) &&
                      (table != kPatients || Derived(found) == m_before.at(kDerived));
    if (same) continue;
    m_raw.Exec("DELETE FROM " + table);
    for (const support::Row& row : rows) m_raw.Exec("INSERT INTO " + table + " VALUES (" + Values(row) + ")");
  }
}

bool DatabaseState::IsBetween(const State& found, const State& after) const {
  return std::all_of(found.begin(), found.end(), [&](const auto& table) {
    const std::vector<std::string>& before_lines = m_before.at(table.first);
    const std::vector<std::string>& after_lines = after.at(table.first);
    return Without(table.second, Either(before_lines, after_lines)).empty() &&
           Without(Common(before_lines, after_lines), table.second).empty();
  });
}

bool DatabaseState::IsAfterButForDerived(const State& found, const State& after) const {
  State wanted = after;
  for (const std::string& line : found.at(kDerived)) {
    const std::string entry = line.substr(0, line.find('|')) + "|the day of entry";
    const std::vector<std::string> allowed =
        Either(Either(m_before.at(kDerived), after.at(kDerived)), {entry});
    if (!std::binary_search(allowed.begin(), allowed.end(), line)) return false;
  }
  wanted[kDerived] = found.at(kDerived);
  return found == wanted;
}

}  // namespace faults
