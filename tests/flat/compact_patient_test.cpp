// Patients in the compact record.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "frame/KyODBC.h"
#include "tests/support/fixtures.h"

using support::SetText;
using support::SetUnterminated;
using support::Text;
using support::TimeText;
using support::Val;

namespace {

class CompactPatients : public support::ConnectedTest {
 protected:
  void SetUp() override {
    support::ConnectedTest::SetUp();
    m_doctor = AddDoctor("Dr. House");
  }
  static LONG AddDoctor(const std::string& name) {
    tagTDOCTOR doctor{};
    SetText(doctor.szName, name);
    EXPECT_EQ(DB_AddNewTDr(&doctor), 0);
    return Val(doctor.lDrID);
  }
  static tagPATIENTCOMPACT Patient(const std::string& identifier = "SL1") {
    tagPATIENTCOMPACT record{};
    SetText(record.szName, "Meyer");
    SetText(record.szFirstname, "Anna");
    record.wYear = 1961;
    record.byMonth = 2;
    record.byDay = 3;
    SetText(record.szDrName, "Dr. House");
    SetText(record.szIdent, identifier);
    record.bySex = 2;
    return record;
  }
  static tagPATIENTCOMPACT Added(const std::string& identifier = "SL1") {
    tagPATIENTCOMPACT record = Patient(identifier);
    EXPECT_EQ(DB_AddNewPat(&record), 0);
    EXPECT_NE(Val(record.dwID), 0u);
    return record;
  }
  static tagTPATIENT Stored(DWORD key) {
    tagTPATIENT patient{};
    patient.lPatID = static_cast<LONG>(key);
    EXPECT_EQ(DB_GetTPat(&patient), 0);
    return patient;
  }
  int Patients(const std::string& condition = "1=1") { return Raw().Count("TPatient", condition); }

