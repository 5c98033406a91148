#include "tests/support/documented.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "tests/support/database_kind.h"

namespace support {
namespace {

// The cells of a row of a table, trimmed: "| `a` | b |" has two.
std::vector<std::string> Cells(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream rest(line.substr(line.empty() ? 0 : 1));
  for (std::string cell; std::getline(rest, cell, '|');) {
    const std::size_t first = cell.find_first_not_of(' ');
    const std::size_t last = cell.find_last_not_of(' ');
    cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
  }
  return cells;
}

}  // namespace

std::string Documented(const std::string& difference) {
  std::ifstream page(std::string(KYODBC_SOURCE_DIR) + "/docs/databases.md");
  const std::string database = CurrentKind().Name();
  std::vector<std::string> heading;
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with('|')) {
      heading.clear();
      continue;
    }
    const std::vector<std::string> cells = Cells(line);
    if (heading.empty()) heading = cells;
    if (cells.empty() || cells[0] != "`" + difference + "`") continue;
    for (std::size_t i = 1; i < cells.size() && i < heading.size(); ++i) {
      if (heading[i] == database) return cells[i];
    }
  }
  throw std::runtime_error("docs/databases.md does not tell of " + difference + " on " + database);
}

}  // namespace support
