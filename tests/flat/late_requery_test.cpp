// A change marks the open browse sets, and the next look reads them again: it shows what a set would show
// that had been read again at the change itself, whatever came in between.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/fixtures.h"

namespace {

constexpr LONG kUnknownField = 18;

class LateRequery : public support::ConnectedTest {
 protected:
  static LONG AddPatient(const std::string& name) {
    tagTPATIENT patient{};
    support::SetText(patient.szSlidaID, "S" + name);
    support::SetText(patient.szName, name);
    patient.lDrID = 1;
    EXPECT_EQ(DB_AddNewTPat(&patient), 0);
    return patient.lPatID;
  }
  static void RenamePatient(LONG key, const std::string& name) {
    tagTPATIENT patient{};
    patient.lPatID = key;
    support::SetText(patient.szName, name);
    EXPECT_EQ(DB_EditSelTPat(&patient, KYODBC_MASK_PAT_SURNAME), 0);
  }
  static LONG AddStation(const std::string& name) {
    tagTSTATION station{};
    support::SetText(station.szName, name);
    EXPECT_EQ(DB_AddNewTStat(&station), 0);
    return station.lStatID;
  }
  static std::string NameAt(LONG position) {
    tagTPATIENT patient{};
    EXPECT_EQ(DB_GetTPatByPos(position, &patient), 0);
    return support::Text(patient.szName);
  }
};

TEST_F(LateRequery, ARefusedSortLeavesTheRowsInTheirOrder) {
  AddPatient("B");
  const LONG last = AddPatient("C");
  AddPatient("A");
  for (const LONG refused : {LONG{0}, kUnknownField}) {
    ASSERT_EQ(DB_OpenTPat(), 0);
    ASSERT_EQ(DB_SetTPatSortIndex(KYODBC_FIELD_NAME), 0);
    RenamePatient(last, "D");
    EXPECT_EQ(DB_SetTPatSortIndex(refused), 1);
    EXPECT_EQ(NameAt(1) + NameAt(2) + NameAt(3), "ABD") << refused;
    ASSERT_EQ(DB_CloseTPat(), 0);
    ASSERT_EQ(DB_SetTPatSortIndex(KYODBC_FIELD_KEY), 0);
  }
}

TEST_F(LateRequery, ARefusedFilterOfTheJoinedViewLeavesTheRowsThatThereAre) {
  AddPatient("Adam");
  const LONG key = AddPatient("Moritz");
  ASSERT_EQ(DB_OpenPatEx(), 0);
  ASSERT_EQ(DB_SetPatExFilter(KYODBC_FIELD_NAME, KYODBC_LIKE, "M%", nullptr, nullptr, nullptr), 0);
  RenamePatient(key, "Max");
  EXPECT_EQ(DB_SetPatExFilter(kUnknownField, KYODBC_LIKE, "M%", nullptr, nullptr, nullptr), 1);
  tagTPATIENTEX patient{};
  EXPECT_EQ(DB_GetPatExByPos(1, &patient), 0);
  EXPECT_EQ(support::Text(patient.szName), "Max");
  EXPECT_EQ(DB_MoveToPatExByPos(2), 0);
}

TEST_F(LateRequery, ARowDeletedInATransactionIsGoneUntilTheSetIsReadAfterTheRollback) {
  AddStation("one");
  const LONG two = AddStation("two");
  ASSERT_EQ(DB_OpenTStat(), 0);
  ASSERT_EQ(DB_BeginTransaction(), 0);
  tagTSTATION station{};
  station.lStatID = two;
  ASSERT_EQ(DB_DeleteTStat(&station), 0);
  ASSERT_EQ(DB_RollbackTransaction(), 0);
  EXPECT_EQ(DB_MoveToTStatByPos(3), 0);
  EXPECT_EQ(DB_MoveToTStatByPos(2), 2);
  ASSERT_EQ(DB_OpenTStat(), 0);
  EXPECT_EQ(DB_MoveToTStatByPos(3), 3);
}

TEST_F(LateRequery, TheRowThatTheSetStandsOnShowsWhatWasRolledBackUntilTheSetIsReadAgain) {
  const LONG key = AddPatient("Before");
  ASSERT_EQ(DB_OpenTPat(), 0);
  ASSERT_EQ(DB_BeginTransaction(), 0);
  RenamePatient(key, "Within");
  ASSERT_EQ(DB_RollbackTransaction(), 0);
  EXPECT_EQ(NameAt(0), "Within");
  ASSERT_EQ(DB_OpenTPat(), 0);
  EXPECT_EQ(NameAt(0), "Before");
}

// One database lets nothing be read between the refusal and the rollback.
TEST_F(LateRequery, ASetStaysOpenAndReadableWhenAStatementBehindTheChangeWasRefused) {
  ASSERT_EQ(DB_OpenTStat(), 0);
  ASSERT_EQ(DB_OpenTDr(), 0);
  ASSERT_EQ(DB_BeginTransaction(), 0);
  AddStation("one");
  ASSERT_EQ(DB_SetTDrFilter(0, 0, nullptr, nullptr, nullptr, nullptr), 31);
  ASSERT_EQ(DB_RollbackTransaction(), 0);
  EXPECT_NE(DB_IsTStatOpen(), 0);
  EXPECT_EQ(DB_MoveToTStatByPos(1), 1);
  tagTSTATION station{};
  EXPECT_EQ(DB_GetTStatByPos(1, &station), 0);
  EXPECT_EQ(support::Text(station.szName), "-");
}

TEST_F(LateRequery, AKeyIsNotSearchedForFromBeforeTheFirstRowInAnUnsortedSet) {
  const LONG key = AddPatient("A");
  ASSERT_EQ(DB_OpenTPat(), 0);
  ASSERT_EQ(DB_OpenPatEx(), 0);
  ASSERT_EQ(DB_MoveToTPatByDelta(-5), 0);
  ASSERT_EQ(DB_MoveToPatExByDelta(-5), 0);
  EXPECT_EQ(DB_MoveToTPatByIntID(key), 0);
  EXPECT_EQ(DB_MoveToPatExByIntID(key), 0);
  ASSERT_EQ(DB_MoveToPatExByPos(1), 1);
  EXPECT_EQ(DB_MoveToPatExByIntID(key), 1);
}

}  // namespace
