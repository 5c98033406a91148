// Browsing, run for each of the ten tables.
#include <cstring>

#include "tests/flat/family.h"

using family::Key;
using family::SetKey;

namespace {

template <class Table>
class FamilyBrowsing : public family::TableTest<Table> {};
TYPED_TEST_SUITE(FamilyBrowsing, family::AllTables, family::Name);

// --- open and close ---

TYPED_TEST(FamilyBrowsing, OpenStandsOnTheFirstRow) {
  using Table = TypeParam;
  this->FillTable(3);
  EXPECT_EQ(Table::IsOpen(), 0);
  EXPECT_EQ(Table::IndexPos(), 0);
  EXPECT_EQ(Table::Open(), 0);
  EXPECT_NE(Table::IsOpen(), 0);
  EXPECT_EQ(Table::IndexPos(), 1);
}

TYPED_TEST(FamilyBrowsing, OpenOfAnEmptyTableSucceedsOnNoRow) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->FillTable(0);
  EXPECT_EQ(Table::Open(), 0);
  EXPECT_NE(Table::IsOpen(), 0);
  EXPECT_EQ(Table::IndexPos(), 0);
  Record record{};
  EXPECT_EQ(Table::GetByPos(0, &record), 64);
}

TYPED_TEST(FamilyBrowsing, OpenOfAnOpenSetReadsItAnew) {
  using Table = TypeParam;
  this->FillTable(1);
  ASSERT_EQ(Table::Open(), 0);
  this->Raw().Exec(std::string("DELETE FROM ") + Table::kTable);
  EXPECT_EQ(Table::Open(), 0);
  EXPECT_EQ(Table::MoveByPos(1), 0);
}

TYPED_TEST(FamilyBrowsing, OpenGives31WhenTheTableIsMissing) {
  using Table = TypeParam;
  this->TakeAway();
  EXPECT_EQ(Table::Open(), 31);
  EXPECT_EQ(Table::IsOpen(), 0);
}

TYPED_TEST(FamilyBrowsing, CloseIsHarmlessOnAClosedSet) {
  using Table = TypeParam;
  EXPECT_EQ(Table::Close(), 0);
  ASSERT_EQ(Table::Open(), 0);
  EXPECT_EQ(Table::Close(), 0);
  EXPECT_EQ(Table::IsOpen(), 0);
  EXPECT_EQ(Table::IndexPos(), 0);
}

TYPED_TEST(FamilyBrowsing, CloseKeepsFilterAndSort) {
  using Table = TypeParam;
  this->FillTable(3);
  const LONG highest = this->HighestKey();
  LONG first = highest - 2;
  ASSERT_EQ(Table::SetFilter(KYODBC_FIELD_KEY, KYODBC_GREATER, &first, nullptr, nullptr, nullptr), 0);
  ASSERT_EQ(Table::SetSort(KYODBC_FIELD_KEY | KYODBC_DESCENDING), 0);
  ASSERT_EQ(Table::Open(), 0);
  ASSERT_EQ(Table::Close(), 0);
  ASSERT_EQ(Table::Open(), 0);
  EXPECT_EQ(this->KeyAt(1), highest);
  EXPECT_EQ(Table::MoveByPos(3), 0);
}

// --- positions ---

TYPED_TEST(FamilyBrowsing, MovesToAPosition) {
  using Table = TypeParam;
  this->FillTable(3);
  ASSERT_EQ(Table::Open(), 0);
  EXPECT_EQ(Table::MoveByPos(3), 3);
  EXPECT_EQ(Table::IndexPos(), 3);
  EXPECT_EQ(Table::MoveByPos(1), 1);
  EXPECT_EQ(Table::IndexPos(), 1);
}

TYPED_TEST(FamilyBrowsing, APositionOutsideTheRowsIsZeroAndLeavesNoRowCurrent) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->FillTable(3);
  ASSERT_EQ(Table::Open(), 0);
  for (const LONG position : {0, 4, -1}) {
    ASSERT_EQ(Table::MoveByPos(2), 2);
    EXPECT_EQ(Table::MoveByPos(position), 0) << position;
    EXPECT_EQ(Table::IndexPos(), -1) << position;
    Record record{};
    EXPECT_EQ(Table::GetByPos(0, &record), 64) << position;
  }
}

