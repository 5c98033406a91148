#include "platform/dialect.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include <fmt/format.h>

namespace {

constexpr const char* kSQLite = "SQLite";
constexpr const char* kPostgreSQL = "PostgreSQL";
constexpr const char* kMariaDB = "MariaDB";
// PostgreSQL's driver sends the savepoint of a statement together with it. Of a text that is no SQL nothing
// runs, so that the driver can only roll the whole transaction back, and does so.
constexpr const char* kNotEvenSql = "42601";
constexpr const char* kMySQL = "MySQL";  // how one driver introduces the same kind of server

// `word` in upper case.
bool BeginsWith(std::string_view sql, std::string_view word) {
  const auto same = [](char c, char upper) {
    return c == upper || (c >= 'a' && c <= 'z' && c - 'a' + 'A' == upper);
  };
  return sql.size() >= word.size() && std::equal(word.begin(), word.end(), sql.begin(),
                                                 [&](char upper, char c) { return same(c, upper); });
}

bool IsMariaDB(const DriverFacts& facts) { return facts.dbms == kMariaDB || facts.dbms == kMySQL; }

struct NamedCase {
  SQLUSMALLINT told;
  NameCase names;
  const char* text;
};

constexpr NamedCase kCases[] = {
    {SQL_IC_UPPER,     NameCase::kUpper,     "kept in upper case"    },
    {SQL_IC_LOWER,     NameCase::kLower,     "kept in lower case"    },
    {SQL_IC_SENSITIVE, NameCase::kSensitive, "told apart by case"    },
    {SQL_IC_MIXED,     NameCase::kMixed,     "kept as they are given"},
};

NameCase CaseFrom(SQLUSMALLINT told) {
  for (const NamedCase& named : kCases) {
    if (named.told == told) return named.names;
  }
  return DriverFacts().names;
}

const char* CaseText(NameCase names) {
  for (const NamedCase& named : kCases) {
    if (named.names == names) return named.text;
  }
  return "";
}

std::string Versioned(const std::string& name, const std::string& version) {
  if (name.empty()) return "unknown";
  return version.empty() ? name : name + " " + version;
}

const char* YesNo(bool yes) { return yes ? "yes" : "no"; }

// The name called, without parentheses; empty when the call has arguments.
CString CalledName(const CString& call) {
  CString name = call.Mid(5);
  const int brace = name.ReverseFind('}');
  if (brace >= 0) name = name.Left(brace);
  name.Trim();
  const int open = name.Find('(');
  if (open < 0) return name;
  CString arguments = name.Mid(open + 1);
  arguments.Remove(' ');
  if (arguments != ")") return CString();
  name = name.Left(open);
  return name.TrimRight();
}

// What follows the SET that limits every later statement of the session; empty where the driver sees to that.
CString LimitAssignment(const DriverFacts& facts, DWORD seconds) {
  constexpr DWORD kLongest = 2147483;  // in milliseconds just a number of 32 bits
  const char* name = nullptr;
  const char* unit = "";
  if (facts.dbms == kMariaDB) name = "max_statement_time";
  if (facts.dbms == kPostgreSQL) {
    name = "statement_timeout";
    unit = "000";
  }
  CString assignment;
  if (name == nullptr) return assignment;
  if (seconds == 0) {
    assignment.Format("SESSION %s = DEFAULT", name);
  } else {
    assignment.Format("SESSION %s = %u%s", name, std::min(seconds, kLongest), unit);
  }
  return assignment;
}

}  // namespace

DriverFacts ReadFacts(const odbc::Connection& connection, bool found_rows) {
  DriverFacts facts;
  facts.dbms = connection.InfoText(SQL_DBMS_NAME);
  facts.dbms_version = connection.InfoText(SQL_DBMS_VER);
  facts.driver = connection.InfoText(SQL_DRIVER_NAME);
  facts.driver_version = connection.InfoText(SQL_DRIVER_VER);
  const std::optional<SQLUINTEGER> cursors = connection.InfoBits(SQL_SCROLL_OPTIONS);
  if (cursors) facts.static_cursors = (*cursors & SQL_SO_STATIC) != 0;
  facts.procedures = connection.InfoText(SQL_PROCEDURES) == "Y";
  facts.transactions = connection.InfoNumber(SQL_TXN_CAPABLE) != SQL_TC_NONE;
  // The embedded database's driver says that case tells names apart; the database finds them in any case.
  if (facts.dbms != kSQLite) facts.names = CaseFrom(connection.InfoNumber(SQL_IDENTIFIER_CASE));
  facts.delete_counts = facts.dbms == kPostgreSQL || IsMariaDB(facts);
  facts.row_counts = facts.dbms == kPostgreSQL || (IsMariaDB(facts) && found_rows);
  return facts;
}

