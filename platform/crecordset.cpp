#include "platform/crecordset.h"

#include <algorithm>
#include <string_view>

#include "platform/buffered_rows.h"
#include "platform/dialect.h"
#include "platform/kept_statements.h"
#include "platform/keyed_rows.h"
#include "platform/log.h"
#include "platform/one_way_cursor.h"
#include "platform/row_fields.h"
#include "platform/static_cursor.h"

namespace {

constexpr const char* kFrom = " FROM ";
constexpr const char* kWhere = " WHERE ";
constexpr const char* kOrderBy = " ORDER BY ";

constexpr const char* kNoRows = "1 = 2";  // as sets that are opened to add a row have it

// The name in a FROM list of exactly one table without an alias; else empty.
CString SingleTable(const CString& from) {
  constexpr std::string_view kBlanks = " \t\n\v\f\r";
  std::string_view name = from.View();
  name.remove_prefix(std::min(name.find_first_not_of(kBlanks), name.size()));
  name = name.substr(0, name.find_last_not_of(kBlanks) + 1);
  return name.find_first_of(" ,\t\r\n(") == std::string_view::npos ? CString(std::string(name)) : CString();
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
      m_holding(wholeRows),
      m_mode(noMode),
      m_bDeleted(FALSE),
      m_lKeyLoaded(0) {}

// A short-lived set leaves what is known of its fields to the next one over the same tables.
CRecordset::~CRecordset() {
  KeptStatements* const statements =
      m_rows != nullptr && m_holding == fewRows ? &m_pOpenDatabase->Statements() : nullptr;
  CRecordset::Close();
  if (statements != nullptr) statements->GiveBackFields(std::move(m_fields));
}

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
                      statement == SQL_NULL_HSTMT && m_rows != nullptr ? m_rows->Handle() : statement);
}

void CRecordset::NoteFailure(RETCODE code, WORD becomes) const {
  try {
    AfxThrowDBException(code, nullptr, m_rows->Handle());
  } catch (CDBException* exception) {
    klog::Caught(exception, becomes);
  }
}

const CString& CRecordset::GetSQL() const {
  static const CString no_query;
  return m_query == nullptr ? no_query : m_query->Whole();
}

void CRecordset::HoldRows(Holding holding, const CString& join) {
  if (WorksPlainly()) return;
  m_holding = holding;
  m_strJoin = join;
}

BOOL CRecordset::IsOpen() const { return m_rows != nullptr; }
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

void CRecordset::BuildQuery() {
  auto query = std::make_unique<RowQuery>();
  query->direct = (m_dwOptions & executeDirect) != 0;
  if (IsCall(m_strSource)) {
    query->sql = m_pOpenDatabase->AdaptSQL(m_strSource);
  } else {
    const bool whole = IsSelect(m_strSource);
    query->select = whole ? m_strSource : m_fields->Select();
    // A SELECT given whole may have its condition in it.
    const int where = whole ? query->select.Find(kWhere) : -1;
    if (where >= 0) {
      query->condition = PadYears(query->select.Mid(where));
      query->select = query->select.Left(where);
    }
    if (!m_strFilter.IsEmpty()) {
      CString filter = PadYears(kWhere + m_strFilter);
      query->condition = where >= 0 ? query->condition + filter : std::move(filter);
    }
    if (!m_strSort.IsEmpty()) query->order = kOrderBy + m_strSort;
  }
  if (m_holding == keysOnly) {
    if (const Field* key = m_fields->Find(m_pRowKey)) query->key = key->name;
    query->tables = m_strSource;
    query->join = m_strJoin;
  }
  m_query = std::move(query);
}

// Before the query runs, since that is what decides which rows there are.
void CRecordset::MakeRowSource() {
  odbc::Connection& connection = *m_pOpenDatabase->Connection();
  const Field* key = m_fields->Find(m_pRowKey);
  if (IsCall(m_strSource)) {
    m_rows = std::make_unique<BufferedRows>(connection, m_pOpenDatabase->QueryTimeout());
  } else if (m_holding == wholeRows || (m_dwOptions & executeDirect) != 0) {
    m_rows = std::make_unique<StaticCursor>(connection, m_pOpenDatabase->QueryTimeout());
  } else if (m_holding == keysOnly && m_nOpenTypeInUse == dynaset && key != nullptr &&
             !IsSelect(m_strSource)) {
    const auto column = static_cast<std::size_t>(key - m_fields->All().data());
    m_rows = std::make_unique<KeyedRows>(*m_pOpenDatabase, column);
  } else if (m_holding == fewRows && m_nOpenTypeInUse == dynaset && m_fields->AllFit()) {
    // A snapshot's rows are counted by moving to and fro.
    m_rows = std::make_unique<OneWayCursor>(m_pOpenDatabase->Statements());
  } else {
    m_rows = std::make_unique<StaticCursor>(m_pOpenDatabase->Statements());
  }
}