TYPED_TEST(FamilyBrowsing, MovesByADelta) {
  using Table = TypeParam;
  this->FillTable(5);
  ASSERT_EQ(Table::Open(), 0);
  EXPECT_EQ(Table::MoveByDelta(0), 1);
  EXPECT_EQ(Table::MoveByDelta(1), 2);
  EXPECT_EQ(Table::MoveByDelta(3), 5);
  EXPECT_EQ(Table::MoveByDelta(-1), 4);
  EXPECT_EQ(Table::MoveByDelta(-2), 2);
}

TYPED_TEST(FamilyBrowsing, ADeltaPastAnEndIsZeroAndTheNextOneDoesNotMove) {
  using Table = TypeParam;
  this->FillTable(3);
  ASSERT_EQ(Table::Open(), 0);
  ASSERT_EQ(Table::MoveByPos(3), 3);
  EXPECT_EQ(Table::MoveByDelta(-5), 0);
  EXPECT_EQ(Table::MoveByDelta(1), 0);
  ASSERT_EQ(Table::MoveByPos(3), 3);
  EXPECT_EQ(Table::MoveByDelta(5), 0);
  EXPECT_EQ(Table::MoveByDelta(-1), 0);
}

TYPED_TEST(FamilyBrowsing, MovingAClosedSetIsZero) {
  using Table = TypeParam;
  this->FillTable(1);
  EXPECT_EQ(Table::MoveByPos(1), 0);
  EXPECT_EQ(Table::MoveByDelta(1), 0);
}

// --- filter, sort, count ---

