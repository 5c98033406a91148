// Images: added at the library's location, in place of images with the same natural key; every change
// brings the patient's last-display time up to date; counted and dated by patient.
#include "recset/img_rec.h"
#include "recset/upcalls.h"
#include "rowops/library_location.h"
#include "rowops/row_worker.h"

namespace {

constexpr DWORD kImageTime = 0x40;  // mask bit of tImgTs
constexpr char kPatientFilter[] = " (tImgCulIntPatIDFk=%d) ";
constexpr rowops::NewestQuery<CImgRec> kNewest = {" (tImgCulIntPatIDFk = %d) ", " tImgTs DESC ",
                                                  &CImgRec::m_ts, kImageNotFound};

// Deletes the images that an image to be added replaces: those with its patient, time and location. An
// incomplete natural key replaces none. Returns 0; 3 when they cannot be read, 8 when not deleted.
WORD DeleteReplaced(const CImgRec& browse, tagTIMAGE image) {
  image.lImgID = 0;  // by natural key, whatever key the caller's record holds
  rowops::ShortLived<CImgRec> replaced(browse);
  if (!replaced.SelectRow(&image)) return kOk;
  return rowops::DeleteAllRows(replaced, kOk);
}

struct Images : rowops::TableRules<CImgRec, tagTIMAGE> {
  static constexpr WORD kNotFound = kImageNotFound;

  static WORD BeforeAdd(const CImgRec& browse, tagTIMAGE* image) {
    const WORD refused = rowops::TakeLibraryLocation(image->szLoc);
    return refused != kOk ? refused : DeleteReplaced(browse, *image);
  }

  // The patient is the one the caller's record names, even when the row holds another.
  static void AfterWrite(const CImgRec& set, const tagTIMAGE& image, DWORD written) {
    if ((written & kImageTime) == 0) return;
    upcalls::RefreshLastDisplay(set.m_pDatabase, set.m_strOwner, image.lPatID);
  }
};

}  // namespace

WORD CImgRec::AddRow(tagTIMAGE* record) { return rowops::Add<Images>(*this, record); }
WORD CImgRec::EditRow(tagTIMAGE* record, DWORD mask) {
  return rowops::EditSelected<Images>(*this, record, mask);
}
WORD CImgRec::DeleteRow(const tagTIMAGE* record) { return rowops::DeleteRow<Images>(*this, *record); }
WORD CImgRec::GetRow(tagTIMAGE* record) { return rowops::GetRow<Images>(*this, record); }
WORD CImgRec::CountRows(LONG patient, LONG* count) {
  return rowops::CountRows(*this, kPatientFilter, patient, count);
}
WORD CImgRec::GetNewest(LONG patient, LONG* key, TIMESTAMP_STRUCT* time) {
  return rowops::Newest(*this, kNewest, patient, key, time);
}

namespace upcalls {

WORD NewestImage(CDatabase* database, const char* owner, LONG patient_key, LONG* key,
                 TIMESTAMP_STRUCT* time) {
  return CImgRec(database, owner).GetNewest(patient_key, key, time);
}

}  // namespace upcalls
