// A throw-away practice database with a data source of its own.
#ifndef KYODBC_TESTS_SUPPORT_PRACTICE_H
#define KYODBC_TESTS_SUPPORT_PRACTICE_H

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tables/records.h"
#include "tests/support/database_kind.h"
#include "tests/support/odbc_home.h"

namespace support {

// The defaults are those of the run: KYODBC_TEST_TABLES=full makes the full names the tables, and
// KYODBC_TEST_OWNER=yes names the owner, wherever a test does not ask for one of the two forms itself.
struct PracticeOptions {
  Tables tables = TablesOfThisRun();
  bool with_owner = OwnerInThisRun();  // Parameters() gives a prefix that names the same tables
};

// Holds the default rows and the settings of version 4.0. Several may live at a time. Everything is removed
// at destruction; close the connections first.
class Practice {
 public:
  explicit Practice(PracticeOptions options = {});
  ~Practice();
  Practice(const Practice&) = delete;
  Practice& operator=(const Practice&) = delete;

  const std::string& Dsn() const { return m_dsn; }
  const std::string& Owner() const { return m_owner; }              // empty without with_owner
  const std::string& Database() const { return m_database; }        // a file or a name
  const std::filesystem::path& Folder() const { return m_folder; }  // its own; free for files of the test
  tagDBCONNECT Parameters() const;
  // "TPatient" or "TPatientRaw": is it the table here, or the view? And its other name.
  bool IsTable(const std::string& name) const;
  static std::string OtherName(const std::string& name);

  // One more data source for the same database. Takes a name of at most 32 bytes that is not in use.
  void AddSource(const std::string& name);

 private:
  std::shared_ptr<OdbcHome> m_home;
  std::string m_dsn;
  std::filesystem::path m_folder;
  Tables m_tables;
  std::string m_database;
  std::string m_owner;
  std::vector<std::string> m_sources;
};

}  // namespace support

#endif
