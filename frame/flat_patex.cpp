// The exported names of the joined view: patients with the names of their doctors. It is for reading only.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/patex_rec.h"

namespace {

CPatExRec* JoinedView() { return TheConnection().m_pPatEx; }

}  // namespace

WORD DB_OpenPatEx() { return flat::KeepAliveAndOpen(&CDBConnection::m_pPatEx); }
WORD DB_ClosePatEx() { return flat::Close(JoinedView()); }
BOOL DB_IsPatExOpen() { return flat::IsOpen(JoinedView(), FALSE); }
LONG DB_GetPatExIndexPos() { return flat::IndexPos(JoinedView()); }
LONG DB_MoveToPatExByPos(LONG position) { return flat::MoveToPos(JoinedView(), position); }
LONG DB_MoveToPatExByDelta(LONG delta) { return flat::MoveToDelta(JoinedView(), delta); }
LONG DB_MoveToPatExByIntID(LONG id) { return flat::MoveToIntID(JoinedView(), id); }
LONG DB_MoveToPatExByString(const char* text) { return flat::MoveToString(JoinedView(), text); }
WORD DB_SetPatExFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                       const void* value3, const void* value4) {
  return flat::SetFilter(JoinedView(), fields, operators, value1, value2, value3, value4);
}
WORD DB_SetPatExSortIndex(LONG sort_index) { return flat::SetSortIndex(JoinedView(), sort_index); }
WORD DB_GetPatExByPos(LONG position, tagTPATIENTEX* record) {
  return flat::GetByPos(JoinedView(), position, record);
}
WORD DB_GetPatExMaxPos(LONG* count) { return flat::MaxPos(JoinedView(), count); }

WORD DB_GetPatEx(tagTPATIENTEX* record) {
  return flat::CodeWith(JoinedView(), record, [&] { return JoinedView()->GetJoinedRow(record); });
}
// The view counts with a second view of its own, so its filter plays no part here either.
WORD DB_GetNumPatEx(LONG* count) {
  if (JoinedView() != nullptr && count == nullptr) return kOk;
  return flat::Number(JoinedView(), count, [](LONG* number) { return JoinedView()->GetNum(number); });
}
