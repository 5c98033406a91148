// Moving over the rows of an open set.
#include <algorithm>

#include "platform/crecordset.h"
#include "platform/field_access.h"
#include "platform/row_fields.h"
#include "platform/row_source.h"

RETCODE CRecordset::ExtendedFetch(WORD fetch_type, SQLLEN row) {
  if (m_rows == nullptr) return SQL_INVALID_HANDLE;
  EndMode(true);
  m_columnsRead.clear();
  return m_rows->Fetch(fetch_type, row);
}

LONG CRecordset::FindKey(LONG key) const {
  return m_rows == nullptr ? 0 : static_cast<LONG>(m_rows->FindKey(key));
}

bool CRecordset::IsGone(LONG position) const { return m_rows != nullptr && m_rows->HasPlace(position); }

std::optional<bool> FieldAccess::IsOnOnlyRow(CRecordset& set) {
  if (set.m_bBOF || set.m_bEOF || set.m_lCurrentRecord != 0) return std::nullopt;
  const RETCODE next = set.m_rows->Fetch(SQL_FETCH_NEXT, 1);
  set.m_columnsRead.clear();
  if (odbc::Succeeded(next)) return false;
  if (set.m_rows->Fetch(SQL_FETCH_FIRST, 1) != SQL_SUCCESS || next != SQL_NO_DATA) return std::nullopt;
  set.m_bEOFSeen = TRUE;
  return true;
}

void CRecordset::Fixups() {
  if (m_rows == nullptr) return;
  m_bDeleted = FALSE;
  CFieldExchange load(CFieldExchange::kLoad, this);
  DoFieldExchange(&load);
  if (m_pRowKey != nullptr) m_lKeyLoaded = *m_pRowKey;
}

void CRecordset::CheckRowsetError(RETCODE code) {
  if (!odbc::Succeeded(code) && code != SQL_NO_DATA) ThrowDBException(code);
}

void CRecordset::Move(LONG rows, WORD fetch_type) {
  EndMode(true);
  const bool beyond = (m_bBOF && m_bEOF) || (m_bEOF && fetch_type == SQL_FETCH_NEXT) ||
                      (m_bBOF && fetch_type == SQL_FETCH_PRIOR) ||
                      (m_bDeleted && fetch_type == SQL_FETCH_RELATIVE && rows == 0);
  if (beyond) ThrowDBException(AFX_SQL_ERROR_NO_CURRENT_RECORD);
  const RETCODE code = ExtendedFetch(fetch_type, rows);
  CheckRowsetError(code);
  if (code == SQL_NO_DATA) {
    SettleEnd(fetch_type);
    return;
  }
  SettleRow();
  // The last row is reached without having seen those before it: the count of rows seen stays.
  if (fetch_type != SQL_FETCH_LAST) m_lRecordCount = std::max(m_lRecordCount, m_lCurrentRecord + 1);
}

void CRecordset::SettleRow() {
  m_lCurrentRecord = static_cast<LONG>(m_rows->Position() - 1);
  m_bBOF = m_bEOF = FALSE;
  Fixups();
}

void CRecordset::SettleEnd(WORD fetch_type) {
  if (fetch_type == SQL_FETCH_NEXT) {
    // The row left behind was the last one, so all rows are known now. A deleted one does not count.
    m_lRecordCount = std::max(m_lRecordCount, m_lCurrentRecord + (m_bDeleted ? 0 : 1));
    m_bEOFSeen = TRUE;
  }
  const bool nothing = fetch_type == SQL_FETCH_FIRST || fetch_type == SQL_FETCH_LAST;
  const bool after_last = m_rows->Position() == RowSource::kAfterLast;
  m_bDeleted = FALSE;
  m_bEOF = nothing || after_last;
  m_bBOF = nothing || !after_last;
  m_lCurrentRecord = m_bBOF ? AFX_CURRENT_RECORD_BOF : AFX_CURRENT_RECORD_UNDEFINED;
}
