#include "platform/log.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

namespace fs = std::filesystem;

// Every test begins with the log off and leaves it so.
class LogTest : public testing::Test {
 protected:
  LogTest() : m_file(fs::temp_directory_path() / ("kyodbc-log-" + std::to_string(getpid()) + ".txt")) {
    for (const char* name : {"KYODBC_LOG", "KYODBC_LOG_FILE", "KYODBC_LOG_VALUES"}) unsetenv(name);
    klog::Reconfigure();
  }
  ~LogTest() override {
    for (const char* name : {"KYODBC_LOG", "KYODBC_LOG_FILE", "KYODBC_LOG_VALUES"}) unsetenv(name);
    klog::Reconfigure();
    std::error_code ignored;
    fs::remove(m_file, ignored);
  }
  void Configure(const char* level, const char* values = "") {
    setenv("KYODBC_LOG", level, 1);
    setenv("KYODBC_LOG_FILE", m_file.c_str(), 1);
    setenv("KYODBC_LOG_VALUES", values, 1);
    klog::Reconfigure();
  }
  std::string Written() const {
    std::ifstream file(m_file);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }
  void WriteAllLevels() {
    klog::Trace("a trace");
    klog::Debug("a debug");
    klog::Info("an info");
    klog::Warn("a warning");
    klog::Error("an error");
  }

  fs::path m_file;
};

class Masking : public LogTest {};

TEST_F(LogTest, WithoutASettingNothingIsWritten) {
  EXPECT_FALSE(klog::Enabled(klog::Level::kError));
  setenv("KYODBC_LOG_FILE", m_file.c_str(), 1);
  klog::Reconfigure();
  WriteAllLevels();
  EXPECT_FALSE(fs::exists(m_file));
}

TEST_F(LogTest, AnUnknownLevelIsOff) {
  Configure("loud");
  WriteAllLevels();
  EXPECT_FALSE(fs::exists(m_file));
}

TEST_F(LogTest, EachLevelWritesItselfAndWhatIsGraver) {
  const char* const names[] = {"trace", "debug", "info", "warn", "error"};
  const char* const texts[] = {"a trace", "a debug", "an info", "a warning", "an error"};
  for (int level = 0; level < 5; ++level) {
    fs::remove(m_file);
    Configure(names[level]);
    WriteAllLevels();
    for (int text = 0; text < 5; ++text) {
      EXPECT_EQ(Written().find(texts[text]) != std::string::npos, text >= level) << names[level];
      EXPECT_EQ(klog::Enabled(static_cast<klog::Level>(text)), text >= level) << names[level];
    }
  }
}

TEST_F(LogTest, WithoutAFileItGoesToStderr) {
  setenv("KYODBC_LOG", "error", 1);
  klog::Reconfigure();
  testing::internal::CaptureStderr();
  klog::Error("seen there");
  EXPECT_NE(testing::internal::GetCapturedStderr().find("seen there"), std::string::npos);
}

TEST_F(LogTest, AFileThatCannotBeOpenedIsReplacedByStderr) {
  setenv("KYODBC_LOG", "error", 1);
  setenv("KYODBC_LOG_FILE", "/proc/no/such/folder/log.txt", 1);
  testing::internal::CaptureStderr();
  klog::Reconfigure();
  klog::Error("seen there");
  EXPECT_NE(testing::internal::GetCapturedStderr().find("seen there"), std::string::npos);
}

TEST_F(LogTest, TextsWithBracesAreWrittenAsTheyAre) {
  Configure("error");
  klog::Error("{call p} {} {0}");
  EXPECT_NE(Written().find("{call p} {} {0}"), std::string::npos);
}

TEST_F(LogTest, AStatementIsWrittenAtDebugWithItsTimeAndWithoutItsValues) {
  Configure("debug");
  klog::Statement("SELECT a FROM t WHERE b='Meier'", std::chrono::microseconds(1234));
  EXPECT_NE(Written().find("1234 us: SELECT a FROM t WHERE b='?'"), std::string::npos) << Written();
}

TEST_F(LogTest, ACaughtExceptionIsWrittenWithStateNativeCodeMessageAndCode) {
  Configure("error");
  auto* exception =
      new CDBException(SQL_ERROR, "no such table: TFoo", "State:S0002,Native:1,Origin:[driver]");
  EXPECT_EQ(klog::Caught(exception, 31), 31);
  const std::string line = Written();
  for (const char* part : {"code 31", "no such table: TFoo", "State:S0002", "Native:1"}) {
    EXPECT_NE(line.find(part), std::string::npos) << part << " in " << line;
  }
}

TEST_F(LogTest, OnlyAConflictOfTwoChangesIsSaidToBeWorthAnotherTry) {
  constexpr std::string_view kTryAgain = "a conflict with another change, which may be tried again";
  Configure("error");
  for (const char* state : {"40001", "40P01", "40003", "23000"}) {
    const std::size_t before = Written().size();
    klog::Caught(new CDBException(SQL_ERROR, "refused",
                                  (std::string("State:") + state + ",Native:1,Origin:[x]\n").c_str()),
                 6);
    const bool told = Written().find(kTryAgain, before) != std::string::npos;
    EXPECT_EQ(told, std::string_view(state) == "40001" || std::string_view(state) == "40P01") << state;
  }
}

