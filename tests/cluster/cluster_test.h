// The fixture of tests on a cluster: a practice, a data source for it that finds the node to use, one for
// each node.
#ifndef KYODBC_TESTS_CLUSTER_CLUSTER_TEST_H
#define KYODBC_TESTS_CLUSTER_CLUSTER_TEST_H

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

#include "frame/KyODBC.h"
#include "tests/cluster/a_cluster.h"
#include "tests/support/practice.h"
#include "tests/support/raw_odbc.h"

namespace cluster {

class ClusterTest : public testing::Test {
 protected:
  ClusterTest();
  void TearDown() override { EXPECT_EQ(DB_CloseDatabase(), 0); }

  // Makes a data source and returns its name.
  static std::string AddSource(const support::Options& options);
  WORD Connect(const std::string& source) const;
  // What a session past the library connects with.
  static std::string Text(const std::string& source);
  // Such a session, which can read. The proxy may find out later than the library that a node is back.
  static std::unique_ptr<support::RawOdbc> Patiently(const std::string& source);

  support::Practice m_practice;
  std::string m_source;
  std::map<std::string, std::string> m_source_at;
};

}  // namespace cluster

#endif
