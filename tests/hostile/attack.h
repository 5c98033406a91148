// One hostile text against a practice whose rows are all canaries.
#ifndef KYODBC_TESTS_HOSTILE_ATTACK_H
#define KYODBC_TESTS_HOSTILE_ATTACK_H

#include <map>
#include <string>
#include <vector>

#include "tables/records.h"
#include "tests/hostile/draw.h"
#include "tests/support/raw_odbc.h"

namespace hostile {

// The library is connected to the practice that `raw` reads. What the library does with a text is held
// against what the database does with the same text bound as a parameter, where no quoting is needed. A text
// that is no UTF-8 may be refused, or be taken as it is; it never finds or changes anything else.
class Attack {
 public:
  Attack(support::RawOdbc& raw, Draw& draw);

  // Adds rows to all tables, through the library. Everything in the database is a canary from then on.
  void PlantCanaries();
  void Remember();  // what is there now are the canaries
  // Each leaves the database as it was, and fails the test otherwise.
  void Everything(const std::string& text);
  void Filters(const std::string& text);
  void Searches(const std::string& text);
  void Records(const std::string& text);
  void Settings(const std::string& text);
  void CompactRecords(const std::string& text);

  // Every table holds what it held when the canaries were planted.
  void ExpectCanaries();
  int Calls() const { return m_calls; }

 private:
  std::vector<support::Row> Rows(const std::string& table);
  // The first column of a query with the text for each "?"; nothing when the database refuses the text.
  bool Ask(const std::string& sql, const std::vector<std::string>& texts, std::vector<int>* answer);
  template <class Record>
  void FillTexts(const std::string& text, Record* record);
  template <class Table>
  void OneRecord(const std::string& text);
  template <class Table>
  void EditAll(const std::string& text, const typename Table::Record& plain, typename Table::Record* record);
  template <class Table>
  void ExpectNothing(typename Table::Record record);
  template <class Table>
  void ExpectStored(const typename Table::Record& record);
  void ExpectSetting(const std::string& text, const tagTSTATION& station);
  void CompactPatient(const std::string& text);
  void ExpectCompactPatient(const tagPATIENTCOMPACT& given, DWORD key);
  void CompactUnit(const std::string& text);
  void ExpectCompactUnit(const tagPATIENTCOMPACT& given, DWORD key);

  support::RawOdbc& m_raw;
  Draw& m_draw;
  std::map<std::string, std::vector<support::Row>> m_canaries;
  int m_calls = 0;
};

// The beginning of the text, up to `width` bytes.
std::string CutTo(const std::string& text, std::size_t width);

}  // namespace hostile

#endif
