// What the ten tables hold, for telling "before" from "after", and for putting "before" back.
#ifndef KYODBC_TESTS_FAULTS_DATABASE_STATE_H
#define KYODBC_TESTS_FAULTS_DATABASE_STATE_H

#include <map>
#include <string>
#include <vector>

#include "tests/support/raw_odbc.h"

namespace faults {

// The rows of each table as sorted lines. Keys that the database gave since, and times of today, are no part.
using State = std::map<std::string, std::vector<std::string>>;

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

 private:
  using Rows = std::vector<support::Row>;

  Rows ReadTable(const std::string& table);
  std::vector<std::string> Lines(const std::string& table, const Rows& rows) const;

  support::RawOdbc& m_raw;
  std::map<std::string, Rows> m_rows;  // of "before"
  State m_before;
};

}  // namespace faults

#endif
