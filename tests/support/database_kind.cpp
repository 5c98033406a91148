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

}  // namespace

const DatabaseKind& CurrentKind() {
  const char* chosen = std::getenv("KYODBC_TEST_DB");
  const std::string name = chosen != nullptr && *chosen != '\0' ? chosen : kKinds[0].name;
  for (const Registered& registered : kKinds) {
    if (name == registered.name) return registered.kind();
  }
  throw std::runtime_error("KYODBC_TEST_DB names no known database: " + name);
}

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
