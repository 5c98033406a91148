// A practice on a cluster of this program's own.
#ifndef KYODBC_TESTS_CLUSTER_A_CLUSTER_H
#define KYODBC_TESTS_CLUSTER_A_CLUSTER_H

#include <memory>
#include <string>

#include "frame/KyODBC.h"
#include "tests/support/own_server.h"
#include "tests/support/raw_odbc.h"

namespace cluster {

// KYODBC_TEST_DB chooses the kind.
class Cluster {
 public:
  virtual ~Cluster() = default;

  // The data source of a practice: the library finds the node to use by itself.
  virtual support::Options Source(support::Options options) const = 0;
  // The node that serves `session`.
  virtual std::string NodeOf(support::RawOdbc& session) const = 0;
  // As a power cut does. Afterwards the other nodes, or the one that is left, take over.
  virtual void Lose(const std::string& node) = 0;
  // The node is whole again and has all rows.
  virtual void BringBack(const std::string& node) = 0;
};

// Started before the first test, ended after the last one.
Cluster& TheCluster();

// How often each loss is repeated: KYODBC_TEST_ROUNDS, 2 without it.
int Rounds();

}  // namespace cluster

#endif
