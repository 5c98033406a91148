// Construction, opening and positioning.
#include "recset/kyrecset.h"

#include "platform/log.h"
#include "platform/result_codes.h"
#include "recset/restore.h"
#include "recset/upcalls.h"

namespace {

constexpr LONG kOwnerSize = 260;

CString OwnerOrLibrarys(const char* owner) {
  if (owner != nullptr && owner[0] != '\0') return owner;
  char buffer[kOwnerSize] = {};
  return upcalls::LibraryOwner(buffer, kOwnerSize) ? CString(buffer) : CString();
}

}  // namespace

constinit const CRuntimeClass CKyRecSet::classCKyRecSet = {"CKyRecSet", &CRecordset::classCRecordset};

CKyRecSet::CKyRecSet(CDatabase* database, const char* owner)
    : CRecordset(database != nullptr ? database : upcalls::LibraryDatabase()),
      m_lID(0),
      m_nOpenType(dynaset),
      m_strOwner(OwnerOrLibrarys(owner)),
      m_lSortIndex(0),
      m_dwFieldMask(0),
      m_bStale(FALSE) {
  if (!m_strOwner.IsEmpty()) m_nOpenType = snapshot;
  SetRowKey(&m_lID);
}

CKyRecSet::~CKyRecSet() = default;

const CRuntimeClass* CKyRecSet::GetRuntimeClass() const { return &classCKyRecSet; }

void CKyRecSet::Serialize(CArchive&) {}

void CKyRecSet::AssertValid() const {}

void CKyRecSet::Dump(CDumpContext&) const {}

// Nothing but the base's work: the operation is declared so that callers' sets override it at this class.
BOOL CKyRecSet::Open(UINT open_type, const char* sql, DWORD options) {
  m_bStale = FALSE;
  return CRecordset::Open(open_type, sql, options);
}

void CKyRecSet::RequeryNow() {
  m_bStale = FALSE;
  Requery();
}

void CKyRecSet::CatchUp() {
  if (IsMarked()) RequeryNow();
}

// Puts the fetched row into the members and makes `position` the current one.
void CKyRecSet::Settle(LONG position) {
  m_lCurrentRecord = position - 1;
  if (m_lRecordCount < position) m_lRecordCount = position;
  Fixups();
  m_bBOF = FALSE;
  m_bEOF = FALSE;
}

bool CKyRecSet::FetchAt(LONG position) { return Fetched(SQL_FETCH_ABSOLUTE, position); }

// A row that cannot be read is none to the caller, as one that is gone. What the database said tells them
// apart.
bool CKyRecSet::Fetched(WORD type, LONG row) {
  const RETCODE code = ExtendedFetch(type, row);
  if (!Check(code) && IsOpen()) NoteFailure(code, kNoRow);
  return code == SQL_SUCCESS;
}

LONG CKyRecSet::MoveToPos(LONG position) {
  CatchUp();
  // To the driver a negative row counts from the end; as a position it is as wrong as 0.
  if (position <= 0 || !FetchAt(position)) {
    m_lCurrentRecord = AFX_CURRENT_RECORD_UNDEFINED;
    m_bEOF = TRUE;
    return 0;
  }
  Settle(position);
  return GetIndexPos();
}

LONG CKyRecSet::MoveToDelta(LONG delta) {
  CatchUp();
  if (m_bBOF || m_bEOF) return 0;
  if (delta == 1) {
    MoveNext();
  } else if (delta == -1) {
    MovePrev();
  } else if (delta != 0) {
    MoveFar(delta);
  }
  return m_bBOF || m_bEOF ? 0 : GetIndexPos();
}

void CKyRecSet::MoveFar(LONG delta) {
  // Forwards from a deleted row, the first step reaches the row that took its number.
  const LONG from = IsDeleted() && delta > 0 ? m_lCurrentRecord : GetIndexPos();
  if (Fetched(SQL_FETCH_RELATIVE, delta)) {
    Settle(from + delta);
  } else if (delta < 0) {
    m_lCurrentRecord = AFX_CURRENT_RECORD_BOF;
    m_bBOF = TRUE;
  } else {
    m_lCurrentRecord = AFX_CURRENT_RECORD_UNDEFINED;
    m_bEOF = TRUE;
  }
}

LONG CKyRecSet::MoveToIntID(LONG id) {
  CatchUp();
  if (m_bBOF) return 0;
  if (const LONG found = FindKey(id); found >= 0) {
    if (found > 0 && MoveToPos(found) != 0) return found;
    MoveFirst();
    return m_bBOF || m_bEOF ? 0 : GetIndexPos();
  }
  for (MoveFirst(); !m_bEOF; MoveNext()) {
    if (m_lID == id) return GetIndexPos();
  }
  // The last rows may have been deleted through this set since.
  if (m_bBOF) return 0;
  MoveFirst();
  return GetIndexPos();
}

WORD CKyRecSet::GetByPos(LONG* position) {
  CatchUp();
  if (position != nullptr && *position != 0) MoveToPos(*position);
  if (m_bEOF || m_bBOF) return kNoRow;
  if (position != nullptr && *position == 0) *position = GetIndexPos();
  return kOk;
}

WORD CKyRecSet::DeleteByPos(LONG position) {
  try {
    CatchUp();
    // A row that someone else deleted is one that cannot be deleted, whether the set still shows it or not.
    if (position != 0 && MoveToPos(position) == 0 && IsGone(position)) return kDeleteFailed;
    if (m_bEOF || m_bBOF) return kNoRow;
    Delete();
    MoveNext();
    if (m_bEOF) MoveLast();
    return kOk;
  } catch (CDBException* exception) {
    return klog::Caught(exception, kDeleteFailed);
  }
}

WORD CKyRecSet::IsUniqueRecord() {
  if (m_bEOF && m_bBOF) return kNoRow;
  MoveFirst();
  MoveNext();
  if (!m_bEOF) return kNotUnique;
  MoveFirst();
  return kOk;
}

WORD CKyRecSet::TryRequery(int* opened) {
  if (IsOpen()) {
    RequeryNow();
    return kOk;
  }
  if (!Open(m_nOpenType, nullptr, none)) return kNotOpened;
  if (opened != nullptr) *opened = 1;
  return kOk;
}
