#include "platform/crecordset.h"

#include "platform/buffered_rows.h"
#include "platform/dialect.h"
#include "platform/row_fields.h"
#include "platform/static_cursor.h"

namespace {

constexpr const char* kFrom = " FROM ";
constexpr const char* kWhere = " WHERE ";
constexpr const char* kOrderBy = " ORDER BY ";

std::unique_ptr<RowSource> MakeRowSource(const CDatabase& database, bool call) {
  odbc::Connection& connection = *database.Connection();
  if (call) return std::make_unique<BufferedRows>(connection, database.QueryTimeout());
  return std::make_unique<StaticCursor>(connection, database.QueryTimeout());
}

// The name in a FROM list of exactly one table without an alias; else empty.
CString SingleTable(const CString& from) {
  CString name = from;
  name.Trim();
  return name.FindOneOf(" ,\t\r\n(") < 0 ? name : CString();
}

// The table of a SELECT over one table; empty for joins and groupings.
CString TableOfSelect(const CString& select) {
  CString upper = select;
  upper.MakeUpper();
  const int from = upper.Find(kFrom);
  if (from < 0 || upper.Find(" GROUP BY ") >= 0 || upper.Find(" DISTINCT ") >= 0) return CString();
  const int start = from + CString(kFrom).GetLength();
  int end = upper.Find(kWhere, start);
  if (end < 0) end = upper.Find(kOrderBy, start);
  return SingleTable(end < 0 ? select.Mid(start) : select.Mid(start, end - start));
}

}  // namespace

constinit const CRuntimeClass CRecordset::classCRecordset = {"CRecordset", &CObject::classCObject};

CRecordset::CRecordset(CDatabase* database)
    : m_hstmt(SQL_NULL_HSTMT),
      m_pDatabase(database),
      m_nFields(0),
      m_nParams(0),
      m_lCurrentRecord(AFX_CURRENT_RECORD_BOF),
      m_lRecordCount(0),
      m_bBOF(TRUE),
      m_bEOF(TRUE),
      m_bEOFSeen(FALSE),
      m_bAppendable(FALSE),
      m_bUpdatable(FALSE),
      m_nResultCols(0),
      m_nOpenTypeInUse(snapshot),
      m_dwOptions(none),
      m_fields(std::make_unique<RowFields>()),
      m_pOpenDatabase(nullptr),
      m_pRowKey(nullptr),
      m_mode(noMode),
      m_bDeleted(FALSE),
      m_lKeyLoaded(0) {}

CRecordset::~CRecordset() { CRecordset::Close(); }

const CRuntimeClass* CRecordset::GetRuntimeClass() const { return &classCRecordset; }
void CRecordset::Serialize(CArchive& /*archive*/) {}
void CRecordset::AssertValid() const {}
void CRecordset::Dump(CDumpContext& /*context*/) const {}

void CRecordset::SetRowsetSize(DWORD rows) {
  if (rows != 1) ThrowDBException(AFX_SQL_ERROR_NOT_SUPPORTED);
}

CString CRecordset::GetDefaultConnect() { return "ODBC;"; }
CString CRecordset::GetDefaultSQL() { return CString(); }
void CRecordset::OnSetOptions(HSTMT /*statement*/) {}
void CRecordset::DoFieldExchange(CFieldExchange* /*exchange*/) {}
void CRecordset::DoBulkFieldExchange(CFieldExchange* /*exchange*/) {}
void CRecordset::SetRowsetCurrencyStatus(RETCODE /*code*/, WORD /*fetch_type*/, SQLLEN /*rows*/,
                                         DWORD /*fetched*/) {}
void CRecordset::PreBindFields() {}
void CRecordset::OnSetUpdateOptions(HSTMT /*statement*/) {}
void CRecordset::OnReserved() {}

BOOL CRecordset::Check(RETCODE code) const {
  return odbc::Succeeded(code) || code == SQL_NO_DATA || code == SQL_STILL_EXECUTING || code == SQL_NEED_DATA;
}

void CRecordset::ThrowDBException(RETCODE code, HSTMT statement) {
  AfxThrowDBException(code, m_pOpenDatabase != nullptr ? m_pOpenDatabase : m_pDatabase,
                      statement == SQL_NULL_HSTMT ? m_hstmt : statement);
}

BOOL CRecordset::IsOpen() const { return m_hstmt != SQL_NULL_HSTMT; }
BOOL CRecordset::IsDeleted() const { return m_bDeleted; }

bool CRecordset::ConnectDatabase() {
  if (m_pDatabase != nullptr && m_pDatabase->IsOpen()) return true;
  if (m_pDatabase == nullptr) {
    m_ownDatabase = std::make_unique<CDatabase>();
    m_pDatabase = m_ownDatabase.get();
  }
  return m_pDatabase->OpenEx(GetDefaultConnect(), CDatabase::noOdbcDialog) != FALSE;
}

void CRecordset::TakeSource(const CString& source) {
  m_strSource = source;
  if (IsCall(source)) {
    m_strTableName.Empty();
  } else {
    m_strTableName = IsSelect(source) ? TableOfSelect(source) : SingleTable(source);
  }
}

CString CRecordset::BuildSQL() const {
  if (IsCall(m_strSource)) return m_pOpenDatabase->AdaptSQL(m_strSource);
  CString sql =
      IsSelect(m_strSource) ? m_strSource : "SELECT " + m_fields->SelectList() + kFrom + m_strSource;
  if (!m_strFilter.IsEmpty()) sql += kWhere + m_strFilter;
  if (!m_strSort.IsEmpty()) sql += kOrderBy + m_strSort;
  return sql;
}

