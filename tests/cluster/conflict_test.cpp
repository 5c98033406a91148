// Two nodes change the same row: the cluster decides against one of them.
#include <atomic>
#include <cstdio>
#include <thread>

#include "frame/KyODBCDiag.h"
#include "tests/cluster/cluster_test.h"
#include "tests/cluster/program.h"
#include "tests/support/records.h"

namespace cluster {
namespace {

constexpr DWORD kFirstName = 1 << 6;
constexpr WORD kDeleteRefused = 8;
constexpr WORD kWriteRefused = 6;

// The library works on the first node, another program on the second.
class Conflict : public ClusterTest {
 protected:
  void SetUp() override {
    ASSERT_NE(TheGalera(), nullptr) << "of the other kind one node only takes changes";
    m_here = Patiently(m_source_at["node1"]);
    m_there = Patiently(m_source_at["node2"]);
    // The node itself would try a single statement again, and hide most conflicts.
    m_here->Exec("SET GLOBAL wsrep_retry_autocommit = 0");
    ASSERT_EQ(Connect(m_source_at["node1"]), 0);
    tagTPATIENT patient = EditedPatient("Before");
    ASSERT_EQ(DB_AddNewTPat(&patient), 0);
    m_patient = patient.lPatID;
  }
  void TearDown() override {
    if (m_here != nullptr) m_here->Exec("SET GLOBAL wsrep_retry_autocommit = 1");
    ClusterTest::TearDown();
  }

  WORD Rename(const std::string& first_name) const {
    tagTPATIENT patient{};
    patient.lPatID = m_patient;
    support::SetText(patient.szFirstname, first_name);
    return DB_EditSelTPat(&patient, kFirstName);
  }
  static WORD AddStation(const char* name) {
    tagTSTATION station{};
    support::SetText(station.szName, name);
    return DB_AddNewTStat(&station);
  }
  std::string FirstName(support::RawOdbc& session) const {
    return session.Text("SELECT tPatSFirstname FROM TPatient WHERE tPatCulIntPatIDPk = " +
                        std::to_string(m_patient));
  }
  // The other program changes our patient, and that has arrived here.
  void TheyChangeIt() {
    m_there->Exec("UPDATE TPatient SET tPatSFirstname = 'Theirs' WHERE tPatCulIntPatIDPk = " +
                  std::to_string(m_patient));
    EXPECT_EQ(FirstName(*m_here), "Theirs");
  }
  static void ExpectConflictTold() {
    tagDBERRORDETAIL detail{};
    ASSERT_EQ(DB_GetLastErrorDetail(&detail, sizeof detail), 0);
    EXPECT_STREQ(detail.szState, "40001") << detail.szMessage;
    EXPECT_EQ(support::Val(detail.lNative), 1213);
  }
  // While it lives, the other program changes something else in the row all the time.
  class Busy {
   public:
    Busy(support::RawOdbc& session, const std::string& change)
        : m_thread([this, &session, change] {
            for (int number = 0; !m_end; ++number) {
              try {
                session.Query(change, {std::to_string(number % 10)});
              } catch (const std::runtime_error&) {  // it has lost this time
              }
            }
          }) {}
    ~Busy() {
      m_end = true;
      m_thread.join();
    }

   private:
    std::atomic<bool> m_end = false;
    std::thread m_thread;
  };

