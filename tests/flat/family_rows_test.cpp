// Changing and reading single rows, run for each of the ten tables.
#include <cstring>

#include "tests/flat/family.h"

using family::Key;
using family::SetKey;

namespace {

template <class Table>
class FamilyRows : public family::TableTest<Table> {};
TYPED_TEST_SUITE(FamilyRows, family::AllTables, family::Name);

TYPED_TEST(FamilyRows, AnAddedRowComesBackAsStoredWithItsKey) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  Record record = Table::Fill(5);
  const Record before = record;
  EXPECT_EQ(Table::Add(&record), 0);
  const LONG key = this->HighestKey();
  if (!Table::kHasNaturalKey) {
    EXPECT_EQ(std::memcmp(&before, &record, sizeof record), 0);  // nothing to find the row by
    SetKey(&record, key);
  }
  EXPECT_EQ(Key(record), key);
  Record read{};
  SetKey(&read, key);
  EXPECT_EQ(Table::Get(&read), 0);
  EXPECT_EQ(std::memcmp(&read, &record, sizeof record), 0);
  EXPECT_EQ(this->StoredText(key), Table::ShownText(before));
}

TYPED_TEST(FamilyRows, AnAddIgnoresTheKeyPassedIn) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  const Record present = this->Added(1);
  const int rows = this->Count();
  Record record = Table::Fill(2);
  SetKey(&record, Key(present));
  EXPECT_EQ(Table::Add(&record), 0);
  EXPECT_EQ(this->Count(), rows + 1);
  EXPECT_EQ(this->StoredText(Key(present)), Table::ShownText(present));
}

TYPED_TEST(FamilyRows, AnOpenBrowseSetShowsAnAddedRow) {
  using Table = TypeParam;
  this->FillTable(2);
  this->Browse();
  this->Added(3);
  EXPECT_EQ(Table::MoveByPos(3), 3);
}

TYPED_TEST(FamilyRows, AnAddLeavesAClosedBrowseSetClosed) {
  using Table = TypeParam;
  this->Added(1);
  EXPECT_EQ(Table::IsOpen(), 0);
}

TYPED_TEST(FamilyRows, AnAddGives6AndAddsNothingWhenTheDatabaseRefuses) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->MakeReadOnly();
  const int rows = this->Count();
  Record record = Table::Fill(1);
  const Record before = record;
  EXPECT_EQ(Table::Add(&record), 6);
  EXPECT_EQ(this->Count(), rows);
  EXPECT_EQ(std::memcmp(&before, &record, sizeof record), 0);
}

TYPED_TEST(FamilyRows, EditByKeyWritesEveryFieldAndAnOpenBrowseSetShowsIt) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->FillTable(2);
  this->Browse();
  Record record{};
  ASSERT_EQ(Table::GetByPos(2, &record), 0);
  Table::ChangeText(&record);
  EXPECT_EQ(Table::Edit(&record), 0);
  EXPECT_EQ(Key(record), this->HighestKey());
  EXPECT_EQ(this->StoredText(Key(record)), "changed");
  Record shown{};
  EXPECT_EQ(Table::GetByPos(2, &shown), 0);
  EXPECT_EQ(Table::ShownText(shown), "changed");
}

TYPED_TEST(FamilyRows, EditIsEditSelectedOfAllFields) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  const Record first = this->Added(1);
  const Record second = this->Added(2);
  Record by_edit = Table::Fill(3);
  Record by_mask = Table::Fill(3);
  SetKey(&by_edit, Key(first));
  SetKey(&by_mask, Key(second));
  EXPECT_EQ(Table::Edit(&by_edit), 0);
  EXPECT_EQ(Table::EditSel(&by_mask, 0xFFFFFFFF), 0);
  EXPECT_EQ(Table::Get(&by_edit), 0);
  EXPECT_EQ(Table::Get(&by_mask), 0);
  SetKey(&by_mask, Key(first));
  EXPECT_EQ(std::memcmp(&by_edit, &by_mask, sizeof by_edit), 0);
}

TYPED_TEST(FamilyRows, EditOfNoFieldSucceedsAndChangesNothing) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  const Record present = this->Added(1);
  Record record = Table::Fill(2);
  SetKey(&record, Key(present));
  EXPECT_EQ(Table::EditSel(&record, 0), 0);
  Record read{};
  SetKey(&read, Key(present));
  EXPECT_EQ(Table::Get(&read), 0);
  EXPECT_EQ(Table::ShownText(read), Table::ShownText(present));
}

TYPED_TEST(FamilyRows, EditWithUnchangedFieldsSucceeds) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  Record present = this->Added(1);
  EXPECT_EQ(Table::Edit(&present), 0);
  EXPECT_EQ(Table::Edit(&present), 0);
}

TYPED_TEST(FamilyRows, EditGives6AndChangesNothingWhenTheDatabaseRefuses) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  const Record present = this->Added(1);
  this->MakeReadOnly();
  Record record = present;
  Table::ChangeText(&record);
  EXPECT_EQ(Table::Edit(&record), 6);
  EXPECT_EQ(this->StoredText(Key(present)), Table::ShownText(present));
}

TYPED_TEST(FamilyRows, DeleteByKeyRemovesTheRowFromTableAndOpenBrowseSet) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->FillTable(3);
  this->Browse();
  Record record{};
  SetKey(&record, this->HighestKey());
  EXPECT_EQ(Table::Delete(&record), 0);
  EXPECT_FALSE(this->Exists(Key(record)));
  EXPECT_EQ(Table::MoveByPos(3), 0);
  EXPECT_EQ(Table::MoveByPos(2), 2);
}

