// The connection is cut at many places of a change on its way: the change is there whole or not at all.
#include <cstdio>
#include <string>

#include "tests/loss/loss_test_base.h"

namespace loss {
namespace {

using support::Loss;
using support::Way;

constexpr int kPositionsOfARound = 15;

// What the tables hold: the lost patient's first name, how many there are, and how many new stations.
struct State {
  std::string first_name;
  int patients = 0;
  int stations = 0;
  bool operator==(const State&) const = default;
};

void PrintTo(const State& state, std::ostream* out) {
  *out << state.patients << " patients, '" << state.first_name << "', " << state.stations << " new stations";
}

const State kBefore = {"Before", 1, 0};

// A change made of one call or several.
struct Change {
  const char* name;
  // Makes it. True when every call was successful. `reached_end`: all but the last call were.
  bool (*make)(LONG patient, bool* reached_end);
  State after;
};

bool AddStation(LONG, bool* reached_end) {
  *reached_end = true;
  tagTSTATION station{};
  support::SetText(station.szName, "New");
  return DB_AddNewTStat(&station) == 0;
}

bool AddPatient(LONG, bool* reached_end) {
  *reached_end = true;
  tagTPATIENT patient = Patient("New", "New");
  return DB_AddNewTPat(&patient) == 0;
}

bool EditPatient(LONG key, bool* reached_end) {
  *reached_end = true;
  tagTPATIENT patient = Patient("Lost", "After");
  patient.lPatID = key;
  return DB_EditSelTPat(&patient, KYODBC_MASK_ALL) == 0;
}

bool DeletePatient(LONG key, bool* reached_end) {
  *reached_end = true;
  tagTPATIENT patient{};
  patient.lPatID = key;
  return DB_DeleteTPat(&patient) == 0;
}

bool Transaction(LONG key, bool* reached_end) {
  bool unused = false;
  *reached_end = DB_BeginTransaction() == 0 && EditPatient(key, &unused) && AddStation(key, &unused);
  // A caller who has not noticed commits all the same.
  return DB_CommitTransaction() == 0 && *reached_end;
}

bool RolledBack(LONG key, bool* reached_end) {
  *reached_end = false;  // whatever becomes of it, nothing may stay
  bool unused = false;
  if (DB_BeginTransaction() == 0 && EditPatient(key, &unused)) AddStation(key, &unused);
  return DB_RollbackTransaction() == 0;
}

// Rows are read on the way: what the server answers is cut, too.
bool ReadAndAdd(LONG key, bool* reached_end) {
  LONG rows = 0;
  DB_OpenTPat();
  DB_SetTPatSortIndex(KYODBC_FIELD_NAME);
  DB_MoveToTPatByIntID(key);
  DB_MoveToTPatByString("Lost");
  DB_GetTPatMaxPos(&rows);
  DB_GetNumPatEx(&rows);
  DB_GetLastPatID(&rows);
  DB_CloseTPat();
  return AddStation(key, reached_end);
}

const Change kChanges[] = {
    {"AddStation",    AddStation,    {"Before", 1, 1}},
    {"AddPatient",    AddPatient,    {"Before", 2, 0}},
    {"EditPatient",   EditPatient,   {"After", 1, 0} },
    {"DeletePatient", DeletePatient, {"", 0, 0}      },
    {"Transaction",   Transaction,   {"After", 1, 1} },
    {"RolledBack",    RolledBack,    {"Before", 1, 0}},
    {"ReadAndAdd",    ReadAndAdd,    {"Before", 1, 1}},
};

class InFlight : public LossTest, public testing::WithParamInterface<Change> {
 protected:
  State Look() {
    State state;
    for (const support::Row& row :
         Raw().Query("SELECT tPatSFirstname FROM TPatient WHERE tPatSName = 'Lost'")) {
      state.first_name += row[0].value();
    }
    state.patients = Raw().Count("TPatient");
    state.stations = Raw().Count("TStation", "tStatSName = 'New'");
    return state;
  }

  void PutBack() {
    Raw().Exec("DELETE FROM TStation WHERE tStatSName = 'New'");
    Raw().Exec("DELETE FROM TPatient WHERE tPatSName = 'New'");
    const std::string key = std::to_string(m_patient);
    if (Raw().Count("TPatient") == 0) {
      Raw().Exec(
          "INSERT INTO TPatient (tPatCulIntPatIDPk, tPatCulIntDrIDFk, tPatSName, tPatSFirstname) VALUES (" +
          key + ", 1, 'Lost', 'Before')");
    }
    Raw().Exec("UPDATE TPatient SET tPatSFirstname = 'Before' WHERE tPatCulIntPatIDPk = " + key);
    ASSERT_EQ(Look(), kBefore);
  }

