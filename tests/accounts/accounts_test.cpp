// Accounts made by the scripts work with rows and do nothing else.
#include <memory>
#include <stdexcept>
#include <vector>

#include "tests/accounts/scripts.h"
#include "tests/flat/family.h"

namespace accounts {
namespace {

class Accounts : public Scripts {
 protected:
  template <class Table>
  static void ExpectUsable() {
    SCOPED_TRACE(Table::kName);
    typename Table::Record record = Table::Fill(1);
    EXPECT_EQ(Table::Add(&record), 0);
    LONG key = 0;
    EXPECT_EQ(Table::LastID(&key), 0);
    family::SetKey(&record, key);
    EXPECT_EQ(Table::Edit(&record), 0);
    EXPECT_EQ(Table::Open(), 0);
    EXPECT_EQ(Table::GetByPos(1, &record), 0);
    family::SetKey(&record, key);
    EXPECT_EQ(Table::Delete(&record), 0);
  }
  static void ExpectAllUsable() {
    ExpectUsable<family::Doctors>();
    ExpectUsable<family::Stations>();
    ExpectUsable<family::Units>();
    ExpectUsable<family::Patients>();
    ExpectUsable<family::Images>();
    ExpectUsable<family::Makros>();
    ExpectUsable<family::Groups>();
    ExpectUsable<family::Diagnoses>();
    ExpectUsable<family::Configs>();
    ExpectUsable<family::Tests>();
    EXPECT_EQ(DB_OpenPatEx(), 0);
  }
  // A session of the account past the library.
  std::unique_ptr<support::RawOdbc> Session(const std::string& more = {}) {
    return std::make_unique<support::RawOdbc>("DSN=" + m_practice.Dsn() + ";UID=xray;PWD={" + kPassword +
                                              "}" + more);
  }
  static bool May(support::RawOdbc& session, const std::string& sql) {
    try {
      session.Query(sql);
      return true;
    } catch (const std::runtime_error&) {
      return false;
    }
  }
  static std::vector<std::string> Forbidden() {
    std::vector<std::string> statements = {
        "CREATE TABLE TMine (a int)",     "DROP TABLE TStation",
        "ALTER TABLE TStation ADD a int", "CREATE INDEX mine ON TStation (tStatSName)",
        "CREATE VIEW mine AS SELECT 1",   "DROP VIEW TStationRaw",
        "CREATE DATABASE mine",
    };
    const std::vector<std::string> more =
        OnMariadb()
            ? std::vector<
                  std::string>{"SELECT * FROM mysql.user",
                               "GRANT SELECT ON TStation TO practice",
                               "CREATE USER mine",
                               "SET GLOBAL sql_mode = ''",
                               "SELECT * FROM TStation INTO OUTFILE '/tmp/kyodbc-stolen'",
                               "CREATE PROCEDURE mine() SELECT 1",
                               "DROP PROCEDURE spky_ping",
                               "CREATE TRIGGER mine BEFORE INSERT ON TStation FOR EACH ROW SET @a = 1",
                               "TRUNCATE TABLE TStation"}
            : std::vector<std::string>{"SELECT * FROM pg_authid",
                                       "CREATE ROLE mine",
                                       "ALTER SYSTEM SET fsync = off",
                                       "COPY TStation TO '/tmp/kyodbc-stolen'",
                                       "COPY TStation FROM PROGRAM 'true'",
                                       "CREATE TEMPORARY TABLE mine (a int)",
                                       "CREATE FUNCTION mine() RETURNS int LANGUAGE sql AS 'SELECT 1'",
                                       "DROP FUNCTION spky_ping()",
                                       "TRUNCATE TStation",
                                       "SET ROLE practice"};
    statements.insert(statements.end(), more.begin(), more.end());
    return statements;
  }
};

TEST_F(Accounts, WorkWithAllRowsAndDoNothingElse) {
  ASSERT_TRUE(MakeAccount());
  ASSERT_EQ(ConnectAs("xray", kPassword), 0);
  ExpectAllUsable();
  const auto session = Session();
  EXPECT_TRUE(May(*session, "SELECT * FROM TStation"));
  for (const std::string& sql : Forbidden()) EXPECT_FALSE(May(*session, sql)) << sql;
}

TEST_F(Accounts, ReadOnlyOnesReadAndChangeNothing) {
  ASSERT_TRUE(MakeAccount("--read-only"));
  ASSERT_EQ(ConnectAs("xray", kPassword), 0);
  tagTSTATION station = family::Stations::Fill(1);
  EXPECT_EQ(DB_AddNewTStat(&station), 6);
  EXPECT_EQ(DB_WriteProfileString("Key", "-", "value"), 6);
  EXPECT_EQ(DB_OpenTStat(), 0);
  EXPECT_EQ(DB_GetTStatByPos(1, &station), 0);
  EXPECT_EQ(DB_DeleteTStatByPos(1), 8);
  EXPECT_EQ(Raw().Count("TStation"), 1);
}

TEST_F(Accounts, AreMadeAnewWithAnotherPasswordAndOtherRights) {
  ASSERT_TRUE(MakeAccount());
  ASSERT_TRUE(MakeAccount("--read-only", "another"));
  EXPECT_EQ(ConnectAs("xray", kPassword), 30);
  ASSERT_EQ(ConnectAs("xray", "another"), 0);
  tagTSTATION station = family::Stations::Fill(1);
  EXPECT_EQ(DB_AddNewTStat(&station), 6);
  ASSERT_TRUE(MakeAccount({}, "another"));
  ASSERT_EQ(ConnectAs("xray", "another"), 0);
  EXPECT_EQ(DB_AddNewTStat(&station), 0);
}

TEST_F(Accounts, OfOnePracticeSeeNoOther) {
  support::Practice other;
  ASSERT_TRUE(MakeAccount());
  tagDBCONNECT parameters = other.Parameters();
  SetText(parameters.szUID, "xray");
  SetText(parameters.szPWD, kPassword);
  if (OnPostgresql()) Raw().Exec("REVOKE ALL ON DATABASE " + other.Database() + " FROM PUBLIC");
  const WORD refused = OnPostgresql() ? 30 : 3;
  EXPECT_EQ(DB_InitDatabase(&parameters), refused);
}

TEST_F(Accounts, AreNotMadeWithoutAPasswordOrAName) {
  EXPECT_FALSE(MakeAccount({}, ""));
  EXPECT_FALSE(Run(OnMariadb() ? "mariadb-accounts.sh" : "postgresql-accounts.sh", kPassword));
}

}  // namespace
}  // namespace accounts
