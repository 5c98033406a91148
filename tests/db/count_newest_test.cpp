// Counting the rows of an owner, and finding the newest.
#include <string>

#include "recset/grp_rec.h"
#include "recset/mak_rec.h"
#include "recset/test_rec.h"
#include "tests/support/fixtures.h"

namespace {

using support::TimeText;
using support::Ts;

class CountsAndDates : public support::ConnectedTest {
 protected:
  void SetUp() override {
    support::ConnectedTest::SetUp();
    for (int i = 1; i <= 3; ++i) {
      const std::string n = std::to_string(i);
      Raw().Exec("INSERT INTO TGroup (tGrpCulIntPatIDFk) VALUES (" + std::to_string(i % 2) + "+1)");
      Raw().Exec("INSERT INTO TTest (tTstCulIntUnitIDFk, tTstTs) VALUES (" + std::to_string(i % 2) +
                 "+1, '2001-05-0" + n + " 10:00:00')");
      Raw().Exec("INSERT INTO TMakro (tMakCulIntImgIDFk, tMakTsLast) VALUES (" + std::to_string(i % 2) +
                 "+1, '2001-05-0" + n + " 10:00:00')");
    }
  }
  // The key of the row of that day; a database may leave keys out.
  LONG Makro(const char* day) {
    return Raw().Number(std::string("SELECT tMakCulIntMakIDPk FROM TMakro WHERE tMakTsLast = '2001-05-0") +
                        day + " 10:00:00'");
  }
  LONG Test(const char* day) {
    return Raw().Number(std::string("SELECT tTstCulIntTstIDPk FROM TTest WHERE tTstTs = '2001-05-0") + day +
                        " 10:00:00'");
  }
};

TEST_F(CountsAndDates, CountTheRowsOfOneOwnerOrOfAll) {
  const struct {
    LONG owner;
    LONG rows;
  } cases[] = {
      {1, 1},
      {2, 2},
      {3, 0},
      {0, 3}
  };
  for (const auto& row : cases) {
    LONG groups = -1;
    LONG makros = -1;
    LONG tests = -1;
    EXPECT_EQ(CGrpRec(nullptr, nullptr).CountRows(row.owner, &groups), 0);
    EXPECT_EQ(CMakRec(nullptr, nullptr).CountRows(row.owner, &makros), 0);
    EXPECT_EQ(CTestRec(nullptr, nullptr).CountRows(row.owner, &tests), 0);
    EXPECT_EQ(groups, row.rows) << row.owner;
    EXPECT_EQ(makros, row.rows) << row.owner;
    EXPECT_EQ(tests, row.rows) << row.owner;
  }
}

TEST_F(CountsAndDates, FindTheNewestRowOfOneOwnerOrOfAll) {
  LONG key = 0;
  TIMESTAMP_STRUCT time{};
  EXPECT_EQ(CMakRec(nullptr, nullptr).GetNewest(1, &key, &time), 0);
  EXPECT_EQ(key, Makro("2"));
  EXPECT_EQ(TimeText(time), TimeText(Ts(2001, 5, 2, 10, 0, 0)));
  EXPECT_EQ(CMakRec(nullptr, nullptr).GetNewest(0, &key, &time), 0);
  EXPECT_EQ(key, Makro("3"));
  EXPECT_EQ(CTestRec(nullptr, nullptr).GetNewest(1, &key, &time), 0);
  EXPECT_EQ(key, Test("2"));
  EXPECT_EQ(CTestRec(nullptr, nullptr).GetNewest(0, &key, &time), 0);
  EXPECT_EQ(key, Test("3"));
  EXPECT_EQ(TimeText(time), TimeText(Ts(2001, 5, 3, 10, 0, 0)));
}

TEST_F(CountsAndDates, EitherOutputOfTheNewestRowMayBeNull) {
  LONG key = 0;
  TIMESTAMP_STRUCT time{};
  EXPECT_EQ(CMakRec(nullptr, nullptr).GetNewest(0, nullptr, &time), 0);
  EXPECT_EQ(time.day, 3);
  EXPECT_EQ(CMakRec(nullptr, nullptr).GetNewest(0, &key, nullptr), 0);
  EXPECT_EQ(key, Makro("3"));
  EXPECT_EQ(CMakRec(nullptr, nullptr).GetNewest(0, nullptr, nullptr), 0);
}

TEST_F(CountsAndDates, WithoutARowTheNewestHasTheTablesCodeAndTheOutputsStay) {
  LONG key = 77;
  TIMESTAMP_STRUCT time = Ts(1999, 1, 1);
  EXPECT_EQ(CMakRec(nullptr, nullptr).GetNewest(9, &key, &time), 64);
  EXPECT_EQ(CTestRec(nullptr, nullptr).GetNewest(9, &key, &time), 67);
  EXPECT_EQ(key, 77);
  EXPECT_EQ(time.year, 1999);
}

TEST_F(CountsAndDates, AMissingTableGives3AndTheOutputsStay) {
  TakeAway("TMakro");
  LONG key = 77;
  EXPECT_EQ(CMakRec(nullptr, nullptr).CountRows(0, &key), 3);
  EXPECT_EQ(CMakRec(nullptr, nullptr).GetNewest(0, &key, nullptr), 3);
  EXPECT_EQ(key, 77);
}

}  // namespace
