// The library's one connection with a driver that refuses, lies or dies.
#include <algorithm>
#include <cstddef>
#include <string>

#include "frame/KyODBC.h"
#include "frame/connection.h"
#include "tests/scripted/play_set.h"
#include "tests/support/records.h"

namespace {

using scripted::PlayTest;
using scripted::TheScript;

constexpr char kSettings[] = "SELECT tCfgCulIntCfgIDPk";
constexpr char kPing[] = "{call spky_ping}";

class Initialising : public PlayTest {
 protected:
  void SetUp() override {
    TheConnection().m_dDBVersion = 0.0;  // as if nothing had been connected before
    TheScript().dbms = "Any";
    TheScript().procedures = true;
  }
  void TearDown() override { EXPECT_EQ(DB_CloseDatabase(), 0); }

  static WORD Initialise(const std::string& owner = "") {
    tagDBCONNECT parameters{};
    support::SetText(parameters.szDSN, "practice");
    support::SetText(parameters.szUID, "user");
    support::SetText(parameters.szPWD, "secret");
    support::SetText(parameters.szOwner, owner);
    return DB_InitDatabase(&parameters);
  }
  // Every setting that is read has this value.
  static void SettingsAre(const std::string& value) {
    const scripted::Column texts[] = {
        {"tCfgSKey", SQL_VARCHAR, 255},
        {"tCfgSSet", SQL_VARCHAR, 255}
    };
    TheScript().Gives(
        kSettings,
        {
            {{"tCfgCulIntCfgIDPk"},   {"tCfgCulIntDrIDFk"}, {"tCfgCulIntStatIDFk"}, texts[0], texts[1]},
            {{"1", "1", "1", "key", value}}
    });
  }
  static std::ptrdiff_t Sent(const std::string& statement) {
    return std::count(TheScript().Sent().begin(), TheScript().Sent().end(), statement);
  }
  // The next attempts to connect find no server.
  static void ServerIsGone(int attempts) {
    for (int i = 0; i < attempts; ++i) TheScript().Answer("SQLDriverConnect", {SQL_ERROR}, {{"08001"}});
  }
  static void ConnectionIsLost() { TheConnection().m_pDatabase->Close(); }
};

TEST_F(Initialising, AServerThatIsNotReachedOrRefusesTheLoginGives30) {
  for (const char* state : {"08001", "28000", "08S01"}) {
    TheScript().Answer("SQLDriverConnect", {SQL_ERROR}, {{state}});
    EXPECT_EQ(Initialise(), 30) << state;
    EXPECT_EQ(DB_IsDatabaseOpen(), 0);
    EXPECT_EQ(DB_GetDatabase(), nullptr);
  }
}

TEST_F(Initialising, AnyOtherFailureGives3) {
  for (const char* state : {"IM002", "HY000", "HYT00"}) {
    TheScript().Answer("SQLDriverConnect", {SQL_ERROR}, {{state}});
    EXPECT_EQ(Initialise(), 3) << state;
    EXPECT_EQ(DB_GetDatabase(), nullptr);
  }
}

TEST_F(Initialising, TheDriverGetsNameUserAndPasswordAndHalfAMinute) {
  EXPECT_EQ(Initialise(), 0);
  EXPECT_EQ(TheScript().connection_string, "DSN=practice;UID=user;PWD=secret");
  EXPECT_EQ(TheScript().completion, SQL_DRIVER_NOPROMPT);
  EXPECT_EQ(TheScript().connection_attributes[SQL_ATTR_LOGIN_TIMEOUT], 30u);
}

TEST_F(Initialising, TheFirstConnectionDoesNotCallTheProcedure) {
  SettingsAre("4.0");
  EXPECT_EQ(Initialise(), 0);
  EXPECT_EQ(Sent(kPing), 0);
  double version = 0.0;
  EXPECT_EQ(DB_GetDBVersion(&version), 0);
  EXPECT_DOUBLE_EQ(version, 4.0);
}

TEST_F(Initialising, AConnectionAfterVersion4CallsItBeforeAnythingElse) {
  SettingsAre("4.0");
  ASSERT_EQ(Initialise(), 0);
  ASSERT_EQ(DB_CloseDatabase(), 0);
  const std::size_t before = TheScript().Sent().size();
  EXPECT_EQ(Initialise(), 0);
  ASSERT_GT(TheScript().Sent().size(), before);
  EXPECT_EQ(TheScript().Sent()[before], kPing);
}

TEST_F(Initialising, TheOwnerStandsBeforeTheProcedure) {
  SettingsAre("4.0");
  ASSERT_EQ(Initialise("dbo."), 0);
  ASSERT_EQ(TheConnection().KeepAlive(), 0);
  EXPECT_EQ(Sent("{call dbo.spky_ping}"), 1);
}

TEST_F(Initialising, AnOlderDatabaseIsNotAsked) {
  SettingsAre("3.9");
  ASSERT_EQ(Initialise(), 0);
  EXPECT_EQ(TheConnection().KeepAlive(), 0);
  EXPECT_EQ(Sent(kPing), 0);
}

TEST_F(Initialising, ALostConnectionIsMadeAgain) {
  SettingsAre("4.0");
  ASSERT_EQ(Initialise(), 0);
  ConnectionIsLost();
  ServerIsGone(4);
  EXPECT_EQ(TheConnection().KeepAlive(), 57);
  EXPECT_EQ(TheScript().Calls("SQLDriverConnect"), 1 + 5);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
}

TEST_F(Initialising, AfterFiveAttemptsItIsGivenUp) {
  SettingsAre("4.0");
  ASSERT_EQ(Initialise(), 0);
  ConnectionIsLost();
  ServerIsGone(6);
  EXPECT_EQ(TheConnection().KeepAlive(), 30);
  EXPECT_EQ(TheScript().Calls("SQLDriverConnect"), 1 + 5);
  EXPECT_EQ(DB_GetDatabase(), nullptr);
}

TEST_F(Initialising, OpeningThePatientsGives3WhileTheConnectionStaysLostAndThenMakesItAgain) {
  SettingsAre("4.0");
  ASSERT_EQ(Initialise(), 0);
  ConnectionIsLost();
  ServerIsGone(10);
  EXPECT_EQ(DB_OpenTPat(), 3);
  EXPECT_EQ(DB_OpenPatEx(), 3);
  EXPECT_EQ(DB_GetDatabase(), nullptr);
  EXPECT_EQ(DB_OpenTStat(), 3);
  EXPECT_EQ(TheConnection().KeepAlive(), 57);
}

TEST_F(Initialising, AfterACloseOpeningThePatientsDoesNotConnect) {
  SettingsAre("4.0");
  ASSERT_EQ(Initialise(), 0);
  ConnectionIsLost();
  ServerIsGone(5);
  EXPECT_EQ(DB_OpenTPat(), 3);
  EXPECT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(DB_OpenTPat(), 3);
  EXPECT_EQ(TheScript().Calls("SQLDriverConnect"), 1 + 5);
}

TEST_F(Initialising, ALivingConnectionThatDoesNotAnswerIsAskedFiveTimesAndKept) {
  SettingsAre("4.0");
  ASSERT_EQ(Initialise(), 0);
  for (int i = 0; i < 5; ++i) TheScript().Answer("SQLExecDirect", {SQL_ERROR}, {{"42000"}});
  EXPECT_EQ(TheConnection().KeepAlive(), 30);
  EXPECT_EQ(TheScript().Calls("SQLDriverConnect"), 1);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
  EXPECT_EQ(TheConnection().KeepAlive(), 0);
}

TEST_F(Initialising, APingThatFindsTheConnectionDeadLeadsToANewOne) {
  SettingsAre("4.0");
  ASSERT_EQ(Initialise(), 0);
  TheScript().Answer("SQLExecDirect", {SQL_ERROR}, {{"08S01"}});
  EXPECT_EQ(TheConnection().KeepAlive(), 57);
  EXPECT_EQ(TheScript().Calls("SQLDriverConnect"), 2);
}

TEST_F(Initialising, ADataSourceWithoutTransactionsGives55) {
  TheScript().transactions = false;
  ASSERT_EQ(Initialise(), 0);
  const std::size_t before = TheScript().Sent().size();
  EXPECT_EQ(DB_BeginTransaction(), 55);
  EXPECT_EQ(DB_CommitTransaction(), 55);
  EXPECT_EQ(DB_RollbackTransaction(), 55);
  EXPECT_EQ(TheScript().Sent().size(), before);
  EXPECT_EQ(TheScript().Calls("SQLEndTran"), 0);
}

TEST_F(Initialising, ATransactionThatTheDriverRefusesGivesOne) {
  ASSERT_EQ(Initialise(), 0);
  TheScript().Answer("SQLSetConnectAttr", {SQL_ERROR}, {{"HY000"}});
  EXPECT_EQ(DB_BeginTransaction(), 1);
}

}  // namespace
