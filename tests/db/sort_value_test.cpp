// Searching the patients by the value of their leading sort key.
#include <string>

#include "recset/pat_rec.h"
#include "tests/support/fixtures.h"

namespace {

class SortValues : public support::ConnectedTest, public testing::WithParamInterface<bool> {
 protected:
  SortValues() : ConnectedTest({.with_owner = GetParam()}) {}

  void SetUp() override {
    ConnectedTest::SetUp();
    Add(5, "Adam", "Zoe");
    Add(4, "Berg", "Yann");
    Add(3, "Berg", "Xaver");
    Add(2, "O'Neil", "Will");
    Add(1, "Zoll", "Vera");
  }
  void Add(int key, const std::string& name, const std::string& firstname) {
    std::string quoted = name;
    if (const auto quote = quoted.find('\''); quote != std::string::npos) quoted.insert(quote, "'");
    Raw().Exec("INSERT INTO TPatient (tPatCulIntPatIDPk, tPatSName, tPatSFirstname, tPatDBirthday) VALUES (" +
               std::to_string(key) + ",'" + quoted + "','" + firstname + "','195" + std::to_string(key) +
               "-01-01')");
  }
  // The patients, sorted and open.
  void OpenSorted(CPatRec& patients, LONG sort_index) {
    ASSERT_EQ(patients.SetSortIndex(sort_index), 0);
    ASSERT_NE(patients.Open(patients.m_nOpenType, nullptr, 0), 0);
  }
};
INSTANTIATE_TEST_SUITE_P(Patients, SortValues, testing::Bool(), [](const auto& instance) {
  return std::string(instance.param ? "WithOwner" : "WithoutOwner");
});

TEST_P(SortValues, TheFirstRowNotBelowTheTextBecomesCurrentAndIsRead) {
  CPatRec patients(nullptr, nullptr);
  OpenSorted(patients, 17);
  EXPECT_EQ(patients.MoveToSortValue("Berg"), 2);
  EXPECT_EQ(patients.m_strName, "Berg");
  EXPECT_EQ(patients.MoveToSortValue("C"), 4);
  EXPECT_EQ(patients.m_strName, "O'Neil");
  EXPECT_EQ(patients.m_lID, 2);
  EXPECT_EQ(patients.GetIndexPos(), 4);
  EXPECT_EQ(patients.MoveToSortValue("O'Neil"), 4);
  EXPECT_EQ(patients.MoveToSortValue("Z"), 5);
  EXPECT_EQ(patients.GetRecordCount(), 5);
}

TEST_P(SortValues, ATextBelowAllRowsLeadsToTheFirst) {
  CPatRec patients(nullptr, nullptr);
  OpenSorted(patients, 17);
  patients.MoveToPos(3);
  EXPECT_EQ(patients.MoveToSortValue("A"), 1);
  EXPECT_EQ(patients.MoveToSortValue(""), 1);
  EXPECT_EQ(patients.m_strName, "Adam");
}

TEST_P(SortValues, ATextAboveAllRowsGivesZeroAndTheFirstRowIsCurrent) {
  CPatRec patients(nullptr, nullptr);
  OpenSorted(patients, 17);
  patients.MoveToPos(3);
  EXPECT_EQ(patients.MoveToSortValue("Zz"), 0);
  EXPECT_EQ(patients.GetIndexPos(), 1);
  EXPECT_EQ(patients.m_strName, "Adam");
}

TEST_P(SortValues, OnlyTheRowsOfTheFilterCount) {
  CPatRec patients(nullptr, nullptr);
  OpenSorted(patients, 17);
  char name[] = "B";
  ASSERT_EQ(patients.SetFilter(17, 3, name, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(patients.MoveToSortValue("O"), 3);
  EXPECT_EQ(patients.m_lID, 2);
  EXPECT_EQ(std::string(patients.m_strFilter.View()), " (( tPatSName > 'B')) ");
}

TEST_P(SortValues, SeveralKindsOfLeadingKeysAreSearched) {
  for (const LONG key : {17, 19, 22}) {
    CPatRec patients(nullptr, nullptr);
    OpenSorted(patients, key);
    EXPECT_EQ(patients.MoveToSortValue(key == 22 ? "Will" : "O"), key == 22 ? 2 : 4) << key;
  }
  CPatRec patients(nullptr, nullptr);
  OpenSorted(patients, 33);
  EXPECT_EQ(patients.MoveToSortValue("1952-06-01"), 3);
  EXPECT_EQ(patients.m_lID, 3);
  CPatRec by_key(nullptr, nullptr);
  OpenSorted(by_key, 4);
  EXPECT_EQ(by_key.MoveToSortValue("3"), 3);
}

TEST_P(SortValues, WithoutASearchableKeyNothingMoves) {
  CPatRec patients(nullptr, nullptr);
  OpenSorted(patients, 17);
  patients.MoveToPos(3);
  for (const LONG sort_index : {0, 8, 64, 72, 8 | (17 << 8)}) {
    patients.m_lSortIndex = sort_index;
    EXPECT_EQ(patients.MoveToSortValue("Z"), 0) << sort_index;
    EXPECT_EQ(patients.GetIndexPos(), 3) << sort_index;
  }
}

TEST_P(SortValues, AnUnknownLeadingKeyAndANullTextMoveNothing) {
  CPatRec patients(nullptr, nullptr);
  OpenSorted(patients, 17);
  patients.MoveToPos(3);
  EXPECT_EQ(patients.MoveToSortValue(nullptr), 0);
  patients.m_lSortIndex = 5;
  EXPECT_EQ(patients.MoveToSortValue("Z"), 0);
  EXPECT_EQ(patients.GetIndexPos(), 3);
}

TEST_P(SortValues, AClosedAndAnEmptySetGiveZero) {
  CPatRec patients(nullptr, nullptr);
  ASSERT_EQ(patients.SetSortIndex(17), 0);
  EXPECT_EQ(patients.MoveToSortValue("Berg"), 0);
  EXPECT_EQ(patients.GetIndexPos(), 0);
  Raw().Exec("DELETE FROM TPatient");
  OpenSorted(patients, 17);
  EXPECT_EQ(patients.MoveToSortValue("Berg"), 0);
  EXPECT_EQ(patients.GetByPos(nullptr), 64);
}

}  // namespace
