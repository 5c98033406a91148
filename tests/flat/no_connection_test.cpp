// Every exported function without a connection: a defined answer and no crash.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "tests/flat/every_call.h"

namespace {

class WithoutConnection : public testing::TestWithParam<every::Call> {};
INSTANTIATE_TEST_SUITE_P(Calls, WithoutConnection,
                         testing::ValuesIn(every::Calls().begin(), every::Calls().end()),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(WithoutConnection, AnswersWithoutCrashing) {
  EXPECT_EQ(GetParam().run(), GetParam().answer);
  EXPECT_EQ(DB_IsDatabaseOpen(), 0);
}

TEST(WithoutAnyConnection, EveryExportedFunctionIsTried) {
  std::ifstream file(KYODBC_SOURCE_DIR "/frame/exports.txt");
  std::vector<std::string> exported;
  for (std::string line; std::getline(file, line);) {
    if (line.rfind("DB_", 0) == 0) exported.push_back(line.substr(0, line.find_first_of(" \t\r")));
  }
  std::vector<std::string> tried;
  for (const every::Call& call : every::Calls()) tried.emplace_back(call.name);
  std::sort(exported.begin(), exported.end());
  std::sort(tried.begin(), tried.end());
  EXPECT_EQ(tried.size(), 228u);
  EXPECT_EQ(tried, exported);
}

TEST(WithoutAnyConnection, RecordsStayAsTheyAre) {
  tagTTEST test{};
  EXPECT_EQ(DB_EditSelTTest(&test, KYODBC_MASK_ALL), 3);
  EXPECT_EQ(test.szPerson[0], '\0');
  tagTGROUP group{};
  EXPECT_EQ(DB_AddNewTGrp(&group), 3);
  EXPECT_EQ(group.szLoc[0], '\0');
  LONG count = 77;
  EXPECT_EQ(DB_GetTPatMaxPos(&count), 3);
  EXPECT_EQ(DB_GetNumTPat(&count), 3);
  EXPECT_EQ(DB_GetLastPatID(&count), 3);
  EXPECT_EQ(DB_GetLastTImgDate(0, &count, nullptr), 3);
  EXPECT_EQ(count, 77);
}

TEST(WithoutAnyConnection, NullArgumentsComeSecond) {
  EXPECT_EQ(DB_GetTStatByPos(1, nullptr), 3);
  EXPECT_EQ(DB_AddNewTStat(nullptr), 3);
  EXPECT_EQ(DB_GetTStatMaxPos(nullptr), 3);
  EXPECT_EQ(DB_GetNumTStat(nullptr), 3);
  EXPECT_EQ(DB_GetNumPatEx(nullptr), 3);
  EXPECT_EQ(DB_AddNewPat(nullptr), 3);
  EXPECT_EQ(DB_MoveToTPatByString(nullptr), 0);
}

}  // namespace
