// Direct access beside the flat calls on the same rows, with an owner prefix, and on a practice whose full
// names are the tables.
#include <cstring>

#include "tests/flat/raw_tables.h"

namespace raw {
namespace {

// The key is the first field of every plain record.
template <class Plain>
Plain PlainWithKey(LONG key) {
  Plain record{};
  std::memcpy(&record, &key, sizeof key);
  return record;
}

// The members that the plain record has a field for, as their columns hold them.
template <class Table>
support::Row PlainFields(const typename Table::Record& record, DWORD but = 0) {
  support::Row row;
  for (const auto& member : Table::kMembers) {
    const bool plain = member.bit >= 0 && member.bit < Table::kPlainFields;
    if (plain && (but >> member.bit & 1) == 0) row.push_back(Stored(record, member));
  }
  return row;
}

template <class Table>
class RawAndFlat : public RawTest {
 protected:
  // The row as the flat calls tell it, in the form of the record class.
  typename Table::Record ThroughFlat(LONG key) {
    auto plain = PlainWithKey<typename Table::Plain>(key);
    EXPECT_EQ(Table::Get(&plain), 0);
    typename Table::Record record;
    record.CopyFrom(plain);
    return record;
  }
  typename Table::Record ThroughRaw(LONG key) {
    typename Table::Record record;
    Key<Table>(record) = key;
    auto set = Table::MakeSet();
    EXPECT_EQ(set.OpenQuery(record), 0);
    set.GetData(record);
    return record;
  }
};
TYPED_TEST_SUITE(RawAndFlat, AllTables);

TYPED_TEST(RawAndFlat, ARowAddedByDirectAccessIsReadByTheFlatCalls) {
  const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  auto flat = this->ThroughFlat(key);
  EXPECT_EQ(Key<TypeParam>(flat), key);
  EXPECT_EQ(PlainFields<TypeParam>(flat, TypeParam::kDerived),
            PlainFields<TypeParam>(MakeRecord<TypeParam>(1), TypeParam::kDerived));
}

TYPED_TEST(RawAndFlat, ARowEditedByTheFlatCallsIsReadByDirectAccess) {
  const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  const LONG other = this->template Add<TypeParam>(MakeRecord<TypeParam>(2));
  auto plain = PlainWithKey<typename TypeParam::Plain>(other);
  ASSERT_EQ(TypeParam::Get(&plain), 0);
  std::memcpy(static_cast<void*>(&plain), &key, sizeof key);
  ASSERT_EQ(TypeParam::EditSel(&plain, GivenFields<TypeParam>()), 0);
  EXPECT_EQ(PlainFields<TypeParam>(this->ThroughRaw(key), TypeParam::kDerived),
            PlainFields<TypeParam>(MakeRecord<TypeParam>(2), TypeParam::kDerived));
}

TYPED_TEST(RawAndFlat, AFlatEditLeavesTheColumnsAloneThatOnlyDirectAccessSees) {
  const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  auto plain = PlainWithKey<typename TypeParam::Plain>(key);
  ASSERT_EQ(TypeParam::EditSel(&plain, GivenFields<TypeParam>()), 0);
  const support::Row row = this->template RowOf<TypeParam>(key);
  for (std::size_t i = 1; i < row.size(); ++i) {
    const auto& member = TypeParam::kMembers[i];
    if (member.bit < TypeParam::kPlainFields) continue;
    EXPECT_EQ(row[i], Stored(MakeRecord<TypeParam>(1), member)) << member.column;
  }
}

TYPED_TEST(RawAndFlat, TheRowsOfTheFullTableAreCounted) {
  auto set = TypeParam::MakeSet();
  LONG count = 0;
  ASSERT_EQ(set.GetNum(&count), 0);
  this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
  LONG now = 0;
  ASSERT_EQ(set.GetNum(&now), 0);
  EXPECT_EQ(now, count + 1);
}

// --- a connection of the caller's own ---

class RawOnOwnConnection : public RawTest {};

TEST_F(RawOnOwnConnection, ASetWorksOnTheDatabaseAndOwnerItIsGiven) {
  CDatabase database;
  const tagDBCONNECT parameters = m_practice.Parameters();
  CString connect;
  connect.Format("DSN=%s;UID=%s;PWD=%s", CString(parameters.szDSN), CString(parameters.szUID),
                 CString(parameters.szPWD));
  ASSERT_TRUE(database.OpenEx(connect));
  CPatientRawRec set(&database, nullptr);
  EXPECT_EQ(set.m_pDatabase, &database);
  CTPatientRaw patient = MakeRecord<Patients>(1);
  EXPECT_EQ(set.Insert(patient, kAllFields), 0);
  EXPECT_EQ(CountRows<Patients>(), 1);
  CPatientRawRec owned(&database, "somebody.");
  EXPECT_STREQ(owned.GetDefaultSQL(), "somebody.TPatientRaw");
}

TEST_F(RawOnOwnConnection, ARollbackTakesAnInsertedRowBack) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  Add<Patients>(MakeRecord<Patients>(1));
  ASSERT_EQ(DB_RollbackTransaction(), 0);
  EXPECT_EQ(CountRows<Patients>(), 0);
}

}  // namespace
}  // namespace raw
