// Data sources that cannot be connected to, databases that cannot be written to: the codes, and what is left.
#include <chrono>
#include <fstream>
#include <string>

#include "frame/KyODBC.h"
#include "tests/support/broken_source.h"
#include "tests/support/documented.h"
#include "tests/support/fixtures.h"

namespace {

using support::BrokenSource;
using support::SetText;

constexpr double kQuick = 10;  // seconds; far below the login time-out

// How a session of a kind is made to refuse changes and to take them again.
struct KindOfFailure {
  const char* driver;
  const char* read_only;
  const char* writable;
};

constexpr KindOfFailure kKinds[] = {
    {"SQLite3",    "PRAGMA query_only=1",                  "PRAGMA query_only=0"                  },
    {"PostgreSQL", "SET default_transaction_read_only=on", "SET default_transaction_read_only=off"},
    {"MariaDB",    "SET SESSION TRANSACTION READ ONLY",    "SET SESSION TRANSACTION READ WRITE"   },
};

// A login that is refused is a connection failure. The embedded database asks for no password.
WORD CodeOfWrongPassword() {
  return support::Documented("wrong password") == "not asked for" ? WORD{0} : WORD{30};
}

// A database that a server does not have is a connection failure only where its driver calls it so. The
// embedded database is missing when its folder is.
WORD CodeOfMissingDatabase() {
  return support::Documented("database that is not there") == "30" ? WORD{30} : WORD{3};
}

const KindOfFailure& ThisKind() {
  for (const KindOfFailure& kind : kKinds) {
    if (support::CurrentKind().DriverName() == kind.driver) return kind;
  }
  throw std::runtime_error("a kind without a row");
}

class ConnectFailures : public support::PracticeTest {
 protected:
  WORD ConnectTo(const std::string& dsn, const char* password = nullptr) {
    tagDBCONNECT parameters = m_practice.Parameters();
    SetText(parameters.szDSN, dsn);
    if (password != nullptr) SetText(parameters.szPWD, password);
    const auto start = std::chrono::steady_clock::now();
    const WORD code = DB_InitDatabase(&parameters);
    EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), kQuick);
    return code;
  }
  // The failure leaves nothing open, and the right data source can be connected to afterwards.
  void ExpectRecovery() {
    EXPECT_EQ(DB_IsDatabaseOpen(), 0);
    EXPECT_EQ(DB_GetDatabase(), nullptr);
    EXPECT_EQ(Connect(), 0);
  }
};

TEST_F(ConnectFailures, AWrongPasswordIsAConnectionFailureWhereOneIsAskedFor) {
  EXPECT_EQ(ConnectTo(m_practice.Dsn(), "wrong"), CodeOfWrongPassword());
  DB_CloseDatabase();
  ExpectRecovery();
}

TEST_F(ConnectFailures, AnUnknownDataSourceGives3) {
  EXPECT_EQ(ConnectTo("no such source"), 3);
  ExpectRecovery();
}

TEST_F(ConnectFailures, ADriverThatIsNotInstalledGives3) {
  const BrokenSource unknown(m_practice, {}, "No such driver");
  EXPECT_EQ(ConnectTo(unknown.Dsn()), 3);
  support::OdbcHome::Hold()->AddDriver("Lost", "/nowhere/libnothing.so");
  const BrokenSource lost(m_practice, {}, "Lost");
  EXPECT_EQ(ConnectTo(lost.Dsn()), 3);
  ExpectRecovery();
}

TEST_F(ConnectFailures, ADatabaseThatDoesNotExistIsNotConnectedTo) {
  const BrokenSource source(m_practice,
                            {
                                {"Database", support::HasServer(m_practice) ? "no_such" : "/nowhere/no.db"}
  });
  EXPECT_EQ(ConnectTo(source.Dsn()), CodeOfMissingDatabase());
  ExpectRecovery();
}

TEST_F(ConnectFailures, AFileThatIsNoDatabaseGives3) {
  if (support::HasServer(m_practice)) {
    // A server has databases, not files: the name of one is the name of a database that does not exist.
    const BrokenSource source(m_practice, {
                                              {"Database", "/etc/passwd"}
    });
    EXPECT_EQ(ConnectTo(source.Dsn()), CodeOfMissingDatabase());
  } else {
    const std::string file = m_practice.Folder() / "text.db";
    std::ofstream(file) << std::string(5000, 'x');
    const BrokenSource source(m_practice, {
                                              {"Database", file}
    });
    EXPECT_EQ(ConnectTo(source.Dsn()), 3);
  }
  ExpectRecovery();
}

