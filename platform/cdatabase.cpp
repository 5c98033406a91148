#include "platform/cdatabase.h"

#include <algorithm>
#include <string_view>

#include <fmt/format.h>

#include "platform/cdbexception.h"
#include "platform/connect_text.h"
#include "platform/crecordset.h"
#include "platform/dialect.h"
#include "platform/kept_statements.h"
#include "platform/log.h"
#include "platform/odbc.h"

namespace {

constexpr DWORD kDefaultTimeout = 15;
constexpr std::string_view kPrefix = "ODBC;";
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

// A null text is empty.
std::string_view WithoutPrefix(const char* connect) {
  const std::string_view text(connect == nullptr ? "" : connect);
  return CString(std::string(text.substr(0, kPrefix.size()))).CompareNoCase(kPrefix.data()) == 0
             ? text.substr(kPrefix.size())
             : text;
}

// A statement may take the query time-out; the server then says so itself, for which it gets some time more.
SecretText WithTimeouts(std::string_view connect, DWORD login, DWORD query) {
  constexpr DWORD kTimeToAnswer = 5;
  const DWORD silence = query == 0 ? 0 : query + kTimeToAnswer;
  const SecretText limited = WithLoginTimeout(WithoutIgnoredLogin(connect).View(), login);
  return WithSilenceLimit(limited.View(), silence);
}

// A server that cannot be reached has no patient's values to tell, so its words are shown whole, but for the
// password, should it be among them.
void LogConnectFailure(std::string_view connect, const odbc::Diagnostics& records) {
  const SecretText password = ConnectPart(connect, "PWD");
  const CString shown = HarmlessParts(connect);
  if (records.empty()) klog::Error(fmt::format("cannot connect to {}", shown.View()));
  for (const odbc::DiagRecord& record : records) {
    CString message(record.message.c_str());
    if (!password.IsEmpty()) message.Replace(password, "?");
    klog::Error(fmt::format("cannot connect to {}: {} {} {}", shown.View(), record.state, record.native,
                            message.View()));
  }
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
  if (by_driver && database != nullptr) {
    if (TellsOfRollback(records)) database->DoomTransaction();
    database->ReleaseIfDead(TellsOfLoss(records));
  }
  Throw(code, records);
}

CDatabase::CDatabase()
    : m_dwLoginTimeout(kDefaultTimeout),
      m_dwQueryTimeout(kDefaultTimeout),
      m_bReadOnly(FALSE),
      m_bTransactionPending(FALSE),
      m_bTransactionDoomed(FALSE) {}

CDatabase::~CDatabase() { CDatabase::Close(); }

const CRuntimeClass* CDatabase::GetRuntimeClass() const { return &kClassCDatabase; }

BOOL CDatabase::OpenEx(const char* connect, DWORD options) {
  Close();
  odbc::SetPatience(m_dwQueryTimeout);
  const std::string_view text = WithoutPrefix(connect);
  auto connection = std::make_unique<odbc::Connection>();
  if (!odbc::Succeeded(connection->Allocate())) AfxThrowDBException(SQL_ERROR, nullptr, SQL_NULL_HSTMT);
  // A driver that refuses either of these connects all the same.
  connection->SetLoginTimeout(m_dwLoginTimeout);
  m_bReadOnly = (options & openReadOnly) != 0;
  if (m_bReadOnly) connection->SetAccessReadOnly();
  // A data source without a name would be the driver manager's default one: nobody asked for that.
  if (text.empty()) AfxThrowDBException(AFX_SQL_ERROR_CONNECT_FAIL, nullptr, SQL_NULL_HSTMT);
  if (!odbc::Succeeded(connection->Connect(WithTimeouts(text, m_dwLoginTimeout, m_dwQueryTimeout)))) {
    const odbc::Diagnostics records = connection->Diagnose();
    LogConnectFailure(text, records);
    Throw(IsConnectFailure(records) ? AFX_SQL_ERROR_CONNECT_FAIL : RETCODE{SQL_ERROR}, records);
  }
  m_facts = std::make_unique<DriverFacts>(ReadFacts(*connection, AsksForFoundRows(text)));
  if (EndsStatementsQuietly(*m_facts)) connection->EndStatementsToo();
  if (DiesOfCutAnswers(*m_facts)) connection->PrepareWhatAnswers();
  m_connection = std::move(connection);
  m_statements = std::make_unique<KeptStatements>(*m_connection, QueryTimeout(), ForgetsIndexes(*m_facts));
  m_strConnect = HarmlessParts(text);
  klog::Info(fmt::format("connected to {}: {}", m_strConnect.View(), Describe(*m_facts)));
  if (!m_facts->static_cursors) klog::Warn("the driver has no static cursors: tables cannot be browsed");
  PrepareSession();
  return TRUE;
}

// The quoting of literals takes a backslash for an ordinary character. A session in which it is an
// escape would let texts break out of their quotes: such a connection is refused.
void CDatabase::PrepareSession() {
  const CString setup = SessionSetup(*m_facts, m_dwQueryTimeout);
  if (SessionProof(*m_facts) == nullptr) return;
  try {
    if (!setup.IsEmpty()) ExecuteSQL(setup);
    constexpr LONG kCharactersOfProof = 3;
    if (ReadNumber(SessionProof(*m_facts)) == kCharactersOfProof) return;
  } catch (CDBException* exception) {
    klog::Error(fmt::format("connection to {} refused: {} ({})", m_strConnect.View(),
                            exception->m_strError.View(), exception->m_strStateNativeOrigin.View()));
    Close();
    throw;
  }
  klog::Error("connection refused: the session treats a backslash in a text as an escape");
  Close();
  AfxThrowDBException(SQL_ERROR, nullptr, SQL_NULL_HSTMT);
}

// Run at once, where the driver bears that: an answer of one number is not worth preparing its question.
LONG CDatabase::ReadNumber(const char* sql) {
  odbc::Statement statement(*m_connection);
  statement.AskForQueryTimeout(QueryTimeout());
  LONG number = 0;
  RETCODE code = statement.ExecuteDirect(sql);
  if (odbc::Succeeded(code)) code = statement.ReadNumber(&number);
  if (!odbc::Succeeded(code)) AfxThrowDBException(code, this, statement.Handle());
  return number;
}

void CDatabase::Close() {
  EndSets();
  // Statements whose connection is gone are empty shells: the connection decides how they end.
  m_connection.reset();
  m_statements.reset();
  m_bTransactionPending = m_bTransactionDoomed = FALSE;
}

void CDatabase::EndSets() {
  // Closing a set takes it off the list.
  while (!m_sets.empty()) m_sets.back()->CRecordset::Close();
}

BOOL CDatabase::IsOpen() const { return m_connection != nullptr; }

void CDatabase::SetLoginTimeout(DWORD seconds) { m_dwLoginTimeout = seconds; }

void CDatabase::SetQueryTimeout(DWORD seconds) {
  if (seconds == m_dwQueryTimeout) return;
  m_dwQueryTimeout = seconds;
  odbc::SetPatience(seconds);
  if (m_connection == nullptr) return;
  m_statements->SetQueryTimeout(QueryTimeout());
  const CString limit = StatementLimit(*m_facts, seconds);
  if (limit.IsEmpty()) return;
  try {
    ExecuteSQL(limit);
  } catch (CDBException* exception) {
    klog::Warn("the server does not take the new query time-out: the one before stays");
    exception->Delete();
  }
}

DWORD CDatabase::QueryTimeout() const {
  return m_facts != nullptr && LimitsItself(*m_facts) ? 0 : m_dwQueryTimeout;
}

bool CDatabase::KeepsStatements() const { return TakesValuesApart(*m_facts); }

const char* CDatabase::FirstRowOnly() const { return ::FirstRowOnly(*m_facts); }

void CDatabase::ExecuteSQL(const char* sql) {
  if (m_connection == nullptr) AfxThrowDBException(SQL_ERROR, this, SQL_NULL_HSTMT);
  odbc::Statement statement(*m_connection);
  if (statement.Handle() == SQL_NULL_HSTMT) AfxThrowDBException(SQL_ERROR, this, SQL_NULL_HSTMT);
  statement.AskForQueryTimeout(QueryTimeout());
  CountChange();
  RETCODE code = statement.ExecuteDirect(AdaptSQL(sql));
  while (odbc::Succeeded(code)) code = statement.MoreResults();
  if (code != SQL_NO_DATA) AfxThrowDBException(code, this, statement.Handle());
}

CString CDatabase::GetDatabaseName() const {
  return m_connection == nullptr ? CString() : CString(m_connection->DatabaseName());
}

CString CDatabase::GetConnect() const { return m_strConnect; }

CString CDatabase::DescribeDriver() const {
  return m_connection == nullptr ? CString() : CString(Describe(*m_facts));
}

BOOL CDatabase::CanUpdate() const { return m_connection != nullptr && !m_bReadOnly; }

BOOL CDatabase::CanTransact() const { return m_connection != nullptr && m_facts->transactions; }

bool CDatabase::CountsDeletes() const { return m_facts != nullptr && m_facts->delete_counts; }

CString CDatabase::AdaptSQL(const char* sql) const {
  return m_facts == nullptr ? CString(sql) : AdaptCall(sql, *m_facts);
}

void CDatabase::ReleaseIfDead(bool told) {
  if (m_connection == nullptr || !(told || m_connection->IsDead())) return;
  klog::Warn("the connection is lost and released");
  CDatabase::Close();
}

void CDatabase::Attach(CRecordset* set) { m_sets.push_back(set); }

void CDatabase::Detach(CRecordset* set) {
  const auto found = std::find(m_sets.begin(), m_sets.end(), set);
  if (found != m_sets.end()) m_sets.erase(found);
}
