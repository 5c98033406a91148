#include "tools/sqlite_schema.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <memory>
#include <string>

#include "tools/tool_error.h"

namespace {

struct Close {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Database = std::unique_ptr<sqlite3, Close>;

void Run(const Database& database, const char* sql, const std::filesystem::path& file) {
  if (sqlite3_exec(database.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK) return;
  throw ToolError(kFailed, fmt::format("cannot make {}: {}", file.string(), sqlite3_errmsg(database.get())));
}

}  // namespace

void ApplySqliteSchema(const std::filesystem::path& file) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
  const Database database(opened);
  if (code != SQLITE_OK) {
    throw ToolError(kFailed, fmt::format("cannot open {}: {}", file.string(), sqlite3_errstr(code)));
  }
  Run(database, "BEGIN", file);
  Run(database, kSqliteSchema, file);
  Run(database, "COMMIT", file);
}
