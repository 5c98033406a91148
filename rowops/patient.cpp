// Patients: derived fields follow every write; an add is tried nine times; a delete without a row to name
// deletes the selected patients.
#include "platform/local_time.h"
#include "recset/pat_rec.h"
#include "recset/upcalls.h"
#include "rowops/own_transaction.h"
#include "rowops/row_worker.h"

namespace {

// Mask bits of the fields that the library derives.
constexpr DWORD kEntryDate = 0x400;
constexpr DWORD kDisplayID = 0x800;
constexpr DWORD kLastDisplay = 0x1000;

constexpr int kAddAttempts = 9;
constexpr char kSelectedFilter[] = " (tPatFSelect=1) ";

struct Patients : rowops::TableRules<CPatRec, tagTPATIENT> {
  static constexpr WORD kNotFound = kPatientNotFound;
  static constexpr DWORD kNeverEdited = kEntryDate;
  static void AfterCopyIn(CPatRec& set) { set.RefreshDerived(); }
};

// A new patient counts as displayed on the day of entry, whatever the record says.
void Insert(rowops::ShortLived<CPatRec>& set, const tagTPATIENT& record) {
  set.m_dwFieldMask = rowops::kAllFields;
  set.AddNew();
  set.CopyIn(&record);
  set.m_dwFieldMask &= ~kLastDisplay;
  set.RefreshDerived();
  set.m_tsLastDisp = set.m_dEntry;
  set.Update();
}

}  // namespace

// Each attempt is a transaction of its own, unless the caller has one: what an attempt that failed at the
// reading back has stored is gone before the next. Without transactions callers have to reckon with a second
// row after a bad connection. A commit that failed is not tried again: the row may be there.
WORD CPatRec::AddRow(tagTPATIENT* record) {
  const tagTPATIENT given = *record;
  rowops::ShortLived<CPatRec> set(*this);
  for (int attempt = 1; attempt <= kAddAttempts; ++attempt) {
    rowops::OwnTransaction transaction;
    if (!transaction.Begin(set.m_pDatabase)) continue;
    try {
      Insert(set, *record);
      rowops::PutKey(record, 0);
      const WORD code = rowops::Reread(set, record);
      if (transaction.Commit()) return code;
      *record = given;
      return kWriteFailed;
    } catch (CDBException* exception) {
      klog::Caught(exception, kWriteFailed);
      set.Close();
    }
  }
  return kWriteFailed;
}

WORD CPatRec::EditRow(tagTPATIENT* record, DWORD mask) {
  return rowops::EditSelected<Patients>(*this, record, mask);
}

WORD CPatRec::DeleteRow(const tagTPATIENT* record) {
  rowops::ShortLived<CPatRec> set(*this);
  if (set.SelectRow(record)) return rowops::DeleteRow<Patients>(*this, *record);
  if (record->lSelect == 0) return kBadArgument;
  set.m_strFilter = kSelectedFilter;
  return rowops::DeleteAllRows(set, kPatientNotFound, kDeleteFailed, [] { return true; });
}

WORD CPatRec::GetRow(tagTPATIENT* record) { return rowops::GetRow<Patients>(*this, record); }

void CPatRec::RefreshDerived() {
  if ((m_dwFieldMask & kEntryDate) != 0) m_dEntry = LocalToday();
  if ((m_dwFieldMask & kLastDisplay) != 0 &&
      upcalls::NewestImage(m_pDatabase, m_strOwner, m_lID, nullptr, &m_tsLastDisp) != kOk) {
    m_tsLastDisp = m_dEntry;
  }
  if ((m_dwFieldMask & kDisplayID) == 0) return;
  if (!m_strSlidaID.IsEmpty()) {
    m_strIDDisp = m_strSlidaID;
    return;
  }
  m_strIDDisp = m_strExtPatID;
  if (m_strExtPatID.IsEmpty()) SetFieldNull(&m_strExtPatID);
  SetFieldNull(&m_strSlidaID);
}

namespace upcalls {

void RefreshLastDisplay(CDatabase* database, const char* owner, LONG patient_key) {
  tagTPATIENT patient{};
  patient.lPatID = patient_key;
  CPatRec(database, owner).EditRow(&patient, kLastDisplay);
}

}  // namespace upcalls
