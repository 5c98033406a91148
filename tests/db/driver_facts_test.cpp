// What each database and its driver tell at connect, and what connecting leaves alone.
#include <unistd.h>

#include <chrono>
#include <clocale>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>

#include "platform/log.h"
#include "tests/db/toy_set.h"
#include "tests/support/broken_source.h"
#include "tests/support/silent_listener.h"

namespace {

using support::BrokenSource;
using toys::Catch;
using toys::CodeOf;
using toys::ToySet;

struct Reported {
  const char* kind;
  const char* facts;  // a pattern
};

constexpr Reported kReported[] = {
    {"SQLite3",
     "database system SQLite 3\\.[0-9.]+; driver (lib)?sqlite3odbc\\.so 0\\.[0-9]+; static cursors yes; "
     "procedures no; transactions yes; names kept as they are given; row counts checked when none"},
    {"PostgreSQL",
     "database system PostgreSQL [0-9.]+; driver psqlodbcw\\.so [0-9.]+; static cursors yes; "
     "procedures yes; transactions yes; names kept in lower case; row counts trusted"             },
    {"MariaDB",
     "database system MariaDB [0-9.]+; driver libmaodbc\\.so [0-9.]+; static cursors yes; "
     "procedures yes; transactions yes; names kept as they are given; row counts trusted"         },
};

const char* ReportedByThisKind() {
  for (const Reported& row : kReported) {
    if (support::CurrentKind().DriverName() == row.kind) return row.facts;
  }
  return "a kind without a row";
}

class FactsOfTheDriver : public toys::ToyTest {
 protected:
  std::string ConnectTo(const std::string& dsn, const std::string& password) const {
    return "DSN=" + dsn + ";UID=" + support::CurrentKind().User() + ";PWD=" + password;
  }
  std::string LogOf(const char* level, const std::function<void()>& action) {
    const std::string file = m_practice.Folder() / "log.txt";
    setenv("KYODBC_LOG", level, 1);
    setenv("KYODBC_LOG_FILE", file.c_str(), 1);
    klog::Reconfigure();
    action();
    unsetenv("KYODBC_LOG");
    unsetenv("KYODBC_LOG_FILE");
    klog::Reconfigure();
    std::ifstream log(file);
    return {std::istreambuf_iterator<char>(log), {}};
  }
};

TEST_F(FactsOfTheDriver, AreThoseOfThisDatabase) {
  const std::string facts = m_database.DescribeDriver().GetString();
  EXPECT_TRUE(std::regex_match(facts, std::regex(ReportedByThisKind()))) << facts;
}

TEST_F(FactsOfTheDriver, RowCountsOfOneDriverAreTrustedOnlyWhenItCountsRowsFound) {
  const BrokenSource source(m_practice, {
                                            {"OPTION", "0"}
  });
  CDatabase database;
  database.OpenEx(ConnectTo(source.Dsn(), support::CurrentKind().Password()).c_str());
  const bool trusted = database.DescribeDriver().Find("row counts trusted") >= 0;
  EXPECT_EQ(trusted, support::CurrentKind().DriverName() == "PostgreSQL");
}

TEST_F(FactsOfTheDriver, StandOnOneLineOfTheLogAtLevelInfo) {
  const std::string log = LogOf("info", [&] { m_database.OpenEx(Connect()); });
  const std::string expected = " info: connected to DSN=" + m_practice.Dsn();
  EXPECT_NE(log.find(expected), std::string::npos) << log;
  EXPECT_NE(log.find(": " + std::string(m_database.DescribeDriver()) + "\n"), std::string::npos) << log;
}

TEST_F(FactsOfTheDriver, AFailedConnectionIsLoggedWithSourceStateAndNativeCodeAndWithoutThePassword) {
  const std::string password = "wr0ng-marker";
  const std::string log = LogOf("error", [&] {
    CodeOf([&] { m_database.OpenEx(ConnectTo("NoSuchSource", password).c_str()); });
    CodeOf([&] { m_database.OpenEx(ConnectTo(m_practice.Dsn(), password).c_str()); });
  });
  EXPECT_NE(log.find("error: cannot connect to DSN=NoSuchSource"), std::string::npos) << log;
  EXPECT_NE(log.find(": IM002 0 "), std::string::npos) << log;
  EXPECT_EQ(log.find(password), std::string::npos) << log;
  if (support::CurrentKind().Password().empty()) return;
  EXPECT_TRUE(std::regex_search(
      log, std::regex("cannot connect to DSN=" + m_practice.Dsn() + ".*: (08001 101|28000 1045) ")))
      << log;
}

class LocaleOfTheProcess : public FactsOfTheDriver {
 protected:
  LocaleOfTheProcess() { m_database.Close(); }
  ~LocaleOfTheProcess() override { std::setlocale(LC_ALL, "C"); }
};

TEST_F(LocaleOfTheProcess, StaysAsItWasAndTextsComeBackUnchanged) {
  const std::string texts[] = {"Müller-Łęcki", "田中 太郎", "Ω≈ç√ 🦷", std::string(200, 'x') + "äöü"};
  for (const char* locale : {"C", "C.UTF-8"}) {
    ASSERT_NE(std::setlocale(LC_ALL, locale), nullptr);
    ASSERT_TRUE(m_database.OpenEx(Connect()));
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), locale);
    m_raw.Exec("DELETE FROM Toy");
    ToySet set(&m_database);
    set.Open();
    LONG id = 0;
    for (const std::string& text : texts) {
      set.AddNew();
      set.m_id = ++id;
      set.m_name = text.c_str();
      set.Update();
      EXPECT_EQ(StoredText("tToyName", id), text) << locale;
      set.m_strFilter = ("tToyName='" + text + "'").c_str();
      set.Requery();
      ASSERT_FALSE(set.IsEOF()) << locale << ": " << text;
      EXPECT_EQ(std::string(set.m_name), text) << locale;
    }
    set.Close();
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), locale);
    m_database.Close();
  }
}

