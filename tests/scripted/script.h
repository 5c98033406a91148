// An ODBC library that tests play: it stands in the place of the driver manager and does what the script
// says, so that the library can be seen with faults that no real driver gives on demand.
#ifndef KYODBC_TESTS_SCRIPTED_SCRIPT_H
#define KYODBC_TESTS_SCRIPTED_SCRIPT_H

#include <sql.h>
#include <sqlext.h>

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace scripted {

struct Record {
  std::string state;
  SQLINTEGER native = 0;
  std::string message = "[maker][driver]something happened";
};
using Records = std::vector<Record>;

struct Column {
  std::string name;
  SQLSMALLINT type = SQL_INTEGER;
  SQLULEN size = 10;
  SQLSMALLINT nullable = SQL_NULLABLE;
};
using Cell = std::optional<std::string>;

struct Result {
  std::vector<Column> columns;
  std::vector<std::vector<Cell>> rows;
};

struct Handle {
  SQLSMALLINT kind = 0;
  Handle* parent = nullptr;
  Records records;

  struct Bound {
    SQLSMALLINT type;
    SQLPOINTER buffer;
    SQLLEN size;
    SQLLEN* indicator;
  };
  std::string sql;  // of a statement
  Result result;
  SQLLEN row = 0;  // 0 before the first row
  std::map<SQLUSMALLINT, Bound> bound;
  std::map<SQLUSMALLINT, std::size_t> given;  // bytes of a column that SQLGetData handed out

  SQLLEN Rows() const { return static_cast<SQLLEN>(result.rows.size()); }
  bool OnRow() const { return row >= 1 && row <= Rows(); }
};

class Script {
 public:
  // --- what a test says ---

  // The next calls of `function` give these codes, in order; then it works as usual. A call that succeeds
  // does its work; any other does nothing. SQLAllocHandle and SQLFreeHandle are told apart by what they
  // handle: "SQLAllocHandle env", "SQLFreeHandle stmt" and so on.
  void Answer(const std::string& function, const std::vector<SQLRETURN>& codes, const Records& records = {});
  // A statement that begins with `text` gives this result from now on. Others give none.
  void Gives(const std::string& text, const Result& result) { m_results[text] = result; }

  std::string dbms = "Any";
  bool procedures = false;
  bool transactions = true;
  std::set<SQLUSMALLINT> untold;  // what the driver cannot tell of itself
  SQLUINTEGER scroll_options = SQL_SO_FORWARD_ONLY | SQL_SO_STATIC;
  SQLUSMALLINT identifier_case = SQL_IC_MIXED;
  // The driver manager's files: entries by "file/section/key".
  std::map<std::string, std::string> ini;
  bool dead = false;             // what the driver says of the connection
  SQLLEN row_count = 1;          // rows that a change says it changed
  bool no_data_for_none = true;  // a change of no row answers SQL_NO_DATA
  bool views = false;            // the catalogue knows the name as a view
  bool zero_bytes = true;        // bound texts end with one
  bool lengths = true;           // the driver tells how long a bound text is
  bool row_error = false;        // every row that is fetched has the status of an error
  SQLULEN row_number = 0;        // told when not 0 ...
  bool true_row_number = false;  // ... unless the right one is told

  // --- what a test sees ---

  int Calls(const std::string& function) const;
  const std::vector<std::string>& Sent() const { return m_sent; }  // statements, in order
  std::size_t Live() const { return m_handles.size(); }
  int Misuses() const { return m_misuses; }  // calls on freed handles, handles freed before their children
  int catalogue_questions = 0;               // columns whose type or nullability SQLDescribeCol was asked for
  std::string connection_string;
  SQLUSMALLINT completion = 99;
  std::map<SQLINTEGER, SQLULEN> connection_attributes;

  // --- for the functions of the library ---

  // The handle, or null with a note of the misuse.
  Handle* Find(SQLHANDLE handle);
  Handle* Make(SQLSMALLINT kind, Handle* parent);
  void Free(Handle* handle);
  // Counts the call and takes the scripted answer; SQL_SUCCESS without one. Null handles are invalid.
  SQLRETURN Begin(const std::string& function, Handle* handle);
  void Run(Handle* statement, const std::string& sql);

 private:
  struct Scripted {
    SQLRETURN code;
    Records records;
  };

  std::map<std::string, std::deque<Scripted>> m_answers;
  std::map<std::string, int> m_calls;
  // A database that can be read proves itself at connect.
  std::map<std::string, Result> m_results = {
      {"SELECT LENGTH", {{{"length"}}, {{"3"}}}}
  };
  std::vector<std::string> m_sent;
  std::map<Handle*, std::unique_ptr<Handle>> m_handles;
  int m_misuses = 0;
};

// The script of the test that runs.
Script& TheScript();
// Starts over; handles still alive are released.
void NewScript();

}  // namespace scripted

#endif
