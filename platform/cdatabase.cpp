#include "platform/cdatabase.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "platform/cdbexception.h"
#include "platform/crecordset.h"
#include "platform/dialect.h"
#include "platform/log.h"
#include "platform/odbc.h"

namespace {

constexpr DWORD kDefaultTimeout = 15;
constexpr const char* kPrefix = "ODBC;";
constexpr SQLINTEGER kMariaDBSocketFailed = 2002;
constexpr SQLINTEGER kMariaDBHostUnknown = 2005;

const CRuntimeClass kClassCDatabase = {"CDatabase", &CObject::classCObject};

// The server was not reached, or refused the login; anything else is a fault of the data source.
bool IsConnectFailure(const odbc::Diagnostics& records) {
  return std::any_of(records.begin(), records.end(), [](const odbc::DiagRecord& record) {
    return record.state.starts_with("08") || record.state == "28000" ||
           (record.state == "HY000" &&
            (record.native == kMariaDBSocketFailed || record.native == kMariaDBHostUnknown));
  });
}

bool TellsOfLoss(const odbc::Diagnostics& records) {
  return std::any_of(records.begin(), records.end(), [](const odbc::DiagRecord& record) {
    return record.state.starts_with("08") || record.state.starts_with("57P0");
  });
}

// "[one][two]message" without its bracketed origin.
std::size_t OriginLength(const std::string& message) {
  std::size_t at = 0;
  while (at < message.size() && message[at] == '[') {
    const std::size_t close = message.find(']', at);
    if (close == std::string::npos) return at;
    at = close + 1;
  }
  return at;
}

struct FrameworkReason {
  RETCODE code;
  const char* text;
};

constexpr FrameworkReason kReasons[] = {
    {AFX_SQL_ERROR_CONNECT_FAIL,           "The connection failed."                           },
    {AFX_SQL_ERROR_DATA_TRUNCATED,         "Data was cut."                                    },
    {AFX_SQL_ERROR_DYNASET_NOT_SUPPORTED,  "The cursor type is not supported."                },
    {AFX_SQL_ERROR_EMPTY_COLUMN_LIST,      "No columns are named."                            },
    {AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH,  "The result has fewer columns than the record set."},
    {AFX_SQL_ERROR_ILLEGAL_MODE,           "Update needs AddNew or Edit first."               },
    {AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED, "More than one row was changed."                   },
    {AFX_SQL_ERROR_NO_CURRENT_RECORD,      "There is no current row."                         },
    {AFX_SQL_ERROR_NO_ROWS_AFFECTED,       "No row was changed."                              },
    {AFX_SQL_ERROR_RECORDSET_READONLY,     "The record set cannot be changed."                },
    {AFX_SQL_ERROR_SNAPSHOT_NOT_SUPPORTED, "The cursor type is not supported."                },
    {AFX_SQL_ERROR_NOT_SUPPORTED,          "The operation is not supported."                  },
    {AFX_SQL_ERROR_NO_SUCH_COLUMN,         "There is no such column."                         },
    {AFX_SQL_ERROR_IMPOSSIBLE_DATE,        "The date does not exist."                         },
};

CString ReasonText(RETCODE code) {
  for (const FrameworkReason& reason : kReasons) {
    if (reason.code == code) return reason.text;
  }
  return "The database call failed.";
}

[[noreturn]] void Throw(RETCODE code, const odbc::Diagnostics& records) {
  CString error = ReasonText(code);
  if (!records.empty()) {
    const std::string& message = records.front().message;
    error = CString(message.substr(OriginLength(message)));
  }
  CString origins;
  for (const odbc::DiagRecord& record : records) {
    const std::string origin = record.message.substr(0, OriginLength(record.message));
    if (!origins.IsEmpty()) origins += "\n";
    origins += fmt::format("State:{},Native:{},Origin:{}", record.state, record.native, origin).c_str();
  }
  throw new CDBException(code, error, origins);
}

constexpr const char* kHarmlessKeys[] = {"DSN", "DRIVER", "SERVER", "SERVERNAME", "PORT", "DATABASE", "UID"};

// The parts of a connection string that say which data is meant. Any other part may be a secret, or the rest
// of a password that has a semicolon in it.
CString HarmlessParts(const CString& connect) {
  CString shown;
  int start = 0;
  while (start >= 0) {
    const CString part = connect.Tokenize(";", start);
    CString key = part.SpanExcluding("=");
    key.Trim();
    const bool harmless = std::any_of(std::begin(kHarmlessKeys), std::end(kHarmlessKeys),
                                      [&key](const char* known) { return key.CompareNoCase(known) == 0; });
    if (!harmless) continue;
    if (!shown.IsEmpty()) shown += ";";
    shown += part;
  }
  return shown;
}

}  // namespace

