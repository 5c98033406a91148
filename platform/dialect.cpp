#include "platform/dialect.h"

#include <cctype>

namespace {

constexpr const char* kPostgreSQL = "PostgreSQL";
constexpr const char* kMariaDB = "MariaDB";
constexpr const char* kMySQL = "MySQL";  // how one driver introduces the same kind of server

bool BeginsWith(const CString& sql, const char* word) {
  return sql.Left(CString(word).GetLength()).CompareNoCase(word) == 0;
}

bool IsMariaDB(const DriverFacts& facts) { return facts.dbms == kMariaDB || facts.dbms == kMySQL; }

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

}  // namespace

DriverFacts ReadFacts(const odbc::Connection& connection) {
  DriverFacts facts;
  facts.dbms = connection.InfoText(SQL_DBMS_NAME);
  facts.procedures = connection.InfoText(SQL_PROCEDURES) == "Y";
  facts.transactions = connection.InfoNumber(SQL_TXN_CAPABLE) != SQL_TC_NONE;
  return facts;
}

bool IsSelect(const CString& sql) {
  constexpr int kWordLength = 6;
  const char next = sql.GetAt(kWordLength);
  return BeginsWith(sql, "SELECT") && std::isalnum(static_cast<unsigned char>(next)) == 0 && next != '_';
}

bool IsCall(const CString& sql) { return BeginsWith(sql, "{CALL"); }

CString AdaptCall(const CString& sql, const DriverFacts& facts) {
  if (!IsCall(sql)) return sql;
  const CString name = CalledName(sql);
  if (name.IsEmpty()) return sql;
  if (!facts.procedures) return "SELECT * FROM " + name;
  if (facts.dbms == kPostgreSQL && name.Find('.') >= 0) return "{call " + name + "()}";
  return sql;
}

const char* SessionSetup(const DriverFacts& facts) {
  if (facts.dbms == kPostgreSQL) return "SET standard_conforming_strings = on";
  if (IsMariaDB(facts)) {
    return "SET SESSION sql_mode = CONCAT(@@SESSION.sql_mode, ',NO_BACKSLASH_ESCAPES,STRICT_ALL_TABLES')";
  }
  return nullptr;
}

const char* SessionProof(const DriverFacts& facts) {
  return SessionSetup(facts) == nullptr ? nullptr : "SELECT CHAR_LENGTH('a\\b')";
}