TYPED_TEST(FamilyBrowsing, AFilterIsAppliedAtOnceAndStandsOnTheFirstRow) {
  using Table = TypeParam;
  this->FillTable(3);
  this->Browse();
  ASSERT_EQ(Table::MoveByPos(3), 3);
  LONG second = this->Keys().at(1);
  EXPECT_EQ(Table::SetFilter(KYODBC_FIELD_KEY, KYODBC_GREATER_EQUAL, &second, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(Table::IndexPos(), 1);
  EXPECT_EQ(this->KeyAt(1), second);
  LONG rows = 0;
  EXPECT_EQ(Table::MaxPos(&rows), 0);
  EXPECT_EQ(rows, 2);
}

TYPED_TEST(FamilyBrowsing, ARefusedFilterGivesOneAndKeepsRowsAndPosition) {
  using Table = TypeParam;
  this->FillTable(3);
  ASSERT_EQ(Table::Open(), 0);
  ASSERT_EQ(Table::MoveByPos(2), 2);
  LONG value = 1;
  const LONG unknown = 12;
  EXPECT_EQ(Table::SetFilter(unknown, KYODBC_EQUAL, &value, nullptr, nullptr, nullptr), 1);
  EXPECT_EQ(Table::SetFilter(KYODBC_FIELD_KEY, KYODBC_BETWEEN, &value, &value, nullptr, nullptr), 1);
  EXPECT_EQ(Table::IndexPos(), 2);
  LONG rows = 0;
  EXPECT_EQ(Table::MaxPos(&rows), 0);
  EXPECT_EQ(rows, 3);
}

TYPED_TEST(FamilyBrowsing, AFilterWithoutAClauseFailsInTheDatabaseAndClosesTheSet) {
  using Table = TypeParam;
  ASSERT_EQ(Table::Open(), 0);
  EXPECT_EQ(Table::SetFilter(0, 0, nullptr, nullptr, nullptr, nullptr), 31);
  EXPECT_EQ(Table::IsOpen(), 0);
}

TYPED_TEST(FamilyBrowsing, ASortIsAppliedAtOnceAndStandsOnTheFirstRow) {
  using Table = TypeParam;
  this->FillTable(3);
  ASSERT_EQ(Table::Open(), 0);
  ASSERT_EQ(Table::MoveByPos(2), 2);
  EXPECT_EQ(Table::SetSort(KYODBC_FIELD_KEY | KYODBC_DESCENDING), 0);
  EXPECT_EQ(Table::IndexPos(), 1);
  EXPECT_EQ(this->KeyAt(1), this->HighestKey());
  EXPECT_EQ(Table::SetSort(KYODBC_FIELD_KEY), 0);
  EXPECT_EQ(this->KeyAt(3), this->HighestKey());
}

TYPED_TEST(FamilyBrowsing, ASortByAnUnknownFieldGivesOneAndIsNotApplied) {
  using Table = TypeParam;
  this->FillTable(3);
  ASSERT_EQ(Table::Open(), 0);
  ASSERT_EQ(Table::MoveByPos(2), 2);
  EXPECT_EQ(Table::SetSort(12), 1);
  EXPECT_EQ(Table::IndexPos(), 2);
}

TYPED_TEST(FamilyBrowsing, TheSameSortAgainDoesNotReadTheRowsAgain) {
  using Table = TypeParam;
  this->FillTable(3);
  this->Browse();
  ASSERT_EQ(Table::MoveByPos(2), 2);
  EXPECT_EQ(Table::SetSort(KYODBC_FIELD_KEY), 0);
  EXPECT_EQ(Table::IndexPos(), 2);
}

TYPED_TEST(FamilyBrowsing, CountingTheRowsShownKeepsThePosition) {
  using Table = TypeParam;
  this->FillTable(3);
  ASSERT_EQ(Table::Open(), 0);
  ASSERT_EQ(Table::MoveByPos(3), 3);
  LONG rows = -1;
  EXPECT_EQ(Table::MaxPos(&rows), 0);
  EXPECT_EQ(rows, 3);
  EXPECT_EQ(Table::IndexPos(), 3);
}

TYPED_TEST(FamilyBrowsing, CountingTheTableIgnoresTheFilterAndKeepsThePosition) {
  using Table = TypeParam;
  this->FillTable(3);
  this->Browse();
  LONG first = this->Keys().at(0);
  ASSERT_EQ(Table::SetFilter(KYODBC_FIELD_KEY, KYODBC_GREATER, &first, nullptr, nullptr, nullptr), 0);
  ASSERT_EQ(Table::MoveByPos(2), 2);
  LONG rows = -1;
  EXPECT_EQ(Table::Num(&rows), 0);
  EXPECT_EQ(rows, 3);
  EXPECT_EQ(Table::IndexPos(), 2);
  EXPECT_EQ(Table::MaxPos(&rows), 0);
  EXPECT_EQ(rows, 2);
}

TYPED_TEST(FamilyBrowsing, CountsGoIntoFieldsAtOddAddresses) {
  using Table = TypeParam;
  this->FillTable(2);
  ASSERT_EQ(Table::Open(), 0);
  alignas(LONG) char bytes[2 * sizeof(LONG)] = {};
  LONG* odd = reinterpret_cast<LONG*>(bytes + 1);
  LONG rows = 0;
  EXPECT_EQ(Table::MaxPos(odd), 0);
  std::memcpy(&rows, bytes + 1, sizeof rows);
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(Table::LastID(odd), 0);
  std::memcpy(&rows, bytes + 1, sizeof rows);
  EXPECT_EQ(rows, this->HighestKey());
  EXPECT_EQ(Table::Num(odd), 0);
  std::memcpy(&rows, bytes + 1, sizeof rows);
  EXPECT_EQ(rows, 2);
}

TYPED_TEST(FamilyBrowsing, TheNewestKeyIsTheHighestAndTheBrowseSetStaysAsItIs) {
  using Table = TypeParam;
  this->FillTable(3);
  this->Browse();
  ASSERT_EQ(Table::MoveByPos(2), 2);
  LONG id = -1;
  EXPECT_EQ(Table::LastID(&id), 0);
  EXPECT_EQ(id, this->HighestKey());
  EXPECT_EQ(Table::IndexPos(), 2);
}

TYPED_TEST(FamilyBrowsing, TheNewestKeyOfAnEmptyTableIsZero) {
  using Table = TypeParam;
  this->FillTable(0);
  LONG id = -1;
  EXPECT_EQ(Table::LastID(&id), 0);
  EXPECT_EQ(id, 0);
}

// --- rows by position ---

TYPED_TEST(FamilyBrowsing, GetByPosReadsTheRowThatGetReads) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->FillTable(3);
  this->Browse();
  Record by_position{};
  EXPECT_EQ(Table::GetByPos(2, &by_position), 0);
  EXPECT_EQ(Table::IndexPos(), 2);
  Record by_key{};
  SetKey(&by_key, Key(by_position));
  EXPECT_EQ(Table::Get(&by_key), 0);
  EXPECT_EQ(std::memcmp(&by_position, &by_key, sizeof by_key), 0);
}

TYPED_TEST(FamilyBrowsing, GetByPosZeroReadsTheCurrentRow) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->FillTable(3);
  this->Browse();
  ASSERT_EQ(Table::MoveByPos(3), 3);
  Record record{};
  EXPECT_EQ(Table::GetByPos(0, &record), 0);
  EXPECT_EQ(Key(record), this->HighestKey());
  EXPECT_EQ(Table::IndexPos(), 3);
}

