// Everything that these tests do is logged, and no log has a patient's value or the password in it.
#include "tests/faults/searched_log.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <string>

#include "tests/faults/connection.h"
#include "tests/faults/scenario.h"
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

std::set<std::string> AllSecrets() {
  std::set<std::string> texts = {kChangedText, kChangedTextToo, kCompactName, kCompactFirstname,
                                 kDirectText,  kSettingValue,   "1961-03-03"};
  Append<family::Doctors>(&texts);
  Append<family::Stations>(&texts);
  Append<family::Units>(&texts);
  Append<family::Patients>(&texts);
  for (const int number : {1, 2, 3, 5, 7, 9}) {
    const TIMESTAMP_STRUCT birthday = family::Patients::Fill(number).dBirthday;
    texts.insert(support::TimeText(birthday).substr(0, 10));
  }
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

const std::set<std::string>& Secrets() {
  static const std::set<std::string> secrets = AllSecrets();
  return secrets;
}

fs::path LogFile(const support::OdbcHome& home) { return home.Folder() / "faults.log"; }

// Looks into the log after each test and empties it: all runs together fill gigabytes.
class SearchedLog : public testing::EmptyTestEventListener {
 public:
  SearchedLog() {
    setenv("KYODBC_LOG", "trace", 1);
    setenv("KYODBC_LOG_FILE", m_file.c_str(), 1);
  }
  void OnTestEnd(const testing::TestInfo&) override {
    if (!fs::exists(m_file)) return;
    const std::string log = FileText(m_file);
    const std::string secret = SecretIn(log);
    EXPECT_EQ(secret, "") << "in ..." << Around(log, log.find(secret));
    fs::resize_file(m_file, 0);
  }

 private:
  static std::string Around(const std::string& text, std::size_t at) {
    constexpr std::size_t kAround = 200;
    return text.substr(at > kAround ? at - kAround : 0, 2 * kAround);
  }

  std::shared_ptr<support::OdbcHome> m_home = support::OdbcHome::Hold();
  const fs::path m_file = LogFile(*m_home);
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
  for (const char* text : {"Surname 1", "Changed7", "1961-03-03"})
    EXPECT_EQ(SecretIn(std::string("x") + text), text);
}

}  // namespace

std::string SecretIn(const std::string& text) {
  for (const std::string& secret : Secrets()) {
    if (text.find(secret) != text.npos) return secret;
  }
  return {};
}

}  // namespace faults
