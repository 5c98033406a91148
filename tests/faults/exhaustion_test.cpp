// Each scenario with call 1 failing, then call 2, and so on, in every way of failing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>

#include "frame/KyODBCDiag.h"
#include "tests/faults/connection.h"
#include "tests/faults/database_state.h"
#include "tests/faults/hurried_clock.h"
#include "tests/faults/scenario.h"
#include "tests/faults/searched_log.h"
#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"

namespace faults {
namespace {

struct Failure {
  const char* name;
  const char* order;  // behind "call N"
};

constexpr Failure kFailures[] = {
    {"error",            "error HY000 1"      },
    {"error afterwards", "error HY000 1 after"},
    {"no diagnostics",   "error records 0"    },
    {"refused",          "error 40001 1213"   },
    {"lost",             "lost"               },
    {"lost afterwards",  "lost after"         },
    {"information",      "info 01000 7"       },
    {"never ending",     "executing endless"  },
    {"executing thrice", "executing 3"        },
};

bool IsExecuting(const Failure& failure) { return std::string_view(failure.order).starts_with("executing"); }

// The call has done its work and is said to have failed.
bool IsALie(const Failure& failure) { return std::string_view(failure.order).ends_with("after"); }

bool IsFull() {
  const char* asked = std::getenv("KYODBC_TEST_FAULTS");
  return asked != nullptr && std::strcmp(asked, "full") == 0;
}

// Whether everything is done once more, in another way.
bool IsOnceMore() { return std::getenv("KYODBC_PLAIN_STATEMENTS") != nullptr; }

// Without KYODBC_TEST_FAULTS=full, one run in so many is made, a different one for each way of failing; on
// servers, and once more, one in many.
int Stride() {
  if (IsFull()) return 1;
  return support::CurrentKind().User().empty() && !IsOnceMore() ? 20 : 90;
}

// And once more, only the ways that are least like each other.
bool IsTried(const Failure& failure) {
  const std::string_view name = failure.name;
  return IsFull() || !IsOnceMore() || name == "error" || name == "lost" || name == "never ending";
}

// What all scenarios share: a practice with a row in each table, and a connection past library and driver.
struct Stage {
  Stage() : source(practice), raw(practice) {
    UseSource(source);
    MakeProcedure(raw);
    EXPECT_EQ(Connect(), 0);
    keys = AddRows();
    EXPECT_EQ(DB_CloseDatabase(), 0);
    state.emplace(raw);
    EXPECT_EQ(TheFaultDriver().Handles(0), 0);
  }

  support::Practice practice;
  FaultSource source;
  support::RawOdbc raw;
  Keys keys;
  std::optional<DatabaseState> state;
  int runs = 0;
  int changed = 0;
};

class Exhaustion : public testing::TestWithParam<Scenario> {
 public:
  static void SetUpTestSuite() { m_stage = std::make_unique<Stage>(); }
  static void TearDownTestSuite() {
    std::printf("%d runs with a failing call, after %d of which the change was there\n", m_stage->runs,
                m_stage->changed);
    m_stage.reset();
  }

 protected:
  void TearDown() override {
    TheFaultDriver().Forget();
    DB_CloseDatabase();
    m_stage->state->PutBack();
  }

  // Runs the scenario once, with the order, and ends it with a closed library.
  void Run(const std::string& order) {
    const Scenario& scenario = GetParam();
    if (!scenario.connects) {
      ASSERT_EQ(Connect(), 0) << "the library does not work again";
    }
    if (scenario.prepare != nullptr) scenario.prepare(m_stage->keys);
    TheFaultDriver().ResetCounts();
    m_answers = {};
    if (!order.empty()) TheFaultDriver().Order(order);
    {
      const HurriedClock clock;
      scenario.run(m_answers, m_stage->keys);
      m_happened = TheFaultDriver().Happened() != 0;
      m_made = static_cast<int>(TheFaultDriver().Calls(nullptr));
    }
    tagDBERRORDETAIL detail{};
    DB_GetLastErrorDetail(&detail, sizeof detail);
    EXPECT_EQ(SecretIn(support::Text(detail.szMessage)), "");
    TheFaultDriver().Forget();
    EXPECT_EQ(DB_CloseDatabase(), 0);
    EXPECT_EQ(DB_IsDatabaseOpen(), 0);
  }

