// The exported names of the makros.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/mak_rec.h"

namespace {

CMakRec* Makros() { return TheConnection().m_pMak; }

}  // namespace

WORD DB_OpenTMak() { return flat::Open(Makros()); }
WORD DB_CloseTMak() { return flat::Close(Makros()); }
BOOL DB_IsTMakOpen() { return flat::IsOpen(Makros(), FALSE); }
LONG DB_GetTMakIndexPos() { return flat::IndexPos(Makros()); }
LONG DB_MoveToTMakByPos(LONG position) { return flat::MoveToPos(Makros(), position); }
LONG DB_MoveToTMakByDelta(LONG delta) { return flat::MoveToDelta(Makros(), delta); }
WORD DB_SetTMakFilter(LONG fields, LONG operators, const void* value1, const void* value2, const void* value3,
                      const void* value4) {
  return flat::SetFilter(Makros(), fields, operators, value1, value2, value3, value4);
}
WORD DB_SetTMakSortIndex(LONG sort_index) { return flat::SetSortIndex(Makros(), sort_index); }
WORD DB_DeleteTMakByPos(LONG position) { return flat::DeleteByPos(Makros(), position); }
WORD DB_GetTMakByPos(LONG position, tagTMAKRO* record) { return flat::GetByPos(Makros(), position, record); }
WORD DB_GetTMakMaxPos(LONG* count) { return flat::MaxPos(Makros(), count); }

WORD DB_AddNewTMak(tagTMAKRO* record) { return flat::Add(Makros(), record); }
WORD DB_EditTMak(tagTMAKRO* record) {
  return flat::Through([&] { return DB_EditSelTMak(record, KYODBC_MASK_ALL); });
}
WORD DB_EditSelTMak(tagTMAKRO* record, DWORD mask) { return flat::Edit(Makros(), record, mask); }
WORD DB_DeleteTMak(const tagTMAKRO* record) { return flat::Delete(Makros(), record); }
WORD DB_GetTMak(tagTMAKRO* record) { return flat::Get(Makros(), record); }

WORD DB_GetNumTMak(LONG image_key, LONG* count) { return flat::NumOf(Makros(), image_key, count); }
WORD DB_GetLastMakID(LONG* id) { return flat::LastID(Makros(), id); }
WORD DB_GetLastTMakDate(LONG image_key, LONG* makro_key, TIMESTAMP_STRUCT* time) {
  return flat::LastDate(Makros(), image_key, makro_key, time);
}
