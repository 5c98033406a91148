// Nodes are lost, and come back, while a program browses and edits.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <future>
#include <thread>

#include "tests/cluster/cluster_test.h"
#include "tests/cluster/program.h"

namespace cluster {
namespace {

using std::chrono::milliseconds;
// How long a loss may go unnoticed.
constexpr milliseconds kUnnoticed{40000};

unsigned Seed() {
  const char* seed = std::getenv("KYODBC_TEST_SEED");
  return seed != nullptr ? static_cast<unsigned>(std::strtoul(seed, nullptr, 10)) : std::random_device{}();
}

class NodeLoss : public ClusterTest {
 protected:
  void SetUp() override {
    const unsigned seed = Seed();
    std::printf("KYODBC_TEST_SEED=%u\n", seed);
    m_random.seed(seed);
    m_program = std::make_unique<Program>(seed);
    ASSERT_EQ(Connect(m_source), 0);
    m_program->Begin();
  }
  // The node that the library is connected to, after connecting anew.
  std::string NodeInUse() {
    EXPECT_EQ(DB_CloseDatabase(), 0);
    EXPECT_EQ(Connect(m_source), 0);
    return TheCluster().NodeOf(*Patiently(m_source));
  }

  void HealAndCompare() {
    constexpr int kHealings = 10;
    for (int healing = 0; healing < kHealings; ++healing) {
      m_program->Heal();
      ASSERT_FALSE(HasFatalFailure());
      m_program->Compare(*Patiently(m_source), "after the loss");
      if (m_program->CompareBrowsing()) return;
    }
    FAIL() << "the cluster does not come to rest";
  }

  // Works while `breaking` runs in a thread of its own, until a call fails.
  void LoseWhileWorking(const std::function<void()>& breaking) {
    const milliseconds before(m_random() % 250);
    auto broken = std::async(std::launch::async, [&] {
      std::this_thread::sleep_for(before);
      breaking();
    });
    EXPECT_FALSE(m_program->WorkFor(kUnnoticed)) << "no call noticed the loss";
    broken.get();
  }
  // Works while `mending` runs in a thread of its own. That a call fails is allowed, and healed.
  void MendWhileWorking(const std::function<void()>& mending) {
    std::atomic<bool> done = false;
    auto mended = std::async(std::launch::async, [&] {
      mending();
      done = true;
    });
    bool undisturbed = true;
    while (!m_program->WorkUntil(done) && !HasFatalFailure()) {
      undisturbed = false;
      HealAndCompare();
    }
    mended.get();
    m_disturbed += undisturbed ? 0 : 1;
    if (!m_program->WorkFor(milliseconds(50))) HealAndCompare();
  }
  void CompareNodes() {
    for (const std::string& node : TheCluster().Nodes()) {
      m_program->Compare(*Patiently(m_source_at[node]), node);
    }
  }

  using Losing = void (Cluster::*)(const std::string&);
  using BringingBack = void (Cluster::*)(const std::string&, int);
  void LoseTheNodeInUse(Losing lose, BringingBack bring_back) {
    for (m_rounds = 0; m_rounds < Rounds() && !HasFailure(); ++m_rounds) {
      SCOPED_TRACE("round " + std::to_string(m_rounds));
      const std::string node = NodeInUse();
      LoseWhileWorking([&] { (TheCluster().*lose)(node); });
      HealAndCompare();
      ASSERT_FALSE(HasFatalFailure());
      MendWhileWorking([&] { (TheCluster().*bring_back)(node, m_rounds); });
      ASSERT_FALSE(HasFatalFailure());
      CompareNodes();
      TellNowAndThen();
    }
  }

