#include "tools/odbc_driver.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "tools/tool_error.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kDriverFile = "libsqlite3odbc.so";

// The folder of this machine's architecture first, then those of others and of other systems.
std::vector<fs::path> DriverFolders() {
  std::vector<fs::path> folders = {fs::path("/usr/lib") / KYODBC_MULTIARCH / "odbc", "/usr/lib/odbc",
                                   "/usr/lib64", "/usr/local/lib"};
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator("/usr/lib", ignored)) {
    folders.push_back(entry.path() / "odbc");
  }
  return folders;
}

}  // namespace

std::string FindSqliteDriver() {
  std::error_code ignored;
  for (const fs::path& folder : DriverFolders()) {
    const fs::path file = folder / kDriverFile;
    if (fs::exists(file, ignored)) return file.lexically_normal().string();
  }
  throw ToolError(kFailed, std::string("the ODBC driver ") + kDriverFile +
                               " is not installed (on Debian: apt-get install libsqliteodbc)");
}
