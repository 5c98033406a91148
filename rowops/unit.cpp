// Units: the default row is protected; a missing unit has a code of its own.
#include "recset/unit_rec.h"
#include "rowops/row_worker.h"

namespace {

struct Units : rowops::TableRules<CUnitRec, tagTUNIT> {
  static constexpr WORD kNotFound = kUnitNotFound;
  static constexpr bool kProtectsDefaultRow = true;
};

}  // namespace

WORD CUnitRec::AddRow(tagTUNIT* record) { return rowops::Add<Units>(*this, record); }
WORD CUnitRec::EditRow(tagTUNIT* record, DWORD mask) {
  return rowops::EditSelected<Units>(*this, record, mask);
}
WORD CUnitRec::DeleteRow(const tagTUNIT* record) { return rowops::DeleteRow<Units>(*this, *record); }
WORD CUnitRec::GetRow(tagTUNIT* record) { return rowops::GetRow<Units>(*this, record); }
