// Moving over the rows of an open set.
#include "platform/crecordset.h"
#include "platform/row_fields.h"
#include "platform/row_source.h"

RETCODE CRecordset::ExtendedFetch(WORD fetch_type, SQLLEN row) {
  if (m_rows == nullptr) return SQL_INVALID_HANDLE;
  EndMode(true);
  m_columnsRead.clear();
  return m_rows->Fetch(fetch_type, row);
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
  m_bDeleted = FALSE;
  if (code == SQL_NO_DATA) {
    SettleEnd(fetch_type, rows);
    return;
  }
  SettleRow();
  // The last row is reached without having seen those before it: the count of rows seen stays.
  if (fetch_type != SQL_FETCH_LAST && m_lRecordCount < m_lCurrentRecord + 1) {
    m_lRecordCount = m_lCurrentRecord + 1;
  }
}

void CRecordset::SettleRow() {
  m_lCurrentRecord = static_cast<LONG>(m_rows->Position() - 1);
  m_bBOF = m_bEOF = FALSE;
  Fixups();
}

void CRecordset::SettleEnd(WORD fetch_type, LONG rows) {
  const bool nothing = fetch_type == SQL_FETCH_FIRST || fetch_type == SQL_FETCH_LAST;
  const bool forward = fetch_type == SQL_FETCH_NEXT ||
                       ((fetch_type == SQL_FETCH_RELATIVE || fetch_type == SQL_FETCH_ABSOLUTE) && rows > 0);
  m_bEOF = nothing || forward;
  m_bBOF = nothing || !forward;
  m_lCurrentRecord = forward ? AFX_CURRENT_RECORD_UNDEFINED : AFX_CURRENT_RECORD_BOF;
  if (m_bEOF) m_bEOFSeen = TRUE;
}