void AfxThrowDBException(RETCODE code, CDatabase* database, HSTMT statement) {
  odbc::Diagnostics records;
  const bool by_driver = code < AFX_SQL_ERROR_CONNECT_FAIL;  // the framework's own reasons have no records
  if (by_driver && statement != SQL_NULL_HSTMT) {
    records = odbc::DiagnoseStatement(statement);
  } else if (by_driver && database != nullptr && database->Connection() != nullptr) {
    records = database->Connection()->Diagnose();
  }
  if (by_driver && database != nullptr) database->ReleaseIfDead(TellsOfLoss(records));
  Throw(code, records);
}

CDatabase::CDatabase()
    : m_dwLoginTimeout(kDefaultTimeout),
      m_dwQueryTimeout(kDefaultTimeout),
      m_bReadOnly(FALSE),
      m_bTransactionPending(FALSE) {}

CDatabase::~CDatabase() { CDatabase::Close(); }

const CRuntimeClass* CDatabase::GetRuntimeClass() const { return &kClassCDatabase; }

BOOL CDatabase::OpenEx(const char* connect, DWORD options) {
  Close();
  CString text(connect);
  if (text.Left(5).CompareNoCase(kPrefix) == 0) text = text.Mid(5);
  auto connection = std::make_unique<odbc::Connection>();
  if (!odbc::Succeeded(connection->Allocate())) AfxThrowDBException(SQL_ERROR, nullptr, SQL_NULL_HSTMT);
  // A driver that refuses either of these connects all the same.
  connection->SetLoginTimeout(m_dwLoginTimeout);
  m_bReadOnly = (options & openReadOnly) != 0;
  if (m_bReadOnly) connection->SetAccessReadOnly();
  // A data source without a name would be the driver manager's default one: nobody asked for that.
  if (text.IsEmpty()) AfxThrowDBException(AFX_SQL_ERROR_CONNECT_FAIL, nullptr, SQL_NULL_HSTMT);
  if (!odbc::Succeeded(connection->Connect(text))) {
    const odbc::Diagnostics records = connection->Diagnose();
    Throw(IsConnectFailure(records) ? AFX_SQL_ERROR_CONNECT_FAIL : RETCODE{SQL_ERROR}, records);
  }
  m_facts = std::make_unique<DriverFacts>(ReadFacts(*connection));
  m_connection = std::move(connection);
  m_strConnect = HarmlessParts(text);
  klog::Info(fmt::format("connected: {}; database system {}, procedures {}, transactions {}",
                         m_strConnect.View(), m_facts->dbms, m_facts->procedures, m_facts->transactions));
  PrepareSession();
  return TRUE;
}

// The quoting of literals takes a backslash for an ordinary character. A session in which it is an
// escape would let texts break out of their quotes: such a connection is refused.
void CDatabase::PrepareSession() {
  const char* setup = SessionSetup(*m_facts);
  if (setup == nullptr) return;
  try {
    ExecuteSQL(setup);
    CRecordset proof(this);
    proof.Open(CRecordset::snapshot, SessionProof(*m_facts), CRecordset::readOnly);
    CDBVariant length;
    proof.GetFieldValue(short{0}, length, SQL_C_SLONG);
    constexpr LONG kCharactersOfProof = 3;
    if (length.m_lVal == kCharactersOfProof) return;
  } catch (CDBException*) {
    Close();
    throw;
  }
  klog::Error("connection refused: the session treats a backslash in a text as an escape");
  Close();
  AfxThrowDBException(SQL_ERROR, nullptr, SQL_NULL_HSTMT);
}

