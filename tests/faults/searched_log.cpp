// Everything that these tests do is logged, and no log has a patient's value or the password in it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <string>

#include "tests/faults/connection.h"
#include "tests/flat/text_fields.h"
#include "tests/support/database_kind.h"
#include "tests/support/odbc_home.h"

namespace faults {
namespace {

namespace fs = std::filesystem;

std::string FileText(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The texts of the records that scenarios work with. Shorter ones may be part of anything.
template <class Table>
void Append(std::set<std::string>* texts) {
  constexpr int kRecords = 9;
  constexpr std::size_t kTelling = 6;
  for (int number = 1; number <= kRecords; ++number) {
    const auto record = Table::Fill(number);
    for (const auto& field : family::TextFields<typename Table::Record>()) {
      const std::string text = field.Get(record);
      if (text.size() >= kTelling) texts->insert(text);
    }
  }
}

std::set<std::string> Secrets() {
  std::set<std::string> texts;
  Append<family::Doctors>(&texts);
  Append<family::Stations>(&texts);
  Append<family::Units>(&texts);
  Append<family::Patients>(&texts);
  Append<family::Images>(&texts);
  Append<family::Makros>(&texts);
  Append<family::Groups>(&texts);
  Append<family::Diagnoses>(&texts);
  Append<family::Configs>(&texts);
  Append<family::Tests>(&texts);
  const std::string password = support::CurrentKind().Password();
  texts.insert(password.empty() ? kNeedlessPassword : password);
  return texts;
}

fs::path LogFile(const support::OdbcHome& home) { return home.Folder() / "faults.log"; }

// Looks into the log after each test and empties it: all runs together fill gigabytes.
class SearchedLog : public testing::EmptyTestEventListener {
 public:
  SearchedLog() {
    setenv("KYODBC_LOG", "debug", 1);
    setenv("KYODBC_LOG_FILE", m_file.c_str(), 1);
  }
  void OnTestEnd(const testing::TestInfo&) override {
    if (!fs::exists(m_file)) return;
    const std::string log = FileText(m_file);
    for (const std::string& secret : m_secrets) ExpectNot(secret, log);
    fs::resize_file(m_file, 0);
  }

 private:
  static void ExpectNot(const std::string& secret, const std::string& log) {
    constexpr std::size_t kAround = 200;
    const std::size_t at = log.find(secret);
    EXPECT_EQ(at, std::string::npos) << secret << " in ..."
                                     << log.substr(at > kAround ? at - kAround : 0,
                                                   at == std::string::npos ? 0 : 2 * kAround);
  }

  std::shared_ptr<support::OdbcHome> m_home = support::OdbcHome::Hold();
  const fs::path m_file = LogFile(*m_home);
  const std::set<std::string> m_secrets = Secrets();
};

// Before the first test: the library reads its settings once.
class Logging : public testing::Environment {
 public:
  void SetUp() override { testing::UnitTest::GetInstance()->listeners().Append(new SearchedLog); }
};
[[maybe_unused]] const auto* const the_logging = testing::AddGlobalTestEnvironment(new Logging);

// So that the search is known to have something to search, and for.
TEST(SearchedLogs, AreWrittenWhileCallsAreMade) {
  const support::Practice practice;
  const FaultSource source(practice);
  UseSource(source);
  ASSERT_EQ(Connect(), 0);
  EXPECT_EQ(DB_OpenTPat(), 0);
  EXPECT_EQ(DB_CloseDatabase(), 0);
  const std::string log = FileText(LogFile(*support::OdbcHome::Hold()));
  EXPECT_NE(log.find("connected to DSN="), std::string::npos) << log;
  EXPECT_NE(log.find("FROM TPatient"), std::string::npos) << log;
  EXPECT_TRUE(Secrets().contains("Surname 1"));
}

}  // namespace
}  // namespace faults
