// The row operations of each of the ten tables, outside and inside a transaction.
#include "tests/faults/scenario.h"
#include "tests/flat/family_tables.h"

namespace faults {
namespace {

// The records that the scenarios add; those of AddRows are the first of their series.
constexpr int kFirst = 1;
constexpr int kAdded = 2;
constexpr int kAddedToo = 3;

template <class Table>
const Codes kAdds = {1, 3, 6, 31, 52, 64};
template <class Table>
const Codes kEdits = {3, 6, 31, 52, Table::kNotFound};
template <class Table>
const Codes kDeletes = {3, 8, 31, 52, Table::kNotFound};
template <class Table>
const Codes kGets = {3, 31, 52, Table::kNotFound};

// Records name keys of other tables: those that are there.
void Adopt(tagTPATIENT* patient, const Keys& keys) { patient->lDrID = keys.at("TDr"); }
void Adopt(tagTIMAGE* image, const Keys& keys) { image->lPatID = keys.at("TPat"); }
template <class Record>
void Adopt(Record*, const Keys&) {}

template <class Table>
typename Table::Record Known(const Keys& keys) {
  auto record = Table::Fill(kFirst);
  Adopt(&record, keys);
  const LONG key = keys.at(Table::kName);
  std::memcpy(static_cast<void*>(&record), &key, sizeof key);
  return record;
}

template <class Table>
WORD AddOne(Answers& answers, const Keys& keys, int number) {
  auto record = Table::Fill(number);
  Adopt(&record, keys);
  return answers.Code("add", Table::Add(&record), kAdds<Table>);
}

template <class Table>
WORD EditOne(Answers& answers, const Keys& keys) {
  auto record = Known<Table>(keys);
  Table::ChangeText(&record, kChangedText);
  return answers.Code("edit", Table::EditSel(&record, KYODBC_MASK_ALL), kEdits<Table>);
}

template <class Table>
WORD DeleteOne(Answers& answers, const Keys& keys) {
  const auto record = Known<Table>(keys);
  return answers.Code("delete", Table::Delete(&record), kDeletes<Table>);
}

// These codes tell that the row is there and only its key could not be read.
bool IsAddedAllTheSame(WORD code) { return code == 1 || code == 52 || code == 64; }

template <class Table>
void Add(Answers& answers, const Keys& keys) {
  if (IsAddedAllTheSame(AddOne<Table>(answers, keys, kAdded))) answers.RequireChange();
}

template <class Table>
void Edit(Answers& answers, const Keys& keys) {
  answers.TellsWhetherChanged(EditOne<Table>(answers, keys));
}

template <class Table>
void GetAndDelete(Answers& answers, const Keys& keys) {
  auto record = Known<Table>(keys);
  answers.Code("get", Table::Get(&record), kGets<Table>);
  const WORD code = DeleteOne<Table>(answers, keys);
  answers.TellsWhetherChanged(code);
  if (code == 0) answers.RequireChange();
}

// As a careful caller does: commits only what was done whole.
template <class Table>
void Transaction(Answers& answers, const Keys& keys) {
  if (answers.Code("begin", DB_BeginTransaction(), {1, 3}) != 0) return;
  const bool done = AddOne<Table>(answers, keys, kAdded) == 0 && EditOne<Table>(answers, keys) == 0 &&
                    AddOne<Table>(answers, keys, kAddedToo) == 0 && DeleteOne<Table>(answers, keys) == 0;
  if (done && answers.Code("commit", DB_CommitTransaction(), {1, 3}) == 0) return answers.RequireChange();
  // Whether a commit whose answer failed was one is not known.
  answers.Code("rollback", DB_RollbackTransaction(), {1, 3});
  if (!done) answers.RequireChange(false);
}

template <class Table>
void OpenTheSet(const Keys&) {
  Table::Open();
}

template <class Table>
void OpenTheSetByKey(const Keys&) {
  Table::Open();
  Table::SetSort(KYODBC_FIELD_KEY);
}

template <class Table>
void DeleteByPosition(Answers& answers, const Keys&) {
  // 8 tells of the move to the next row, too, behind a delete that is done.
  if (answers.Code("delete", Table::DeleteByPos(1), {3, 8, 31, 64}) == 0) answers.RequireChange();
}

template <class Table>
void CountAndNewest(Answers& answers, const Keys&) {
  LONG number = 0;
  answers.Code("count", Table::Num(&number), {3, 5, 31});
  answers.Number("count", number);
  answers.Code("newest", Table::LastID(&number), {3, 31});
  answers.Number("newest", number);
}

template <class Table>
void Append(std::vector<Scenario>* scenarios) {
  const std::string name = Table::kName;
  // When the newest image cannot be read, the patient's entry date stands for its time.
  const bool derives = std::is_same_v<Table, family::Images> || std::is_same_v<Table, family::Patients>;
  const auto add = [&](const char* what, auto run, void (*prepare)(const Keys&) = nullptr) -> Scenario& {
    return scenarios->emplace_back(
        Scenario{.name = what + name, .run = run, .prepare = prepare, .derives = derives});
  };
  add("Add", Add<Table>);
  add("AddBesideAnOpenSet", Add<Table>, OpenTheSet<Table>);
  add("Edit", Edit<Table>);
  add("GetAndDelete", GetAndDelete<Table>);
  add("DeleteByPosition", DeleteByPosition<Table>, OpenTheSetByKey<Table>);
  add("CountAndNewest", CountAndNewest<Table>);
  add("Transaction", Transaction<Table>);
}

template <class Table>
void AddFirst(Keys* keys) {
  auto record = Table::Fill(kFirst);
  Adopt(&record, *keys);
  LONG key = 0;
  if (Table::Add(&record) != 0 || Table::LastID(&key) != 0) throw std::runtime_error("a row was not added");
  (*keys)[Table::kName] = key;
}

}  // namespace

std::vector<Scenario> RowScenarios() {
  std::vector<Scenario> scenarios;
  Append<family::Doctors>(&scenarios);
  Append<family::Stations>(&scenarios);
  Append<family::Units>(&scenarios);
  Append<family::Patients>(&scenarios);
  Append<family::Images>(&scenarios);
  Append<family::Makros>(&scenarios);
  Append<family::Groups>(&scenarios);
  Append<family::Diagnoses>(&scenarios);
  Append<family::Configs>(&scenarios);
  Append<family::Tests>(&scenarios);
  return scenarios;
}

Keys AddRows() {
  Keys keys;
  // More patients, selected as the first one is: of several rows some can be changed and some not.
  for (const int number : {5, 7}) {
    tagTPATIENT patient = family::Patients::Fill(number);
    if (DB_AddNewTPat(&patient) != 0) throw std::runtime_error("a patient was not added");
  }
  AddFirst<family::Doctors>(&keys);
  AddFirst<family::Stations>(&keys);
  AddFirst<family::Units>(&keys);
  AddFirst<family::Patients>(&keys);
  AddFirst<family::Images>(&keys);
  AddFirst<family::Makros>(&keys);
  AddFirst<family::Groups>(&keys);
  AddFirst<family::Diagnoses>(&keys);
  AddFirst<family::Configs>(&keys);
  AddFirst<family::Tests>(&keys);
  return keys;
}

}  // namespace faults
