// Images: added at the library's location, in place of images with the same natural key; every change
// brings the patient's last-display time up to date; counted and dated by patient.
#include "tables/image.h"
#include "platform/field_value.h"
#include "recset/img_rec.h"
#include "recset/upcalls.h"
#include "rowops/library_location.h"
#include "rowops/own_transaction.h"
#include "rowops/row_worker.h"

namespace {

constexpr DWORD kImageTime = 0x40;  // mask bit of tImgTs
constexpr char kPatientFilter[] = " (tImgCulIntPatIDFk=%d) ";
constexpr rowops::NewestQuery kNewest = {tImgCulIntImgIDPk, tImgTs, " (tImgCulIntPatIDFk = %d) ",
                                         " tImgTs DESC ", kImageNotFound};

// Deletes the images that an image to be added replaces: those with its patient, time and location. An
// incomplete natural key replaces none. When there are some, the transaction is begun, in which the new image
// has to follow. Returns 0; 3 when they cannot be read, 6 when for a conflict, 8 when not deleted.
WORD DeleteReplaced(const CImgRec& browse, tagTIMAGE image, rowops::OwnTransaction* transaction) {
  // No image is stored with an impossible time, and some databases refuse to look for one: the insert tells.
  const TIMESTAMP_STRUCT time = image.ts;
  if (!IsStorableDate(time)) return kOk;
  image.lImgID = 0;  // by natural key, whatever key the caller's record holds
  rowops::ShortLived<CImgRec> replaced(browse);
  if (!replaced.SelectRow(&image)) return kOk;
  return rowops::DeleteAllRows(replaced, kOk, kWriteFailed,
                               [&] { return transaction->Begin(browse.m_pDatabase); });
}

struct Images : rowops::TableRules<CImgRec, tagTIMAGE> {
  static constexpr WORD kNotFound = kImageNotFound;

  // The patient is the one the caller's record names, even when the row holds another.
  static void AfterWrite(const CImgRec& set, const tagTIMAGE& image, DWORD written) {
    if ((written & kImageTime) == 0) return;
    upcalls::RefreshLastDisplay(set.m_pDatabase, set.m_strOwner, image.lPatID);
  }
};

}  // namespace

// An image that was stored stays, whatever its reading back gave; one that was not leaves the replaced ones
// there.
WORD CImgRec::AddRow(tagTIMAGE* record) {
  const tagTIMAGE given = *record;
  WORD code = rowops::TakeLibraryLocation(record->szLoc);
  if (code != kOk) return code;
  rowops::OwnTransaction transaction;
  code = DeleteReplaced(*this, *record, &transaction);
  if (code != kOk) {
    *record = given;
    return code;
  }
  code = rowops::InsertAndReadBack<Images>(*this, record, given);
  if (code != kWriteFailed && !transaction.Commit()) code = kWriteFailed;
  if (transaction.IsPending()) *record = given;
  return code;
}
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
