// Configuration entries: found again by doctor, station and key text.
#include "recset/cfg_rec.h"
#include "rowops/row_worker.h"

namespace {

struct Configs : rowops::TableRules<CCfgRec, tagTCONFIG> {
  static constexpr rowops::NewKey kNewKey = rowops::NewKey::kGetWorker;
};

}  // namespace

WORD CCfgRec::AddRow(tagTCONFIG* record) { return rowops::Add<Configs>(*this, record); }
WORD CCfgRec::EditRow(tagTCONFIG* record, DWORD mask) {
  return rowops::EditSelected<Configs>(*this, record, mask);
}
WORD CCfgRec::DeleteRow(const tagTCONFIG* record) { return rowops::DeleteRow<Configs>(*this, *record); }
WORD CCfgRec::GetRow(tagTCONFIG* record) { return rowops::GetRow<Configs>(*this, record); }
