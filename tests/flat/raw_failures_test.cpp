// The direct-access sets on an old schema, without a connection and on a database that refuses.
#include "tests/flat/raw_tables.h"

namespace raw {
namespace {

// True when the action throws a database exception, which is then gone.
template <class Action>
bool Throws(Action action) {
  try {
    action();
  } catch (CDBException* exception) {
    exception->Delete();
    return true;
  }
  return false;
}

template <class Table>
class RawFailures : public support::PracticeTest {
 protected:
  void ConnectWithVersion(const std::string& version) {
    Raw().Exec("UPDATE TConfig SET tCfgSSet = '" + version + "' WHERE tCfgSKey = 'DBVersion'");
    ASSERT_EQ(Connect(), 0);
  }
  void ExpectRefusedAsTooOld() {
    auto set = Table::MakeSet();
    auto record = MakeRecord<Table>(1);
    EXPECT_EQ(set.OpenQuery(record), 56);
    EXPECT_EQ(set.Insert(record, kAllFields), 56);
    EXPECT_EQ(set.Edit(record, kAllFields), 56);
    EXPECT_EQ(set.IsOpen(), 0);
    EXPECT_EQ(Stored<Table>(record), Stored<Table>(MakeRecord<Table>(1)));
  }
};
TYPED_TEST_SUITE(RawFailures, AllTables);

TYPED_TEST(RawFailures, ASchemaBeforeVersion4Gives56AndChangesNothing) {
  this->ConnectWithVersion("3.9");
  const int before = this->Raw().Count(FullName<TypeParam>());
  this->ExpectRefusedAsTooOld();
  EXPECT_EQ(this->Raw().Count(FullName<TypeParam>()), before);
}

TYPED_TEST(RawFailures, ASchemaWithoutAVersionGives56) {
  this->Raw().Exec("DELETE FROM TConfig WHERE tCfgSKey = 'DBVersion'");
  ASSERT_EQ(this->Connect(), 0);
  this->ExpectRefusedAsTooOld();
}

TYPED_TEST(RawFailures, TheVersionOutlivesTheConnection) {
  this->ConnectWithVersion("3.9");
  ASSERT_EQ(DB_CloseDatabase(), 0);
  this->ExpectRefusedAsTooOld();
}

TYPED_TEST(RawFailures, WithoutAConnectionOpenQueryThrowsAndChangesGive6) {
  ASSERT_EQ(this->Connect(), 0);
  ASSERT_EQ(DB_CloseDatabase(), 0);
  auto set = TypeParam::MakeSet();
  EXPECT_EQ(set.m_pDatabase, nullptr);
  auto record = MakeRecord<TypeParam>(1);
  EXPECT_TRUE(Throws([&] { set.OpenQuery(record); }));
  EXPECT_EQ(set.Insert(record, kAllFields), 6);
  EXPECT_EQ(set.Edit(record, kAllFields), 6);
  EXPECT_EQ(set.IsOpen(), 0);
}

TYPED_TEST(RawFailures, AMissingTableMakesOpenQueryThrowAndChangesGive6) {
  ASSERT_EQ(this->Connect(), 0);
  this->TakeAway(FullName<TypeParam>());
  auto set = TypeParam::MakeSet();
  auto record = MakeRecord<TypeParam>(1);
  EXPECT_TRUE(Throws([&] { set.OpenQuery(record); }));
  EXPECT_EQ(set.Insert(record, kAllFields), 6);
  EXPECT_EQ(set.Edit(record, kAllFields), 6);
  EXPECT_EQ(set.IsOpen(), 0);
}

TYPED_TEST(RawFailures, TheSetWorksAgainAfterAFailure) {
  ASSERT_EQ(this->Connect(), 0);
  auto set = TypeParam::MakeSet();
  auto record = MakeRecord<TypeParam>(1);
  set.m_strOwner = "nowhere.";
  EXPECT_EQ(set.Insert(record, GivenFields<TypeParam>()), 6);
  set.m_strOwner = "";
  EXPECT_EQ(set.Insert(record, GivenFields<TypeParam>()), 0);
}

// A connection that a user cancels while it is made.
class CancelledDatabase : public CDatabase {
 public:
  BOOL OpenEx(const char*, DWORD) override { return FALSE; }
};

class RawCancelled : public RawTest {};

TEST_F(RawCancelled, ASetThatDoesNotOpenGives3AndAnInsert6) {
  CancelledDatabase cancelled;
  CDrRawRec set(&cancelled, nullptr);
  CTDrRaw doctor = MakeRecord<Doctors>(1);
  EXPECT_EQ(set.OpenQuery(doctor), 3);
  EXPECT_EQ(set.Edit(doctor, kAllFields), 3);
  EXPECT_EQ(set.Insert(doctor, kAllFields), 6);
}

class RawDates : public RawTest {};

TEST_F(RawDates, AnImpossibleDateIsRefusedBeforeAnythingIsWritten) {
  CMakRawRec set(nullptr, nullptr);
  CTMakRaw makro = MakeRecord<Makros>(1);
  makro.m_tsCreate = support::Ts(2001, 2, 30);
  EXPECT_EQ(set.Insert(makro, kAllFields), 6);
  EXPECT_EQ(CountRows<Makros>(), 0);
  EXPECT_EQ(set.IsOpen(), 0);
}

TEST_F(RawDates, AnImpossibleDateInAnEditLeavesTheRowAlone) {
  const LONG key = Add<Makros>(MakeRecord<Makros>(1));
  const support::Row before = RowOf<Makros>(key);
  CTMakRaw makro = MakeRecord<Makros>(2);
  makro.m_lMakID = key;
  makro.m_tsCreate = support::Ts(2001, 13, 1);
  CMakRawRec set(nullptr, nullptr);
  EXPECT_EQ(set.Edit(makro, kAllFields), 6);
  EXPECT_EQ(RowOf<Makros>(key), before);
  EXPECT_EQ(set.IsOpen(), 0);
}

TEST_F(RawDates, NoDateIsStoredAsNull) {
  CTMakRaw makro = MakeRecord<Makros>(1);
  makro.m_tsCreate = {};
  const LONG key = Add<Makros>(makro);
  EXPECT_EQ(RowOf<Makros>(key).back(), std::nullopt);
  CTMakRaw read;
  read.m_lMakID = key;
  CMakRawRec set(nullptr, nullptr);
  ASSERT_EQ(set.OpenQuery(read), 0);
  set.GetData(read);
  EXPECT_EQ(read.m_tsCreate.year, 0);
}

}  // namespace
}  // namespace raw
