#include "tests/cluster/a_cluster.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace cluster {
namespace {

void Replace(support::Options* options, const std::string& name, const std::string& value) {
  for (auto& option : *options) {
    if (option.first == name) option.second = value;
  }
}

// The proxy's address is the practice's, and the proxy chooses the node.
class Galera : public Cluster {
 public:
  support::Options Source(support::Options options) const override { return options; }
  std::string NodeOf(support::RawOdbc& session) const override {
    return session.Text("SELECT @@wsrep_node_name");
  }
  void Lose(const std::string& node) override { m_nodes.Kill(node); }
  void BringBack(const std::string& node) override { m_nodes.Resume(node); }

 private:
  support::OwnCluster m_nodes{"galera"};
};

// The driver tries the hosts in turn until one takes changes.
class Standby : public Cluster {
 public:
  support::Options Source(support::Options options) const override {
    Replace(&options, "Servername", "127.0.0.1,127.0.0.2");
    options.emplace_back("pqopt", "target_session_attrs=read-write");
    return options;
  }
  std::string NodeOf(support::RawOdbc& session) const override {
    return session.Text("SELECT host(inet_server_addr())") == "127.0.0.1" ? kFirst : kSecond;
  }
  void Lose(const std::string& node) override {
    m_nodes.Kill(node);
    m_nodes.Promote(node == kFirst ? kSecond : kFirst);
  }
  void BringBack(const std::string& node) override { m_nodes.Resume(node); }

 private:
  static constexpr const char* kFirst = "primary";
  static constexpr const char* kSecond = "standby";
  support::OwnCluster m_nodes{"standby"};
};

std::unique_ptr<Cluster> the_cluster;

class ClusterForAllTests : public testing::Environment {
 public:
  void SetUp() override {
    const char* database = std::getenv("KYODBC_TEST_DB");
    if (database != nullptr && std::string(database) == "postgresql") {
      the_cluster = std::make_unique<Standby>();
    } else {
      setenv("KYODBC_TEST_DB", "mariadb", 1);
      the_cluster = std::make_unique<Galera>();
    }
  }
  void TearDown() override { the_cluster.reset(); }
};

[[maybe_unused]] const testing::Environment* const kCluster =
    testing::AddGlobalTestEnvironment(new ClusterForAllTests);

}  // namespace

Cluster& TheCluster() { return *the_cluster; }

int Rounds() {
  const char* rounds = std::getenv("KYODBC_TEST_ROUNDS");
  return rounds != nullptr ? std::max(1, std::atoi(rounds)) : 2;
}

}  // namespace cluster