  LONG m_patient = 0;
  std::unique_ptr<support::RawOdbc> m_here;
  std::unique_ptr<support::RawOdbc> m_there;
};

TEST_F(Conflict, ATransactionThatIsOvertakenGives8AtItsNextDelete) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  ASSERT_EQ(Rename("Ours"), 0);
  TheyChangeIt();
  tagTPATIENT patient{};
  patient.lPatID = m_patient;
  EXPECT_EQ(DB_DeleteTPat(&patient), kDeleteRefused);
  ExpectConflictTold();
  EXPECT_EQ(DB_RollbackTransaction(), 0);
  EXPECT_EQ(FirstName(*m_there), "Theirs");
}

TEST_F(Conflict, ATransactionThatIsOvertakenGives6AtItsNextChangeAndLeavesNothing) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  ASSERT_EQ(AddStation("Ours"), 0);
  ASSERT_EQ(Rename("Ours"), 0);
  TheyChangeIt();
  EXPECT_EQ(Rename("Ours again"), kWriteRefused);
  ExpectConflictTold();
  EXPECT_EQ(DB_CommitTransaction(), 1);
  for (support::RawOdbc* session : {m_here.get(), m_there.get()}) {
    EXPECT_EQ(FirstName(*session), "Theirs");
    EXPECT_EQ(session->Count("TStation", "tStatSName = 'Ours'"), 0);
  }
  EXPECT_EQ(Rename("Ours"), 0);  // tried again
  EXPECT_EQ(FirstName(*m_there), "Ours");
}

TEST_F(Conflict, ATransactionThatIsOvertakenGives1AtItsCommitAndLeavesNothing) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  ASSERT_EQ(AddStation("Ours"), 0);
  ASSERT_EQ(Rename("Ours"), 0);
  TheyChangeIt();
  EXPECT_EQ(DB_CommitTransaction(), 1);
  EXPECT_EQ(DB_RollbackTransaction(), 1) << "it has been rolled back";
  for (support::RawOdbc* session : {m_here.get(), m_there.get()}) {
    EXPECT_EQ(FirstName(*session), "Theirs");
    EXPECT_EQ(session->Count("TStation", "tStatSName = 'Ours'"), 0);
  }
  ASSERT_EQ(DB_BeginTransaction(), 0);  // tried again
  EXPECT_EQ(AddStation("Ours"), 0);
  EXPECT_EQ(DB_CommitTransaction(), 0);
  EXPECT_EQ(m_there->Count("TStation", "tStatSName = 'Ours'"), 1);
}

TEST_F(Conflict, SingleEditsGive0Or6AndAreThereOrNot) {
  constexpr int kEdits = 100;
  int conflicts = 0;
  std::string expected = "Before";
  {
    const Busy busy(
        *m_there, "UPDATE TPatient SET tPatSSex = ? WHERE tPatCulIntPatIDPk = " + std::to_string(m_patient));
    for (int number = 0; number < kEdits; ++number) {
      const std::string name = "n" + std::to_string(number);
      const WORD code = Rename(name);
      if (code == 0) {
        expected = name;
      } else {
        ASSERT_EQ(code, kWriteRefused);
        ExpectConflictTold();
        ++conflicts;
      }
      ASSERT_EQ(FirstName(*m_here), expected);
    }
  }
  EXPECT_EQ(FirstName(*m_there), expected);
  EXPECT_GT(conflicts, 0);
  std::printf("%d edits, %d conflicts\n", kEdits, conflicts);
}

TEST_F(Conflict, SingleDeletesGive0Or8AndTheRowIsGoneOrThere) {
  constexpr int kDeletes = 40;
  int conflicts = 0;
  const Busy busy(*m_there, "UPDATE TStation SET tStatSAdd = ? WHERE tStatSName = 'Ours'");
  for (int number = 0; number < kDeletes; ++number) {
    tagTSTATION station{};
    support::SetText(station.szName, "Ours");
    ASSERT_EQ(AddStation("Ours"), 0);
    WORD code = DB_DeleteTStat(&station);
    for (; code != 0; code = DB_DeleteTStat(&station)) {
      ASSERT_EQ(code, kDeleteRefused);
      ExpectConflictTold();
      ASSERT_EQ(m_here->Count("TStation", "tStatSName = 'Ours'"), 1);
      ++conflicts;
    }
    ASSERT_EQ(m_here->Count("TStation", "tStatSName = 'Ours'"), 0);
  }
  EXPECT_GT(conflicts, 0);
  std::printf("%d deletes, %d conflicts\n", kDeletes, conflicts);
}

}  // namespace
}  // namespace cluster
