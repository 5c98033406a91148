// Texts never do more than stand for themselves, whatever the server's administrator has set.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>

#include "frame/KyODBC.h"
#include "tests/hostile/attack.h"
#include "tests/hostile/own_practice.h"
#include "tests/support/practice.h"

namespace hostile {
namespace {

class Injection : public testing::Test {
 protected:
  ~Injection() override { DB_CloseDatabase(); }

  void Set(const Mode& mode) {
    for (const std::string& statement : mode.statements) support::RawOdbc(m_practice).Exec(statement);
  }
  // New sessions of the library and of the test, which begin in the mode of the server. The test's own makes
  // a backslash the same as the library does: LIKE depends on it.
  void Reconnect() {
    DB_CloseDatabase();
    const tagDBCONNECT parameters = m_practice.Parameters();
    ASSERT_EQ(DB_InitDatabase(&parameters), 0);
    m_raw = std::make_unique<support::RawOdbc>(m_practice);
    if (OnMariadb()) {
      m_raw->Exec("SET SESSION sql_mode = CONCAT(@@SESSION.sql_mode, ',NO_BACKSLASH_ESCAPES')");
    }
  }
  // A number of texts, in the mode.
  void Run(const Mode& mode, Draw& draw, int texts) {
    SCOPED_TRACE("mode: " + mode.name);
    Set(mode);
    ASSERT_NO_FATAL_FAILURE(Reconnect());
    for (const std::string& proof : mode.proofs) EXPECT_EQ(m_raw->Number(proof), 1) << proof;
    Attack attack(*m_raw, draw);
    if (!m_planted) attack.PlantCanaries();
    m_planted = true;
    attack.Remember();
    for (int i = 0; i < texts && !HasFailure(); ++i) attack.Everything(draw.Text());
    m_calls += attack.Calls();
  }

  support::Practice m_practice;
  std::unique_ptr<support::RawOdbc> m_raw;
  bool m_planted = false;
  int m_calls = 0;
};

TEST_F(Injection, NoTextInAnyModeTouchesMoreThanItsRow) {
  const std::vector<Mode> modes = Modes();
  constexpr int kTextsInAll = 100;
  const int texts = 1 + kTextsInAll * Rounds() / static_cast<int>(modes.size());
  Draw draw(Seed());
  for (const Mode& mode : modes) {
    Run(mode, draw, texts);
    if (HasFailure()) break;
  }
  std::printf("%d texts in each of %zu modes, seed %u: %d calls\n", texts, modes.size(), Seed(), m_calls);
}

}  // namespace
}  // namespace hostile
