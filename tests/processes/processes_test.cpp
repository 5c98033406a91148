// Several programs at once on one practice, each with a library of its own.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/processes/worker_process.h"
#include "tests/support/practice.h"
#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"

namespace processes {
namespace {

using namespace std::chrono_literals;

constexpr int kWriters = 4;
constexpr int kReaders = 2;
constexpr int kOperations = 60;
constexpr auto kPatience = 100s;

bool On(const char* kind) {
  const char* chosen = std::getenv("KYODBC_TEST_DB");
  return std::string(chosen != nullptr && *chosen != '\0' ? chosen : "sqlite") == kind;
}

int Rounds() {
  const char* rounds = std::getenv("KYODBC_TEST_ROUNDS");
  return rounds != nullptr ? std::max(1, std::stoi(rounds)) : 1;
}

// What a worker says it has done.
struct Account {
  std::map<int, std::string> patients;  // by key: the text in them
  std::map<int, int> images;            // by key: the patient
  std::set<int> keys;                   // of all patients it ever added
  std::map<std::string, std::string> settings;
  std::vector<std::string> failures;
  std::vector<std::string> unsure;  // what it was about to do, the parts of it
};

std::vector<std::string> Words(const std::string& line) {
  std::istringstream stream(line);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

Account Read(const std::vector<std::string>& lines) {
  Account account;
  for (const std::string& line : lines) {
    const std::vector<std::string> words = Words(line);
    const std::string& what = words.at(0);
    if (what == "?") {
      account.unsure.assign(words.begin() + 1, words.end());
      continue;
    }
    if (what == "x") account.failures.push_back(line);
    if (what == "+") {
      account.patients[std::stoi(words.at(1))] = words.at(2);
      account.keys.insert(std::stoi(words.at(1)));
    }
    if (what == "-") account.patients.erase(std::stoi(words.at(1)));
    if (what == "i") account.images[std::stoi(words.at(1))] = std::stoi(words.at(2));
    if (what == "r") {
      account.images[std::stoi(words.at(1))] = std::stoi(words.at(2));
      account.images.erase(std::stoi(words.at(3)));
    }
    if (what == "s") account.settings[words.at(1)] = words.at(2);
    // The lines behind a commit come one after the other: until they are all there nothing is sure.
    if (account.unsure.empty() || account.unsure[0] != "transaction") account.unsure.clear();
  }
  return account;
}

class Processes : public testing::Test {
 protected:
  void SetUp() override {
    Raw().Exec(
        "INSERT INTO TConfig (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet) "
        "VALUES (1, 1, 'Shared', 'none')");
  }
  support::RawOdbc& Raw() {
    if (!m_raw) m_raw = std::make_unique<support::RawOdbc>(m_practice);
    return *m_raw;
  }

  std::unique_ptr<WorkerProcess> Start(const std::vector<std::string>& role) {
    const tagDBCONNECT parameters = m_practice.Parameters();
    std::vector<std::string> arguments = {m_source, support::Text(parameters.szUID),
                                          support::Text(parameters.szPWD)};
    arguments.insert(arguments.end(), role.begin(), role.end());
    return std::make_unique<WorkerProcess>(
        m_practice.Folder() / ("worker" + std::to_string(++m_started) + ".txt"), arguments);
  }
  static std::string Name(int writer) { return "W" + std::to_string(writer); }

  void StartAll() {
    const std::string operations = std::to_string(kOperations * Rounds());
    for (int number = 1; number <= kWriters; ++number) {
      m_writers.push_back(Start({"writer", Name(number), std::to_string(number), operations}));
    }
    for (int number = 1; number <= kReaders; ++number) {
      m_readers.push_back(Start({"reader", "R", std::to_string(number), operations}));
    }
  }

  // The practice holds what this writer says and nothing else of it.
  void ExpectAccount(int writer, const Account& account) {
    SCOPED_TRACE(Name(writer));
    EXPECT_EQ(account.failures, std::vector<std::string>());
    std::map<int, std::string> stored;
    for (const support::Row& row : Raw().Query(
             "SELECT tPatCulIntPatIDPk, tPatSFirstname, tPatSExtPatID FROM TPatient WHERE tPatSName = '" +
             Name(writer) + "'")) {
      stored[std::stoi(row[0].value())] = row[1].value();
      EXPECT_EQ(row[1], row[2]) << "half a row";
    }
    EXPECT_EQ(stored, account.patients);
    for (const auto& [key, patient] : account.images) {
      EXPECT_EQ(Raw().Count("TImage", "tImgCulIntImgIDPk = " + std::to_string(key) +
                                          " AND tImgCulIntPatIDFk = " + std::to_string(patient)),
                1);
    }
    const auto own = account.settings.find(Name(writer));
    if (own != account.settings.end()) {
      EXPECT_EQ(Setting(Name(writer)), own->second);
    }
  }
  std::string Setting(const std::string& name) {
    return Raw().Text("SELECT tCfgSSet FROM TConfig WHERE tCfgSKey = '" + name + "'");
  }

  // Nobody's key is another's, and the shared setting is what one of them wrote last.
  void ExpectNoMixUp(const std::vector<Account>& accounts) {
    std::set<int> keys;
    std::set<int> images;
    std::set<std::string> shared = {"none"};
    for (const Account& account : accounts) {
      for (const int key : account.keys) EXPECT_TRUE(keys.insert(key).second) << "two have got key " << key;
      for (const auto& image : account.images) EXPECT_TRUE(images.insert(image.first).second) << image.first;
      const auto wrote = account.settings.find("Shared");
      if (wrote != account.settings.end()) shared.insert(wrote->second);
    }
    EXPECT_TRUE(shared.contains(Setting("Shared"))) << Setting("Shared");
  }

  void ExpectAllGoWell() {
    StartAll();
    std::vector<Account> accounts;
    for (const auto& writer : m_writers) {
      EXPECT_TRUE(writer->EndsWell(kPatience));
      accounts.push_back(Read(writer->Lines()));
      ExpectAccount(static_cast<int>(accounts.size()), accounts.back());
    }
    for (const auto& reader : m_readers) {
      EXPECT_TRUE(reader->EndsWell(kPatience));
      EXPECT_EQ(Read(reader->Lines()).failures, std::vector<std::string>());
    }
    ExpectNoMixUp(accounts);
    std::printf("%d writers and %d readers, %d operations each\n", kWriters, kReaders,
                kOperations * Rounds());
  }

  support::Practice m_practice;
  std::string m_source = m_practice.Dsn();
  std::vector<std::unique_ptr<WorkerProcess>> m_writers;
  std::vector<std::unique_ptr<WorkerProcess>> m_readers;

 private:
  std::unique_ptr<support::RawOdbc> m_raw;
  int m_started = 0;
};

TEST_F(Processes, WritersAndReadersAtOnceLoseNothingAndFailInNothing) { ExpectAllGoWell(); }

TEST_F(Processes, AKilledWriterLeavesWholeRowsAndTheOthersGoOn) {
  StartAll();
  // In the middle of its work, wherever that is.
  ASSERT_TRUE(m_writers[0]->HasWritten(40, kPatience));
  m_writers[0]->Kill();
  const Account killed = Read(m_writers[0]->Lines());
  for (std::size_t number = 1; number < m_writers.size(); ++number) {
    EXPECT_TRUE(m_writers[number]->EndsWell(kPatience));
    ExpectAccount(static_cast<int>(number + 1), Read(m_writers[number]->Lines()));
  }
  for (const auto& reader : m_readers) {
    EXPECT_TRUE(reader->EndsWell(kPatience));
    EXPECT_EQ(Read(reader->Lines()).failures, std::vector<std::string>());
  }
  EXPECT_EQ(Raw().Count("TPatient", "tPatSFirstname <> tPatSExtPatID"), 0);
  // What it was at when it was killed may be done or not; all before it is there.
  Account account = killed;
  if (killed.unsure.empty() || killed.unsure[0] == "nothing") ExpectAccount(1, account);
}

TEST_F(Processes, WhoCannotHaveBothPatientsGetsACodeAndHasChangedNothing) {
  Raw().Exec("INSERT INTO TPatient (tPatCulIntPatIDPk, tPatSName, tPatSFirstname) VALUES (71, 'One', 'old')");
  Raw().Exec("INSERT INTO TPatient (tPatCulIntPatIDPk, tPatSName, tPatSFirstname) VALUES (72, 'Two', 'old')");
  const auto one = Start({"two", "71", "72", "one"});
  ASSERT_TRUE(one->HasWritten(1, kPatience));
  const auto two = Start({"two", "72", "71", "two"});
  ASSERT_TRUE(two->HasWritten(1, kPatience));
  ASSERT_EQ(one->Lines()[0], "ready");
  // The embedded database lets one write at a time, so that the second cannot even begin.
  const bool began = two->Lines()[0] == "ready";
  EXPECT_EQ(began, !On("sqlite"));
  one->Go();
  if (began) two->Go();
  EXPECT_TRUE(one->EndsWell(kPatience));
  EXPECT_TRUE(two->EndsWell(kPatience));
  const std::vector<std::string> of_one = one->Lines();
  const std::vector<std::string> of_two = two->Lines();
  const std::vector<std::string> success = {"ready", "edited 0", "committed 0", "done"};
  const bool one_won = of_one == success;
  if (began) {
    EXPECT_EQ(one_won ? of_two : of_one,
              (std::vector<std::string>{"ready", "edited 6", "committed 1", "done"}));
  }
  EXPECT_EQ(one_won ? of_one : of_two, success);
  const std::string winner = one_won ? "one" : "two";
  EXPECT_EQ(Raw().Count("TPatient", "tPatSFirstname = '" + winner + "'"), 2);
}

class WithoutWriteAheadLog : public Processes {
 protected:
  // Another data source for the same file, whose journal is the old one.
  void SetUp() override {
    Processes::SetUp();
    support::Options options = support::CurrentKind().SourceOptions(m_practice.Database());
    for (auto& [name, value] : options) {
      if (name == "JournalMode") value = "DELETE";
    }
    m_source = support::OdbcHome::FreshName();
    support::OdbcHome::Hold()->AddSource(m_source, support::CurrentKind().DriverName(), options);
  }
  void TearDown() override { support::OdbcHome::Hold()->RemoveSource(m_source); }
};

// On the servers the option means nothing, and the case is one more round.
TEST_F(WithoutWriteAheadLog, WritersAndReadersAtOnceLoseNothingAndFailInNothing) { ExpectAllGoWell(); }

}  // namespace
}  // namespace processes
