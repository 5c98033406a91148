// The exported names of the patients.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/pat_rec.h"
#include "recset/patex_rec.h"

namespace {

CPatRec* Patients() { return TheConnection().m_pPat; }
CPatExRec* JoinedView() { return TheConnection().m_pPatEx; }

}  // namespace

WORD DB_OpenTPat() { return flat::KeepAliveAndOpen(&CDBConnection::m_pPat); }
WORD DB_CloseTPat() { return flat::Close(Patients()); }
BOOL DB_IsTPatOpen() { return flat::IsOpen(Patients(), FALSE); }
LONG DB_GetTPatIndexPos() { return flat::IndexPos(Patients()); }
LONG DB_MoveToTPatByPos(LONG position) { return flat::MoveToPos(Patients(), position); }
LONG DB_MoveToTPatByDelta(LONG delta) { return flat::MoveToDelta(Patients(), delta); }
LONG DB_MoveToTPatByIntID(LONG id) { return flat::MoveToIntID(Patients(), id); }
LONG DB_MoveToTPatByString(const char* text) { return flat::MoveToString(Patients(), text); }
WORD DB_SetTPatFilter(LONG fields, LONG operators, const void* value1, const void* value2, const void* value3,
                      const void* value4) {
  return flat::SetFilter(Patients(), fields, operators, value1, value2, value3, value4);
}
WORD DB_SetTPatSortIndex(LONG sort_index) { return flat::SetSortIndex(Patients(), sort_index); }
WORD DB_DeleteTPatByPos(LONG position) { return flat::DeleteByPos(Patients(), position); }
WORD DB_GetTPatByPos(LONG position, tagTPATIENT* record) {
  return flat::GetByPos(Patients(), position, record);
}
WORD DB_GetTPatMaxPos(LONG* count) { return flat::MaxPos(Patients(), count); }

WORD DB_AddNewTPat(tagTPATIENT* record) { return flat::Add(Patients(), record, JoinedView()); }
WORD DB_EditTPat(tagTPATIENT* record) {
  return flat::Through([&] { return DB_EditSelTPat(record, KYODBC_MASK_ALL); });
}
WORD DB_EditSelTPat(tagTPATIENT* record, DWORD mask) {
  return flat::Edit(Patients(), record, mask, JoinedView());
}
WORD DB_DeleteTPat(const tagTPATIENT* record) { return flat::Delete(Patients(), record, JoinedView()); }
WORD DB_GetTPat(tagTPATIENT* record) { return flat::Get(Patients(), record); }

WORD DB_GetNumTPat(LONG* count) { return flat::Num(Patients(), count); }
WORD DB_GetLastPatID(LONG* id) { return flat::LastID(Patients(), id); }
