// Names and sizes of columns, and adding, on sets that were never opened.
#include "tests/db/shelf_set.h"

namespace {

class Metadata : public ShelfTest {};
INSTANTIATE_WITH_AND_WITHOUT_OWNER(Metadata);

TEST_P(Metadata, AClosedSetTellsTheSizeOfATextAndIsClosedAgain) {
  Fill(2);
  ShelfSet set;
  EXPECT_EQ(set.GetFieldSize(17), 40);
  EXPECT_EQ(set.IsOpen(), 0);
}

TEST_P(Metadata, AClosedSetKeepsTheConditionWithoutRowsAsItsFilter) {
  ShelfSet set;
  set.m_strFilter = "tShelfIDPk=5";
  EXPECT_EQ(set.GetFieldSize(17), 40);
  EXPECT_EQ(set.m_strFilter, "1 = 2");
  set.m_strFilter = "tShelfIDPk=5";
  EXPECT_TRUE(set.GetFieldName(17).CompareNoCase("tShelfSName") == 0);
  EXPECT_EQ(set.m_strFilter, "1 = 2");
  LONG count = 7;
  EXPECT_EQ(set.GetMaxPos(&count), 0) << "the condition can be counted under";
  EXPECT_EQ(count, 0);
}

TEST_P(Metadata, AnOpenSetKeepsItsFilterItsRowsAndItsPosition) {
  Fill(3);
  ShelfSet set;
  set.m_strFilter = "tShelfIDPk>101";
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(2);
  EXPECT_EQ(set.GetFieldSize(17), 40);
  EXPECT_TRUE(set.GetFieldName(1).CompareNoCase("tShelfIDPk") == 0);
  EXPECT_NE(set.IsOpen(), 0);
  EXPECT_EQ(set.m_strFilter, "tShelfIDPk>101");
  EXPECT_EQ(set.GetIndexPos(), 2);
}

TEST_P(Metadata, NumbersAndDatesHaveNoSize) {
  ShelfSet set;
  EXPECT_EQ(set.GetFieldSize(1), -1);
  EXPECT_EQ(set.GetFieldSize(33), -1);
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.GetFieldSize(1), -1);
}

TEST_P(Metadata, AnUnknownFieldHasNeitherNameNorSizeAndTheSetIsClosedAgain) {
  ShelfSet set;
  set.m_strFilter = "tShelfIDPk=5";
  EXPECT_EQ(set.GetFieldSize(99), -1);
  EXPECT_EQ(set.IsOpen(), 0);
  EXPECT_EQ(set.m_strFilter, "1 = 2");
  EXPECT_TRUE(set.GetFieldName(99).IsEmpty());
  EXPECT_EQ(set.IsOpen(), 0);
  LONG error = 0;
  EXPECT_TRUE(set.GetFieldName(99, &error).IsEmpty());
  EXPECT_EQ(error, 1);
  EXPECT_TRUE(set.GetFieldName(99, nullptr).IsEmpty());
}

TEST_P(Metadata, ASetWhoseTableIsMissingGetsItsFilterBack) {
  Raw().Exec("DROP TABLE TShelf");
  ShelfSet set;
  set.m_strFilter = "tShelfIDPk=5";
  EXPECT_EQ(set.GetFieldSize(17), -1);
  EXPECT_EQ(set.m_strFilter, "tShelfIDPk=5");
  EXPECT_TRUE(set.GetFieldName(17).IsEmpty());
  EXPECT_EQ(set.m_strFilter, "tShelfIDPk=5");
  EXPECT_EQ(set.IsOpen(), 0);
}

TEST_P(Metadata, TheBaseClassKnowsNoField) {
  CKyRecSet set(nullptr, nullptr);
  LONG error = 0;
  EXPECT_TRUE(set.GetFieldName(1, &error).IsEmpty());
  EXPECT_EQ(error, 1);
  EXPECT_TRUE(set.GetFieldName(1).IsEmpty());
  EXPECT_EQ(set.GetFieldSize(1), -1);
}

TEST_P(Metadata, AddingToAClosedSetOpensItWithoutRowsAndKeepsItsFilter) {
  Fill(3);
  ShelfSet set;
  set.m_strFilter = "tShelfIDPk=102";
  set.AddNew();
  EXPECT_NE(set.IsOpen(), 0);
  EXPECT_EQ(set.m_strFilter, "tShelfIDPk=102");
  set.m_lID = 50;
  EXPECT_NE(set.Update(), 0);
  EXPECT_EQ(set.GetIndexPos(), 0) << "the set was opened without rows";
  EXPECT_EQ(Raw().Count("TShelf"), 4);
}

TEST_P(Metadata, AddingToAnOpenSetKeepsItsRows) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(2);
  set.AddNew();
  set.m_lID = 50;
  EXPECT_NE(set.Update(), 0);
  EXPECT_EQ(set.m_lID, 102);
  EXPECT_EQ(set.GetIndexPos(), 2);
}

TEST_P(Metadata, AFailedAddRestoresTheFilter) {
  Raw().Exec("DROP TABLE TShelf");
  ShelfSet set;
  set.m_strFilter = "tShelfIDPk=102";
  bool thrown = false;
  try {
    set.AddNew();
  } catch (CDBException* exception) {
    thrown = true;
    exception->Delete();
  }
  EXPECT_TRUE(thrown);
  EXPECT_EQ(set.m_strFilter, "tShelfIDPk=102");
  EXPECT_EQ(set.IsOpen(), 0);
}

}  // namespace
