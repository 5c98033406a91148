// The exported names of the diagnoses.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/diag_rec.h"

namespace {

CDiagRec* Diagnoses() { return TheConnection().m_pDiag; }

}  // namespace

WORD DB_OpenTDiag() { return flat::Open(Diagnoses()); }
WORD DB_CloseTDiag() { return flat::Close(Diagnoses()); }
BOOL DB_IsTDiagOpen() { return flat::IsOpen(Diagnoses(), FALSE); }
LONG DB_GetTDiagIndexPos() { return flat::IndexPos(Diagnoses()); }
LONG DB_MoveToTDiagByPos(LONG position) { return flat::MoveToPos(Diagnoses(), position); }
LONG DB_MoveToTDiagByDelta(LONG delta) { return flat::MoveToDelta(Diagnoses(), delta); }
WORD DB_SetTDiagFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                       const void* value3, const void* value4) {
  return flat::SetFilter(Diagnoses(), fields, operators, value1, value2, value3, value4);
}
WORD DB_SetTDiagSortIndex(LONG sort_index) { return flat::SetSortIndex(Diagnoses(), sort_index); }
WORD DB_DeleteTDiagByPos(LONG position) { return flat::DeleteByPos(Diagnoses(), position); }
WORD DB_GetTDiagByPos(LONG position, tagTDIAGNOSIS* record) {
  return flat::GetByPos(Diagnoses(), position, record);
}
WORD DB_GetTDiagMaxPos(LONG* count) { return flat::MaxPos(Diagnoses(), count); }

WORD DB_AddNewTDiag(tagTDIAGNOSIS* record) { return flat::Add(Diagnoses(), record); }
WORD DB_EditTDiag(tagTDIAGNOSIS* record) {
  return flat::Through([&] { return DB_EditSelTDiag(record, KYODBC_MASK_ALL); });
}
WORD DB_EditSelTDiag(tagTDIAGNOSIS* record, DWORD mask) { return flat::Edit(Diagnoses(), record, mask); }
WORD DB_DeleteTDiag(const tagTDIAGNOSIS* record) { return flat::Delete(Diagnoses(), record); }
WORD DB_GetTDiag(tagTDIAGNOSIS* record) { return flat::Get(Diagnoses(), record); }

WORD DB_GetNumTDiag(LONG* count) { return flat::Num(Diagnoses(), count); }
WORD DB_GetLastDiagID(LONG* id) { return flat::LastID(Diagnoses(), id); }
