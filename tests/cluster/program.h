// A program that browses and edits a practice, and remembers what it was told.
#ifndef KYODBC_TESTS_CLUSTER_PROGRAM_H
#define KYODBC_TESTS_CLUSTER_PROGRAM_H

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "tests/support/raw_odbc.h"

namespace cluster {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

// What is found to be other than what was acknowledged. All of it must stay 0.
struct Damage {
  int lost = 0;     // acknowledged and not there
  int doubled = 0;  // there twice, or there and never asked for, or deleted and there
  int torn = 0;     // half a transaction
};

struct Counts {
  std::int64_t calls = 0;
  std::int64_t changes = 0;  // acknowledged; a transaction is one
  int applied = 0;           // failed, and there all the same
  int not_applied = 0;       // failed, and not there
  int heals = 0;             // how often DB_OpenTPat was needed
  Damage damage;
  std::map<std::string, int> failures;  // by call and code
  std::vector<double> healing;          // seconds from the first call that failed to DB_OpenTPat giving 0
};

// A patient to be added, whose first name is what the tests change.
tagTPATIENT EditedPatient(const std::string& first_name);

// Works with the library's one connection. Stations come and go, a patient's first name counts.
class Program {
 public:
  // The number makes its rows its own: several programs never touch the same row.
  explicit Program(unsigned seed) : m_random(seed) {}

  // Adds the patient. The library must be connected.
  void Begin();
  // True as long as every call gives 0. False at the first that does not; its code must be one that such a
  // call may give when a connection is lost.
  bool WorkUntil(const std::atomic<bool>& done);
  bool WorkFor(std::chrono::milliseconds time);
  // Calls DB_OpenTPat until it gives 0, which must be within the login time-out.
  void Heal();
  // For so long no call gives 0, and none shows a row.
  void ExpectRefusals(std::chrono::milliseconds time);
  // Compares what is stored, row by row, with what was acknowledged, and settles what was not.
  void Compare(support::RawOdbc& session, const std::string& where);
  // The same through the library's reopened sets. Compare comes first. False when a call failed: a cluster
  // that has just lost a node may need a second healing.
  bool CompareBrowsing();

  const Counts& Counted() const { return m_counts; }
  Counts& Counted() { return m_counts; }

 private:
  // A change that gave no 0.
  struct Open {
    std::vector<std::string> added;
    std::string deleted;
    bool edited = false;
  };

  bool Step();
  bool Add();
  bool AddTwoAtOnce();
  bool Delete();
  bool Edit();
  bool Browse();
  bool Told(const char* call, WORD code, const std::set<WORD>& allowed);
  bool Acknowledged(bool yes);
  tagTSTATION NewStation();
  void SettleStations(std::map<std::string, int>& found);
  void SettleEdits(int found);

  std::mt19937 m_random;
  int m_next = 1;
  LONG m_patient = 0;
  int m_edits = 0;
  std::map<std::string, LONG> m_stations;  // acknowledged, with their keys; 0 where it was never told
  std::optional<Open> m_open;
  Clock::time_point m_failed_at;
  Counts m_counts;
};

}  // namespace cluster

#endif
