// Each scenario with its first allocation failing, then its second, and so on.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>

#include "tests/faults/connection.h"
#include "tests/faults/database_state.h"
#include "tests/faults/scenario.h"
#include "tests/memory/failing_memory.h"
#include "tests/memory/source.h"

namespace memory {
namespace {

using faults::Answers;
using faults::Scenario;
using faults::State;

// Without KYODBC_TEST_MEMORY=full, so many runs are made of each scenario and way of failing.
constexpr int kQuickRuns = 12;

bool IsFull() {
  const char* asked = std::getenv("KYODBC_TEST_MEMORY");
  return asked != nullptr && std::strcmp(asked, "full") == 0;
}

// The database refuses an order that ends with a comma, and what it says is logged.
void RefuseAnOrder(Answers& answers, const faults::Keys&) {
  constexpr WORD kRefused = 31;
  constexpr LONG kUnknownField = 127;
  answers.Code("open", DB_OpenTDr(), {3, 31});
  const WORD code = DB_SetTDrSortIndex(KYODBC_PACK(KYODBC_FIELD_KEY, kUnknownField, 0, 0));
  answers.Code("order", code == kRefused ? WORD{0} : code, {0});
  answers.Code("close", DB_CloseTDr(), {31});
}

// A lost connection takes the fault driver, whose own memory would fail.
std::vector<Scenario> Scenarios() {
  std::vector<Scenario> scenarios = faults::AllScenarios();
  std::erase_if(scenarios, [](const Scenario& scenario) {
    return scenario.name.find("Reconnect") != std::string::npos ||
           scenario.name.find("Lost") != std::string::npos;
  });
  scenarios.push_back({.name = "RefuseAnOrder", .run = RefuseAnOrder});
  return scenarios;
}

// What all scenarios share: a practice with a row in each table, and a connection past the library.
struct Stage {
  Stage() : raw(practice) {
    UsePractice(practice);
    faults::MakeProcedure(raw);
    EXPECT_EQ(faults::Connect(), 0);
    keys = faults::AddRows();
    EXPECT_EQ(DB_CloseDatabase(), 0);
    state.emplace(raw);
  }

  support::Practice practice;
  support::RawOdbc raw;
  faults::Keys keys;
  std::optional<faults::DatabaseState> state;
  int runs = 0;
  int changed = 0;
};

class Memory : public testing::TestWithParam<Scenario> {
 public:
  static void SetUpTestSuite() { m_stage = std::make_unique<Stage>(); }
  static void TearDownTestSuite() {
    std::printf("%d runs with failing memory, after %d of which the change was there\n", m_stage->runs,
                m_stage->changed);
    m_stage.reset();
  }

 protected:
  void TearDown() override {
    StopFailing();
    DB_CloseDatabase();
    m_stage->state->PutBack();
  }

  // Runs the scenario once and ends it with a closed library. 0: no allocation fails.
  void Run(int number, Failing failing) {
    const Scenario& scenario = GetParam();
    m_answers = Answers();
    // A text of more than these bytes has memory of its own.
    const auto texts = [&] {
      return int{m_answers.Text().capacity() > 15} + int{m_answers.NotAllowed().capacity() > 15};
    };
    const int live = Live() - texts();
    if (!scenario.connects) {
      ASSERT_EQ(faults::Connect(), 0) << "the library does not work again";
    }
    if (scenario.prepare != nullptr) scenario.prepare(m_stage->keys);
    m_escaped = false;
    FailAt(number == 0 ? -1 : number, failing == Failing::kOne || number == 0 ? Failing::kOne : failing);
    try {
      scenario.run(m_answers, m_stage->keys);
    } catch (const std::bad_alloc&) {
      m_escaped = true;
    }
    m_allocations = StopFailing();
    EXPECT_EQ(DB_CloseDatabase(), 0);
    EXPECT_EQ(DB_IsDatabaseOpen(), 0);
    m_kept = Live() - live - texts();
    m_all_well = m_answers.AllWell() && !m_escaped;
  }

  void Reference() {
    Run(0, Failing::kOne);
    ASSERT_TRUE(m_all_well) << m_answers.Text();
    m_after = m_stage->state->Read();
    m_stage->state->PutBack();
  }

  void Check() {
    EXPECT_EQ(m_answers.NotAllowed(), "");
    EXPECT_TRUE(!m_escaped || GetParam().passes_exceptions_on) << "bad_alloc left a flat function";
    const State state = m_stage->state->Read();
    const bool may_be_before = m_answers.MayBeBefore() || m_escaped;
    if (state == m_stage->state->Before() && (may_be_before || m_after == state)) return;
    EXPECT_TRUE(m_answers.MayBeAfter()) << "what was rolled back is there";
    ++m_stage->changed;
    EXPECT_TRUE(IsAfter(state)) << faults::Difference(m_after, state);
    m_stage->state->PutBack();
  }

  bool IsAfter(const State& state) const {
    if (GetParam().row_by_row && !m_all_well) return m_stage->state->IsBetween(state, m_after);
    if (GetParam().derives) return m_stage->state->IsAfterButForDerived(state, m_after);
    return state == m_after;
  }

  // The last run, in which nothing failed any more: all those before have left a library that works.
  void CheckUntouched(int number) {
    EXPECT_GT(number, 1) << "no allocation has failed";
    EXPECT_TRUE(m_all_well) << m_answers.Text();
    const State state = m_stage->state->Read();
    EXPECT_EQ(state, m_after) << faults::Difference(m_after, state);
    m_stage->state->PutBack();
  }

  void FailAtEach(Failing failing, int stride, int first) {
    for (int number = first;; number += stride) {
      Run(number, failing);
      if (HasFatalFailure()) return;
      if (!HasFailed()) return CheckUntouched(number);
      ++m_stage->runs;
      SCOPED_TRACE((failing == Failing::kOne ? "allocation " : "all allocations from ") +
                   std::to_string(number) + " of " + std::to_string(m_allocations) + ": " + m_answers.Text() +
                   (m_escaped ? ", bad_alloc" : ""));
      Check();
      EXPECT_EQ(m_kept, 0);
      if (HasFailure()) return;
    }
  }

  static std::unique_ptr<Stage> m_stage;
  Answers m_answers;
  State m_after;
  bool m_all_well = false;
  bool m_escaped = false;
  int m_allocations = 0;
  int m_kept = 0;
};
std::unique_ptr<Stage> Memory::m_stage;

INSTANTIATE_TEST_SUITE_P(Scenarios, Memory, testing::ValuesIn(Scenarios()),
                         [](const auto& scenario) { return scenario.param.name; });

TEST_P(Memory, WhicheverAllocationFailsNothingIsHalvedKeptOrCrashes) {
  Reference();
  if (HasFailure()) return;
  // The first time round something may be kept for good.
  Reference();
  const int allocations = m_allocations;
  const int stride = IsFull() ? 1 : std::max(1, allocations / kQuickRuns);
  const int offset = static_cast<int>(GetParam().name.size()) % stride;
  FailAtEach(Failing::kOne, stride, 1 + offset);
  if (HasFailure()) return;
  FailAtEach(Failing::kAllBehind, stride, 1 + (offset + stride / 2) % stride);
}

}  // namespace
}  // namespace memory
