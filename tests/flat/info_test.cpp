// What the library tells about itself and the database, and the keep-alive.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "frame/KyODBC.h"
#include "tests/support/fixtures.h"

using support::SetText;
using support::Text;

namespace {

class Information : public support::PracticeTest {
 protected:
  void SetVersion(const std::string& version) {
    Raw().Exec("UPDATE TConfig SET tCfgSSet='" + version + "' WHERE tCfgSKey='DBVersion'");
  }
  void RemoveSetting(const std::string& key) {
    Raw().Exec("DELETE FROM TConfig WHERE tCfgSKey='" + key + "'");
  }
  // The version of the last connection outlives it, and with it the need for the procedure.
  void ForgetVersion4() {
    SetVersion("3.9");
    ASSERT_EQ(Connect(), 0);
    ASSERT_EQ(DB_CloseDatabase(), 0);
  }
  // A refused second initialisation has replaced the parameters.
  void StoreOwner(const std::string& owner) {
    ASSERT_EQ(Connect(), 0);
    tagDBCONNECT parameters = m_practice.Parameters();
    SetText(parameters.szOwner, owner);
    ASSERT_EQ(DB_InitDatabase(&parameters), 3);
  }
  // As if the server had gone away: the database object is there, its connection is not.
  static void DropConnection() { DB_GetDatabase()->Close(); }
  static double Version() {
    double version = -1.0;
    EXPECT_EQ(DB_GetDBVersion(&version), 0);
    return version;
  }
  static std::string System() {
    char name[129] = {};
    EXPECT_EQ(DB_GetDBMS(name, sizeof name), 0);
    return name;
  }
};

TEST(InterfaceVersion, IsCompatibleUpTo261AndTellsItsOwn) {
  WORD own = 0;
  EXPECT_NE(DB_CheckVersion(261, &own), 0);
  EXPECT_EQ(own, 261);
  own = 0;
  EXPECT_EQ(DB_CheckVersion(262, &own), 0);
  EXPECT_EQ(own, 261);
  EXPECT_NE(DB_CheckVersion(0, &own), 0);
  EXPECT_EQ(DB_CheckVersion(65535, &own), 0);
}

TEST(InterfaceVersion, MayBeAskedWithoutAnOutput) {
  EXPECT_NE(DB_CheckVersion(261, nullptr), 0);
  EXPECT_EQ(DB_CheckVersion(262, nullptr), 0);
}

TEST_F(Information, NamesDataSourceAndDatabase) {
  ASSERT_EQ(Connect(), 0);
  tagDBINFO info;
  std::memset(&info, 0x5A, sizeof info);
  EXPECT_EQ(DB_GetInfo(&info), 0);
  EXPECT_EQ(Text(info.szDSN), m_practice.Dsn());
  const std::string database = DB_GetDatabase()->GetDatabaseName().GetString();
  EXPECT_NE(database, "");
  EXPECT_EQ(Text(info.szDatabase), database.substr(0, 32));
  for (const BYTE byte : info.abReserved) EXPECT_EQ(byte, 0);
}

TEST_F(Information, ANullInformationRecordGivesOne) {
  EXPECT_EQ(DB_GetInfo(nullptr), 1);
  ASSERT_EQ(Connect(), 0);
  EXPECT_EQ(DB_GetInfo(nullptr), 1);
}

TEST_F(Information, WithoutAConnectionTheRecordStaysAsItIs) {
  tagDBINFO info;
  std::memset(&info, 0x5A, sizeof info);
  EXPECT_EQ(DB_GetInfo(&info), 3);
  EXPECT_EQ(info.szDSN[0], 0x5A);
}

TEST_F(Information, TheVersionMayBeAskedWithoutAnOutput) {
  EXPECT_EQ(DB_GetDBVersion(nullptr), 0);
  ASSERT_EQ(Connect(), 0);
  EXPECT_EQ(DB_GetDBVersion(nullptr), 0);
}

TEST_F(Information, VersionAndSystemComeFromTheSettings) {
  Raw().Exec("UPDATE TConfig SET tCfgSSet='Some System' WHERE tCfgSKey='DBMS'");
  SetVersion("4.25");
  ASSERT_EQ(Connect(), 0);
  EXPECT_DOUBLE_EQ(Version(), 4.25);
  EXPECT_EQ(System(), "Some System");
}

TEST_F(Information, WithoutTheSettingsTheVersionIsZeroAndTheSystemUnknown) {
  RemoveSetting("DBVersion");
  RemoveSetting("DBMS");
  ASSERT_EQ(Connect(), 0);
  EXPECT_DOUBLE_EQ(Version(), 0.0);
  EXPECT_EQ(System(), "Unknown");
}

TEST_F(Information, WithoutTheConfigurationTableItStillConnects) {
  TakeAway("TConfig");
  EXPECT_EQ(Connect(), 0);
  EXPECT_DOUBLE_EQ(Version(), 0.0);
  EXPECT_EQ(System(), "Unknown");
}

TEST_F(Information, VersionAndSystemOutliveTheConnection) {
  ASSERT_EQ(Connect(), 0);
  const std::string system = System();
  ASSERT_EQ(DB_CloseDatabase(), 0);
  EXPECT_DOUBLE_EQ(Version(), 4.0);
  EXPECT_EQ(System(), system);
}

TEST_F(Information, TheSystemsNameNeedsRoomForItsZeroByte) {
  RemoveSetting("DBMS");
  ASSERT_EQ(Connect(), 0);
  char buffer[9];
  std::memset(buffer, 'x', sizeof buffer);
  EXPECT_EQ(DB_GetDBMS(buffer, 8), 0);
  EXPECT_STREQ(buffer, "Unknown");
  std::memset(buffer, 'x', sizeof buffer);
  EXPECT_EQ(DB_GetDBMS(buffer, 7), 1);
  EXPECT_STREQ(buffer, "Unknow");
  EXPECT_EQ(buffer[7], 'x');
}

TEST_F(Information, NoBufferOrNoRoomGivesOneAndWritesNothing) {
  ASSERT_EQ(Connect(), 0);
  char buffer[4] = {'x', 'x', 'x', 'x'};
  EXPECT_EQ(DB_GetDBMS(nullptr, 10), 1);
  EXPECT_EQ(DB_GetDBOwner(nullptr, 10), 1);
  EXPECT_EQ(DB_GetDBMS(buffer, 0), 1);
  EXPECT_EQ(DB_GetDBMS(buffer, -5), 1);
  EXPECT_EQ(DB_GetDBOwner(buffer, 0), 1);
  EXPECT_EQ(std::string(buffer, 4), "xxxx");
}

class InformationWithoutAnOwner : public support::PracticeTest {
 protected:
  InformationWithoutAnOwner() : PracticeTest({.with_owner = false}) {}
};

TEST_F(InformationWithoutAnOwner, TellsAnEmptyOwner) {
  ASSERT_EQ(Connect(), 0);
  char buffer[2] = {'x', 'x'};
  EXPECT_EQ(DB_GetDBOwner(buffer, 1), 0);
  EXPECT_STREQ(buffer, "");
}

TEST_F(Information, ACutOwnerGivesOne) {
  StoreOwner("practice.");
  char buffer[10] = {};
  EXPECT_EQ(DB_GetDBOwner(buffer, 10), 0);
  EXPECT_STREQ(buffer, "practice.");
  EXPECT_EQ(DB_GetDBOwner(buffer, 9), 1);
  EXPECT_STREQ(buffer, "practice");
}

TEST_F(Information, ACutNeverSplitsACharacter) {
  StoreOwner("a\xC3\xBC.");
  char buffer[5] = {};
  EXPECT_EQ(DB_GetDBOwner(buffer, 3), 1);
  EXPECT_STREQ(buffer, "a");
  EXPECT_EQ(DB_GetDBOwner(buffer, 4), 1);
  EXPECT_STREQ(buffer, "a\xC3\xBC");
}

// --- keep-alive ---

using KeepAlive = Information;

TEST_F(KeepAlive, DatabasesBeforeVersion4AreNotAsked) {
  ForgetVersion4();
  RemovePing();
  ASSERT_EQ(Connect(), 0);
  EXPECT_DOUBLE_EQ(Version(), 3.9);
  EXPECT_EQ(DB_OpenTPat(), 0);
  EXPECT_EQ(DB_OpenPatEx(), 0);
}

TEST_F(KeepAlive, FromVersion4OnTheProcedureIsCalled) {
  ASSERT_EQ(Connect(), 0);
  EXPECT_EQ(DB_OpenTPat(), 0);
  EXPECT_EQ(DB_OpenPatEx(), 0);
}

TEST_F(KeepAlive, ALivingConnectionWithoutTheProcedureDoesNotOpenThePatients) {
  ForgetVersion4();
  RemovePing();
  SetVersion("4.0");
  ASSERT_EQ(Connect(), 0);
  EXPECT_DOUBLE_EQ(Version(), 4.0);
  EXPECT_EQ(DB_OpenTPat(), 3);
  EXPECT_EQ(DB_OpenPatEx(), 3);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
  EXPECT_EQ(DB_OpenTStat(), 0);
}

TEST_F(KeepAlive, OnceVersion4WasSeenEveryConnectionNeedsTheProcedure) {
  ASSERT_EQ(Connect(), 0);
  ASSERT_EQ(DB_CloseDatabase(), 0);
  RemovePing();
  EXPECT_EQ(Connect(), 3);
  EXPECT_EQ(DB_IsDatabaseOpen(), 0);
  EXPECT_EQ(DB_GetDatabase(), nullptr);
}

TEST_F(KeepAlive, OpeningThePatientsRestoresALostConnection) {
  ASSERT_EQ(Connect(), 0);
  ASSERT_EQ(DB_OpenTStat(), 0);
  ASSERT_EQ(DB_OpenTPat(), 0);
  DropConnection();
  ASSERT_EQ(DB_IsDatabaseOpen(), 0);
  EXPECT_EQ(DB_OpenTPat(), 0);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
  EXPECT_NE(DB_IsTPatOpen(), 0);
  EXPECT_EQ(DB_IsTStatOpen(), 0);  // a new set, not opened yet
  EXPECT_EQ(DB_OpenTStat(), 0);
}

TEST_F(KeepAlive, OpeningTheJoinedViewRestoresALostConnection) {
  ASSERT_EQ(Connect(), 0);
  DropConnection();
  EXPECT_EQ(DB_OpenPatEx(), 0);
  EXPECT_NE(DB_IsPatExOpen(), 0);
}

TEST_F(KeepAlive, ARestoredConnectionDoesNotReadTheVersionAgain) {
  ASSERT_EQ(Connect(), 0);
  SetVersion("5.0");
  DropConnection();
  ASSERT_EQ(DB_OpenTPat(), 0);
  EXPECT_DOUBLE_EQ(Version(), 4.0);
}

TEST_F(KeepAlive, GivesUpWhenTheConnectionCannotBeRestored) {
  ASSERT_EQ(Connect(), 0);
  RemovePing();
  DropConnection();
  EXPECT_EQ(DB_OpenTPat(), 3);
  EXPECT_EQ(DB_IsDatabaseOpen(), 0);
  EXPECT_EQ(DB_GetDatabase(), nullptr);
  EXPECT_EQ(DB_OpenTStat(), 3);
  EXPECT_EQ(DB_OpenTPat(), 3);
}

TEST_F(KeepAlive, OnALostConnectionOtherCallsGiveACodeAndDoNotCrash) {
  ASSERT_EQ(Connect(), 0);
  ASSERT_EQ(DB_OpenTStat(), 0);
  DropConnection();
  EXPECT_EQ(DB_IsTStatOpen(), 0);
  EXPECT_EQ(DB_MoveToTStatByPos(1), 0);
  EXPECT_EQ(DB_OpenTStat(), 31);
  tagTSTATION station{};
  station.lStatID = 1;
  EXPECT_EQ(DB_GetTStat(&station), 3);
  EXPECT_EQ(DB_CloseTStat(), 0);
}

}  // namespace
