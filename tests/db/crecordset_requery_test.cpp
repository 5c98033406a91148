// Running the query again, closing, and the end of a set or of its database.
#include <memory>

#include "tests/db/toy_set.h"

namespace {

using toys::CodeOf;
using toys::ExpectEmpty;
using toys::ExpectOnRow;
using toys::ToySet;

class RecordSetRequery : public toys::ToyTest {
 protected:
  RecordSetRequery() : m_set(&m_database) {
    AddToys(3);
    m_set.m_strSort = "tToyId";
    m_set.Open();
  }
  ToySet m_set;
};

TEST_F(RecordSetRequery, ItShowsWhatChangedAndStandsOnTheFirstRow) {
  m_set.MoveLast();
  m_raw.Exec("UPDATE Toy SET tToyName='changed' WHERE tToyId=1");
  m_raw.Exec("DELETE FROM Toy WHERE tToyId=2");
  m_set.MoveFirst();
  EXPECT_STREQ(m_set.m_name, "toy1");
  EXPECT_TRUE(m_set.Requery());
  ExpectOnRow(m_set, 1, 1);
  EXPECT_STREQ(m_set.m_name, "changed");
  EXPECT_EQ(m_set.GetRecordCount(), 1);
  EXPECT_EQ(m_set.Ids(), "1,3");
}

TEST_F(RecordSetRequery, OwnEditsGiveWayToWhatTheDatabaseHoldsNow) {
  m_set.Edit();
  m_set.m_name = "mine";
  m_set.Update();
  m_raw.Exec("UPDATE Toy SET tToyName='theirs' WHERE tToyId=1");
  m_set.Move(0);
  EXPECT_STREQ(m_set.m_name, "mine");
  m_set.Requery();
  EXPECT_STREQ(m_set.m_name, "theirs");
}

TEST_F(RecordSetRequery, ChangedFilterAndSortTakeEffect) {
  m_set.m_strFilter = "tToyId>1";
  m_set.m_strSort = "tToyId DESC";
  EXPECT_EQ(m_set.Ids(), "1,2,3");
  EXPECT_TRUE(m_set.Requery());
  EXPECT_EQ(m_set.Ids(), "3,2");
  m_set.m_strFilter.Empty();
  m_set.Requery();
  EXPECT_EQ(m_set.Ids(), "3,2,1");
}

TEST_F(RecordSetRequery, ASetOpenedWithoutRowsFindsTheOneThatANewFilterNames) {
  m_set.m_strFilter = "1 = 2";
  m_set.Open();
  ExpectEmpty(m_set);
  m_set.m_strFilter = "tToyId = 2";
  EXPECT_TRUE(m_set.Requery());
  ExpectOnRow(m_set, 1, 2);
  m_set.m_strFilter = "1 = 2";
  EXPECT_TRUE(m_set.Requery());
  ExpectEmpty(m_set);
}

TEST_F(RecordSetRequery, AFailureThrowsAndClosesTheSet) {
  m_set.m_strFilter = " (()) ";
  EXPECT_EQ(CodeOf([&] { m_set.Requery(); }), SQL_ERROR);
  EXPECT_FALSE(m_set.IsOpen());
  ExpectEmpty(m_set);
  EXPECT_STREQ(m_set.m_strFilter, " (()) ");
  m_set.m_strFilter.Empty();
  EXPECT_TRUE(m_set.Open());
}

TEST_F(RecordSetRequery, ItDropsAPendingAdditionOrEdit) {
  m_set.AddNew();
  m_set.m_name = "never stored";
  m_set.Requery();
  ExpectOnRow(m_set, 1, 1);
  EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
  EXPECT_EQ(m_raw.Count("Toy"), 3);
}

TEST_F(RecordSetRequery, ASetExecutedDirectlyCannotBeRequeriedAndStaysAsItIs) {
  m_set.Open(CRecordset::snapshot, nullptr, CRecordset::executeDirect);
  EXPECT_FALSE(m_set.CanRestart());
  m_set.MoveNext();
  EXPECT_FALSE(m_set.Requery());
  EXPECT_TRUE(m_set.IsOpen());
  ExpectOnRow(m_set, 2, 2);
  m_set.MoveNext();
  ExpectOnRow(m_set, 3, 3);
}

TEST_F(RecordSetRequery, OfAClosedSetItThrows) {
  m_set.Close();
  EXPECT_NE(CodeOf([&] { m_set.Requery(); }), 0);
  EXPECT_FALSE(m_set.IsOpen());
}

TEST_F(RecordSetRequery, ManyTimesOverItKeepsWorking) {
  for (int i = 1; i <= 50; ++i) {
    m_set.m_strFilter = i % 2 == 0 ? "tToyId = 2" : "tToyId = 3";
    m_set.Requery();
    ExpectOnRow(m_set, 1, i % 2 == 0 ? 2 : 3);
  }
}

class RecordSetClosing : public RecordSetRequery {};

TEST_F(RecordSetClosing, MembersFilterAndSortStay) {
  m_set.m_strFilter = "tToyId = 2";
  m_set.Requery();
  m_set.Close();
  EXPECT_FALSE(m_set.IsOpen());
  ExpectEmpty(m_set);
  EXPECT_EQ(m_set.m_id, 2);
  EXPECT_STREQ(m_set.m_name, "toy2");
  EXPECT_STREQ(m_set.m_strFilter, "tToyId = 2");
  EXPECT_STREQ(m_set.m_strSort, "tToyId");
  EXPECT_FALSE(m_set.CanUpdate());
}

TEST_F(RecordSetClosing, ItMayBeDoneTwiceAndTheSetOpensAgain) {
  m_set.Close();
  m_set.Close();
  EXPECT_TRUE(m_set.Open());
  ExpectOnRow(m_set, 1, 1);
}

TEST_F(RecordSetClosing, InsideATransactionItDoesNotRollBack) {
  ASSERT_TRUE(m_database.BeginTrans());
  {
    ToySet inner(&m_database);
    inner.m_strFilter = "tToyId = 1";
    inner.Open();
    inner.Edit();
    inner.m_count = 4711;
    inner.Update();
    inner.Close();
  }
  ASSERT_TRUE(m_database.CommitTrans());
  EXPECT_EQ(StoredText("tToyCount"), "4711");
}

TEST_F(RecordSetClosing, ASetStaysUsableAfterCommitAndRollback) {
  m_set.MoveNext();
  ASSERT_TRUE(m_database.BeginTrans());
  m_set.Edit();
  m_set.m_count = 1;
  m_set.Update();
  ASSERT_TRUE(m_database.CommitTrans());
  ExpectOnRow(m_set, 2, 2);
  m_set.MoveNext();
  ExpectOnRow(m_set, 3, 3);
  ASSERT_TRUE(m_database.BeginTrans());
  m_set.Edit();
  m_set.m_count = 2;
  m_set.Update();
  ASSERT_TRUE(m_database.Rollback());
  ExpectOnRow(m_set, 3, 3);
  EXPECT_EQ(StoredText("tToyCount", 2), "1");
  EXPECT_EQ(StoredText("tToyCount", 3), "30");
  m_set.MovePrev();
  ExpectOnRow(m_set, 2, 2);
}

TEST_F(RecordSetClosing, ADatabaseClosedFirstClosesItsSets) {
  m_set.Edit();
  m_set.m_name = "never stored";
  m_database.Close();
  EXPECT_FALSE(m_set.IsOpen());
  EXPECT_EQ(m_set.m_hstmt, nullptr);
  ExpectEmpty(m_set);
  EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
  m_set.Close();
  m_database.OpenEx(Connect());
  EXPECT_TRUE(m_set.Open());
  EXPECT_EQ(StoredText("tToyName"), "toy1");
}

TEST_F(RecordSetClosing, ADatabaseMayBeDestroyedBeforeItsSets) {
  auto database = std::make_unique<CDatabase>();
  database->OpenEx(Connect());
  auto open = std::make_unique<ToySet>(database.get());
  auto closed = std::make_unique<ToySet>(database.get());
  open->Open();
  closed->Open();
  closed->Close();
  database.reset();
  EXPECT_FALSE(open->IsOpen());
  EXPECT_EQ(open->m_id, 1);
  open->Close();
  open.reset();
  closed.reset();
}

TEST_F(RecordSetClosing, AnotherDatabaseGivenToAnOpenSetIsUsedFromTheNextOpening) {
  CDatabase other;
  other.OpenEx(Connect());
  m_set.m_pDatabase = &other;
  m_set.Open();
  ExpectOnRow(m_set, 1, 1);
  m_database.Close();
  EXPECT_TRUE(m_set.IsOpen());
  other.Close();
  EXPECT_FALSE(m_set.IsOpen());
}

}  // namespace