TEST_F(LogTest, ACaughtExceptionIsDeletedWhetherItIsWrittenOrNot) {
  auto* exception = new CDBException(SQL_ERROR, "message", "");
  EXPECT_EQ(klog::Caught(exception, 3), 3);  // the leak checker tells if it was not
  Configure("error");
  EXPECT_EQ(klog::Caught(new CDBException(AFX_SQL_ERROR_ILLEGAL_MODE, "message", ""), 6), 6);
}

TEST_F(Masking, LiteralsAndNumbersOfAStatementAreHidden) {
  const struct {
    const char* sql;
    const char* masked;
  } cases[] = {
      {"SELECT a FROM t",                       "SELECT a FROM t"                    },
      {"x='Meier'",                             "x='?'"                              },
      {"x='O''Neil' AND y=''",                  "x='?' AND y='?'"                    },
      {"x=12 AND y=-3.5",                       "x=? AND y=-?"                       },
      {"x=0x4A OR x=1e5",                       "x=? OR x=?"                         },
      {"T1.c2=3",                               "T1.c2=?"                            },
      {"d={d '2001-05-06'}",                    "d={d '?'}"                          },
      {"t={ts '2001-05-06 10:00:00'} OR u='a'", "t={ts '?'} OR u='?'"                },
      {"x='never closed",                       "x='?'"                              },
      {"x='O'Neil' AND y=1",                    "x='?'"                              },
      {"x='O'Ne'il' AND y=1",                   "x='?' AND y=?"                      },
      {"x='O' Neil' AND y=1",                   "x='?'"                              },
      {"x=\"Meier\"",                           "x='?'"                              },
      {"x='\xC3\xBC?'",                         "x='?'"                              },
      {"INSERT INTO t (a,b) VALUES (?,?)",      "INSERT INTO t (a,b) VALUES (?,?)"   },
      {"SELECT a FROM t WHERE k IN (1,2,30) ",  "SELECT a FROM t WHERE k IN (?,?,?) "},
      {"",                                      ""                                   },
  };
  for (const auto& row : cases) EXPECT_EQ(klog::MaskedSQL(row.sql), row.masked) << row.sql;
}

TEST_F(Masking, WhatAMessageQuotesIsHidden) {
  const struct {
    const char* message;
    const char* masked;
  } cases[] = {
      {"no such table: TFoo (1)",                                       "no such table: TFoo (1)"                 },
      {"near \"Meier\": syntax error (1)",                              "near '?': syntax error (1)"              },
      {"You have an error near 'Meier' at line 1",                      "You have an error near '?' at line 1"    },
      {"You have an error near ''Meier' AND x='Huber'' at line 1",      "You have an error near '?' at line 1"    },
      {"near 'O'Neil' at line 1",                                       "near '?' at line 1"                      },
      {"unrecognized token: \"'O\"",                                    "unrecognized token: '?'"                 },
      {"Can't connect to the server on 'host' (115)",                   "Can't connect to the server on '?' (115)"},
      {"The host doesn't answer",                                       "The host doesn't answer"                 },
      {"Duplicate entry 'Meier' for key 'name'",                        "Duplicate entry '?'"                     },
      {"near 'Meier",                                                   "near '?'"                                },
      {"Key (tpatsname, tpatsfirstname)=(Meier, Hans) already exists.", "Key (?) already exists."                 },
      {"Key (a)=(Mei)er) exists",                                       "Key (?) exists"                          },
      {"Key (a)=(Meier",                                                "Key (?)"                                 },
      {"'",                                                             "'?'"                                     },
      {"",                                                              ""                                        },
  };
  for (const auto& row : cases)
    EXPECT_EQ(klog::MaskedMessage("HY000", row.message), row.masked) << row.message;
}

TEST_F(Masking, MessagesOfMissingTablesAndColumnsKeepTheirNames) {
  for (const char* state : {"42S02", "42S22", "42P01", "42703"}) {
    EXPECT_EQ(klog::MaskedMessage(state, "relation \"tfoo\" does not exist"),
              "relation \"tfoo\" does not exist");
  }
  EXPECT_EQ(klog::MaskedMessage("42000", "relation \"tfoo\" does not exist"), "relation '?' does not exist");
}

TEST_F(Masking, ValuesAreShownWhenAskedForAndOnlyThen) {
  Configure("debug", "1");
  EXPECT_EQ(klog::MaskedSQL("x='Meier' AND y=5"), "x='Meier' AND y=5");
  EXPECT_EQ(klog::MaskedMessage("HY000", "near 'Meier'"), "near 'Meier'");
  for (const char* other : {"0", "yes", "11"}) {
    Configure("debug", other);
    EXPECT_EQ(klog::MaskedSQL("x='Meier' AND y=5"), "x='?' AND y=?");
  }
}

}  // namespace
