// What the ten tables hold, for telling "before" from "after", and for putting "before" back.
#ifndef KYODBC_TESTS_FAULTS_DATABASE_STATE_H
#define KYODBC_TESTS_FAULTS_DATABASE_STATE_H

#include <map>
#include <string>
#include <vector>

#include "tests/support/raw_odbc.h"

namespace faults {

// The rows of each table as sorted lines. Keys that the database gave since, and times of today, are no part.
// What the library derives for patients stands apart, under kDerived.
using State = std::map<std::string, std::vector<std::string>>;

constexpr char kDerived[] = "TPatient's last display";

// The difference, for a reader of a failure.
std::string Difference(const State& wanted, const State& found);

class DatabaseState {
 public:
  // Remembers what there is now as "before".
  explicit DatabaseState(support::RawOdbc& raw);

  const State& Before() const { return m_before; }
  State Read();
  // Puts back what Read or an earlier PutBack found changed.
  void PutBack();
  // Whether `found` is a state on the way from "before" to `after` when each row changes by itself: no row is
  // there that is in neither, none is missing that is in both.
  bool IsBetween(const State& found, const State& after) const;
  // Whether `found` is `after` but for what the library derives from images: a patient's time of the last
  // display, which may still be that of "before", or the day of entry.
  bool IsAfterButForDerived(const State& found, const State& after) const;

 private:
  using Rows = std::vector<support::Row>;

  Rows ReadTable(const std::string& table);
  std::string KeyOf(const std::string& table, const support::Row& row) const;
  std::vector<std::string> Lines(const std::string& table, const Rows& rows) const;
  std::vector<std::string> Derived(const Rows& patients) const;
  State StateOf(const std::map<std::string, Rows>& rows) const;

  support::RawOdbc& m_raw;
  std::map<std::string, Rows> m_rows;  // of "before"
  State m_before;
};

}  // namespace faults

#endif
