// One database system in which tests can make practices.
#ifndef KYODBC_TESTS_SUPPORT_DATABASE_KIND_H
#define KYODBC_TESTS_SUPPORT_DATABASE_KIND_H

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace support {

class RawOdbc;

// Which of a table's two names is the table; the other one is a view over it.
enum class Tables { kShortNames, kFullNames };

using Options = std::vector<std::pair<std::string, std::string>>;

// How tests declare columns of tables of their own, where databases differ.
struct ColumnTypes {
  std::string key;        // a primary key that the database gives when an insert leaves it out
  std::string long_text;  // takes 1,000,000 bytes and more
  std::string timestamp;  // keeps fractions of a second
};

class DatabaseKind {
 public:
  virtual ~DatabaseKind() = default;

  virtual std::string Name() const = 0;        // as the documentation writes it
  virtual std::string DriverName() const = 0;  // the section of odbcinst.ini
  virtual std::string DriverFile() const = 0;  // full path; empty when it is not installed

  // A fresh practice of version 4.0, with its default rows and nothing else, in `folder`, which exists and is
  // empty, or on a server. Returns the database: a file or a name. Throws std::runtime_error.
  virtual std::string Acquire(const std::filesystem::path& folder, Tables tables) const = 0;
  // The database is not needed any more. Ends sessions that still use it.
  virtual void Release(const std::string& database, Tables tables) const = 0;

  virtual ColumnTypes Types() const = 0;
  virtual Options SourceOptions(const std::string& database) const = 0;  // for odbc.ini
  virtual std::string User() const = 0;                                  // both empty: none asked for
  virtual std::string Password() const = 0;
  // A prefix that names the same tables, with its point.
  virtual std::string Owner(const std::string& database) const = 0;

  // The statements that make what {call name} runs: a procedure that returns the rows of `select`.
  virtual std::vector<std::string> ProcedureStatements(const std::string& name,
                                                       const std::string& select) const = 0;
  // The statements after which {call spky_ping} fails.
  virtual std::vector<std::string> RemovePingStatements() const = 0;
  // A query for the number of rows that the session has had sorted so far; 0 where nobody counts.
  virtual std::string SortedRowsQuery() const { return "SELECT 0"; }
  // Whether `query` is answered from an index alone, in its order, by the plan that the database would make
  // for many rows.
  virtual bool IsAnsweredByIndex(RawOdbc& database, const std::string& query) const = 0;
};

// The kind named by KYODBC_TEST_DB; without it the embedded one. An unknown name throws std::runtime_error.
const DatabaseKind& CurrentKind();

// KYODBC_TEST_TABLES=short|full and KYODBC_TEST_OWNER=no|yes; short and no without them.
Tables TablesOfThisRun();
bool OwnerInThisRun();

// The first of `names` found in one of the folders where drivers are installed; empty when there is none.
std::string FindDriver(const std::vector<std::string>& names);

}  // namespace support

#endif
