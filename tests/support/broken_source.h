// Data sources with something wrong, made from the right ones of the kind under test.
#ifndef KYODBC_TESTS_SUPPORT_BROKEN_SOURCE_H
#define KYODBC_TESTS_SUPPORT_BROKEN_SOURCE_H

#include <memory>
#include <string>

#include "tests/support/database_kind.h"
#include "tests/support/odbc_home.h"
#include "tests/support/practice.h"

namespace support {

// The value of an option, whatever the case of its name; empty when there is none.
std::string OptionOf(const Options& options, const std::string& name);
// Databases with a server are reached by a port.
bool HasServer(const Practice& practice);

// A data source of its own as long as it lives, like that of `practice` but for the options given, whose
// names count in any case.
class BrokenSource {
 public:
  BrokenSource(const Practice& practice, const Options& changes, const std::string& driver = {});
  ~BrokenSource();
  BrokenSource(const BrokenSource&) = delete;
  BrokenSource& operator=(const BrokenSource&) = delete;

  const std::string& Dsn() const { return m_dsn; }

 private:
  std::shared_ptr<OdbcHome> m_home;
  std::string m_dsn;
};

}  // namespace support

#endif
