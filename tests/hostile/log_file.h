// The library's log in a file, as long as the object lives.
#ifndef KYODBC_TESTS_HOSTILE_LOG_FILE_H
#define KYODBC_TESTS_HOSTILE_LOG_FILE_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/log.h"
#include "tests/support/odbc_home.h"

namespace hostile {

class LogFile {
 public:
  explicit LogFile(const char* level) : m_file(m_home->Folder() / "hostile.log") {
    std::filesystem::remove(m_file);
    setenv("KYODBC_LOG", level, 1);
    setenv("KYODBC_LOG_FILE", m_file.c_str(), 1);
    klog::Reconfigure();
  }
  ~LogFile() {
    unsetenv("KYODBC_LOG");
    unsetenv("KYODBC_LOG_FILE");
    klog::Reconfigure();
  }
  LogFile(const LogFile&) = delete;
  LogFile& operator=(const LogFile&) = delete;

  std::string Text() const {
    std::ifstream file(m_file, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::shared_ptr<support::OdbcHome> m_home = support::OdbcHome::Hold();
  std::filesystem::path m_file;
};

}  // namespace hostile

#endif
