// A practice on a cluster of this program's own.
#ifndef KYODBC_TESTS_CLUSTER_A_CLUSTER_H
#define KYODBC_TESTS_CLUSTER_A_CLUSTER_H

#include <memory>
#include <string>
#include <vector>

#include "tests/support/database_kind.h"
#include "tests/support/own_server.h"
#include "tests/support/raw_odbc.h"

namespace cluster {

// KYODBC_TEST_DB chooses the kind. Whatever it breaks, it breaks as a machine breaks: without a word.
class Cluster {
 public:
  virtual ~Cluster() = default;

  virtual std::vector<std::string> Nodes() const = 0;
  // The data source of a practice: the library finds the node to use by itself. And that of one node.
  virtual support::Options Source(support::Options options) const = 0;
  virtual support::Options SourceAt(const std::string& node, support::Options options) const = 0;
  // The node that serves `session`.
  virtual std::string NodeOf(support::RawOdbc& session) const = 0;

  // Power and network of a node are lost. The others take over by themselves, or the one that is left is
  // told to.
  virtual void Kill(const std::string& node) = 0;
  virtual void Cut(const std::string& node) = 0;
  // The node that was lost is whole again and has all rows. `round` chooses between ways where there are
  // several.
  virtual void BringBackKilled(const std::string& node, int round) = 0;
  virtual void BringBackCut(const std::string& node, int round) = 0;
};

// Three nodes, of which one that is alone refuses.
class Galera : public Cluster {
 public:
  std::vector<std::string> Nodes() const override { return {"node1", "node2", "node3"}; }
  support::Options Source(support::Options options) const override { return options; }
  support::Options SourceAt(const std::string& node, support::Options options) const override;
  std::string NodeOf(support::RawOdbc& session) const override;
  void Kill(const std::string& node) override { m_nodes.Kill(node); }
  void Cut(const std::string& node) override { m_nodes.Cut(node); }
  void BringBackKilled(const std::string& node, int) override { m_nodes.Resume(node); }
  void BringBackCut(const std::string& node, int) override {
    m_nodes.Mend(node);
    m_nodes.Await(node);
  }

  // Without the proxy: the driver takes the first node of the list that answers.
  support::Options SourceOfAll(support::Options options) const;
  support::OwnCluster& Control() { return m_nodes; }

 private:
  support::OwnCluster m_nodes{"galera"};
};

// The driver tries the hosts in turn until one takes changes.
class Standby : public Cluster {
 public:
  std::vector<std::string> Nodes() const override { return {kFirst, kSecond}; }
  support::Options Source(support::Options options) const override;
  support::Options SourceAt(const std::string& node, support::Options options) const override;
  std::string NodeOf(support::RawOdbc& session) const override;
  void Kill(const std::string& node) override;
  void Cut(const std::string& node) override;
  void BringBackKilled(const std::string& node, int round) override;
  void BringBackCut(const std::string& node, int round) override;

 private:
  static std::string Other(const std::string& node) { return node == kFirst ? kSecond : kFirst; }

  static constexpr const char* kFirst = "primary";
  static constexpr const char* kSecond = "standby";
  support::OwnCluster m_nodes{"standby"};
};

// Started before the first test, ended after the last one.
Cluster& TheCluster();
// The same, when it is of the kind that has three nodes; else null.
Galera* TheGalera();

// How often each loss is repeated: KYODBC_TEST_ROUNDS, 1 without it.
int Rounds();

}  // namespace cluster

#endif
