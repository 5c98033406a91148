// Procedure calls: their rows are taken at once, going forwards only, and what goes wrong meanwhile.
#include "tests/scripted/play_set.h"

namespace {

using scripted::Catch;
using scripted::PlaySet;
using scripted::PlayTest;
using scripted::Result;
using scripted::Rows;
using scripted::TheScript;
using scripted::Thrown;

class CalledPlay : public PlaySet {
 public:
  using PlaySet::PlaySet;
  CString GetDefaultSQL() override { return "{call plays}"; }
};

class Calling : public PlayTest {
 protected:
  void SetUp() override {
    PlayTest::SetUp();
    TheScript().procedures = true;
    TheScript().Gives("{call plays}", Rows(5));
    m_database.OpenEx("DSN=a");
  }
  // Opens a set on the call and tells what that threw; a set that threw must be closed.
  Thrown Open() {
    CalledPlay set(&m_database);
    Thrown thrown = Catch([&] { set.Open(); });
    EXPECT_EQ(set.IsOpen() == FALSE, thrown.code != 0);
    return thrown;
  }

  CDatabase m_database;
};

TEST_F(Calling, TheRowsAreFetchedOnceAndForwards) {
  CalledPlay set(&m_database);
  const int before = TheScript().Calls("SQLExtendedFetch");
  ASSERT_TRUE(set.Open());
  EXPECT_EQ(TheScript().Calls("SQLExtendedFetch"), before + 6);
  set.MoveLast();
  set.MovePrev();
  set.MoveFirst();
  set.SetAbsolutePosition(3);
  EXPECT_EQ(set.m_id, 3);
  EXPECT_STREQ(set.m_text, "row 3");
  EXPECT_EQ(TheScript().Calls("SQLExtendedFetch"), before + 6);
}

TEST_F(Calling, FurtherResultsAreReadAwayAndTheCursorIsClosed) {
  TheScript().Answer("SQLMoreResults", {SQL_SUCCESS_WITH_INFO, SQL_SUCCESS_WITH_INFO});
  const int before = TheScript().Calls("SQLFreeStmt");
  CalledPlay set(&m_database);
  ASSERT_TRUE(set.Open());
  EXPECT_EQ(TheScript().Calls("SQLMoreResults"), 3);
  EXPECT_EQ(TheScript().Calls("SQLFreeStmt"), before + 1);
}

TEST_F(Calling, AnErrorBehindTheRowsFailsTheCall) {
  TheScript().Answer("SQLMoreResults",
                     {
                         SQL_ERROR
  },
                     {{"45000", 1644, "[maker][driver]late"}});
  const Thrown thrown = Open();
  EXPECT_EQ(thrown.code, SQL_ERROR);
  EXPECT_EQ(thrown.error, "late");
}

TEST_F(Calling, AFailureWhileTheRowsAreTakenFailsTheCall) {
  for (const char* function :
       {"SQLNumResultCols", "SQLDescribeCol", "SQLColAttribute", "SQLExtendedFetch", "SQLGetData"}) {
    TheScript().Answer(function,
                       {
                           SQL_ERROR
    },
                       {{"HY000", 7, "[maker][driver]no more"}});
    EXPECT_EQ(Open().error, "no more") << function;
  }
}

TEST_F(Calling, ACallWithoutAResultIsOpenAndEmpty) {
  TheScript().Gives("{call plays}", Result{});
  CRecordset set(&m_database);
  ASSERT_TRUE(set.Open(CRecordset::snapshot, "{call plays}", CRecordset::executeDirect));
  EXPECT_TRUE(set.IsBOF());
  EXPECT_TRUE(set.IsEOF());
  EXPECT_EQ(set.GetODBCFieldCount(), 0);
}

TEST_F(Calling, ANumberThatCannotBeReadFailsTheMoveToItsRow) {
  Result rows = Rows(2);
  rows.rows[1][0] = "not a number";
  TheScript().Gives("{call plays}", rows);
  CalledPlay set(&m_database);
  ASSERT_TRUE(set.Open());
  EXPECT_EQ(Catch([&] { set.MoveNext(); }).code, SQL_ERROR);
}

TEST_F(Calling, LongTextsAreTakenPieceByPiece) {
  Result rows = Rows(1);
  const std::string text(100000, 'x');
  rows.rows[0][1] = text;
  TheScript().Gives("{call plays}", rows);
  CRecordset set(&m_database);
  ASSERT_TRUE(set.Open(CRecordset::snapshot, "{call plays}"));
  CString read;
  set.GetFieldValue("text", read);
  EXPECT_TRUE(read.View() == text);
}

TEST_F(Calling, ARequeryCallsAgain) {
  CalledPlay set(&m_database);
  ASSERT_TRUE(set.Open());
  TheScript().Gives("{call plays}", Rows(2));
  ASSERT_TRUE(set.Requery());
  set.MoveLast();
  EXPECT_EQ(set.m_id, 2);
}

}  // namespace
