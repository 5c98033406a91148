// The texts that packed sort orders become, and what filters and sorts do to open sets.
#include "recset/pat_rec.h"
#include "recset/stat_rec.h"
#include "tests/db/any_field_set.h"
#include "tests/db/shelf_set.h"

namespace {

using support::Ts;

class Sort : public testing::Test {
 protected:
  std::string Now() const { return Text(m_set.m_strSort); }
  AnyFieldSet m_set;
};

TEST_F(Sort, KeysAreSeparatedByACommaAndCarryTheirOwnBlank) {
  CPatRec patients(nullptr, nullptr);
  EXPECT_EQ(patients.SetSortIndex((17 | 0x80) | (22 << 8)), 0);
  EXPECT_EQ(Text(patients.m_strSort), " tPatSName DESC, tPatSFirstname");
  EXPECT_EQ(patients.m_lSortIndex, 17 + 128 + 22 * 256);
}

TEST_F(Sort, TheStationsExpressionHasNoLeadingBlank) {
  CStatRec stations(nullptr, nullptr);
  EXPECT_EQ(stations.SetSortIndex(17), 0);
  EXPECT_EQ(Text(stations.m_strSort), "tStatSName");
  CPatRec patients(nullptr, nullptr);
  EXPECT_EQ(patients.SetSortIndex(17), 0);
  EXPECT_EQ(Text(patients.m_strSort), " tPatSName");
}

TEST_F(Sort, FourKeysAreTaken) {
  EXPECT_EQ(m_set.SetSortIndex(static_cast<LONG>(1u | (0x82u << 8) | (3u << 16) | (0x84u << 24))), 0);
  EXPECT_EQ(Now(), " c1, c2 DESC, c3, c4 DESC");
}

TEST_F(Sort, AZeroByteEndsTheList) {
  EXPECT_EQ(m_set.SetSortIndex(1 | (2 << 16)), 0);
  EXPECT_EQ(Now(), " c1");
  EXPECT_EQ(m_set.m_lSortIndex, 1 | (2 << 16));
}

TEST_F(Sort, ZeroOnAFreshSetDoesNothing) {
  m_set.m_strSort = "mine";
  EXPECT_EQ(m_set.SetSortIndex(0), 0);
  EXPECT_EQ(Now(), "mine");
}

TEST_F(Sort, TheSameIndexAgainDoesNothing) {
  ASSERT_EQ(m_set.SetSortIndex(5), 0);
  m_set.m_strSort = "mine";
  EXPECT_EQ(m_set.SetSortIndex(5), 0);
  EXPECT_EQ(Now(), "mine");
}

TEST_F(Sort, AnUnknownFirstKeyIsRefusedAndEmptiesTheOrder) {
  ASSERT_EQ(m_set.SetSortIndex(5), 0);
  m_set.m_unknown = 9;
  EXPECT_EQ(m_set.SetSortIndex(9 | (1 << 8)), 1);
  EXPECT_EQ(Now(), "");
  EXPECT_EQ(m_set.m_lSortIndex, 5);
  ASSERT_EQ(m_set.SetSortIndex(6), 0);
  EXPECT_EQ(m_set.SetSortIndex(0), 1);
  EXPECT_EQ(Now(), "");
  EXPECT_EQ(m_set.m_lSortIndex, 6);
}

TEST_F(Sort, AnUnknownLaterKeyLeavesAComma) {
  m_set.m_unknown = 9;
  EXPECT_EQ(m_set.SetSortIndex(5 | (9 << 8) | (6 << 16)), 0);
  EXPECT_EQ(Now(), " c5,");
  EXPECT_EQ(m_set.m_lSortIndex, 5 | (9 << 8) | (6 << 16));
}

// On open sets: what is queried again, and what is not.
class OpenShelves : public ShelfTest {};
INSTANTIATE_WITH_AND_WITHOUT_OWNER(OpenShelves);

TEST_P(OpenShelves, AFilterIsQueriedAtOnceAndTheFirstRowIsCurrent) {
  Fill(9);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(8);
  LONG key = 104;
  EXPECT_EQ(set.SetFilter(1, 3, &key, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(set.GetIndexPos(), 1);
  EXPECT_EQ(set.m_lID, 105);
}

TEST_P(OpenShelves, AFilterThatNoRowMeetsLeavesAnEmptySet) {
  Fill(2);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  char text[] = "O'Brien";
  EXPECT_EQ(set.SetFilter(17, 0, text, nullptr, nullptr, nullptr), 0);
  EXPECT_NE(set.IsOpen(), 0);
  EXPECT_EQ(set.GetByPos(nullptr), 64);
}

TEST_P(OpenShelves, ARefusedFilterIsNotQueried) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(2);
  LONG key = 1;
  EXPECT_EQ(set.SetFilter(5, 0, &key, nullptr, nullptr, nullptr), 1);
  EXPECT_EQ(set.SetFilter(1, 17, &key, &key, nullptr, nullptr), 1);
  EXPECT_EQ(set.GetIndexPos(), 2);
}

TEST_P(OpenShelves, AFilterWithoutFieldsIsRefusedByTheDatabaseAndClosesTheSet) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  bool thrown = false;
  try {
    set.SetFilter(0, 0, nullptr, nullptr, nullptr, nullptr);
  } catch (CDBException* exception) {
    thrown = true;
    exception->Delete();
  }
  EXPECT_TRUE(thrown);
  EXPECT_EQ(set.IsOpen(), 0);
  EXPECT_EQ(Text(set.m_strFilter), " (()) ");
}

TEST_P(OpenShelves, ASortOrderIsQueriedOnceForTheSameIndex) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  EXPECT_EQ(set.SetSortIndex(1 | 0x80), 0);
  EXPECT_EQ(set.m_lID, 103);
  set.MoveToPos(2);
  EXPECT_EQ(set.SetSortIndex(1 | 0x80), 0);
  EXPECT_EQ(set.GetIndexPos(), 2);
  EXPECT_EQ(set.SetSortIndex(5), 1);
  EXPECT_EQ(set.GetIndexPos(), 2) << "a refused order is not queried";
}

