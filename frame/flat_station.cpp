// The exported names of the stations.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/stat_rec.h"

namespace {

CStatRec* Stations() { return TheConnection().m_pStat; }

}  // namespace

WORD DB_OpenTStat() { return flat::Open(Stations()); }
WORD DB_CloseTStat() { return flat::Close(Stations()); }
// 31, which reads as "open", where all other tables answer 0: callers rely on it.
BOOL DB_IsTStatOpen() { return flat::IsOpen(Stations(), kDbException); }
LONG DB_GetTStatIndexPos() { return flat::IndexPos(Stations()); }
LONG DB_MoveToTStatByPos(LONG position) { return flat::MoveToPos(Stations(), position); }
LONG DB_MoveToTStatByDelta(LONG delta) { return flat::MoveToDelta(Stations(), delta); }
WORD DB_SetTStatFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                       const void* value3, const void* value4) {
  return flat::SetFilter(Stations(), fields, operators, value1, value2, value3, value4);
}
WORD DB_SetTStatSortIndex(LONG sort_index) { return flat::SetSortIndex(Stations(), sort_index); }
WORD DB_DeleteTStatByPos(LONG position) { return flat::DeleteByPos(Stations(), position); }
WORD DB_GetTStatByPos(LONG position, tagTSTATION* record) {
  return flat::GetByPos(Stations(), position, record);
}
WORD DB_GetTStatMaxPos(LONG* count) { return flat::MaxPos(Stations(), count); }

WORD DB_AddNewTStat(tagTSTATION* record) { return flat::Add(Stations(), record); }
WORD DB_EditTStat(tagTSTATION* record) {
  return flat::Through([&] { return DB_EditSelTStat(record, KYODBC_MASK_ALL); });
}
WORD DB_EditSelTStat(tagTSTATION* record, DWORD mask) { return flat::Edit(Stations(), record, mask); }
WORD DB_DeleteTStat(const tagTSTATION* record) { return flat::Delete(Stations(), record); }
WORD DB_GetTStat(tagTSTATION* record) { return flat::Get(Stations(), record); }

WORD DB_GetNumTStat(LONG* count) { return flat::Num(Stations(), count); }
WORD DB_GetLastStatID(LONG* id) { return flat::LastID(Stations(), id); }
