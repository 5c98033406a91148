// Deleting rows, and how the set closes up around them.
#include "tests/db/toy_set.h"

namespace {

using toys::CodeOf;
using toys::ExpectAfterLast;
using toys::ExpectBeforeFirst;
using toys::ExpectEmpty;
using toys::ExpectOnRow;
using toys::ToySet;

class RecordSetDeleting : public toys::ToyTest {
 protected:
  RecordSetDeleting() : m_set(&m_database) {
    AddToys(5);
    m_set.m_strSort = "tToyId";
    m_set.Open();
  }
  void DeleteAt(LONG row) {
    m_set.SetAbsolutePosition(row);
    m_set.Delete();
  }
  ToySet m_set;
};

TEST_F(RecordSetDeleting, ADeletionActsAtOnce) {
  DeleteAt(2);
  EXPECT_EQ(m_raw.Count("Toy"), 4);
  EXPECT_EQ(m_raw.Count("Toy", "tToyId=2"), 0);
}

TEST_F(RecordSetDeleting, AfterwardsTheSetIsOnNoRowUntilAMove) {
  DeleteAt(2);
  EXPECT_TRUE(m_set.IsDeleted());
  EXPECT_TRUE(m_set.IsFieldNull(&m_set.m_name));
  EXPECT_STREQ(m_set.m_name, "toy2");
  EXPECT_EQ(CodeOf([&] { m_set.Delete(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  EXPECT_EQ(CodeOf([&] { m_set.Edit(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  CString name;
  EXPECT_EQ(CodeOf([&] { m_set.GetFieldValue("tToyName", name); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  m_set.MoveNext();
  EXPECT_FALSE(m_set.IsDeleted());
  m_set.Edit();
  EXPECT_EQ(m_raw.Count("Toy"), 4);
}

TEST_F(RecordSetDeleting, NextReachesTheRowThatTookItsNumber) {
  DeleteAt(2);
  m_set.MoveNext();
  ExpectOnRow(m_set, 2, 3);
  EXPECT_EQ(m_set.Ids(), "1,3,4,5");
}

TEST_F(RecordSetDeleting, PriorReachesTheRowBefore) {
  DeleteAt(3);
  m_set.MovePrev();
  ExpectOnRow(m_set, 2, 2);
  m_set.MoveNext();
  ExpectOnRow(m_set, 3, 4);
}

TEST_F(RecordSetDeleting, RelativeStepsCountAroundTheGap) {
  DeleteAt(3);
  m_set.Move(1, SQL_FETCH_RELATIVE);
  ExpectOnRow(m_set, 3, 4);
  DeleteAt(3);
  m_set.Move(-1, SQL_FETCH_RELATIVE);
  ExpectOnRow(m_set, 2, 2);
  DeleteAt(1);
  m_set.Move(2, SQL_FETCH_RELATIVE);
  ExpectOnRow(m_set, 2, 5);
  EXPECT_EQ(CodeOf([&] { m_set.Delete(), m_set.Move(0, SQL_FETCH_RELATIVE); }),
            AFX_SQL_ERROR_NO_CURRENT_RECORD);
}

TEST_F(RecordSetDeleting, TheFirstRowGoneTheSecondIsFirst) {
  DeleteAt(1);
  m_set.MovePrev();
  ExpectBeforeFirst(m_set);
  m_set.MoveNext();
  ExpectOnRow(m_set, 1, 2);
}

TEST_F(RecordSetDeleting, TheLastRowGoneNextSetsTheEndAndTheCountIsFinal) {
  while (!m_set.IsEOF()) m_set.MoveNext();
  DeleteAt(5);
  m_set.MoveNext();
  ExpectAfterLast(m_set);
  EXPECT_EQ(m_set.GetRecordCount(), 4);
  CRecordsetStatus status;
  m_set.GetStatus(status);
  EXPECT_TRUE(status.m_bRecordCountFinal);
  m_set.MoveLast();
  ExpectOnRow(m_set, 4, 4);
}

TEST_F(RecordSetDeleting, PositionsCountTheRowsThatAreLeft) {
  DeleteAt(4);
  DeleteAt(1);
  DeleteAt(2);
  EXPECT_EQ(m_set.Ids(), "2,5");
  m_set.SetAbsolutePosition(2);
  ExpectOnRow(m_set, 2, 5);
  m_set.SetAbsolutePosition(-1);
  ExpectOnRow(m_set, 2, 5);
  m_set.SetAbsolutePosition(-2);
  ExpectOnRow(m_set, 1, 2);
  m_set.SetAbsolutePosition(3);
  ExpectAfterLast(m_set);
  EXPECT_EQ(m_set.ExtendedFetch(SQL_FETCH_ABSOLUTE, 3), SQL_NO_DATA);
}

TEST_F(RecordSetDeleting, WithTheOnlyRowGoneFirstAndLastFindTheSetEmptyWithoutThrowing) {
  for (const WORD type : {WORD{SQL_FETCH_FIRST}, WORD{SQL_FETCH_LAST}}) {
    m_raw.Exec("DELETE FROM Toy");
    AddToys(1);
    m_set.Requery();
    m_set.Delete();
    m_set.MoveNext();
    ExpectAfterLast(m_set);
    m_set.Move(0, type);
    ExpectEmpty(m_set);
    EXPECT_EQ(CodeOf([&] { m_set.MoveFirst(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  }
}

TEST_F(RecordSetDeleting, ALoopDeletesEveryRow) {
  m_set.MoveFirst();
  while (!m_set.IsEOF()) {
    m_set.Delete();
    m_set.MoveNext();
  }
  EXPECT_EQ(m_raw.Count("Toy"), 0);
  EXPECT_EQ(m_set.GetRecordCount(), 0);
  ExpectAfterLast(m_set);
}

TEST_F(RecordSetDeleting, EditsStayWithTheirRowsWhenOthersVanish) {
  m_set.SetAbsolutePosition(4);
  m_set.Edit();
  m_set.m_name = "edited";
  m_set.Update();
  DeleteAt(1);
  m_set.SetAbsolutePosition(3);
  ExpectOnRow(m_set, 3, 4);
  EXPECT_STREQ(m_set.m_name, "edited");
  m_set.MoveNext();
  EXPECT_STREQ(m_set.m_name, "toy5");
}

TEST_F(RecordSetDeleting, ARequeryStartsWithTheRowsThatAreThere) {
  DeleteAt(1);
  AddToys(1);
  m_set.Requery();
  ExpectOnRow(m_set, 1, 1);
  EXPECT_EQ(m_set.Ids(), "1,2,3,4,5");
}

TEST_F(RecordSetDeleting, ClosingOnNoRowDoesNotThrow) {
  DeleteAt(2);
  m_set.Close();
  EXPECT_FALSE(m_set.IsOpen());
  EXPECT_FALSE(m_set.IsDeleted());
}

TEST_F(RecordSetDeleting, APositionedFetchEndsTheStateOnNoRow) {
  DeleteAt(2);
  EXPECT_EQ(m_set.ExtendedFetch(SQL_FETCH_ABSOLUTE, 1), SQL_SUCCESS);
  m_set.Fixups();
  EXPECT_FALSE(m_set.IsDeleted());
  m_set.Edit();
  EXPECT_EQ(m_set.m_id, 1);
}

TEST_F(RecordSetDeleting, DeletingEndsAPendingEdit) {
  m_set.Edit();
  m_set.m_name = "dropped";
  m_set.Delete();
  EXPECT_STREQ(m_set.m_name, "toy1");
  EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
}

TEST_F(RecordSetDeleting, TwoSetsOnTheSameTableDoNotDisturbEachOther) {
  ToySet other(&m_database);
  other.m_strSort = "tToyId";
  other.Open();
  other.SetAbsolutePosition(3);
  DeleteAt(1);
  other.Move(0);
  ExpectOnRow(other, 3, 3);
}

}  // namespace
