// The fixture of the cases that run for all ten tables.
#ifndef KYODBC_TESTS_FLAT_FAMILY_H
#define KYODBC_TESTS_FLAT_FAMILY_H

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "tests/flat/family_tables.h"
#include "tests/support/fixtures.h"

namespace family {

using AllTables =
    testing::Types<Doctors, Stations, Units, Patients, Images, Makros, Groups, Diagnoses, Configs, Tests>;

struct Name {
  template <class Table>
  static std::string GetName(int) {
    return Table::kName;
  }
};

template <class Record>
LONG Key(const Record& record) {
  LONG key = 0;
  std::memcpy(&key, &record, sizeof key);
  return key;
}

template <class Record>
void SetKey(Record* record, LONG key) {
  std::memcpy(static_cast<void*>(record), &key, sizeof key);
}

// A connected practice and one table of it.
template <class Table>
class TableTest : public support::ConnectedTest {
 protected:
  explicit TableTest(support::PracticeOptions options = {}) : support::ConnectedTest(options) {}

  int Count(const std::string& condition = "1=1") { return Raw().Count(Table::kTable, condition); }
  LONG HighestKey() {
    return Raw().Number(std::string("SELECT MAX(") + Table::kKeyColumn + ") FROM " + Table::kTable);
  }
  // All keys, ascending; a database may leave keys out when it gives new ones.
  std::vector<LONG> Keys() {
    std::vector<LONG> keys;
    const std::string column = Table::kKeyColumn;
    for (const auto& row :
         Raw().Query("SELECT " + column + " FROM " + Table::kTable + " ORDER BY " + column)) {
      keys.push_back(std::stoi(row.at(0).value()));
    }
    return keys;
  }
  bool Exists(LONG key) { return Count(Table::kKeyColumn + ("=" + std::to_string(key))) == 1; }
  std::string StoredText(LONG key) {
    return Raw().Text(std::string("SELECT ") + Table::kTextColumn + " FROM " + Table::kTable + " WHERE " +
                      Table::kKeyColumn + "=" + std::to_string(key));
  }

  // The n-th record, added through the library and with its key.
  typename Table::Record Added(int n) {
    typename Table::Record record = Table::Fill(n);
    EXPECT_EQ(Table::Add(&record), 0);
    if (!Table::kHasNaturalKey) SetKey(&record, HighestKey());
    EXPECT_NE(Key(record), 0);
    return record;
  }
  // The rows 1 to n; the table then holds nothing else.
  void FillTable(int n) {
    Raw().Exec(std::string("DELETE FROM ") + Table::kTable);
    for (int i = 1; i <= n; ++i) Added(i);
  }
  using support::ConnectedTest::MakeReadOnly;
  using support::ConnectedTest::TakeAway;
  void MakeReadOnly() { MakeReadOnly(Table::kTable); }
  void TakeAway() { TakeAway(Table::kTable); }

  // The browse set sorted by key, open.
  void Browse() {
    ASSERT_EQ(Table::SetSort(KYODBC_FIELD_KEY), 0);
    ASSERT_EQ(Table::Open(), 0);
  }
  LONG KeyAt(LONG position) {
    typename Table::Record record{};
    EXPECT_EQ(Table::GetByPos(position, &record), 0);
    return Key(record);
  }
};

}  // namespace family

#endif
