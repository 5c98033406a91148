// Finding a patient in the joined view by its sort values.
#include <vector>

#include "tests/db/joined_view.h"

namespace {

constexpr LONG kDescending = 0x80;

class PatExSeek : public JoinedView {
 protected:
  // Every patient of the view is found where a walk over the same rows finds it. The order of rows with equal
  // sort values is the database's own and may change from one execution to the next, so one set does both.
  static void ExpectAllFound(LONG sort_index) {
    CPatExRec view(nullptr, nullptr);
    OpenSorted(view, sort_index);
    std::vector<LONG> keys;
    while (view.MoveToPos(static_cast<LONG>(keys.size()) + 1) != 0) keys.push_back(view.m_lID);
    ASSERT_FALSE(keys.empty());
    LONG position = 0;
    for (const LONG key : keys) {
      EXPECT_EQ(view.MoveToIntID(key), ++position) << "key " << key << ", sort " << sort_index;
      EXPECT_EQ(view.m_lID, key);
      EXPECT_EQ(view.GetIndexPos(), position);
    }
  }

  void AddMany() {
    Add(1, 20, "Meier", "Zoe", "'1960-01-01'");
    Add(2, 10, "Adam", "Karl", "'1980-05-05'");
    Add(3, 10, "Meier", "Anna", "'1950-12-31'");
    Add(4, 30, "O''Neil", "Pat", "'1970-07-07'");
    Add(5, 20, "Meier", "Anna", "'1990-01-01'");
    Add(6, 30, "Zoll", "Ida", "'1960-01-01'");
    Add(7, 99, "Nodoc", "Ida", "'1960-01-01'");
  }
};
INSTANTIATE_VIEW_WITH_AND_WITHOUT_OWNER(PatExSeek);

TEST_P(PatExSeek, ByOneKeyOfEveryKind) {
  AddMany();
  for (const LONG key : {17, 19, 20, 22, 33, 34, 49}) {
    ExpectAllFound(key);
    ExpectAllFound(key | kDescending);
  }
}

TEST_P(PatExSeek, BySeveralKeysInBothDirections) {
  AddMany();
  ExpectAllFound(17 | ((33 | kDescending) << 8));
  ExpectAllFound((17 | kDescending) | (22 << 8) | (33 << 16));
  ExpectAllFound(static_cast<LONG>(20u | (17u << 8) | ((22u | 0x80u) << 16) | (33u << 24)));
}

TEST_P(PatExSeek, AmongEqualSortValuesThePatientItselfIsFound) {
  for (int key = 1; key <= 6; ++key) Add(key, 10, "Meier", "Anna");
  Add(7, 10, "Zoll");
  ExpectAllFound(17);
  ExpectAllFound(17 | (22 << 8) | (33 << 16));
}

TEST_P(PatExSeek, KeysThatCannotBeSoughtByEndTheSearchAndAreWalked) {
  AddMany();
  ExpectAllFound(4);
  ExpectAllFound(35 | kDescending);
  ExpectAllFound(17 | (4 << 8) | (22 << 16));
  ExpectAllFound(17 | (35 << 8));
}

TEST_P(PatExSeek, EmptyTextsAndMissingDatesAreFound) {
  AddMany();
  Add(11, 10, "Meier", "", "NULL");
  Add(12, 10, "", "", "'1955-05-05'");
  Add(13, 10, "", "Bea", "NULL");
  Add(14, 20, "Meier", "", "'1955-05-05'");
  for (const LONG down : {0, kDescending}) {
    ExpectAllFound(17 | (22 << 8) | ((33 | down) << 16));
    ExpectAllFound((22 | down) | (17 << 8));
    ExpectAllFound(17 | ((22 | down) << 8) | (33 << 16));
    ExpectAllFound((33 | down) | (17 << 8));
  }
}

TEST_P(PatExSeek, OnlyTheRowsOfTheFilterCount) {
  AddMany();
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 17 | (22 << 8));
  char name[] = "B";
  ASSERT_EQ(view.SetFilter(17, 3, name, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(view.MoveToIntID(6), 5);
  EXPECT_EQ(view.m_lID, 6);
  EXPECT_EQ(view.MoveToIntID(1), 3);
  EXPECT_EQ(view.m_lID, 1);
}

TEST_P(PatExSeek, APatientHiddenByTheFilterLeadsToTheRowThatFollows) {
  AddMany();
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 17);
  char name[] = "Adam";
  ASSERT_EQ(view.SetFilter(17, 7, name, nullptr, nullptr, nullptr), 0);
  view.MoveToPos(3);
  EXPECT_EQ(view.MoveToIntID(2), 1);
  EXPECT_EQ(view.m_strName, "Meier");
}

TEST_P(PatExSeek, AHiddenPatientBehindAllRowsGivesZero) {
  AddMany();
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 17);
  char name[] = "Zoll";
  ASSERT_EQ(view.SetFilter(17, 7, name, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(view.MoveToIntID(6), 0);
}

TEST_P(PatExSeek, AnUnknownPatientGivesZeroAndThePositionIsKept) {
  AddMany();
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 17);
  view.MoveToPos(3);
  const LONG current = view.m_lID;
  for (const LONG key : {999, 0, -1, 7}) {
    EXPECT_EQ(view.MoveToIntID(key), 0) << key;
    EXPECT_EQ(view.GetIndexPos(), 3);
    EXPECT_EQ(view.m_lID, current);
  }
}

TEST_P(PatExSeek, WithoutASortOrderTheRowsAreSearchedOneByOne) {
  AddMany();
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 0);
  const LONG position = view.MoveToIntID(5);
  EXPECT_GT(position, 0);
  EXPECT_EQ(view.m_lID, 5);
}

TEST_P(PatExSeek, AClosedViewGivesZero) {
  AddMany();
  CPatExRec view(nullptr, nullptr);
  EXPECT_EQ(view.MoveToIntID(1), 0);
  EXPECT_EQ(view.GetIndexPos(), 0);
}

TEST_P(PatExSeek, ADatabaseErrorLeavesThePositionAsItIs) {
  AddMany();
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 17);
  char name[] = "Adam";
  ASSERT_EQ(view.SetFilter(17, 7, name, nullptr, nullptr, nullptr), 0);
  view.MoveToPos(3);
  view.m_strFilter = "no such column = 1";
  EXPECT_EQ(view.MoveToIntID(2), 3) << "hidden by the filter, so that rows have to be counted";
  EXPECT_EQ(view.GetIndexPos(), 3);
}

TEST_P(PatExSeek, ATextOfTheLeadingSortKeyIsFoundInTheViewAsInThePatients) {
  AddMany();
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 17);
  EXPECT_EQ(view.MoveToSortValue("N"), 5) << "the patient without a doctor does not count";
  EXPECT_EQ(view.m_lID, 4);
  EXPECT_EQ(view.m_strDrName, "Dr. Thirty");
  EXPECT_EQ(view.MoveToSortValue("Zz"), 0);
  EXPECT_EQ(view.GetIndexPos(), 1);
  ASSERT_EQ(view.SetSortIndex(20), 0);
  EXPECT_EQ(view.MoveToSortValue("Dr. Th"), 5) << view.m_strDrName.GetString();
  EXPECT_EQ(view.m_strDrName, "Dr. Thirty");
}

}  // namespace
