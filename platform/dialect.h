// What differs between data sources and must not differ above: facts asked of the driver once per
// connection, the form of a procedure call, and the session settings that the generated SQL relies on.
#ifndef KYODBC_PLATFORM_DIALECT_H
#define KYODBC_PLATFORM_DIALECT_H

#include <string>

#include "platform/cstring.h"
#include "platform/odbc.h"

// How names are kept that a statement gives without quotes.
enum class NameCase { kUpper, kLower, kSensitive, kMixed };

// The defaults hold for what a driver cannot tell.
struct DriverFacts {
  std::string dbms;  // "SQLite", "PostgreSQL", "MariaDB", ...; empty: a system without peculiarities
  std::string dbms_version;
  std::string driver;  // the name of its file, as it gives it
  std::string driver_version;
  bool static_cursors = true;  // every record set asks for one; a driver that lies fails at the first move
  bool procedures = false;     // {call p} runs a procedure; else the view of that name is read
  bool transactions = false;   // commit and rollback work; promised only by a driver that says so
  NameCase names = NameCase::kMixed;
  bool delete_counts = false;  // a delete that says "none" found none, of tables and of views
  bool row_counts = false;     // "no row changed" means that there is none, of tables and of views
};

// `found_rows`: the data source asks a driver that counts changed rows to count those found.
DriverFacts ReadFacts(const odbc::Connection& connection, bool found_rows);

// The facts on one line, set apart by "; ".
std::string Describe(const DriverFacts& facts);

// True when `sql` begins with the word SELECT, or with {CALL, without regard to case.
bool IsSelect(const CString& sql);
bool IsCall(const CString& sql);

// Without procedures, a call without arguments reads the view of that name. PostgreSQL takes a call of a
// qualified name only with parentheses. Everything else is returned as it is.
CString AdaptCall(const CString& sql, const DriverFacts& facts);

// Years of date and time literals in four digits. Blanks before a shorter year would make one driver read
// {d '   5-01-01'} as 2001, another compare it as a text that no stored date equals.
CString PadYears(CString sql);

// What is sent first, at once: a backslash in a text literal is an ordinary character in this session, as the
// quoting of literals assumes, and later statements are limited as by StatementLimit, unless `seconds` is 0.
// Empty where the database needs neither.
CString SessionSetup(const DriverFacts& facts, DWORD seconds);
// A query that answers 3 when the database can be read and a backslash is one ordinary character; null for a
// system without peculiarities. Some files are found to be no databases only when they are read.
const char* SessionProof(const DriverFacts& facts);

// The statement that begins a transaction; null where the driver begins it by itself. One database would
// begin it with a read and find out at the first change that another process has changed something since,
// which no waiting cures: there the right to write is taken at the begin, and waited for within the time-out.
const char* TransactionBegin(const DriverFacts& facts);

// Whether statements are known to mean the same with their values sent apart. A driver that only reads files
// may not even know parameters.
bool TakesValuesApart(const DriverFacts& facts);

// What limits an ordered query to its first row, with a blank in front; empty where that is not known.
const char* FirstRowOnly(const DriverFacts& facts);

// The statement that lets the server end every later statement of this session which takes longer, 0 for what
// the server's administrator has set; empty where the driver sees to that. One driver does not pass the query
// time-out on, and one asks for it too often.
CString StatementLimit(const DriverFacts& facts, DWORD seconds);
// Whether the server keeps that limit so that the driver need not be told of one: it would ask the server to
// set and to forget it around every statement.
bool LimitsItself(const DriverFacts& facts);

// Whether a prepared statement may be planned worse when it is run again: once another statement has read
// the table, that server does not see any more that an index alone holds what is asked for, and reads or
// sorts the whole table.
bool ForgetsIndexes(const DriverFacts& facts);

// Whether the driver ends statements with their connection and asks the server nothing then. Of each that is
// freed while connected it tells the server and waits for the answer, which a silent server never gives.
bool EndsStatementsQuietly(const DriverFacts& facts);

// Whether the driver brings the process down when the connection is lost in the middle of the answer to a
// statement that was run without being prepared.
bool DiesOfCutAnswers(const DriverFacts& facts);

// Whether a failure tells that the connection is lost.
bool TellsOfLoss(const odbc::Diagnostics& records);
// Whether a statement was not run because what had been prepared for it is out of date.
bool TellsOfStaleStatement(const odbc::Diagnostics& records);
// Whether the server has given up what the transaction did, or wants it to: a deadlock, or changes that
// exclude each other.
bool TellsOfRollback(const odbc::Diagnostics& records);

#endif
