#include "tests/cluster/program.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/records.h"

namespace cluster {
namespace {

constexpr WORD kFirstName = 1 << 6;
constexpr std::size_t kFewStations = 12;
constexpr Seconds kLoginTimeout{30};
constexpr Seconds kPatience{60};

// What each kind of call may say when its connection is lost or the database cannot decide.
const std::set<WORD> kAdd = {3, 6, 31};
const std::set<WORD> kEdit = {3, 6, 31};
const std::set<WORD> kDelete = {3, 8, 31};
const std::set<WORD> kTransaction = {1, 3, 31};
const std::set<WORD> kOpen = {3, 31};
const std::set<WORD> kCount = {3, 5, 31};
const std::set<WORD> kRow = {3, 31, 64};

}  // namespace

tagTPATIENT EditedPatient(const std::string& first_name) {
  tagTPATIENT patient{};
  patient.lDrID = 1;
  support::SetText(patient.szName, "Edited");
  support::SetText(patient.szFirstname, first_name);
  patient.dBirthday = support::Ts(1970, 1, 2);
  return patient;
}

void Program::Begin() {
  tagTPATIENT patient = EditedPatient("0");
  ASSERT_EQ(DB_AddNewTPat(&patient), 0);
  m_patient = support::Val(patient.lPatID);
}

bool Program::Told(const char* call, WORD code, const std::set<WORD>& allowed) {
  ++m_counts.calls;
  if (code == 0) return true;
  m_failed_at = Clock::now();
  EXPECT_TRUE(allowed.contains(code)) << call << " gave " << code;
  ++m_counts.failures[std::string(call) + " " + std::to_string(code)];
  return false;
}

// A change was begun as m_open: it is settled when it was acknowledged.
bool Program::Acknowledged(bool yes) {
  if (!yes) return false;
  ++m_counts.changes;
  m_open.reset();
  return true;
}

tagTSTATION Program::NewStation() {
  tagTSTATION station{};
  support::SetText(station.szName, "n" + std::to_string(m_next++));
  return station;
}

bool Program::Add() {
  tagTSTATION station = NewStation();
  const std::string name = support::Text(station.szName);
  m_open = Open{{name}, "", false};
  if (!Acknowledged(Told("DB_AddNewTStat", DB_AddNewTStat(&station), kAdd))) return false;
  m_stations[name] = support::Val(station.lStatID);
  return true;
}

bool Program::AddTwoAtOnce() {
  tagTSTATION first = NewStation();
  tagTSTATION second = NewStation();
  const std::string names[] = {support::Text(first.szName), support::Text(second.szName)};
  m_open = Open{
      {names[0], names[1]},
      "", false
  };
  if (!Acknowledged(Told("DB_BeginTransaction", DB_BeginTransaction(), kTransaction) &&
                    Told("DB_AddNewTStat", DB_AddNewTStat(&first), kAdd) &&
                    Told("DB_AddNewTStat", DB_AddNewTStat(&second), kAdd) &&
                    Told("DB_CommitTransaction", DB_CommitTransaction(), kTransaction))) {
    DB_RollbackTransaction();  // after a change that failed on a connection that lives
    return false;
  }
  m_stations[names[0]] = support::Val(first.lStatID);
  m_stations[names[1]] = support::Val(second.lStatID);
  return true;
}

bool Program::Delete() {
  const auto chosen = m_stations.begin();
  tagTSTATION station{};
  station.lStatID = chosen->second;
  support::SetText(station.szName, chosen->first);
  m_open = Open{{}, chosen->first, false};
  if (!Acknowledged(Told("DB_DeleteTStat", DB_DeleteTStat(&station), kDelete))) return false;
  m_stations.erase(chosen);
  return true;
}

bool Program::Edit() {
  tagTPATIENT patient{};
  patient.lPatID = m_patient;
  support::SetText(patient.szFirstname, std::to_string(m_edits + 1));
  m_open = Open{{}, "", true};
  if (!Acknowledged(Told("DB_EditSelTPat", DB_EditSelTPat(&patient, kFirstName), kEdit))) return false;
  ++m_edits;
  return true;
}

// Reads what was written just now. One row more is there than the program has added.
bool Program::Browse() {
  LONG rows = 0;
  if (DB_IsTStatOpen() == 0 && !Told("DB_OpenTStat", DB_OpenTStat(), kOpen)) return false;
  if (!Told("DB_GetTStatMaxPos", DB_GetTStatMaxPos(&rows), kCount)) return false;
  EXPECT_EQ(rows, static_cast<LONG>(m_stations.size()) + 1) << "while working";
  tagTSTATION station{};
  const auto position = static_cast<LONG>(1 + m_random() % static_cast<unsigned>(rows));
  if (!Told("DB_GetTStatByPos", DB_GetTStatByPos(position, &station), kRow)) return false;
  const std::string name = support::Text(station.szName);
  EXPECT_TRUE(name == "-" || m_stations.contains(name)) << name << " was never acknowledged";
  tagTPATIENT patient{};
  patient.lPatID = m_patient;
  if (!Told("DB_GetTPat", DB_GetTPat(&patient), kRow)) return false;
  EXPECT_EQ(support::Text(patient.szFirstname), std::to_string(m_edits)) << "while working";
  return true;
}

// A person takes longer to press a key.
bool Program::Step() {
  constexpr unsigned kKinds = 6;
  std::this_thread::sleep_for(std::chrono::milliseconds(1));
  if (m_stations.size() > kFewStations) return Delete();
  switch (m_random() % kKinds) {
    case 0:
      return AddTwoAtOnce();
    case 1:
      return m_stations.empty() || Delete();
    case 2:
      return Edit();
    case 3:
      return Browse();
    default:
      return Add() && Edit();
  }
}

bool Program::WorkUntil(const std::atomic<bool>& done) {
  while (!done) {
    if (!Step()) return false;
  }
  return true;
}

bool Program::WorkFor(std::chrono::milliseconds time) {
  const auto end = Clock::now() + time;
  while (Clock::now() < end) {
    if (!Step()) return false;
  }
  return true;
}

void Program::Heal() {
  ++m_counts.heals;
  WORD code = DB_OpenTPat();
  while (code != 0 && Clock::now() < m_failed_at + kPatience) {
    EXPECT_TRUE(kOpen.contains(code)) << "DB_OpenTPat gave " << code;
    ++m_counts.failures["DB_OpenTPat " + std::to_string(code)];
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    code = DB_OpenTPat();
  }
  const Seconds took = Clock::now() - m_failed_at;
  ASSERT_EQ(code, 0) << "after " << took.count() << " s";
  EXPECT_LT(took, kLoginTimeout);
  m_counts.healing.push_back(took.count());
}

void Program::ExpectRefusals(std::chrono::milliseconds time) {
  const auto end = Clock::now() + time;
  do {
    tagTSTATION station = NewStation();
    LONG number = 0;
    EXPECT_FALSE(Told("DB_AddNewTStat, alone", DB_AddNewTStat(&station), kAdd));
    EXPECT_FALSE(Told("DB_GetNumTPat, alone", DB_GetNumTPat(&number), kOpen));
    EXPECT_FALSE(Told("DB_GetTStatByPos, alone", DB_GetTStatByPos(1, &station), kRow));
    EXPECT_FALSE(Told("DB_OpenTPat, alone", DB_OpenTPat(), kOpen));
  } while (Clock::now() < end);
  m_failed_at = Clock::now();
}

void Program::SettleStations(std::map<std::string, int>& found) {
  if (!m_open->added.empty()) {
    std::size_t there = 0;
    for (const std::string& name : m_open->added) {
      if (found[name] == 0) continue;
      ++there;
      m_stations[name] = 0;
    }
    ++(there > 0 ? m_counts.applied : m_counts.not_applied);
    if (there != 0 && there != m_open->added.size()) ++m_counts.damage.torn;
  }
  if (!m_open->deleted.empty()) {
    const bool gone = found[m_open->deleted] == 0;
    if (gone) m_stations.erase(m_open->deleted);
    ++(gone ? m_counts.applied : m_counts.not_applied);
  }
}

void Program::SettleEdits(int found) {
  if (m_open && m_open->edited) {
    ++(found == m_edits + 1 ? m_counts.applied : m_counts.not_applied);
    if (found == m_edits + 1) m_edits = found;
  }
  if (found < m_edits) ++m_counts.damage.lost;
  if (found > m_edits) ++m_counts.damage.doubled;
  EXPECT_EQ(found, m_edits);
  m_edits = found;
}

void Program::Compare(support::RawOdbc& session, const std::string& where) {
  SCOPED_TRACE(where);
  std::map<std::string, int> found;
  for (const support::Row& row :
       session.Query("SELECT tStatSName FROM TStation WHERE tStatCulIntStatIDPk > 1")) {
    ++found[row.at(0).value_or("")];
  }
  if (m_open) SettleStations(found);
  for (const auto& [name, key] : m_stations) {
    if (found[name] == 0) ++m_counts.damage.lost;
    EXPECT_GE(found[name], 1) << name << " is lost";
  }
  for (const auto& [name, times] : found) {
    const int expected = m_stations.contains(name) ? 1 : 0;
    if (times > expected) ++m_counts.damage.doubled;
    EXPECT_LE(times, expected) << name << " is there " << times << " times";
  }
  SettleEdits(session.Number("SELECT tPatSFirstname FROM TPatient WHERE tPatCulIntPatIDPk=" +
                             std::to_string(m_patient)));
  m_open.reset();
}

bool Program::CompareBrowsing() {
  LONG rows = 0;
  if (!Told("DB_OpenTStat", DB_OpenTStat(), kOpen)) return false;
  if (!Told("DB_GetTStatMaxPos", DB_GetTStatMaxPos(&rows), kCount)) return false;
  EXPECT_EQ(rows, static_cast<LONG>(m_stations.size()) + 1);
  for (LONG position = 1; position <= rows; ++position) {
    tagTSTATION station{};
    if (!Told("DB_GetTStatByPos", DB_GetTStatByPos(position, &station), kRow)) return false;
    const std::string name = support::Text(station.szName);
    if (name == "-") continue;
    EXPECT_TRUE(m_stations.contains(name)) << name;
    m_stations[name] = support::Val(station.lStatID);
  }
  tagTPATIENT patient{};
  if (!Told("DB_GetTPatByPos", DB_GetTPatByPos(1, &patient), kRow)) return false;
  EXPECT_EQ(support::Text(patient.szFirstname), std::to_string(m_edits));
  return true;
}

}  // namespace cluster
