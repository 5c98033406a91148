#include "tools/data/counters.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

#include "tools/data/row_writer.h"

namespace {

constexpr const char* kDoing = "reading the counter of keys";

// The names under which the base table may stand: a practice has either of them as its table.
std::string BothNames(const Shape& shape) { return fmt::format("('{0}', '{0}Raw')", shape.table); }

// The sequence behind the key of whichever name is the table.
std::string SequenceOf(PracticeDatabase& database, const Shape& shape) {
  return database.Answer(
      fmt::format(
          "SELECT COALESCE(pg_get_serial_sequence('{0}', '{2}'), pg_get_serial_sequence('{1}', '{2}'))",
          database.Name(shape.table), database.Name(shape.table + "Raw"), shape.KeyName()),
      kDoing);
}

// The table whose counter it is, for the database that keeps it with the table.
std::string WhereTable(PracticeDatabase& database, const Shape& shape) {
  const std::string owner = database.OwnerName();
  return fmt::format("TABLE_SCHEMA = {} AND TABLE_NAME IN {} AND TABLE_TYPE = 'BASE TABLE'",
                     owner.empty() ? "DATABASE()" : TextLiteral(owner), BothNames(shape));
}

LONG CounterOf(PracticeDatabase& database, const Shape& shape) {
  switch (database.Kind()) {
    case System::kSqlite:
      return database.Number("SELECT seq + 1 FROM sqlite_sequence WHERE name IN " + BothNames(shape), kDoing);
    case System::kPostgresql: {
      const std::string sequence = SequenceOf(database, shape);
      if (sequence.empty()) return 1;
      return database.Number("SELECT last_value + CASE WHEN is_called THEN 1 ELSE 0 END FROM " + sequence,
                             kDoing);
    }
    default:
      return database.Number(
          "SELECT AUTO_INCREMENT FROM information_schema.TABLES WHERE " + WhereTable(database, shape),
          kDoing);
  }
}

void RaiseSqlite(PracticeDatabase& database, const Shape& shape, LONG next, const std::string& doing) {
  const std::string table = database.Answer(
      "SELECT name FROM sqlite_master WHERE type = 'table' AND name IN " + BothNames(shape), kDoing);
  database.Execute(fmt::format("INSERT INTO sqlite_sequence (name, seq) SELECT '{0}', 0 WHERE NOT EXISTS "
                               "(SELECT 1 FROM sqlite_sequence WHERE name = '{0}')",
                               table),
                   doing);
  database.Execute(fmt::format("UPDATE sqlite_sequence SET seq = {} WHERE name = '{}'", next - 1, table),
                   doing);
}

void RaiseMariadb(PracticeDatabase& database, const Shape& shape, LONG next, const std::string& doing) {
  const std::string table = database.Answer(
      "SELECT TABLE_NAME FROM information_schema.TABLES WHERE " + WhereTable(database, shape), kDoing);
  database.Execute(fmt::format("ALTER TABLE {} AUTO_INCREMENT = {}", database.Name(table), next), doing);
}

}  // namespace

LONG NextKey(PracticeDatabase& database, const Shape& shape) {
  const LONG highest = database.Number(
      fmt::format("SELECT MAX({}) FROM {}", shape.KeyName(), database.Name(shape.table)), kDoing);
  const LONG above = highest == std::numeric_limits<LONG>::max() ? highest : highest + 1;
  return std::max<LONG>({1, above, CounterOf(database, shape)});
}

void RaiseNextKey(PracticeDatabase& database, const Shape& shape, LONG next) {
  if (std::max<LONG>(1, CounterOf(database, shape)) >= next) return;
  const std::string doing = "raising the counter of keys of " + shape.table;
  switch (database.Kind()) {
    case System::kSqlite:
      return RaiseSqlite(database, shape, next, doing);
    case System::kPostgresql:
      return database.Execute(
          fmt::format("SELECT setval('{}', {}, false)", SequenceOf(database, shape), next), doing);
    default:
      return RaiseMariadb(database, shape, next, doing);
  }
}
