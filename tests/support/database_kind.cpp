#include "tests/support/database_kind.h"

#include <cstdlib>
#include <iterator>
#include <stdexcept>

#include "tests/support/server_kinds.h"
#include "tests/support/sqlite_kind.h"

namespace support {
namespace {

namespace fs = std::filesystem;

struct Registered {
  const char* name;
  const DatabaseKind& (*kind)();
};

constexpr Registered kKinds[] = {
    {"sqlite",     SqliteKindInstance    },
    {"postgresql", PostgresqlKindInstance},
    {"mariadb",    MariadbKindInstance   },
};

std::string Chosen(const char* variable, const char* fallback) {
  const char* chosen = std::getenv(variable);
  return chosen != nullptr && *chosen != '\0' ? chosen : fallback;
}

// Which of two words an environment variable holds; the first one when it is not set.
bool ChoseSecond(const char* variable, const char* first, const char* second) {
  const std::string chosen = Chosen(variable, first);
  if (chosen != first && chosen != second) {
    throw std::runtime_error(std::string(variable) + " is neither " + first + " nor " + second + ": " +
                             chosen);
  }
  return chosen == second;
}

}  // namespace

const DatabaseKind& CurrentKind() {
  const std::string name = Chosen("KYODBC_TEST_DB", kKinds[0].name);
  for (const Registered& registered : kKinds) {
    if (name == registered.name) return registered.kind();
  }
  throw std::runtime_error("KYODBC_TEST_DB names no known database: " + name);
}

Tables TablesOfThisRun() {
  return ChoseSecond("KYODBC_TEST_TABLES", "short", "full") ? Tables::kFullNames : Tables::kShortNames;
}

bool OwnerInThisRun() { return ChoseSecond("KYODBC_TEST_OWNER", "no", "yes"); }

std::string FindDriver(const std::vector<std::string>& names) {
  std::vector<fs::path> folders = {"/usr/lib/odbc", "/usr/local/lib/odbc", "/usr/local/lib"};
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator("/usr/lib", ignored)) {
    folders.push_back(entry.path() / "odbc");  // /usr/lib/<machine>/odbc
  }
  for (const std::string& name : names) {
    for (const fs::path& folder : folders) {
      if (fs::exists(folder / name, ignored)) return folder / name;
    }
  }
  return {};
}

}  // namespace support
