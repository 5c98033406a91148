// One database to compare with the model: a practice of its own, emptied for every script.
#ifndef KYODBC_TESTS_DIFFERENTIAL_TARGET_H
#define KYODBC_TESTS_DIFFERENTIAL_TARGET_H

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "tests/differential/model.h"
#include "tests/support/practice.h"
#include "tests/support/raw_odbc.h"

namespace differential {

struct Mismatch {
  std::size_t call;  // index in the script
  Answer expected;
  Answer got;
};

class Target {
 public:
  // kind: as KYODBC_TEST_DB takes it.
  Target(const std::string& kind, bool full_names, bool owner);
  ~Target();
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;

  const std::string& Kind() const { return m_kind; }
  const ModelOptions& Options() const { return m_options; }
  const tagDBCONNECT& Parameters() const { return m_parameters; }

  using Watch = std::function<void(const Call&, const Answer&)>;
  // Plays the script to its first wrong answer. Nothing when all are right.
  std::optional<Mismatch> Play(const Script& script, const Watch& watch = {});

 private:
  void Reset();
  void Empty(Stem stem);
  void KeepKeys(const Model& model);
  std::string TableName(Stem stem) const;

  std::string m_kind;
  ModelOptions m_options;
  std::unique_ptr<support::Practice> m_practice;
  std::unique_ptr<support::RawOdbc> m_raw;
  tagDBCONNECT m_parameters;
};

}  // namespace differential

#endif
