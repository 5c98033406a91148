// The connection object itself: how it opens, keeps alive and closes.
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include "frame/connection.h"
#include "platform/log.h"
#include "recset/upcalls.h"
#include "tests/support/fixtures.h"

namespace {

using support::SetText;

TEST(ConnectionOptions, DependOnTheOwnerAndTheExclusiveFlag) {
  CDBConnection connection;
  EXPECT_EQ(connection.OpenOptions(), 8u);
  connection.m_Params.bExclusive = 1;
  EXPECT_EQ(connection.OpenOptions(), 9u);
  SetText(connection.m_Params.szOwner, "dbo.");
  EXPECT_EQ(connection.OpenOptions(), 13u);
  connection.m_Params.bExclusive = 0;
  EXPECT_EQ(connection.OpenOptions(), 12u);
}

TEST(ConnectionString, HasTheGivenPartsOnly) {
  CDBConnection connection;
  EXPECT_STREQ(connection.ConnectString(), "");
  SetText(connection.m_Params.szDSN, "practice");
  EXPECT_STREQ(connection.ConnectString(), "DSN=practice");
  SetText(connection.m_Params.szUID, "user");
  EXPECT_STREQ(connection.ConnectString(), "DSN=practice;UID=user");
  SetText(connection.m_Params.szPWD, "secret");
  EXPECT_STREQ(connection.ConnectString(), "DSN=practice;UID=user;PWD=secret");
  SetText(connection.m_Params.szUID, "");
  EXPECT_STREQ(connection.ConnectString(), "DSN=practice;PWD=secret");
  SetText(connection.m_Params.szDSN, "");
  SetText(connection.m_Params.szUID, "user");
  SetText(connection.m_Params.szPWD, "");
  EXPECT_STREQ(connection.ConnectString(), ";UID=user");
}

TEST(NewConnection, IsEmpty) {
  CDBConnection connection;
  EXPECT_EQ(connection.m_pDatabase, nullptr);
  EXPECT_EQ(connection.m_pDr, nullptr);
  EXPECT_EQ(connection.m_pTest, nullptr);
  EXPECT_EQ(connection.m_dDBVersion, 0.0);
  EXPECT_TRUE(connection.m_strDBMS.IsEmpty());
  EXPECT_FALSE(connection.Ping());
  EXPECT_EQ(connection.CloseAll(), 0);
}

class KeepAlive : public support::ConnectedTest {
 protected:
  static CDBConnection& Connection() { return TheConnection(); }
};

TEST_F(KeepAlive, GivesZeroForALivingConnection) { EXPECT_EQ(Connection().KeepAlive(), 0); }

TEST_F(KeepAlive, Gives57AfterMakingTheConnectionAnewWithNewSets) {
  Connection().m_pDatabase->Close();
  EXPECT_FALSE(Connection().Ping());
  EXPECT_EQ(Connection().KeepAlive(), 57);
  EXPECT_TRUE(Connection().Ping());
  EXPECT_NE(Connection().m_pTest, nullptr);
  EXPECT_EQ(Connection().KeepAlive(), 0);
}

TEST_F(KeepAlive, Gives30WhenALivingConnectionDoesNotAnswer) {
  RemovePing();
  EXPECT_FALSE(Connection().Ping());
  EXPECT_EQ(Connection().KeepAlive(), 30);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
}

TEST_F(KeepAlive, Gives30AndLeavesNothingWhenTheConnectionCannotBeMade) {
  Connection().m_pDatabase->Close();
  SetText(Connection().m_Params.szDSN, "no such source");
  EXPECT_EQ(Connection().KeepAlive(), 30);
  EXPECT_EQ(Connection().m_pDatabase, nullptr);
  EXPECT_EQ(Connection().m_pPat, nullptr);
}

TEST_F(KeepAlive, AConnectionThatIsOpenIsNotMadeAgain) {
  CDatabase* const database = Connection().m_pDatabase;
  EXPECT_EQ(Connection().Connect(), 3);
  EXPECT_EQ(Connection().m_pDatabase, database);
}

TEST_F(KeepAlive, AFailedPingLeavesTheMessageInTheDebugLog) {
  RemovePing();
  const std::string file = m_practice.Folder() / "log.txt";
  setenv("KYODBC_LOG", "debug", 1);
  setenv("KYODBC_LOG_FILE", file.c_str(), 1);
  klog::Reconfigure();
  EXPECT_FALSE(Connection().Ping());
  unsetenv("KYODBC_LOG");
  unsetenv("KYODBC_LOG_FILE");
  klog::Reconfigure();
  std::ifstream log(file);
  std::string content{std::istreambuf_iterator<char>(log), {}};
  // Each database names the procedure in its message; the call itself is in the log anyway.
  content.erase(0, content.find("{call") + 1);
  EXPECT_TRUE(std::regex_search(content, std::regex("debug: [^{]*spky_ping"))) << content;
  EXPECT_EQ(content.find("error: "), std::string::npos) << content;
}

TEST_F(KeepAlive, TheSchemaVersionGatesByItsNumber) {
  EXPECT_EQ(upcalls::RequireDBVersion(4.0), 0);
  EXPECT_EQ(upcalls::RequireDBVersion(4.1), 56);
  Connection().m_dDBVersion = 3.9;
  EXPECT_EQ(upcalls::RequireDBVersion(4.0), 56);
  EXPECT_EQ(upcalls::RequireDBVersion(0.0), 0);
}

TEST_F(KeepAlive, TheSetsAreThereAndClosedAfterConnecting) {
  const CDBConnection& connection = Connection();
  EXPECT_NE(connection.m_pDr, nullptr);
  EXPECT_NE(connection.m_pStat, nullptr);
  EXPECT_NE(connection.m_pUnit, nullptr);
  EXPECT_NE(connection.m_pPat, nullptr);
  EXPECT_NE(connection.m_pPatEx, nullptr);
  EXPECT_NE(connection.m_pImg, nullptr);
  EXPECT_NE(connection.m_pMak, nullptr);
  EXPECT_NE(connection.m_pGrp, nullptr);
  EXPECT_NE(connection.m_pDiag, nullptr);
  EXPECT_NE(connection.m_pCfg, nullptr);
  EXPECT_NE(connection.m_pTest, nullptr);
}

}  // namespace
