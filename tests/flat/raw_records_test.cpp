// Reading, inserting and editing single rows through the direct-access sets: what holds for all ten.
#include "tests/flat/raw_tables.h"

namespace raw {
namespace {

// The record takes over the members that its natural key is made of.
template <class Table>
void TakeNaturalKey(const typename Table::Record& from, typename Table::Record* to) {
  for (const auto& member : Table::kMembers) {
    if (member.bit < 0 || (Table::kNatural >> member.bit & 1) == 0) continue;
    if (member.number != nullptr) to->*member.number = from.*member.number;
    if (member.time != nullptr) to->*member.time = from.*member.time;
    if (member.text != nullptr) to->*member.text = from.*member.text;
  }
}

// Expects the columns whose mask bit is in `mask`; the names tell which one differs.
template <class Table>
void ExpectColumns(const support::Row& row, const typename Table::Record& expected, DWORD mask) {
  ASSERT_EQ(row.size(), std::size(Table::kMembers));
  for (std::size_t i = 1; i < row.size(); ++i) {
    const auto& member = Table::kMembers[i];
    if ((mask >> member.bit & 1) == 0) continue;
    EXPECT_EQ(row[i], Stored(expected, member)) << member.column;
  }
}

template <class Table>
class RawSets : public RawTest {
 protected:
  using Record = typename Table::Record;

  static constexpr LONG kGiven = GivenFields<Table>();

