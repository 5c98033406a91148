#include "tests/hostile/own_practice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "tests/support/database_kind.h"

namespace hostile {
namespace {

std::unique_ptr<support::OwnServer> the_server;

std::string KindName() {
  const char* chosen = std::getenv("KYODBC_TEST_DB");
  return chosen != nullptr ? chosen : "";
}

int Number(const char* name, int otherwise) {
  const char* value = std::getenv(name);
  return value != nullptr ? std::max(1, std::stoi(value)) : otherwise;
}

class ServerForAllTests : public testing::Environment {
 public:
  void SetUp() override {
    if (HasServer()) the_server = std::make_unique<support::OwnServer>(KindName());
  }
  void TearDown() override { the_server.reset(); }
};

[[maybe_unused]] const testing::Environment* const kServer =
    testing::AddGlobalTestEnvironment(new ServerForAllTests);

constexpr const char* kSqlModes[] = {
    "",
    "REAL_AS_FLOAT",
    "PIPES_AS_CONCAT",
    "ANSI_QUOTES",
    "IGNORE_SPACE",
    "IGNORE_BAD_TABLE_OPTIONS",
    "ONLY_FULL_GROUP_BY",
    "NO_UNSIGNED_SUBTRACTION",
    "NO_DIR_IN_CREATE",
    "POSTGRESQL",
    "ORACLE",
    "MSSQL",
    "DB2",
    "MAXDB",
    "NO_KEY_OPTIONS",
    "NO_TABLE_OPTIONS",
    "NO_FIELD_OPTIONS",
    "MYSQL323",
    "MYSQL40",
    "ANSI",
    "NO_AUTO_VALUE_ON_ZERO",
    "NO_BACKSLASH_ESCAPES",
    "STRICT_TRANS_TABLES",
    "STRICT_ALL_TABLES",
    "NO_ZERO_IN_DATE",
    "NO_ZERO_DATE",
    "ALLOW_INVALID_DATES",
    "ERROR_FOR_DIVISION_BY_ZERO",
    "TRADITIONAL",
    "NO_AUTO_CREATE_USER",
    "HIGH_NOT_PRECEDENCE",
    "NO_ENGINE_SUBSTITUTION",
    "PAD_CHAR_TO_FULL_LENGTH",
    "EMPTY_STRING_IS_NULL",
    "SIMULTANEOUS_ASSIGNMENT",
    "TIME_ROUND_FRACTIONAL",
};

std::string InForce(const std::string& mode) {
  return "SELECT FIND_IN_SET('" + mode + "', @@GLOBAL.sql_mode) > 0";
}

std::vector<Mode> MariadbModes() {
  std::vector<Mode> modes = {
      {"as it comes", {}, {}}
  };
  std::vector<std::string> proofs;
  std::string all;
  for (const std::string mode : kSqlModes) {
    const std::string in_force = mode.empty() ? "SELECT @@GLOBAL.sql_mode = ''" : InForce(mode);
    modes.push_back({mode.empty() ? "no mode" : mode, {"SET GLOBAL sql_mode = '" + mode + "'"}, {in_force}});
    all += (all.empty() ? "" : ",") + mode;
    if (!mode.empty()) proofs.push_back(in_force);
  }
  modes.push_back({"all modes", {"SET GLOBAL sql_mode = '" + all + "'"}, proofs});
  return modes;
}

// The settings as defaults of the tests' user.
Mode ForTheUser(std::string name, const support::Options& settings) {
  Mode mode = {std::move(name), {}, {}};
  for (const auto& [setting, value] : settings) {
    mode.statements.push_back("ALTER ROLE practice SET " + setting + " = '" + value + "'");
    mode.proofs.push_back("SELECT COUNT(*) FROM pg_db_role_setting WHERE '" + setting + "=" + value +
                          "' = ANY (setconfig)");
  }
  return mode;
}

std::vector<Mode> PostgresqlModes() {
  std::vector<Mode> modes = {
      {"as it comes", {}, {}}
  };
  for (const std::string quote : {"on", "off", "safe_encoding"}) {
    for (const std::string conforming : {"on", "off"}) {
      for (const std::string warning : {"on", "off"}) {
        const support::Options settings = {
            {"backslash_quote",             quote     },
            {"standard_conforming_strings", conforming},
            {"escape_string_warning",       warning   },
        };
        std::string name;
        for (const auto& [setting, value] : settings) name += setting + " " + value + " ";
        modes.push_back(ForTheUser(name, settings));
        modes.back().proofs.push_back("SELECT CASE current_setting('standard_conforming_strings') WHEN '" +
                                      conforming + "' THEN 1 ELSE 0 END");
      }
    }
  }
  const support::Options more[] = {
      {{"transform_null_equals", "on"}}, {{"client_encoding", "SJIS"}},   {{"client_encoding", "BIG5"}},
      {{"client_encoding", "GBK"}},      {{"client_encoding", "LATIN1"}},
  };
  for (const support::Options& settings : more) {
    modes.push_back(ForTheUser(settings[0].first + " " + settings[0].second, settings));
  }
  return modes;
}

}  // namespace

bool OnPostgresql() { return KindName() == "postgresql"; }
bool OnMariadb() { return KindName() == "mariadb"; }
bool HasServer() { return OnPostgresql() || OnMariadb(); }
support::OwnServer& Server() { return *the_server; }

int Rounds() { return Number("KYODBC_TEST_ROUNDS", 1); }
unsigned Seed() { return static_cast<unsigned>(Number("KYODBC_TEST_SEED", 20010506)); }

std::vector<Mode> Modes() {
  if (OnMariadb()) return MariadbModes();
  if (OnPostgresql()) return PostgresqlModes();
  return {
      {"as it comes", {}, {}}
  };
}

}  // namespace hostile