BOOL CRecordset::Open(UINT open_type, const char* sql, DWORD options) {
  CRecordset::Close();
  m_nOpenTypeInUse = open_type == AFX_DB_USE_DEFAULT_TYPE ? UINT{snapshot} : open_type;
  if (m_nOpenTypeInUse != dynaset && m_nOpenTypeInUse != snapshot) {
    ThrowDBException(AFX_SQL_ERROR_DYNASET_NOT_SUPPORTED);
  }
  if (!ConnectDatabase()) return FALSE;
  m_dwOptions = options;
  TakeSource(sql != nullptr ? CString(sql) : GetDefaultSQL());
  CFieldExchange describe(CFieldExchange::kDescribe, this);
  m_fields->Clear();
  DoFieldExchange(&describe);
  if (m_fields->Count() == 0 && !IsSelect(m_strSource) && !IsCall(m_strSource)) {
    ThrowDBException(AFX_SQL_ERROR_EMPTY_COLUMN_LIST);
  }
  const bool writable = !m_strTableName.IsEmpty() && m_fields->Count() != 0 && m_pDatabase->CanUpdate() &&
                        (options & readOnly) == 0;
  m_bAppendable = writable;
  m_bUpdatable = writable && (options & appendOnly) == 0;
  try {
    m_rows = MakeRowSource(*m_pDatabase, IsCall(m_strSource));
    m_pOpenDatabase = m_pDatabase;
    m_pOpenDatabase->Attach(this);
    m_hstmt = m_rows->Statement().Handle();
    if (m_hstmt == SQL_NULL_HSTMT) ThrowDBException(SQL_ERROR);
    OnSetOptions(m_hstmt);
    PreBindFields();
    Execute();
  } catch (...) {
    CRecordset::Close();
    throw;
  }
  return TRUE;
}

void CRecordset::Execute() {
  m_strSQL = BuildSQL();
  m_fields->ForgetEdits();
  m_lRecordCount = 0;
  m_bEOFSeen = FALSE;
  m_bDeleted = FALSE;
  const bool direct = (m_dwOptions & executeDirect) != 0;
  const RETCODE code =
      m_rows->Execute(m_strSQL, direct ? RowSource::Run::kDirect : RowSource::Run::kPrepared);
  if (!odbc::Succeeded(code)) ThrowDBException(code);
  DescribeColumns();
  StandOnFirst();
}

// After the execution, when the drivers know the columns without asking the server again.
void CRecordset::DescribeColumns() {
  RETCODE code = m_rows->ColumnCount(&m_nResultCols);
  if (!odbc::Succeeded(code)) ThrowDBException(code);
  if (static_cast<std::size_t>(m_nResultCols) < m_fields->Count())
    ThrowDBException(AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH);
  SQLUSMALLINT column = 0;
  for (Field& field : m_fields->All()) {
    code = m_rows->DescribeColumn(++column, &field.column);
    if (!odbc::Succeeded(code)) ThrowDBException(code);
  }
  code = m_fields->Bind(*m_rows);
  if (!odbc::Succeeded(code)) ThrowDBException(code);
}

void CRecordset::StandOnFirst() {
  const RETCODE code = ExtendedFetch(SQL_FETCH_FIRST, 1);
  if (code == SQL_NO_DATA) {
    m_bBOF = m_bEOF = TRUE;
    m_lCurrentRecord = AFX_CURRENT_RECORD_BOF;
    m_bEOFSeen = TRUE;
    return;
  }
  if (!odbc::Succeeded(code)) ThrowDBException(code);
  SettleRow();
  m_lRecordCount = 1;
}

BOOL CRecordset::Requery() {
  if (!IsOpen()) ThrowDBException(AFX_SQL_ERROR_NO_CURRENT_RECORD);
  if (!CanRestart()) return FALSE;
  EndMode(true);
  try {
    Execute();
  } catch (...) {
    CRecordset::Close();
    throw;
  }
  return TRUE;
}

void CRecordset::Close() {
  if (m_rows == nullptr) return;
  m_rows.reset();
  m_hstmt = SQL_NULL_HSTMT;
  if (m_pOpenDatabase != nullptr) m_pOpenDatabase->Detach(this);
  m_pOpenDatabase = nullptr;
  m_fields->ForgetEdits();
  m_mode = noMode;
  m_bBOF = m_bEOF = TRUE;
  m_bDeleted = m_bAppendable = m_bUpdatable = FALSE;
  m_lCurrentRecord = AFX_CURRENT_RECORD_BOF;
  m_lRecordCount = 0;
  m_nResultCols = 0;
}

BOOL CRecordset::CanUpdate() const { return IsOpen() && m_bUpdatable; }
BOOL CRecordset::CanAppend() const { return IsOpen() && m_bAppendable; }
BOOL CRecordset::CanRestart() const { return IsOpen() && (m_dwOptions & executeDirect) == 0; }
BOOL CRecordset::CanScroll() const { return IsOpen(); }
BOOL CRecordset::CanTransact() const { return IsOpen() && m_pOpenDatabase->CanTransact(); }

void CRecordset::GetStatus(CRecordsetStatus& status) const {
  status.m_lCurrentRecord = m_lCurrentRecord;
  status.m_bRecordCountFinal = m_bEOFSeen;
}

void CRecordset::SetLockingMode(UINT mode) {
  if (mode != optimistic) ThrowDBException(AFX_SQL_ERROR_NOT_SUPPORTED);
}
