// Connecting, statements without results, transactions, and what exceptions tell.
#include "platform/cdatabase.h"

#include <memory>
#include <regex>

#include "tests/db/toy_set.h"

namespace {

using toys::Catch;
using toys::CodeOf;
using toys::ToySet;

class DatabaseConnection : public toys::ToyTest {};
class DatabaseStatements : public toys::ToyTest {};
class DatabaseTransactions : public toys::ToyTest {};

TEST_F(DatabaseConnection, BeforeItIsOpenedEverythingAnswersNo) {
  CDatabase database;
  EXPECT_FALSE(database.IsOpen());
  EXPECT_FALSE(database.CanUpdate());
  EXPECT_FALSE(database.CanTransact());
  EXPECT_FALSE(database.BeginTrans());
  EXPECT_FALSE(database.CommitTrans());
  EXPECT_FALSE(database.Rollback());
  EXPECT_STREQ(database.GetDatabaseName(), "");
  EXPECT_STREQ(database.GetConnect(), "");
  database.Close();
  EXPECT_EQ(CodeOf([&] { database.ExecuteSQL("SELECT 1"); }), SQL_ERROR);
}

TEST_F(DatabaseConnection, EveryCombinationOfOptionsConnects) {
  for (const DWORD options : {8u, 9u, 12u, 13u, 0u}) {
    CDatabase database;
    database.SetLoginTimeout(30);
    EXPECT_TRUE(database.OpenEx(Connect(), options)) << options;
    EXPECT_TRUE(database.IsOpen());
    EXPECT_TRUE(database.CanUpdate());
    EXPECT_TRUE(database.CanTransact());
  }
}

TEST_F(DatabaseConnection, ThePrefixIsDropped) {
  for (const char* prefix : {"ODBC;", "odbc;"}) {
    CDatabase database;
    EXPECT_TRUE(database.OpenEx(prefix + Connect()));
    EXPECT_EQ(database.GetConnect().Find("ODBC;"), -1);
  }
}

TEST_F(DatabaseConnection, AnUnknownDataSourceIsAnErrorButNoConnectionFailure) {
  for (const char* connect : {"DSN=NoSuchSource", "DRIVER=NoSuchDriver", "nonsense"}) {
    CDatabase database;
    const toys::Thrown thrown = Catch([&] { database.OpenEx(connect, CDatabase::noOdbcDialog); });
    EXPECT_EQ(thrown.code, SQL_ERROR) << connect;
    EXPECT_FALSE(thrown.error.empty());
    EXPECT_FALSE(database.IsOpen());
  }
}

TEST_F(DatabaseConnection, NothingToConnectToIsAConnectionFailure) {
  for (const char* connect : {"", "ODBC;", static_cast<const char*>(nullptr)}) {
    CDatabase database;
    EXPECT_EQ(CodeOf([&] { database.OpenEx(connect); }), AFX_SQL_ERROR_CONNECT_FAIL);
    EXPECT_FALSE(database.IsOpen());
  }
  EXPECT_EQ(AFX_SQL_ERROR_CONNECT_FAIL, 1001);
}

TEST_F(DatabaseConnection, OpeningAnOpenDatabaseConnectsAnew) {
  ToySet set(&m_database);
  set.Open();
  EXPECT_TRUE(m_database.OpenEx(Connect()));
  EXPECT_TRUE(m_database.IsOpen());
  EXPECT_FALSE(set.IsOpen());
  EXPECT_NE(CodeOf([&] { m_database.OpenEx("DSN=NoSuchSource"); }), 0);
  EXPECT_FALSE(m_database.IsOpen());
}

TEST_F(DatabaseConnection, ItMayBeClosedTwiceAndOpenedAgain) {
  m_database.Close();
  EXPECT_FALSE(m_database.IsOpen());
  m_database.Close();
  EXPECT_TRUE(m_database.OpenEx(Connect()));
  EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(DatabaseConnection, ClosingEndsEveryOpenSet) {
  AddToys(2);
  std::vector<std::unique_ptr<ToySet>> sets;
  for (int i = 0; i < 12; ++i) {
    sets.push_back(std::make_unique<ToySet>(&m_database));
    sets.back()->Open();
  }
  sets.erase(sets.begin() + 5);
  m_database.Close();
  for (const auto& set : sets) EXPECT_FALSE(set->IsOpen());
}

TEST_F(DatabaseConnection, OpenedForReadingItsSetsCannotBeChanged) {
  AddToys(1);
  CDatabase database;
  database.OpenEx(Connect(), CDatabase::openReadOnly);
  EXPECT_FALSE(database.CanUpdate());
  ToySet set(&database);
  set.Open();
  EXPECT_FALSE(set.CanUpdate());
  EXPECT_FALSE(set.CanAppend());
}

TEST_F(DatabaseConnection, TheNameIsTheDriversAndNothingWhenClosed) {
  EXPECT_FALSE(m_database.GetDatabaseName().IsEmpty());
  m_database.Close();
  EXPECT_STREQ(m_database.GetDatabaseName(), "");
}

TEST_F(DatabaseConnection, TheConnectionStringIsShownWithoutItsPassword) {
  const std::string given = support::CurrentKind().Password();
  const std::string password = given.empty() ? "{hun;ter2};Timeout=geheim" : given;
  const std::string source = "DSN=" + m_practice.Dsn() + ";UID=" + support::CurrentKind().User();
  CDatabase database;
  for (const char* key : {";PWD=", ";pwd="}) {
    database.OpenEx(std::string(source).append(key).append(password).c_str());
    const CString shown = database.GetConnect();
    EXPECT_NE(shown.Find(("DSN=" + m_practice.Dsn()).c_str()), -1);
    for (const char* secret : {"hun", "ter2", "geheim", "secret"}) EXPECT_EQ(shown.Find(secret), -1) << shown;
  }
}

TEST_F(DatabaseConnection, ItTellsItsClass) {
  EXPECT_STREQ(m_database.GetRuntimeClass()->m_lpszClassName, "CDatabase");
  EXPECT_TRUE(m_database.IsKindOf(&CObject::classCObject));
}

TEST_F(DatabaseStatements, AStatementIsRunAndCommittedAtOnce) {
  m_database.ExecuteSQL("INSERT INTO Toy (tToyId, tToyName) VALUES (1, 'a')");
  EXPECT_EQ(m_raw.Count("Toy"), 1);
}

TEST_F(DatabaseStatements, RowsOfAResultAreDropped) {
  AddToys(100);
  m_database.ExecuteSQL("SELECT * FROM Toy");
  m_database.ExecuteSQL("{call spky_ping}");
  EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(DatabaseStatements, ChangingNoRowIsNoFailure) {
  m_database.ExecuteSQL("UPDATE Toy SET tToyName='a' WHERE tToyId=99");
  m_database.ExecuteSQL("DELETE FROM Toy");
  EXPECT_EQ(m_raw.Count("Toy"), 0);
}

TEST_F(DatabaseStatements, AFailureThrowsAndTheConnectionLives) {
  for (const char* sql :
       {"DELETE FROM NoSuchTable", "no sql at all", "INSERT INTO Toy (nowhere) VALUES (1)"}) {
    EXPECT_EQ(CodeOf([&] { m_database.ExecuteSQL(sql); }), SQL_ERROR) << sql;
    EXPECT_TRUE(m_database.IsOpen());
  }
  m_database.ExecuteSQL("DELETE FROM Toy");
}

TEST_F(DatabaseStatements, NoStatementDoesNotCrash) {
  CodeOf([&] { m_database.ExecuteSQL(nullptr); });
  CodeOf([&] { m_database.ExecuteSQL(""); });
  EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(DatabaseStatements, AnExceptionTellsTheMessageWithoutItsOriginAndTheStateWithIt) {
  const toys::Thrown thrown = Catch([&] { m_database.ExecuteSQL("DELETE FROM NoSuchTable"); });
  EXPECT_NE(toys::LowerCase(thrown.error).find("nosuchtable"), std::string::npos) << thrown.error;
  EXPECT_NE(thrown.error.front(), '[');
  EXPECT_TRUE(std::regex_match(thrown.origin, std::regex(R"(State:.{5},Native:-?[0-9]+,Origin:(\[.*\])?)")))
      << thrown.origin;
}

TEST_F(DatabaseStatements, AnExceptionOfTheFrameworksOwnTellsAReasonAndNoState) {
  const toys::Thrown thrown =
      Catch([&] { AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE, &m_database, nullptr); });
  EXPECT_EQ(thrown.code, AFX_SQL_ERROR_ILLEGAL_MODE);
  EXPECT_FALSE(thrown.error.empty());
  EXPECT_EQ(thrown.origin, "");
  EXPECT_EQ(Catch([] { AfxThrowDBException(SQL_ERROR, nullptr, nullptr); }).code, SQL_ERROR);
}

TEST_F(DatabaseStatements, AnExceptionIsCaughtByItsBase) {
  bool caught = false;
  try {
    m_database.ExecuteSQL("DELETE FROM NoSuchTable");
  } catch (CException* exception) {
    exception->Delete();
    caught = true;
  }
  EXPECT_TRUE(caught);
}

TEST_F(DatabaseTransactions, CommittedChangesStay) {
  EXPECT_TRUE(m_database.BeginTrans());
  m_database.ExecuteSQL("INSERT INTO Toy (tToyId) VALUES (1)");
  EXPECT_EQ(m_raw.Count("Toy"), 0);
  EXPECT_TRUE(m_database.CommitTrans());
  EXPECT_EQ(m_raw.Count("Toy"), 1);
}

TEST_F(DatabaseTransactions, RolledBackChangesAreGone) {
  EXPECT_TRUE(m_database.BeginTrans());
  m_database.ExecuteSQL("INSERT INTO Toy (tToyId) VALUES (1)");
  EXPECT_TRUE(m_database.Rollback());
  EXPECT_EQ(m_raw.Count("Toy"), 0);
}

TEST_F(DatabaseTransactions, AfterTheEndChangesAreCommittedAtOnceAgain) {
  for (const bool commit : {true, false}) {
    EXPECT_TRUE(m_database.BeginTrans());
    EXPECT_TRUE(commit ? m_database.CommitTrans() : m_database.Rollback());
    m_database.ExecuteSQL("INSERT INTO Toy (tToyName) VALUES ('a')");
  }
  EXPECT_EQ(m_raw.Count("Toy"), 2);
}

TEST_F(DatabaseTransactions, ASecondBeginAnswersZeroAndChangesNothing) {
  EXPECT_TRUE(m_database.BeginTrans());
  m_database.ExecuteSQL("INSERT INTO Toy (tToyId) VALUES (1)");
  EXPECT_FALSE(m_database.BeginTrans());
  EXPECT_EQ(m_raw.Count("Toy"), 0);
  EXPECT_TRUE(m_database.Rollback());
  EXPECT_EQ(m_raw.Count("Toy"), 0);
}

TEST_F(DatabaseTransactions, AnEndWithoutABeginAnswersZero) {
  EXPECT_FALSE(m_database.CommitTrans());
  EXPECT_FALSE(m_database.Rollback());
  EXPECT_TRUE(m_database.BeginTrans());
  EXPECT_TRUE(m_database.CommitTrans());
  EXPECT_FALSE(m_database.CommitTrans());
}

TEST_F(DatabaseTransactions, ClosingAndDestructionRollBack) {
  m_database.BeginTrans();
  m_database.ExecuteSQL("INSERT INTO Toy (tToyId) VALUES (1)");
  m_database.Close();
  EXPECT_EQ(m_raw.Count("Toy"), 0);
  {
    CDatabase database;
    database.OpenEx(Connect());
    database.BeginTrans();
    database.ExecuteSQL("INSERT INTO Toy (tToyId) VALUES (1)");
  }
  EXPECT_EQ(m_raw.Count("Toy"), 0);
  m_database.OpenEx(Connect());
  EXPECT_FALSE(m_database.CommitTrans());
  m_database.ExecuteSQL("INSERT INTO Toy (tToyId) VALUES (1)");
  EXPECT_EQ(m_raw.Count("Toy"), 1);
}

TEST_F(DatabaseTransactions, ATransactionCoversTheChangesOfSets) {
  AddToys(1);
  ToySet set(&m_database);
  set.Open();
  m_database.BeginTrans();
  set.Edit();
  set.m_name = "changed";
  set.Update();
  set.AddNew();
  set.m_id = 2;
  set.Update();
  set.Delete();
  EXPECT_EQ(StoredText("tToyName"), "toy1");
  EXPECT_TRUE(m_database.Rollback());
  EXPECT_EQ(StoredText("tToyName"), "toy1");
  EXPECT_EQ(m_raw.Count("Toy"), 1);
}

}  // namespace
