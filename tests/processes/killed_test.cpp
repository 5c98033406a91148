// A program that is killed while it writes, again and again: what it was told is stored is there, what it was
// at is done or not, and nothing is half done or done twice.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "tests/processes/worker_process.h"
#include "tests/support/odbc_home.h"
#include "tests/support/practice.h"
#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"

namespace processes {
namespace {

using Clock = std::chrono::steady_clock;
using Words = std::vector<std::string>;

constexpr std::chrono::seconds kPatience{20};
constexpr int kKillsBetweenCleanings = 20;

std::string Setting(const char* variable, const char* otherwise) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0' ? value : otherwise;
}

bool On(const char* kind) { return Setting("KYODBC_TEST_DB", "sqlite") == kind; }
unsigned Seed() { return static_cast<unsigned>(std::stoul(Setting("KYODBC_TEST_SEED", "20010506"))); }
int Kills() { return std::stoi(Setting("KYODBC_TEST_KILLS", "40")); }

// What one program has in the database.
struct Rows {
  std::map<int, std::string> patients;
  std::map<int, int> images;  // by key: the patient
  std::map<std::string, std::string> settings;

  bool operator==(const Rows&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Rows& rows) {
  for (const auto& [key, text] : rows.patients) out << "\n  patient " << key << " " << text;
  for (const auto& [key, patient] : rows.images) out << "\n  image " << key << " of " << patient;
  for (const auto& [name, text] : rows.settings) out << "\n  setting " << name << " " << text;
  return out;
}

Words Split(const std::string& line) {
  std::istringstream stream(line);
  Words words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

// Changes the rows as the line says, key 0 standing for `new_key`.
void Apply(const Words& line, int new_key, Rows* rows) {
  const std::string& what = line.at(0);
  const auto number = [&](std::size_t i) { return std::stoi(line.at(i)); };
  const auto key = [&] { return number(1) == 0 ? new_key : number(1); };
  if (what == "+") rows->patients[key()] = line.at(2);
  if (what == "-") rows->patients.erase(number(1));
  if (what == "i" || what == "r") rows->images[key()] = number(2);
  if (what == "r") rows->images.erase(number(3));
  if (what == "s") rows->settings[line.at(1)] = line.at(2);
}

// What a killed program was told, and what it was at.
struct Account {
  Rows told;
  std::vector<Words> at;  // all of it or nothing is stored; empty: nothing was going on
  std::vector<Words> failures;
};

Account Read(const std::vector<std::string>& lines) {
  Account account;
  std::vector<Words> in_transaction;
  bool transaction = false;
  bool committing = false;
  for (const std::string& text : lines) {
    Words line = Split(text);
    const std::string what = line.at(0);
    if (what == "x") account.failures.push_back(line);
    if (what == "~" && line.at(1) == "commit") committing = true;
    if (what == "~") in_transaction.emplace_back(line.begin() + 1, line.end());
    if (what == "?") {
      transaction = line.at(1) == "transaction";
      committing = false;
      in_transaction.clear();
      account.at.clear();
      if (!transaction && line.at(1) != "nothing") account.at.emplace_back(line.begin() + 1, line.end());
      continue;
    }
    if (what == "~") continue;
    // The lines behind a commit come one after the other: the first one tells that all is stored.
    if (transaction && committing) {
      for (const Words& done : in_transaction) Apply(done, 0, &account.told);
      committing = transaction = false;
      in_transaction.clear();
    } else {
      Apply(line, 0, &account.told);
    }
    account.at.clear();
  }
  if (committing) account.at = in_transaction;
  return account;
}

class Killed : public testing::Test {
 protected:
  void SetUp() override {
    m_raw = std::make_unique<support::RawOdbc>(ConnectionString());
    m_raw->Exec(
        "INSERT INTO TConfig (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet) "
        "VALUES (1, 1, 'Shared', 'none')");
  }

  virtual std::string Source() { return m_practice.Dsn(); }
  std::string ConnectionString() {
    const tagDBCONNECT parameters = m_practice.Parameters();
    return "DSN=" + Source() + ";UID=" + support::Text(parameters.szUID) +
           ";PWD=" + support::Text(parameters.szPWD);
  }

  // A writer, killed a while after it has begun. Returns its lines.
  std::vector<std::string> RunAndKill(const std::string& name, unsigned seed) {
    const tagDBCONNECT parameters = m_practice.Parameters();
    const std::filesystem::path output = m_practice.Folder() / "killed.txt";
    WorkerProcess worker(output, {Source(), support::Text(parameters.szUID), support::Text(parameters.szPWD),
                                  "writer", name, std::to_string(seed), "100000"});
    const auto end = Clock::now() + kPatience;
    while (std::filesystem::file_size(output) == 0 && Clock::now() < end) Pause(200);
    Pause(static_cast<int>(m_random() % 40000));
    worker.Kill();
    return worker.Lines();
  }
  static void Pause(int microseconds) {
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
  }

  // A server goes on with the last statement of a program that is gone, and then notices.
  void WaitForEndOfSessions() {
    std::string others;
    if (On("postgresql")) {
      others =
          "SELECT COUNT(*) FROM pg_stat_activity WHERE datname = current_database() "
          "AND backend_type = 'client backend' AND application_name <> 'psqlODBC test' "
          "AND pid <> pg_backend_pid()";
    }
    if (On("mariadb")) {
      others =
          "SELECT COUNT(*) FROM information_schema.processlist WHERE db = DATABASE() "
          "AND id <> CONNECTION_ID()";
    }
    if (others.empty()) return;
    const auto end = Clock::now() + kPatience;
    // The practice has a session of its own, which stays.
    while (m_raw->Number(others) > 1) {
      ASSERT_LT(Clock::now(), end) << "a session stays";
      Pause(500);
    }
  }

  Rows Stored(const std::string& name) {
    Rows rows;
    for (const support::Row& row :
         m_raw->Query("SELECT tPatCulIntPatIDPk, tPatSFirstname, tPatSExtPatID, tPatDEntry FROM TPatient "
                      "WHERE tPatSName = '" +
                      name + "'")) {
      EXPECT_EQ(row[1], row[2]) << "half a patient";
      EXPECT_NE(row[3], std::nullopt) << "half a patient";
      rows.patients[std::stoi(row[0].value())] = row[1].value();
    }
    for (const support::Row& row :
         m_raw->Query("SELECT tImgCulIntImgIDPk, tImgCulIntPatIDFk, tImgTs, tImgSLoc FROM TImage "
                      "WHERE tImgSName = '" +
                      name + "'")) {
      EXPECT_NE(row[2], std::nullopt) << "half an image";
      EXPECT_EQ(row[3], "9") << "half an image";
      rows.images[std::stoi(row[0].value())] = std::stoi(row[1].value());
    }
    for (const support::Row& row :
         m_raw->Query("SELECT tCfgSKey, tCfgSSet FROM TConfig WHERE tCfgSSet LIKE '" + name + "v%'")) {
      EXPECT_TRUE(rows.settings.emplace(row[0].value(), row[1].value()).second) << "a setting twice";
    }
    return rows;
  }

  // `stored` with what the program was at, if that is in it.
  static Rows WithWhatItWasAt(const Account& account, const Rows& stored) {
    Rows rows = account.told;
    int new_patient = 0;
    for (const auto& patient : stored.patients) {
      if (!rows.patients.contains(patient.first)) new_patient = patient.first;
    }
    int new_image = 0;
    for (const auto& image : stored.images) {
      if (!rows.images.contains(image.first)) new_image = image.first;
    }
    for (const Words& line : account.at) Apply(line, line[0] == "+" ? new_patient : new_image, &rows);
    return rows;
  }

  void ExpectAllOrNothing(const Account& account, const std::string& name) {
    EXPECT_EQ(account.failures, std::vector<Words>());
    const Rows stored = Stored(name);
    const Rows with = WithWhatItWasAt(account, stored);
    if (!(stored == account.told) && !(stored == with)) {
      ADD_FAILURE() << "stored:" << stored << "\ntold:" << account.told << "\nor:" << with;
    }
    if (!account.at.empty()) ++(stored == account.told ? m_undone : m_done);
    m_changes += static_cast<int>(account.told.patients.size() + account.told.images.size());
  }

  void ExpectSound() {
    if (On("sqlite")) {
      EXPECT_EQ(m_raw->Text("PRAGMA integrity_check"), "ok");
    }
    if (On("mariadb")) {
      for (const support::Row& row : m_raw->Query("CHECK TABLE TPatient, TImage, TConfig")) {
        EXPECT_EQ(row.at(3), "OK") << row.at(0).value();
      }
    }
    if (On("postgresql")) {
      const std::string ours = "relnamespace = 'public'::regnamespace";
      m_raw->Exec("CREATE EXTENSION amcheck");
      // The second one fails at an index that does not agree with its table.
      EXPECT_EQ(m_raw->Number("SELECT COUNT(*) FROM pg_class c, LATERAL verify_heapam(c.oid) "
                              "WHERE c.relkind = 'r' AND c." +
                              ours),
                0);
      EXPECT_FALSE(m_raw
                       ->Query("SELECT c.relname, bt_index_check(c.oid, true) FROM pg_class c JOIN pg_am a "
                               "ON a.oid = c.relam WHERE a.amname = 'btree' AND c.relkind = 'i' AND c." +
                               ours)
                       .empty());
      m_raw->Exec("DROP EXTENSION amcheck");
    }
    for (const char* table : {"TPatient", "TImage", "TConfig", "TStation", "TDoctor"}) {
      const std::size_t rows = m_raw->Query(std::string("SELECT * FROM ") + table).size();
      EXPECT_EQ(static_cast<int>(rows), m_raw->Count(table));
    }
  }
  void Clean() {
    m_raw->Exec("DELETE FROM TPatient");
    m_raw->Exec("DELETE FROM TImage");
    m_raw->Exec("DELETE FROM TConfig WHERE tCfgSKey LIKE 'K%'");
  }

  void Run() {
    for (int kill = 1; kill <= Kills() && !HasFailure(); ++kill) {
      const std::string name = "K" + std::to_string(kill) + "n";
      SCOPED_TRACE(name);
      const Account account = Read(RunAndKill(name, Seed() + static_cast<unsigned>(kill)));
      WaitForEndOfSessions();
      ExpectAllOrNothing(account, name);
      if (kill % kKillsBetweenCleanings != 0 && kill != Kills()) continue;
      ExpectSound();
      if (!HasFailure()) Clean();
    }
    std::printf("%d kills, %d rows told to be stored; of what was going on %d changes were stored, %d not\n",
                Kills(), m_changes, m_done, m_undone);
    EXPECT_GT(m_changes, 0);
    EXPECT_GT(m_done + m_undone, 0) << "no kill hit a change";
  }

  support::Practice m_practice;
  std::unique_ptr<support::RawOdbc> m_raw;
  std::mt19937 m_random{Seed()};
  int m_changes = 0;
  int m_done = 0;
  int m_undone = 0;
};

TEST_F(Killed, AWriterLosesNothingThatItWasToldIsStored) { Run(); }

class KilledWithoutWriteAheadLog : public Killed {
 protected:
  // Another data source for the same file, whose journal is the old one.
  std::string Source() override {
    if (!m_source.empty()) return m_source;
    support::Options options = support::CurrentKind().SourceOptions(m_practice.Database());
    for (auto& [name, value] : options) {
      if (name == "JournalMode") value = "DELETE";
      if (name == "SyncPragma") value = "FULL";
    }
    m_source = support::OdbcHome::FreshName();
    support::OdbcHome::Hold()->AddSource(m_source, support::CurrentKind().DriverName(), options);
    return m_source;
  }
  void TearDown() override { support::OdbcHome::Hold()->RemoveSource(m_source); }

 private:
  std::string m_source;
};

// On the servers the option means nothing, and the case is one more round.
TEST_F(KilledWithoutWriteAheadLog, AWriterLosesNothingThatItWasToldIsStored) { Run(); }

}  // namespace
}  // namespace processes
