#include "tests/cluster/a_cluster.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>

namespace cluster {
namespace {

support::Options Replaced(support::Options options, const std::string& name, const std::string& value) {
  for (auto& option : options) {
    if (option.first == name) option.second = value;
  }
  return options;
}

std::unique_ptr<Cluster> the_cluster;

// What a cluster needs beside the servers. Without it the tests are left out.
void ExpectPrograms(std::initializer_list<const char*> files) {
  for (const char* file : files) {
    if (std::filesystem::exists(file)) continue;
    constexpr int kLeftOut = 77;
    std::printf("left out: there is no %s; ./dev setup installs it\n", file);
    std::fflush(stdout);
    std::_Exit(kLeftOut);
  }
}

class ClusterForAllTests : public testing::Environment {
 public:
  void SetUp() override {
    const char* database = std::getenv("KYODBC_TEST_DB");
    if (database != nullptr && std::string(database) == "postgresql") {
      the_cluster = std::make_unique<Standby>();
    } else {
      setenv("KYODBC_TEST_DB", "mariadb", 1);
      ExpectPrograms({"/usr/sbin/haproxy", "/usr/lib/galera/libgalera_smm.so"});
      the_cluster = std::make_unique<Galera>();
    }
  }
  void TearDown() override { the_cluster.reset(); }
};

[[maybe_unused]] const testing::Environment* const kCluster =
    testing::AddGlobalTestEnvironment(new ClusterForAllTests);

}  // namespace

support::Options Galera::SourceAt(const std::string& node, support::Options options) const {
  return Replaced(Replaced(std::move(options), "SERVER", m_nodes.Host(node)), "PORT",
                  std::to_string(m_nodes.Port(node)));
}

support::Options Galera::SourceOfAll(support::Options options) const {
  std::string hosts;
  for (const std::string& node : Nodes()) {
    if (!hosts.empty()) hosts += ',';
    hosts += m_nodes.Host(node) + ":" + std::to_string(m_nodes.Port(node));
  }
  return Replaced(std::move(options), "SERVER", hosts);
}

std::string Galera::NodeOf(support::RawOdbc& session) const {
  return session.Text("SELECT @@wsrep_node_name");
}

// A host that does not answer at all is given up after two seconds, and so is a session with one. (The driver
// refuses connect_timeout in pqopt: it sets the login time-out there.)
support::Options Standby::Source(support::Options options) const {
  options = Replaced(std::move(options), "Servername", m_nodes.Host(kFirst) + "," + m_nodes.Host(kSecond));
  options.emplace_back("pqopt",
                       "target_session_attrs=read-write keepalives_idle=1 keepalives_interval=1 "
                       "tcp_user_timeout=2000");
  return options;
}

support::Options Standby::SourceAt(const std::string& node, support::Options options) const {
  return Replaced(std::move(options), "Servername", m_nodes.Host(node));
}

std::string Standby::NodeOf(support::RawOdbc& session) const {
  return session.Text("SELECT host(inet_server_addr())") == m_nodes.Host(kFirst) ? kFirst : kSecond;
}

void Standby::Kill(const std::string& node) {
  m_nodes.Kill(node);
  m_nodes.Promote(Other(node));
}

void Standby::Cut(const std::string& node) {
  m_nodes.Cut(node);
  m_nodes.Promote(Other(node));
}

// From its own files or from a copy of the other's.
void Standby::BringBackKilled(const std::string& node, int round) {
  m_nodes.Resume(node + (round % 2 == 0 ? "" : " copy"));
}

// It still believes that it leads: it must never be reached as what it was.
void Standby::BringBackCut(const std::string& node, int round) {
  m_nodes.Kill(node);
  m_nodes.Mend(node);
  BringBackKilled(node, round);
}

Cluster& TheCluster() { return *the_cluster; }

Galera* TheGalera() { return dynamic_cast<Galera*>(the_cluster.get()); }

int Rounds() {
  const char* rounds = std::getenv("KYODBC_TEST_ROUNDS");
  return rounds != nullptr ? std::max(1, static_cast<int>(std::strtol(rounds, nullptr, 10))) : 1;
}

}  // namespace cluster
