// Every exported function tells its own name when it fails.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "frame/KyODBC.h"
#include "tests/flat/error_detail.h"
#include "tests/flat/every_call.h"
#include "tests/support/fixtures.h"

namespace {

constexpr const char* kOther = "DB_WriteProfileString";

// A failure of a function that no test here looks at in that moment.
void FailElsewhere() { DB_WriteProfileString(nullptr, nullptr, nullptr); }

// Without a connection these have nothing to fail at: they answer what is so.
bool OnlyAnswers(const std::string& name) {
  static const std::set<std::string> names = {"DB_CloseDatabase", "DB_CheckVersion", "DB_GetDBVersion",
                                              "DB_GetDBMS", "DB_GetDBOwner"};
  return names.count(name) > 0 || (name.rfind("DB_Is", 0) == 0 && name.ends_with("Open"));
}

class FailureNames : public testing::TestWithParam<every::Call> {};
INSTANTIATE_TEST_SUITE_P(Calls, FailureNames, testing::ValuesIn(every::Calls().begin(), every::Calls().end()),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(FailureNames, AreThoseOfTheFunctionsThatFailedWithoutAConnection) {
  FailElsewhere();
  GetParam().run();
  const std::string name = GetParam().name;
  const Failure failure = LastFailure();
  if (OnlyAnswers(name)) {
    ExpectOwnRefusal(failure, 1, kOther);
  } else if (name == "DB_InitDatabase") {
    ExpectRefusalByDatabase(
        {failure.code, failure.function, failure.state, 1, failure.records, failure.message}, 3, name);
  } else {
    ExpectOwnRefusal(failure, 3, name);
  }
}

TEST(FailureNamesOfAnswers, ThatDoNotSuitTheArguments) {
  char text[8];
  ASSERT_EQ(DB_CheckVersion(KYODBC_INTERFACE_VERSION + 1, nullptr), 0);
  ExpectOwnRefusal(LastFailure(), 1, "DB_CheckVersion");
  ASSERT_EQ(DB_GetDBMS(text, 0), 1);
  ExpectOwnRefusal(LastFailure(), 1, "DB_GetDBMS");
  ASSERT_EQ(DB_GetDBOwner(text, 0), 1);
  ExpectOwnRefusal(LastFailure(), 1, "DB_GetDBOwner");
  ASSERT_EQ(DB_GetInfo(nullptr), 1);
  ExpectOwnRefusal(LastFailure(), 1, "DB_GetInfo");
  ASSERT_EQ(DB_InitDatabase(nullptr), 1);
  ExpectOwnRefusal(LastFailure(), 1, "DB_InitDatabase");
  ASSERT_EQ(DB_GetProfileString("k", "-", nullptr, text, 8, nullptr), 1);
  ExpectOwnRefusal(LastFailure(), 1, "DB_GetProfileString");
  ASSERT_EQ(DB_GetProfileInt("k", "-", 1, nullptr), 1);
  ExpectOwnRefusal(LastFailure(), 1, "DB_GetProfileInt");
}

// The same calls on a practice with nothing but its default rows.
class FailureNamesWhenConnected : public support::ConnectedTest {};

TEST_F(FailureNamesWhenConnected, AreThoseOfTheFunctionsThatFailed) {
  int failed = 0;
  for (const every::Call& call : every::Calls()) {
    const std::string name = call.name;
    if (name == "DB_CloseDatabase") continue;
    FailElsewhere();
    const LONG answer = call.run();
    const bool gives_code = call.answer == 3;
    const bool moves = name.rfind("DB_MoveTo", 0) == 0;
    const bool failure = (gives_code && answer != 0) || (moves && answer == 0);
    const Failure last = LastFailure();
    EXPECT_EQ(last.function, failure ? name : kOther) << name << " answered " << answer;
    EXPECT_EQ(last.code, !failure ? 1 : moves ? 64 : answer) << name;
    failed += failure ? 1 : 0;
  }
  EXPECT_GT(failed, 80);
}

TEST_F(FailureNamesWhenConnected, AreNotThoseOfWhatTheLibraryCallsForItself) {
  FailElsewhere();
  ASSERT_EQ(DB_CloseDatabase(), 0);
  Raw().Exec("DELETE FROM TConfig");  // the settings that a connection reads at its start
  ASSERT_EQ(Connect(), 0);
  EXPECT_EQ(LastFailure().function, kOther);
  const CKyRecSet set(nullptr, nullptr);
  ASSERT_EQ(DB_CloseDatabase(), 0);
  const CKyRecSet unconnected(nullptr, nullptr);
  EXPECT_EQ(LastFailure().function, kOther);
  ASSERT_EQ(Connect(), 0);
}

}  // namespace
