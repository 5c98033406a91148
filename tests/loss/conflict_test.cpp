// Two changes that wait for each other: the database ends one of them.
#include <future>
#include <thread>

#include "tests/loss/loss_test_base.h"

namespace loss {
namespace {

class Conflict : public LossTest {
 protected:
  // Of two sessions that wait for each other MariaDB ends the one that changed less, PostgreSQL the one that
  // asks first: never this one.
  void MakeTheOtherSessionStrong(support::RawOdbc& other) const {
    if (OnPostgresql()) {
      other.Exec("SET deadlock_timeout = '60s'");
      return;
    }
    other.Exec("UPDATE TConfig SET tCfgSSet = CONCAT(tCfgSSet, ' ')");
    for (int i = 0; i < 20; ++i) {
      other.Exec("INSERT INTO TStation (tStatSName) VALUES ('other" + std::to_string(i) + "')");
    }
  }
};

TEST_F(Conflict, AnEditThatADeadlockEndsGives6AndLeavesNothingOfItsTransaction) {
  tagTSTATION station{};
  support::SetText(station.szName, "Before");
  ASSERT_EQ(DB_AddNewTStat(&station), 0);
  support::RawOdbc other(*m_practice);
  other.Exec("START TRANSACTION");
  MakeTheOtherSessionStrong(other);
  other.Exec("UPDATE TStation SET tStatSName = 'Theirs' WHERE tStatCulIntStatIDPk = " +
             std::to_string(station.lStatID));

  ASSERT_EQ(DB_BeginTransaction(), 0);
  tagTPATIENT patient{};
  patient.lPatID = m_patient;
  support::SetText(patient.szFirstname, "Ours");
  ASSERT_EQ(DB_EditSelTPat(&patient, 1 << 6), 0);
  auto waiting = std::async(std::launch::async, [&] {
    other.Exec("UPDATE TPatient SET tPatSFirstname = 'Theirs' WHERE tPatCulIntPatIDPk = " +
               std::to_string(m_patient));
  });
  const std::string waits = OnPostgresql()
                                ? "SELECT COUNT(*) FROM pg_stat_activity WHERE wait_event_type = 'Lock'"
                                : "SELECT variable_value FROM information_schema.global_status "
                                  "WHERE variable_name = 'Innodb_row_lock_current_waits'";
  // Should the other session not come to wait, rolling back lets it end: a future waits for its thread.
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (Raw().Number(waits) == 0) {
    if (std::chrono::steady_clock::now() > end) DB_RollbackTransaction();
    ASSERT_LT(std::chrono::steady_clock::now(), end) << "the other session does not wait";
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  support::SetText(station.szName, "Ours");
  EXPECT_EQ(DB_EditSelTStat(&station, 1), 6);
  EXPECT_EQ(DB_RollbackTransaction(), 0);
  waiting.get();
  other.Exec("COMMIT");

  EXPECT_EQ(Raw().Count("TPatient", "tPatSFirstname = 'Theirs'"), 1);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName = 'Theirs'"), 1);
  support::SetText(station.szName, "Ours");
  EXPECT_EQ(DB_EditSelTStat(&station, 1), 0);  // tried again
  EXPECT_EQ(Raw().Count("TStation", "tStatSName = 'Ours'"), 1);
}

}  // namespace
}  // namespace loss