  // How many bytes the whole change sends in this direction.
  std::size_t Measure(Way way) {
    TheRelay().ResetCounts();
    bool reached_end = false;
    EXPECT_TRUE(GetParam().make(m_patient, &reached_end));
    EXPECT_EQ(Look(), GetParam().after);
    const std::size_t bytes = TheRelay().Passed(way);
    PutBack();
    return bytes;
  }

  void CutAt(Way way, std::size_t position, Loss loss) {
    const std::vector<int> ports = TheRelay().PortsAtServer();
    TheRelay().LoseAfter(way, position, loss);
    bool reached_end = false;
    const bool acknowledged = GetParam().make(m_patient, &reached_end);
    if (TheRelay().OrderDone()) WaitForEndOf(ports);
    TheRelay().CancelOrder();
    const State state = Look();
    if (acknowledged || state != kBefore) {
      EXPECT_EQ(state, GetParam().after);
    }
    if (!reached_end) {
      EXPECT_EQ(state, kBefore);
    }
    (state != kBefore ? m_there : m_not_there) += 1;
    PutBack();
    ExpectHealed();
  }

  int m_there = 0;
  int m_not_there = 0;
};
INSTANTIATE_TEST_SUITE_P(Changes, InFlight, testing::ValuesIn(kChanges),
                         [](const auto& change) { return std::string(change.param.name); });

TEST_P(InFlight, AChangeIsThereWholeOrNotAtAllWhereverTheConnectionIsCut) {
  const int positions = kPositionsOfARound * Rounds();
  for (const Way way : {Way::kToServer, Way::kToClient}) {
    const std::size_t bytes = Measure(way);
    ASSERT_GT(bytes, 0u);
    for (int number = 0; number <= positions; ++number) {
      const std::size_t position =
          bytes * static_cast<std::size_t>(number) / static_cast<std::size_t>(positions);
      SCOPED_TRACE(std::string(way == Way::kToServer ? "to the server" : "to the client") + ", byte " +
                   std::to_string(position) + " of " + std::to_string(bytes));
      CutAt(way, position, number % 2 == 0 ? Loss::kReset : Loss::kFinish);
      if (HasFailure()) return;
    }
  }
  std::printf("%s: %d cuts, the change there %d times, not there %d times\n", GetParam().name,
              m_there + m_not_there, m_there, m_not_there);
}

using LostInATransaction = LossTest;

TEST_F(LostInATransaction, NothingOfItStaysAndNoneIsPending) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  tagTSTATION station{};
  support::SetText(station.szName, "New");
  ASSERT_EQ(DB_AddNewTStat(&station), 0);
  const std::vector<int> ports = TheRelay().PortsAtServer();
  TheRelay().Lose(Loss::kReset);
  support::SetText(station.szName, "Newer");
  station.lStatID = 0;
  EXPECT_EQ(DB_AddNewTStat(&station), 6);
  EXPECT_EQ(DB_CommitTransaction(), 3);
  WaitForEndOf(ports);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName LIKE 'New%'"), 0);
  ExpectHealed();
  EXPECT_EQ(DB_BeginTransaction(), 0);
  EXPECT_EQ(DB_RollbackTransaction(), 0);
}

// After the reconnection there is no transaction: what is changed then stays, and the old commit fails.
TEST_F(LostInATransaction, AReconnectionInItsMiddleDoesNotGoOnWithIt) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  tagTSTATION station{};
  support::SetText(station.szName, "New");
  ASSERT_EQ(DB_AddNewTStat(&station), 0);
  TheRelay().Lose(Loss::kReset);
  ASSERT_EQ(DB_OpenTPat(), 0);
  support::SetText(station.szName, "Newer");
  EXPECT_EQ(DB_AddNewTStat(&station), 0);
  EXPECT_EQ(DB_CommitTransaction(), 1);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName = 'New'"), 0);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName = 'Newer'"), 1);
}

TEST_F(LostInATransaction, ACommitThatMeetsTheLossFailsAndLeavesNothing) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  tagTSTATION station{};
  support::SetText(station.szName, "New");
  ASSERT_EQ(DB_AddNewTStat(&station), 0);
  EndSession();
  EXPECT_EQ(DB_CommitTransaction(), 1);
  EXPECT_EQ(DB_CommitTransaction(), 3);
  EXPECT_EQ(DB_RollbackTransaction(), 3);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName = 'New'"), 0);
  ExpectHealed();
}

}  // namespace
}  // namespace loss
