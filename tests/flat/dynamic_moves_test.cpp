// The rows of stored procedures: moving over them, using the connection meanwhile, executing again, failing.
#include "tests/support/fixtures.h"

namespace {

template <class Action>
bool Throws(Action action) {
  try {
    action();
  } catch (CDBException* exception) {
    exception->Delete();
    return true;
  }
  return false;
}

class DynamicRows : public support::ConnectedTest {
 protected:
  explicit DynamicRows(support::PracticeOptions options = {}) : ConnectedTest(options) {}

  void MakeProcedure(const std::string& name, const std::string& select) {
    for (const std::string& sql : support::CurrentKind().ProcedureStatements(name, select)) Raw().Exec(sql);
  }
  // Stations 11 to 15 and the procedure "stations", which lists them.
  void SetUp() override {
    ConnectedTest::SetUp();
    for (int key = 11; key <= 15; ++key) {
      Raw().Exec("INSERT INTO TStation (tStatCulIntStatIDPk, tStatSName) VALUES (" + std::to_string(key) +
                 ", 'Station " + std::to_string(key) + "')");
    }
    MakeProcedure("stations",
                  "SELECT tStatCulIntStatIDPk, tStatSName, tStatSAdd FROM TStation "
                  "WHERE tStatCulIntStatIDPk > 10 ORDER BY tStatCulIntStatIDPk");
  }
  static LONG Key(CDynamicRec& set) {
    LONG key = 0;
    set.GetFieldValue("tStatCulIntStatIDPk", key);
    return key;
  }
};

TEST_F(DynamicRows, AreReadFromTheFirstToTheLast) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  LONG expected = 11;
  for (; !set.IsEOF(); set.MoveNext()) EXPECT_EQ(Key(set), expected++);
  EXPECT_EQ(expected, 16);
  EXPECT_EQ(set.GetRecordCount(), 5);
}

TEST_F(DynamicRows, AreReadFromTheLastToTheFirst) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  set.MoveLast();
  EXPECT_EQ(set.GetIndexPos(), 5);
  LONG expected = 15;
  for (; !set.IsBOF(); set.MovePrev()) EXPECT_EQ(Key(set), expected--);
  EXPECT_EQ(expected, 10);
  set.MoveFirst();
  EXPECT_EQ(Key(set), 11);
}

TEST_F(DynamicRows, AreReachedByPositionAndDistance) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  EXPECT_EQ(set.MoveToPos(4), 4);
  EXPECT_EQ(Key(set), 14);
  EXPECT_EQ(set.MoveToDelta(-2), 2);
  EXPECT_EQ(Key(set), 12);
  set.Move(2);
  EXPECT_EQ(Key(set), 14);
  set.SetAbsolutePosition(-1);
  EXPECT_EQ(Key(set), 15);
  EXPECT_EQ(set.MoveToPos(6), 0);
  EXPECT_EQ(set.MoveToPos(1), 1);
  EXPECT_EQ(Key(set), 11);
}

TEST_F(DynamicRows, OtherStatementsRunWhileTheyAreOpen) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  tagTSTATION station{};
  station.lStatID = 13;
  ASSERT_EQ(DB_GetTStat(&station), 0);
  EXPECT_EQ(DB_OpenTStat(), 0);
  support::SetText(station.szName, "renamed");
  EXPECT_EQ(DB_EditSelTStat(&station, KYODBC_MASK_STAT_NAME), 0);
  CDynamicRec second;
  ASSERT_TRUE(second.ExecuteSProc("stations"));
  second.MoveToPos(3);
  CString name;
  second.GetFieldValue("tStatSName", name);
  EXPECT_STREQ(name, "renamed");
  EXPECT_EQ(Key(set), 11);
}

TEST_F(DynamicRows, StayAsTheyWereWhenTheProcedureRan) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  Raw().Exec("DELETE FROM TStation WHERE tStatCulIntStatIDPk > 10");
  set.MoveLast();
  EXPECT_EQ(Key(set), 15);
}