std::string Describe(const DriverFacts& facts) {
  return fmt::format(
      "database system {}; driver {}; static cursors {}; procedures {}; transactions {}; names {}; "
      "row counts {}",
      Versioned(facts.dbms, facts.dbms_version), Versioned(facts.driver, facts.driver_version),
      YesNo(facts.static_cursors), YesNo(facts.procedures), YesNo(facts.transactions), CaseText(facts.names),
      facts.row_counts ? "trusted" : "checked when none");
}

bool IsSelect(const CString& sql) {
  constexpr int kWordLength = 6;
  const char next = sql.GetAt(kWordLength);
  return BeginsWith(sql.View(), "SELECT") && std::isalnum(static_cast<unsigned char>(next)) == 0 &&
         next != '_';
}

bool IsCall(const CString& sql) { return BeginsWith(sql.View(), "{CALL"); }

CString AdaptCall(const CString& sql, const DriverFacts& facts) {
  if (!IsCall(sql)) return sql;
  const CString name = CalledName(sql);
  if (name.IsEmpty()) return sql;
  if (!facts.procedures) return "SELECT * FROM " + name;
  if (facts.dbms == kPostgreSQL && name.Find('.') >= 0) return "{call " + name + "()}";
  return sql;
}

CString PadYears(CString sql) {
  if (sql.Find('{') < 0) return sql;
  std::string padded(sql.View());
  bool in_text = false;
  for (std::size_t i = 0; i < padded.size(); ++i) {
    if (padded[i] != '\'') continue;
    in_text = !in_text;
    const std::string_view before = std::string_view(padded).substr(0, i);
    if (!in_text || !(before.ends_with("{d ") || before.ends_with("{ts "))) continue;
    const std::size_t year = padded.find_first_not_of(' ', i + 1);
    if (year == std::string::npos || std::isdigit(static_cast<unsigned char>(padded[year])) == 0) continue;
    padded.replace(i + 1, year - i - 1, year - i - 1, '0');
  }
  return CString(padded);
}

CString SessionSetup(const DriverFacts& facts, DWORD seconds) {
  CString setup;
  const char* between = ", ";
  if (facts.dbms == kPostgreSQL) {
    setup = "SET standard_conforming_strings = on";
    between = "; SET ";
  } else if (IsMariaDB(facts)) {
    setup = "SET SESSION sql_mode = CONCAT(@@SESSION.sql_mode, ',NO_BACKSLASH_ESCAPES,STRICT_ALL_TABLES')";
  }
  const CString limit = seconds == 0 ? CString() : LimitAssignment(facts, seconds);
  return limit.IsEmpty() ? setup : setup + between + limit;
}

const char* SessionProof(const DriverFacts& facts) {
  if (facts.dbms == kSQLite) return "SELECT LENGTH('a\\b') FROM (SELECT COUNT(*) FROM sqlite_master)";
  return facts.dbms == kPostgreSQL || IsMariaDB(facts) ? "SELECT CHAR_LENGTH('a\\b')" : nullptr;
}

const char* TransactionBegin(const DriverFacts& facts) {
  return facts.dbms == kSQLite ? "BEGIN IMMEDIATE" : nullptr;
}

bool TakesValuesApart(const DriverFacts& facts) {
  return facts.dbms == kSQLite || facts.dbms == kPostgreSQL || IsMariaDB(facts);
}

const char* FirstRowOnly(const DriverFacts& facts) { return TakesValuesApart(facts) ? " LIMIT 1" : ""; }

CString StatementLimit(const DriverFacts& facts, DWORD seconds) {
  const CString limit = LimitAssignment(facts, seconds);
  return limit.IsEmpty() ? limit : "SET " + limit;
}

bool LimitsItself(const DriverFacts& facts) { return facts.dbms == kPostgreSQL; }

bool ForgetsIndexes(const DriverFacts& facts) { return IsMariaDB(facts); }

bool DiesOfCutAnswers(const DriverFacts& facts) { return IsMariaDB(facts); }

bool EndsStatementsQuietly(const DriverFacts& facts) { return facts.dbms == kPostgreSQL; }

bool TellsOfLoss(const odbc::Diagnostics& records) {
  return std::any_of(records.begin(), records.end(), [](const odbc::DiagRecord& record) {
    return record.state.starts_with("08") || record.state.starts_with("57P0");
  });
}

bool TellsOfStaleStatement(const odbc::Diagnostics& records) {
  constexpr SQLINTEGER kMariaDBPrepareAgain = 1615;
  constexpr SQLINTEGER kSQLiteSchemaChanged = 17;
  return std::any_of(records.begin(), records.end(), [](const odbc::DiagRecord& record) {
    return record.state == "0A000" || record.state == "26000" ||
           (record.state == "HY000" &&
            (record.native == kMariaDBPrepareAgain || record.native == kSQLiteSchemaChanged));
  });
}

bool TellsOfRollback(const odbc::Diagnostics& records) {
  return std::any_of(records.begin(), records.end(), [](const odbc::DiagRecord& record) {
    return record.state.starts_with("40") || record.state == kNotEvenSql;
  });
}
