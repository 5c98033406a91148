// What a browse set shows of rows that change while it is open. Without an owner it is a dynaset: rows are
// read when they are visited. With one it is a snapshot, which keeps what it read.
#include <set>
#include <vector>

#include "tests/support/fixtures.h"

namespace {

class Dynaset : public support::ConnectedTest {
 protected:
  void Fill(int patients) {
    for (int key = 1; key <= patients; ++key) {
      Raw().Exec(
          "INSERT INTO TPatient (tPatCulIntPatIDPk, tPatCulIntDrIDFk, tPatSName, tPatSFirstname) VALUES (" +
          std::to_string(key) + ",1,'" + Name(key) + "','F')");
    }
  }
  // Names in the order of keys.
  static std::string Name(int key) { return "N" + std::to_string(1000 + key); }
  void Rename(int key, const std::string& name) {
    Raw().Exec("UPDATE TPatient SET tPatSName='" + name + "' WHERE tPatCulIntPatIDPk=" + std::to_string(key));
  }
  void Erase(int key) { Raw().Exec("DELETE FROM TPatient WHERE tPatCulIntPatIDPk=" + std::to_string(key)); }
  void OpenByName() {
    ASSERT_EQ(DB_SetTPatSortIndex(17), 0);
    ASSERT_EQ(DB_OpenTPat(), 0);
  }
  bool IsSnapshot() const { return !m_practice.Owner().empty(); }
  static LONG KeyShown() {
    tagTPATIENT patient{};
    return DB_GetTPatByPos(0, &patient) == 0 ? patient.lPatID : 0;
  }
  static std::string NameShown() {
    tagTPATIENT patient{};
    return DB_GetTPatByPos(0, &patient) == 0 ? patient.szName : "";
  }
};

TEST_F(Dynaset, AWalkOverManyRowsShowsEachOnceInBothDirections) {
  constexpr int kRows = 400;
  Fill(kRows);
  OpenByName();
  for (int key = 1; key <= kRows; ++key) {
    ASSERT_EQ(DB_GetTPatIndexPos(), key);
    ASSERT_EQ(KeyShown(), key);
    ASSERT_EQ(NameShown(), Name(key));
    ASSERT_EQ(DB_MoveToTPatByDelta(1), key < kRows ? key + 1 : 0);
  }
  ASSERT_EQ(DB_MoveToTPatByPos(kRows), kRows);
  for (int key = kRows; key >= 1; --key) {
    ASSERT_EQ(NameShown(), Name(key));
    ASSERT_EQ(DB_MoveToTPatByDelta(-1), key - 1);
  }
}

TEST_F(Dynaset, JumpsAndStepsInAnyOrderShowTheRowOfThePosition) {
  constexpr int kRows = 200;
  Fill(kRows);
  OpenByName();
  unsigned state = 12345;
  LONG position = 1;
  for (int i = 0; i < 600; ++i) {
    state = state * 1103515245u + 12345u;
    const int what = static_cast<int>(state >> 16) % 8;
    if (what < 3 && position < kRows) {
      ASSERT_EQ(DB_MoveToTPatByDelta(1), ++position);
    } else if (what < 5 && position > 1) {
      ASSERT_EQ(DB_MoveToTPatByDelta(-1), --position);
    } else {
      position = static_cast<int>(state >> 16) % kRows + 1;
      ASSERT_EQ(DB_MoveToTPatByPos(position), position);
    }
    ASSERT_EQ(KeyShown(), position);
    ASSERT_EQ(NameShown(), Name(position));
  }
}

TEST_F(Dynaset, AVisitedRowShowsWhatOthersMadeOfItMeanwhile) {
  Fill(5);
  OpenByName();
  for (int i = 0; i < 4; ++i) DB_MoveToTPatByDelta(1);
  Rename(3, "Changed");
  ASSERT_EQ(DB_MoveToTPatByPos(3), 3);
  EXPECT_EQ(NameShown(), IsSnapshot() ? Name(3) : "Changed");
  EXPECT_EQ(KeyShown(), 3);
}

TEST_F(Dynaset, AVisitToTheCurrentRowReadsItAgain) {
  Fill(3);
  OpenByName();
  Rename(1, "Changed");
  EXPECT_EQ(NameShown(), Name(1)) << "no move, no visit";
  ASSERT_EQ(DB_MoveToTPatByPos(1), 1);
  EXPECT_EQ(NameShown(), IsSnapshot() ? Name(1) : "Changed");
}

TEST_F(Dynaset, AWalkPassesOverRowsThatOthersDeletedAndTheirPositionFails) {
  Fill(6);
  OpenByName();
  for (const int key : {2, 3, 6}) Erase(key);
  if (IsSnapshot()) {
    EXPECT_EQ(DB_MoveToTPatByDelta(1), 2);
    EXPECT_EQ(KeyShown(), 2);
    return;
  }
  EXPECT_EQ(DB_MoveToTPatByDelta(1), 4);
  EXPECT_EQ(KeyShown(), 4);
  EXPECT_EQ(DB_MoveToTPatByDelta(1), 5);
  EXPECT_EQ(DB_MoveToTPatByDelta(1), 0);
  EXPECT_EQ(DB_MoveToTPatByPos(4), 4);
  EXPECT_EQ(DB_MoveToTPatByDelta(-1), 1);
  for (const LONG position : {2, 3, 6, 7}) {
    EXPECT_EQ(DB_MoveToTPatByPos(position), 0) << position;
    tagTPATIENT patient{};
    EXPECT_EQ(DB_GetTPatByPos(position, &patient), 64) << position;
  }
  EXPECT_EQ(DB_MoveToTPatByPos(5), 5);
  EXPECT_EQ(KeyShown(), 5);
}

TEST_F(Dynaset, WhenAllRowsAreGoneNoMoveFindsOne) {
  Fill(3);
  OpenByName();
  for (const int key : {1, 2, 3}) Erase(key);
  if (IsSnapshot()) {
    EXPECT_EQ(DB_MoveToTPatByDelta(1), 2);
    return;
  }
  EXPECT_EQ(DB_MoveToTPatByDelta(1), 0);
  EXPECT_EQ(DB_MoveToTPatByPos(1), 0);
  EXPECT_EQ(DB_MoveToTPatByIntID(2), 0);
}

TEST_F(Dynaset, TheRowOfAPatientWhoIsGoneIsNotFoundByKey) {
  Fill(3);
  OpenByName();
  Erase(2);
  EXPECT_EQ(DB_MoveToTPatByIntID(3), 3);
  EXPECT_EQ(DB_MoveToTPatByIntID(2), IsSnapshot() ? 2 : 1);
  EXPECT_EQ(KeyShown(), IsSnapshot() ? 2 : 1);
}

TEST_F(Dynaset, AnAddedRowThatIsRolledBackIsNotThere) {
  Fill(2);
  OpenByName();
  ASSERT_EQ(DB_BeginTransaction(), 0);
  tagTPATIENT patient{};
  patient.lDrID = 1;
  support::SetText(patient.szName, "Z");
  support::SetText(patient.szFirstname, "F");
  patient.dBirthday = {1970, 1, 1, 0, 0, 0, 0};
  ASSERT_EQ(DB_AddNewTPat(&patient), 0);
  ASSERT_EQ(DB_MoveToTPatByPos(3), 3);
  ASSERT_EQ(DB_RollbackTransaction(), 0);
  LONG rows = 0;
  EXPECT_EQ(DB_GetNumTPat(&rows), 0);
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(DB_MoveToTPatByPos(3), IsSnapshot() ? 3 : 0);
}

TEST_F(Dynaset, AChangedSetStandsOnItsFirstRowAtTheNextLook) {
  Fill(5);
  OpenByName();
  ASSERT_EQ(DB_MoveToTPatByPos(4), 4);
  tagTPATIENT patient{};
  patient.lPatID = 3;
  support::SetText(patient.szName, "A");
  ASSERT_EQ(DB_EditSelTPat(&patient, 0x20), 0);
  EXPECT_NE(DB_IsTPatOpen(), 0);
  EXPECT_EQ(DB_GetTPatIndexPos(), 1);
  EXPECT_EQ(KeyShown(), 3) << "first by its new name";
  EXPECT_EQ(DB_MoveToTPatByDelta(1), 2);
  EXPECT_EQ(KeyShown(), 1);
}

TEST_F(Dynaset, RowsDeletedByPositionVanishFromAWalk) {
  Fill(100);
  OpenByName();
  std::set<LONG> left;
  for (int key = 1; key <= 100; ++key) left.insert(key);
  for (LONG position = 1; position <= 50; ++position) {
    ASSERT_EQ(DB_MoveToTPatByPos(position), position);
    left.erase(KeyShown());
    ASSERT_EQ(DB_DeleteTPatByPos(0), 0);
  }
  ASSERT_EQ(DB_MoveToTPatByPos(1), 1);
  std::set<LONG> walked{KeyShown()};
  while (DB_MoveToTPatByDelta(1) != 0) walked.insert(KeyShown());
  EXPECT_EQ(walked, left);
}

}  // namespace
