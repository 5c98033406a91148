// The exported names of the patients and units in the compact record.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/pat_rec.h"
#include "recset/patex_rec.h"
#include "recset/unit_rec.h"
#include "rowops/compact.h"

namespace {

CPatRec* Patients() { return TheConnection().m_pPat; }
CPatExRec* JoinedView() { return TheConnection().m_pPatEx; }
CUnitRec* Units() { return TheConnection().m_pUnit; }

}  // namespace

WORD DB_AddNewPat(tagPATIENTCOMPACT* record) {
  return flat::Change(Patients(), JoinedView(), record,
                      [&] { return compact::AddPatient(Patients(), record); });
}
WORD DB_EditPat(tagPATIENTCOMPACT* record) {
  return flat::Through([&] { return DB_EditSelPat(record, KYODBC_MASK_ALL); });
}
WORD DB_EditSelPat(tagPATIENTCOMPACT* record, DWORD mask) {
  return flat::Change(Patients(), JoinedView(), record,
                      [&] { return compact::EditPatient(Patients(), record, mask); });
}
WORD DB_DeletePat(const tagPATIENTCOMPACT* record) {
  return flat::Change(Patients(), JoinedView(), record,
                      [&] { return compact::DeletePatient(Patients(), record); });
}
WORD DB_GetPat(tagPATIENTCOMPACT* record) {
  return flat::CodeWith(JoinedView(), record, [&] { return compact::GetPatient(JoinedView(), record); });
}
WORD DB_GetPatByPos(tagPATIENTCOMPACT* record, LONG position) {
  return flat::CodeWith(JoinedView(), record,
                        [&] { return compact::GetPatientByPos(JoinedView(), record, position); });
}

WORD DB_AddNewUnit(tagPATIENTCOMPACT* record) {
  return flat::Change(Units(), nullptr, record, [&] { return compact::AddUnit(Units(), record); });
}
WORD DB_EditUnit(tagPATIENTCOMPACT* record) {
  return flat::Change(Units(), nullptr, record, [&] { return compact::EditUnit(Units(), record); });
}
WORD DB_EditSelUnit(const tagPATIENTCOMPACT* record, DWORD mask) {
  return flat::Change(Units(), nullptr, record,
                      [&] { return compact::EditSelectedUnit(Units(), record, mask); });
}
WORD DB_DeleteUnit(const tagPATIENTCOMPACT* record) {
  return flat::Change(Units(), nullptr, record, [&] { return compact::DeleteUnit(Units(), record); });
}
WORD DB_GetUnit(tagPATIENTCOMPACT* record) {
  return flat::CodeWith(Units(), record, [&] { return compact::GetUnit(Units(), record); });
}
WORD DB_GetUnitByPos(tagPATIENTCOMPACT* record, LONG position) {
  return flat::CodeWith(Units(), record, [&] { return compact::GetUnitByPos(Units(), record, position); });
}
