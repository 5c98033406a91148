// Stations: the default row is protected.
#include "recset/stat_rec.h"
#include "rowops/row_worker.h"

namespace {

struct Stations : rowops::TableRules<CStatRec, tagTSTATION> {
  static constexpr bool kProtectsDefaultRow = true;
};

}  // namespace

WORD CStatRec::AddRow(tagTSTATION* record) { return rowops::Add<Stations>(*this, record); }
WORD CStatRec::EditRow(tagTSTATION* record, DWORD mask) {
  return rowops::EditSelected<Stations>(*this, record, mask);
}
WORD CStatRec::DeleteRow(const tagTSTATION* record) { return rowops::DeleteRow<Stations>(*this, *record); }
WORD CStatRec::GetRow(tagTSTATION* record) { return rowops::GetRow<Stations>(*this, record); }
