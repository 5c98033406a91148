// Driver calls of the library's calls, against what is written down.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <memory>

#include "frame/KyODBC.h"
#include "tests/budget/counts.h"
#include "tests/budget/works.h"
#include "tests/support/practice.h"
#include "tests/support/raw_odbc.h"

namespace budget {
namespace {

// The library connected through the counting driver, on a practice with rows.
class Budget : public testing::Test {
 protected:
  void SetUp() override {
    tagDBCONNECT parameters = m_source.Parameters();
    m_driver.ResetCounts();
    ASSERT_EQ(DB_InitDatabase(&parameters), 0);
    m_counted["connect"] = Read(m_driver);
    MakeRows();
  }
  void TearDown() override { EXPECT_EQ(DB_CloseDatabase(), 0); }

  // A change is prepared when it comes the second time. From the third time on the least counts: what was
  // read ahead is out of date, and read again, when the machine pauses for a moment.
  Counts Count(const Work& work) {
    constexpr int kTimes = 6;
    Counts least = {};
    for (int time = 0; time < kTimes; ++time) {
      work.before();
      m_driver.ResetCounts();
      work.work();
      const Counts now = Read(m_driver);
      const auto fewer = [](int one, int other) { return std::min(one, other); };
      if (time <= 2) {
        least = now;
      } else {
        std::transform(now.begin(), now.end(), least.begin(), least.begin(), fewer);
      }
    }
    return least;
  }
  void CountAll() {
    m_targets["connect"] = -1;
    for (const Work& work : Works()) {
      SCOPED_TRACE(work.name);
      ASSERT_NO_THROW(m_counted[work.name] = Count(work));
      m_targets[work.name] = work.target;
    }
  }
  void Write() const;

  support::Practice m_practice;
  faults::FaultSource m_source{m_practice};
  const faults::FaultDriver& m_driver = faults::TheFaultDriver();
  Table m_counted;
  std::map<std::string, int> m_targets;
};

void Budget::Write() const {
  std::ofstream file(FileOfThisDatabase());
  file << "# Driver calls of one call of the library, and the statements it is meant to need. Written by\n"
          "# ./dev budget --accept\n#"
       << std::setw(41) << "|";
  for (const char* kind : kKinds) file << std::setw(11) << kind;
  file << std::setw(9) << "target" << '\n';
  for (const auto& [name, counts] : m_counted) {
    file << std::left << std::setw(41) << name << std::right << '|';
    for (const int count : counts) file << std::setw(11) << count;
    const int target = m_targets.at(name);
    file << std::setw(9) << (target < 0 ? "-" : std::to_string(target)) << '\n';
  }
}

TEST_F(Budget, NoCallSendsMoreThanIsWrittenDown) {
  CountAll();
  if (std::getenv("KYODBC_BUDGET_ACCEPT") != nullptr) Write();
  const Table written = Load(FileOfThisDatabase());
  for (const auto& [name, counts] : m_counted) {
    SCOPED_TRACE(name + ": ./dev budget --accept writes down what is meant");
    ASSERT_TRUE(written.contains(name));
    for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
      EXPECT_LE(counts[kind], written.at(name)[kind]) << kKinds[kind];
      if (counts[kind] < written.at(name)[kind]) {
        std::cout << name << ": fewer " << kKinds[kind] << " than written down\n";
      }
    }
  }
  EXPECT_EQ(m_counted.size(), written.size()) << "a work is written down that is not counted any more";
}

// What counts everything as nothing would keep every budget.
TEST_F(Budget, TheCountsAreThoseOfTheDriver) {
  m_driver.ResetCounts();
  support::RawOdbc raw(m_source.ConnectionString());
  raw.Exec("UPDATE TPatient SET tPatSSocID='1' WHERE tPatCulIntPatIDPk=1");
  EXPECT_EQ(raw.Number("SELECT COUNT(*) FROM TPatient"), kPatients);
  const Counts counts = Read(m_driver);
  EXPECT_EQ(counts[0], 2);
  EXPECT_GE(counts[4], 1);
  EXPECT_EQ(m_driver.Statements(), 2u);
}

}  // namespace
}  // namespace budget