TEST_F(LocaleOfTheProcess, StaysAsItWasWhenConnectingFails) {
  ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
  CodeOf([&] { m_database.OpenEx(ConnectTo("NoSuchSource", "x").c_str()); });
  CodeOf([&] { m_database.OpenEx(ConnectTo(m_practice.Dsn(), "wrong").c_str()); });
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

class SilentServer : public FactsOfTheDriver {
 protected:
  // Connects to a server that never answers, and tells the code and the time.
  RETCODE CodeWithin(DWORD timeout, const support::Options& options, double* seconds) {
    support::Options changed = options;
    changed.emplace_back("Port", m_listener.Port());
    const BrokenSource source(m_practice, changed);
    CDatabase database;
    database.SetLoginTimeout(timeout);
    const auto start = std::chrono::steady_clock::now();
    const RETCODE code =
        CodeOf([&] { database.OpenEx(ConnectTo(source.Dsn(), "secret").c_str(), CDatabase::noOdbcDialog); });
    *seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_EQ(database.IsOpen() != FALSE, code == 0);
    return code;
  }
  // A database without a server ignores the port.
  bool m_has_server = support::HasServer(m_practice);
  support::SilentListener m_listener;
};

TEST_F(SilentServer, IsGivenUpWithinTheLoginTimeOut) {
  double seconds = 0;
  const RETCODE code = CodeWithin(2, {}, &seconds);
  EXPECT_EQ(code, m_has_server ? AFX_SQL_ERROR_CONNECT_FAIL : RETCODE{0});
  EXPECT_LT(seconds, 4.0);
  EXPECT_GT(seconds, m_has_server ? 1.0 : 0.0);
}

// Only the driver that ignores the time-out of the library has one of the data source.
TEST_F(SilentServer, AShorterTimeOutOfTheDataSourceIsKept) {
  double seconds = 0;
  const RETCODE code = CodeWithin(6,
                                  {
                                      {"CONN_TIMEOUT", "2"}
  },
                                  &seconds);
  EXPECT_EQ(code, m_has_server ? AFX_SQL_ERROR_CONNECT_FAIL : RETCODE{0});
  EXPECT_GT(seconds, m_has_server ? 1.0 : 0.0);
  EXPECT_LT(seconds, support::CurrentKind().DriverName() == "MariaDB" ? 4.5 : 8.0);
}

TEST_F(SilentServer, ALongerTimeOutOfTheDataSourceDoesNotHold) {
  double seconds = 0;
  const RETCODE code = CodeWithin(2,
                                  {
                                      {"CONN_TIMEOUT", "60"}
  },
                                  &seconds);
  EXPECT_EQ(code, m_has_server ? AFX_SQL_ERROR_CONNECT_FAIL : RETCODE{0});
  EXPECT_GT(seconds, m_has_server ? 1.0 : 0.0);
  EXPECT_LT(seconds, 5.0);
}

}  // namespace