  void Reference() {
    Run("");
    m_calls = m_made;
    ASSERT_TRUE(m_answers.AllWell()) << m_answers.Text();
    m_right = m_answers.Text();
    m_after = m_stage->state->Read();
    m_stage->state->PutBack();
  }

  // Codes, handles and the database after a run.
  void Check(const Failure& failure) {
    EXPECT_EQ(m_answers.NotAllowed(), "");
    if (m_answers.AllWell()) {
      EXPECT_EQ(m_answers.Text(), m_right);
    }
    EXPECT_EQ(TheFaultDriver().Handles(0), 0);
    const State state = m_stage->state->Read();
    if (m_answers.ToldUnchanged() && !IsALie(failure)) {
      EXPECT_EQ(state, m_stage->state->Before()) << "a change that was said to have failed is there";
    }
    if (state == m_stage->state->Before() && (m_answers.MayBeBefore() || m_after == state)) return;
    EXPECT_TRUE(m_answers.MayBeAfter()) << "what was rolled back is there";
    ++m_stage->changed;
    EXPECT_TRUE(IsAfter(state)) << Difference(m_after, state);
    m_stage->state->PutBack();
  }

  bool IsAfter(const State& state) const {
    if (GetParam().row_by_row && !m_answers.AllWell()) return m_stage->state->IsBetween(state, m_after);
    if (GetParam().derives) return m_stage->state->IsAfterButForDerived(state, m_after);
    return state == m_after;
  }

  void FailAtEveryCall(const Failure& failure, int offset) {
    const int stride = Stride();
    for (int number = 1 + offset % std::clamp(m_calls / 2, 1, stride);; number += stride) {
      SCOPED_TRACE(std::string(failure.name) + " at call " + std::to_string(number));
      Run("call " + std::to_string(number) + " " + failure.order);
      if (HasFatalFailure()) return;
      SCOPED_TRACE(std::string(TheFaultDriver().Last()) + "; " + m_answers.Text());
      if (!m_happened) return CheckUntouched(number, failure);
      ++m_stage->runs;
      Check(failure);
      if (GetParam().connects) ExpectToWork();
      if (HasFailure()) return;
    }
  }

  // The last run, in which nothing failed any more: all those before have left a library that works.
  void CheckUntouched(int number, const Failure& failure) {
    if (GetParam().runs_statements || !IsExecuting(failure)) {
      EXPECT_GT(number, 1) << "no call has failed";
    }
    EXPECT_TRUE(m_answers.AllWell());
    EXPECT_EQ(TheFaultDriver().Handles(0), 0);
    const State state = m_stage->state->Read();
    EXPECT_EQ(state, m_after) << Difference(m_after, state);
    m_stage->state->PutBack();
  }

  // Scenarios that do not begin with a connection do not show by themselves that there can be one.
  static void ExpectToWork() {
    EXPECT_EQ(Connect(), 0);
    EXPECT_EQ(DB_OpenTPat(), 0);
    EXPECT_EQ(DB_MoveToTPatByPos(1), 1);
    EXPECT_EQ(DB_CloseDatabase(), 0);
    EXPECT_EQ(TheFaultDriver().Handles(0), 0);
  }

  static std::unique_ptr<Stage> m_stage;
  Answers m_answers;
  State m_after;
  std::string m_right;  // the answers when nothing fails
  int m_made = 0;       // calls of the last run
  int m_calls = 0;      // of a run in which none fails
  bool m_happened = false;
};
std::unique_ptr<Stage> Exhaustion::m_stage;

INSTANTIATE_TEST_SUITE_P(Scenarios, Exhaustion, testing::ValuesIn(AllScenarios()),
                         [](const auto& scenario) { return scenario.param.name; });

TEST_P(Exhaustion, WhicheverCallFailsNothingIsHalvedDoubledOrLeftBehind) {
  Reference();
  if (HasFailure()) return;
  int offset = static_cast<int>(GetParam().name.size());
  const int before = m_stage->runs;
  for (const Failure& failure : kFailures) {
    if (IsTried(failure)) FailAtEveryCall(failure, offset++);
  }
  EXPECT_GT(m_stage->runs, before) << "no call has failed";
  if (Stride() == 1) std::printf("%s: %d runs\n", GetParam().name.c_str(), m_stage->runs - before);
}

}  // namespace
}  // namespace faults
