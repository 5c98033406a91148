// Construction, positions and the unique test, on a caller's own record set.
#include "recset/kyrecset.h"

#include "tests/db/shelf_set.h"

namespace {

using support::Ts;

class Positions : public ShelfTest {};
INSTANTIATE_WITH_AND_WITHOUT_OWNER(Positions);

TEST_P(Positions, WithoutDatabaseAndOwnerTheSetTakesTheLibrarysOwn) {
  const ShelfSet set(nullptr, nullptr);
  EXPECT_EQ(set.m_pDatabase, DB_GetDatabase());
  EXPECT_EQ(set.m_strOwner, m_practice.Owner().c_str());
  const ShelfSet empty_owner(nullptr, "");
  EXPECT_EQ(empty_owner.m_strOwner, m_practice.Owner().c_str());
}

TEST_P(Positions, AnOwnerGivenMakesTheSetASnapshotAndNoneADynaset) {
  EXPECT_EQ(ShelfSet(nullptr, "abc.").m_nOpenType, 1u);
  EXPECT_EQ(ShelfSet(nullptr, "abc.").m_strOwner, "abc.");
  EXPECT_EQ(ShelfSet().m_nOpenType, GetParam() ? 1u : 0u);
}

TEST_P(Positions, ANewSetIsClosedAndHoldsNothing) {
  ShelfSet set;
  EXPECT_EQ(set.IsOpen(), 0);
  EXPECT_EQ(set.m_lID, 0);
  EXPECT_EQ(set.m_lSortIndex, 0);
  EXPECT_EQ(set.m_dwFieldMask, 0u);
  EXPECT_TRUE(set.m_strBaseFilter.IsEmpty());
  EXPECT_EQ(set.GetIndexPos(), 0);
}

TEST_P(Positions, TheSetKnowsItsClassAndItsBase) {
  const ShelfSet set;
  EXPECT_EQ(set.GetRuntimeClass(), &CKyRecSet::classCKyRecSet);
  EXPECT_STREQ(CKyRecSet::classCKyRecSet.m_lpszClassName, "CKyRecSet");
  EXPECT_STREQ(CKyRecSet::classCKyRecSet.m_pBaseClass->m_lpszClassName, "CRecordset");
  EXPECT_TRUE(set.IsKindOf(&CObject::classCObject));
}

TEST_P(Positions, AClosedSetAnswersWithoutTouchingTheDatabase) {
  Fill(3);
  ShelfSet set;
  LONG position = 0;
  EXPECT_EQ(set.GetByPos(&position), 64);
  EXPECT_EQ(set.GetByPos(nullptr), 64);
  EXPECT_EQ(set.DeleteByPos(0), 64);
  EXPECT_EQ(set.MoveToIntID(101), 0);
  EXPECT_EQ(set.MoveToDelta(1), 0);
  EXPECT_EQ(set.MoveToPos(1), 0);
  EXPECT_EQ(Raw().Count("TShelf"), 3);
}

TEST_P(Positions, OpeningStandsOnTheFirstRow) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.GetIndexPos(), 1);
  EXPECT_EQ(set.m_lID, 101);
  EXPECT_EQ(set.Name(), "shelf 1");
}

TEST_P(Positions, MoveToPosReachesEveryRowAndReadsIt) {
  Fill(5);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  for (const LONG position : {5, 1, 3, 3, 2}) {
    EXPECT_EQ(set.MoveToPos(position), position);
    EXPECT_EQ(set.GetIndexPos(), position);
    EXPECT_EQ(set.m_lID, 100 + position);
  }
  EXPECT_EQ(set.GetRecordCount(), 5);
}

TEST_P(Positions, MoveToPosOutsideTheRowsFailsAndLeavesThePositionUnknown) {
  Fill(3);
  for (const LONG wild : {0, 4, -1, 2147483647, -2147483647 - 1}) {
    ShelfSet set;
    ASSERT_TRUE(set.OpenNow());
    EXPECT_EQ(set.MoveToPos(wild), 0) << wild;
    EXPECT_NE(set.IsEOF(), 0);
    EXPECT_EQ(set.IsBOF(), 0);
    EXPECT_EQ(set.m_lCurrentRecord, -2);
    EXPECT_EQ(set.GetIndexPos(), -1);
    EXPECT_EQ(set.MoveToPos(2), 2) << "the set can be positioned again";
    EXPECT_EQ(set.IsEOF(), 0);
  }
}

