#include "tests/support/server_kinds.h"

#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "tests/support/raw_odbc.h"
#include "tests/support/server_schema.h"

namespace support {
namespace {

namespace fs = std::filesystem;

constexpr const char* kUser = "practice";
constexpr const char* kPassword = "secret";
constexpr const char* kHost = "127.0.0.1";

// Where the servers wrote `name`.port.
std::string Port(const std::string& name) {
  const char* folder = std::getenv("KYODBC_TEST_SERVERS");
  if (folder == nullptr) throw std::runtime_error("KYODBC_TEST_SERVERS names no folder of running servers");
  std::ifstream file(fs::path(folder) / (name + ".port"));
  std::string port;
  if (!(file >> port)) throw std::runtime_error("no server " + name + " in " + folder);
  return port;
}

// A practice's database is named like its folder.
std::string DatabaseName(const fs::path& folder) { return folder.filename().string(); }

std::string ConnectionString(const std::string& driver, const Options& options) {
  std::string text = "DRIVER=" + driver;
  for (const auto& [name, value] : options) text += ";" + name + "=" + value;
  return text + ";UID=" + kUser + ";PWD=" + kPassword;
}

void Apply(RawOdbc& database, const fs::path& schema, Tables tables) {
  for (const std::string& statement : SchemaStatements(schema, tables)) database.Exec(statement);
}

fs::path Schema(const char* name) { return fs::path(KYODBC_SOURCE_DIR) / "schema" / name; }

class PostgresqlKind : public DatabaseKind {
 public:
  std::string DriverName() const override { return "PostgreSQL"; }
  std::string DriverFile() const override { return FindDriver({"psqlodbcw.so"}); }

  void Create(const fs::path& folder, Tables tables) const override {
    const std::string name = DatabaseName(folder);
    RawOdbc admin(Connect("postgres"));
    admin.Exec("CREATE DATABASE " + name + " TEMPLATE " + TemplateName(admin, name, tables));
  }
  void Destroy(const fs::path& folder) const override {
    RawOdbc(Connect("postgres")).Exec("DROP DATABASE IF EXISTS " + DatabaseName(folder) + " WITH (FORCE)");
  }

  Options SourceOptions(const fs::path& folder) const override { return OptionsFor(DatabaseName(folder)); }
  std::string User() const override { return kUser; }
  std::string Password() const override { return kPassword; }
  std::string Owner(const fs::path&) const override { return "public."; }

 private:
  Options OptionsFor(const std::string& database) const {
    return {
        {"Servername",         kHost             },
        {"Port",               Port("postgresql")},
        {"Database",           database          },
        {"UpdatableCursors",   "0"               },
        {"BoolsAsChar",        "0"               },
        {"MaxLongVarcharSize", "1000000"         },
        {"UseDeclareFetch",    "0"               },
    };
  }
  std::string Connect(const std::string& database) const {
    return ConnectionString(DriverFile(), OptionsFor(database));
  }

  // Copying a database is quicker than applying a schema: each process makes one of each kind.
  std::string TemplateName(RawOdbc& admin, const std::string& practice, Tables tables) const {
    static std::string made[2];
    std::string& name = made[tables == Tables::kShortNames ? 0 : 1];
    if (!name.empty()) return name;
    const std::string fresh = "template_of_" + practice;
    admin.Exec("CREATE DATABASE " + fresh);
    RawOdbc database(Connect(fresh));
    Apply(database, Schema("postgresql.sql"), tables);
    return name = fresh;
  }
};

class MariadbKind : public DatabaseKind {
 public:
  std::string DriverName() const override { return "MariaDB"; }
  std::string DriverFile() const override { return FindDriver({"libmaodbc.so"}); }

  void Create(const fs::path& folder, Tables tables) const override {
    const std::string name = DatabaseName(folder);
    RawOdbc database(ConnectionString(DriverFile(), OptionsFor("mysql")));
    database.Exec("CREATE DATABASE " + name + " CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin");
    database.Exec("USE " + name);
    Apply(database, Schema("mariadb.sql"), tables);
  }
  void Destroy(const fs::path& folder) const override {
    RawOdbc(ConnectionString(DriverFile(), OptionsFor("mysql")))
        .Exec("DROP DATABASE IF EXISTS " + DatabaseName(folder));
  }

  Options SourceOptions(const fs::path& folder) const override { return OptionsFor(DatabaseName(folder)); }
  std::string User() const override { return kUser; }
  std::string Password() const override { return kPassword; }
  std::string Owner(const fs::path& folder) const override { return DatabaseName(folder) + "."; }

 private:
  Options OptionsFor(const std::string& database) const {
    return {
        {"SERVER",       kHost          },
        {"PORT",         Port("mariadb")},
        {"DATABASE",     database       },
        {"OPTION",       "2"            },
        {"CONN_TIMEOUT", "30"           },
        {"CHARSET",      "utf8mb4"      },
    };
  }
};

}  // namespace

const DatabaseKind& PostgresqlKindInstance() {
  static const PostgresqlKind kind;
  return kind;
}

const DatabaseKind& MariadbKindInstance() {
  static const MariadbKind kind;
  return kind;
}

}  // namespace support
