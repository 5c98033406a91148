// Patients in the compact record: the doctor by name, identifiers and sex packed into single fields.
#include <cstring>
#include <string>

#include "platform/result_codes.h"
#include "recset/dr_rec.h"
#include "recset/pat_rec.h"
#include "recset/patex_rec.h"
#include "rowops/compact.h"
#include "rowops/compact_fields.h"

namespace compact {
namespace {

constexpr char kExternalMark = '}';
constexpr BYTE kMale = 1;
constexpr BYTE kFemale = 2;
constexpr BYTE kUnknownSex = 0;

// Doctor, external and Slida identifier, names, birthday and sex. Callers of the compact record rely on the
// other fields never being written, whatever mask they pass.
constexpr DWORD kEditedFields = 0x1EB;

const char* SexText(BYTE sex) {
  if (sex == kMale) return "m";
  return sex == kFemale ? "f" : "-";
}

BYTE SexNumber(std::string_view sex) {
  if (sex == "m") return kMale;
  return sex == "f" ? kFemale : kUnknownSex;
}

// The fields that both ways out fill alike; `external` is what follows the mark.
void PutCommon(const tagTPATIENT& patient, std::string_view external, tagPATIENTCOMPACT* record) {
  record->dwID = static_cast<DWORD>(patient.lPatID);
  PutText(record->szName, FieldText(patient.szName));
  PutText(record->szFirstname, FieldText(patient.szFirstname));
  record->wYear = static_cast<WORD>(patient.dBirthday.year);
  record->byMonth = static_cast<BYTE>(patient.dBirthday.month);
  record->byDay = static_cast<BYTE>(patient.dBirthday.day);
  record->wDispYear = static_cast<WORD>(patient.tsLastDisp.year);
  record->byDispMonth = static_cast<BYTE>(patient.tsLastDisp.month);
  record->byDispDay = static_cast<BYTE>(patient.tsLastDisp.day);
  record->bySex = SexNumber(FieldText(patient.szSex));
  const std::string_view slida = FieldText(patient.szSlidaID);
  PutText(record->szIdent, slida.empty() ? kExternalMark + std::string(external) : std::string(slida));
}

// The joined record begins with the fields of the patient's.
tagTPATIENT PatientPart(const tagTPATIENTEX& joined) {
  tagTPATIENT patient;
  std::memcpy(&patient, &joined, sizeof patient);
  return patient;
}

// Finds the doctor by the name that the record carries and puts its key and name there.
WORD LookUpDoctor(const CPatRec& patients, tagTPATIENTEX* patient) {
  tagTDOCTOR doctor{};
  doctor.lDrID = patient->lDrID;
  PutText(doctor.szName, FieldText(patient->szDrName));
  const WORD code = CDrRec(patients.m_pDatabase, patients.m_strOwner).GetRow(&doctor);
  if (code != kOk) return code;
  patient->lDrID = doctor.lDrID;
  PutText(patient->szDrName, FieldText(doctor.szName));
  return kOk;
}

// Runs `write`, a row worker, on the patient with its doctor and hands the outcome back in the record.
template <class Worker>
WORD Write(CPatRec* patients, tagPATIENTCOMPACT* record, Worker write) {
  tagTPATIENTEX joined = ToPatient(*record);
  const WORD found = LookUpDoctor(*patients, &joined);
  if (found != kOk) return found;
  tagTPATIENT patient = PatientPart(joined);
  const WORD code = write(&patient);
  if (code == kOk) FromWrittenPatient(patient, record);
  return code;
}

}  // namespace

tagTPATIENTEX ToPatient(const tagPATIENTCOMPACT& record) {
  tagTPATIENTEX patient{};
  patient.lPatID = static_cast<LONG>(record.dwID);
  PutText(patient.szName, FieldText(record.szName));
  PutText(patient.szFirstname, FieldText(record.szFirstname));
  patient.dBirthday = DateOf(record.wYear, record.byMonth, record.byDay);
  patient.tsLastDisp = DateOf(record.wDispYear, record.byDispMonth, record.byDispDay);
  PutText(patient.szDrName, FieldText(record.szDrName));
  PutText(patient.szSex, SexText(record.bySex));
  const std::string_view identifier = FieldText(record.szIdent);
  if (!identifier.empty() && identifier.front() == kExternalMark) {
    PutText(patient.szExtPatID, identifier.substr(1));
  } else {
    PutText(patient.szSlidaID, identifier);
  }
  return patient;
}

void FromPatient(const tagTPATIENTEX& patient, tagPATIENTCOMPACT* record) {
  PutCommon(PatientPart(patient), FieldText(patient.szExtPatID), record);
  PutText(record->szDrName, FieldText(patient.szDrName));
  record->byReserved = 0;
}

// The mark alone looks like a lost external identifier. It has been stored in full, and callers rely on this
// form (AddedExternalIdentifierComesBackAsItsMarkAlone).
void FromWrittenPatient(const tagTPATIENT& patient, tagPATIENTCOMPACT* record) {
  PutCommon(patient, {}, record);
}

WORD AddPatient(CPatRec* patients, tagPATIENTCOMPACT* record) {
  return Write(patients, record, [&](tagTPATIENT* patient) { return patients->AddRow(patient); });
}

WORD EditPatient(CPatRec* patients, tagPATIENTCOMPACT* record, DWORD mask) {
  return Write(patients, record,
               [&](tagTPATIENT* patient) { return patients->EditRow(patient, mask & kEditedFields); });
}

// The conversion leaves the patient unselected, so this never deletes the selected patients instead.
WORD DeletePatient(CPatRec* patients, const tagPATIENTCOMPACT* record) {
  const tagTPATIENT patient = PatientPart(ToPatient(*record));
  return patients->DeleteRow(&patient);
}

WORD GetPatient(CPatExRec* view, tagPATIENTCOMPACT* record) {
  tagTPATIENTEX patient = ToPatient(*record);
  const WORD code = view->GetJoinedRow(&patient);
  if (code == kOk) FromPatient(patient, record);
  return code;
}

WORD GetPatientByPos(CPatExRec* view, tagPATIENTCOMPACT* record, LONG position) {
  tagTPATIENTEX patient{};
  const WORD code = view->GetRecByPos(&patient, &position);
  if (code == kOk) FromPatient(patient, record);
  return code;
}

}  // namespace compact
