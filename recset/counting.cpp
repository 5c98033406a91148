// Counting rows: by probing the cursor on sets with an owner, by a query on all others.
#include <limits>

#include "platform/dialect.h"
#include "platform/one_row.h"
#include "platform/result_codes.h"
#include "recset/kyrecset.h"
#include "recset/restore.h"

namespace {

constexpr LONG kFirstStep = 32768;
constexpr LONG kMostRows = std::numeric_limits<LONG>::max();
constexpr const char* kCountFrom = "SELECT COUNT(*) AS TIntCount FROM ";
constexpr LONG kOwnKey = 1;  // the field id of every table's own key

// The number that a query of the library's own gives, 0 without a row. A record set reads it where no
// statements are kept.
LONG NumberOf(CDatabase* database, CString select, const CString& condition, OneRow::By by) {
  if (OneRow::Suits(database)) {
    const MarkedSQL query = condition.IsEmpty()
                                ? MarkedSQL{std::move(select), {}}
                                : TakeOutLiterals(select.View(), PadYears(condition).View(), {});
    const OneRow row(*database, query, {OneRow::Column::kNumber}, by);
    return row.IsThere() ? row.Number(0) : 0;
  }
  CRecordset row(database);
  row.Open(CRecordset::snapshot, select + condition, CRecordset::readOnly);
  if (row.IsEOF()) return 0;
  CDBVariant value;
  row.GetFieldValue(short{0}, value, SQL_C_SLONG);
  return value.m_lVal;
}

}  // namespace

WORD CKyRecSet::GetMaxPos(LONG* count) {
  if (count == nullptr) return kBadArgument;
  *count = 0;
  if (!m_strOwner.IsEmpty()) return CountByProbing(count);
  *count = CountByQuery(WhereClause(m_strFilter));
  return kOk;
}

// The highest row that can be fetched: full steps upwards, then halved ones. The driver has all rows of a
// static cursor, so that this costs a fetch per step and reads no row into the members. False when a fetch
// failed: the rows there and behind are not known not to be.
bool CKyRecSet::ProbeLastRow(LONG* row) {
  *row = 0;
  LONG step = kFirstStep;
  while (step > 0) {
    const RETCODE code =
        *row <= kMostRows - step ? ExtendedFetch(SQL_FETCH_ABSOLUTE, *row + step) : RETCODE{SQL_NO_DATA};
    if (code != SQL_SUCCESS && code != SQL_NO_DATA) {
      if (!Check(code) && IsOpen()) NoteFailure(code, kCountFailed);
      return false;
    }
    if (code == SQL_SUCCESS) {
      *row += step;
    } else {
      step /= 2;
    }
  }
  return true;
}

// A set whose position is not known counts as usual and keeps not knowing it.
WORD CKyRecSet::CountByProbing(LONG* count) {
  CatchUp();
  const LONG position = GetIndexPos();
  if (m_bBOF) return kOk;
  MoveFirst();
  const bool counted = ProbeLastRow(count);
  bool fetched = ExtendedFetch(SQL_FETCH_FIRST, 0) == SQL_SUCCESS;
  if (position > 1) fetched = FetchAt(position);
  if (!counted || !fetched) {
    m_lCurrentRecord = AFX_CURRENT_RECORD_UNDEFINED;
    m_bEOF = TRUE;
    return kCountFailed;
  }
  Settle(position);
  return kOk;
}

// Generated filters bring the blank behind WHERE with them; any other text gets one.
CString CKyRecSet::WhereClause(const CString& filter) {
  if (filter.IsEmpty()) return CString();
  const char first = filter.GetAt(0);
  return (first == ' ' || first == '(' ? " WHERE" : " WHERE ") + filter;
}

// Counts on a statement of its own, so that this set's cursor does not move.
LONG CKyRecSet::CountByQuery(const CString& where) {
  return NumberOf(m_pDatabase, kCountFrom + GetDefaultSQL(), where, OneRow::By::kIndex);
}

WORD CKyRecSet::GetNum(LONG* count) {
  if (count == nullptr) return kOk;
  *count = 0;
  if (m_strOwner.IsEmpty()) {
    *count = CountByQuery(CString());
  } else {
    ReadWholeTable(m_strSort, &CKyRecSet::ReadCount, count);
  }
  return kOk;
}

WORD CKyRecSet::GetLastID(LONG* id) {
  if (id == nullptr) return kBadArgument;
  CString sort = m_strSort;
  LONG error = 0;
  // Without a sort order the last row would be an arbitrary one.
  const bool by_key = sort.IsEmpty();
  if (by_key) sort = GetFieldName(kOwnKey, &error);
  if (by_key && ReadHighest(sort, id)) return kOk;
  return ReadWholeTable(sort, &CKyRecSet::ReadLastID, id);
}

// The library's own sets ask for the last key alone while they are closed; callers' sets may have another way
// of opening. False, with nothing done, where the database may not know how.
bool CKyRecSet::ReadHighest(const CString& key, LONG* id) {
  if (IsOpen() || Held() == wholeRows || !m_strBaseFilter.IsEmpty() || key.IsEmpty()) return false;
  if (m_pDatabase == nullptr || !m_pDatabase->IsOpen()) return false;
  const CString only = m_pDatabase->FirstRowOnly();
  if (only.IsEmpty()) return false;
  *id = NumberOf(m_pDatabase,
                 "SELECT " + key + " FROM " + GetDefaultSQL() + " ORDER BY " + key + " DESC" + only,
                 CString(), OneRow::By::kRows);
  return true;
}

// Lets `read` see the whole table in the order of `sort`, then goes back to the rows and the position of
// before.
WORD CKyRecSet::ReadWholeTable(const CString& sort, void (CKyRecSet::*read)(LONG*), LONG* result) {
  CatchUp();
  const LONG position = GetIndexPos();
  int opened = 0;
  {
    Restore<CString> restore_filter(m_strFilter);
    Restore<CString> restore_sort(m_strSort);
    m_strFilter.Empty();
    m_strSort = sort;
    try {
      if (TryRequery(&opened) != kOk) return kNotOpened;
      (this->*read)(result);
    } catch (...) {
      if (opened) Close();
      throw;
    }
  }
  if (opened) {
    Close();
  } else {
    RequeryAt(position);
  }
  return kOk;
}

// A count that failed is no number of rows, and GetNum has no code for it.
void CKyRecSet::ReadCount(LONG* count) {
  if (GetMaxPos(count) != kOk) ThrowDBException(SQL_ERROR);
}

void CKyRecSet::ReadLastID(LONG* id) {
  *id = 0;
  if (m_bEOF && m_bBOF) return;
  MoveLast();
  *id = m_lID;
}

// A position that was not known is -1, which leads two rows back from the first, that is before it. Callers
// rely on a set that was after its end not standing on a row now.
void CKyRecSet::RequeryAt(LONG position) {
  RequeryNow();
  if (position != 0 && !(m_bEOF && m_bBOF)) Move(position - 1, SQL_FETCH_RELATIVE);
}
