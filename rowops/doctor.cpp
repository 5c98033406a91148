// Doctors: the default row is protected.
#include "recset/dr_rec.h"
#include "rowops/row_worker.h"

namespace {

struct Doctors : rowops::TableRules<CDrRec, tagTDOCTOR> {
  static constexpr bool kProtectsDefaultRow = true;
};

}  // namespace

WORD CDrRec::AddRow(tagTDOCTOR* record) { return rowops::Add<Doctors>(*this, record); }
WORD CDrRec::EditRow(tagTDOCTOR* record, DWORD mask) {
  return rowops::EditSelected<Doctors>(*this, record, mask);
}
WORD CDrRec::DeleteRow(const tagTDOCTOR* record) { return rowops::DeleteRow<Doctors>(*this, *record); }
WORD CDrRec::GetRow(tagTDOCTOR* record) { return rowops::GetRow<Doctors>(*this, record); }
