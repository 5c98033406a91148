// What a caller connects with stays what it is: names and passwords are values, an owner is a name.
#include <filesystem>

#include "frame/connection.h"
#include "tests/hostile/own_practice.h"
#include "tests/support/fixtures.h"

namespace hostile {
namespace {

using support::SetText;

class ConnectionValues : public support::PracticeTest {
 protected:
  WORD ConnectAs(const std::string& user, const std::string& password) {
    tagDBCONNECT parameters = m_practice.Parameters();
    SetText(parameters.szUID, user);
    SetText(parameters.szPWD, password);
    DB_CloseDatabase();
    return DB_InitDatabase(&parameters);
  }
  WORD ConnectToSource(const std::string& source) {
    tagDBCONNECT parameters = m_practice.Parameters();
    SetText(parameters.szDSN, source);
    DB_CloseDatabase();
    return DB_InitDatabase(&parameters);
  }
  // Where there are users.
  void MakeUser(const std::string& name, const std::string& password) {
    if (OnPostgresql()) {
      Raw().Exec("CREATE ROLE \"" + Twice(name, '"') + "\" LOGIN SUPERUSER PASSWORD '" +
                 Twice(password, '\'') + "'");
    }
    if (!OnMariadb()) return;
    Raw().Exec("SET SESSION sql_mode = CONCAT(@@SESSION.sql_mode, ',NO_BACKSLASH_ESCAPES')");
    for (const char* host : {"'%'", "localhost"}) {
      const std::string user = "`" + Twice(name, '`') + "`@" + host;
      Raw().Exec("CREATE OR REPLACE USER " + user + " IDENTIFIED BY '" + Twice(password, '\'') + "'");
      Raw().Exec("GRANT ALL ON *.* TO " + user);
    }
  }
  static std::string Twice(const std::string& text, char sign) {
    std::string twice;
    for (const char c : text) twice += c == sign ? std::string(2, c) : std::string(1, c);
    return twice;
  }
  // The database that the data source names, and no other.
  void ExpectRightDatabase() {
    tagDBINFO info{};
    EXPECT_EQ(DB_GetInfo(&info), 0);
    EXPECT_TRUE(m_practice.Database().starts_with(support::Text(info.szDatabase))) << info.szDatabase;
    LONG rows = 0;
    EXPECT_EQ(DB_GetNumTStat(&rows), 0);
    EXPECT_EQ(rows, 1);
  }
};

TEST_F(ConnectionValues, EveryPasswordIsAPassword) {
  int number = 0;
  for (const std::string password : {"a;b",
                                     "a}b",
                                     "{a}",
                                     "{a",
                                     "a}",
                                     "a=b",
                                     "a b",
                                     "a'b",
                                     "a\"b",
                                     "a\\b",
                                     "}",
                                     "{",
                                     "}}",
                                     "{}",
                                     "a}}b",
                                     "};UID=x",
                                     "a;UID=practice",
                                     "{a;b}",
                                     "a%3Bb",
                                     "a+b",
                                     ";",
                                     "=",
                                     "{a};Port=1",
                                     "a;Database=postgres",
                                     "a;DATABASE=mysql",
                                     "\xC3\xBC;"}) {
    SCOPED_TRACE(password);
    const std::string user = "odd" + std::to_string(++number);
    MakeUser(user, password);
    EXPECT_EQ(ConnectAs(user, password), 0);
    ExpectRightDatabase();
    EXPECT_EQ(ConnectAs(user, password + "x"), HasServer() ? 30 : 0);
    EXPECT_EQ(ConnectAs(user, "x" + password), HasServer() ? 30 : 0);
  }
}

TEST_F(ConnectionValues, EveryUserIsAUser) {
  for (const std::string user :
       {"a=b", "a b", "a'b", "a\"b", "a%b", "a+b", "a}b", "a\\b", "a@b", "a,b", "(a)", "\xC3\xBC"}) {
    SCOPED_TRACE(user);
    MakeUser(user, "secret");
    EXPECT_EQ(ConnectAs(user, "secret"), 0);
    ExpectRightDatabase();
  }
}

// The practice's own user could connect: were anything behind the semicolon an option, it would.
TEST_F(ConnectionValues, ASemicolonDoesNotEndAUser) {
  const tagDBCONNECT right = m_practice.Parameters();
  const std::string user = support::Text(right.szUID);
  for (const std::string& wrong : {"nobody;UID=" + user, "{nobody};UID=" + user, "{nobody;UID=" + user,
                                   "}nobody;UID=" + user, "x;UID=" + user + ";X={"}) {
    EXPECT_EQ(ConnectAs(wrong, support::Text(right.szPWD)), HasServer() ? 30 : 0) << wrong;
  }
  for (const std::string wrong : {"x;PWD=secret", "{x};PWD=secret", "{x;PWD=secret", "x};PWD=secret"}) {
    EXPECT_EQ(ConnectAs(user, wrong), HasServer() ? 30 : 0) << wrong;
  }
}

TEST_F(ConnectionValues, ADataSourceIsAName) {
  const std::string name = m_practice.Dsn();
  const std::vector<std::string> others = {
      name + ";X=1", "x;DSN=" + name,  "{" + name + "}", "{x};DSN=" + name,  "x;DRIVER={SQLite3}", "{", "}",
      ";",           "x};DSN=" + name, name + "{",       "x;DATABASE=/tmp/x"};
  for (const std::string& source : others) {
    EXPECT_EQ(ConnectToSource(source), 3) << source;
    EXPECT_EQ(DB_IsDatabaseOpen(), 0);
  }
  EXPECT_EQ(ConnectToSource(name), 0);
}

// Drivers do not agree on braces: they stand only where a value would not be one without them.
TEST(ConnectionText, HasBracesWhereTheyAreNeeded) {
  const struct {
    const char* user;
    const char* password;
    const char* text;
  } rows[] = {
      {"user",  "secret",  ";UID=user;PWD=secret"  },
      {"a=b c", "a=b 'c'", ";UID=a=b c;PWD=a=b 'c'"},
      {"a;b",   "a;b",     ";UID={a;b};PWD={a;b}"  },
      {"{a}",   "{a}",     ";UID={{a}}};PWD={{a}}}"},
      {"a}b",   "a}b",     ";UID=a}b;PWD={a}}b}"   },
      {"a%b",   "a%b+c",   ";UID=a%b;PWD={a%b+c}"  },
      {"u",     " p",      ";UID=u;PWD={ p}"       },
      {"u",     "};UID=x", ";UID=u;PWD={}};UID=x}" },
      {"a}};b", "",        ";UID={a}}}};b}"        },
  };
  for (const auto& row : rows) {
    CDBConnection connection;
    SetText(connection.m_Params.szUID, row.user);
    SetText(connection.m_Params.szPWD, row.password);
    EXPECT_STREQ(connection.ConnectString(), row.text);
  }
}

// --- owners ---

constexpr const char* kNoOwners[] = {
    "a'.",  "a\".",       "\"a\".", "`a`.", "a;",       "a; DROP TABLE TStation; --",
    "--",   "a--b.",      "/*",     "*/",   "a/**/.",   "#",
    "a#.",  "TStation, ", "a b.",   " ",    "(SELECT ", "{a}.",
    "}",    "a\\.",       "a?.",    "a\n.", "\t",       "a\x01.",
    "a=b.", "a|b.",       "a%s.",   "a+b.", "a*b.",     "a:b.",
    "a!.",  "x JOIN ",
};

class Owners : public support::PracticeTest {
 protected:
  Owners() : support::PracticeTest({.with_owner = true}) {}

