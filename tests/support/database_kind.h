// One database system in which tests can make practices.
#ifndef KYODBC_TESTS_SUPPORT_DATABASE_KIND_H
#define KYODBC_TESTS_SUPPORT_DATABASE_KIND_H

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace support {

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

  virtual std::string DriverName() const = 0;  // the section of odbcinst.ini
  virtual std::string DriverFile() const = 0;  // full path; empty when it is not installed

  // Makes a fresh practice of version 4.0, with its default rows and nothing else, in or for `folder`, which
  // exists and is empty. Throws std::runtime_error.
  virtual void Create(const std::filesystem::path& folder, Tables tables) const = 0;
  // Takes down what Create left outside `folder`.
  virtual void Destroy(const std::filesystem::path& folder) const = 0;

  virtual ColumnTypes Types() const = 0;
  virtual Options SourceOptions(const std::filesystem::path& folder) const = 0;  // for odbc.ini
  virtual std::string User() const = 0;                                          // both empty: none asked for
  virtual std::string Password() const = 0;
  // A prefix that names the same tables, with its point.
  virtual std::string Owner(const std::filesystem::path& folder) const = 0;

  // The statements that make what {call name} runs: a procedure that returns the rows of `select`.
  virtual std::vector<std::string> ProcedureStatements(const std::string& name,
                                                       const std::string& select) const = 0;
};

// The kind named by KYODBC_TEST_DB; without it the embedded one. An unknown name throws std::runtime_error.
const DatabaseKind& CurrentKind();

// The first of `names` found in one of the folders where drivers are installed; empty when there is none.
std::string FindDriver(const std::vector<std::string>& names);

}  // namespace support

#endif
