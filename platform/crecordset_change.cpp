// Adding, editing and deleting single rows by searched statements.
#include "platform/crecordset.h"
#include "platform/log.h"
#include "platform/row_fields.h"
#include "platform/row_source.h"

namespace {

CString Where(const CString& condition) { return " WHERE " + condition; }

void AppendWithComma(CString& list, const CString& item) {
  if (!list.IsEmpty()) list += ",";
  list += item;
}

FieldValue DirtyValue(const Field& field) {
  FieldValue value = ReadMember(field.kind, field.member);
  value.null = field.nulled;
  return value;
}

}  // namespace

void CRecordset::EndMode(bool restore) {
  if (m_mode == noMode) return;
  m_fields->End(restore);
  m_mode = noMode;
}

void CRecordset::CancelUpdate() { EndMode(true); }

void CRecordset::AddNew() {
  if (!CanAppend()) ThrowDBException(AFX_SQL_ERROR_RECORDSET_READONLY);
  EndMode(true);
  m_fields->BeginAdd();
  m_mode = addMode;
}

void CRecordset::RequireUpdatableRow() {
  if (!CanUpdate()) ThrowDBException(AFX_SQL_ERROR_RECORDSET_READONLY);
  if (m_bBOF || m_bEOF || m_bDeleted) ThrowDBException(AFX_SQL_ERROR_NO_CURRENT_RECORD);
}

void CRecordset::Edit() {
  RequireUpdatableRow();
  EndMode(true);
  m_fields->BeginEdit();
  m_mode = editMode;
}

BOOL CRecordset::Update() {
  if (m_mode == noMode) ThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE);
  if (!m_fields->MarkDirty(m_mode == addMode)) return FALSE;
  for (const Field& field : m_fields->All()) {
    if (!field.dirty || field.kind != FieldKind::kDate) continue;
    const TIMESTAMP_STRUCT time = ReadMember(field.kind, field.member).time;
    // One database would store such a date as rubbish; here it is refused on all of them.
    if (!IsAllZero(time) && !IsStorableDate(time)) ThrowDBException(AFX_SQL_ERROR_IMPOSSIBLE_DATE);
  }
  if (m_mode == addMode) {
    InsertRow();
    EndMode(true);
  } else {
    UpdateRow();
    EndMode(false);
  }
  return TRUE;
}

void CRecordset::InsertRow() {
  CString columns;
  CString marks;
  std::vector<odbc::Parameter> parameters;
  for (const Field& field : m_fields->All()) {
    if (!field.dirty) continue;
    AppendWithComma(columns, field.name);
    AppendWithComma(marks, "?");
    parameters.push_back(m_fields->MakeParameter(field, DirtyValue(field)));
  }
  // The driver's row count says nothing here: it is 0 for a view with triggers.
  RunChange("INSERT INTO " + m_strTableName + " (" + columns + ") VALUES (" + marks + ")", parameters);
  if (m_lRecordCount >= 0) ++m_lRecordCount;
}

void CRecordset::UpdateRow() {
  CString assignments;
  std::vector<odbc::Parameter> parameters;
  for (const Field& field : m_fields->All()) {
    if (!field.dirty) continue;
    AppendWithComma(assignments, field.name + "=?");
    parameters.push_back(m_fields->MakeParameter(field, DirtyValue(field)));
  }
  ChangeRow("UPDATE " + m_strTableName + " SET " + assignments, parameters, false);
  m_fields->RememberEdit(m_rows->RowIdentity());
  if (m_pRowKey != nullptr) m_lKeyLoaded = *m_pRowKey;
}

void CRecordset::Delete() {
  RequireUpdatableRow();
  EndMode(true);
  std::vector<odbc::Parameter> parameters;
  ChangeRow("DELETE FROM " + m_strTableName, parameters, true);
  m_rows->ForgetCurrentRow();
  if (m_lRecordCount > 0) --m_lRecordCount;
  for (Field& field : m_fields->All()) field.null = true;
  m_bDeleted = TRUE;
}

// Appends what finds the current row to the statement and runs it; exactly one row must be changed. A
// driver that says "none" may be wrong, for a view or for values that were already stored; then the
// condition itself is counted, so that the ordinary road takes one statement. A row that is gone after a
// deletion was deleted.
void CRecordset::ChangeRow(const CString& sql, std::vector<odbc::Parameter>& parameters, bool deleting) {
  const CString condition = RowCondition(parameters);
  const SQLLEN changed = RunChange(sql + Where(condition), parameters);
  if (changed == 1) return;
  if (changed > 1) ThrowDBException(AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED);
  const LONG matching = CountCondition();
  if (matching == (deleting ? 0 : 1)) return;
  ThrowDBException(matching > 1 ? AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED : AFX_SQL_ERROR_NO_ROWS_AFFECTED);
}

