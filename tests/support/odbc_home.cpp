#include "tests/support/odbc_home.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace support {
namespace {

namespace fs = std::filesystem;

fs::path NewFolder() {
  std::string pattern = fs::temp_directory_path() / "kyodbc-test-XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make " + pattern);
  return pattern;
}

// Always the same folder: the driver manager asks for its name once in the life of a process.
fs::path MakeFolder() {
  static const fs::path folder = NewFolder();
  fs::create_directory(folder);
  return folder;
}

void WriteSections(const fs::path& path, const std::map<std::string, Options>& sections) {
  std::ofstream file(path);
  for (const auto& [name, options] : sections) {
    file << '[' << name << "]\n";
    for (const auto& [key, value] : options) file << key << '=' << value << '\n';
    file << '\n';
  }
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

}  // namespace

std::shared_ptr<OdbcHome> OdbcHome::Hold() {
  static std::weak_ptr<OdbcHome> in_use;
  std::shared_ptr<OdbcHome> home = in_use.lock();
  if (!home) {
    home.reset(new OdbcHome);
    in_use = home;
  }
  return home;
}

OdbcHome::OdbcHome() : m_folder(MakeFolder()) {
  Write();
  setenv("ODBCSYSINI", m_folder.c_str(), 1);
  setenv("ODBCINI", (m_folder / "odbc.ini").c_str(), 1);
}

OdbcHome::~OdbcHome() {
  std::error_code ignored;
  fs::remove_all(m_folder, ignored);
}

std::string OdbcHome::FreshName() {
  static int made = 0;
  return "practice" + std::to_string(getpid()) + "n" + std::to_string(++made);
}

void OdbcHome::AddSource(const std::string& name, const std::string& driver, const Options& options) {
  Options section = {
      {"Driver", driver}
  };
  section.insert(section.end(), options.begin(), options.end());
  m_sources[name] = section;
  Write();
}

void OdbcHome::AddDriver(const std::string& name, const std::string& file) {
  m_drivers[name] = {
      {"Description", name},
      {"Driver",      file},
      {"DontDLClose", "1" }
  };
  Write();
}

void OdbcHome::RemoveSource(const std::string& name) {
  m_sources.erase(name);
  Write();
}

void OdbcHome::Write() const {
  WriteSections(m_folder / "odbc.ini", m_sources);
  WriteSections(m_folder / "odbcinst.ini", m_drivers);
}

}  // namespace support
