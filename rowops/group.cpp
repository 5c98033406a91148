// Groups: added at the library's location; counted by patient.
#include "recset/grp_rec.h"
#include "rowops/library_location.h"
#include "rowops/row_worker.h"

namespace {

constexpr char kPatientFilter[] = " (tGrpCulIntPatIDFk = %d) ";

struct Groups : rowops::TableRules<CGrpRec, tagTGROUP> {
  static WORD BeforeAdd(const CGrpRec&, tagTGROUP* group) {
    return rowops::TakeLibraryLocation(group->szLoc);
  }
};

}  // namespace

WORD CGrpRec::AddRow(tagTGROUP* record) { return rowops::Add<Groups>(*this, record); }
WORD CGrpRec::EditRow(tagTGROUP* record, DWORD mask) {
  return rowops::EditSelected<Groups>(*this, record, mask);
}
WORD CGrpRec::DeleteRow(const tagTGROUP* record) { return rowops::DeleteRow<Groups>(*this, *record); }
WORD CGrpRec::GetRow(tagTGROUP* record) { return rowops::GetRow<Groups>(*this, record); }
WORD CGrpRec::CountRows(LONG patient, LONG* count) {
  return rowops::CountRows(*this, kPatientFilter, patient, count);
}
