// The exported names of the units.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/unit_rec.h"

namespace {

CUnitRec* Units() { return TheConnection().m_pUnit; }

}  // namespace

WORD DB_OpenTUnit() { return flat::Open(Units()); }
WORD DB_CloseTUnit() { return flat::Close(Units()); }
BOOL DB_IsTUnitOpen() { return flat::IsOpen(Units(), FALSE); }
LONG DB_GetTUnitIndexPos() { return flat::IndexPos(Units()); }
LONG DB_MoveToTUnitByPos(LONG position) { return flat::MoveToPos(Units(), position); }
LONG DB_MoveToTUnitByDelta(LONG delta) { return flat::MoveToDelta(Units(), delta); }
WORD DB_SetTUnitFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                       const void* value3, const void* value4) {
  return flat::SetFilter(Units(), fields, operators, value1, value2, value3, value4);
}
WORD DB_SetTUnitSortIndex(LONG sort_index) { return flat::SetSortIndex(Units(), sort_index); }
WORD DB_DeleteTUnitByPos(LONG position) { return flat::DeleteByPos(Units(), position); }
WORD DB_GetTUnitByPos(LONG position, tagTUNIT* record) { return flat::GetByPos(Units(), position, record); }
WORD DB_GetTUnitMaxPos(LONG* count) { return flat::MaxPos(Units(), count); }

WORD DB_AddNewTUnit(tagTUNIT* record) { return flat::Add(Units(), record); }
WORD DB_EditTUnit(tagTUNIT* record) {
  return flat::Through([&] { return DB_EditSelTUnit(record, KYODBC_MASK_ALL); });
}
WORD DB_EditSelTUnit(tagTUNIT* record, DWORD mask) { return flat::Edit(Units(), record, mask); }
WORD DB_DeleteTUnit(const tagTUNIT* record) { return flat::Delete(Units(), record); }
WORD DB_GetTUnit(tagTUNIT* record) { return flat::Get(Units(), record); }

WORD DB_GetNumTUnit(LONG* count) { return flat::Num(Units(), count); }
WORD DB_GetLastUnitID(LONG* id) { return flat::LastID(Units(), id); }
