// Makros: counted and dated by image.
#include "tables/makro.h"
#include "recset/mak_rec.h"
#include "rowops/row_worker.h"

namespace {

constexpr char kImageFilter[] = " (tMakCulIntImgIDFk=%d) ";
constexpr rowops::NewestQuery kNewest = {tMakCulIntMakIDPk, tMakTsLast, kImageFilter, " tMakTsLast DESC ",
                                         kNoRow};

using Makros = rowops::TableRules<CMakRec, tagTMAKRO>;

}  // namespace

WORD CMakRec::AddRow(tagTMAKRO* record) { return rowops::Add<Makros>(*this, record); }
WORD CMakRec::EditRow(tagTMAKRO* record, DWORD mask) {
  return rowops::EditSelected<Makros>(*this, record, mask);
}
WORD CMakRec::DeleteRow(const tagTMAKRO* record) { return rowops::DeleteRow<Makros>(*this, *record); }
WORD CMakRec::GetRow(tagTMAKRO* record) { return rowops::GetRow<Makros>(*this, record); }
WORD CMakRec::CountRows(LONG image, LONG* count) {
  return rowops::CountRows(*this, kImageFilter, image, count);
}
WORD CMakRec::GetNewest(LONG image, LONG* key, TIMESTAMP_STRUCT* time) {
  return rowops::Newest(*this, kNewest, image, key, time);
}