  Record WithKey(LONG key) {
    Record record;
    Key<Table>(record) = key;
    return record;
  }
};
TYPED_TEST_SUITE(RawSets, AllTables);

TYPED_TEST(RawSets, AreRecordSetsOnTheFullTableOfTheLibrarysConnection) {
  auto set = TypeParam::MakeSet();
  EXPECT_EQ(set.m_pDatabase, DB_GetDatabase());
  EXPECT_EQ(std::string(set.GetDefaultSQL()), this->m_practice.Owner() + FullName<TypeParam>());
  EXPECT_EQ(set.m_nOpenType, this->m_practice.Owner().empty() ? 0u : 1u);
  EXPECT_EQ(set.GetRuntimeClass()->m_pBaseClass, &CKyRecSet::classCKyRecSet);
  EXPECT_EQ(set.IsOpen(), 0);
  EXPECT_EQ(set.m_dwFieldMask, 0u);
}

TYPED_TEST(RawSets, SelectEveryColumnInItsOrder) {
  auto set = TypeParam::MakeSet();
  ASSERT_EQ(set.OpenQuery(this->WithKey(4711)), 0);
  const std::string expected = "SELECT " + Columns<TypeParam>() + " FROM " + this->m_practice.Owner() +
                               FullName<TypeParam>() + " WHERE ";
  EXPECT_EQ(std::string(set.GetSQL()).substr(0, expected.size()), expected);
  EXPECT_EQ(set.GetODBCFieldCount(), static_cast<short>(std::size(TypeParam::kMembers)));
}

TYPED_TEST(RawSets, InsertWritesTheFieldsAndGivesTheStoredRowBack) {
  const auto given = MakeRecord<TypeParam>(1);
  auto record = given;
  auto set = TypeParam::MakeSet();
  ASSERT_EQ(set.Insert(record, this->kGiven), 0);
  const LONG key = Key<TypeParam>(record);
  EXPECT_GT(key, 0);
  EXPECT_EQ(set.IsOpen(), 0);
  ExpectColumns<TypeParam>(this->template RowOf<TypeParam>(key), given, this->kGiven);
  ExpectColumns<TypeParam>(Stored<TypeParam>(record), given, this->kGiven);
}

TYPED_TEST(RawSets, InsertNeverWritesTheKeyAndFindsTheNewRowAllTheSame) {
  const LONG first = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  auto record = MakeRecord<TypeParam>(2);
  Key<TypeParam>(record) = first;
  auto set = TypeParam::MakeSet();
  ASSERT_EQ(set.Insert(record, this->kGiven), 0);
  EXPECT_NE(Key<TypeParam>(record), first);
  ExpectColumns<TypeParam>(Stored<TypeParam>(record), MakeRecord<TypeParam>(2), this->kGiven);
}

TYPED_TEST(RawSets, InsertLeavesOutTheFieldsThatTheMaskDoesNotSelect) {
  const DWORD natural = TypeParam::kNatural;
  const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(1), static_cast<LONG>(natural));
  ASSERT_GT(key, 0);
  const support::Row row = this->template RowOf<TypeParam>(key);
  ExpectColumns<TypeParam>(row, MakeRecord<TypeParam>(1), natural);
  for (std::size_t i = 1; i < row.size(); ++i) {
    const auto& member = TypeParam::kMembers[i];
    if (member.kind != 'T' || (natural >> member.bit & 1) != 0) continue;
    EXPECT_EQ(row[i].value_or(""), "") << member.column;
  }
}

TYPED_TEST(RawSets, InsertWithoutANaturalKeyGivesOneOnlyAfterTheRowWasWritten) {
  const int before = this->template CountRows<TypeParam>();
  typename TypeParam::Record record;
  auto set = TypeParam::MakeSet();
  EXPECT_EQ(set.Insert(record, this->kGiven), 1);
  EXPECT_EQ(this->template CountRows<TypeParam>(), before + 1);
  EXPECT_EQ(Key<TypeParam>(record), 0);
  EXPECT_EQ(set.IsOpen(), 0);
}

TYPED_TEST(RawSets, InsertOfASecondRowWithOneNaturalKeyGives52AndTheRowStays) {
  this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  const int before = this->template CountRows<TypeParam>();
  auto record = MakeRecord<TypeParam>(1);
  auto set = TypeParam::MakeSet();
  EXPECT_EQ(set.Insert(record, this->kGiven), 52);
  EXPECT_EQ(this->template CountRows<TypeParam>(), before + 1);
  EXPECT_EQ(set.IsOpen(), 0);
}

TYPED_TEST(RawSets, InsertWorksThroughASetThatIsOpenForReading) {
  const LONG first = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  auto set = TypeParam::MakeSet();
  ASSERT_EQ(set.OpenQuery(this->WithKey(first)), 0);
  auto record = MakeRecord<TypeParam>(2);
  EXPECT_EQ(set.Insert(record, this->kGiven), 0);
  EXPECT_GT(Key<TypeParam>(record), first);
}

TYPED_TEST(RawSets, InsertThroughAnOpenSetThatTakesNoRowsGives30) {
  const int before = this->template CountRows<TypeParam>();
  auto set = TypeParam::MakeSet();
  ASSERT_NE(set.Open(set.m_nOpenType, nullptr, CRecordset::readOnly), 0);
  auto record = MakeRecord<TypeParam>(1);
  EXPECT_EQ(set.Insert(record, this->kGiven), 30);
  EXPECT_EQ(this->template CountRows<TypeParam>(), before);
}

TYPED_TEST(RawSets, OpenQueryByKeyShowsTheRow) {
  this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(2));
  auto set = TypeParam::MakeSet();
  ASSERT_EQ(set.OpenQuery(this->WithKey(key)), 0);
  EXPECT_NE(set.IsOpen(), 0);
  EXPECT_FALSE(set.IsEOF());
  auto read = MakeRecord<TypeParam>(3);
  set.GetData(read);
  EXPECT_EQ(Key<TypeParam>(read), key);
  ExpectColumns<TypeParam>(Stored<TypeParam>(read), MakeRecord<TypeParam>(2), this->kGiven);
}

TYPED_TEST(RawSets, OpenQueryByNaturalKeyShowsTheRow) {
  this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(2));
  typename TypeParam::Record natural;
  TakeNaturalKey<TypeParam>(MakeRecord<TypeParam>(2), &natural);
  auto set = TypeParam::MakeSet();
  ASSERT_EQ(set.OpenQuery(natural), 0);
  typename TypeParam::Record read;
  set.GetData(read);
  EXPECT_EQ(Key<TypeParam>(read), key);
}

TYPED_TEST(RawSets, OpenQueryOfARowThatIsNotThereIsOpenAndEmpty) {
  auto set = TypeParam::MakeSet();
  EXPECT_EQ(set.OpenQuery(this->WithKey(4711)), 0);
  EXPECT_NE(set.IsOpen(), 0);
  EXPECT_TRUE(set.IsEOF());
}

