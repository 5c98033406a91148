// Where a table's flat calls differ from the family.
#include <cstring>
#include <string>

#include "frame/KyODBC.h"
#include "tests/support/fixtures.h"

namespace {

using support::SetText;
using support::Text;
using support::TimeText;
using support::Ts;
using support::Val;

class TableRules : public support::ConnectedTest {
 protected:
  static LONG AddDoctor(const std::string& name) {
    tagTDOCTOR doctor{};
    SetText(doctor.szName, name);
    EXPECT_EQ(DB_AddNewTDr(&doctor), 0);
    return Val(doctor.lDrID);
  }
  static tagTPATIENT AddPatient(const std::string& slida, LONG doctor = 1) {
    tagTPATIENT patient{};
    SetText(patient.szSlidaID, slida);
    patient.lDrID = doctor;
    EXPECT_EQ(DB_AddNewTPat(&patient), 0);
    return patient;
  }
};

// --- doctors and the joined view ---

class DoctorsInTheView : public TableRules {
 protected:
  void SetUp() override {
    TableRules::SetUp();
    m_doctor = AddDoctor("before");
    AddPatient("S1", m_doctor);
    AddPatient("S2", m_doctor);
    ASSERT_EQ(DB_OpenPatEx(), 0);
    ASSERT_EQ(DB_MoveToPatExByPos(2), 2);
  }
  WORD Rename(const char* name, DWORD mask) {
    tagTDOCTOR doctor{};
    doctor.lDrID = m_doctor;
    SetText(doctor.szName, name);
    return DB_EditSelTDr(&doctor, mask);
  }
  // The set stands on its first row after a requery, and where it was without one.
  static bool WasReadAgain() { return DB_GetPatExIndexPos() == 1; }

