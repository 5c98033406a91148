// The exported names of the groups.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/grp_rec.h"

namespace {

CGrpRec* Groups() { return TheConnection().m_pGrp; }

}  // namespace

WORD DB_OpenTGrp() { return flat::Open(Groups()); }
WORD DB_CloseTGrp() { return flat::Close(Groups()); }
BOOL DB_IsTGrpOpen() { return flat::IsOpen(Groups(), FALSE); }
LONG DB_GetTGrpIndexPos() { return flat::IndexPos(Groups()); }
LONG DB_MoveToTGrpByPos(LONG position) { return flat::MoveToPos(Groups(), position); }
LONG DB_MoveToTGrpByDelta(LONG delta) { return flat::MoveToDelta(Groups(), delta); }
WORD DB_SetTGrpFilter(LONG fields, LONG operators, const void* value1, const void* value2, const void* value3,
                      const void* value4) {
  return flat::SetFilter(Groups(), fields, operators, value1, value2, value3, value4);
}
WORD DB_SetTGrpSortIndex(LONG sort_index) { return flat::SetSortIndex(Groups(), sort_index); }
WORD DB_DeleteTGrpByPos(LONG position) { return flat::DeleteByPos(Groups(), position); }
WORD DB_GetTGrpByPos(LONG position, tagTGROUP* record) { return flat::GetByPos(Groups(), position, record); }
WORD DB_GetTGrpMaxPos(LONG* count) { return flat::MaxPos(Groups(), count); }

WORD DB_AddNewTGrp(tagTGROUP* record) { return flat::Add(Groups(), record); }
WORD DB_EditTGrp(tagTGROUP* record) {
  return flat::Through([&] { return DB_EditSelTGrp(record, KYODBC_MASK_ALL); });
}
WORD DB_EditSelTGrp(tagTGROUP* record, DWORD mask) { return flat::Edit(Groups(), record, mask); }
WORD DB_DeleteTGrp(const tagTGROUP* record) { return flat::Delete(Groups(), record); }
WORD DB_GetTGrp(tagTGROUP* record) { return flat::Get(Groups(), record); }

WORD DB_GetNumTGrp(LONG patient_key, LONG* count) { return flat::NumOf(Groups(), patient_key, count); }
WORD DB_GetLastGrpID(LONG* id) { return flat::LastID(Groups(), id); }
