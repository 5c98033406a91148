// Diagnoses: without a natural key, so an add cannot learn its key and leaves the record as it was.
#include "recset/diag_rec.h"
#include "rowops/row_worker.h"

namespace {

struct Diagnoses : rowops::TableRules<CDiagRec, tagTDIAGNOSIS> {
  static constexpr rowops::NewKey kNewKey = rowops::NewKey::kNone;
};

}  // namespace

WORD CDiagRec::AddRow(tagTDIAGNOSIS* record) { return rowops::Add<Diagnoses>(*this, record); }
WORD CDiagRec::EditRow(tagTDIAGNOSIS* record, DWORD mask) {
  return rowops::EditSelected<Diagnoses>(*this, record, mask);
}
WORD CDiagRec::DeleteRow(const tagTDIAGNOSIS* record) { return rowops::DeleteRow<Diagnoses>(*this, *record); }
WORD CDiagRec::GetRow(tagTDIAGNOSIS* record) { return rowops::GetRow<Diagnoses>(*this, record); }
