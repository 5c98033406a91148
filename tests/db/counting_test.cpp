// Counting the rows shown and the rows of the table, and the key of the last row.
#include "tests/db/shelf_set.h"

namespace {

class Counting : public ShelfTest {
 protected:
  // Makes the table hold exactly `rows`, at least 1024, by doubling.
  void FillUpTo(int rows) {
    Fill(1024);
    for (int have = 1024; have < rows; have *= 2) {
      Raw().Exec("INSERT INTO TShelf (tShelfIDPk, tShelfSName) SELECT tShelfIDPk + " + std::to_string(have) +
                 ", tShelfSName FROM TShelf");
    }
    Raw().Exec("DELETE FROM TShelf WHERE tShelfIDPk > " + std::to_string(100 + rows));
  }
};
INSTANTIATE_WITH_AND_WITHOUT_OWNER(Counting);

TEST_P(Counting, AnEmptyResultCountsZero) {
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  LONG count = 9;
  EXPECT_EQ(set.GetMaxPos(&count), 0);
  EXPECT_EQ(count, 0);
}

TEST_P(Counting, FewRowsAreCountedAndThePositionIsKept) {
  for (const LONG rows : {1, 2, 3}) {
    Raw().Exec("DELETE FROM TShelf");
    Fill(rows);
    for (LONG position = 1; position <= rows; ++position) {
      ShelfSet set;
      ASSERT_TRUE(set.OpenNow());
      set.MoveToPos(position);
      LONG count = 0;
      EXPECT_EQ(set.GetMaxPos(&count), 0);
      EXPECT_EQ(count, rows);
      EXPECT_EQ(set.GetIndexPos(), position);
      EXPECT_EQ(set.m_lID, 100 + position);
    }
  }
}

TEST_P(Counting, ExactlyTheFirstStepOfRowsIsCounted) {
  FillUpTo(32768);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  LONG count = 0;
  EXPECT_EQ(set.GetMaxPos(&count), 0);
  EXPECT_EQ(count, 32768);
}

TEST_P(Counting, OneRowMoreThanTheFirstStepIsCounted) {
  FillUpTo(32769);
  ShelfSet set;
  set.m_strSort = "tShelfIDPk";
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(20000);
  LONG count = 0;
  EXPECT_EQ(set.GetMaxPos(&count), 0);
  EXPECT_EQ(count, 32769);
  EXPECT_EQ(set.GetIndexPos(), 20000);
  EXPECT_EQ(set.m_lID, 20100);
}

TEST_P(Counting, OnlyTheRowsOfTheFilterAreCounted) {
  Fill(8);
  // A generated filter begins with a blank, the joined view's with a parenthesis, a caller's with neither.
  for (const char* filter : {" (( tShelfIDPk > 105)) ", "(tShelfIDPk > 105)", "tShelfIDPk > 105"}) {
    ShelfSet set;
    set.m_strFilter = filter;
    ASSERT_TRUE(set.OpenNow());
    LONG count = 0;
    EXPECT_EQ(set.GetMaxPos(&count), 0) << filter;
    EXPECT_EQ(count, 3) << filter;
  }
}

TEST_P(Counting, RowsDeletedThroughTheSetDoNotCount) {
  Fill(5);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.DeleteByPos(2);
  LONG count = 0;
  EXPECT_EQ(set.GetMaxPos(&count), 0);
  EXPECT_EQ(count, 4);
}

TEST_P(Counting, NullPointersAreAnsweredWithoutCounting) {
  Fill(2);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.GetMaxPos(nullptr), 1);
  EXPECT_EQ(set.GetNum(nullptr), 0);
  EXPECT_EQ(set.GetLastID(nullptr), 1);
}

TEST_P(Counting, AClosedSetCountsZeroByItsCursorAndItsRowsByAQuery) {
  Fill(2);
  ShelfSet set;
  LONG count = 9;
  EXPECT_EQ(set.GetMaxPos(&count), 0);
  EXPECT_EQ(count, GetParam() ? 0 : 2);
}

TEST_P(Counting, ASetAfterItsEndCountsItsRowsAndDoesNotStandOnOne) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(9);
  LONG count = 0;
  EXPECT_EQ(set.GetMaxPos(&count), 0);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(set.GetIndexPos(), -1);
}

TEST_P(Counting, APositionThatIsGoneGivesFiveWhereTheCursorCounts) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.m_lCurrentRecord = 8;
  LONG count = 0;
  EXPECT_EQ(set.GetMaxPos(&count), GetParam() ? 5 : 0);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(set.GetIndexPos(), GetParam() ? -1 : 9);
  EXPECT_EQ(set.IsEOF() != 0, GetParam());
}