TYPED_TEST(FamilyRows, DeleteGives8AndDeletesNothingWhenTheDatabaseRefuses) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  const Record present = this->Added(1);
  this->MakeReadOnly();
  EXPECT_EQ(Table::Delete(&present), 8);
  EXPECT_TRUE(this->Exists(Key(present)));
}

TYPED_TEST(FamilyRows, GetLeavesFilterSortAndPositionOfTheBrowseSet) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->FillTable(3);
  this->Browse();
  ASSERT_EQ(Table::MoveByPos(2), 2);
  Record record{};
  SetKey(&record, this->HighestKey());
  EXPECT_EQ(Table::Get(&record), 0);
  EXPECT_EQ(Table::IndexPos(), 2);
  EXPECT_EQ(this->KeyAt(0), this->Keys().at(1));
}

TYPED_TEST(FamilyRows, ARowThatDoesNotExistHasTheTablesOwnCode) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  Record record = Table::Fill(1);
  SetKey(&record, 987654);
  const Record before = record;
  EXPECT_EQ(Table::Get(&record), Table::kNotFound);
  EXPECT_EQ(std::memcmp(&before, &record, sizeof record), 0);
  EXPECT_EQ(Table::Edit(&record), Table::kNotFound);
  EXPECT_EQ(Table::Delete(&record), Table::kNotFound);
}

TYPED_TEST(FamilyRows, ARecordWithoutAnyKeyGivesOne) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->FillTable(1);
  Record record{};
  EXPECT_EQ(Table::Get(&record), 1);
  EXPECT_EQ(Table::Edit(&record), 1);
  EXPECT_EQ(Table::EditSel(&record, 1), 1);
  EXPECT_EQ(Table::Delete(&record), 1);
  EXPECT_EQ(this->Count(), 1);
}

TYPED_TEST(FamilyRows, ARowIsFoundByItsNaturalKeyIfTheTableHasOne) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  const Record present = this->Added(1);
  Record record = present;
  SetKey(&record, 0);
  EXPECT_EQ(Table::Get(&record), Table::kHasNaturalKey ? 0 : 1);
  if (!Table::kHasNaturalKey) return;
  EXPECT_EQ(std::memcmp(&present, &record, sizeof record), 0);
  SetKey(&record, 0);
  EXPECT_EQ(Table::Edit(&record), 0);
  EXPECT_EQ(Key(record), Key(present));
  SetKey(&record, 0);
  EXPECT_EQ(Table::Delete(&record), 0);
  EXPECT_FALSE(this->Exists(Key(present)));
}

TYPED_TEST(FamilyRows, LookupsGive3WhenTheTableIsMissing) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  Record record = this->Added(1);
  this->TakeAway();
  EXPECT_EQ(Table::Get(&record), 3);
  EXPECT_EQ(Table::Edit(&record), 3);
  EXPECT_EQ(Table::Delete(&record), 3);
}

TYPED_TEST(FamilyRows, AFailedChangeDoesNotReadTheBrowseSetAgain) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->FillTable(2);
  this->Browse();
  ASSERT_EQ(Table::MoveByPos(2), 2);
  Record record{};
  SetKey(&record, 987654);
  EXPECT_NE(Table::Edit(&record), 0);
  EXPECT_NE(Table::Delete(&record), 0);
  EXPECT_EQ(Table::IndexPos(), 2);
}

TYPED_TEST(FamilyRows, AChangeStandsWhenTheBrowseSetCannotBeReadAgain) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  const Record present = this->Added(1);
  LONG key = 0;
  ASSERT_EQ(Table::SetFilter(KYODBC_FIELD_KEY, KYODBC_GREATER, &key, nullptr, nullptr, nullptr), 0);
  ASSERT_EQ(Table::Open(), 0);
  // An unknown field behind the first leaves a comma behind, which no database takes.
  EXPECT_EQ(Table::SetSort(KYODBC_PACK(KYODBC_FIELD_KEY, 12, 0, 0)), 31);
  EXPECT_EQ(Table::IsOpen(), 0);
  EXPECT_EQ(Table::Open(), 31);
  EXPECT_EQ(Table::Delete(&present), 0);  // the browse set is closed, so nothing is read again
  EXPECT_FALSE(this->Exists(Key(present)));
}

// --- null arguments ---

TYPED_TEST(FamilyRows, NullArgumentsGiveOne) {
  using Table = TypeParam;
  this->FillTable(1);
  ASSERT_EQ(Table::Open(), 0);
  EXPECT_EQ(Table::GetByPos(1, nullptr), 1);
  EXPECT_EQ(Table::MaxPos(nullptr), 1);
  EXPECT_EQ(Table::Add(nullptr), 1);
  EXPECT_EQ(Table::Edit(nullptr), 1);
  EXPECT_EQ(Table::EditSel(nullptr, 1), 1);
  EXPECT_EQ(Table::Delete(nullptr), 1);
  EXPECT_EQ(Table::Get(nullptr), 1);
  EXPECT_EQ(Table::LastID(nullptr), 1);
  EXPECT_EQ(Table::Num(nullptr), Table::kCountIgnoresNull ? 0 : 1);
  EXPECT_EQ(this->Count(), 1);
}

TYPED_TEST(FamilyRows, AFilterWithoutItsValueGivesOne) {
  using Table = TypeParam;
  ASSERT_EQ(Table::Open(), 0);
  EXPECT_EQ(Table::SetFilter(KYODBC_FIELD_KEY, KYODBC_EQUAL, nullptr, nullptr, nullptr, nullptr), 1);
  EXPECT_NE(Table::IsOpen(), 0);
}

}  // namespace