  WORD ConnectWith(const std::string& owner) {
    tagDBCONNECT parameters = m_practice.Parameters();
    SetText(parameters.szOwner, owner);
    return DB_InitDatabase(&parameters);
  }
  static std::string OwnerInUse() {
    char owner[260] = {};
    EXPECT_EQ(DB_GetDBOwner(owner, sizeof owner), 0);
    return owner;
  }
};

TEST_F(Owners, WhatIsNoNameIsRefusedAndNothingChanges) {
  ASSERT_EQ(Connect(), 0);
  ASSERT_EQ(DB_CloseDatabase(), 0);
  for (const std::string owner : kNoOwners) {
    EXPECT_EQ(ConnectWith(owner), 1) << owner;
    EXPECT_EQ(DB_IsDatabaseOpen(), 0);
    EXPECT_EQ(OwnerInUse(), m_practice.Owner());
  }
}

TEST_F(Owners, ARefusedOneLeavesAConnectionAlone) {
  ASSERT_EQ(Connect(), 0);
  EXPECT_EQ(ConnectWith("a'."), 1);
  EXPECT_EQ(OwnerInUse(), m_practice.Owner());
  EXPECT_EQ(DB_OpenTStat(), 0);
  EXPECT_EQ(DB_CloseDatabase(), 0);
}

TEST_F(Owners, AnUnterminatedOneIsLookedAtToItsEnd) {
  tagDBCONNECT parameters = m_practice.Parameters();
  support::SetUnterminated(parameters.szOwner, 'o');
  parameters.szOwner[sizeof parameters.szOwner - 1] = '\'';
  EXPECT_EQ(DB_InitDatabase(&parameters), 1);
}

TEST_F(Owners, NamesGoThrough) {
  EXPECT_EQ(ConnectWith(m_practice.Owner()), 0);
  EXPECT_EQ(DB_OpenTStat(), 0);
  for (const char* owner : {"", "dbo.", "main.", "Practice_1.", "a.b.", "a$b.", "a@link.", "[dbo].", "a-b.",
                            "\xC3\xBC.", "no_point", "..", "9."}) {
    EXPECT_TRUE(IsOwnerPrefix(owner)) << owner;
  }
}

}  // namespace
}  // namespace hostile