TEST_P(OpenShelves, SortCriteriaAreAppendedByTheirColumnNamesWithoutAQuery) {
  Fill(3);
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  set.MoveToPos(2);
  EXPECT_EQ(set.AddSortCriteria(17, 1), 0);
  EXPECT_EQ(set.AddSortCriteria(1, 0), 0);
  EXPECT_EQ(set.m_strSort.CompareNoCase("tShelfSName DESC, tShelfIDPk"), 0) << set.m_strSort.GetString();
  EXPECT_EQ(set.m_lSortIndex, 0);
  EXPECT_EQ(set.GetIndexPos(), 2);
  EXPECT_EQ(set.AddSortCriteria(99, 0), 1);
  ASSERT_NE(set.Requery(), 0);
  EXPECT_EQ(set.m_lID, 103);
}

TEST_P(OpenShelves, DatesAreFoundByTheirLiterals) {
  Fill(2);
  Raw().Exec("UPDATE TShelf SET tShelfDBought='1955-07-01' WHERE tShelfIDPk=102");
  ShelfSet set;
  ASSERT_TRUE(set.OpenNow());
  TIMESTAMP_STRUCT from = Ts(1950, 1, 1);
  TIMESTAMP_STRUCT to = Ts(1959, 12, 31);
  EXPECT_EQ(set.SetFilter(33, 17, &from, &to, nullptr, nullptr), 0);
  LONG count = 0;
  EXPECT_EQ(set.GetMaxPos(&count), 0);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(set.m_lID, 102);
  TIMESTAMP_STRUCT exact = Ts(1955, 7, 1);
  EXPECT_EQ(set.SetFilter(33, 0, &exact, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(set.m_lID, 102);
}

}  // namespace
