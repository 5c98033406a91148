// The folder with the odbc.ini and odbcinst.ini that this process uses instead of the machine's.
#ifndef KYODBC_TESTS_SUPPORT_ODBC_HOME_H
#define KYODBC_TESTS_SUPPORT_ODBC_HOME_H

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "tests/support/database_kind.h"

namespace support {

// Lives as long as something holds it; then the folder vanishes, and the next one has the same name. The
// driver manager remembers sections of ini files for a while, so names of sources are never used twice.
class OdbcHome {
 public:
  // The one in use, or a new one. Points the environment (ODBCSYSINI, ODBCINI) at it.
  static std::shared_ptr<OdbcHome> Hold();
  ~OdbcHome();
  OdbcHome(const OdbcHome&) = delete;
  OdbcHome& operator=(const OdbcHome&) = delete;

  const std::filesystem::path& Folder() const { return m_folder; }
  // A name no other data source of this process has or had.
  static std::string FreshName();
  void AddSource(const std::string& name, const std::string& driver, const Options& options);
  void AddDriver(const std::string& name, const std::string& file);
  void RemoveSource(const std::string& name);

 private:
  OdbcHome();
  void Write() const;

  std::filesystem::path m_folder;
  std::map<std::string, Options> m_sources;
  std::map<std::string, Options> m_drivers;
};

}  // namespace support

#endif
