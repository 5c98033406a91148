#include "platform/dialect.h"

#include <gtest/gtest.h>

namespace {

DriverFacts Facts(const char* dbms, bool procedures) {
  DriverFacts facts;
  facts.dbms = dbms;
  facts.procedures = procedures;
  facts.transactions = true;
  return facts;
}

const DriverFacts kEmbedded = Facts("SQLite", false);
const DriverFacts kPostgreSQL = Facts("PostgreSQL", true);
const DriverFacts kMariaDB = Facts("MariaDB", true);

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
  EXPECT_STREQ(SessionSetup(DriverFacts(), 15), "");
  EXPECT_EQ(SessionProof(DriverFacts()), nullptr);
  EXPECT_STREQ(SessionSetup(kEmbedded, 15), "");
  EXPECT_STREQ(SessionSetup(kPostgreSQL, 0), "SET standard_conforming_strings = on");
  for (const char* dbms : {"MariaDB", "MySQL"}) {
    const DriverFacts facts = Facts(dbms, true);
    EXPECT_STREQ(
        SessionSetup(facts, 0),
        "SET SESSION sql_mode = CONCAT(@@SESSION.sql_mode, ',NO_BACKSLASH_ESCAPES,STRICT_ALL_TABLES')");
    EXPECT_STREQ(SessionProof(facts), "SELECT CHAR_LENGTH('a\\b')");
  }
}

TEST(Dialect, AStatementsLimitIsSetTogetherWithTheSession) {
  const std::string postgresql(SessionSetup(kPostgreSQL, 15).View());
  EXPECT_TRUE(postgresql.ends_with(" = on; SET SESSION statement_timeout = 15000")) << postgresql;
  const std::string mariadb(SessionSetup(Facts("MariaDB", true), 15).View());
  EXPECT_TRUE(mariadb.ends_with("'), SESSION max_statement_time = 15")) << mariadb;
  const std::string mysql(SessionSetup(Facts("MySQL", true), 15).View());
  EXPECT_TRUE(mysql.ends_with("STRICT_ALL_TABLES')")) << mysql;  // knows no such limit
  EXPECT_STREQ(StatementLimit(kPostgreSQL, 0), "SET SESSION statement_timeout = DEFAULT");
}

TEST(Dialect, TheProofOfAnEmbeddedDatabaseReadsItsFile) {
  EXPECT_NE(std::string(SessionProof(kEmbedded)).find("'a\\b'"), std::string::npos);
  EXPECT_NE(std::string(SessionProof(kEmbedded)).find("FROM sqlite_master"), std::string::npos);
}

TEST(Dialect, TheFactsStandOnOneLine) {
  DriverFacts facts = Facts("PostgreSQL", true);
  facts.dbms_version = "15.0";
  facts.driver = "psqlodbcw.so";
  facts.driver_version = "13.02";
  facts.names = NameCase::kLower;
  facts.row_counts = true;
  EXPECT_EQ(Describe(facts),
            "database system PostgreSQL 15.0; driver psqlodbcw.so 13.02; static cursors yes; procedures yes; "
            "transactions yes; names kept in lower case; row counts trusted");
}

TEST(Dialect, WhatIsNotKnownIsDescribedByItsDefault) {
  EXPECT_EQ(Describe(DriverFacts()),
            "database system unknown; driver unknown; static cursors yes; procedures no; transactions no; "
            "names kept as they are given; row counts checked when none");
}

TEST(Dialect, YearsOfLiteralsGetFourDigits) {
  EXPECT_STREQ(PadYears("(tPatDBirthday={d '   5-01-01'}) AND (tImgTs<{ts ' 999-12-31 23:59:59'})"),
               "(tPatDBirthday={d '0005-01-01'}) AND (tImgTs<{ts '0999-12-31 23:59:59'})");
  EXPECT_STREQ(PadYears("x={d '2001-05-06'}"), "x={d '2001-05-06'}");
  EXPECT_STREQ(PadYears("x={d '  -1-01-01'}"), "x={d '  -1-01-01'}");  // no year at all: stays wrong
}

TEST(Dialect, TextsThatLookLikeDateLiteralsStayAsTheyAre) {
  for (const char* sql :
       {"x='{d ''   5-01-01''}'", "x='{d '", "x='{d ' AND y='   5'", "x='it''s {ts ''  1'", "{d '"}) {
    EXPECT_STREQ(PadYears(sql), sql);
  }
}

}  // namespace
