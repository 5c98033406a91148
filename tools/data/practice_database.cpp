#include "tools/data/practice_database.h"

#include <fmt/format.h>

#include <charconv>
#include <cstring>
#include <string_view>

#include "tools/doctor/source.h"
#include "tools/practice_folder.h"
#include "tools/tool_error.h"

namespace {

// This driver would make a savepoint before every statement, which is slow and in which a snapshot cannot be
// shared. Without them an error ends the transaction, as it does here anyway.
constexpr const char* kOneTransaction = ";Protocol=7.4-1";

// Values of a connection string, in the forms that all drivers read alike.
std::string InBraces(const std::string& value) {
  std::string text;
  for (const char c : value) text += c == '}' ? std::string("}}") : std::string(1, c);
  return "{" + text + "}";
}

std::string UserPart(const std::string& user) {
  if (user.empty()) return {};
  const bool plain = user.front() != '{' && user.find(';') == std::string::npos;
  return ";UID=" + (plain ? user : InBraces(user));
}

std::string PasswordPart(const std::string& password) {
  if (password.empty()) return {};
  const bool plain = password.find_first_of(";{}%+ ") == std::string::npos;
  return ";PWD=" + (plain ? password : InBraces(password));
}

System SystemOf(CDatabase& database) {
  const std::string facts = database.DescribeDriver().GetString();
  const std::string name = facts.substr(0, facts.find(';'));
  if (name.find("SQLite") != std::string::npos) return System::kSqlite;
  if (name.find("PostgreSQL") != std::string::npos) return System::kPostgresql;
  if (name.find("Maria") != std::string::npos || name.find("MySQL") != std::string::npos)
    return System::kMariadb;
  throw ToolError(kFailed, fmt::format("{} is none of SQLite, PostgreSQL and MariaDB", name));
}

// "State:22021,Native:..." of the first record.
std::string StateOf(const CDBException& exception) {
  const std::string records = exception.m_strStateNativeOrigin.GetString();
  const std::size_t colon = records.find(':');
  return colon == std::string::npos ? "none" : records.substr(colon + 1, records.find(',') - colon - 1);
}

// PostgreSQL has a state for it, MariaDB numbers: for a database, a table, a column, something else.
bool IsForbidden(const CDBException& exception) {
  const std::string records = exception.m_strStateNativeOrigin.GetString();
  for (const char* sign : {"State:42501,", "Native:1044,", "Native:1142,", "Native:1143,", "Native:1227,"}) {
    if (records.find(sign) != std::string::npos) return true;
  }
  return false;
}

}  // namespace

const char* NameOf(System system) {
  switch (system) {
    case System::kSqlite:
      return "SQLite";
    case System::kPostgresql:
      return "PostgreSQL";
    default:
      return "MariaDB";
  }
}

void ThrowRefused(CDBException* exception, const std::string& doing) {
  const std::string state = StateOf(*exception);
  const bool forbidden = IsForbidden(*exception);
  exception->Delete();
  if (forbidden) {
    throw ToolError(kFailed,
                    fmt::format("{}: the user has no right to do this (SQLSTATE {}); whoever owns the "
                                "tables has it",
                                doing, state));
  }
  throw ToolError(kFailed, fmt::format("{}: {} (SQLSTATE {}); KYODBC_LOG=error shows why", doing,
                                       IsLoss(state) ? kLost : "the database refused", state));
}

PracticeDatabase::PracticeDatabase(const Place& place, const PasswordOf& whose)
    : m_database(std::make_unique<CDatabase>()), m_owner(place.login.owner), m_what(place.practice) {
  const std::optional<std::string> source = SourceOf(place);
  if (!source) {
    RequireNoLogin(place);
    const PracticeFolder folder(place.practice);
    folder.RequirePractice();
    m_connect = folder.ConnectText();
  } else {
    const tagDBCONNECT given = Parameters(*source, place.login, whose);
    m_user = given.szUID;
    m_password = given.szPWD;
    m_connect = "DSN=" + std::string(given.szDSN) + UserPart(m_user) + PasswordPart(m_password);
    if (FindSource(given.szDSN).kind == DriverKind::kPostgresql) m_connect += kOneTransaction;
  }
  Open();
}

PracticeDatabase::PracticeDatabase(const PracticeDatabase& other, Another)
    : m_database(std::make_unique<CDatabase>()),
      m_owner(other.m_owner),
      m_user(other.m_user),
      m_password(other.m_password),
      m_connect(other.m_connect),
      m_what(other.m_what) {
  Open();
}

// What runs long here is meant to: the bar shows that it goes on, and Ctrl-C ends it.
void PracticeDatabase::Open() {
  try {
    m_database->SetQueryTimeout(0);
    m_database->OpenEx(m_connect.c_str(), CDatabase::noOdbcDialog);
  } catch (CDBException* exception) {
    const std::string said = exception->m_strError.GetString();
    exception->Delete();
    throw ToolError(kFailed, fmt::format("connecting to {} failed: {}", m_what, said));
  }
  m_system = SystemOf(*m_database);
  const bool file = m_system == System::kSqlite;
  m_identity = fmt::format("{}:{}:{}", NameOf(m_system), file ? "" : m_what,
                           m_database->GetDatabaseName().GetString());
}

PracticeDatabase::~PracticeDatabase() {
  explicit_bzero(m_password.data(), m_password.size());
  explicit_bzero(m_connect.data(), m_connect.size());
  try {
    EndSnapshot();
  } catch (const ToolError&) {
    // The connection is lost, and the snapshot with it.
  }
}

void PracticeDatabase::Execute(const std::string& sql, const std::string& doing) {
  try {
    m_database->ExecuteSQL(sql.c_str());
  } catch (CDBException* exception) {
    ThrowRefused(exception, doing);
  }
}

std::string PracticeDatabase::Answer(const std::string& sql, const std::string& doing) {
  try {
    CRecordset rows(m_database.get());
    rows.Open(CRecordset::snapshot, sql.c_str(), CRecordset::readOnly);
    CString value;
    if (!rows.IsEOF()) rows.GetFieldValue(short{0}, value);
    return value.GetString();
  } catch (CDBException* exception) {
    ThrowRefused(exception, doing);
  }
}

LONG PracticeDatabase::Number(const std::string& sql, const std::string& doing) {
  const std::string text = Answer(sql, doing);
  LONG number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// The embedded database takes its snapshot at the first reading.
void PracticeDatabase::BeginSnapshot() {
  const char* begin = "BEGIN";
  if (m_system == System::kPostgresql) begin = "BEGIN ISOLATION LEVEL REPEATABLE READ";
  if (m_system == System::kMariadb) begin = "START TRANSACTION WITH CONSISTENT SNAPSHOT";
  Execute(begin, "beginning to read");
  m_snapshot = true;
  Answer("SELECT COUNT(*) FROM " + Name("TConfig"), "reading the settings");
}

void PracticeDatabase::EndSnapshot() {
  if (!m_snapshot) return;
  m_snapshot = false;
  Execute("ROLLBACK", "ending to read");
}

Changes::Changes(PracticeDatabase& database) : m_database(database.Connection()) {
  if (!m_database.BeginTrans())
    throw ToolError(kFailed, "the database begins no transaction; KYODBC_LOG=error shows why");
}

Changes::~Changes() {
  if (m_open) m_database.Rollback();
}

void Changes::Commit() {
  m_open = false;
  if (m_database.CommitTrans()) return;
  throw ToolError(kFailed, "the database did not commit the changes; KYODBC_LOG=error shows why");
}
