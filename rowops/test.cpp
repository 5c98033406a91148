// Tests: added at the library's location; counted and dated by unit.
#include "tables/test.h"
#include "recset/test_rec.h"
#include "rowops/library_location.h"
#include "rowops/row_worker.h"

namespace {

constexpr char kUnitFilter[] = " (tTstCulIntUnitIDFk=%d) ";
constexpr rowops::NewestQuery kNewest = {tTstCulIntTstIDPk, tTstTs, kUnitFilter, "tTstTs DESC ",
                                         kTestNotFound};

struct Tests : rowops::TableRules<CTestRec, tagTTEST> {
  static constexpr WORD kNotFound = kTestNotFound;
  static WORD BeforeAdd(const CTestRec&, tagTTEST* test) { return rowops::TakeLibraryLocation(test->szLoc); }
};

}  // namespace

WORD CTestRec::AddRow(tagTTEST* record) { return rowops::Add<Tests>(*this, record); }
WORD CTestRec::EditRow(tagTTEST* record, DWORD mask) {
  return rowops::EditSelected<Tests>(*this, record, mask);
}
WORD CTestRec::DeleteRow(const tagTTEST* record) { return rowops::DeleteRow<Tests>(*this, *record); }
WORD CTestRec::GetRow(tagTTEST* record) { return rowops::GetRow<Tests>(*this, record); }
WORD CTestRec::CountRows(LONG unit, LONG* count) {
  return rowops::CountRows(*this, kUnitFilter, unit, count);
}
WORD CTestRec::GetNewest(LONG unit, LONG* key, TIMESTAMP_STRUCT* time) {
  return rowops::Newest(*this, kNewest, unit, key, time);
}
