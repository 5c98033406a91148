// The joined view: patients with the names of their doctors.
#include <cstring>
#include <string>

#include "frame/KyODBC.h"
#include "tests/support/fixtures.h"

namespace {

using support::SetText;
using support::Text;
using support::Val;

class JoinedView : public support::ConnectedTest {
 protected:
  void SetUp() override {
    support::ConnectedTest::SetUp();
    Raw().Exec("INSERT INTO TDoctor (tDrCulIntDrIDPk, tDrSName) VALUES (2, 'Zoe')");
    Raw().Exec("INSERT INTO TDoctor (tDrCulIntDrIDPk, tDrSName) VALUES (3, 'Adam')");
    Insert(11, "Bauer", 2);
    Insert(12, "Dorn", 3);
    Insert(13, "Ernst", 2);
    Insert(14, "Nobody", 99);  // whose doctor does not exist
  }
  void Insert(int key, const std::string& name, int doctor) {
    Raw().Exec(
        "INSERT INTO TPatient (tPatCulIntPatIDPk, tPatSName, tPatSSlidaID, tPatCulIntDrIDFk) VALUES (" +
        std::to_string(key) + ", '" + name + "', 'S" + std::to_string(key) + "', " + std::to_string(doctor) +
        ")");
  }
  static std::string NameAt(LONG position) {
    tagTPATIENTEX joined{};
    EXPECT_EQ(DB_GetPatExByPos(position, &joined), 0);
    return Text(joined.szName);
  }
  static void OpenByName() {
    ASSERT_EQ(DB_SetPatExSortIndex(KYODBC_FIELD_SURNAME), 0);
    ASSERT_EQ(DB_OpenPatEx(), 0);
  }
};

TEST_F(JoinedView, ShowsPatientsWithADoctorOnly) {
  OpenByName();
  LONG rows = 0;
  EXPECT_EQ(DB_GetPatExMaxPos(&rows), 0);
  EXPECT_EQ(rows, 3);
  EXPECT_EQ(NameAt(1), "Bauer");
  EXPECT_EQ(NameAt(3), "Ernst");
  EXPECT_EQ(DB_MoveToPatExByPos(4), 0);
}

TEST_F(JoinedView, RowsCarryTheDoctorsName) {
  OpenByName();
  tagTPATIENTEX joined{};
  EXPECT_EQ(DB_GetPatExByPos(2, &joined), 0);
  EXPECT_EQ(Val(joined.lPatID), 12);
  EXPECT_EQ(Val(joined.lDrID), 3);
  EXPECT_EQ(Text(joined.szDrName), "Adam");
}

TEST_F(JoinedView, OpensClosesAndMoves) {
  EXPECT_EQ(DB_IsPatExOpen(), 0);
  EXPECT_EQ(DB_GetPatExIndexPos(), 0);
  OpenByName();
  EXPECT_NE(DB_IsPatExOpen(), 0);
  EXPECT_EQ(DB_GetPatExIndexPos(), 1);
  EXPECT_EQ(DB_MoveToPatExByDelta(2), 3);
  EXPECT_EQ(DB_MoveToPatExByDelta(1), 0);
  EXPECT_EQ(DB_ClosePatEx(), 0);
  EXPECT_EQ(DB_ClosePatEx(), 0);
  EXPECT_EQ(DB_IsPatExOpen(), 0);
}

TEST_F(JoinedView, FiltersOnPatientsAndOnTheDoctorsName) {
  OpenByName();
  EXPECT_EQ(DB_SetPatExFilter(KYODBC_FIELD_DOCTOR_NAME, KYODBC_EQUAL, "Zoe", nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(NameAt(1), "Bauer");
  EXPECT_EQ(NameAt(2), "Ernst");
  EXPECT_EQ(DB_MoveToPatExByPos(3), 0);
  EXPECT_EQ(DB_SetPatExFilter(KYODBC_FIELD_NAME, KYODBC_EQUAL, "Dorn", nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(NameAt(1), "Dorn");
}

TEST_F(JoinedView, ARefusedFilterShowsEveryPatientWithADoctorAtTheNextReading) {
  OpenByName();
  ASSERT_EQ(DB_SetPatExFilter(KYODBC_FIELD_NAME, KYODBC_EQUAL, "Dorn", nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(DB_SetPatExFilter(18, KYODBC_EQUAL, "x", nullptr, nullptr, nullptr), 1);
  EXPECT_EQ(DB_MoveToPatExByPos(2), 0);
  EXPECT_EQ(DB_OpenPatEx(), 0);
  EXPECT_EQ(DB_MoveToPatExByPos(3), 3);
}

TEST_F(JoinedView, SortsByTheDoctorsName) {
  ASSERT_EQ(DB_SetPatExSortIndex(
                KYODBC_PACK(KYODBC_FIELD_DOCTOR_NAME, KYODBC_FIELD_NAME | KYODBC_DESCENDING, 0, 0)),
            0);
  ASSERT_EQ(DB_OpenPatEx(), 0);
  EXPECT_EQ(NameAt(1), "Dorn");
  EXPECT_EQ(NameAt(2), "Ernst");
  EXPECT_EQ(NameAt(3), "Bauer");
  EXPECT_EQ(DB_SetPatExSortIndex(18), 1);
}

TEST_F(JoinedView, MovesToAPatientsKey) {
  OpenByName();
  EXPECT_EQ(DB_MoveToPatExByIntID(13), 3);
  EXPECT_EQ(NameAt(0), "Ernst");
  EXPECT_EQ(DB_MoveToPatExByIntID(11), 1);
  EXPECT_EQ(DB_MoveToPatExByIntID(12), 2);
  EXPECT_EQ(DB_MoveToPatExByIntID(4711), 0);
  EXPECT_EQ(DB_GetPatExIndexPos(), 2);
}

TEST_F(JoinedView, MovesToASortValue) {
  OpenByName();
  EXPECT_EQ(DB_MoveToPatExByString("C"), 2);
  EXPECT_EQ(NameAt(0), "Dorn");
  EXPECT_EQ(DB_MoveToPatExByString("Z"), 0);
  EXPECT_EQ(DB_MoveToPatExByString(nullptr), 0);
}

TEST_F(JoinedView, CountsEveryPatientWithADoctorWhateverTheFilter) {
  OpenByName();
  ASSERT_EQ(DB_SetPatExFilter(KYODBC_FIELD_NAME, KYODBC_EQUAL, "Dorn", nullptr, nullptr, nullptr), 0);
  LONG rows = 0;
  EXPECT_EQ(DB_GetNumPatEx(&rows), 0);
  EXPECT_EQ(rows, 3);
  EXPECT_EQ(DB_GetPatExMaxPos(&rows), 0);
  EXPECT_EQ(rows, 1);
  EXPECT_EQ(NameAt(0), "Dorn");
}

TEST_F(JoinedView, ReadsOnePatientWithoutTouchingTheView) {
  OpenByName();
  ASSERT_EQ(DB_MoveToPatExByPos(2), 2);
  tagTPATIENTEX joined{};
  joined.lPatID = 13;
  EXPECT_EQ(DB_GetPatEx(&joined), 0);
  EXPECT_EQ(Text(joined.szName), "Ernst");
  EXPECT_EQ(Text(joined.szDrName), "Zoe");
  joined = tagTPATIENTEX{};
  SetText(joined.szSlidaID, "S12");
  EXPECT_EQ(DB_GetPatEx(&joined), 0);
  EXPECT_EQ(Text(joined.szDrName), "Adam");
  EXPECT_EQ(DB_GetPatExIndexPos(), 2);
}

TEST_F(JoinedView, APatientWithoutADoctorOrNoneAtAllGives21) {
  tagTPATIENTEX joined{};
  joined.lPatID = 14;
  const tagTPATIENTEX before = joined;
  EXPECT_EQ(DB_GetPatEx(&joined), 21);
  EXPECT_EQ(std::memcmp(&before, &joined, sizeof joined), 0);
  joined.lPatID = 4711;
  EXPECT_EQ(DB_GetPatEx(&joined), 21);
}

TEST_F(JoinedView, ARecordThatNamesNoPatientGivesOneAndSeveralGive52) {
  tagTPATIENTEX joined{};
  EXPECT_EQ(DB_GetPatEx(&joined), 1);
  Raw().Exec("UPDATE TPatient SET tPatSSlidaID='twin'");
  SetText(joined.szSlidaID, "twin");
  EXPECT_EQ(DB_GetPatEx(&joined), 52);
}

TEST_F(JoinedView, NullArgumentsGiveOne) {
  OpenByName();
  EXPECT_EQ(DB_GetPatEx(nullptr), 1);
  EXPECT_EQ(DB_GetPatExByPos(1, nullptr), 1);
  EXPECT_EQ(DB_GetPatExMaxPos(nullptr), 1);
  EXPECT_EQ(DB_GetNumPatEx(nullptr), 0);
}

TEST_F(JoinedView, AMissingTableGives31OnOpeningAndCounting) {
  TakeAway("TDoctor");
  EXPECT_EQ(DB_OpenPatEx(), 31);
  EXPECT_EQ(DB_IsPatExOpen(), 0);
  LONG rows = 77;
  EXPECT_EQ(DB_GetNumPatEx(&rows), 31);
  EXPECT_EQ(rows, 77);
}

}  // namespace
