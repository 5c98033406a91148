// The practice that all tests stand on, seen without the library.
#include "tests/support/practice.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"

using support::Practice;
using support::PracticeOptions;
using support::RawOdbc;
using support::Tables;

namespace {

class PracticeOfBothKinds : public testing::TestWithParam<Tables> {
 protected:
  Practice m_practice{{.tables = GetParam()}};
  RawOdbc m_raw{m_practice};
};
INSTANTIATE_TEST_SUITE_P(Tables, PracticeOfBothKinds,
                         testing::Values(Tables::kShortNames, Tables::kFullNames));

TEST_P(PracticeOfBothKinds, HoldsTheDefaultRowsUnderBothNames) {
  for (const std::string raw : {"", "Raw"}) {
    EXPECT_EQ(m_raw.Text("SELECT tDrSName FROM TDoctor" + raw + " WHERE tDrCulIntDrIDPk = 1"), "-");
    EXPECT_EQ(m_raw.Text("SELECT tStatSName FROM TStation" + raw + " WHERE tStatCulIntStatIDPk = 1"), "-");
    EXPECT_EQ(m_raw.Text("SELECT tUnitSName FROM TUnit" + raw + " WHERE tUnitCulIntUnitIDPk = 1"), "-");
    EXPECT_EQ(m_raw.Count("TPatient" + raw), 0);
  }
}

TEST_P(PracticeOfBothKinds, HoldsTheSettingsReadAtEveryConnection) {
  const std::string value =
      "SELECT tCfgSSet FROM TConfig WHERE tCfgCulIntDrIDFk=1 AND tCfgCulIntStatIDFk=1 AND ";
  EXPECT_EQ(m_raw.Text(value + "tCfgSKey='DBVersion'"), "4.0");
  EXPECT_NE(m_raw.Text(value + "tCfgSKey='DBMS'"), "");
  EXPECT_EQ(m_raw.Count("TConfig"), 2);
}

TEST_P(PracticeOfBothKinds, AssignsAKeyThatAnInsertLeavesOut) {
  m_raw.Exec("INSERT INTO TStation (tStatSName) VALUES ('short')");
  m_raw.Exec("INSERT INTO TStationRaw (tStatSName) VALUES ('full')");
  EXPECT_EQ(m_raw.Number("SELECT tStatCulIntStatIDPk FROM TStationRaw WHERE tStatSName='short'"), 2);
  EXPECT_EQ(m_raw.Number("SELECT tStatCulIntStatIDPk FROM TStation WHERE tStatSName='full'"), 3);
}

TEST_P(PracticeOfBothKinds, KeepsAKeyThatAnInsertGives) {
  m_raw.Exec("INSERT INTO TUnit (tUnitCulIntUnitIDPk, tUnitSName) VALUES (70, 'short')");
  m_raw.Exec("INSERT INTO TUnitRaw (tUnitCulIntUnitIDPk, tUnitSName) VALUES (80, 'full')");
  EXPECT_EQ(m_raw.Number("SELECT tUnitCulIntUnitIDPk FROM TUnitRaw WHERE tUnitSName='short'"), 70);
  EXPECT_EQ(m_raw.Number("SELECT tUnitCulIntUnitIDPk FROM TUnit WHERE tUnitSName='full'"), 80);
}

TEST_P(PracticeOfBothKinds, UpdatesAndDeletesUnderBothNamesTouchOneRow) {
  m_raw.Exec("INSERT INTO TDoctor (tDrCulIntDrIDPk, tDrSName, tDrSSrvID) VALUES (5, 'Maier', 'm')");
  m_raw.Exec("INSERT INTO TDoctor (tDrCulIntDrIDPk, tDrSName) VALUES (6, 'Huber')");
  m_raw.Exec("UPDATE TDoctorRaw SET tDrSAdd='more' WHERE tDrCulIntDrIDPk=5");
  m_raw.Exec("UPDATE TDoctor SET tDrSName='Mayr' WHERE tDrCulIntDrIDPk=5");
  const auto rows =
      m_raw.Query("SELECT tDrSName, tDrSSrvID, tDrSAdd FROM TDoctorRaw WHERE tDrCulIntDrIDPk=5");
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0], (support::Row{"Mayr", "m", "more"}));
  m_raw.Exec("DELETE FROM TDoctorRaw WHERE tDrCulIntDrIDPk=5");
  m_raw.Exec("DELETE FROM TDoctor WHERE tDrCulIntDrIDPk=6");
  EXPECT_EQ(m_raw.Count("TDoctor"), 1);
}

TEST(Practice, RemovesItsFolderAndTheOdbcFiles) {
  std::filesystem::path folder;
  {
    const Practice practice;
    folder = practice.Folder();
    EXPECT_TRUE(std::filesystem::exists(folder.parent_path() / "odbc.ini"));
  }
  EXPECT_FALSE(std::filesystem::exists(folder.parent_path()));
}

TEST(Practice, TwoAtATimeDoNotMeet) {
  const Practice first;
  const Practice second;
  RawOdbc one(first);
  RawOdbc two(second);
  one.Exec("INSERT INTO TStation (tStatSName) VALUES ('only here')");
  EXPECT_EQ(one.Count("TStation"), 2);
  EXPECT_EQ(two.Count("TStation"), 1);
}

TEST(Practice, TheOwnerPrefixNamesTheSameTables) {
  const Practice practice({.with_owner = true});
  RawOdbc raw(practice);
  EXPECT_FALSE(practice.Owner().empty());
  EXPECT_EQ(support::Text(practice.Parameters().szOwner), practice.Owner());
  EXPECT_EQ(raw.Count(practice.Owner() + "TStation"), 1);
}

TEST(Practice, AnotherSourceReachesTheSameDatabase) {
  Practice practice;
  practice.AddSource("another");
  RawOdbc raw("DSN=another");
  raw.Exec("INSERT INTO TStation (tStatSName) VALUES ('x')");
  EXPECT_EQ(RawOdbc(practice).Count("TStation"), 2);
}

TEST(RawOdbc, ReadsLongTextsNullsAndParameters) {
  const Practice practice;
  RawOdbc raw(practice);
  const std::string text(10000, 'x');
  raw.Query("INSERT INTO TStation (tStatSName, tStatSAdd) VALUES (?, ?)", {"O'Neil", text});
  EXPECT_EQ(raw.Text("SELECT tStatSAdd FROM TStation WHERE tStatSName='O''Neil'"), text);
  EXPECT_EQ(raw.Scalar("SELECT tStatSAdd FROM TStation WHERE tStatCulIntStatIDPk=1"), std::nullopt);
  EXPECT_THROW(raw.Exec("SELECT * FROM NoSuchTable"), std::runtime_error);
}

}  // namespace
