// The exported names of the doctors.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/dr_rec.h"
#include "recset/patex_rec.h"

namespace {

CDrRec* Doctors() { return TheConnection().m_pDr; }
CPatExRec* JoinedView() { return TheConnection().m_pPatEx; }

constexpr DWORD kName = KYODBC_MASK_DR_NAME;

}  // namespace

WORD DB_OpenTDr() { return flat::Open(Doctors()); }
WORD DB_CloseTDr() { return flat::Close(Doctors()); }
BOOL DB_IsTDrOpen() { return flat::IsOpen(Doctors(), FALSE); }
LONG DB_GetTDrIndexPos() { return flat::IndexPos(Doctors()); }
LONG DB_MoveToTDrByPos(LONG position) { return flat::MoveToPos(Doctors(), position); }
LONG DB_MoveToTDrByDelta(LONG delta) { return flat::MoveToDelta(Doctors(), delta); }
WORD DB_SetTDrFilter(LONG fields, LONG operators, const void* value1, const void* value2, const void* value3,
                     const void* value4) {
  return flat::SetFilter(Doctors(), fields, operators, value1, value2, value3, value4);
}
WORD DB_SetTDrSortIndex(LONG sort_index) { return flat::SetSortIndex(Doctors(), sort_index); }
WORD DB_DeleteTDrByPos(LONG position) { return flat::DeleteByPos(Doctors(), position); }
WORD DB_GetTDrByPos(LONG position, tagTDOCTOR* record) { return flat::GetByPos(Doctors(), position, record); }
WORD DB_GetTDrMaxPos(LONG* count) { return flat::MaxPos(Doctors(), count); }

WORD DB_AddNewTDr(tagTDOCTOR* record) { return flat::Add(Doctors(), record); }
WORD DB_EditTDr(tagTDOCTOR* record) {
  return flat::Through([&] { return DB_EditSelTDr(record, KYODBC_MASK_ALL); });
}
// The view shows no more of a doctor than the name. The mask counts as passed, also when the doctor is found
// by name and the name therefore not written.
WORD DB_EditSelTDr(tagTDOCTOR* record, DWORD mask) {
  return flat::Edit(Doctors(), record, mask, (mask & kName) != 0 ? JoinedView() : nullptr);
}
WORD DB_DeleteTDr(const tagTDOCTOR* record) { return flat::Delete(Doctors(), record); }
WORD DB_GetTDr(tagTDOCTOR* record) { return flat::Get(Doctors(), record); }

WORD DB_GetNumTDr(LONG* count) { return flat::Num(Doctors(), count); }
WORD DB_GetLastDrID(LONG* id) { return flat::LastID(Doctors(), id); }
