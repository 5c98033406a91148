// A driver that never gets done: the library waits as long as a statement may take, and no longer.
#include <gtest/gtest.h>

#include <chrono>

#include "platform/cdatabase.h"
#include "tests/faults/connection.h"
#include "tests/faults/hurried_clock.h"
#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"

namespace faults {
namespace {

using Clock = std::chrono::steady_clock;

class StillExecuting : public testing::Test {
 protected:
  StillExecuting() : m_source(m_practice) {
    UseSource(m_source);
    EXPECT_EQ(Connect(), 0);
  }
  ~StillExecuting() override {
    TheFaultDriver().Forget();
    EXPECT_EQ(DB_CloseDatabase(), 0);
    EXPECT_EQ(TheFaultDriver().Handles(0), 0);
  }

  static void ConnectTo(const FaultSource& source) {
    ASSERT_EQ(DB_CloseDatabase(), 0);
    UseSource(source);
    ASSERT_EQ(Connect(), 0);
  }

  // The virtual time that opening the patients takes.
  static double SecondsToOpen(WORD* code) {
    const HurriedClock clock;
    const auto start = Clock::now();
    *code = DB_OpenTDr();
    return std::chrono::duration<double>(Clock::now() - start).count();
  }

  support::Practice m_practice;
  FaultSource m_source;
};

TEST_F(StillExecuting, AStatementThatNeverEndsIsGivenUpAfterTheQueryTimeout) {
  WORD code = 0;
  TheFaultDriver().Order("SQLExecute 1 executing endless");
  const double seconds = SecondsToOpen(&code);
  EXPECT_EQ(code, 31);
  EXPECT_GE(seconds, 15);
  EXPECT_LT(seconds, 20);
  EXPECT_EQ(DB_OpenTDr(), 0);
}

TEST_F(StillExecuting, AnotherQueryTimeoutIsKeptTo) {
  WORD code = 0;
  DB_GetDatabase()->SetQueryTimeout(3);
  TheFaultDriver().Order("SQLExecute 1 executing endless");
  const double seconds = SecondsToOpen(&code);
  EXPECT_EQ(code, 31);
  EXPECT_GE(seconds, 3);
  EXPECT_LT(seconds, 6);
}

TEST_F(StillExecuting, AStatementThatGetsDoneInTimeSucceeds) {
  TheFaultDriver().Order("SQLExecute 1 executing 100");
  EXPECT_EQ(DB_OpenTDr(), 0);
  EXPECT_EQ(TheFaultDriver().Happened(), 1);
}

// One real driver would tell of a row at every number from then on, and fill none.
TEST_F(StillExecuting, ASetWhoseFetchWasGivenUpHasNoRowsUntilItIsReadAgain) {
  const support::Practice practice({.with_owner = true});
  const FaultSource source(practice);
  ConnectTo(source);
  tagTSTATION station{};
  support::SetText(station.szName, "Second");
  ASSERT_EQ(DB_AddNewTStat(&station), 0);
  ASSERT_EQ(DB_OpenTStat(), 0);
  TheFaultDriver().Order("SQLExtendedFetch 1 executing endless");
  {
    const HurriedClock clock;
    EXPECT_EQ(DB_MoveToTStatByPos(2), 0);
  }
  EXPECT_EQ(TheFaultDriver().Happened(), 1);
  TheFaultDriver().Forget();
  LONG rows = -1;
  EXPECT_EQ(DB_MoveToTStatByPos(2), 0);
  EXPECT_EQ(DB_MoveToTStatByPos(7), 0);
  EXPECT_NE(DB_GetTStatMaxPos(&rows), 0);
  ASSERT_EQ(DB_OpenTStat(), 0);
  EXPECT_EQ(DB_MoveToTStatByPos(2), 2);
  EXPECT_EQ(DB_GetTStatMaxPos(&rows), 0);
  EXPECT_EQ(rows, 2);
}

TEST_F(StillExecuting, ACountDuringWhichAFetchFailsIsNone) {
  const support::Practice practice({.with_owner = true});
  const FaultSource source(practice);
  ConnectTo(source);
  int failed = 0;
  for (int number = 1; number < 100; ++number) {
    LONG rows = -1;
    TheFaultDriver().Order("SQLExtendedFetch " + std::to_string(number) + " error");
    const WORD code = DB_GetNumTStat(&rows);
    const bool happened = TheFaultDriver().Happened() != 0;
    TheFaultDriver().Forget();
    if (code == 0) {
      EXPECT_EQ(rows, 1) << "at fetch " << number;
    } else {
      ++failed;
    }
    if (!happened) break;
  }
  EXPECT_GT(failed, 10);
}

using LyingEnd = StillExecuting;

TEST_F(LyingEnd, AConnectionWhoseDisconnectingFailsOnceIsEndedAllTheSame) {
  for (const char* way : {"error", "error after"}) {
    TheFaultDriver().Order(std::string("SQLDisconnect 1 ") + way);
    EXPECT_EQ(DB_CloseDatabase(), 0);
    EXPECT_EQ(TheFaultDriver().Happened(), 1);
    EXPECT_EQ(TheFaultDriver().Handles(0), 0);
    TheFaultDriver().Forget();
    EXPECT_EQ(Connect(), 0);
  }
}

// Whatever becomes of begin and rollback, a change afterwards is stored.
TEST_F(LyingEnd, AChangeIsStoredAfterABeginAndARollbackOfWhichAnyCallFailed) {
  for (const char* way : {"error", "error after"}) {
    for (int number = 1; number < 1000; ++number) {
      TheFaultDriver().Order("call " + std::to_string(number) + " " + way);
      DB_BeginTransaction();
      DB_RollbackTransaction();
      const bool happened = TheFaultDriver().Happened() != 0;
      TheFaultDriver().Forget();
      // A connection that was given up is made again by an open.
      ASSERT_EQ(DB_OpenTPat(), 0) << way << " at call " << number;
      ASSERT_EQ(DB_WriteProfileInt("After", "-", number), 0) << way << " at call " << number;
      support::RawOdbc raw(m_practice);
      ASSERT_EQ(raw.Text("SELECT tCfgSSet FROM TConfig WHERE tCfgSKey = 'After'"), std::to_string(number))
          << way << " at call " << number;
      if (!happened) break;
    }
  }
}

}  // namespace
}  // namespace faults