  LONG m_doctor = 0;
};

TEST_F(CompactPatients, AddStoresEveryFieldAndHandsBackTheKey) {
  const tagPATIENTCOMPACT record = Added();
  const tagTPATIENT stored = Stored(record.dwID);
  EXPECT_EQ(Text(stored.szName), "Meyer");
  EXPECT_EQ(Text(stored.szFirstname), "Anna");
  EXPECT_EQ(TimeText(stored.dBirthday), TimeText(support::Ts(1961, 2, 3)));
  EXPECT_EQ(Val(stored.lDrID), m_doctor);
  EXPECT_EQ(Text(stored.szSlidaID), "SL1");
  EXPECT_EQ(Text(stored.szExtPatID), "");
  EXPECT_EQ(Text(stored.szIDDisp), "SL1");
  EXPECT_EQ(Text(stored.szSex), "f");
  EXPECT_EQ(Val(stored.lSelect), 0);
}

TEST_F(CompactPatients, AddHandsBackTheDayOfEntryAsLastDisplay) {
  tagPATIENTCOMPACT record = Patient();
  record.wDispYear = 1999;
  const TIMESTAMP_STRUCT before = support::Now();
  ASSERT_EQ(DB_AddNewPat(&record), 0);
  const TIMESTAMP_STRUCT entry = Stored(record.dwID).dEntry;
  EXPECT_EQ(Val(record.wDispYear), entry.year);
  EXPECT_EQ(record.byDispMonth, entry.month);
  EXPECT_EQ(record.byDispDay, entry.day);
  EXPECT_GE(entry.year, before.year);
}

TEST_F(CompactPatients, AddLeavesTheDoctorsNameAndTheReservedByteOfTheRecord) {
  tagPATIENTCOMPACT record = Patient();
  record.byReserved = 77;
  ASSERT_EQ(DB_AddNewPat(&record), 0);
  EXPECT_EQ(Text(record.szDrName), "Dr. House");
  EXPECT_EQ(record.byReserved, 77);
}

TEST_F(CompactPatients, AddWithAnUnknownDoctorGives64AndInsertsNothing) {
  tagPATIENTCOMPACT record = Patient();
  SetText(record.szDrName, "Dr. Who");
  EXPECT_EQ(DB_AddNewPat(&record), 64);
  EXPECT_EQ(Val(record.dwID), 0u);
  EXPECT_EQ(Patients(), 0);
}

TEST_F(CompactPatients, AddWithoutADoctorGivesOneAndInsertsNothing) {
  tagPATIENTCOMPACT record = Patient();
  SetText(record.szDrName, "");
  EXPECT_EQ(DB_AddNewPat(&record), 1);
  EXPECT_EQ(Patients(), 0);
}

TEST_F(CompactPatients, AddWithADoctorsNameThatTwoHaveGives52AndInsertsNothing) {
  Raw().Exec("INSERT INTO TDoctor (tDrSName) VALUES ('Dr. House')");
  tagPATIENTCOMPACT record = Patient();
  EXPECT_EQ(DB_AddNewPat(&record), 52);
  EXPECT_EQ(Patients(), 0);
}

TEST_F(CompactPatients, TheDefaultDoctorIsFoundByItsName) {
  tagPATIENTCOMPACT record = Patient();
  SetText(record.szDrName, "-");
  EXPECT_EQ(DB_AddNewPat(&record), 0);
  EXPECT_EQ(Val(Stored(record.dwID).lDrID), 1);
}

TEST_F(CompactPatients, ADoctorsNameLongerThanTheFieldIsNeverFound) {
  AddDoctor("Dr. Livingstone");
  tagPATIENTCOMPACT record = Patient();
  SetText(record.szDrName, "Dr. Livingst");
  EXPECT_EQ(DB_AddNewPat(&record), 64);
}

TEST_F(CompactPatients, AnIdentifierThatExistsAlreadyGives52AndTheRowStays) {
  Added("SL1");
  tagPATIENTCOMPACT record = Patient("SL1");
  EXPECT_EQ(DB_AddNewPat(&record), 52);
  EXPECT_EQ(Patients("tPatSSlidaID='SL1'"), 2);
}

TEST_F(CompactPatients, ABraceMarksTheExternalIdentifier) {
  const tagPATIENTCOMPACT record = Added("}EXT-4711");
  const tagTPATIENT stored = Stored(record.dwID);
  EXPECT_EQ(Text(stored.szExtPatID), "EXT-4711");
  EXPECT_EQ(Text(stored.szSlidaID), "");
  EXPECT_EQ(Text(stored.szIDDisp), "EXT-4711");
}

TEST_F(CompactPatients, AddedExternalIdentifierComesBackAsItsMarkAlone) {
  tagPATIENTCOMPACT record = Added("}EXT-4711");
  EXPECT_EQ(Text(record.szIdent), "}");
  EXPECT_EQ(DB_GetPat(&record), 0);
  EXPECT_EQ(Text(record.szIdent), "}EXT-4711");
}

TEST_F(CompactPatients, EditedExternalIdentifierComesBackAsItsMarkAlone) {
  tagPATIENTCOMPACT record = Added("}EXT-1");
  SetText(record.szIdent, "}EXT-2");
  EXPECT_EQ(DB_EditPat(&record), 0);
  EXPECT_EQ(Text(record.szIdent), "}");
  EXPECT_EQ(Text(Stored(record.dwID).szExtPatID), "EXT-2");
}

TEST_F(CompactPatients, AnIdentifierMayFillItsField) {
  const std::string slida(20, 's');
  tagPATIENTCOMPACT record = Added(slida);
  EXPECT_EQ(DB_GetPat(&record), 0);
  EXPECT_EQ(Text(record.szIdent), slida);
  const std::string external = "}" + std::string(19, 'e');
  tagPATIENTCOMPACT other = Patient(external);
  SetText(other.szFirstname, "Berta");
  ASSERT_EQ(DB_AddNewPat(&other), 0);
  EXPECT_EQ(DB_GetPat(&other), 0);
  EXPECT_EQ(Text(other.szIdent), external);
}

TEST_F(CompactPatients, ALongerExternalIdentifierIsCutTo19Characters) {
  const tagPATIENTCOMPACT added = Added("}x");
  Raw().Exec("UPDATE TPatient SET tPatSExtPatID='123456789012345678901234'");
  tagPATIENTCOMPACT record{};
  record.dwID = added.dwID;
  EXPECT_EQ(DB_GetPat(&record), 0);
  EXPECT_EQ(Text(record.szIdent), "}1234567890123456789");
}

TEST_F(CompactPatients, WithoutAnyIdentifierThePatientIsFoundByNameAndBirthday) {
  tagPATIENTCOMPACT record = Patient("");
  EXPECT_EQ(DB_AddNewPat(&record), 0);
  EXPECT_EQ(Text(record.szIdent), "}");
  tagPATIENTCOMPACT found = Patient("");
  EXPECT_EQ(DB_GetPat(&found), 0);
  EXPECT_EQ(Val(found.dwID), Val(record.dwID));
  EXPECT_EQ(Text(found.szIdent), "}");
}

TEST_F(CompactPatients, SexIsOneForMaleTwoForFemaleAndZeroForAllElse) {
  const struct {
    BYTE given;
    const char* stored;
    BYTE back;
  } rows[] = {
      {1,   "m", 1},
      {2,   "f", 2},
      {0,   "-", 0},
      {3,   "-", 0},
      {255, "-", 0}
  };
  int n = 0;
  for (const auto& row : rows) {
    tagPATIENTCOMPACT record = Patient("SEX" + std::to_string(++n));
    record.bySex = row.given;
    ASSERT_EQ(DB_AddNewPat(&record), 0);
    EXPECT_EQ(Text(Stored(record.dwID).szSex), row.stored);
    EXPECT_EQ(DB_GetPat(&record), 0);
    EXPECT_EQ(record.bySex, row.back);
  }
}

TEST_F(CompactPatients, EditWritesTheFieldsOfTheCompactRecordOnly) {
  tagPATIENTCOMPACT record = Added();
  Raw().Exec(
      "UPDATE TPatient SET tPatSSrvID='SRV', tPatSSocID='SOC', tPatFSelect=1, tPatDEntry='2001-02-03', "
      "tPatTsLastDisp='2002-03-04 05:06:07'");
  const LONG other_doctor = AddDoctor("Dr. Other");
  SetText(record.szName, "Schmidt");
  SetText(record.szFirstname, "Berta");
  record.wYear = 1971;
  SetText(record.szDrName, "Dr. Other");
  SetText(record.szIdent, "SL2");
  record.bySex = 1;
  record.wDispYear = 1980;
  EXPECT_EQ(DB_EditPat(&record), 0);
  const tagTPATIENT stored = Stored(record.dwID);
  EXPECT_EQ(Text(stored.szName), "Schmidt");
  EXPECT_EQ(Text(stored.szFirstname), "Berta");
  EXPECT_EQ(Val(stored.dBirthday.year), 1971);
  EXPECT_EQ(Val(stored.lDrID), other_doctor);
  EXPECT_EQ(Text(stored.szSlidaID), "SL2");
  EXPECT_EQ(Text(stored.szIDDisp), "SL2");
  EXPECT_EQ(Text(stored.szSex), "m");
  EXPECT_EQ(Text(stored.szSrvID), "SRV");
  EXPECT_EQ(Text(stored.szSocID), "SOC");
  EXPECT_EQ(Val(stored.lSelect), 1);
  EXPECT_EQ(TimeText(stored.dEntry), TimeText(support::Ts(2001, 2, 3)));
  EXPECT_EQ(TimeText(stored.tsLastDisp), TimeText(support::Ts(2002, 3, 4, 5, 6, 7)));
}

TEST_F(CompactPatients, EditSelectedWritesTheFieldsOfTheMaskOnly) {
  tagPATIENTCOMPACT record = Added();
  SetText(record.szName, "Schmidt");
  SetText(record.szFirstname, "Berta");
  EXPECT_EQ(DB_EditSelPat(&record, KYODBC_MASK_PAT_FIRSTNAME), 0);
  const tagTPATIENT stored = Stored(record.dwID);
  EXPECT_EQ(Text(stored.szName), "Meyer");
  EXPECT_EQ(Text(stored.szFirstname), "Berta");
}

TEST_F(CompactPatients, EditSelectedNeverWritesOtherFieldsWhateverTheMask) {
  tagPATIENTCOMPACT record = Added();
  Raw().Exec("UPDATE TPatient SET tPatSSrvID='SRV', tPatFSelect=1, tPatTsLastDisp='2002-03-04 05:06:07'");
  EXPECT_EQ(DB_EditSelPat(&record, KYODBC_MASK_ALL & ~0x1EBu), 0);
  const tagTPATIENT stored = Stored(record.dwID);
  EXPECT_EQ(Text(stored.szSrvID), "SRV");
  EXPECT_EQ(Val(stored.lSelect), 1);
  EXPECT_EQ(Val(stored.tsLastDisp.year), 2002);
}

TEST_F(CompactPatients, EditWithAnUnknownDoctorGives64AndWritesNothing) {
  tagPATIENTCOMPACT record = Added();
  SetText(record.szName, "Schmidt");
  SetText(record.szDrName, "Dr. Who");
  EXPECT_EQ(DB_EditPat(&record), 64);
  EXPECT_EQ(Text(Stored(record.dwID).szName), "Meyer");
}

TEST_F(CompactPatients, EditFoundByIdentifierHandsBackTheKey) {
  const tagPATIENTCOMPACT added = Added("SL1");
  tagPATIENTCOMPACT record = Patient("SL1");
  SetText(record.szName, "Schmidt");
  EXPECT_EQ(DB_EditPat(&record), 0);
  EXPECT_EQ(Val(record.dwID), Val(added.dwID));
  EXPECT_EQ(Text(Stored(added.dwID).szName), "Schmidt");
}

TEST_F(CompactPatients, APatientThatDoesNotExistGives21) {
  tagPATIENTCOMPACT record = Patient("SL9");
  EXPECT_EQ(DB_GetPat(&record), 21);
  EXPECT_EQ(DB_EditPat(&record), 21);
  EXPECT_EQ(DB_DeletePat(&record), 21);
  record.dwID = 4711;
  EXPECT_EQ(DB_GetPat(&record), 21);
  EXPECT_EQ(DB_EditPat(&record), 21);
  EXPECT_EQ(DB_DeletePat(&record), 21);
}

TEST_F(CompactPatients, SeveralMatchingPatientsGive52) {
  for (int i = 0; i < 2; ++i)
    Raw().Exec("INSERT INTO TPatient (tPatSSlidaID, tPatCulIntDrIDFk) VALUES ('TWIN', 1)");
  tagPATIENTCOMPACT record = Patient("TWIN");
  EXPECT_EQ(DB_GetPat(&record), 52);
  EXPECT_EQ(DB_EditPat(&record), 52);
  EXPECT_EQ(DB_DeletePat(&record), 52);
  EXPECT_EQ(Patients(), 2);
}

TEST_F(CompactPatients, ARecordThatNamesNoPatientGivesOne) {
  tagPATIENTCOMPACT record{};
  SetText(record.szDrName, "Dr. House");
  EXPECT_EQ(DB_GetPat(&record), 1);
  EXPECT_EQ(DB_EditPat(&record), 1);
  EXPECT_EQ(DB_DeletePat(&record), 1);
}

TEST_F(CompactPatients, GetReadsTheJoinedRow) {
  tagPATIENTCOMPACT record{};
  record.dwID = Added().dwID;
  record.byReserved = 77;
  EXPECT_EQ(DB_GetPat(&record), 0);
  EXPECT_EQ(Text(record.szName), "Meyer");
  EXPECT_EQ(Text(record.szFirstname), "Anna");
  EXPECT_EQ(Val(record.wYear), 1961);
  EXPECT_EQ(record.byMonth, 2);
  EXPECT_EQ(record.byDay, 3);
  EXPECT_EQ(Text(record.szDrName), "Dr. House");
  EXPECT_EQ(Text(record.szIdent), "SL1");
  EXPECT_EQ(record.bySex, 2);
  EXPECT_EQ(record.byReserved, 0);
}

TEST_F(CompactPatients, GetCutsLongTextsToTheirFields) {
  const tagPATIENTCOMPACT added = Added();
  Raw().Exec("UPDATE TPatient SET tPatSName='" + std::string(40, 'n') + "', tPatSSlidaID='" +
             std::string(40, 's') + "'");
  Raw().Exec("UPDATE TDoctor SET tDrSName='" + std::string(11, 'd') + "\xC3\xBC" +
             "' WHERE tDrSName='Dr. House'");
  tagPATIENTCOMPACT record{};
  record.dwID = added.dwID;
  EXPECT_EQ(DB_GetPat(&record), 0);
  EXPECT_EQ(Text(record.szName), std::string(32, 'n'));
  EXPECT_EQ(Text(record.szIdent), std::string(20, 's'));
  EXPECT_EQ(Text(record.szDrName), std::string(11, 'd'));  // the cut leaves no half character
}

TEST_F(CompactPatients, GetOfAPatientWithoutADoctorGives21) {
  tagPATIENTCOMPACT record = Added();
  Raw().Exec("DELETE FROM TDoctor WHERE tDrSName='Dr. House'");
  const tagPATIENTCOMPACT before = record;
  EXPECT_EQ(DB_GetPat(&record), 21);
  EXPECT_EQ(std::memcmp(&before, &record, sizeof record), 0);
}

TEST_F(CompactPatients, GetByPosReadsTheJoinedViewsRow) {
  Added("SL1");
  tagPATIENTCOMPACT second = Patient("SL2");
  SetText(second.szFirstname, "Berta");
  ASSERT_EQ(DB_AddNewPat(&second), 0);
  tagPATIENTCOMPACT record{};
  EXPECT_EQ(DB_GetPatByPos(&record, 1), 64);  // closed
  ASSERT_EQ(DB_SetPatExSortIndex(KYODBC_FIELD_KEY), 0);
  ASSERT_EQ(DB_OpenPatEx(), 0);
  EXPECT_EQ(DB_GetPatByPos(&record, 2), 0);
  EXPECT_EQ(Val(record.dwID), Val(second.dwID));
  EXPECT_EQ(Text(record.szFirstname), "Berta");
  EXPECT_EQ(Text(record.szDrName), "Dr. House");
  EXPECT_EQ(DB_GetPatExIndexPos(), 2);
  EXPECT_EQ(DB_GetPatByPos(&record, 0), 0);
  EXPECT_EQ(Val(record.dwID), Val(second.dwID));
  const tagPATIENTCOMPACT before = record;
  EXPECT_EQ(DB_GetPatByPos(&record, 3), 64);
  EXPECT_EQ(std::memcmp(&before, &record, sizeof record), 0);
}

TEST_F(CompactPatients, DeleteRemovesThePatientWithoutAskingForTheDoctor) {
  tagPATIENTCOMPACT record = Added();
  SetText(record.szDrName, "Dr. Who");
  EXPECT_EQ(DB_DeletePat(&record), 0);
  EXPECT_EQ(Patients(), 0);
}

TEST_F(CompactPatients, DeleteNeverDeletesTheSelectedPatients) {
  Added();
  Raw().Exec("UPDATE TPatient SET tPatFSelect=1");
  tagPATIENTCOMPACT record{};
  EXPECT_EQ(DB_DeletePat(&record), 1);
  EXPECT_EQ(Patients(), 1);
}

TEST_F(CompactPatients, EveryChangeShowsInBothOpenViews) {
  ASSERT_EQ(DB_OpenTPat(), 0);
  ASSERT_EQ(DB_OpenPatEx(), 0);
  tagPATIENTCOMPACT record = Added();
  EXPECT_EQ(DB_MoveToTPatByPos(1), 1);
  EXPECT_EQ(DB_MoveToPatExByPos(1), 1);
  SetText(record.szFirstname, "Berta");
  EXPECT_EQ(DB_EditPat(&record), 0);
  tagTPATIENT patient{};
  tagTPATIENTEX joined{};
  EXPECT_EQ(DB_GetTPatByPos(1, &patient), 0);
  EXPECT_EQ(DB_GetPatExByPos(1, &joined), 0);
  EXPECT_EQ(Text(patient.szFirstname), "Berta");
  EXPECT_EQ(Text(joined.szFirstname), "Berta");
  EXPECT_EQ(DB_DeletePat(&record), 0);
  EXPECT_EQ(DB_MoveToTPatByPos(1), 0);
  EXPECT_EQ(DB_MoveToPatExByPos(1), 0);
}

TEST_F(CompactPatients, NullRecordsGiveOne) {
  EXPECT_EQ(DB_AddNewPat(nullptr), 1);
  EXPECT_EQ(DB_EditPat(nullptr), 1);
  EXPECT_EQ(DB_EditSelPat(nullptr, 1), 1);
  EXPECT_EQ(DB_DeletePat(nullptr), 1);
  EXPECT_EQ(DB_GetPat(nullptr), 1);
  EXPECT_EQ(DB_GetPatByPos(nullptr, 1), 1);
}

TEST_F(CompactPatients, UnterminatedTextsEndWithTheirFields) {
  AddDoctor(std::string(12, 'd'));
  tagPATIENTCOMPACT record{};
  SetUnterminated(record.szName, 'n');
  SetUnterminated(record.szFirstname, 'f');
  SetUnterminated(record.szDrName, 'd');
  SetUnterminated(record.szIdent, 'i');
  record.wYear = 1961;
  record.byMonth = record.byDay = 1;
  EXPECT_EQ(DB_AddNewPat(&record), 0);
  EXPECT_EQ(
      Patients("tPatSName='" + std::string(32, 'n') + "' AND tPatSSlidaID='" + std::string(20, 'i') + "'"),
      1);
  EXPECT_EQ(Text(record.szName), std::string(32, 'n'));
}

TEST_F(CompactPatients, ADatabaseThatRefusesGivesTheWorkersCodes) {
  tagPATIENTCOMPACT record = Added();
  MakeReadOnly("TPatient");
  SetText(record.szName, "Schmidt");
  EXPECT_EQ(DB_EditPat(&record), 6);
  EXPECT_EQ(DB_DeletePat(&record), 8);
  tagPATIENTCOMPACT other = Patient("SL2");
  EXPECT_EQ(DB_AddNewPat(&other), 6);
  EXPECT_EQ(Patients(), 1);
}

}  // namespace
