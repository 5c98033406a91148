// Deleting rows by position: what goes, and where the set stands then.
#include "tests/db/shelf_set.h"

namespace {

class Deleting : public ShelfTest {};
INSTANTIATE_WITH_AND_WITHOUT_OWNER(Deleting);

TEST_P(Deleting, TheFollowingRowBecomesCurrent) {
  Fill(4);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.DeleteByPos(2), 0);
  EXPECT_EQ(set.m_lID, 103);
  EXPECT_EQ(set.GetIndexPos(), 2);
  EXPECT_EQ(Raw().Count("TShelf", "tShelfIDPk=102"), 0);
  EXPECT_EQ(Raw().Count("TShelf"), 3);
}

TEST_P(Deleting, DeletingTheLastRowLeavesTheNewLastRowCurrent) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.DeleteByPos(3), 0);
  EXPECT_EQ(set.m_lID, 102);
  EXPECT_EQ(set.GetIndexPos(), 2);
}

TEST_P(Deleting, DeletingTheOnlyRowLeavesAnEmptySet) {
  Fill(1);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.DeleteByPos(1), 0);
  EXPECT_NE(set.IsBOF(), 0);
  EXPECT_NE(set.IsEOF(), 0);
  EXPECT_EQ(set.DeleteByPos(0), 64);
  EXPECT_EQ(set.MoveToIntID(101), 0);
  EXPECT_EQ(set.MoveToPos(1), 0);
  EXPECT_EQ(Raw().Count("TShelf"), 0);
}

TEST_P(Deleting, PositionZeroDeletesTheCurrentRow) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(2);
  EXPECT_EQ(set.DeleteByPos(0), 0);
  EXPECT_EQ(Raw().Count("TShelf", "tShelfIDPk=102"), 0);
}

TEST_P(Deleting, AWrongPositionDeletesNothing) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  for (const LONG wild : {4, -1, -3, 2147483647}) EXPECT_EQ(set.DeleteByPos(wild), 64) << wild;
  EXPECT_EQ(Raw().Count("TShelf"), 3);
}

TEST_P(Deleting, ARowThatTheDatabaseRefusesToDeleteGivesEight) {
  Fill(2);
  ShelfSet set;
  set.Open(set.m_nOpenType, nullptr, CRecordset::readOnly);
  EXPECT_EQ(set.DeleteByPos(1), 8);
  EXPECT_EQ(Raw().Count("TShelf"), 2);
}

TEST_P(Deleting, EveryRowCanBeDeletedOneAfterTheOther) {
  Fill(5);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  for (int row = 0; row < 5; ++row) EXPECT_EQ(set.DeleteByPos(1), 0);
  EXPECT_EQ(set.DeleteByPos(1), 64);
  EXPECT_EQ(Raw().Count("TShelf"), 0);
}

TEST_P(Deleting, PositionsCloseUpBehindADeletedRow) {
  Fill(6);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.DeleteByPos(2);
  set.DeleteByPos(3);
  EXPECT_EQ(set.MoveToPos(4), 4);
  EXPECT_EQ(set.m_lID, 106);
  EXPECT_EQ(set.MoveToPos(5), 0);
  EXPECT_EQ(set.MoveToPos(2), 2);
  EXPECT_EQ(set.m_lID, 103);
  EXPECT_EQ(set.MoveToDelta(2), 4);
  EXPECT_EQ(set.m_lID, 106);
}

TEST_P(Deleting, MovesFromADeletedRowReachItsNeighbours) {
  Fill(6);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(3);
  set.Delete();
  EXPECT_EQ(set.MoveToDelta(2), 4);
  EXPECT_EQ(set.m_lID, 105);
  set.MoveToPos(3);
  set.Delete();
  EXPECT_NE(set.IsDeleted(), 0);
  EXPECT_EQ(set.MoveToDelta(-2), 1);
  EXPECT_EQ(set.m_lID, 101);
}

TEST_P(Deleting, APositionedMoveEndsTheDeletedState) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.Delete();
  EXPECT_EQ(set.MoveToPos(2), 2);
  EXPECT_EQ(set.IsDeleted(), 0);
  set.Edit();
  set.m_name = "kept";
  EXPECT_NE(set.Update(), 0);
  EXPECT_EQ(Raw().Text("SELECT tShelfSName FROM TShelf WHERE tShelfIDPk=103"), "kept");
}

}  // namespace
