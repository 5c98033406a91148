// A practice on SQLite with canary rows, which no fuzzed call may touch. The library is connected to it.
#ifndef KYODBC_FUZZ_PRACTICE_H
#define KYODBC_FUZZ_PRACTICE_H

#include <sqlite3.h>

#include <map>
#include <string>
#include <string_view>

#include "tests/differential/layout.h"
#include "tests/support/practice.h"

namespace fuzz {

class CanaryPractice {
 public:
  // With one row in every table, beside the default rows, whose texts all begin as kMarker does.
  CanaryPractice();

  // Removes every row that is no canary and no default row.
  void Clean();
  // How many rows the table has beside those.
  int Added(const std::string& table);
  int NewestKey(const std::string& table);
  // Whether those are, in all tables and columns, as they were at the beginning.
  bool CanariesLive();
  // Canaries and default rows have keys up to this.
  static constexpr int kLastKey = 9;

 private:
  std::string Text(const std::string& sql);
  std::string Canaries();
  void Exec(const std::string& sql);

  support::Practice m_practice;
  sqlite3* m_database = nullptr;  // the tests' own connection
  std::string m_canaries;
};

// The one of this program.
CanaryPractice& ThePractice();

// Such an input may mean a canary by its name.
bool NamesCanary(std::string_view input);

}  // namespace fuzz

#endif
