// Adding, editing and deleting patients, and the fields that the library derives.
#include <cstdlib>
#include <fstream>
#include <string>

#include "platform/log.h"
#include "recset/pat_rec.h"
#include "tests/support/fixtures.h"

namespace {

using support::SetText;
using support::Text;
using support::TimeText;
using support::Ts;
using support::Val;

constexpr DWORD kAll = 0xFFFFFFFF;

class PatientOperations : public support::ConnectedTest {
 protected:
  static tagTPATIENT Patient(const std::string& slida, const std::string& service = "",
                             const std::string& external = "") {
    tagTPATIENT patient{};
    SetText(patient.szSlidaID, slida);
    SetText(patient.szSrvID, service);
    SetText(patient.szExtPatID, external);
    SetText(patient.szName, "Meyer");
    SetText(patient.szFirstname, "Anna");
    patient.dBirthday = Ts(1961, 2, 3);
    return patient;
  }
  static WORD Add(tagTPATIENT* patient) { return CPatRec(nullptr, nullptr).AddRow(patient); }
  static WORD Edit(tagTPATIENT* patient, DWORD mask) {
    return CPatRec(nullptr, nullptr).EditRow(patient, mask);
  }
  static WORD Delete(const tagTPATIENT& patient) { return CPatRec(nullptr, nullptr).DeleteRow(&patient); }
  static WORD Get(tagTPATIENT* patient) { return CPatRec(nullptr, nullptr).GetRow(patient); }
  static tagTPATIENT Added(tagTPATIENT patient) {
    EXPECT_EQ(Add(&patient), 0);
    return patient;
  }
  static tagTPATIENT Read(LONG key) {
    tagTPATIENT patient{};
    patient.lPatID = key;
    EXPECT_EQ(Get(&patient), 0);
    return patient;
  }
  int Patients(const std::string& condition = "1=1") { return Raw().Count("TPatient", condition); }
};

// --- add ---

TEST_F(PatientOperations, ANewPatientHasEntryAndLastDisplayOfToday) {
  tagTPATIENT patient = Patient("S1");
  patient.dEntry = Ts(1999, 1, 1);
  patient.tsLastDisp = Ts(1999, 1, 2, 3, 4, 5);
  TIMESTAMP_STRUCT today = support::Now();
  ASSERT_EQ(Add(&patient), 0);
  if (TimeText(patient.dEntry).substr(0, 10) != TimeText(today).substr(0, 10))
    today = support::Now();  // midnight
  today.hour = today.minute = today.second = 0;
  EXPECT_EQ(TimeText(patient.dEntry), TimeText(today));
  EXPECT_EQ(TimeText(patient.tsLastDisp), TimeText(today));
}

TEST_F(PatientOperations, AnAddedPatientComesBackAsStored) {
  const tagTPATIENT patient = Added(Patient("S1", "V1", "E1"));
  EXPECT_EQ(Val(patient.lPatID), Raw().Number("SELECT tPatCulIntPatIDPk FROM TPatient"));
  EXPECT_EQ(Text(patient.szIDDisp), "S1");
}

TEST_F(PatientOperations, AnAddThatTheDatabaseRefusesIsTriedNineTimes) {
  MakeReadOnly("TPatient");
  const std::string file = m_practice.Folder() / "log.txt";
  setenv("KYODBC_LOG", "error", 1);
  setenv("KYODBC_LOG_FILE", file.c_str(), 1);
  klog::Reconfigure();
  tagTPATIENT patient = Patient("S1");
  EXPECT_EQ(Add(&patient), 6);
  unsetenv("KYODBC_LOG");
  unsetenv("KYODBC_LOG_FILE");
  klog::Reconfigure();
  std::ifstream log(file);
  int attempts = 0;
  for (std::string line; std::getline(log, line);)
    attempts += line.find("code 6") != std::string::npos ? 1 : 0;
  EXPECT_EQ(attempts, 9);
  EXPECT_EQ(Patients(), 0);
}

TEST_F(PatientOperations, AnAddWithAnIdentifierThatExistsGives52AndTheRowStays) {
  Added(Patient("S1"));
  tagTPATIENT patient = Patient("S1");
  EXPECT_EQ(Add(&patient), 52);
  EXPECT_EQ(Val(patient.lPatID), 0);
  EXPECT_EQ(Patients("tPatSSlidaID='S1'"), 2);
}

TEST_F(PatientOperations, AnAddWithoutANaturalKeyInsertsAndGivesOne) {
  tagTPATIENT patient{};
  SetText(patient.szName, "Meyer");
  EXPECT_EQ(Add(&patient), 1);
  EXPECT_EQ(Patients(), 1);
}

TEST_F(PatientOperations, AnAddFailsWith6WhenTheTableIsMissing) {
  TakeAway("TPatient");
  tagTPATIENT patient = Patient("S1");
  EXPECT_EQ(Add(&patient), 6);
}

// --- the display identifier ---

TEST_F(PatientOperations, TheDisplayIdentifierIsTheSlidaIdentifier) {
  const tagTPATIENT patient = Added(Patient("S1", "", "E1"));
  EXPECT_EQ(Text(patient.szIDDisp), "S1");
  EXPECT_EQ(Text(patient.szExtPatID), "E1");
}

TEST_F(PatientOperations, WithoutASlidaIdentifierItIsTheExternalOneAndSlidaIsNull) {
  const tagTPATIENT patient = Added(Patient("", "", "E1"));
  EXPECT_EQ(Text(patient.szIDDisp), "E1");
  EXPECT_EQ(Patients("tPatSSlidaID IS NULL AND tPatSExtPatID='E1'"), 1);
}

TEST_F(PatientOperations, WithoutBothItIsEmptyAndBothAreNull) {
  const tagTPATIENT patient = Added(Patient(""));
  EXPECT_EQ(Text(patient.szIDDisp), "");
  EXPECT_EQ(Patients("tPatSSlidaID IS NULL AND tPatSExtPatID IS NULL AND tPatSIDDisp=''"), 1);
}

TEST_F(PatientOperations, WritingEitherIdentifierDerivesTheDisplayIdentifierAnew) {
  tagTPATIENT patient = Added(Patient("S1", "", "E1"));
  SetText(patient.szSlidaID, "S2");
  EXPECT_EQ(Edit(&patient, 0x8), 0);
  EXPECT_EQ(Text(Read(patient.lPatID).szIDDisp), "S2");
  SetText(patient.szSlidaID, "");
  EXPECT_EQ(Edit(&patient, 0x8), 0);
  EXPECT_EQ(Text(Read(patient.lPatID).szIDDisp), "E1");
  SetText(patient.szExtPatID, "E2");
  EXPECT_EQ(Edit(&patient, 0x2), 0);
  EXPECT_EQ(Text(Read(patient.lPatID).szIDDisp), "E2");
  SetText(patient.szExtPatID, "");
  EXPECT_EQ(Edit(&patient, 0x2), 0);
  EXPECT_EQ(Text(Read(patient.lPatID).szIDDisp), "");
  EXPECT_EQ(Patients("tPatSSlidaID IS NULL AND tPatSExtPatID IS NULL"), 1);
}

TEST_F(PatientOperations, TheDisplayIdentifierOfTheRecordIsNeverStored) {
  tagTPATIENT patient = Added(Patient("S1"));
  SetText(patient.szIDDisp, "mine");
  EXPECT_EQ(Edit(&patient, 0x800), 0);
  EXPECT_EQ(Text(Read(patient.lPatID).szIDDisp), "S1");
}

TEST_F(PatientOperations, OtherBitsLeaveAStaleDisplayIdentifierAlone) {
  tagTPATIENT patient = Added(Patient("S1"));
  Raw().Exec("UPDATE TPatient SET tPatSIDDisp='stale'");
  EXPECT_EQ(Edit(&patient, 0x20), 0);
  EXPECT_EQ(Text(Read(patient.lPatID).szIDDisp), "stale");
}

// --- entry and last display ---

TEST_F(PatientOperations, AnEditNeverChangesTheEntry) {
  tagTPATIENT patient = Added(Patient("S1"));
  Raw().Exec("UPDATE TPatient SET tPatDEntry='2001-02-03'");
  patient.dEntry = Ts(1999, 1, 1);
  EXPECT_EQ(Edit(&patient, kAll), 0);
  EXPECT_EQ(Edit(&patient, 0x400), 0);
  EXPECT_EQ(TimeText(Read(patient.lPatID).dEntry), TimeText(Ts(2001, 2, 3)));
}

TEST_F(PatientOperations, TheLastDisplayIsTheTimeOfTheNewestImage) {
  tagTPATIENT patient = Added(Patient("S1"));
  for (const char* time : {"2001-05-06 10:11:12", "2000-01-01 00:00:00"}) {
    Raw().Exec("INSERT INTO TImage (tImgCulIntPatIDFk, tImgTs) VALUES (" + std::to_string(patient.lPatID) +
               ", '" + time + "')");
  }
  Raw().Exec("INSERT INTO TImage (tImgCulIntPatIDFk, tImgTs) VALUES (4711, '2020-01-01 00:00:00')");
  patient.tsLastDisp = Ts(1999, 1, 1);
  EXPECT_EQ(Edit(&patient, 0x1000), 0);
  EXPECT_EQ(TimeText(Read(patient.lPatID).tsLastDisp), "2001-05-06 10:11:12");
}

TEST_F(PatientOperations, WithoutAnImageTheLastDisplayIsTheEntry) {
  tagTPATIENT patient = Added(Patient("S1"));
  Raw().Exec("UPDATE TPatient SET tPatDEntry='2001-02-03', tPatTsLastDisp='1999-01-01 00:00:00'");
  EXPECT_EQ(Edit(&patient, 0x1000), 0);
  EXPECT_EQ(TimeText(Read(patient.lPatID).tsLastDisp), TimeText(Ts(2001, 2, 3)));
}

TEST_F(PatientOperations, WithoutItsBitTheLastDisplayStays) {
  tagTPATIENT patient = Added(Patient("S1"));
  Raw().Exec("UPDATE TPatient SET tPatTsLastDisp='1999-01-01 00:00:00'");
  EXPECT_EQ(Edit(&patient, kAll & ~0x1000u), 0);
  EXPECT_EQ(TimeText(Read(patient.lPatID).tsLastDisp), TimeText(Ts(1999, 1, 1)));
}

// --- which patient, and what is kept ---

TEST_F(PatientOperations, TheSlidaIdentifierGoesFirstThenTheServersThenTheName) {
  const tagTPATIENT by_slida = Added(Patient("S1", "V1"));
  tagTPATIENT other = Patient("S2", "V2");
  SetText(other.szFirstname, "Berta");
  other = Added(other);
  tagTPATIENT patient = Patient("S1", "V2");
  ASSERT_EQ(Get(&patient), 0);
  EXPECT_EQ(Val(patient.lPatID), Val(by_slida.lPatID));
  patient = Patient("", "V2");
  ASSERT_EQ(Get(&patient), 0);
  EXPECT_EQ(Val(patient.lPatID), Val(other.lPatID));
  patient = Patient("");
  ASSERT_EQ(Get(&patient), 0);
  EXPECT_EQ(Val(patient.lPatID), Val(by_slida.lPatID));
}

TEST_F(PatientOperations, FoundBySlidaIdentifierAllOtherFieldsAreWritten) {
  const LONG key = Added(Patient("S1", "V1", "E1")).lPatID;
  tagTPATIENT patient = Patient("S1", "V2", "E2");
  EXPECT_EQ(Edit(&patient, kAll), 0);
  EXPECT_EQ(Val(patient.lPatID), key);
  EXPECT_EQ(Patients("tPatSSlidaID='S1' AND tPatSSrvID='V2' AND tPatSExtPatID='E2' AND tPatSIDDisp='S1'"), 1);
}

TEST_F(PatientOperations, FoundByServerIdentifierTheSlidaIdentifierIsKept) {
  Added(Patient("S1", "V1", "E1"));
  tagTPATIENT patient = Patient("", "V1", "E2");
  EXPECT_EQ(Edit(&patient, kAll), 0);
  EXPECT_EQ(Patients("tPatSSlidaID='S1' AND tPatSSrvID='V1' AND tPatSExtPatID='E2' AND tPatSIDDisp='S1'"), 1);
}

TEST_F(PatientOperations, FoundByNameOnlyDoctorExternalAndSocialIdentifierAndTheHigherBitsAreWritten) {
  Added(Patient("S1", "V1", "E1"));
  tagTPATIENT patient = Patient("", "", "E2");
  patient.lDrID = 5;
  SetText(patient.szSocID, "N2");
  SetText(patient.szSex, "m");
  patient.lSelect = 1;
  EXPECT_EQ(Edit(&patient, kAll), 0);
  EXPECT_EQ(Patients("tPatSSlidaID='S1' AND tPatSSrvID='V1' AND tPatSName='Meyer'"), 1);
  EXPECT_EQ(
      Patients(
          "tPatSExtPatID='E2' AND tPatCulIntDrIDFk=5 AND tPatSSocID='N2' AND tPatSSex='m' AND tPatFSelect=1"),
      1);
}

TEST_F(PatientOperations, AMissingPatientGives21) {
  tagTPATIENT patient = Patient("nowhere");
  EXPECT_EQ(Get(&patient), 21);
  EXPECT_EQ(Edit(&patient, kAll), 21);
  EXPECT_EQ(Delete(patient), 21);
}

TEST_F(PatientOperations, SeveralMatchingPatientsGive52) {
  for (const char* first : {"a", "b"}) {
    Raw().Exec(std::string("INSERT INTO TPatient (tPatSSrvID, tPatSFirstname) VALUES ('twin', '") + first +
               "')");
  }
  tagTPATIENT patient = Patient("", "twin");
  EXPECT_EQ(Get(&patient), 52);
  EXPECT_EQ(Edit(&patient, kAll), 52);
  EXPECT_EQ(Delete(patient), 52);
  EXPECT_EQ(Patients(), 2);
}

TEST_F(PatientOperations, ARecordThatNamesNoPatientGivesOne) {
  tagTPATIENT patient = Patient("");
  SetText(patient.szFirstname, "");
  EXPECT_EQ(Get(&patient), 1);
  EXPECT_EQ(Edit(&patient, kAll), 1);
  EXPECT_EQ(Delete(patient), 1);
}

// --- delete ---

class SelectedPatients : public PatientOperations {
 protected:
  void SetUp() override {
    PatientOperations::SetUp();
    for (const char* row : {"'a', 1", "'b', 0", "'c', 1", "'d', 1"}) {
      Raw().Exec(std::string("INSERT INTO TPatient (tPatSName, tPatFSelect) VALUES (") + row + ")");
    }
  }
  static tagTPATIENT AllSelected() {
    tagTPATIENT patient{};
    patient.lSelect = 1;
    return patient;
  }
};

TEST_F(SelectedPatients, ARecordThatNamesNoneButIsSelectedDeletesThemAll) {
  EXPECT_EQ(Delete(AllSelected()), 0);
  EXPECT_EQ(Patients(), 1);
  EXPECT_EQ(Patients("tPatSName='b'"), 1);
}

TEST_F(SelectedPatients, WithoutASelectedPatientItGives21) {
  Raw().Exec("UPDATE TPatient SET tPatFSelect=0");
  EXPECT_EQ(Delete(AllSelected()), 21);
  EXPECT_EQ(Patients(), 4);
}

TEST_F(SelectedPatients, ARecordThatNamesAPatientDeletesThatOneOnly) {
  tagTPATIENT patient = AllSelected();
  patient.lPatID = Raw().Number("SELECT tPatCulIntPatIDPk FROM TPatient WHERE tPatSName='b'");
  EXPECT_EQ(Delete(patient), 0);
  EXPECT_EQ(Patients("tPatFSelect=1"), 3);
  patient.lPatID = 4711;
  EXPECT_EQ(Delete(patient), 21);
  EXPECT_EQ(Patients("tPatFSelect=1"), 3);
}

TEST_F(SelectedPatients, AnIncompleteNameDoesNotStopIt) {
  tagTPATIENT patient = AllSelected();
  SetText(patient.szName, "Meyer");
  EXPECT_EQ(Delete(patient), 0);
  EXPECT_EQ(Patients(), 1);
}

TEST_F(SelectedPatients, ItGives8WhenTheDatabaseRefusesAnd3WhenTheTableIsMissing) {
  TakeAway("TPatient");
  EXPECT_EQ(Delete(AllSelected()), 3);
  BringBackReadOnly("TPatient");
  EXPECT_EQ(Delete(AllSelected()), 8);
  EXPECT_EQ(Patients(), 4);
}

TEST_F(PatientOperations, ADeletedPatientsImagesAndGroupsStay) {
  const tagTPATIENT patient = Added(Patient("S1"));
  const std::string key = std::to_string(patient.lPatID);
  Raw().Exec("INSERT INTO TImage (tImgCulIntPatIDFk) VALUES (" + key + ")");
  Raw().Exec("INSERT INTO TGroup (tGrpCulIntPatIDFk) VALUES (" + key + ")");
  EXPECT_EQ(Delete(patient), 0);
  EXPECT_EQ(Patients(), 0);
  EXPECT_EQ(Raw().Count("TImage"), 1);
  EXPECT_EQ(Raw().Count("TGroup"), 1);
}

}  // namespace
