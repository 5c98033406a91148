// Adding, editing and deleting single rows by searched statements.
#include "platform/crecordset.h"
#include "platform/kept_statements.h"
#include "platform/log.h"
#include "platform/row_fields.h"
#include "platform/row_source.h"

namespace {

constexpr LONG kSeveral = 2;

constexpr std::size_t kUsualStatement = 1024;  // bytes of a change of all fields

CString Where(const CString& condition) { return " WHERE " + condition; }

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
    const TIMESTAMP_STRUCT& time = *static_cast<const TIMESTAMP_STRUCT*>(field.member);
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
  std::string sql;
  sql.reserve(kUsualStatement);
  sql.append("INSERT INTO ").append(m_strTableName.View()).append(" (");
  std::vector<odbc::Parameter> parameters;
  parameters.reserve(m_fields->Count());
  for (const Field& field : m_fields->All()) {
    if (!field.dirty) continue;
    if (!parameters.empty()) sql += ',';
    sql += field.name.View();
    parameters.push_back(m_fields->MakeParameter(field, m_fields->Written(field)));
  }
  sql += ") VALUES (";
  for (std::size_t mark = 0; mark < parameters.size(); ++mark) sql += mark == 0 ? "?" : ",?";
  sql += ')';
  // The driver's row count says nothing here: it is 0 for a view with triggers.
  RunChange(CString(std::move(sql)), parameters);
  ++m_lRecordCount;
}

void CRecordset::UpdateRow() {
  std::string sql;
  sql.reserve(kUsualStatement);
  sql.append("UPDATE ").append(m_strTableName.View()).append(" SET ");
  std::vector<odbc::Parameter> parameters;
  parameters.reserve(m_fields->Count() + 1);
  for (const Field& field : m_fields->All()) {
    if (!field.dirty) continue;
    if (!parameters.empty()) sql += ',';
    sql.append(field.name.View()).append("=?");
    parameters.push_back(m_fields->MakeParameter(field, m_fields->Written(field)));
  }
  ChangeRow(CString(std::move(sql)), parameters, false);
  if (m_rows == nullptr) return;  // the connection went right behind the change, and has closed the set
  const LONG key = m_pRowKey != nullptr ? *m_pRowKey : 0;
  m_fields->RememberEdit(m_rows->RowIdentity(), !m_rows->TakeChange(key));
  if (m_pRowKey != nullptr) m_lKeyLoaded = *m_pRowKey;
}

void CRecordset::Delete() {
  RequireUpdatableRow();
  EndMode(true);
  std::vector<odbc::Parameter> parameters;
  ChangeRow("DELETE FROM " + m_strTableName, parameters, true);
  if (m_rows == nullptr) return;  // as in UpdateRow
  m_rows->ForgetCurrentRow();
  if (m_lRecordCount > 0) --m_lRecordCount;
  for (Field& field : m_fields->All()) field.null = true;
  m_bDeleted = TRUE;
}

// Appends what finds the current row to the statement and runs it; exactly one row must be changed. A
// driver that says "none" may be wrong: of a view, or of values that were already stored. Then the row is
// looked for, so that the ordinary road takes one statement.
void CRecordset::ChangeRow(const CString& sql, std::vector<odbc::Parameter>& parameters, bool deleting) {
  const CString condition = RowCondition(false, parameters);
  // Nothing that the set holds tells this row from others.
  if (condition.IsEmpty()) ThrowDBException(AFX_SQL_ERROR_RECORDSET_READONLY);
  if (deleting) RequireRowToDelete();
  const SQLLEN changed = RunChange(sql + Where(condition), parameters);
  if (changed == 1) return;
  const LONG there = changed > 1 ? kSeveral : CountRowsAfter(changed, deleting);
  if (there > 1) ThrowDBException(AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED);
  if (there == 1 && !deleting) return;
  // The row is not to be found as it was. Of a table that means that it was gone before.
  const bool uncounted = changed < 0 || (!(deleting && m_pOpenDatabase->CountsDeletes()) && IsView());
  if (there == 0 && uncounted && (deleting || CountRows(true) == 1)) return;
  ThrowDBException(AFX_SQL_ERROR_NO_ROWS_AFFECTED);
}

// The rows that the condition still finds. When the connection goes before anybody has told how many rows
// were changed, the statement has been run all the same: it was the one row that there was.
LONG CRecordset::CountRowsAfter(SQLLEN changed, bool deleting) {
  try {
    return CountRows(false);
  } catch (CDBException* exception) {
    if (changed >= 0) throw;
    exception->Delete();
    return deleting ? 0 : 1;
  }
}