TEST_P(Counting, GetNumCountsTheWholeTableAndKeepsFilterAndPosition) {
  Fill(7);
  ShelfSet set;
  set.m_strFilter = " (( tShelfIDPk > 103)) ";
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(3);
  LONG count = 0;
  EXPECT_EQ(set.GetNum(&count), 0);
  EXPECT_EQ(count, 7);
  EXPECT_EQ(set.m_strFilter, " (( tShelfIDPk > 103)) ");
  EXPECT_EQ(set.GetIndexPos(), 3);
  EXPECT_EQ(set.m_lID, 106);
}

TEST_P(Counting, GetNumOfAClosedSetLeavesItClosed) {
  Fill(4);
  ShelfSet set;
  set.m_strFilter = "tShelfIDPk=101";
  LONG count = 0;
  EXPECT_EQ(set.GetNum(&count), 0);
  EXPECT_EQ(count, 4);
  EXPECT_EQ(set.IsOpen(), 0);
  EXPECT_EQ(set.m_strFilter, "tShelfIDPk=101");
}

TEST_P(Counting, AfterAFailedMoveCountingAllByTheCursorLeavesTheSetBeforeItsFirstRow) {
  Fill(4);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(9);
  LONG count = 0;
  EXPECT_EQ(set.GetNum(&count), 0);
  EXPECT_EQ(count, 4);
  EXPECT_EQ(set.GetIndexPos(), GetParam() ? 0 : -1);
  EXPECT_EQ(set.IsBOF() != 0, GetParam());
}

TEST_P(Counting, GetLastIDIsTheLastKeyOfTheSortOrderWhateverTheFilter) {
  Fill(5);
  ShelfSet set;
  set.m_strSort = "tShelfIDPk DESC";
  set.m_strFilter = "tShelfIDPk > 103";
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(2);
  LONG key = 0;
  EXPECT_EQ(set.GetLastID(&key), 0);
  EXPECT_EQ(key, 101);
  EXPECT_EQ(set.m_strFilter, "tShelfIDPk > 103");
  EXPECT_EQ(set.m_strSort, "tShelfIDPk DESC");
  EXPECT_EQ(set.GetIndexPos(), 2);
  EXPECT_EQ(set.m_lID, 104);
}

TEST_P(Counting, WithoutASortOrderGetLastIDIsTheHighestKey) {
  // The highest key is neither the first nor the last row stored.
  Raw().Exec("INSERT INTO TShelf (tShelfIDPk) VALUES (5)");
  Raw().Exec("INSERT INTO TShelf (tShelfIDPk) VALUES (90)");
  Raw().Exec("INSERT INTO TShelf (tShelfIDPk) VALUES (7)");
  ShelfSet set;
  LONG key = 0;
  EXPECT_EQ(set.GetLastID(&key), 0);
  EXPECT_EQ(key, 90);
  EXPECT_TRUE(set.m_strSort.IsEmpty());
  EXPECT_EQ(set.IsOpen(), 0);
}

TEST_P(Counting, GetLastIDOfAnEmptyTableWritesZero) {
  ShelfSet set;
  LONG key = 9;
  EXPECT_EQ(set.GetLastID(&key), 0);
  EXPECT_EQ(key, 0);
  ASSERT_TRUE(set.OpenNow());
  key = 9;
  EXPECT_EQ(set.GetLastID(&key), 0);
  EXPECT_EQ(key, 0);
}

// Throws what `call` threw into oblivion; true when there was something.
template <class Call>
bool Throws(Call call) {
  try {
    call();
  } catch (CDBException* exception) {
    exception->Delete();
    return true;
  }
  return false;
}

TEST_P(Counting, WhenTheTableIsMissingTheFilterAndSortAreRestored) {
  Raw().Exec("DROP TABLE TShelf");
  ShelfSet set;
  set.m_strFilter = "tShelfIDPk=1";
  LONG number = 0;
  EXPECT_TRUE(Throws([&] { set.GetNum(&number); }));
  EXPECT_EQ(set.m_strFilter, "tShelfIDPk=1");
  EXPECT_TRUE(Throws([&] { set.GetLastID(&number); }));
  EXPECT_EQ(set.m_strFilter, "tShelfIDPk=1");
  EXPECT_TRUE(set.m_strSort.IsEmpty());
  EXPECT_EQ(set.IsOpen(), 0);
}

// The count fails after the table was opened for it.
class UncountableSet : public ShelfSet {
 public:
  WORD GetMaxPos(LONG*) override {
    ThrowDBException(SQL_ERROR);
    return 0;
  }
};

TEST_P(Counting, WhenCountingFailsASetOpenedForItIsClosedAgain) {
  Fill(2);
  UncountableSet set;
  set.m_strFilter = "tShelfIDPk=101";
  LONG count = 0;
  // Without an owner the rows are counted by a query, for which nothing is opened.
  EXPECT_EQ(Throws([&] { set.GetNum(&count); }), GetParam());
  EXPECT_EQ(count, GetParam() ? 0 : 2);
  EXPECT_EQ(set.IsOpen(), 0);
  EXPECT_EQ(set.m_strFilter, "tShelfIDPk=101");
}

}  // namespace
