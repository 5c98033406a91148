#include "tests/cluster/cluster_test.h"

#include <chrono>
#include <stdexcept>
#include <thread>

#include "tests/support/database_kind.h"
#include "tests/support/odbc_home.h"
#include "tests/support/records.h"

namespace cluster {
namespace {

using support::CurrentKind;

constexpr std::chrono::seconds kPatience{40};

}  // namespace

ClusterTest::ClusterTest() {
  const support::Options options = CurrentKind().SourceOptions(m_practice.Database());
  m_source = AddSource(TheCluster().Source(options));
  for (const std::string& node : TheCluster().Nodes()) {
    m_source_at[node] = AddSource(TheCluster().SourceAt(node, options));
  }
}

std::string ClusterTest::AddSource(const support::Options& options) {
  std::string name = support::OdbcHome::FreshName();
  support::OdbcHome::Hold()->AddSource(name, CurrentKind().DriverName(), options);
  return name;
}

WORD ClusterTest::Connect(const std::string& source) const {
  tagDBCONNECT parameters = m_practice.Parameters();
  support::SetText(parameters.szDSN, source);
  return DB_InitDatabase(&parameters);
}

std::string ClusterTest::Text(const std::string& source) {
  return "DSN=" + source + ";UID=" + CurrentKind().User() + ";PWD=" + CurrentKind().Password();
}

std::unique_ptr<support::RawOdbc> ClusterTest::Patiently(const std::string& source) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  for (;;) {
    try {
      auto raw = std::make_unique<support::RawOdbc>(Text(source));
      raw->Number("SELECT COUNT(*) FROM TStation");
      return raw;
    } catch (const std::runtime_error&) {
      if (std::chrono::steady_clock::now() > end) throw;
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
  }
}

}  // namespace cluster
