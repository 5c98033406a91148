// Two threads at once. The library has no locks; a build with assertions looks out for them.
#include <atomic>
#include <thread>

#include "frame/KyODBCDiag.h"
#include "frame/connection.h"
#include "frame/last_failure.h"
#include "tests/flat/every_call.h"
#include "tests/hostile/log_file.h"
#include "tests/support/fixtures.h"

#ifndef NDEBUG

namespace hostile {
namespace {

class TwoThreads : public support::ConnectedTest {
 protected:
  // Runs `call` on a thread of its own and waits for it.
  template <class Call>
  static auto Elsewhere(Call call) {
    decltype(call()) answer{};
    std::thread([&] { answer = call(); }).join();
    return answer;
  }
};

TEST_F(TwoThreads, ACallThatMeetsAnotherIsRefusedAndBothAreNamedInTheLog) {
  LogFile log("error");
  LONG rows = -1;
  {
    const flat::FlatCall call("DB_AddNewTPat");
    EXPECT_EQ(Elsewhere([&] { return DB_GetNumTPat(&rows); }), 31);
  }
  EXPECT_EQ(rows, -1);
  EXPECT_NE(log.Text().find("error: two threads at once: DB_GetNumTPat refused while another thread is in "
                            "DB_AddNewTPat"),
            std::string::npos)
      << log.Text();
  EXPECT_EQ(DB_GetNumTPat(&rows), 0);
  EXPECT_EQ(rows, 0);
}

TEST_F(TwoThreads, NoFunctionWorksWhileAnotherThreadIsInOne) {
  ASSERT_EQ(DB_OpenTStat(), 0);
  const flat::FlatCall running("DB_AddNewTPat");
  for (const every::Call& call : every::Calls()) {
    const LONG answer = Elsewhere(call.run);
    const std::string name = call.name;
    const bool gives_code = call.answer == 3 || name == "DB_CloseDatabase" || name == "DB_GetDBVersion" ||
                            name == "DB_GetDBMS" || name == "DB_GetDBOwner" || name == "DB_IsTStatOpen";
    const LONG expected = name == "DB_CheckVersion" ? 1 : gives_code ? 31 : 0;
    EXPECT_EQ(answer, expected) << name;
  }
  EXPECT_EQ(DB_IsTStatOpen(), 1);
}

TEST_F(TwoThreads, TheRefusedCallIsNotTheLastFailure) {
  EXPECT_EQ(DB_AddNewTPat(nullptr), 1);
  tagDBERRORDETAIL detail{};
  {
    const flat::FlatCall call("DB_OpenTDr");
    EXPECT_EQ(Elsewhere([] { return DB_OpenTStat(); }), 31);
    EXPECT_EQ(Elsewhere([&] { return DB_GetLastErrorDetail(&detail, sizeof detail); }), 31);
  }
  ASSERT_EQ(DB_GetLastErrorDetail(&detail, sizeof detail), 0);
  EXPECT_EQ(support::Text(detail.szFunction), "DB_AddNewTPat");
}

TEST_F(TwoThreads, OneAfterTheOtherIsNoMistake) {
  LogFile log("error");
  tagTPATIENT patient{};
  support::SetText(patient.szSlidaID, "S1");
  EXPECT_EQ(Elsewhere([&] { return DB_AddNewTPat(&patient); }), 0);
  EXPECT_EQ(DB_GetTPat(&patient), 0);
  EXPECT_EQ(Elsewhere([] { return DB_OpenTPat(); }), 0);
  EXPECT_EQ(DB_MoveToTPatByPos(1), 1);
  EXPECT_EQ(log.Text(), "");
}

// One thread looks up its browse set, and before it comes to use it another one closes the connection.
TEST_F(TwoThreads, ASetThatAnotherThreadHasClosedMeanwhileIsNotTouched) {
  const void* const stations = TheConnection().m_pStat;
  EXPECT_EQ(Elsewhere([] { return DB_CloseDatabase(); }), 0);
  const flat::FlatCall call("DB_OpenTStat");
  EXPECT_TRUE(call.Refused(stations));
}

TEST_F(TwoThreads, AnyNumberOfCallsAtOnceLeaveAUsableLibrary) {
  LogFile log("error");
  constexpr int kCalls = 300;
  std::atomic<int> refused = 0;
  std::atomic<int> wrong = 0;
  const auto work = [&] {
    for (int i = 0; i < kCalls; ++i) {
      tagTPATIENT patient{};
      LONG rows = 0;
      const tagDBCONNECT parameters = m_practice.Parameters();
      for (const WORD code : {DB_OpenTPat(), DB_GetTPatByPos(1, &patient), DB_GetNumTPat(&rows),
                              i % 100 == 50 ? DB_CloseDatabase() : DB_CloseTPat(),
                              i % 10 == 5 ? DB_InitDatabase(&parameters) : DB_GetTPat(&patient)}) {
        if (code == 31) ++refused;
        if (code != 31 && code != 0 && code != 1 && code != 3 && code != 21 && code != 64) ++wrong;
      }
    }
  };
  std::thread one(work);
  std::thread two(work);
  one.join();
  two.join();
  EXPECT_GT(refused, 0);
  EXPECT_EQ(wrong, 0);
  DB_CloseDatabase();
  ASSERT_EQ(Connect(), 0);
  LONG rows = -1;
  EXPECT_EQ(DB_GetNumTPat(&rows), 0);
  EXPECT_EQ(rows, 0);
}

}  // namespace
}  // namespace hostile

#endif
