// The exported names of the configuration entries.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/cfg_rec.h"

namespace {

CCfgRec* Configs() { return TheConnection().m_pCfg; }

}  // namespace

WORD DB_OpenTCfg() { return flat::Open(Configs()); }
WORD DB_CloseTCfg() { return flat::Close(Configs()); }
BOOL DB_IsTCfgOpen() { return flat::IsOpen(Configs(), FALSE); }
LONG DB_GetTCfgIndexPos() { return flat::IndexPos(Configs()); }
LONG DB_MoveToTCfgByPos(LONG position) { return flat::MoveToPos(Configs(), position); }
LONG DB_MoveToTCfgByDelta(LONG delta) { return flat::MoveToDelta(Configs(), delta); }
WORD DB_SetTCfgFilter(LONG fields, LONG operators, const void* value1, const void* value2, const void* value3,
                      const void* value4) {
  return flat::SetFilter(Configs(), fields, operators, value1, value2, value3, value4);
}
WORD DB_SetTCfgSortIndex(LONG sort_index) { return flat::SetSortIndex(Configs(), sort_index); }
WORD DB_DeleteTCfgByPos(LONG position) { return flat::DeleteByPos(Configs(), position); }
WORD DB_GetTCfgByPos(LONG position, tagTCONFIG* record) {
  return flat::GetByPos(Configs(), position, record);
}
WORD DB_GetTCfgMaxPos(LONG* count) { return flat::MaxPos(Configs(), count); }

WORD DB_AddNewTCfg(tagTCONFIG* record) { return flat::Add(Configs(), record); }
WORD DB_EditTCfg(tagTCONFIG* record) {
  return flat::Through([&] { return DB_EditSelTCfg(record, KYODBC_MASK_ALL); });
}
WORD DB_EditSelTCfg(tagTCONFIG* record, DWORD mask) { return flat::Edit(Configs(), record, mask); }
WORD DB_DeleteTCfg(const tagTCONFIG* record) { return flat::Delete(Configs(), record); }
WORD DB_GetTCfg(tagTCONFIG* record) { return flat::Get(Configs(), record); }

WORD DB_GetNumTCfg(LONG* count) { return flat::Num(Configs(), count); }
WORD DB_GetLastCfgID(LONG* id) { return flat::LastID(Configs(), id); }