// The row key as fetched, or without one every bound column as fetched.
CString CRecordset::RowCondition(std::vector<odbc::Parameter>& parameters) const {
  const Field* key = m_fields->Find(m_pRowKey);
  if (key != nullptr) {
    FieldValue value;
    value.number = m_lKeyLoaded;
    parameters.push_back(m_fields->MakeParameter(*key, value));
    return key->name + "=?";
  }
  CString condition;
  for (std::size_t index = 0; index < m_fields->Count(); ++index) {
    if (!m_fields->IsBuffered(index)) continue;
    const Field& field = m_fields->At(index);
    const FieldValue value = m_fields->Fetched(index);
    if (!condition.IsEmpty()) condition += " AND ";
    condition += field.name + (value.null ? " IS NULL" : "=?");
    if (!value.null) parameters.push_back(m_fields->MakeParameter(field, value));
  }
  return condition;
}

// The number of rows changed, as the driver tells it.
SQLLEN CRecordset::RunChange(const CString& sql, std::vector<odbc::Parameter>& parameters) {
  odbc::Statement statement(*m_pDatabase->Connection());
  if (statement.Handle() == SQL_NULL_HSTMT) AfxThrowDBException(SQL_ERROR, m_pDatabase, SQL_NULL_HSTMT);
  statement.AskForQueryTimeout(m_pDatabase->QueryTimeout());
  OnSetUpdateOptions(statement.Handle());
  RETCODE code = SQL_SUCCESS;
  SQLUSMALLINT position = 0;
  for (odbc::Parameter& parameter : parameters) {
    code = statement.BindParameter(++position, &parameter);
    if (!odbc::Succeeded(code)) ThrowDBException(code, statement.Handle());
  }
  code = statement.ExecuteDirect(sql);
  if (!odbc::Succeeded(code) && code != SQL_NO_DATA) ThrowDBException(code, statement.Handle());
  SQLLEN changed = 0;
  if (code != SQL_NO_DATA) statement.RowCount(&changed);
  return changed;
}

LONG CRecordset::CountCondition() {
  std::vector<odbc::Parameter> parameters;
  const CString condition = RowCondition(parameters);
  odbc::Statement statement(*m_pDatabase->Connection());
  SQLUSMALLINT position = 0;
  for (odbc::Parameter& parameter : parameters) statement.BindParameter(++position, &parameter);
  RETCODE code = statement.ExecuteDirect("SELECT COUNT(*) FROM " + m_strTableName + Where(condition));
  if (odbc::Succeeded(code)) code = statement.ExtendedFetch(SQL_FETCH_NEXT, 0);
  LONG count = 0;
  SQLLEN indicator = 0;
  if (odbc::Succeeded(code)) code = statement.GetData(1, SQL_C_SLONG, &count, sizeof count, &indicator);
  if (!odbc::Succeeded(code)) ThrowDBException(code, statement.Handle());
  return count;
}

BOOL CRecordset::IsFieldDirty(void* member) {
  if (m_mode == noMode) return FALSE;
  m_fields->MarkDirty(m_mode == addMode);
  for (const Field& field : m_fields->All()) {
    if ((member == nullptr || field.member == member) && field.dirty) return TRUE;
  }
  return FALSE;
}

BOOL CRecordset::IsFieldNull(void* member) {
  for (const Field& field : m_fields->All()) {
    if ((member == nullptr || field.member == member) && (field.null || field.nulled)) return TRUE;
  }
  return FALSE;
}

BOOL CRecordset::IsFieldNullable(void* member) {
  for (const Field& field : m_fields->All()) {
    if ((member == nullptr || field.member == member) && field.column.m_nNullability != SQL_NO_NULLS)
      return TRUE;
  }
  return FALSE;
}

void CRecordset::SetFieldDirty(void* member, BOOL dirty) {
  if (m_mode == noMode) ThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE);
  for (Field& field : m_fields->All()) {
    if (member != nullptr && field.member != member) continue;
    field.forced = dirty != FALSE;
    if (!dirty) {
      field.nulled = false;
      field.clean = ReadMember(field.kind, field.member);
    }
  }
}

void CRecordset::SetFieldNull(void* member, BOOL null) {
  if (m_mode == noMode) ThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE);
  for (Field& field : m_fields->All()) {
    if (member != nullptr && field.member != member) continue;
    field.nulled = null != FALSE;
    if (null) WriteMember(field.kind, FieldValue(), field.member);
  }
}
