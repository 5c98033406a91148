// The node that a program is connected to is lost while the program browses and edits.
#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <thread>

#include "tests/cluster/a_cluster.h"
#include "tests/support/database_kind.h"
#include "tests/support/odbc_home.h"
#include "tests/support/practice.h"
#include "tests/support/records.h"

namespace cluster {
namespace {

using Clock = std::chrono::steady_clock;
using support::CurrentKind;

// How long a cluster may take to agree that a node is gone, and the proxy to notice.
constexpr std::chrono::seconds kPatience{60};

// What a call may say whose connection is lost; 64 is a row that could not be fetched.
const std::set<WORD> kLossCodes = {3, 5, 6, 8, 30, 31, 64};

// What a program was told while it wrote, and what it does not know.
struct Account {
  std::set<std::string> stored;         // stations whose add gave 0
  std::optional<std::string> at;        // the station whose add failed
  int edits = 0;                        // the number in the patient's first name as last acknowledged
  bool edit_failed = false;             // then it may be one more
  std::map<std::string, int> failures;  // by call and code
};

class NodeLoss : public testing::Test {
 protected:
  void SetUp() override {
    m_source = support::OdbcHome::FreshName();
    support::OdbcHome::Hold()->AddSource(
        m_source, CurrentKind().DriverName(),
        TheCluster().Source(CurrentKind().SourceOptions(m_practice.Database())));
    ASSERT_EQ(Connect(), 0);
    tagTPATIENT patient{};
    patient.lDrID = 1;
    support::SetText(patient.szName, "Edited");
    support::SetText(patient.szFirstname, "0");
    patient.dBirthday = support::Ts(1970, 1, 2);
    ASSERT_EQ(DB_AddNewTPat(&patient), 0);
    m_patient = support::Val(patient.lPatID);
  }
  void TearDown() override {
    EXPECT_EQ(DB_CloseDatabase(), 0);
    support::OdbcHome::Hold()->RemoveSource(m_source);
  }

  WORD Connect() {
    tagDBCONNECT parameters = m_practice.Parameters();
    support::SetText(parameters.szDSN, m_source);
    return DB_InitDatabase(&parameters);
  }
  support::RawOdbc Raw() const {
    return support::RawOdbc("DSN=" + m_source + ";UID=" + CurrentKind().User() +
                            ";PWD=" + CurrentKind().Password());
  }

  // Browses and edits until a call fails.
  Account WorkUntilItFails(int round) {
    Account account;
    account.edits = m_edits;
    EXPECT_EQ(DB_OpenTStat(), 0);
    const auto end = Clock::now() + kPatience;
    for (int n = 0; Clock::now() < end; ++n) {
      if (!AddStation("r" + std::to_string(round) + "n" + std::to_string(n), &account)) break;
      if (!EditPatient(&account) || !LookAtStations(&account)) break;
    }
    EXPECT_FALSE(account.failures.empty()) << "no call noticed the loss";
    m_edits = account.edits;
    return account;
  }
  bool Succeeded(const char* call, WORD code, Account* account) const {
    if (code == 0) return true;
    EXPECT_TRUE(kLossCodes.contains(code)) << call << " gave " << code;
    ++account->failures[std::string(call) + " " + std::to_string(code)];
    return false;
  }
  bool AddStation(const std::string& name, Account* account) const {
    tagTSTATION station{};
    support::SetText(station.szName, name);
    account->at = name;
    if (!Succeeded("DB_AddNewTStat", DB_AddNewTStat(&station), account)) return false;
    account->at.reset();
    account->stored.insert(name);
    return true;
  }
  bool EditPatient(Account* account) const {
    tagTPATIENT patient{};
    patient.lPatID = m_patient;
    support::SetText(patient.szFirstname, std::to_string(account->edits + 1));
    account->edit_failed = !Succeeded("DB_EditSelTPat", DB_EditSelTPat(&patient, 1 << 6), account);
    if (account->edit_failed) return false;
    ++account->edits;
    return true;
  }
  bool LookAtStations(Account* account) const {
    LONG rows = 0;
    if (!Succeeded("DB_GetTStatMaxPos", DB_GetTStatMaxPos(&rows), account)) return false;
    tagTSTATION station{};
    return Succeeded("DB_GetTStatByPos", DB_GetTStatByPos(1, &station), account);
  }

  // Until DB_OpenTPat gives 0; tells how long that took.
  std::chrono::duration<double> Heal() {
    const auto begin = Clock::now();
    WORD code = DB_OpenTPat();
    while (code != 0 && Clock::now() < begin + kPatience) {
      EXPECT_TRUE(kLossCodes.contains(code)) << "DB_OpenTPat gave " << code;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
      code = DB_OpenTPat();
    }
    EXPECT_EQ(code, 0);
    return Clock::now() - begin;
  }

  void ExpectNothingLostOrDoubled(const Account& account) {
    support::RawOdbc raw = Raw();
    for (const std::string& name : account.stored) {
      EXPECT_EQ(raw.Count("TStation", "tStatSName='" + name + "'"), 1) << name;
    }
    if (account.at) {
      EXPECT_LE(raw.Count("TStation", "tStatSName='" + *account.at + "'"), 1) << *account.at;
    }
    const int edits = raw.Number("SELECT tPatSFirstname FROM TPatient WHERE tPatCulIntPatIDPk=" +
                                 std::to_string(m_patient));
    EXPECT_GE(edits, account.edits);
    EXPECT_LE(edits, account.edits + (account.edit_failed ? 1 : 0));
    m_edits = edits;
    tagTPATIENT patient{};
    patient.lPatID = m_patient;
    EXPECT_EQ(DB_GetTPat(&patient), 0);
    EXPECT_EQ(support::Text(patient.szFirstname), std::to_string(edits));
  }

  support::Practice m_practice;
  std::string m_source;
  LONG m_patient = 0;
  int m_edits = 0;
};

TEST_F(NodeLoss, ANodeKilledWhileAProgramEditsLosesNothingThatWasAcknowledged) {
  std::mt19937 random(std::random_device{}());
  std::map<std::string, int> failures;
  std::size_t acknowledged = 0;
  double longest = 0;
  for (int round = 0; round < Rounds(); ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    ASSERT_EQ(DB_CloseDatabase(), 0);
    ASSERT_EQ(Connect(), 0);
    support::RawOdbc raw = Raw();
    const std::string node = TheCluster().NodeOf(raw);
    std::thread killer([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(random() % 300));
      TheCluster().Lose(node);
    });
    const Account account = WorkUntilItFails(round);
    killer.join();
    longest = std::max(longest, Heal().count());
    ExpectNothingLostOrDoubled(account);
    acknowledged += account.stored.size();
    for (const auto& [what, times] : account.failures) failures[what] += times;
    TheCluster().BringBack(node);
  }
  std::printf("%d nodes lost, %zu adds acknowledged, longest healing %.1f s\n", Rounds(), acknowledged,
              longest);
  for (const auto& [what, times] : failures) std::printf("  %s: %d\n", what.c_str(), times);
}

}  // namespace
}  // namespace cluster