TEST_P(Positions, MoveToDeltaMovesByOneAndByMany) {
  Fill(9);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.MoveToDelta(1), 2);
  EXPECT_EQ(set.MoveToDelta(5), 7);
  EXPECT_EQ(set.m_lID, 107);
  EXPECT_EQ(set.MoveToDelta(-1), 6);
  EXPECT_EQ(set.MoveToDelta(-4), 2);
  EXPECT_EQ(set.m_lID, 102);
}

TEST_P(Positions, MoveToDeltaZeroAnswersTheCurrentPosition) {
  Fill(4);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(3);
  EXPECT_EQ(set.MoveToDelta(0), 3);
  EXPECT_EQ(set.m_lID, 103);
}

TEST_P(Positions, MoveToDeltaPastTheStartSetsTheFlagAndStaysThere) {
  Fill(4);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(3);
  EXPECT_EQ(set.MoveToDelta(-5), 0);
  EXPECT_NE(set.IsBOF(), 0);
  EXPECT_EQ(set.GetIndexPos(), 0);
  EXPECT_EQ(set.MoveToDelta(2), 0);
  EXPECT_EQ(set.MoveToDelta(0), 0);
  EXPECT_NE(set.IsBOF(), 0);
  EXPECT_EQ(set.MoveToIntID(102), 0) << "a set before its first row finds nothing";
}

TEST_P(Positions, MoveToDeltaPastTheEndSetsTheFlagAndStaysThere) {
  Fill(4);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(3);
  EXPECT_EQ(set.MoveToDelta(5), 0);
  EXPECT_NE(set.IsEOF(), 0);
  EXPECT_EQ(set.m_lCurrentRecord, -2);
  EXPECT_EQ(set.MoveToDelta(-1), 0);
  EXPECT_NE(set.IsEOF(), 0);
}

TEST_P(Positions, MoveToDeltaByOnePastAnEndAnswersZero) {
  Fill(1);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.MoveToDelta(1), 0);
  EXPECT_NE(set.IsEOF(), 0);
  set.MoveToPos(1);
  EXPECT_EQ(set.MoveToDelta(-1), 0);
  EXPECT_NE(set.IsBOF(), 0);
}

TEST_P(Positions, MoveToIntIDFindsTheRowOfAKey) {
  Fill(6);
  ShelfSet set;
  set.m_strSort = "tShelfIDPk DESC";
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.MoveToIntID(102), 5);
  EXPECT_EQ(set.m_lID, 102);
}

TEST_P(Positions, MoveToIntIDWithAnUnknownKeyAnswersTheFirstRow) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(2);
  EXPECT_EQ(set.MoveToIntID(999), 1);
  EXPECT_EQ(set.m_lID, 101) << "callers see the miss by the key";
}

TEST_P(Positions, MoveToIntIDInAnEmptySetAnswersZero) {
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.MoveToIntID(101), 0);
}

TEST_P(Positions, GetByPosWithZeroWritesTheCurrentPosition) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(2);
  LONG position = 0;
  EXPECT_EQ(set.GetByPos(&position), 0);
  EXPECT_EQ(position, 2);
}

TEST_P(Positions, GetByPosMovesToThePositionAndLeavesItAsItIs) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  LONG position = 3;
  EXPECT_EQ(set.GetByPos(&position), 0);
  EXPECT_EQ(position, 3);
  EXPECT_EQ(set.m_lID, 103);
  EXPECT_EQ(set.GetByPos(nullptr), 0);
  EXPECT_EQ(set.GetIndexPos(), 3);
  position = 4;
  EXPECT_EQ(set.GetByPos(&position), 64);
  EXPECT_EQ(position, 4);
}

TEST_P(Positions, GetByPosOnAnEmptySetAnswersNoRow) {
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  LONG position = 0;
  EXPECT_EQ(set.GetByPos(&position), 64);
  EXPECT_EQ(position, 0);
  position = 1;
  EXPECT_EQ(set.GetByPos(&position), 64);
}

class UniqueTest : public ShelfTest {};
INSTANTIATE_WITH_AND_WITHOUT_OWNER(UniqueTest);

TEST_P(UniqueTest, NoRowGives64) {
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.IsUniqueRecord(), 64);
}

