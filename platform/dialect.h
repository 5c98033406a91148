// What differs between data sources and must not differ above: facts asked of the driver once per
// connection, the form of a procedure call, and the session settings that the generated SQL relies on.
#ifndef KYODBC_PLATFORM_DIALECT_H
#define KYODBC_PLATFORM_DIALECT_H

#include <string>

#include "platform/cstring.h"
#include "platform/odbc.h"

struct DriverFacts {
  std::string dbms;           // "SQLite", "PostgreSQL", "MariaDB", ...; empty when the driver cannot tell
  bool procedures = false;    // {call p} runs a procedure
  bool transactions = false;  // commit and rollback work
};

DriverFacts ReadFacts(const odbc::Connection& connection);

// True when `sql` begins with the word SELECT, or with {CALL, without regard to case.
bool IsSelect(const CString& sql);
bool IsCall(const CString& sql);

// Without procedures, a call without arguments reads the view of that name. PostgreSQL takes a call of a
// qualified name only with parentheses. Everything else is returned as it is.
CString AdaptCall(const CString& sql, const DriverFacts& facts);

// The statement that makes a backslash in a text literal an ordinary character in this session, as the
// quoting of literals assumes; null where the database does not need one.
const char* SessionSetup(const DriverFacts& facts);
// A query that answers 3 when a backslash is one ordinary character; null as above.
const char* SessionProof(const DriverFacts& facts);

#endif
