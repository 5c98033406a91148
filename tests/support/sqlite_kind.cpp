#include "tests/support/sqlite_kind.h"

#include <sqlite3.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "tests/support/raw_odbc.h"

namespace support {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFileName = "practice.db";

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

void WriteFile(const fs::path& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
};

// Runs a whole schema file on a new database file and leaves it closed, with nothing in the journal.
void ApplySchema(const fs::path& schema, const fs::path& file) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open(file.c_str(), &opened);
  const std::unique_ptr<sqlite3, CloseDatabase> database(opened);
  if (code != SQLITE_OK) throw std::runtime_error("cannot make " + file.string());
  const std::string sql =
      "PRAGMA journal_mode=WAL; PRAGMA synchronous=OFF; BEGIN; " + ReadFile(schema) + "COMMIT;";
  char* message = nullptr;
  if (sqlite3_exec(database.get(), sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
    const std::string text = message != nullptr ? message : "no message";
    sqlite3_free(message);
    throw std::runtime_error(schema.string() + ": " + text);
  }
}

// Applying the schema costs far more than writing a file, so each process does it once for each variant and
// keeps the bytes of the result.
const std::string& Template(const fs::path& folder, Tables tables) {
  static std::string kept[2];
  std::string& bytes = kept[tables == Tables::kShortNames ? 0 : 1];
  if (bytes.empty()) {
    const fs::path root = KYODBC_SOURCE_DIR;
    const fs::path schema = tables == Tables::kShortNames
                                ? root / "schema" / "sqlite.sql"
                                : root / "tests" / "support" / "schema_full_names.sql";
    const fs::path file = folder / "template.db";
    ApplySchema(schema, file);
    bytes = ReadFile(file);
    fs::remove(file);
  }
  return bytes;
}

class SqliteKind : public DatabaseKind {
 public:
  std::string Name() const override { return "SQLite"; }
  std::string DriverName() const override { return "SQLite3"; }
  std::string DriverFile() const override { return FindDriver({"libsqlite3odbc.so"}); }

  std::string Acquire(const fs::path& folder, Tables tables) const override {
    WriteFile(folder / kFileName, Template(folder, tables));
    return folder / kFileName;
  }
  void Release(const std::string&, Tables) const override {}  // the file goes with its folder

  ColumnTypes Types() const override { return {"INTEGER PRIMARY KEY", "VARCHAR(1000000)", "TIMESTAMP"}; }
  Options SourceOptions(const std::string& database) const override {
    return {
        {"Database",    database},
        {"LongNames",   "0"     },
        {"JDConv",      "0"     },
        {"BigInt",      "0"     },
        {"Timeout",     "5000"  },
        {"SyncPragma",  "NORMAL"},
        {"JournalMode", "WAL"   },
    };
  }
  std::string User() const override { return {}; }
  std::string Password() const override { return {}; }
  std::string Owner(const std::string&) const override { return "main."; }
  std::vector<std::string> ProcedureStatements(const std::string& name,
                                               const std::string& select) const override {
    return {"CREATE VIEW " + name + " AS " + select};
  }
  std::vector<std::string> RemovePingStatements() const override { return {"DROP VIEW spky_ping"}; }
  bool IsAnsweredByIndex(RawOdbc& database, const std::string& query) const override {
    const std::string plan = TextOf(database.Query("EXPLAIN QUERY PLAN " + query));
    return plan.find("COVERING INDEX") != std::string::npos && plan.find("TEMP B-TREE") == std::string::npos;
  }
};

}  // namespace

const DatabaseKind& SqliteKindInstance() {
  static const SqliteKind kind;
  return kind;
}

}  // namespace support
