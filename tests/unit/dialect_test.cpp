#include "platform/dialect.h"

#include <gtest/gtest.h>

namespace {

const DriverFacts kEmbedded = {"SQLite", false, true};
const DriverFacts kPostgreSQL = {"PostgreSQL", true, true};
const DriverFacts kMariaDB = {"MariaDB", true, true};

TEST(Dialect, ASelectBeginsWithThatWordInAnyCase) {
  for (const char* sql : {"SELECT a", "select a", "Select\ta", "SELECT\na", "SELECT*FROM t", "SELECT(1)",
                          "SELECT\"a\"", "SELECT"}) {
    EXPECT_TRUE(IsSelect(sql)) << sql;
  }
  for (const char* sql : {" SELECT a", "SELECTED", "Selections, TPatient", "SELECT_1", "SELECT2", "TPatient",
                          "", "{call p}", "SELEC", "WITH a SELECT"}) {
    EXPECT_FALSE(IsSelect(sql)) << sql;
  }
}

TEST(Dialect, ACallBeginsWithTheBraceAndThatWordInAnyCase) {
  EXPECT_TRUE(IsCall("{call p}"));
  EXPECT_TRUE(IsCall("{CALL p}"));
  EXPECT_TRUE(IsCall("{Call p(1)}"));
  for (const char* sql : {" {call p}", "{ call p}", "call p", "SELECT {call", "", "{"}) {
    EXPECT_FALSE(IsCall(sql)) << sql;
  }
}

TEST(Dialect, CallsAreAdaptedToWhatTheDataSourceTakes) {
  const struct {
    const char* call;
    const char* embedded;
    const char* postgresql;
    const char* mariadb;
  } cases[] = {
      {"{call spky_ping}", "SELECT * FROM spky_ping", "{call spky_ping}", "{call spky_ping}"},
      {"{CALL spky_ping}", "SELECT * FROM spky_ping", "{CALL spky_ping}", "{CALL spky_ping}"},
      {"{call main.p}",    "SELECT * FROM main.p",    "{call main.p()}",  "{call main.p}"   },
      {"{call main.p()}",  "SELECT * FROM main.p",    "{call main.p()}",  "{call main.p()}" },
      {"{call p()}",       "SELECT * FROM p",         "{call p()}",       "{call p()}"      },
      {"{call p( )}",      "SELECT * FROM p",         "{call p( )}",      "{call p( )}"     },
      {"{call  p }",       "SELECT * FROM p",         "{call  p }",       "{call  p }"      },
      {"{call p (1,'a')}", "{call p (1,'a')}",        "{call p (1,'a')}", "{call p (1,'a')}"},
      {"{call main.p(1)}", "{call main.p(1)}",        "{call main.p(1)}", "{call main.p(1)}"},
      {"{call}",           "{call}",                  "{call}",           "{call}"          },
      {"SELECT * FROM p",  "SELECT * FROM p",         "SELECT * FROM p",  "SELECT * FROM p" },
      {"DELETE FROM p",    "DELETE FROM p",           "DELETE FROM p",    "DELETE FROM p"   },
      {"",                 "",                        "",                 ""                },
  };
  for (const auto& row : cases) {
    EXPECT_STREQ(AdaptCall(row.call, kEmbedded), row.embedded) << row.call;
    EXPECT_STREQ(AdaptCall(row.call, kPostgreSQL), row.postgresql) << row.call;
    EXPECT_STREQ(AdaptCall(row.call, kMariaDB), row.mariadb) << row.call;
  }
}

TEST(Dialect, SessionsInWhichABackslashMightEscapeAreSetUpAndProven) {
  EXPECT_EQ(SessionSetup(kEmbedded), nullptr);
  EXPECT_EQ(SessionProof(kEmbedded), nullptr);
  EXPECT_NE(std::string(SessionSetup(kPostgreSQL)).find("standard_conforming_strings"), std::string::npos);
  for (const char* dbms : {"MariaDB", "MySQL"}) {
    const DriverFacts facts = {dbms, true, true};
    EXPECT_NE(std::string(SessionSetup(facts)).find("NO_BACKSLASH_ESCAPES"), std::string::npos);
    EXPECT_STREQ(SessionProof(facts), "SELECT CHAR_LENGTH('a\\b')");
  }
}

}  // namespace
