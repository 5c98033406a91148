// Making and ending the connection.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "frame/KyODBC.h"
#include "tests/support/fixtures.h"

using support::SetText;
using support::SetUnterminated;
using support::Text;

namespace {

class Connection : public support::PracticeTest {
 protected:
  WORD Initialise(const std::string& dsn, bool exclusive = false, const std::string& owner = "") {
    tagDBCONNECT parameters = m_practice.Parameters();
    SetText(parameters.szDSN, dsn);
    SetText(parameters.szOwner, owner);
    parameters.bExclusive = exclusive ? 1 : 0;
    return DB_InitDatabase(&parameters);
  }
  static std::string SourceInUse() {
    tagDBINFO info{};
    EXPECT_EQ(DB_GetInfo(&info), 0);
    return Text(info.szDSN);
  }
  static std::string OwnerInUse() {
    char owner[260] = {};
    EXPECT_EQ(DB_GetDBOwner(owner, sizeof owner), 0);
    return owner;
  }
  static void ExpectNoConnection() {
    EXPECT_EQ(DB_IsDatabaseOpen(), 0);
    EXPECT_EQ(DB_GetDatabase(), nullptr);
    EXPECT_EQ(DB_OpenTStat(), 3);
  }
};

TEST_F(Connection, InitialisationConnectsAndLeavesAllBrowseSetsClosed) {
  EXPECT_EQ(Connect(), 0);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
  EXPECT_NE(DB_GetDatabase(), nullptr);
  EXPECT_EQ(DB_IsTDrOpen() + DB_IsTStatOpen() + DB_IsTUnitOpen() + DB_IsTPatOpen() + DB_IsPatExOpen(), 0);
  EXPECT_EQ(DB_IsTImgOpen() + DB_IsTMakOpen() + DB_IsTGrpOpen() + DB_IsTDiagOpen() + DB_IsTCfgOpen(), 0);
  EXPECT_EQ(DB_IsTTestOpen(), 0);
}

TEST_F(Connection, ANullRecordGivesOneAndChangesNothing) {
  ASSERT_EQ(Connect(), 0);
  ASSERT_EQ(Initialise(m_practice.Dsn(), false, "kept."), 3);
  EXPECT_EQ(DB_InitDatabase(nullptr), 1);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
  EXPECT_EQ(OwnerInUse(), "kept.");
}

TEST_F(Connection, AnEmptyDataSourceNameGivesOneAndChangesNothing) {
  ASSERT_EQ(Connect(), 0);
  ASSERT_EQ(Initialise(m_practice.Dsn(), false, "kept."), 3);
  EXPECT_EQ(Initialise("", false, "other."), 1);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
  EXPECT_EQ(OwnerInUse(), "kept.");
}

TEST_F(Connection, ASecondInitialisationGives3AndTheConnectionKeepsWorking) {
  ASSERT_EQ(Connect(), 0);
  ASSERT_EQ(DB_OpenTStat(), 0);
  EXPECT_EQ(Connect(), 3);
  EXPECT_NE(DB_IsTStatOpen(), 0);
  tagTSTATION station{};
  EXPECT_EQ(DB_GetTStatByPos(1, &station), 0);
}

TEST_F(Connection, ASecondInitialisationReplacesTheStoredParameters) {
  ASSERT_EQ(Connect(), 0);
  EXPECT_EQ(Initialise("elsewhere", false, "other."), 3);
  EXPECT_EQ(SourceInUse(), "elsewhere");
  EXPECT_EQ(OwnerInUse(), "other.");
}

// What is counted and looked up goes through sets of its own, which are made with the owner given last.
TEST_F(Connection, TheOwnerOfARefusedInitialisationHoldsForCountsAndNewestKeys) {
  ASSERT_EQ(Connect(), 0);
  LONG number = -1;
  ASSERT_EQ(DB_GetNumTStat(&number), 0);
  ASSERT_EQ(Initialise(m_practice.Dsn(), false, "nowhere."), 3);
  EXPECT_EQ(DB_GetNumTStat(&number), 31);
  EXPECT_EQ(DB_GetLastStatID(&number), 31);
  ASSERT_EQ(Connect(), 3);
  EXPECT_EQ(DB_GetNumTStat(&number), 0);
  EXPECT_EQ(DB_GetLastStatID(&number), 0);
  EXPECT_EQ(number, 1);
}

TEST_F(Connection, AnExclusiveConnectionUsesTheDataSourceWithTheSuffix) {
  const std::string name = "ABCDEFGHIJKLMNOPQRSTUVW";
  ASSERT_EQ(name.size(), 23u);
  m_practice.AddSource(name + "Exclusive");
  EXPECT_EQ(Initialise(name, true), 0);
  EXPECT_EQ(SourceInUse(), name + "Exclusive");
}

TEST_F(Connection, AnExclusiveNameOf24CharactersGivesOne) {
  EXPECT_EQ(Initialise("ABCDEFGHIJKLMNOPQRSTUVWX", true), 1);
  ExpectNoConnection();
}

TEST_F(Connection, WithoutTheExclusiveFlagTheNameIsTakenAsItIs) {
  m_practice.AddSource("PlainName");
  EXPECT_EQ(Initialise("PlainName"), 0);
  EXPECT_EQ(SourceInUse(), "PlainName");
}

TEST_F(Connection, AnUnknownDataSourceGives3AndLeavesNoConnection) {
  EXPECT_EQ(Initialise("no such source"), 3);
  ExpectNoConnection();
}

TEST_F(Connection, AfterAFailureTheNextInitialisationConnects) {
  ASSERT_EQ(Initialise("no such source"), 3);
  EXPECT_EQ(Connect(), 0);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
}

TEST_F(Connection, ClosingWithoutAConnectionIsHarmless) {
  EXPECT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(DB_CloseDatabase(), 0);
  ExpectNoConnection();
}

TEST_F(Connection, AfterAClosePlainInitialisationConnectsAgain) {
  ASSERT_EQ(Connect(), 0);
  CDatabase* const first = DB_GetDatabase();
  ASSERT_EQ(DB_OpenTStat(), 0);
  EXPECT_EQ(DB_CloseDatabase(), 0);
  ExpectNoConnection();
  EXPECT_EQ(Connect(), 0);
  EXPECT_NE(DB_GetDatabase(), nullptr);
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(DB_IsTStatOpen(), 0);
  EXPECT_EQ(DB_OpenTStat(), 0);
}

TEST_F(Connection, ClosingEndsOpenBrowseSets) {
  ASSERT_EQ(Connect(), 0);
  ASSERT_EQ(DB_OpenTDr(), 0);
  ASSERT_EQ(DB_OpenPatEx(), 0);
  EXPECT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(DB_IsTDrOpen(), 0);
  EXPECT_EQ(DB_IsPatExOpen(), 0);
}

TEST_F(Connection, ACallersOwnRecordSetMayOutliveTheConnection) {
  ASSERT_EQ(Connect(), 0);
  class Stations : public CKyRecSet {
   public:
    Stations() : CKyRecSet(nullptr, nullptr) { m_nFields = 1; }
    CString GetDefaultSQL() override { return m_strOwner + "TStation"; }
    void DoFieldExchange(CFieldExchange* exchange) override {
      exchange->SetFieldType(CFieldExchange::outputColumn);
      RFX_Long(exchange, tStatCulIntStatIDPk, m_lID);
    }
  };
  Stations stations;
  ASSERT_NE(stations.Open(), 0);
  EXPECT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(stations.IsOpen(), 0);
  EXPECT_EQ(stations.MoveToPos(1), 0);
}

TEST_F(Connection, UnterminatedTextsEndWithTheirFields) {
  tagDBCONNECT parameters{};
  SetUnterminated(parameters.szDSN, 'd');
  SetUnterminated(parameters.szUID, 'u');
  SetUnterminated(parameters.szPWD, 'p');
  SetUnterminated(parameters.szOwner, 'o');
  EXPECT_EQ(DB_InitDatabase(&parameters), 3);
  ExpectNoConnection();
  EXPECT_EQ(OwnerInUse(), std::string(259, 'o'));
  parameters.bExclusive = 1;
  EXPECT_EQ(DB_InitDatabase(&parameters), 1);
}

TEST_F(Connection, ALongUnterminatedNameIsCutToItsField) {
  m_practice.AddSource(std::string(32, 'n'));
  tagDBCONNECT parameters = m_practice.Parameters();
  SetUnterminated(parameters.szDSN, 'n');
  EXPECT_EQ(DB_InitDatabase(&parameters), 0);
  EXPECT_EQ(SourceInUse(), std::string(32, 'n'));
}

class ConnectionWithOwner : public support::PracticeTest {
 protected:
  ConnectionWithOwner() : support::PracticeTest({.with_owner = true}) {}
};

TEST_F(ConnectionWithOwner, TheOwnerStandsBeforeEveryTableAndProcedure) {
  ASSERT_EQ(Connect(), 0);
  char owner[260] = {};
  EXPECT_EQ(DB_GetDBOwner(owner, sizeof owner), 0);
  EXPECT_EQ(owner, m_practice.Owner());
  EXPECT_EQ(DB_OpenTPat(), 0);  // calls the procedure
  EXPECT_EQ(DB_OpenPatEx(), 0);
  tagTSTATION station{};
  SetText(station.szName, "Room 1");
  EXPECT_EQ(DB_AddNewTStat(&station), 0);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName='Room 1'"), 1);
  LONG rows = 0;
  EXPECT_EQ(DB_GetNumTStat(&rows), 0);
  EXPECT_EQ(rows, 2);
}

TEST_F(Connection, AnOwnerThatDoesNotExistConnectsButFindsNoTables) {
  // From version 4 on, which outlives a connection, the owner's procedure would be missed first.
  Raw().Exec("UPDATE TConfig SET tCfgSSet='3.9' WHERE tCfgSKey='DBVersion'");
  ASSERT_EQ(Connect(), 0);
  ASSERT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(Initialise(m_practice.Dsn(), false, "nobody."), 0);
  EXPECT_EQ(DB_OpenTStat(), 31);
  tagTSTATION station{};
  station.lStatID = 1;
  EXPECT_EQ(DB_GetTStat(&station), 3);
}

}  // namespace
