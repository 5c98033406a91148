#include "tests/differential/target.h"

#include <cstdlib>
#include <stdexcept>

#include "frame/KyODBC.h"
#include "tests/differential/flat_calls.h"

namespace differential {
namespace {

struct NamedFacts {
  const char* kind;
  DatabaseFacts facts;
};

constexpr NamedFacts kFacts[] = {
    {"sqlite",     {.like_ignores_case = true, .midnight_after_date = true}},
    {"postgresql", {.nulls_last = true}                                    },
    {"mariadb",    {}                                                      },
};

DatabaseFacts FactsOf(const std::string& kind) {
  for (const NamedFacts& named : kFacts) {
    if (kind == named.kind) return named.facts;
  }
  throw std::runtime_error("unknown database: " + kind);
}

// The tests' practices are of the kind that this variable names.
void Choose(const std::string& kind) { setenv("KYODBC_TEST_DB", kind.c_str(), 1); }

Answer Falsified(Answer answer) {
  if (answer.memory.empty()) {
    answer.result ^= 1;
  } else {
    answer.memory.back() = static_cast<char>(answer.memory.back() ^ 1);
  }
  return answer;
}

}  // namespace

Target::Target(const std::string& kind, bool full_names, bool owner)
    : m_kind(kind), m_options{FactsOf(kind), {}, full_names}, m_parameters{} {
  Choose(kind);
  const support::Tables tables = full_names ? support::Tables::kFullNames : support::Tables::kShortNames;
  m_practice = std::make_unique<support::Practice>(support::PracticeOptions{tables, owner});
  m_options.owner = m_practice->Owner();
  m_options.rows_as_read = !m_options.owner.empty() || std::getenv("KYODBC_PLAIN_STATEMENTS") != nullptr;
  m_parameters = m_practice->Parameters();
  m_raw = std::make_unique<support::RawOdbc>(*m_practice);
}

Target::~Target() {
  DB_CloseDatabase();
  Choose(m_kind);
  m_raw.reset();
  m_practice.reset();
}

std::string Target::TableName(Stem stem) const {
  return std::string(LayoutOf(stem).table) + (m_options.full_names_are_tables ? "Raw" : "");
}

// The next key is 1 again.
void Target::Empty(Stem stem) {
  const std::string table = TableName(stem);
  if (m_kind == "sqlite") {
    m_raw->Exec("DELETE FROM " + table);
    m_raw->Exec("DELETE FROM sqlite_sequence WHERE name='" + table + "'");
  } else {
    m_raw->Exec("TRUNCATE TABLE " + table + (m_kind == "postgresql" ? " RESTART IDENTITY" : ""));
  }
}

// The rows that a new model has.
void Target::Reset() {
  for (const Stem stem : kTables) Empty(stem);
  m_raw->Exec("INSERT INTO " + TableName(Stem::kDr) + " (tDrSName) VALUES ('-')");
  m_raw->Exec("INSERT INTO " + TableName(Stem::kStat) + " (tStatSName) VALUES ('-')");
  m_raw->Exec("INSERT INTO " + TableName(Stem::kUnit) + " (tUnitSType, tUnitSName) VALUES ('-', '-')");
  for (const char* setting : {"'DBVersion', '4.0'", "'DBMS', 'Practice'"}) {
    m_raw->Exec("INSERT INTO " + TableName(Stem::kCfg) +
                " (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet) VALUES (1, 1, " + setting + ")");
  }
}

// SQLite alone gives the keys of a transaction that was rolled back once more; the servers do not.
void Target::KeepKeys(const Model& model) {
  if (m_kind != "sqlite") return;
  for (const Stem stem : kTables) {
    const std::string last = std::to_string(model.TableOf(stem).next_key - 1);
    m_raw->Exec("DELETE FROM sqlite_sequence WHERE name='" + TableName(stem) + "'");
    m_raw->Exec("INSERT INTO sqlite_sequence (name, seq) VALUES ('" + TableName(stem) + "', " + last + ")");
  }
}

std::optional<Mismatch> Target::Play(const Script& script, const Watch& watch) {
  DB_CloseDatabase();
  SetProcessClock(0);
  Reset();
  Model model(m_options);
  for (std::size_t i = 0; i < script.size(); ++i) {
    const bool pending = model.InTransaction();
    const Answer expected = model.Run(script[i]);
    Answer got = CallLibrary(script[i], m_parameters);
    if (script[i].planted) got = Falsified(got);
    if (watch) watch(script[i], got);
    if (expected != got) return Mismatch{i, expected, got};
    const bool undone = script[i].verb == Verb::kRollback || script[i].verb == Verb::kCloseDatabase;
    if (pending && undone) KeepKeys(model);
  }
  DB_CloseDatabase();
  return std::nullopt;
}

}  // namespace differential
