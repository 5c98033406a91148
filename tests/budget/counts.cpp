#include "tests/budget/counts.h"

#include <cctype>
#include <fstream>
#include <initializer_list>
#include <sstream>
#include <stdexcept>

#include "tests/support/database_kind.h"

namespace budget {
namespace {

int Sum(const faults::FaultDriver& driver, std::initializer_list<const char*> functions) {
  int sum = 0;
  for (const char* function : functions) sum += static_cast<int>(driver.Calls(function));
  return sum;
}

}  // namespace

// The driver manager asks for the number of columns after every execution by itself: it is no description.
Counts Read(const faults::FaultDriver& driver) {
  const int catalogue = Sum(driver, {"SQLTables", "SQLColumns", "SQLPrimaryKeys", "SQLForeignKeys",
                                     "SQLStatistics", "SQLSpecialColumns", "SQLGetTypeInfo", "SQLProcedures",
                                     "SQLProcedureColumns", "SQLTablePrivileges", "SQLColumnPrivileges"});
  return {Sum(driver, {"SQLExecute", "SQLExecDirect"}), Sum(driver, {"SQLPrepare"}),
          Sum(driver, {"SQLDescribeCol", "SQLColAttribute", "SQLDescribeParam"}), catalogue,
          Sum(driver, {"SQLFetch", "SQLFetchScroll", "SQLExtendedFetch"})};
}

std::filesystem::path FileOfThisDatabase() {
  std::string name = support::CurrentKind().Name();
  for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return std::filesystem::path(KYODBC_SOURCE_DIR) / "tests" / "budget" / (name + ".txt");
}

Table Load(const std::filesystem::path& file) {
  Table table;
  std::ifstream lines(file);
  std::string line;
  while (std::getline(lines, line)) {
    if (line.empty() || line[0] == '#') continue;
    const std::size_t bar = line.find('|');
    std::istringstream words(bar == std::string::npos ? std::string() : line.substr(bar + 1));
    Counts counts{};
    for (int& count : counts) words >> count;
    if (!words) throw std::runtime_error(file.string() + ": not understood: " + line);
    const std::size_t end = line.find_last_not_of(' ', bar - 1);
    table[line.substr(0, end + 1)] = counts;
  }
  return table;
}

}  // namespace budget