// Afterwards nobody could tell a row that was deleted through a view with triggers from one that was gone.
void CRecordset::RequireRowToDelete() {
  if (m_pOpenDatabase->CountsDeletes() || !IsView() || CountRows(false) != 0) return;
  ThrowDBException(AFX_SQL_ERROR_NO_ROWS_AFFECTED);
}

// What finds the current row: the row key, or without one every bound column. `written`: after the pending
// change, else as the row was fetched or last edited.
CString CRecordset::RowCondition(bool written, std::vector<odbc::Parameter>& parameters) const {
  const Field* key = m_fields->Find(m_pRowKey);
  CString condition;
  for (std::size_t index = 0; index < m_fields->Count(); ++index) {
    const Field& field = m_fields->At(index);
    if (key != nullptr && &field != key) continue;
    FieldValue value;
    if (written && field.dirty) {
      value = m_fields->Written(field);
    } else if (&field == key) {
      value.number = m_lKeyLoaded;
    } else if (!m_fields->Held(index, m_rows->RowIdentity(), &value)) {
      continue;
    }
    if (!condition.IsEmpty()) condition += " AND ";
    condition += field.name + (value.null ? " IS NULL" : "=?");
    if (!value.null) parameters.push_back(m_fields->MakeParameter(field, value));
  }
  return condition;
}

// Views on which triggers do the work are where drivers count nothing.
bool CRecordset::IsView() const {
  odbc::Statement statement(*m_pOpenDatabase->Connection());
  return statement.MayBeView(m_strTableName.Mid(m_strTableName.ReverseFind('.') + 1));
}

// The number of rows changed, as the driver tells it; negative when it cannot.
SQLLEN CRecordset::RunChange(const CString& sql, std::vector<odbc::Parameter>& parameters) {
  m_pOpenDatabase->CountChange();
  if (m_holding != wholeRows) {
    KeptStatements& statements = m_pOpenDatabase->Statements();
    const MarkedSQL marked = {sql, std::move(parameters)};
    std::unique_ptr<KeptStatement> kept = statements.Take(marked, KeptStatements::Cursor::kNone);
    const RETCODE code = statements.Run(marked, &kept);
    const SQLLEN changed = CountChanged(code, kept->statement);
    statements.GiveBack(std::move(kept));
    return changed;
  }
  odbc::Statement statement(*m_pOpenDatabase->Connection());
  if (statement.Handle() == SQL_NULL_HSTMT) AfxThrowDBException(SQL_ERROR, m_pOpenDatabase, SQL_NULL_HSTMT);
  statement.AskForQueryTimeout(m_pOpenDatabase->QueryTimeout());
  OnSetUpdateOptions(statement.Handle());
  BindParameters(statement, parameters);
  return CountChanged(statement.ExecuteDirect(sql), statement);
}

SQLLEN CRecordset::CountChanged(RETCODE code, odbc::Statement& statement) {
  if (code == SQL_NO_DATA) return 0;
  if (!odbc::Succeeded(code)) ThrowDBException(code, statement.Handle());
  SQLLEN changed = -1;
  return odbc::Succeeded(statement.RowCount(&changed)) ? changed : -1;
}

void CRecordset::BindParameters(odbc::Statement& statement, std::vector<odbc::Parameter>& parameters) {
  SQLUSMALLINT position = 0;
  for (odbc::Parameter& parameter : parameters) {
    const RETCODE code = statement.BindParameter(++position, &parameter);
    if (!odbc::Succeeded(code)) ThrowDBException(code, statement.Handle());
  }
}

LONG CRecordset::CountRows(bool written) {
  std::vector<odbc::Parameter> parameters;
  const CString condition = RowCondition(written, parameters);
  odbc::Statement statement(*m_pOpenDatabase->Connection());
  statement.AskForQueryTimeout(m_pOpenDatabase->QueryTimeout());
  BindParameters(statement, parameters);
  RETCODE code = statement.ExecuteDirect("SELECT COUNT(*) FROM " + m_strTableName + Where(condition));
  LONG count = 0;
  if (odbc::Succeeded(code)) code = statement.ReadNumber(&count);
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
    if ((member == nullptr || field.member == member) && m_fields->IsNull(field, m_mode != noMode))
      return TRUE;
  }
  return FALSE;
}

BOOL CRecordset::IsFieldNullable(void* member) {
  short index = -1;
  for (const Field& field : m_fields->All()) {
    ++index;
    if ((member == nullptr || field.member == member) && NullabilityOf(index) != SQL_NO_NULLS) return TRUE;
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
      ReadMember(field.kind, field.member, &field.clean);
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
