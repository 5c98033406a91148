#include "tests/hostile/own_practice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

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

std::vector<Mode> MariadbModes() {
  std::vector<Mode> modes = {
      {"as it comes", {}}
  };
  std::string all;
  for (const std::string mode : kSqlModes) {
    modes.push_back({mode.empty() ? "no mode" : mode, {"SET GLOBAL sql_mode = '" + mode + "'"}});
    all += (all.empty() ? "" : ",") + mode;
  }
  modes.push_back({"all modes", {"SET GLOBAL sql_mode = '" + all + "'"}});
  return modes;
}

std::vector<Mode> PostgresqlModes() {
  const std::string role = "ALTER ROLE practice SET ";
  std::vector<Mode> modes = {
      {"as it comes", {}}
  };
  for (const char* quote : {"on", "off", "safe_encoding"}) {
    for (const char* conforming : {"on", "off"}) {
      for (const char* warning : {"on", "off"}) {
        modes.push_back({
            std::string("backslash_quote ") + quote + ", standard_conforming_strings " + conforming +
                ", escape_string_warning " + warning,
            {role + "backslash_quote = " + quote, role + "standard_conforming_strings = " + conforming,
                        role + "escape_string_warning = " + warning}
        });
      }
    }
  }
  modes.push_back({"transform_null_equals on", {role + "transform_null_equals = on"}});
  for (const char* encoding : {"SJIS", "BIG5", "GBK", "LATIN1"}) {
    modes.push_back(
        {std::string("client_encoding ") + encoding, {role + "client_encoding = '" + encoding + "'"}});
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
      {"as it comes", {}}
  };
}

}  // namespace hostile
