// What is found out about a driver at connect, and what holds when the driver cannot tell.
#include "platform/connect_text.h"
#include "platform/dialect.h"
#include "platform/odbc.h"
#include "tests/scripted/play_set.h"

namespace {

using scripted::Catch;
using scripted::PlaySet;
using scripted::PlayTest;
using scripted::TheScript;

class Facts : public PlayTest {
 protected:
  static DriverFacts Read(bool found_rows = false) {
    odbc::Connection connection;
    connection.Allocate();
    connection.Connect("DSN=a");
    return ReadFacts(connection, found_rows);
  }
};

TEST_F(Facts, AreWhatTheDriverTells) {
  TheScript().dbms = "PostgreSQL";
  TheScript().procedures = true;
  TheScript().identifier_case = SQL_IC_LOWER;
  const DriverFacts facts = Read();
  EXPECT_EQ(facts.dbms, "PostgreSQL");
  EXPECT_EQ(facts.dbms_version, "played");
  EXPECT_EQ(facts.driver, "played");
  EXPECT_EQ(facts.driver_version, "played");
  EXPECT_TRUE(facts.static_cursors);
  EXPECT_TRUE(facts.procedures);
  EXPECT_TRUE(facts.transactions);
  EXPECT_EQ(facts.names, NameCase::kLower);
  EXPECT_TRUE(facts.row_counts);
}

TEST_F(Facts, TheEmbeddedDatabasesDriverIsNotBelievedAboutTheCaseOfNames) {
  TheScript().dbms = "SQLite";
  TheScript().identifier_case = SQL_IC_SENSITIVE;
  EXPECT_EQ(Read().names, NameCase::kMixed);
}

TEST_F(Facts, EveryCaseOfNamesIsKnown) {
  TheScript().dbms = "Unheard-of";
  const struct {
    SQLUSMALLINT told;
    NameCase names;
  } cases[] = {
      {SQL_IC_UPPER,     NameCase::kUpper    },
      {SQL_IC_LOWER,     NameCase::kLower    },
      {SQL_IC_SENSITIVE, NameCase::kSensitive},
      {SQL_IC_MIXED,     NameCase::kMixed    },
      {77,               NameCase::kMixed    },
  };
  for (const auto& row : cases) {
    TheScript().identifier_case = row.told;
    EXPECT_EQ(Read().names, row.names) << row.told;
  }
}

TEST_F(Facts, RowCountsAreTrustedOnlyWhereADriverCountsTheRowsFound) {
  const struct {
    const char* dbms;
    bool asked;
    bool trusted;
  } cases[] = {
      {"SQLite",     false, false},
      {"SQLite",     true,  false},
      {"PostgreSQL", false, true },
      {"MariaDB",    false, false},
      {"MariaDB",    true,  true },
      {"MySQL",      true,  true },
      {"Unheard-of", true,  false},
  };
  for (const auto& row : cases) {
    TheScript().dbms = row.dbms;
    EXPECT_EQ(Read(row.asked).row_counts, row.trusted) << row.dbms;
  }
}

TEST_F(Facts, EachHasItsFallback) {
  TheScript().dbms = "PostgreSQL";
  TheScript().procedures = true;
  TheScript().identifier_case = SQL_IC_UPPER;
  TheScript().scroll_options = SQL_SO_FORWARD_ONLY;
  TheScript().untold = {SQL_DBMS_NAME};
  EXPECT_EQ(Read().dbms, "");
  EXPECT_FALSE(Read().row_counts);
  TheScript().untold = {SQL_DBMS_VER};
  EXPECT_EQ(Read().dbms_version, "");
  TheScript().untold = {SQL_DRIVER_NAME};
  EXPECT_EQ(Read().driver, "");
  TheScript().untold = {SQL_DRIVER_VER};
  EXPECT_EQ(Read().driver_version, "");
  EXPECT_FALSE(Read().static_cursors);
  TheScript().untold = {SQL_SCROLL_OPTIONS};
  EXPECT_TRUE(Read().static_cursors);
  TheScript().untold = {SQL_PROCEDURES};
  EXPECT_FALSE(Read().procedures);
  TheScript().untold = {SQL_TXN_CAPABLE};
  EXPECT_FALSE(Read().transactions);
  TheScript().untold = {SQL_IDENTIFIER_CASE};
  EXPECT_EQ(Read().names, NameCase::kMixed);
}

TEST_F(Facts, ADriverThatTellsNothingCanBeBrowsedButHasNoTransactions) {
  TheScript().untold = {SQL_DBMS_NAME,      SQL_DBMS_VER,   SQL_DRIVER_NAME, SQL_DRIVER_VER,
                        SQL_SCROLL_OPTIONS, SQL_PROCEDURES, SQL_TXN_CAPABLE, SQL_IDENTIFIER_CASE};
  CDatabase database;
  EXPECT_TRUE(database.OpenEx("DSN=a"));
  EXPECT_FALSE(database.CanTransact());
  PlaySet set(&database);
  EXPECT_TRUE(set.Open());
  EXPECT_EQ(set.m_id, 1);
  EXPECT_STREQ(database.DescribeDriver(), Describe(DriverFacts()).c_str());
  database.Close();
  EXPECT_STREQ(database.DescribeDriver(), "");
}

TEST_F(Facts, AFileThatCannotBeReadAsADatabaseIsNotConnectedTo) {
  TheScript().dbms = "SQLite";
  TheScript().Answer("SQLExecDirect",
                     {
                         SQL_ERROR
  },
                     {{"HY000", 26, "[SQLite]file is not a database"}});
  CDatabase database;
  EXPECT_EQ(Catch([&] { database.OpenEx("DSN=a"); }).code, SQL_ERROR);
  EXPECT_FALSE(database.IsOpen());
}

class LoginTimeout : public PlayTest {
 protected:
  LoginTimeout() {
    TheScript().ini = {
        {"odbc.ini/my/Driver",          "Ours"                  },
        {"odbc.ini/my/OPTION",          "2"                     },
        {"odbc.ini/file/Driver",        "/lib/libmaodbc.so"     },
        {"odbc.ini/short/Driver",       "Ours"                  },
        {"odbc.ini/short/CONN_TIMEOUT", "20"                    },
        {"odbc.ini/tall/Driver",        "Ours"                  },
        {"odbc.ini/tall/CONN_TIMEOUT",  "31"                    },
        {"odbc.ini/tall/OPTION",        "67108872"              },
        {"odbc.ini/zero/Driver",        "Ours"                  },
        {"odbc.ini/zero/CONN_TIMEOUT",  "0"                     },
        {"odbc.ini/lite/Driver",        "SQLite3"               },
        {"odbc.ini/pg/Driver",          "Wide"                  },
        {"odbcinst.ini/Ours/Driver",    "/old/other.so"         },
        {"odbcinst.ini/Ours/Driver64",  "/lib/libmaodbc.so"     },
        {"odbcinst.ini/SQLite3/Driver", "/lib/libsqlite3odbc.so"},
        {"odbcinst.ini/Wide/Driver",    "/lib/psqlodbcw.so"     },
    };
  }
};

TEST_F(LoginTimeout, IsAddedForTheDriverThatIgnoresTheOneOfTheHandle) {
  for (const char* text :
       {"DSN=my;UID=u;PWD=p", "dsn = my ", "DSN={my};PWD={a;b", "DSN=file", "DRIVER=Ours;PORT=1",
        "DRIVER={Ours}", "driver=/lib/libmaodbc.so", "DSN=tall", "DSN=zero"}) {
    EXPECT_EQ(std::string(WithLoginTimeout(text, 30)), std::string("CONN_TIMEOUT=30;") + text);
  }
}

TEST_F(LoginTimeout, IsLeftToDriversThatKeepTheOneOfTheHandleAndToWhoSetsAShorterOne) {
  for (const char* text : {"DSN=lite", "DSN=pg;UID=u", "DSN=unknown", "DRIVER=SQLite3;Database=libmaodbc", "",
                           "nonsense", "DSN=short", "DSN=my;conn_timeout=99", "UID=u;PWD=p"}) {
    EXPECT_EQ(std::string(WithLoginTimeout(text, 30)), text);
  }
  EXPECT_STREQ(WithLoginTimeout("DSN=my", 0), "DSN=my");
  EXPECT_STREQ(WithLoginTimeout("DSN=tall", 31), "DSN=tall");
}

class SilenceLimit : public LoginTimeout {};

TEST_F(SilenceLimit, IsAddedForTheDriversThatHaveOne) {
  for (const char* text : {"DSN=my;UID=u;PWD=p", "DSN=file", "DRIVER={Ours}"}) {
    EXPECT_EQ(std::string(WithSilenceLimit(text, 20)), std::string("READ_TIMEOUT=20;") + text);
  }
  EXPECT_STREQ(WithSilenceLimit("DSN=pg", 20),
               "pqopt={keepalives_idle=10 keepalives_interval=5 tcp_user_timeout=20000};DSN=pg");
  EXPECT_STREQ(WithSilenceLimit("DSN=pg", 1),
               "pqopt={keepalives_idle=1 keepalives_interval=1 tcp_user_timeout=1000};DSN=pg");
}

TEST_F(SilenceLimit, IsLeftToWhoHasChosenOneAndToOtherDrivers) {
  TheScript().ini["odbc.ini/patient/Driver"] = "Ours";
  TheScript().ini["odbc.ini/patient/READ_TIMEOUT"] = "0";
  TheScript().ini["odbc.ini/alive/Driver"] = "Wide";
  TheScript().ini["odbc.ini/alive/KeepaliveTime"] = "60";
  for (const char* text : {"DSN=lite", "DSN=unknown", "", "DSN=patient", "DSN=my;read_timeout=5", "DSN=alive",
                           "DSN=pg;pqopt={keepalives=0}", "DSN=pg;KeepaliveInterval=3"}) {
    EXPECT_STREQ(WithSilenceLimit(text, 20), text);
  }
  EXPECT_STREQ(WithSilenceLimit("DSN=my", 0), "DSN=my");
  EXPECT_STREQ(WithSilenceLimit("DSN=pg", 0), "DSN=pg");
}

TEST_F(LoginTimeout, OfTheDatabaseIsWhatTheDriverIsTold) {
  CDatabase database;
  database.SetLoginTimeout(30);
  database.OpenEx("ODBC;DSN=my;UID=u;PWD=p");
  EXPECT_EQ(TheScript().connection_string, "READ_TIMEOUT=20;CONN_TIMEOUT=30;DSN=my;UID=u;PWD=p");
  EXPECT_STREQ(database.GetConnect(), "DSN=my;UID=u");
}

TEST_F(LoginTimeout, RowsFoundAreAskedForByTheStringOrTheDataSource) {
  EXPECT_TRUE(AsksForFoundRows("DSN=my"));
  EXPECT_TRUE(AsksForFoundRows("DSN=lite;OPTION=3"));
  EXPECT_FALSE(AsksForFoundRows("DSN=my;option=1"));
  EXPECT_FALSE(AsksForFoundRows("DSN=tall"));
  EXPECT_FALSE(AsksForFoundRows("DSN=lite"));
  EXPECT_FALSE(AsksForFoundRows(""));
}

TEST_F(LoginTimeout, AnOptionIsTheNumberThatItsTextBeginsWith) {
  EXPECT_TRUE(AsksForFoundRows("DSN=lite;OPTION= 3 "));
  EXPECT_TRUE(AsksForFoundRows("DSN=lite;OPTION=3rows"));
  EXPECT_FALSE(AsksForFoundRows("DSN=lite;OPTION=rows3"));
  EXPECT_FALSE(AsksForFoundRows("DSN=lite;OPTION=99999999999999999999"));
}

TEST(ConnectText, PartsAreFoundWithoutRegardToCaseBlanksAndBraces) {
  EXPECT_STREQ(ConnectPart("DSN=a;UID=b", "uid"), "b");
  EXPECT_STREQ(ConnectPart("DSN=a; Uid = b ;X=c", "UID"), "b");
  EXPECT_STREQ(ConnectPart("DSN={a b}", "DSN"), "a b");
  EXPECT_STREQ(ConnectPart("DSN={", "DSN"), "{");
  EXPECT_STREQ(ConnectPart("PWD=a=b", "PWD"), "a=b");
  for (const char* text : {"", ";", "DSN", "DSN=", "XDSN=a", "UID=DSN=a"}) {
    EXPECT_STREQ(ConnectPart(text, "DSN"), "") << text;
  }
}

TEST(ConnectText, WhatStandsInBracesIsNoPart) {
  EXPECT_STREQ(ConnectPart("UID=u;PWD={a;DSN=b}", "DSN"), "");
  EXPECT_STREQ(ConnectPart("UID=u;PWD={a;b};DSN=c", "PWD"), "a;b");
  EXPECT_STREQ(ConnectPart("UID=u;PWD={a;b};DSN=c", "DSN"), "c");
  EXPECT_STREQ(ConnectPart("PWD= {a}};DSN=b}}};DSN=c", "PWD"), "a};DSN=b}");
  EXPECT_STREQ(ConnectPart("PWD= {a}};DSN=b}}};DSN=c", "DSN"), "c");
  EXPECT_STREQ(ConnectPart("PWD={never;DSN=ended", "DSN"), "");
  EXPECT_STREQ(ConnectPart("PWD=a{b;DSN=c", "DSN"), "c");
  EXPECT_STREQ(HarmlessParts("DSN=d;PWD={a;UID=secret};UID={u;v}"), "DSN=d;UID={u;v}");
  EXPECT_STREQ(HarmlessParts("DSN=d;PWD={a;UID=secret"), "DSN=d");
}

}  // namespace
