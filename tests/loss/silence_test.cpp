// The server falls silent in the middle of the work: no call waits for ever.
#include "tests/loss/loss_test_base.h"

namespace loss {
namespace {

using support::Loss;

// One driver sees silence by itself. The other one sees only that the machine at the other end does not
// acknowledge any more; a server that hangs on a machine that is up keeps its calls waiting.
Loss SilenceSeen() { return OnPostgresql() ? Loss::kDead : Loss::kSilent; }

class Silence : public LossTest {
 protected:
  support::Options MoreOptions() const override {
    if (OnPostgresql()) {
      return {
          {"pqopt", "keepalives_idle=1 keepalives_interval=1 tcp_user_timeout=2000"}
      };
    }
    return {
        {"READ_TIMEOUT", "2"}
    };
  }
  static constexpr Seconds kBound{10};

  // Counts, rows of browse sets, single rows, changes, highest keys; connecting has read settings.
  void UseEveryKindOfStatement() {
    ASSERT_EQ(DB_OpenTPat(), 0);
    LONG count = 0;
    ASSERT_EQ(DB_GetNumTPat(&count), 0);
    tagTPATIENT patient = {};
    ASSERT_EQ(DB_GetTPatByPos(0, &patient), 0);
    ASSERT_EQ(DB_GetTPat(&patient), 0);
    ASSERT_EQ(DB_EditTPat(&patient), 0);
    LONG last = 0;
    ASSERT_EQ(DB_GetLastPatID(&last), 0);
    EXPECT_EQ(last, patient.lPatID);
    DB_CloseTPat();
  }
};

TEST_F(Silence, AReadEndsAndTheConnectionIsMadeAgain) {
  TheRelay().Lose(SilenceSeen());
  LONG count = 0;
  EXPECT_LT(Time([&] { EXPECT_EQ(DB_GetNumTPat(&count), 31); }), kBound);
  ExpectHealed();
}

TEST_F(Silence, TheKeepAliveItselfSeesIt) {
  ASSERT_EQ(DB_OpenTPat(), 0);
  TheRelay().Lose(SilenceSeen());
  EXPECT_LT(Time([&] { EXPECT_EQ(DB_OpenTPat(), 0); }), kBound);
  ExpectHealed();
}

TEST_F(Silence, AChangeEndsAndIsNotThere) {
  TheRelay().Lose(SilenceSeen());
  tagTPATIENT patient = Patient("New", "New");
  EXPECT_LT(Time([&] { EXPECT_EQ(DB_AddNewTPat(&patient), 6); }), kBound);
  EXPECT_EQ(Raw().Count("TPatient"), 1);
  ExpectHealed();
}

TEST_F(Silence, ACommitEndsAndNothingOfTheTransactionStays) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  tagTPATIENT patient = Patient("New", "New");
  ASSERT_EQ(DB_AddNewTPat(&patient), 0);
  TheRelay().Lose(SilenceSeen());
  EXPECT_LT(Time([&] { EXPECT_EQ(DB_CommitTransaction(), 1); }), kBound);
  EXPECT_EQ(DB_CommitTransaction(), 3);
  EXPECT_EQ(Raw().Count("TPatient"), 1);
  ExpectHealed();
}

// What the driver has prepared on the server by then must not be given back one by one.
TEST_F(Silence, ClosingDoesNotWaitForTheServer) {
  for (const Loss loss : {Loss::kSilent, Loss::kDead}) {
    UseEveryKindOfStatement();
    TheRelay().Lose(loss);
    EXPECT_LT(Time([] { EXPECT_EQ(DB_CloseDatabase(), 0); }), Seconds(1));
    ASSERT_EQ(Connect(), 0);
  }
}

using SilenceWithoutOptions = LossTest;

// The library's own limit: the query time-out of 15 seconds and 5 more.
TEST_F(SilenceWithoutOptions, EndsACallAfterTwentySeconds) {
  TheRelay().Lose(SilenceSeen());
  LONG count = 0;
  const Seconds waited = Time([&] { EXPECT_EQ(DB_GetNumTPat(&count), 31); });
  EXPECT_GT(waited, Seconds(18));
  EXPECT_LT(waited, Seconds(35));
  ExpectHealed();
}

using SlowStatement = LossTest;

// The server ends it, so that the connection stays.
TEST_F(SlowStatement, EndsWithTheQueryTimeOutAndTheConnectionLives) {
  Raw().Exec(OnPostgresql() ? "CREATE VIEW Slow AS SELECT CAST(pg_sleep(60) AS text) AS slept"
                            : "CREATE VIEW Slow AS SELECT SLEEP(60) AS slept");
  bool failed = false;
  const Seconds waited = Time([&] {
    try {
      DB_GetDatabase()->ExecuteSQL("SELECT slept FROM Slow");
    } catch (CDBException* exception) {
      failed = true;
      exception->Delete();
    }
  });
  Raw().Exec("DROP VIEW Slow");
  EXPECT_TRUE(failed);
  EXPECT_GT(waited, Seconds(13));
  EXPECT_LT(waited, Seconds(19));
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
  ExpectHealed();
}

}  // namespace
}  // namespace loss
