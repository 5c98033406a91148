// Transactions on the one connection.
#include <gtest/gtest.h>

#include "frame/KyODBC.h"
#include "tests/support/documented.h"
#include "tests/support/fixtures.h"

using support::SetText;

namespace {

class Transactions : public support::ConnectedTest {
 protected:
  static WORD AddStation(const char* name) {
    tagTSTATION station{};
    SetText(station.szName, name);
    return DB_AddNewTStat(&station);
  }
  int Stations() { return Raw().Count("TStation"); }
};

TEST_F(Transactions, ACommitKeepsEveryChange) {
  EXPECT_EQ(DB_BeginTransaction(), 0);
  EXPECT_EQ(AddStation("one"), 0);
  EXPECT_EQ(AddStation("two"), 0);
  EXPECT_EQ(DB_CommitTransaction(), 0);
  EXPECT_EQ(Stations(), 3);
}

TEST_F(Transactions, OthersSeeTheChangesOnlyAfterTheCommit) {
  EXPECT_EQ(DB_BeginTransaction(), 0);
  EXPECT_EQ(AddStation("one"), 0);
  EXPECT_EQ(Stations(), 1);
  EXPECT_EQ(DB_CommitTransaction(), 0);
  EXPECT_EQ(Stations(), 2);
}

TEST_F(Transactions, ARollbackUndoesEveryChange) {
  EXPECT_EQ(DB_BeginTransaction(), 0);
  EXPECT_EQ(AddStation("one"), 0);
  EXPECT_EQ(AddStation("two"), 0);
  EXPECT_EQ(DB_RollbackTransaction(), 0);
  EXPECT_EQ(Stations(), 1);
}

TEST_F(Transactions, AfterTheEndEveryChangeStandsByItselfAgain) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  ASSERT_EQ(DB_RollbackTransaction(), 0);
  EXPECT_EQ(AddStation("one"), 0);
  EXPECT_EQ(Stations(), 2);
}

TEST_F(Transactions, ARollbackDoesNotReadAnOpenBrowseSetAgain) {
  ASSERT_EQ(DB_OpenTStat(), 0);
  ASSERT_EQ(DB_BeginTransaction(), 0);
  ASSERT_EQ(AddStation("one"), 0);
  ASSERT_EQ(DB_MoveToTStatByPos(2), 2);
  ASSERT_EQ(DB_RollbackTransaction(), 0);
  EXPECT_EQ(DB_GetTStatIndexPos(), 2);
  EXPECT_EQ(DB_OpenTStat(), 0);
  EXPECT_EQ(DB_MoveToTStatByPos(2), 0);
}

TEST_F(Transactions, ASecondBeginGivesOneAndChangesNothing) {
  EXPECT_EQ(DB_BeginTransaction(), 0);
  EXPECT_EQ(AddStation("one"), 0);
  EXPECT_EQ(DB_BeginTransaction(), 1);
  EXPECT_EQ(DB_RollbackTransaction(), 0);
  EXPECT_EQ(Stations(), 1);
}

TEST_F(Transactions, AnEndWithoutABeginGivesOne) {
  EXPECT_EQ(DB_CommitTransaction(), 1);
  EXPECT_EQ(DB_RollbackTransaction(), 1);
  ASSERT_EQ(DB_BeginTransaction(), 0);
  ASSERT_EQ(DB_CommitTransaction(), 0);
  EXPECT_EQ(DB_CommitTransaction(), 1);
}

TEST_F(Transactions, ClosingTheConnectionRollsBack) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  ASSERT_EQ(AddStation("one"), 0);
  ASSERT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(Stations(), 1);
}

TEST_F(Transactions, AnOpenBrowseSetMayBeReadInsideATransaction) {
  ASSERT_EQ(DB_OpenTStat(), 0);
  ASSERT_EQ(DB_BeginTransaction(), 0);
  ASSERT_EQ(AddStation("one"), 0);
  EXPECT_EQ(DB_MoveToTStatByPos(2), 2);
  LONG rows = 0;
  EXPECT_EQ(DB_GetTStatMaxPos(&rows), 0);
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(DB_CommitTransaction(), 0);
}

TEST_F(Transactions, WithoutAConnectionEachGives3) {
  ASSERT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(DB_BeginTransaction(), 3);
  EXPECT_EQ(DB_CommitTransaction(), 3);
  EXPECT_EQ(DB_RollbackTransaction(), 3);
}

// A filter without any field makes a condition that is no SQL.
TEST_F(Transactions, AStatementThatIsNoSqlFailsAloneOrLetsNothingBeCommitted) {
  const bool goes_on = support::Documented("transaction after a statement that is no SQL") == "goes on";
  EXPECT_EQ(DB_BeginTransaction(), 0);
  EXPECT_EQ(AddStation("before"), 0);
  EXPECT_EQ(DB_OpenTStat(), 0);
  EXPECT_EQ(DB_SetTStatFilter(0, 0, nullptr, nullptr, nullptr, nullptr), 31);
  EXPECT_EQ(AddStation("after"), 0);
  EXPECT_EQ(DB_CommitTransaction(), goes_on ? 0 : 1);
  EXPECT_EQ(Stations(), goes_on ? 3 : 1);
  EXPECT_EQ(DB_BeginTransaction(), 0);
  EXPECT_EQ(AddStation("next"), 0);
  EXPECT_EQ(DB_CommitTransaction(), 0);
}

TEST_F(Transactions, AChangeThatTheDatabaseRefusesFailsAlone) {
  MakeReadOnly("TPatient");
  EXPECT_EQ(DB_BeginTransaction(), 0);
  EXPECT_EQ(AddStation("before"), 0);
  tagTUNIT unit{};
  SetText(unit.szName, "impossible");
  unit.dAccept = support::Ts(2001, 2, 30);
  EXPECT_EQ(DB_AddNewTUnit(&unit), 6);
  EXPECT_EQ(AddStation("after"), 0);
  tagTPATIENT patient{};
  SetText(patient.szSlidaID, "S1");
  EXPECT_EQ(DB_AddNewTPat(&patient), 6);
  EXPECT_EQ(AddStation("last"), 0);
  EXPECT_EQ(DB_CommitTransaction(), 0);
  EXPECT_EQ(Stations(), 4);
}

}  // namespace
