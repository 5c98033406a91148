#include "fuzz/practice.h"

#include <cstdlib>

#include "frame/KyODBC.h"
#include "fuzz/require.h"
#include "tests/differential/flat_calls.h"
#include "tests/differential/packed.h"

namespace fuzz {
namespace {

using differential::Kind;
using differential::Packed;
using differential::Stem;

// Short, so that it fits most fields; a field of one byte has its first.
constexpr char kMarker[] = "\x01qX";
constexpr int kParent = 7;  // no row has this key

Packed CanaryOf(Stem stem) {
  Packed record = Packed::Empty(stem);
  for (std::size_t i = 0; i < record.Shape().fields.size(); ++i) {
    const int field = static_cast<int>(i);
    const differential::Field& shape = record.Shape().fields[i];
    const bool given_by_library = std::string_view(shape.name) == "szLoc" && stem != Stem::kMak;
    if (shape.kind == Kind::kText && !given_by_library) record.SetText(field, kMarker);
    if (shape.kind == Kind::kDate || shape.kind == Kind::kTime)
      record.SetMoment(field, {1977, 7, 7, 0, 0, 0});
    if (shape.kind == Kind::kWord) record.SetNumber(field, kParent);
    if (shape.kind == Kind::kLong && i > 0) record.SetNumber(field, kParent);
  }
  return record;
}

}  // namespace

CanaryPractice::CanaryPractice() {
  Require(sqlite3_open(m_practice.Database().c_str(), &m_database) == SQLITE_OK, "no second connection");
  sqlite3_busy_timeout(m_database, 5000);
  differential::SetProcessClock(1'000'000'000);
  const tagDBCONNECT parameters = m_practice.Parameters();
  Require(DB_InitDatabase(&parameters) == 0, "no connection");
  for (const Stem stem : differential::kTables) {
    const auto answer = differential::CallLibrary(
        {.verb = differential::Verb::kAddNew, .stem = stem, .record = CanaryOf(stem).Bytes()}, parameters);
    Require(answer.result == 0, "a canary was not added", differential::LayoutOf(stem).name);
  }
  m_canaries = Canaries();
}

void CanaryPractice::Exec(const std::string& sql) {
  Require(sqlite3_exec(m_database, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
          sqlite3_errmsg(m_database), sql);
}

// All columns of all rows, each with its length before it.
std::string CanaryPractice::Text(const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  Require(sqlite3_prepare_v2(m_database, sql.c_str(), -1, &statement, nullptr) == SQLITE_OK,
          sqlite3_errmsg(m_database), sql);
  std::string text;
  while (sqlite3_step(statement) == SQLITE_ROW) {
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
      const void* bytes = sqlite3_column_blob(statement, column);
      const int size = sqlite3_column_bytes(statement, column);
      text += std::to_string(size) + ":";
      if (size > 0) text.append(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
    }
    text += '\n';
  }
  sqlite3_finalize(statement);
  return text;
}

std::string CanaryPractice::Canaries() {
  std::string all;
  for (const Stem stem : differential::kTables) {
    all += Text("SELECT * FROM " + std::string(differential::LayoutOf(stem).table) +
                " WHERE rowid<=" + std::to_string(kLastKey) + " ORDER BY rowid");
  }
  return all;
}

// Keys go on behind the canaries' again, which keeps inputs from depending on each other.
void CanaryPractice::Clean() {
  Exec("BEGIN");
  for (const Stem stem : differential::kTables) {
    const std::string table = differential::LayoutOf(stem).table;
    Exec("DELETE FROM " + table + " WHERE rowid>" + std::to_string(kLastKey));
    Exec("UPDATE sqlite_sequence SET seq=1000 WHERE name='" + table + "'");
  }
  Exec("COMMIT");
}

int CanaryPractice::Added(const std::string& table) {
  const std::string rows = Text("SELECT rowid FROM " + table + " WHERE rowid>" + std::to_string(kLastKey));
  int count = 0;
  for (const char c : rows) count += c == '\n' ? 1 : 0;
  return count;
}

int CanaryPractice::NewestKey(const std::string& table) {
  const std::string key = Text("SELECT MAX(rowid) FROM " + table);
  return std::stoi(key.substr(key.find(':') + 1));
}

bool CanaryPractice::CanariesLive() { return Canaries() == m_canaries; }

CanaryPractice& ThePractice() {
  // Never destroyed: it must outlive every input, and libFuzzer ends the program in several ways.
  static CanaryPractice* const practice = [] {
    setenv("KYODBC_TEST_DB", "sqlite", 1);
    auto* made = new CanaryPractice;
    made->Clean();
    return made;
  }();
  return *practice;
}

bool NamesCanary(std::string_view input) { return input.find(kMarker) != std::string_view::npos; }

}  // namespace fuzz