  void TearDown() override {
    if (m_rounds > 0) Tell();
    ClusterTest::TearDown();
  }
  void TellNowAndThen() {
    constexpr int kNow = 20;
    if ((m_rounds + 1) % kNow == 0) Tell();
  }
  void Tell() {
    Counts& counts = m_program->Counted();
    std::sort(counts.healing.begin(), counts.healing.end());
    const double median = counts.healing.empty() ? 0 : counts.healing[counts.healing.size() / 2];
    const double longest = counts.healing.empty() ? 0 : counts.healing.back();
    std::printf(
        "%s: %d rounds, %lld calls, %lld changes acknowledged, lost %d, doubled %d, torn %d; not "
        "acknowledged: "
        "applied %d, not applied %d; healed %d times, median %.2f s, longest %.2f s; disturbed while a node "
        "came back: %d\n",
        testing::UnitTest::GetInstance()->current_test_info()->name(), m_rounds,
        static_cast<long long>(counts.calls), static_cast<long long>(counts.changes), counts.damage.lost,
        counts.damage.doubled, counts.damage.torn, counts.applied, counts.not_applied, counts.heals, median,
        longest, m_disturbed);
    for (const auto& [what, times] : counts.failures) std::printf("  %s: %d\n", what.c_str(), times);
    std::fflush(stdout);
    EXPECT_EQ(counts.damage.lost + counts.damage.doubled + counts.damage.torn, 0);
  }

  std::mt19937 m_random;
  std::unique_ptr<Program> m_program;
  int m_rounds = 0;
  int m_disturbed = 0;
};

TEST_F(NodeLoss, TheNodeInUseIsKilledAndComesBack) {
  LoseTheNodeInUse(&Cluster::Kill, &Cluster::BringBackKilled);
}

TEST_F(NodeLoss, TheNetworkOfTheNodeInUseIsCutAndMended) {
  // A stopped server on a machine that is up still takes connections: only the login time-out ends those.
  if (TheGalera() == nullptr && std::getenv("KYODBC_OWN_NETWORK") == nullptr) {
    std::printf("left out: without a network of its own no cable can be cut\n");
    return;
  }
  LoseTheNodeInUse(&Cluster::Cut, &Cluster::BringBackCut);
}

// The driver goes through the list at each connecting.
class ListOfHosts : public NodeLoss {
 protected:
  void SetUp() override {
    ASSERT_NE(TheGalera(), nullptr) << "the other kind is always reached so";
    m_source =
        AddSource(TheGalera()->SourceOfAll(support::CurrentKind().SourceOptions(m_practice.Database())));
    NodeLoss::SetUp();
  }
};

TEST_F(ListOfHosts, TheNodeInUseIsKilledAndComesBack) {
  LoseTheNodeInUse(&Cluster::Kill, &Cluster::BringBackKilled);
}

// Two of three nodes are lost. The one that is left cannot know that it is not the one that is cut off.
class MajorityLoss : public NodeLoss {
 protected:
  void Round() {
    std::vector<std::string> nodes = TheCluster().Nodes();
    std::shuffle(nodes.begin(), nodes.end(), m_random);
    const std::string& left = nodes[2];
    const std::string lost = nodes[0] + " " + nodes[1];
    const bool cut = m_random() % 2 == 0;
    // Through the proxy, or at the node that is left itself.
    ASSERT_EQ(DB_CloseDatabase(), 0);
    ASSERT_EQ(Connect(m_random() % 2 == 0 ? m_source : m_source_at[left]), 0);
    support::OwnCluster& control = TheGalera()->Control();
    LoseWhileWorking([&] {
      if (cut) {
        control.Cut(lost);
      } else {
        for (const std::string& node : {nodes[0], nodes[1]}) control.Kill(node);
      }
    });
    m_program->ExpectRefusals(milliseconds(500));
    EXPECT_THROW(support::RawOdbc(Text(m_source_at[left])).Number("SELECT COUNT(*) FROM TStation"),
                 std::runtime_error);
    auto mended = std::async(std::launch::async, [&] {
      if (cut) {
        control.Mend(lost);
        control.Await(lost);
      } else {
        control.Resume(lost);
      }
    });
    HealAndCompare();
    mended.get();
    if (!m_program->WorkFor(milliseconds(50))) HealAndCompare();
    CompareNodes();
  }
};

TEST_F(MajorityLoss, TwoOfThreeNodesAreLostAndComeBack) {
  ASSERT_NE(TheGalera(), nullptr) << "of the other kind there are two in all";
  for (; m_rounds < Rounds() && !HasFailure(); ++m_rounds) {
    SCOPED_TRACE("round " + std::to_string(m_rounds));
    Round();
    TellNowAndThen();
  }
}

}  // namespace
}  // namespace cluster
