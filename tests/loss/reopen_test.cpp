// DB_ReopenAtKey goes on where a lost connection ended the browsing.
#include "frame/KyODBCDiag.h"
#include "tests/loss/loss_test_base.h"

namespace loss {
namespace {

using support::Loss;

class Reopen : public LossTest {
 protected:
  void SetUp() override {
    LossTest::SetUp();
    for (const char* name : {"Meyer", "Adam", "Meyer"}) {
      tagTPATIENT patient = Patient(name, "n" + std::to_string(m_keys.size()));
      ASSERT_EQ(DB_AddNewTPat(&patient), 0);
      m_keys.push_back(patient.lPatID);
    }
    ASSERT_EQ(FilterBy("Meyer"), 0);
    ASSERT_EQ(DB_SetTPatSortIndex(KYODBC_FIELD_KEY | KYODBC_DESCENDING), 0);
    ASSERT_EQ(DB_OpenTPat(), 0);
    ASSERT_EQ(DB_MoveToTPatByPos(2), 2);
  }
  static WORD FilterBy(const char* name) {
    return DB_SetTPatFilter(KYODBC_FIELD_NAME, KYODBC_EQUAL, name, nullptr, nullptr, nullptr);
  }
  // The patients named Meyer, the newest first; the older one is current.
  void ExpectAsItWas() {
    LONG position = 0;
    ASSERT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, m_keys[0], &position), 0);
    EXPECT_EQ(position, 2);
    LONG rows = 0;
    EXPECT_EQ(DB_GetTPatMaxPos(&rows), 0);
    EXPECT_EQ(rows, 2);
    tagTPATIENT patient{};
    EXPECT_EQ(DB_GetTPatByPos(0, &patient), 0);
    EXPECT_EQ(support::Val(patient.lPatID), m_keys[0]);
    EXPECT_EQ(DB_GetTPatByPos(1, &patient), 0);
    EXPECT_EQ(support::Val(patient.lPatID), m_keys[2]);
  }
  std::vector<LONG> m_keys;
};

TEST_F(Reopen, RestoresTheConnectionTheFilterTheSortAndTheRow) {
  TheRelay().Lose(Loss::kReset);
  ExpectAsItWas();
}

TEST_F(Reopen, DoesSoAfterACallHasMetTheLossAndAfterAPlainOpenHasHealed) {
  TheRelay().Lose(Loss::kReset);
  tagTPATIENT patient{};
  EXPECT_NE(DB_GetTPatByPos(1, &patient), 0);
  ASSERT_EQ(DB_OpenTPat(), 0);
  LONG rows = 0;
  EXPECT_EQ(DB_GetTPatMaxPos(&rows), 0);
  EXPECT_EQ(rows, 4);  // a plain open has no filter then
  ExpectAsItWas();
}

TEST_F(Reopen, DoesSoAfterSeveralLosses) {
  for (int loss = 0; loss < 3; ++loss) {
    TheRelay().Lose(Loss::kReset);
    ASSERT_EQ(DB_OpenPatEx(), 0);
  }
  ExpectAsItWas();
}

TEST_F(Reopen, TriesAgainUntilTheServerIsBack) {
  TheRelay().Refuse(true);
  TheRelay().Lose(Loss::kReset);
  LONG position = -1;
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, m_keys[0], &position), 3);
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, m_keys[0], &position), 3);
  EXPECT_EQ(position, -1);
  TheRelay().Refuse(false);
  ExpectAsItWas();
}

TEST_F(Reopen, TakesTheFilterThatWasGivenSince) {
  TheRelay().Lose(Loss::kReset);
  ASSERT_EQ(DB_OpenTPat(), 0);
  ASSERT_EQ(FilterBy("Adam"), 0);
  LONG position = 0;
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, m_keys[1], &position), 0);
  EXPECT_EQ(position, 1);
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, m_keys[0], &position), 64);
}

TEST_F(Reopen, SaysThatTheRowWasDeletedMeanwhile) {
  TheRelay().Lose(Loss::kReset);
  Raw().Exec("DELETE FROM TPatient WHERE tPatCulIntPatIDPk = " + std::to_string(m_keys[0]));
  LONG position = -1;
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, m_keys[0], &position), 64);
  EXPECT_EQ(position, -1);
  tagTPATIENT patient{};
  EXPECT_EQ(DB_GetTPatByPos(0, &patient), 0);
  EXPECT_EQ(support::Val(patient.lPatID), m_keys[2]);
}

TEST_F(Reopen, BringsTheJoinedViewBackToo) {
  ASSERT_EQ(DB_SetPatExFilter(KYODBC_FIELD_NAME, KYODBC_EQUAL, "Meyer", nullptr, nullptr, nullptr), 0);
  ASSERT_EQ(DB_OpenPatEx(), 0);
  TheRelay().Lose(Loss::kReset);
  ExpectAsItWas();
  LONG position = 0;
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_PATEX, m_keys[2], &position), 0);
  LONG rows = 0;
  EXPECT_EQ(DB_GetPatExMaxPos(&rows), 0);
  EXPECT_EQ(rows, 2);
}

TEST_F(Reopen, KnowsNothingOfAnEarlierConnectionThatWasClosed) {
  TheRelay().Lose(Loss::kReset);
  ASSERT_EQ(DB_OpenTPat(), 0);
  ASSERT_EQ(DB_CloseDatabase(), 0);
  ASSERT_EQ(Connect(), 0);
  LONG position = 0;
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, m_keys[1], &position), 0);
  LONG rows = 0;
  EXPECT_EQ(DB_GetTPatMaxPos(&rows), 0);
  EXPECT_EQ(rows, 4);
}

}  // namespace
}  // namespace loss