TEST_F(ConnectFailures, AFolderInTheDatabasesPlaceIsNotConnectedTo) {
  const BrokenSource source(m_practice, {
                                            {"Database", m_practice.Folder()}
  });
  EXPECT_EQ(ConnectTo(source.Dsn()), CodeOfMissingDatabase());
  ExpectRecovery();
}

TEST_F(ConnectFailures, AServerThatRefusesOrIsUnknownIsAConnectionFailure) {
  if (!support::HasServer(m_practice)) {
    const BrokenSource source(m_practice, {
                                              {"Port", "1"}
    });
    EXPECT_EQ(ConnectTo(source.Dsn()), 0) << "a database without a server has no port to be refused at";
    return;
  }
  const BrokenSource refused(m_practice, {
                                             {"Port", "1"}
  });
  EXPECT_EQ(ConnectTo(refused.Dsn()), 30);
  const BrokenSource unknown(m_practice,
                             {
                                 {"Server",     "no.such.host.invalid"},
                                 {"Servername", "no.such.host.invalid"}
  });
  EXPECT_EQ(ConnectTo(unknown.Dsn()), 30);
  ExpectRecovery();
}

class RefusedChanges : public support::ConnectedTest {
 protected:
  static WORD AddStation(const std::string& name) {
    tagTSTATION station{};
    SetText(station.szName, name);
    return DB_AddNewTStat(&station);
  }
  static LONG Stations() {
    LONG count = -1;
    EXPECT_EQ(DB_GetNumTStat(&count), 0);
    return count;
  }
};

TEST_F(RefusedChanges, ADatabaseForReadingOnlyCanBeReadAndRefusesChanges) {
  ASSERT_EQ(AddStation("Room 1"), 0);
  ASSERT_EQ(DB_OpenTStat(), 0);
  DB_GetDatabase()->ExecuteSQL(ThisKind().read_only);
  EXPECT_EQ(AddStation("Room 2"), 6);
  tagTSTATION station{};
  SetText(station.szName, "Room 1");
  ASSERT_EQ(DB_GetTStat(&station), 0);
  SetText(station.szName, "Room 9");
  EXPECT_EQ(DB_EditTStat(&station), 6);
  EXPECT_EQ(DB_DeleteTStat(&station), 8);
  EXPECT_EQ(DB_DeleteTStatByPos(2), 8);
  EXPECT_EQ(Stations(), 2);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName='Room 1'"), 1);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
  DB_GetDatabase()->ExecuteSQL(ThisKind().writable);
  EXPECT_EQ(AddStation("Room 2"), 0);
}

class FullDisk : public RefusedChanges {
 protected:
  // The embedded database is limited to the pages that it has. Nobody may fill the disk of a server, so there
  // a trigger answers what the server answers then.
  void Fill() {
    const std::string table =
        support::TablesOfThisRun() == support::Tables::kFullNames ? "TStationRaw" : "TStation";
    const std::string driver = ThisKind().driver;
    if (driver == "SQLite3") {
      DB_GetDatabase()->ExecuteSQL("PRAGMA max_page_count=1");
    } else if (driver == "PostgreSQL") {
      Raw().Exec(
          "CREATE FUNCTION disk_is_full() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN RAISE EXCEPTION "
          "'could not extend file: No space left on device' USING ERRCODE = '53100'; END $$");
      Raw().Exec("CREATE TRIGGER full_disk BEFORE INSERT ON " + table +
                 " FOR EACH ROW EXECUTE FUNCTION disk_is_full()");
    } else {
      Raw().Exec("CREATE TRIGGER full_disk BEFORE INSERT ON " + table +
                 " FOR EACH ROW SIGNAL SQLSTATE 'HY000' SET MYSQL_ERRNO=1021, MESSAGE_TEXT='Disk full'");
    }
  }
};

TEST_F(FullDisk, RefusesTheRowsThatDoNotFitAndKeepsTheOthers) {
  Fill();
  int added = 0;
  WORD code = 0;
  // What room is left in the pages of an embedded database takes a few rows.
  for (; added < 5000; ++added) {
    code = AddStation("Room " + std::to_string(added));
    if (code != 0) break;
  }
  EXPECT_EQ(code, 6);
  EXPECT_EQ(Stations(), 1 + added);
  EXPECT_EQ(Raw().Count("TStation"), 1 + added);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
  ASSERT_EQ(DB_OpenTStat(), 0);
  tagTSTATION station{};
  EXPECT_EQ(DB_GetTStatByPos(1, &station), 0);
}

}  // namespace