TEST_F(DynamicRows, AreReadAnewWhenTheProcedureIsExecutedAgain) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  set.MoveLast();
  Raw().Exec("DELETE FROM TStation WHERE tStatCulIntStatIDPk = 11");
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  EXPECT_EQ(Key(set), 12);
  set.Close();
  EXPECT_EQ(set.IsOpen(), 0);
  Raw().Exec("DELETE FROM TStation WHERE tStatCulIntStatIDPk = 12");
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  EXPECT_EQ(Key(set), 13);
}

TEST_F(DynamicRows, ARequeryAnswersZeroAndLeavesThem) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  set.MoveLast();
  EXPECT_FALSE(set.CanRestart());
  EXPECT_FALSE(set.Requery());
  EXPECT_EQ(Key(set), 15);
}

TEST_F(DynamicRows, FiltersAndSortsHaveNoEffect) {
  CDynamicRec set;
  set.m_strFilter = "1 = 2";
  set.m_strSort = "tStatSName DESC";
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  EXPECT_EQ(Key(set), 11);
}

TEST_F(DynamicRows, CannotBeChanged) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  EXPECT_FALSE(set.CanUpdate());
  EXPECT_FALSE(set.CanAppend());
  EXPECT_TRUE(Throws([&] { set.Edit(); }));
  EXPECT_EQ(set.DeleteByPos(1), 8);
  EXPECT_EQ(Raw().Count("TStation", "tStatCulIntStatIDPk > 10"), 5);
}

TEST_F(DynamicRows, AProcedureWithoutRowsLeavesTheSetOpenAndEmpty) {
  Raw().Exec("DELETE FROM TStation WHERE tStatCulIntStatIDPk > 10");
  CDynamicRec set;
  EXPECT_TRUE(set.ExecuteSProc("stations"));
  EXPECT_NE(set.IsOpen(), 0);
  EXPECT_TRUE(set.IsBOF());
  EXPECT_TRUE(set.IsEOF());
  EXPECT_EQ(set.GetODBCFieldCount(), 3);
}

TEST_F(DynamicRows, TextsOf1000000CharactersAreReadWhole) {
  Raw().Exec("UPDATE TStation SET tStatSAdd = '" + std::string(1000000, 'z') +
             "' WHERE tStatCulIntStatIDPk = 12");
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  set.MoveNext();
  CString text;
  set.GetFieldValue("tStatSAdd", text);
  EXPECT_TRUE(text.View() == std::string(1000000, 'z'));
  set.GetFieldValue("tStatSAdd", text);
  EXPECT_EQ(text.GetLength(), 1000000);
}

TEST_F(DynamicRows, AnUnknownProcedureThrowsAndTheSetIsClosed) {
  CDynamicRec set;
  EXPECT_TRUE(Throws([&] { set.ExecuteSProc("no_such_procedure"); }));
  EXPECT_EQ(set.IsOpen(), 0);
  EXPECT_TRUE(Throws([&] { set.ExecuteSProc(""); }));
  EXPECT_TRUE(Throws([&] { set.ExecuteSProc(nullptr); }));
  EXPECT_TRUE(set.ExecuteSProc("stations"));
}

TEST_F(DynamicRows, WithoutAConnectionExecutingThrows) {
  ASSERT_EQ(DB_CloseDatabase(), 0);
  CDynamicRec set;
  EXPECT_TRUE(Throws([&] { set.ExecuteSProc("stations"); }));
  EXPECT_EQ(set.IsOpen(), 0);
}

TEST_F(DynamicRows, AClosedConnectionClosesTheSet) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  ASSERT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(set.IsOpen(), 0);
}

class DynamicRowsWithOwner : public DynamicRows {
 protected:
  DynamicRowsWithOwner() : DynamicRows({.with_owner = true}) {}
};

TEST_F(DynamicRowsWithOwner, TheProcedureIsFoundBehindTheOwner) {
  CDynamicRec set;
  EXPECT_EQ(std::string(set.m_strOwner), m_practice.Owner());
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  EXPECT_EQ(Key(set), 11);
  LONG count = 0;
  EXPECT_EQ(set.GetMaxPos(&count), 0);
  EXPECT_EQ(count, 5);
}

TEST_F(DynamicRowsWithOwner, TheCallerMayAssignAnother) {
  CDynamicRec set;
  set.m_strOwner = "";
  ASSERT_TRUE(set.ExecuteSProc("stations"));
  EXPECT_EQ(Key(set), 11);
}

}  // namespace
