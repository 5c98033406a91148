#include "tools/data/sqlite_file.h"

#include <fmt/format.h>

#include "tools/interruption.h"
#include "tools/tool_error.h"

namespace {

constexpr int kPagesAtOnce = 256;
constexpr int kBusyMilliseconds = 5000;

struct FinishBackup {
  void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};

Value ColumnOf(sqlite3_stmt* statement, int index) {
  if (sqlite3_column_type(statement, index) == SQLITE_NULL) return std::nullopt;
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
  return std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, index)));
}

}  // namespace

SqliteFile::SqliteFile(const std::filesystem::path& file) : m_name(file.string()) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(m_name.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
  m_database.reset(opened);
  if (code != SQLITE_OK)
    throw ToolError(kFailed, fmt::format("cannot open {}: {}", m_name, sqlite3_errstr(code)));
  sqlite3_busy_timeout(opened, kBusyMilliseconds);
}

void SqliteFile::Fail() const {
  throw ToolError(kFailed, fmt::format("{}: {}", m_name, sqlite3_errmsg(m_database.get())));
}

void SqliteFile::Execute(const char* sql) {
  if (sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

SqliteFile::Statement SqliteFile::Prepare(const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(m_database.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) Fail();
  return Statement(statement);
}

bool SqliteFile::Step(const Statement& statement) {
  const int code = sqlite3_step(statement.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE) Fail();
  return code == SQLITE_ROW;
}

void SqliteFile::BeginSnapshot() {
  Execute("BEGIN");
  Step(Prepare("SELECT COUNT(*) FROM sqlite_master"));
}

void SqliteFile::CopyTo(SqliteFile& target, const std::function<void(int, int)>& progress) {
  const std::unique_ptr<sqlite3_backup, FinishBackup> backup(
      sqlite3_backup_init(target.m_database.get(), "main", m_database.get(), "main"));
  if (!backup) target.Fail();
  int code = SQLITE_OK;
  while (code == SQLITE_OK) {
    code = sqlite3_backup_step(backup.get(), kPagesAtOnce);
    const int all = sqlite3_backup_pagecount(backup.get());
    if (code == SQLITE_OK) progress(all - sqlite3_backup_remaining(backup.get()), all);
  }
  if (code == SQLITE_DONE) return;
  Interruption::Check();
  throw ToolError(kFailed, fmt::format("copying {} to {}: {}", m_name, target.m_name, sqlite3_errstr(code)));
}

void SqliteFile::RequireSound() {
  const Statement check = Prepare("PRAGMA integrity_check(1)");
  if (Step(check) && ColumnOf(check.get(), 0) == "ok") return;
  throw ToolError(kDiffers, fmt::format("{} is damaged: SQLite's own check finds a fault", m_name));
}

Checksums SqliteFile::Sums(const std::vector<Shape>& shapes, const std::function<void()>& row_read) {
  Checksums sums;
  for (const Shape& shape : shapes) {
    Checksum& sum = sums[shape.table];
    const Statement rows =
        Prepare(fmt::format("SELECT {} FROM {}", fmt::join(shape.columns, ", "), shape.table));
    Row row(shape.columns.size());
    while (Step(rows)) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        row[i] = ColumnOf(rows.get(), static_cast<int>(i));
        MakeUniform(row[i], shape.kinds[i]);
      }
      sum.Add(row);
      row_read();
    }
  }
  return sums;
}
