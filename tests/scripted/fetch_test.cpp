// Fetching and counting rows with drivers that answer late, tell no row number or a wrong one, write no zero
// byte or fail.
#include "tests/scripted/play_set.h"

namespace {

using scripted::Catch;
using scripted::PlaySet;
using scripted::PlayTest;
using scripted::Rows;
using scripted::TheScript;

class Fetching : public PlayTest {
 protected:
  void SetUp() override {
    PlayTest::SetUp();
    m_database.OpenEx("DSN=a");
  }
  CDatabase m_database;
};

// Everything a session does, once.
void RunSession(CDatabase& database) {
  database.OpenEx("DSN=a");
  database.ExecuteSQL("DELETE FROM Other");
  PlaySet set(&database);
  ASSERT_TRUE(set.Open());
  set.MoveLast();
  EXPECT_EQ(set.m_id, 5);
  CString text;
  set.GetFieldValue(short{1}, text);
  EXPECT_STREQ(text, "row 5");
  ASSERT_TRUE(database.BeginTrans());
  set.Edit();
  set.m_text = "changed";
  EXPECT_TRUE(set.Update());
  EXPECT_TRUE(database.CommitTrans());
  EXPECT_TRUE(set.Requery());
  EXPECT_EQ(set.m_id, 1);
  EXPECT_STREQ(database.GetDatabaseName(), "played");
  database.Close();
}

class StillExecuting : public PlayTest, public testing::WithParamInterface<const char*> {};

TEST_P(StillExecuting, ACallIsRepeatedUntilItIsDone) {
  CDatabase database;
  RunSession(database);
  const int usually = TheScript().Calls(GetParam());
  ASSERT_GT(usually, 0);
  TheScript().Answer(GetParam(), {SQL_STILL_EXECUTING, SQL_STILL_EXECUTING, SQL_STILL_EXECUTING});
  RunSession(database);
  EXPECT_EQ(TheScript().Calls(GetParam()), 2 * usually + 3);
}

INSTANTIATE_TEST_SUITE_P(Calls, StillExecuting,
                         testing::Values("SQLDriverConnect", "SQLSetConnectAttr", "SQLGetInfo", "SQLPrepare",
                                         "SQLExecute", "SQLExecDirect", "SQLExtendedFetch", "SQLGetData",
                                         "SQLNumResultCols", "SQLDescribeCol", "SQLColAttribute",
                                         "SQLBindCol", "SQLBindParameter", "SQLRowCount", "SQLGetStmtAttr",
                                         "SQLSetStmtAttr", "SQLMoreResults", "SQLFreeStmt", "SQLEndTran",
                                         "SQLDisconnect"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_F(Fetching, InformationOtherThanACutTextCountsAsFailure) {
  PlaySet set(&m_database);
  set.Open();
  for (const scripted::Records& records : {
           scripted::Records{{"01S06"}                    },
           scripted::Records{{"01004"},                     {"01S06"}},
           scripted::Records{{"01000"}                            },
           scripted::Records{                             }
  }) {
    TheScript().Answer("SQLExtendedFetch", {SQL_SUCCESS_WITH_INFO}, records);
    EXPECT_NE(set.ExtendedFetch(SQL_FETCH_ABSOLUTE, 2), SQL_SUCCESS);
  }
}

TEST_F(Fetching, InformationOnlyOfCutTextsIsSuccess) {
  PlaySet set(&m_database);
  set.Open();
  for (const scripted::Records& records : {
           scripted::Records{{"01004"} },
           scripted::Records{ {"01004"}, {"01004"}}
  }) {
    TheScript().Answer("SQLExtendedFetch", {SQL_SUCCESS_WITH_INFO}, records);
    EXPECT_EQ(set.ExtendedFetch(SQL_FETCH_ABSOLUTE, 2), SQL_SUCCESS);
  }
}

TEST_F(Fetching, AFailureThrowsAndTheNextMoveGoesOnFromTheSameRow) {
  PlaySet set(&m_database);
  set.Open();
  set.MoveNext();
  TheScript().Answer("SQLExtendedFetch", {SQL_ERROR}, {{"HY000"}});
  EXPECT_EQ(Catch([&] { set.MoveNext(); }).code, SQL_ERROR);
  EXPECT_EQ(set.m_id, 2);
  EXPECT_FALSE(set.IsEOF());
  set.MoveNext();
  EXPECT_EQ(set.m_id, 3);
  EXPECT_EQ(set.m_lCurrentRecord, 2);
}

TEST_F(Fetching, AFailureOfTheFirstFetchClosesTheSet) {
  PlaySet set(&m_database);
  for (const char* function : {"SQLPrepare", "SQLExecute", "SQLNumResultCols", "SQLDescribeCol",
                               "SQLColAttribute", "SQLBindCol", "SQLExtendedFetch"}) {
    TheScript().Answer(function, {SQL_ERROR}, {{"HY000"}});
    EXPECT_EQ(Catch([&] { set.Open(); }).code, SQL_ERROR) << function;
    EXPECT_FALSE(set.IsOpen());
    set.Open();
    TheScript().Answer(function, {SQL_ERROR}, {{"HY000"}});
    set.m_strFilter = CString("a = '") + function + "'";
    EXPECT_EQ(Catch([&] { set.Requery(); }).code, SQL_ERROR) << function;
    EXPECT_FALSE(set.IsOpen());
  }
}

// How the driver tells the number of the last row: not, right, or wrong by some rows.
enum class Numbers { kNone, kTrue, kAlwaysOne, kAlwaysThree, kHuge };

class CountingRows : public Fetching, public testing::WithParamInterface<std::tuple<int, Numbers>> {
 protected:
  void SetUp() override {
    Fetching::SetUp();
    const Numbers numbers = std::get<1>(GetParam());
    TheScript().true_row_number = numbers == Numbers::kTrue;
    TheScript().row_number = numbers == Numbers::kAlwaysOne     ? 1
                             : numbers == Numbers::kAlwaysThree ? 3
                             : numbers == Numbers::kHuge        ? ~SQLULEN{0}
                                                                : 0;
  }
};

TEST_P(CountingRows, TheLastRowHasTheRightNumberWhateverTheDriverTells) {
  const int rows = std::get<0>(GetParam());
  TheScript().Gives("SELECT id", Rows(rows));
  PlaySet set(&m_database);
  set.Open();
  if (rows == 0) {
    EXPECT_TRUE(set.IsBOF() && set.IsEOF());
    EXPECT_EQ(set.ExtendedFetch(SQL_FETCH_LAST, 0), SQL_NO_DATA);
    return;
  }
  set.MoveLast();
  EXPECT_EQ(set.m_id, rows);
  EXPECT_EQ(set.m_lCurrentRecord, rows - 1);
  set.MoveNext();
  EXPECT_TRUE(set.IsEOF());
  set.MovePrev();
  EXPECT_EQ(set.m_id, rows);
  set.SetAbsolutePosition(-rows);
  EXPECT_EQ(set.m_id, 1);
  EXPECT_EQ(set.m_lCurrentRecord, 0);
  set.SetAbsolutePosition(-rows - 1);
  EXPECT_TRUE(set.IsBOF());
}

INSTANTIATE_TEST_SUITE_P(Sizes, CountingRows,
                         testing::Combine(testing::Values(0, 1, 2, 3, 4, 7, 8, 9, 1000),
                                          testing::Values(Numbers::kNone, Numbers::kTrue, Numbers::kAlwaysOne,
                                                          Numbers::kAlwaysThree, Numbers::kHuge)));

TEST_F(Fetching, ACountThatFailsOnTheWayThrowsAndIsNotRemembered) {
  TheScript().Gives("SELECT id", Rows(100));
  for (const int fetches_before : {0, 1, 2, 5, 9}) {
    PlaySet set(&m_database);
    set.Open();
    std::vector<SQLRETURN> answers(static_cast<std::size_t>(fetches_before), SQL_SUCCESS);
    answers.push_back(SQL_ERROR);
    TheScript().Answer("SQLExtendedFetch", answers, {{"HY000"}});
    EXPECT_EQ(Catch([&] { set.MoveLast(); }).code, SQL_ERROR) << fetches_before;
    EXPECT_FALSE(set.IsEOF());
    set.MoveLast();
    EXPECT_EQ(set.m_id, 100);
    EXPECT_EQ(set.m_lCurrentRecord, 99);
  }
}

TEST_F(Fetching, TextsWithoutAZeroByteEndWhereTheirLengthSays) {
  TheScript().zero_bytes = false;
  const std::string exact(1021, 'e');  // as many bytes as the buffer for a text of 255
  TheScript().Gives("SELECT id", {
                                     {{"id"},              {"text", SQL_VARCHAR, 255}},
                                     { {"1", std::string(1020, 'l')},
                                      {"2", exact},
                                      {"3", std::string(5000, 'o')},
                                      {"4", "short"},
                                      {"5", ""},
                                      {"6", std::nullopt},
                                      {"7", std::string(255, 'm')}}
  });
  PlaySet set(&m_database);
  set.Open();
  const std::string expected[] = {
      std::string(255, 'l'), std::string(255, 'e'), std::string(255, 'o'), "short", "", "",
      std::string(255, 'm')};
  for (const std::string& text : expected) {
    EXPECT_EQ(std::string(set.m_text), text) << set.m_id;
    set.MoveNext();
  }
  EXPECT_TRUE(set.IsEOF());
}

TEST_F(Fetching, ACallWithoutAResultIsAnEmptySet) {
  TheScript().procedures = true;
  m_database.OpenEx("DSN=a");
  CRecordset set(&m_database);
  EXPECT_TRUE(set.Open(CRecordset::snapshot, "{call quiet}", CRecordset::executeDirect));
  EXPECT_TRUE(set.IsOpen());
  EXPECT_TRUE(set.IsBOF() && set.IsEOF());
  EXPECT_EQ(set.GetODBCFieldCount(), 0);
  EXPECT_EQ(TheScript().Sent().back(), "{call quiet}");
}

class CountingChanges : public Fetching {
 protected:
  void Count(int number) { TheScript().Gives("SELECT COUNT(*)", scripted::OneNumber(number)); }
  RETCODE Update(PlaySet& set) {
    set.Edit();
    set.m_text += "x";
    return Catch([&] { set.Update(); }).code;
  }
};

TEST_F(CountingChanges, OneRowIsSuccessInOneStatement) {
  const std::size_t before = TheScript().Sent().size();
  PlaySet set(&m_database);
  set.Open();
  EXPECT_EQ(Update(set), 0);
  EXPECT_EQ(TheScript().Sent().size(), before + 2);
  EXPECT_EQ(TheScript().Sent().back(), "UPDATE Play SET text=? WHERE id=?");
  set.Delete();
  EXPECT_EQ(TheScript().Sent().size(), before + 3);
}

TEST_F(CountingChanges, SeveralRowsThrow) {
  PlaySet set(&m_database);
  set.Open();
  TheScript().row_count = 2;
  EXPECT_EQ(Update(set), AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED);
  EXPECT_EQ(Catch([&] { set.Delete(); }).code, AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED);
}

TEST_F(CountingChanges, ADriverThatSaysNoneIsCheckedBeforeItIsBelieved) {
  for (const bool no_data : {true, false}) {
    TheScript().no_data_for_none = no_data;
    TheScript().row_count = 0;
    PlaySet set(&m_database);
    set.Open();
    Count(1);
    EXPECT_EQ(Update(set), 0);
    Count(0);
    EXPECT_EQ(Update(set), AFX_SQL_ERROR_NO_ROWS_AFFECTED);
    set.CancelUpdate();
    Count(2);
    EXPECT_EQ(Update(set), AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED);
    set.CancelUpdate();
    EXPECT_EQ(Catch([&] { set.Delete(); }).code, AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED);
    Count(1);
    EXPECT_EQ(Catch([&] { set.Delete(); }).code, AFX_SQL_ERROR_NO_ROWS_AFFECTED);
    Count(0);
    EXPECT_EQ(Catch([&] { set.Delete(); }).code, AFX_SQL_ERROR_NO_ROWS_AFFECTED);
  }
}

TEST_F(CountingChanges, WithoutACountARowThatIsGoneWasDeleted) {
  Count(0);
  TheScript().row_count = -1;
  PlaySet set(&m_database);
  set.Open();
  EXPECT_EQ(Catch([&] { set.Delete(); }).code, 0);
  EXPECT_TRUE(set.IsDeleted());
}

TEST_F(CountingChanges, OfAViewThatCountsNothingTheRowIsLookedForBeforeItIsDeleted) {
  TheScript().views = true;
  TheScript().row_count = 0;
  PlaySet set(&m_database);
  set.Open();
  Count(0);
  EXPECT_EQ(Catch([&] { set.Delete(); }).code, AFX_SQL_ERROR_NO_ROWS_AFFECTED);
  EXPECT_FALSE(set.IsDeleted());
  EXPECT_TRUE(TheScript().Sent().back().starts_with("SELECT COUNT(*)"));  // nothing was deleted
}

TEST_F(CountingChanges, ADeleteThatAServerCountsIsBelievedOfViewsToo) {
  for (const char* system : {"PostgreSQL", "MariaDB"}) {
    TheScript().dbms = system;
    CDatabase database;
    TheScript().Gives("SELECT CHAR_LENGTH", scripted::OneNumber(3));
    ASSERT_TRUE(database.OpenEx("DSN=x"));
    TheScript().views = true;
    TheScript().row_count = 0;
    Count(0);
    PlaySet set(&database);
    set.Open();
    EXPECT_EQ(Catch([&] { set.Delete(); }).code, AFX_SQL_ERROR_NO_ROWS_AFFECTED) << system;
  }
}

TEST_F(CountingChanges, AnInsertIsNotJudgedByTheCount) {
  TheScript().row_count = 0;
  PlaySet set(&m_database);
  set.Open();
  set.AddNew();
  set.m_text = "new";
  EXPECT_TRUE(set.Update());
  EXPECT_EQ(TheScript().Sent().back(), "INSERT INTO Play (text) VALUES (?)");
}

TEST_F(CountingChanges, AFailingCountOrParameterThrows) {
  PlaySet set(&m_database);
  set.Open();
  TheScript().Answer("SQLBindParameter", {SQL_ERROR}, {{"HY000"}});
  EXPECT_EQ(Update(set), SQL_ERROR);
  TheScript().row_count = 0;
  TheScript().Answer("SQLGetData", {SQL_ERROR}, {{"HY000"}});
  Count(1);
  EXPECT_EQ(Catch([&] { set.Update(); }).code, SQL_ERROR);
  EXPECT_TRUE(set.Update());
}

}  // namespace