  LONG m_doctor = 0;
};

TEST_F(DoctorsInTheView, AnEditWithTheNamesBitReadsTheViewAgain) {
  EXPECT_EQ(Rename("after", KYODBC_MASK_DR_NAME), 0);
  EXPECT_TRUE(WasReadAgain());
  tagTPATIENTEX joined{};
  ASSERT_EQ(DB_GetPatExByPos(1, &joined), 0);
  EXPECT_EQ(Text(joined.szDrName), "after");
}

TEST_F(DoctorsInTheView, AnEditWithoutTheNamesBitLeavesTheViewAsItWas) {
  EXPECT_EQ(Rename("after", KYODBC_MASK_DR_SERVER_ID), 0);
  EXPECT_FALSE(WasReadAgain());
}

TEST_F(DoctorsInTheView, TheBitCountsAsPassedAlsoWhenTheDoctorIsFoundByName) {
  tagTDOCTOR doctor{};
  SetText(doctor.szName, "before");
  EXPECT_EQ(DB_EditTDr(&doctor), 0);
  EXPECT_TRUE(WasReadAgain());
}

TEST_F(DoctorsInTheView, AFailedEditLeavesTheViewAsItWas) {
  tagTDOCTOR doctor{};
  doctor.lDrID = 4711;
  EXPECT_EQ(DB_EditTDr(&doctor), 64);
  EXPECT_FALSE(WasReadAgain());
}

TEST_F(DoctorsInTheView, AddingAndDeletingADoctorLeavesTheViewAsItWas) {
  tagTDOCTOR doctor{};
  doctor.lDrID = AddDoctor("another");
  EXPECT_EQ(DB_DeleteTDr(&doctor), 0);
  EXPECT_FALSE(WasReadAgain());
}

TEST_F(DoctorsInTheView, AClosedViewStaysClosed) {
  ASSERT_EQ(DB_ClosePatEx(), 0);
  EXPECT_EQ(Rename("after", KYODBC_MASK_ALL), 0);
  EXPECT_EQ(DB_IsPatExOpen(), 0);
}

// --- patients and the joined view ---

TEST_F(TableRules, EveryChangeOfAPatientShowsInTheJoinedView) {
  ASSERT_EQ(DB_OpenPatEx(), 0);
  tagTPATIENT patient = AddPatient("S1");
  EXPECT_EQ(DB_MoveToPatExByPos(1), 1);
  SetText(patient.szName, "Meyer");
  EXPECT_EQ(DB_EditTPat(&patient), 0);
  tagTPATIENTEX joined{};
  EXPECT_EQ(DB_GetPatExByPos(1, &joined), 0);
  EXPECT_EQ(Text(joined.szName), "Meyer");
  EXPECT_EQ(DB_DeleteTPat(&patient), 0);
  EXPECT_EQ(DB_MoveToPatExByPos(1), 0);
}

TEST_F(TableRules, APatientMovesToItsKey) {
  for (const char* slida : {"S1", "S2", "S3"}) AddPatient(slida);
  ASSERT_EQ(DB_SetTPatSortIndex(KYODBC_FIELD_SLIDA_ID | KYODBC_DESCENDING), 0);
  ASSERT_EQ(DB_OpenTPat(), 0);
  const LONG first = Raw().Number("SELECT MIN(tPatCulIntPatIDPk) FROM TPatient");
  const LONG last = Raw().Number("SELECT MAX(tPatCulIntPatIDPk) FROM TPatient");
  EXPECT_EQ(DB_MoveToTPatByIntID(first), 3);
  EXPECT_EQ(DB_MoveToTPatByIntID(last), 1);
  tagTPATIENT patient{};
  EXPECT_EQ(DB_GetTPatByPos(0, &patient), 0);
  EXPECT_EQ(Val(patient.lPatID), last);
  EXPECT_EQ(DB_MoveToTPatByIntID(4711), 1);  // the first row when there is none
}

TEST_F(TableRules, APatientMovesToTheFirstSortValueNotBelowAText) {
  for (const char* slida : {"B", "D", "F"}) AddPatient(slida);
  EXPECT_EQ(DB_MoveToTPatByString("C"), 0);  // closed
  ASSERT_EQ(DB_SetTPatSortIndex(KYODBC_FIELD_SLIDA_ID), 0);
  ASSERT_EQ(DB_OpenTPat(), 0);
  EXPECT_EQ(DB_MoveToTPatByString("C"), 2);
  EXPECT_EQ(DB_GetTPatIndexPos(), 2);
  EXPECT_EQ(DB_MoveToTPatByString("D"), 2);
  EXPECT_EQ(DB_MoveToTPatByString("A"), 1);
  EXPECT_EQ(DB_MoveToTPatByString("Z"), 0);
  EXPECT_EQ(DB_GetTPatIndexPos(), 1);
  EXPECT_EQ(DB_MoveToTPatByString("'; DROP TABLE TPatient; --"), 1);
  EXPECT_EQ(DB_MoveToTPatByString(nullptr), 0);
}

TEST_F(TableRules, DeletingThroughOneRecordRemovesEverySelectedPatientFromBothViews) {
  for (const char* slida : {"S1", "S2", "S3"}) AddPatient(slida);
  Raw().Exec("UPDATE TPatient SET tPatFSelect=1 WHERE tPatSSlidaID<>'S2'");
  ASSERT_EQ(DB_OpenTPat(), 0);
  ASSERT_EQ(DB_OpenPatEx(), 0);
  tagTPATIENT selected{};
  selected.lSelect = 1;
  EXPECT_EQ(DB_DeleteTPat(&selected), 0);
  EXPECT_EQ(DB_MoveToTPatByPos(2), 0);
  EXPECT_EQ(DB_MoveToPatExByPos(2), 0);
  EXPECT_EQ(Raw().Text("SELECT tPatSSlidaID FROM TPatient"), "S2");
  EXPECT_EQ(DB_DeleteTPat(&selected), 21);
}

// --- tests ---

class PersonOfATest : public TableRules {
 protected:
  tagTTEST Added(const std::string& person) {
    tagTTEST test{};
    test.lUnitID = 1;
    test.ts = Ts(2001, 5, 6);
    SetText(test.szPerson, person);
    EXPECT_EQ(DB_AddNewTTest(&test), 0);
    return test;
  }
  std::string Stored() { return Raw().Text("SELECT tTstSPerson FROM TTest"); }
};

TEST_F(PersonOfATest, AnEmptyOneIsStoredAsAQuestionMarkByAnEdit) {
  tagTTEST test = Added("somebody");
  SetText(test.szPerson, "");
  EXPECT_EQ(DB_EditTTest(&test), 0);
  EXPECT_EQ(Stored(), "?");
  EXPECT_EQ(Text(test.szPerson), "?");
}

TEST_F(PersonOfATest, AGivenOneIsKept) {
  tagTTEST test = Added("somebody");
  SetText(test.szPerson, "else");
  EXPECT_EQ(DB_EditTTest(&test), 0);
  EXPECT_EQ(Stored(), "else");
}

TEST_F(PersonOfATest, AnAddKeepsAnEmptyOne) {
  const tagTTEST test = Added("");
  EXPECT_EQ(Text(test.szPerson), "");
  EXPECT_EQ(Stored(), "");
}

TEST_F(PersonOfATest, TheQuestionMarkReachesTheRecordWhateverTheMaskAndTheResult) {
  tagTTEST test = Added("somebody");
  SetText(test.szPerson, "");
  EXPECT_EQ(DB_EditSelTTest(&test, KYODBC_MASK_TEST_NAME), 0);
  EXPECT_EQ(Text(test.szPerson), "?");
  EXPECT_EQ(Stored(), "somebody");
  tagTTEST missing{};
  missing.lTstID = 4711;
  EXPECT_EQ(DB_EditTTest(&missing), 67);
  EXPECT_EQ(Text(missing.szPerson), "?");
}

// --- images, makros, groups, tests: counts and newest rows ---

TEST_F(TableRules, ImagesMoveToTheirKey) {
  for (int i = 1; i <= 3; ++i)
    Raw().Exec("INSERT INTO TImage (tImgSName) VALUES ('i" + std::to_string(i) + "')");
  ASSERT_EQ(DB_SetTImgSortIndex(KYODBC_FIELD_NAME | KYODBC_DESCENDING), 0);
  const LONG first = Raw().Number("SELECT MIN(tImgCulIntImgIDPk) FROM TImage");
  EXPECT_EQ(DB_MoveToTImgByIntID(first), 0);  // closed
  ASSERT_EQ(DB_OpenTImg(), 0);
  EXPECT_EQ(DB_MoveToTImgByIntID(first), 3);
  EXPECT_EQ(DB_MoveToTImgByIntID(4711), 1);
}

TEST_F(TableRules, AnImageDeletedByPositionRefreshesItsPatientsLastDisplay) {
  const tagTPATIENT patient = AddPatient("S1");
  Raw().Exec("UPDATE TPatient SET tPatDEntry='1990-01-02', tPatTsLastDisp='2001-05-06 10:00:00'");
  Raw().Exec("INSERT INTO TImage (tImgCulIntPatIDFk) VALUES (" + std::to_string(patient.lPatID) + ")");
  Raw().Exec("INSERT INTO TImage (tImgCulIntPatIDFk) VALUES (4711)");
  ASSERT_EQ(DB_SetTImgSortIndex(KYODBC_FIELD_KEY), 0);
  ASSERT_EQ(DB_OpenTImg(), 0);
  EXPECT_EQ(DB_DeleteTImgByPos(1), 0);
  tagTPATIENT read{};
  read.lPatID = patient.lPatID;
  ASSERT_EQ(DB_GetTPat(&read), 0);
  EXPECT_EQ(TimeText(read.tsLastDisp), TimeText(Ts(1990, 1, 2)));
}

TEST_F(TableRules, AFilterOrSortOnTheUnitOfImagesFails) {
  ASSERT_EQ(DB_OpenTImg(), 0);
  LONG unit = 1;
  EXPECT_EQ(DB_SetTImgFilter(KYODBC_FIELD_UNIT_KEY, KYODBC_EQUAL, &unit, nullptr, nullptr, nullptr), 31);
  EXPECT_EQ(DB_IsTImgOpen(), 0);
}

TEST_F(TableRules, CountsByOwnerCountThatOwnersRowsAndZeroCountsAll) {
  for (const char* owner : {"1", "2", "2"}) {
    Raw().Exec(std::string("INSERT INTO TImage (tImgCulIntPatIDFk) VALUES (") + owner + ")");
    Raw().Exec(std::string("INSERT INTO TMakro (tMakCulIntImgIDFk) VALUES (") + owner + ")");
    Raw().Exec(std::string("INSERT INTO TGroup (tGrpCulIntPatIDFk) VALUES (") + owner + ")");
    Raw().Exec(std::string("INSERT INTO TTest (tTstCulIntUnitIDFk) VALUES (") + owner + ")");
  }
  for (const auto count : {DB_GetNumTImg, DB_GetNumTMak, DB_GetNumTGrp, DB_GetNumTTest}) {
    LONG rows = -1;
    EXPECT_EQ(count(2, &rows), 0);
    EXPECT_EQ(rows, 2);
    EXPECT_EQ(count(3, &rows), 0);
    EXPECT_EQ(rows, 0);
    EXPECT_EQ(count(0, &rows), 0);
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(count(-1, &rows), 0);
    EXPECT_EQ(rows, 0);
  }
}

TEST_F(TableRules, NewestDatesHaveKeyAndTimeOfTheNewestRow) {
  for (const char* row :
       {"1, 1, '2001-05-06 10:00:00'", "2, 1, '2001-05-06 10:00:01'", "3, 2, '2002-01-01 00:00:00'"}) {
    const std::string values = std::string(" VALUES (") + row + ")";
    Raw().Exec("INSERT INTO TImage (tImgCulIntImgIDPk, tImgCulIntPatIDFk, tImgTs)" + values);
    Raw().Exec("INSERT INTO TMakro (tMakCulIntMakIDPk, tMakCulIntImgIDFk, tMakTsLast)" + values);
    Raw().Exec("INSERT INTO TTest (tTstCulIntTstIDPk, tTstCulIntUnitIDFk, tTstTs)" + values);
  }
  for (const auto newest : {DB_GetLastTImgDate, DB_GetLastTMakDate, DB_GetLastTTestDate}) {
    LONG key = 0;
    TIMESTAMP_STRUCT time{};
    EXPECT_EQ(newest(1, &key, &time), 0);
    EXPECT_EQ(key, 2);
    EXPECT_EQ(TimeText(time), "2001-05-06 10:00:01");
    EXPECT_EQ(newest(0, &key, nullptr), 0);
    EXPECT_EQ(key, 3);
    EXPECT_EQ(newest(1, nullptr, &time), 0);
    EXPECT_EQ(newest(0, nullptr, nullptr), 0);
  }
}

TEST_F(TableRules, WithoutARowTheNewestDatesHaveTheirTablesCodesAndLeaveTheOutputs) {
  LONG key = 77;
  TIMESTAMP_STRUCT time = Ts(1999, 1, 1);
  EXPECT_EQ(DB_GetLastTImgDate(1, &key, &time), 65);
  EXPECT_EQ(DB_GetLastTMakDate(1, &key, &time), 64);
  EXPECT_EQ(DB_GetLastTTestDate(1, &key, &time), 67);
  EXPECT_EQ(DB_GetLastTImgDate(0, nullptr, nullptr), 65);
  EXPECT_EQ(key, 77);
  EXPECT_EQ(time.year, 1999);
}

TEST_F(TableRules, NewestDatesGoIntoFieldsAtOddAddresses) {
  Raw().Exec("INSERT INTO TImage (tImgCulIntPatIDFk, tImgTs) VALUES (1, '2001-05-06 10:00:00')");
  char bytes[1 + sizeof(LONG) + sizeof(TIMESTAMP_STRUCT)] = {};
  LONG* key = reinterpret_cast<LONG*>(bytes + 1);
  TIMESTAMP_STRUCT* time = reinterpret_cast<TIMESTAMP_STRUCT*>(bytes + 1 + sizeof(LONG));
  EXPECT_EQ(DB_GetLastTImgDate(0, key, time), 0);
  TIMESTAMP_STRUCT read{};
  std::memcpy(&read, bytes + 1 + sizeof(LONG), sizeof read);
  EXPECT_EQ(TimeText(read), "2001-05-06 10:00:00");
}

}  // namespace