BOOL CRecordset::Open(UINT open_type, const char* sql, DWORD options) {
  CRecordset::Close();
  m_nOpenTypeInUse = open_type == AFX_DB_USE_DEFAULT_TYPE ? UINT{snapshot} : open_type;
  if (m_nOpenTypeInUse != dynaset && m_nOpenTypeInUse != snapshot) {
    ThrowDBException(AFX_SQL_ERROR_DYNASET_NOT_SUPPORTED);
  }
  if (!ConnectDatabase()) return FALSE;
  if (!m_pDatabase->KeepsStatements()) m_holding = wholeRows;
  m_dwOptions = options;
  TakeSource(sql != nullptr ? CString(sql) : GetDefaultSQL());
  CFieldExchange describe(CFieldExchange::kDescribe, this);
  if (m_holding == fewRows && !IsSelect(m_strSource)) {
    if (auto fields = m_pDatabase->Statements().TakeFields(m_strSource)) m_fields = std::move(fields);
  }
  m_fields->BeginAdding(m_strSource);
  DoFieldExchange(&describe);
  m_fields->EndAdding();
  if (m_fields->Count() == 0 && !IsSelect(m_strSource) && !IsCall(m_strSource)) {
    ThrowDBException(AFX_SQL_ERROR_EMPTY_COLUMN_LIST);
  }
  const bool writable = !m_strTableName.IsEmpty() && m_fields->Count() != 0 && m_pDatabase->CanUpdate() &&
                        (options & readOnly) == 0;
  m_bAppendable = writable;
  m_bUpdatable = writable && (options & appendOnly) == 0;
  try {
    m_pOpenDatabase = m_pDatabase;
    MakeRowSource();
    m_pOpenDatabase->Attach(this);
    m_hstmt = m_rows->Handle();
    if (m_holding == wholeRows || IsCall(m_strSource)) {
      if (m_hstmt == SQL_NULL_HSTMT) ThrowDBException(SQL_ERROR);
      OnSetOptions(m_hstmt);
    }
    PreBindFields();
    Execute();
  } catch (...) {
    CRecordset::Close();
    throw;
  }
  return TRUE;
}

void CRecordset::Execute() {
  BuildQuery();
  m_fields->ForgetEdits();
  m_lRecordCount = 0;
  m_bEOFSeen = FALSE;
  m_bDeleted = FALSE;
  RunQuery();
  if (!m_rows->CanHold()) {
    m_rows = std::make_unique<StaticCursor>(m_pOpenDatabase->Statements());
    RunQuery();
  }
  DescribeColumns();
  StandOnFirst();
}

void CRecordset::RunQuery() {
  // Of a set that is opened to add a row, the database need not be asked which rows it has.
  if (m_strFilter == kNoRows && m_holding != wholeRows && !m_query->select.IsEmpty() &&
      m_pOpenDatabase->Statements().FindShape(m_query->select) != nullptr) {
    m_rows->ExecuteNothing();
    m_hstmt = SQL_NULL_HSTMT;
    return;
  }
  const RETCODE code = m_rows->Execute(*m_query);
  m_hstmt = m_rows->Handle();
  if (!odbc::Succeeded(code)) ThrowDBException(code);
}

// After the execution, when the drivers know the columns without asking the server again.
void CRecordset::DescribeColumns() {
  const bool known_to_others = m_holding != wholeRows && !m_query->select.IsEmpty();
  KeptStatements& statements = m_pOpenDatabase->Statements();
  if (!known_to_others) {
    DescribeResult();
  } else if (const SWORD columns = m_fields->Described(statements.State()); columns >= 0) {
    m_nResultCols = columns;
  } else if (const ColumnShape* shape = statements.FindShape(m_query->select)) {
    m_nResultCols = m_fields->TakeShape(*shape, statements.State());
  } else {
    DescribeResult();
    statements.KeepShape(m_query->select, m_fields->Shape(m_nResultCols, statements.State()));
  }
  if (m_hstmt == SQL_NULL_HSTMT) return;  // nothing was asked, so that nothing will come
  const RETCODE code = m_fields->Bind(*m_rows, m_holding != fewRows);
  if (!odbc::Succeeded(code)) ThrowDBException(code);
  if (m_fields->AllAreBuffered(m_nResultCols)) m_rows->EveryColumnIsBound();
}

void CRecordset::DescribeResult() {
  RETCODE code = m_rows->ColumnCount(&m_nResultCols);
  if (!odbc::Succeeded(code)) ThrowDBException(code);
  if (static_cast<std::size_t>(m_nResultCols) < m_fields->Count())
    ThrowDBException(AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH);
  SQLUSMALLINT column = 0;
  for (Field& field : m_fields->All()) {
    code = m_rows->DescribeColumn(++column, &field.column);
    if (!odbc::Succeeded(code)) ThrowDBException(code);
  }
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