TYPED_TEST(RawSets, OpenQueryOfARecordThatNamesNoRowGivesOneAndKeepsTheOpenRow) {
  const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  auto set = TypeParam::MakeSet();
  EXPECT_EQ(set.OpenQuery(typename TypeParam::Record()), 1);
  EXPECT_EQ(set.IsOpen(), 0);
  ASSERT_EQ(set.OpenQuery(this->WithKey(key)), 0);
  EXPECT_EQ(set.OpenQuery(typename TypeParam::Record()), 1);
  EXPECT_NE(set.IsOpen(), 0);
}

TYPED_TEST(RawSets, EditByKeyWritesTheFieldsTheNaturalKeyIncluded) {
  const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  auto record = MakeRecord<TypeParam>(2);
  Key<TypeParam>(record) = key;
  auto set = TypeParam::MakeSet();
  ASSERT_EQ(set.Edit(record, this->kGiven), 0);
  ExpectColumns<TypeParam>(this->template RowOf<TypeParam>(key), MakeRecord<TypeParam>(2), this->kGiven);
}

TYPED_TEST(RawSets, EditLeavesTheRecordsKeyAtZeroAndTheSetOpen) {
  auto record = MakeRecord<TypeParam>(2);
  Key<TypeParam>(record) = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  auto set = TypeParam::MakeSet();
  ASSERT_EQ(set.Edit(record, this->kGiven), 0);
  EXPECT_EQ(Key<TypeParam>(record), 0);
  EXPECT_NE(set.IsOpen(), 0);
}

TYPED_TEST(RawSets, EditByNaturalKeyKeepsItAndWritesTheRest) {
  const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  const support::Row before = this->template RowOf<TypeParam>(key);
  auto record = MakeRecord<TypeParam>(2);
  const DWORD natural = TypeParam::kNatural;
  TakeNaturalKey<TypeParam>(MakeRecord<TypeParam>(1), &record);
  auto set = TypeParam::MakeSet();
  ASSERT_EQ(set.Edit(record, this->kGiven), 0);
  const support::Row row = this->template RowOf<TypeParam>(key);
  ExpectColumns<TypeParam>(row, MakeRecord<TypeParam>(1), natural);
  ExpectColumns<TypeParam>(row, record, static_cast<DWORD>(this->kGiven) & ~natural);
}

TYPED_TEST(RawSets, EditOfARowThatIsNotThereGives64) {
  auto record = MakeRecord<TypeParam>(1);
  Key<TypeParam>(record) = 4711;
  auto set = TypeParam::MakeSet();
  EXPECT_EQ(set.Edit(record, this->kGiven), 64);
  EXPECT_EQ(Key<TypeParam>(record), 4711);
}

TYPED_TEST(RawSets, EditOfARecordThatNamesNoRowGivesOne) {
  typename TypeParam::Record record;
  auto set = TypeParam::MakeSet();
  EXPECT_EQ(set.Edit(record, this->kGiven), 1);
}

TYPED_TEST(RawSets, EditOfSeveralRowsWithOneNaturalKeyGives52AndChangesNone) {
  const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  auto second = MakeRecord<TypeParam>(1);
  auto set = TypeParam::MakeSet();
  ASSERT_EQ(set.Insert(second, this->kGiven), 52);
  auto record = MakeRecord<TypeParam>(2);
  TakeNaturalKey<TypeParam>(MakeRecord<TypeParam>(1), &record);
  EXPECT_EQ(set.Edit(record, this->kGiven), 52);
  ExpectColumns<TypeParam>(this->template RowOf<TypeParam>(key), MakeRecord<TypeParam>(1), this->kGiven);
}

TYPED_TEST(RawSets, EditThatChangesNothingGivesZero) {
  auto record = MakeRecord<TypeParam>(1);
  Key<TypeParam>(record) = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  auto set = TypeParam::MakeSet();
  EXPECT_EQ(set.Edit(record, this->kGiven), 0);
  EXPECT_EQ(Key<TypeParam>(record), 0);
}

TYPED_TEST(RawSets, ARowIsDeletedAtItsPosition) {
  const LONG first = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  const LONG second = this->template Add<TypeParam>(MakeRecord<TypeParam>(2));
  auto set = TypeParam::MakeSet();
  ASSERT_EQ(set.OpenQuery(this->WithKey(first)), 0);
  EXPECT_EQ(set.DeleteByPos(1), 0);
  EXPECT_TRUE(this->template RowOf<TypeParam>(first).empty());
  EXPECT_FALSE(this->template RowOf<TypeParam>(second).empty());
}

}  // namespace
}  // namespace raw
