// Moving over the rows of an open record set.
#include <cstdlib>
#include <limits>
#include <new>

#include "tests/db/toy_set.h"

namespace {

using toys::CodeOf;
using toys::ExpectAfterLast;
using toys::ExpectAt;
using toys::ExpectBeforeFirst;
using toys::ExpectEmpty;
using toys::ExpectOnRow;
using toys::ToySet;

constexpr LONG kRows = 5;

class RecordSetMoving : public toys::ToyTest {
 protected:
  RecordSetMoving() : m_set(&m_database) {
    AddToys(kRows);
    m_set.m_strSort = "tToyId";
    m_set.Open();
  }
  void StandAfterLast() {
    m_set.MoveLast();
    m_set.MoveNext();
    ExpectAfterLast(m_set);
  }
  void StandBeforeFirst() {
    m_set.MoveFirst();
    m_set.MovePrev();
    ExpectBeforeFirst(m_set);
  }

  ToySet m_set;
};

TEST_F(RecordSetMoving, EveryDirectionReachesItsRow) {
  m_set.MoveLast();
  ExpectOnRow(m_set, 5, 5);
  m_set.MovePrev();
  ExpectOnRow(m_set, 4, 4);
  m_set.MoveFirst();
  ExpectOnRow(m_set, 1, 1);
  m_set.MoveNext();
  ExpectOnRow(m_set, 2, 2);
  m_set.Move(2, SQL_FETCH_RELATIVE);
  ExpectOnRow(m_set, 4, 4);
  m_set.Move(-3, SQL_FETCH_RELATIVE);
  ExpectOnRow(m_set, 1, 1);
  m_set.Move(3, SQL_FETCH_ABSOLUTE);
  ExpectOnRow(m_set, 3, 3);
}

TEST_F(RecordSetMoving, FirstLastNextAndPriorIgnoreTheNumberOfRows) {
  m_set.Move(7, SQL_FETCH_LAST);
  ExpectOnRow(m_set, 5, 5);
  m_set.Move(7, SQL_FETCH_PRIOR);
  ExpectOnRow(m_set, 4, 4);
  m_set.Move(-7, SQL_FETCH_FIRST);
  ExpectOnRow(m_set, 1, 1);
  m_set.Move(-7, SQL_FETCH_NEXT);
  ExpectOnRow(m_set, 2, 2);
}

TEST_F(RecordSetMoving, RelativeIsTheTypeThatMoveTakesWithoutOne) {
  m_set.Move(3);
  ExpectOnRow(m_set, 4, 4);
}

TEST_F(RecordSetMoving, RelativeZeroReadsTheRowAgain) {
  m_set.MoveNext();
  m_set.m_count = 4711;
  m_set.Move(0, SQL_FETCH_RELATIVE);
  ExpectOnRow(m_set, 2, 2);
  EXPECT_EQ(m_set.m_count, 20);
}

TEST_F(RecordSetMoving, NegativeAbsoluteCountsFromTheEnd) {
  m_set.SetAbsolutePosition(-1);
  ExpectOnRow(m_set, 5, 5);
  m_set.SetAbsolutePosition(-5);
  ExpectOnRow(m_set, 1, 1);
}

TEST_F(RecordSetMoving, CrossingTheEndSetsOneFlagWithoutThrowing) {
  m_set.MoveLast();
  m_set.MoveNext();
  ExpectAfterLast(m_set);
  m_set.MoveFirst();
  m_set.Move(100, SQL_FETCH_RELATIVE);
  ExpectAfterLast(m_set);
  m_set.MoveFirst();
  m_set.SetAbsolutePosition(6);
  ExpectAfterLast(m_set);
  m_set.MoveFirst();
  m_set.SetAbsolutePosition(std::numeric_limits<LONG>::max());
  ExpectAfterLast(m_set);
}

TEST_F(RecordSetMoving, CrossingTheBeginningSetsOneFlagWithoutThrowing) {
  m_set.MovePrev();
  ExpectBeforeFirst(m_set);
  m_set.MoveFirst();
  m_set.Move(-100, SQL_FETCH_RELATIVE);
  ExpectBeforeFirst(m_set);
  m_set.MoveFirst();
  m_set.SetAbsolutePosition(-6);
  ExpectBeforeFirst(m_set);
  m_set.MoveFirst();
  m_set.SetAbsolutePosition(0);
  ExpectBeforeFirst(m_set);
  m_set.MoveFirst();
  m_set.SetAbsolutePosition(std::numeric_limits<LONG>::min());
  ExpectBeforeFirst(m_set);
}

TEST_F(RecordSetMoving, AfterTheLastRowOnlyNextThrows) {
  StandAfterLast();
  EXPECT_EQ(CodeOf([&] { m_set.MoveNext(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  ExpectAfterLast(m_set);
  m_set.MovePrev();
  ExpectOnRow(m_set, 5, 5);
  StandAfterLast();
  m_set.MoveFirst();
  ExpectOnRow(m_set, 1, 1);
  StandAfterLast();
  m_set.MoveLast();
  ExpectOnRow(m_set, 5, 5);
  StandAfterLast();
  m_set.Move(-2, SQL_FETCH_RELATIVE);
  ExpectOnRow(m_set, 4, 4);
  StandAfterLast();
  m_set.SetAbsolutePosition(2);
  ExpectOnRow(m_set, 2, 2);
}

TEST_F(RecordSetMoving, AfterTheLastRowAForwardOrEmptyStepStaysThere) {
  StandAfterLast();
  m_set.Move(1, SQL_FETCH_RELATIVE);
  ExpectAfterLast(m_set);
  m_set.Move(0, SQL_FETCH_RELATIVE);
  ExpectAfterLast(m_set);
}

TEST_F(RecordSetMoving, BeforeTheFirstRowOnlyPriorThrows) {
  StandBeforeFirst();
  EXPECT_EQ(CodeOf([&] { m_set.MovePrev(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  ExpectBeforeFirst(m_set);
  m_set.MoveNext();
  ExpectOnRow(m_set, 1, 1);
  StandBeforeFirst();
  m_set.MoveFirst();
  ExpectOnRow(m_set, 1, 1);
  StandBeforeFirst();
  m_set.MoveLast();
  ExpectOnRow(m_set, 5, 5);
  StandBeforeFirst();
  m_set.Move(2, SQL_FETCH_RELATIVE);
  ExpectOnRow(m_set, 2, 2);
  StandBeforeFirst();
  m_set.SetAbsolutePosition(-2);
  ExpectOnRow(m_set, 4, 4);
}

TEST_F(RecordSetMoving, BeforeTheFirstRowABackwardOrEmptyStepStaysThere) {
  StandBeforeFirst();
  m_set.Move(-1, SQL_FETCH_RELATIVE);
  ExpectBeforeFirst(m_set);
  m_set.Move(0, SQL_FETCH_RELATIVE);
  ExpectBeforeFirst(m_set);
}

TEST_F(RecordSetMoving, OnAnEmptyOrClosedSetEveryMoveThrows) {
  m_set.m_strFilter = "1 = 2";
  m_set.Open();
  for (const WORD type : {SQL_FETCH_FIRST, SQL_FETCH_LAST, SQL_FETCH_NEXT, SQL_FETCH_PRIOR,
                          SQL_FETCH_RELATIVE, SQL_FETCH_ABSOLUTE}) {
    EXPECT_EQ(CodeOf([&] { m_set.Move(1, type); }), AFX_SQL_ERROR_NO_CURRENT_RECORD) << type;
    ExpectEmpty(m_set);
  }
  m_set.Close();
  EXPECT_EQ(CodeOf([&] { m_set.MoveFirst(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
}

TEST_F(RecordSetMoving, AnUnknownFetchTypeThrowsAndKeepsThePosition) {
  m_set.SetAbsolutePosition(3);
  EXPECT_NE(CodeOf([&] { m_set.Move(1, 77); }), 0);
  ExpectOnRow(m_set, 3, 3);
  m_set.MoveNext();
  ExpectOnRow(m_set, 4, 4);
}

TEST_F(RecordSetMoving, TheCountIsTheHighestRowSeen) {
  EXPECT_EQ(m_set.GetRecordCount(), 1);
  m_set.SetAbsolutePosition(3);
  EXPECT_EQ(m_set.GetRecordCount(), 3);
  m_set.MoveFirst();
  EXPECT_EQ(m_set.GetRecordCount(), 3);
  m_set.MoveLast();
  EXPECT_EQ(m_set.GetRecordCount(), 3);
}

TEST_F(RecordSetMoving, TheCountIsFinalOnceAForwardMoveRanPastTheEnd) {
  CRecordsetStatus status;
  m_set.MoveLast();
  m_set.GetStatus(status);
  EXPECT_EQ(status.m_lCurrentRecord, 4);
  EXPECT_FALSE(status.m_bRecordCountFinal);
  m_set.MoveFirst();
  while (!m_set.IsEOF()) m_set.MoveNext();
  m_set.GetStatus(status);
  EXPECT_EQ(status.m_lCurrentRecord, -2);
  EXPECT_TRUE(status.m_bRecordCountFinal);
  EXPECT_EQ(m_set.GetRecordCount(), 5);
}

TEST_F(RecordSetMoving, TheEndReachedFromTheLastRowTellsTheCountAJumpPastItDoesNot) {
  CRecordsetStatus status;
  m_set.SetAbsolutePosition(100);
  m_set.GetStatus(status);
  EXPECT_FALSE(status.m_bRecordCountFinal);
  m_set.MoveLast();
  m_set.MoveNext();
  m_set.GetStatus(status);
  EXPECT_TRUE(status.m_bRecordCountFinal);
  EXPECT_EQ(m_set.GetRecordCount(), 5);
}

TEST_F(RecordSetMoving, AMoveDropsAnAdditionAndAnEdit) {
  m_set.Edit();
  m_set.m_count = 4711;
  m_set.MoveNext();
  EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
  m_set.AddNew();
  m_set.m_count = 4711;
  m_set.Move(0);
  ExpectOnRow(m_set, 2, 2);
  EXPECT_EQ(m_set.m_count, 20);
  EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
  EXPECT_EQ(m_raw.Count("Toy", "tToyCount=4711"), 0);
}

TEST_F(RecordSetMoving, APositionedFetchDropsAnAdditionAndAnEdit) {
  m_set.AddNew();
  m_set.m_name = "never stored";
  EXPECT_EQ(m_set.ExtendedFetch(SQL_FETCH_ABSOLUTE, 3), SQL_SUCCESS);
  m_set.Fixups();
  EXPECT_EQ(m_set.m_id, 3);
  EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
  EXPECT_EQ(m_raw.Count("Toy"), kRows);
}

TEST_F(RecordSetMoving, FetchingLeavesTheMembersAloneUntilTheRowIsCopied) {
  EXPECT_EQ(m_set.ExtendedFetch(SQL_FETCH_ABSOLUTE, 4), SQL_SUCCESS);
  ExpectOnRow(m_set, 1, 1);
  EXPECT_STREQ(m_set.m_name, "toy1");
  m_set.Fixups();
  EXPECT_EQ(m_set.m_id, 4);
  EXPECT_STREQ(m_set.m_name, "toy4");
}

TEST_F(RecordSetMoving, FailedFetchesLeaveTheStatementUsable) {
  EXPECT_EQ(m_set.ExtendedFetch(SQL_FETCH_ABSOLUTE, 0), SQL_NO_DATA);
  EXPECT_EQ(m_set.ExtendedFetch(SQL_FETCH_ABSOLUTE, 32768), SQL_NO_DATA);
  EXPECT_EQ(m_set.ExtendedFetch(SQL_FETCH_RELATIVE, 5), SQL_NO_DATA);
  EXPECT_EQ(m_set.ExtendedFetch(SQL_FETCH_ABSOLUTE, 5), SQL_SUCCESS);
  EXPECT_EQ(m_set.ExtendedFetch(SQL_FETCH_RELATIVE, -7), SQL_NO_DATA);
  EXPECT_EQ(m_set.ExtendedFetch(SQL_FETCH_NEXT, 0), SQL_SUCCESS);
  m_set.Fixups();
  EXPECT_EQ(m_set.m_id, 1);
}

TEST_F(RecordSetMoving, OnlyOneRowIsFetchedAtATime) {
  m_set.SetRowsetSize(1);
  EXPECT_EQ(CodeOf([&] { m_set.SetRowsetSize(2); }), AFX_SQL_ERROR_NOT_SUPPORTED);
  ExpectAt(m_set, false, false, 0);
}

}  // namespace
