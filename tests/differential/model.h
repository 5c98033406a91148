// What the library promises, as plain rows in memory: foretells the answer to every flat call.
#ifndef KYODBC_TESTS_DIFFERENTIAL_MODEL_H
#define KYODBC_TESTS_DIFFERENTIAL_MODEL_H

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/differential/call.h"
#include "tests/differential/packed.h"
#include "tests/differential/rules.h"

namespace differential {

using Row = std::vector<Cell>;  // in the order of the record's fields
using RowPtr = std::shared_ptr<const Row>;
using Rows = std::vector<RowPtr>;

struct Table {
  Rows rows;  // by key
  int next_key = 1;
};

struct Clause {
  bool joined_by_or;
  int field;  // kMissingColumn: the database refuses it
  int op;
  Cell value, upper;
  bool date_literal;  // values without a time of day
};

struct Filter {
  bool broken = false;          // no SQL
  bool missing_column = false;  // SQL, but refused
  std::vector<Clause> clauses;
};

struct SortKey {
  int field;
  bool descending;
};

struct Order {
  bool broken = false;
  bool missing_column = false;
  std::vector<SortKey> keys;
};

struct BrowseSet {
  bool open = false;
  bool before_first = true;
  bool after_last = true;
  int current = -1;  // 0 is the first row
  int sort_index = 0;
  Order order;
  Filter filter;
  bool changed = false;  // read at a change, and not looked at since
  Rows rows;             // as last read
  RowPtr shown;          // the current row, as it was when it was visited
};

struct ModelOptions {
  DatabaseFacts facts;
  std::string owner;
  bool full_names_are_tables = false;
  bool rows_as_read = false;  // visits show rows as they were read, not as they are stored now
};

class Model {
 public:
  // A practice with its default rows, not connected.
  explicit Model(const ModelOptions& options);

  Answer Run(const Call& call);

  // A reason of rules.h when some call so far has no answer that can be foretold, else null.
  const char* Undetermined() const { return m_undetermined; }

  const BrowseSet& Set(Stem stem) const { return m_sets[static_cast<std::size_t>(stem)]; }
  const Table& TableOf(Stem stem) const { return m_tables[static_cast<std::size_t>(stem)]; }
  bool Connected() const { return m_connected; }
  bool InTransaction() const { return m_saved.has_value(); }

 private:
  using Tables = std::array<Table, kStems>;

  BrowseSet& SetOf(Stem stem) { return m_sets[static_cast<std::size_t>(stem)]; }
  Table& Stored(Stem stem) { return m_tables[static_cast<std::size_t>(stem)]; }
  void Doubt(const char* why) {
    if (m_undetermined == nullptr) m_undetermined = why;
  }

  // model.cpp
  Answer RunUnconnected(const Call& call);
  Answer RunTable(const Call& call);
  Answer RunCompact(const Call& call);
  int Initialise();
  int CloseConnection();
  int EndTransaction(bool keep);
  Answer GetText(const Call& call, const std::string& text) const;

  // model_query.cpp
  Rows Everything(Stem stem) const;  // with the doctors' names for the view
  bool Matches(Stem stem, const Row& row, const Filter& filter);
  std::optional<bool> Holds(Stem stem, const Row& row, const Clause& clause);
  int CompareForOrder(const Row& left, const Row& right, const Order& order) const;
  Rows Ordered(Rows rows, const Order& order);
  // Whether the database takes the text made of it.
  template <class Words>
  bool Takes(const Words& words) {
    if (words.broken && m_saved) Doubt(reason::kBrokenSqlInTransaction);
    return !words.broken && !words.missing_column;
  }
  std::optional<Rows> Select(Stem stem, const Filter& filter);
  void CheckLiterals(ValueType type, Clause* clause);
  int SetFilter(const Call& call);
  int SetSort(Stem stem, int index);

  // model_browse.cpp
  int Open(Stem stem);
  void Shut(Stem stem);
  bool Requery(Stem stem);
  int RequeryIfOpen(Stem stem, int code);
  RowPtr Visible(Stem stem, int position) const;
  void Stand(Stem stem, int position);
  bool Walk(Stem stem, int position, int step);
  void StandOnFirst(Stem stem);
  int MoveByPos(Stem stem, int position);
  int MoveByDelta(Stem stem, int delta);
  int MoveByIntID(Stem stem, int key);
  int MoveViewByIntID(int key);
  bool HasSeekValue(const Row& target) const;
  int SeekHidden(const Row& target);
  int CountBefore(const Row& target);
  int MoveByString(Stem stem, const Cell& text);
  Answer MaxPos(Stem stem, bool no_output);
  int DeleteByPos(Stem stem, int position);
  int Show(Stem stem, int position, RowPtr* row);

  // model_find.cpp
  std::optional<Rows> Find(Stem stem, const Packed& record, std::uint32_t* mask);
  int FindOne(Stem stem, const Packed& record, std::uint32_t* mask, RowPtr* row);
  Rows WithValues(Stem stem, const std::vector<std::pair<const char*, Cell>>& values) const;
  Rows FoundByKey(Stem stem, int key) const;

  // model_rows.cpp
  int AddNew(Stem stem, Packed* record);
  int EditSel(Stem stem, Packed* record, std::uint32_t mask);
  int Delete(Stem stem, const Packed& record);
  int Get(Stem stem, Packed* record);
  bool Insert(Stem stem, Row row);
  bool Replace(Stem stem, const Row& row);
  void Erase(Stem stem, int key);
  void CopyIn(Stem stem, const Packed& record, std::uint32_t mask, bool adding, Row* row) const;
  void DerivePatient(std::uint32_t mask, bool adding, Row* row);
  void RefreshLastDisplay(int patient);
  RowPtr Newest(Stem stem, int parent, bool* tie) const;
  Answer LastDate(const Call& call);
  Answer Count(const Call& call);
  int AfterChange(Stem stem, int code, std::uint32_t mask, bool editing);

  // model_settings.cpp
  Answer GetString(const Call& call);
  int WriteString(const Cell& key, const Cell& station, const Cell& value);
  Answer GetInt(const Call& call);
  int StationKey(const std::string& name, int* key);
  std::string Setting(const Cell& key, const Cell& station, const std::string& fallback);

  // model_patient.cpp, model_unit.cpp
  int ChangePatient(const Call& call, Packed* record);
  int GetJoined(Packed* patient_ex);
  int RunPatient(const Call& call, Packed* record);
  int RunUnit(const Call& call, Packed* record);

  ModelOptions m_options;
  Tables m_tables;
  std::optional<Tables> m_saved;  // as they were when the transaction began
  std::array<BrowseSet, kStems> m_sets;
  bool m_connected = false;
  bool m_has_version = false;  // read at the last connection
  std::string m_dbms;
  std::string m_known_owner;
  bool m_untold_row = false;  // the last call has added a row and failed
  int m_now = 0;
  const char* m_undetermined = nullptr;
};

// The code of an operation that finds no row.
int NotFound(Stem stem);

// Seconds since 1970 as a date and time, without time zone.
Time TimeOf(int seconds);

// What a column holds for the record's field, and the other way round.
void CopyOut(const Row& row, Packed* record);

// What a compact record says of a patient or a unit, and the other way round.
Packed JoinedOf(const Packed& compact);
void CompactOfJoined(const Packed& joined, Packed* compact);
void CompactOfPatient(const Packed& patient, Packed* compact);
Packed UnitOf(const Packed& compact);
void CompactOfUnit(const Packed& unit, Packed* compact);

}  // namespace differential

#endif