TEST_P(UniqueTest, OneRowGivesZeroAndIsCurrent) {
  Fill(1);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.IsUniqueRecord(), 0);
  EXPECT_EQ(set.GetIndexPos(), 1);
  EXPECT_EQ(set.m_lID, 101);
}

TEST_P(UniqueTest, TwoRowsGive52AndTheSecondIsCurrent) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.IsUniqueRecord(), 52);
  EXPECT_EQ(set.GetIndexPos(), 2);
  EXPECT_EQ(set.m_lID, 102);
}

class TryRequery : public ShelfTest {};
INSTANTIATE_WITH_AND_WITHOUT_OWNER(TryRequery);

TEST_P(TryRequery, AClosedSetIsOpenedAndSaysSo) {
  Fill(2);
  ShelfSet set;
  int opened = 0;
  EXPECT_EQ(set.TryRequery(&opened), 0);
  EXPECT_EQ(opened, 1);
  EXPECT_NE(set.IsOpen(), 0);
}

TEST_P(TryRequery, AnOpenSetIsRequeriedAndNotSaidToBeOpened) {
  Fill(2);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(2);
  set.m_strFilter = "tShelfIDPk=102";
  int opened = 0;
  EXPECT_EQ(set.TryRequery(&opened), 0);
  EXPECT_EQ(opened, 0);
  EXPECT_EQ(set.m_lID, 102);
  EXPECT_EQ(set.MoveToPos(2), 0) << "the new filter holds";
}

// A set as callers write it, whose opening is refused without an exception.
class UnopenableSet : public ShelfSet {
 public:
  BOOL Open(UINT, const char*, DWORD) override { return FALSE; }
};

TEST_P(TryRequery, ASetThatDoesNotOpenGivesThree) {
  UnopenableSet set;
  int opened = 0;
  EXPECT_EQ(set.TryRequery(&opened), 3);
  EXPECT_EQ(opened, 0);
  LONG key = 7;
  EXPECT_EQ(set.GetLastID(&key), 3);
  EXPECT_EQ(key, 7);
  EXPECT_EQ(set.GetFieldSize(17), -1);
}

class OwnSet : public ShelfTest {};
INSTANTIATE_WITH_AND_WITHOUT_OWNER(OwnSet);

TEST_P(OwnSet, RowsAreAddedEditedAndReadThroughIt) {
  ShelfSet set;
  set.AddNew();
  set.m_lID = 7;
  set.m_name = "M\xC3\xBCller's";
  set.m_bought = Ts(2001, 5, 6);
  EXPECT_NE(set.Update(), 0);
  EXPECT_EQ(Raw().Text("SELECT tShelfSName FROM TShelf WHERE tShelfIDPk=7"), "M\xC3\xBCller's");
  ASSERT_NE(set.Requery(), 0);
  set.Edit();
  set.m_name = "";
  EXPECT_NE(set.Update(), 0);
  EXPECT_EQ(Raw().Text("SELECT tShelfSName FROM TShelf WHERE tShelfIDPk=7"), "");
  EXPECT_EQ(support::TimeText(set.m_bought), "2001-05-06 00:00:00");
}

TEST_P(OwnSet, FiltersAndSortsByItsOwnFieldIds) {
  Fill(12);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  char pattern[] = "shelf 1%";
  EXPECT_EQ(set.SetFilter(17, 16, pattern, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(set.SetSortIndex(1 | 0x80), 0);
  LONG count = 0;
  EXPECT_EQ(set.GetMaxPos(&count), 0);
  EXPECT_EQ(count, 4);
  EXPECT_EQ(set.m_lID, 112);
}

// The operations call each other as a derived set defines them.
class TurnedSet : public ShelfSet {
 public:
  LONG MoveToPos(LONG position) override { return ShelfSet::MoveToPos(4 - position); }
};

TEST_P(OwnSet, AnOverriddenMoveToPosChangesReadingAndDeletingByPosition) {
  Fill(3);
  TurnedSet set;
  ASSERT_TRUE(set.OpenNow());
  LONG position = 1;
  EXPECT_EQ(set.GetByPos(&position), 0);
  EXPECT_EQ(set.m_lID, 103);
  EXPECT_EQ(set.DeleteByPos(3), 0);
  EXPECT_EQ(Raw().Count("TShelf", "tShelfIDPk=101"), 0);
}

}  // namespace