void CDatabase::Close() {
  EndSets();
  m_connection.reset();
  m_bTransactionPending = FALSE;
}

void CDatabase::EndSets() {
  // Closing a set takes it off the list.
  while (!m_sets.empty()) m_sets.back()->CRecordset::Close();
}

BOOL CDatabase::IsOpen() const { return m_connection != nullptr; }

void CDatabase::SetLoginTimeout(DWORD seconds) { m_dwLoginTimeout = seconds; }
void CDatabase::SetQueryTimeout(DWORD seconds) { m_dwQueryTimeout = seconds; }

void CDatabase::ExecuteSQL(const char* sql) {
  if (m_connection == nullptr) AfxThrowDBException(SQL_ERROR, this, SQL_NULL_HSTMT);
  odbc::Statement statement(*m_connection);
  if (statement.Handle() == SQL_NULL_HSTMT) AfxThrowDBException(SQL_ERROR, this, SQL_NULL_HSTMT);
  statement.AskForQueryTimeout(m_dwQueryTimeout);
  RETCODE code = statement.ExecuteDirect(AdaptSQL(sql));
  while (odbc::Succeeded(code)) code = statement.MoreResults();
  if (code != SQL_NO_DATA) AfxThrowDBException(code, this, statement.Handle());
}

CString CDatabase::GetDatabaseName() const {
  return m_connection == nullptr ? CString() : CString(m_connection->DatabaseName());
}

CString CDatabase::GetConnect() const { return m_strConnect; }

BOOL CDatabase::CanUpdate() const { return m_connection != nullptr && !m_bReadOnly; }

BOOL CDatabase::CanTransact() const { return m_connection != nullptr && m_facts->transactions; }

BOOL CDatabase::BeginTrans() {
  if (!CanTransact() || m_bTransactionPending) return FALSE;
  if (!odbc::Succeeded(m_connection->SetAutocommit(false))) return FailTransaction();
  m_bTransactionPending = TRUE;
  return TRUE;
}

BOOL CDatabase::CommitTrans() { return EndTrans(true); }
BOOL CDatabase::Rollback() { return EndTrans(false); }

BOOL CDatabase::EndTrans(bool commit) {
  if (m_connection == nullptr || !m_bTransactionPending) return FALSE;
  // A failed end leaves the transaction pending, so that the caller may still roll it back.
  if (!odbc::Succeeded(m_connection->EndTransaction(commit))) return FailTransaction();
  m_bTransactionPending = FALSE;
  // A connection that stayed in the transaction would lose every later change: it is given up.
  if (!odbc::Succeeded(m_connection->SetAutocommit(true))) {
    LogTransactionFailure();
    ReleaseIfDead(true);
  }
  return TRUE;
}

bool CDatabase::LogTransactionFailure() const {
  const odbc::Diagnostics records = m_connection->Diagnose();
  for (const odbc::DiagRecord& record : records) {
    klog::Error(fmt::format("transaction: {} {} {}", record.state, record.native,
                            klog::MaskedMessage(record.state, record.message)));
  }
  return TellsOfLoss(records);
}

BOOL CDatabase::FailTransaction() {
  ReleaseIfDead(LogTransactionFailure());
  return FALSE;
}

CString CDatabase::AdaptSQL(const char* sql) const {
  return m_facts == nullptr ? CString(sql) : AdaptCall(sql, *m_facts);
}

void CDatabase::ReleaseIfDead(bool told) {
  if (m_connection == nullptr || !(told || m_connection->IsDead())) return;
  klog::Warn("the connection is lost and released");
  EndSets();
  m_connection.reset();
  m_bTransactionPending = FALSE;
}

void CDatabase::Attach(CRecordset* set) { m_sets.push_back(set); }

void CDatabase::Detach(CRecordset* set) {
  const auto found = std::find(m_sets.begin(), m_sets.end(), set);
  if (found != m_sets.end()) m_sets.erase(found);
}