TYPED_TEST(FamilyBrowsing, GetByPosOutsideTheRowsLeavesTheRecordUnchanged) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->FillTable(1);
  ASSERT_EQ(Table::Open(), 0);
  Record record;
  std::memset(&record, 0x5A, sizeof record);
  const Record before = record;
  EXPECT_EQ(Table::GetByPos(2, &record), 64);
  EXPECT_EQ(std::memcmp(&before, &record, sizeof record), 0);
}

TYPED_TEST(FamilyBrowsing, DeleteByPosStandsOnTheFollowingRow) {
  using Table = TypeParam;
  this->FillTable(3);
  this->Browse();
  const std::vector<LONG> keys = this->Keys();
  EXPECT_EQ(Table::DeleteByPos(2), 0);
  EXPECT_FALSE(this->Exists(keys.at(1)));
  EXPECT_EQ(this->KeyAt(0), keys.at(2));
  EXPECT_EQ(Table::IndexPos(), 2);
}

TYPED_TEST(FamilyBrowsing, DeleteByPosOfTheLastRowStandsOnTheNewLastRow) {
  using Table = TypeParam;
  this->FillTable(3);
  this->Browse();
  const std::vector<LONG> keys = this->Keys();
  EXPECT_EQ(Table::DeleteByPos(3), 0);
  EXPECT_EQ(this->KeyAt(0), keys.at(1));
}

TYPED_TEST(FamilyBrowsing, DeleteByPosOfTheOnlyRowLeavesTheSetEmpty) {
  using Table = TypeParam;
  using Record = typename Table::Record;
  this->FillTable(1);
  ASSERT_EQ(Table::Open(), 0);
  EXPECT_EQ(Table::DeleteByPos(0), 0);
  EXPECT_EQ(Table::DeleteByPos(0), 64);
  Record record{};
  EXPECT_EQ(Table::GetByPos(0, &record), 64);
  EXPECT_EQ(this->Count(), 0);
}

TYPED_TEST(FamilyBrowsing, DeleteByPosOfARowThatSomeoneElseDeletedGives8) {
  using Table = TypeParam;
  // Another practice beside it, in which the other names are the views.
  const support::Practice other({.tables = this->m_practice.IsTable(Table::kTable)
                                               ? support::Tables::kFullNames
                                               : support::Tables::kShortNames});
  this->FillTable(3);
  this->Browse();
  const LONG gone = this->KeyAt(2);
  this->Raw().Exec(std::string("DELETE FROM ") + Table::kTable + " WHERE " + Table::kKeyColumn + "=" +
                   std::to_string(gone));
  EXPECT_EQ(Table::DeleteByPos(2), 8);
  EXPECT_EQ(this->Count(), 2);
}

TYPED_TEST(FamilyBrowsing, DeleteByPosOutsideTheRowsDeletesNothing) {
  using Table = TypeParam;
  this->FillTable(2);
  EXPECT_EQ(Table::DeleteByPos(1), 64);  // closed
  ASSERT_EQ(Table::Open(), 0);
  EXPECT_EQ(Table::DeleteByPos(3), 64);
  EXPECT_EQ(Table::DeleteByPos(-1), 64);
  EXPECT_EQ(this->Count(), 2);
}

TYPED_TEST(FamilyBrowsing, DeleteByPosGives8WhenTheDatabaseRefuses) {
  using Table = TypeParam;
  this->FillTable(2);
  this->MakeReadOnly();
  ASSERT_EQ(Table::Open(), 0);
  EXPECT_EQ(Table::DeleteByPos(1), 8);
  EXPECT_EQ(this->Count(), 2);
}

}  // namespace
