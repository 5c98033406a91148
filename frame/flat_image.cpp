// The exported names of the images.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/img_rec.h"

namespace {

CImgRec* Images() { return TheConnection().m_pImg; }

}  // namespace

WORD DB_OpenTImg() { return flat::Open(Images()); }
WORD DB_CloseTImg() { return flat::Close(Images()); }
BOOL DB_IsTImgOpen() { return flat::IsOpen(Images(), FALSE); }
LONG DB_GetTImgIndexPos() { return flat::IndexPos(Images()); }
LONG DB_MoveToTImgByPos(LONG position) { return flat::MoveToPos(Images(), position); }
LONG DB_MoveToTImgByDelta(LONG delta) { return flat::MoveToDelta(Images(), delta); }
LONG DB_MoveToTImgByIntID(LONG id) { return flat::MoveToIntID(Images(), id); }
WORD DB_SetTImgFilter(LONG fields, LONG operators, const void* value1, const void* value2, const void* value3,
                      const void* value4) {
  return flat::SetFilter(Images(), fields, operators, value1, value2, value3, value4);
}
WORD DB_SetTImgSortIndex(LONG sort_index) { return flat::SetSortIndex(Images(), sort_index); }
WORD DB_DeleteTImgByPos(LONG position) { return flat::DeleteByPos(Images(), position); }
WORD DB_GetTImgByPos(LONG position, tagTIMAGE* record) { return flat::GetByPos(Images(), position, record); }
WORD DB_GetTImgMaxPos(LONG* count) { return flat::MaxPos(Images(), count); }

WORD DB_AddNewTImg(tagTIMAGE* record) { return flat::Add(Images(), record); }
WORD DB_EditTImg(tagTIMAGE* record) {
  return flat::Through([&] { return DB_EditSelTImg(record, KYODBC_MASK_ALL); });
}
WORD DB_EditSelTImg(tagTIMAGE* record, DWORD mask) { return flat::Edit(Images(), record, mask); }
WORD DB_DeleteTImg(const tagTIMAGE* record) { return flat::Delete(Images(), record); }
WORD DB_GetTImg(tagTIMAGE* record) { return flat::Get(Images(), record); }

WORD DB_GetNumTImg(LONG patient_key, LONG* count) { return flat::NumOf(Images(), patient_key, count); }
WORD DB_GetLastImgID(LONG* id) { return flat::LastID(Images(), id); }
WORD DB_GetLastTImgDate(LONG patient_key, LONG* image_key, TIMESTAMP_STRUCT* time) {
  return flat::LastDate(Images(), patient_key, image_key, time);
}
