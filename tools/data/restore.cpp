// Backups brought back.
#include <fmt/format.h>

#include <fstream>
#include <functional>
#include <optional>

#include "tools/data/backup.h"
#include "tools/data/catalog.h"
#include "tools/data/counters.h"
#include "tools/data/server_programs.h"
#include "tools/data/sqlite_file.h"
#include "tools/interruption.h"
#include "tools/new_file.h"
#include "tools/tool_error.h"

namespace {

constexpr const char* kNotRestored = "the rows read back are not those of the backup; the old ones stay";
constexpr const char* kEndOfRows = "!end of rows";  // no row has this form: rows have tabs

std::uint64_t RowsOf(const Manifest& manifest) {
  std::uint64_t rows = 0;
  for (const BackedUpTable& table : manifest.tables) rows += table.rows;
  return rows;
}

// New keys go on above those that the practice had when the backup was made. It comes before everything else:
// it does no harm when restoring then fails, and an account that has no right to do it changes nothing.
void RaiseCounters(PracticeDatabase& database, const std::vector<Shape>& shapes, const Manifest& manifest) {
  for (const Shape& shape : shapes) {
    for (const BackedUpTable& table : manifest.tables) {
      if (table.table == shape.table) RaiseNextKey(database, shape, table.next_key);
    }
  }
}

// The server's own client in the middle of a transaction: what it is told, and how its rows are read back.
class Session {
 public:
  Session(const ServerPrograms& programs, PracticeDatabase& database)
      : m_client(programs.Client(), programs.Variables()),
        m_postgresql(database.Kind() == System::kPostgresql),
        m_owner(database.Owner()) {
    if (m_postgresql) m_owner = SchemaOf(database) + ".";
  }

  void Begin(const std::vector<Shape>& shapes) {
    Tell(m_postgresql
             ? "BEGIN;"
             : "SET SESSION sql_mode = 'NO_AUTO_VALUE_ON_ZERO,STRICT_ALL_TABLES';\nSTART TRANSACTION;");
    for (const Shape& shape : shapes) {
      if (m_postgresql) Tell("LOCK TABLE " + m_owner + shape.table + " IN EXCLUSIVE MODE;");
      Tell("DELETE FROM " + m_owner + shape.table + ";");
    }
  }
  // What stands before the names of the practice's tables.
  const std::string& Owner() const { return m_owner; }
  void Tell(const std::string& line) { m_client.Write(line + "\n"); }
  void ReadBack(const Shape& shape, const std::function<void(const Row&)>& row_read) {
    Tell(m_postgresql ? PostgresqlQuery(shape) : MariadbQuery(shape));
    for (std::string line; Next(line);) {
      Row row = CopyRow(line);
      for (std::size_t i = 0; i < row.size(); ++i) {
        if (!m_postgresql) TakeMark(row[i]);
        MakeUniform(row[i], shape.kinds.at(i));
      }
      row_read(row);
    }
  }
  void Commit() {
    Tell("COMMIT;");
    m_client.Finish();
  }

 private:
  // The client tells no NULL from the text "NULL": a value comes behind a mark, and no value as another one.
  std::string MariadbQuery(const Shape& shape) const {
    std::vector<std::string> columns;
    for (const std::string& column : shape.columns)
      columns.push_back("IFNULL(CONCAT('=', " + column + "), '-')");
    return fmt::format("SELECT {} FROM {}{};\nSELECT '{}';", fmt::join(columns, ", "), m_owner, shape.table,
                       kEndOfRows);
  }
  std::string PostgresqlQuery(const Shape& shape) const {
    return fmt::format("\\copy (SELECT {} FROM {}{}) TO pstdout\n\\echo '{}'", fmt::join(shape.columns, ", "),
                       m_owner, shape.table, kEndOfRows);
  }
  static void TakeMark(Value& value) {
    if (value == "-") {
      value.reset();
    } else if (value) {
      value->erase(0, 1);
    }
  }
  bool Next(std::string& line) {
    if (m_client.ReadLine(line)) return line != kEndOfRows;
    m_client.Finish();
    throw ToolError(kFailed, "the client of the database ended before all rows were read back");
  }

  Process m_client;
  bool m_postgresql;
  std::string m_owner;
};

// Hands the practice's rows of the dump over to the session.
void Feed(Session& session, DumpRows& rows, Progress& progress,
          const std::function<bool(std::string&)>& read_line) {
  for (std::string line; read_line(line);) {
    if (!rows.Line(line)) continue;
    session.Tell(rows.For(session.Owner(), line));
    progress.Step();
  }
  rows.End();
}

Checksums ReadBack(Session& session, const std::vector<Shape>& shapes, Progress& progress) {
  Checksums sums;
  for (const Shape& shape : shapes) {
    Checksum& sum = sums[shape.table];
    session.ReadBack(shape, [&](const Row& row) {
      sum.Add(row);
      progress.Step();
    });
  }
  return sums;
}

void FeedPostgresql(Session& session, const std::vector<Shape>& shapes, const std::filesystem::path& file,
                    Progress& progress) {
  CopyRows rows(shapes);
  Process read(ServerPrograms::ReadPostgresql(file));
  Feed(session, rows, progress, [&](std::string& line) { return read.ReadLine(line); });
  read.Finish();
}

void FeedMariadb(Session& session, const std::vector<Shape>& shapes, const std::filesystem::path& file,
                 Progress& progress) {
  InsertRows rows(shapes);
  std::ifstream input(file, std::ios::binary);
  Feed(session, rows, progress,
       [&](std::string& line) { return static_cast<bool>(std::getline(input, line)); });
}

}  // namespace

// The backup is proved before anything is touched. Should the practice then read otherwise all the same, the
// old rows come back from a copy that lies beside it as long as this lasts.
void RestoreSqlite(const Place& place, PracticeDatabase& database, const std::filesystem::path& file,
                   const Manifest& manifest) {
  const std::vector<Shape> shapes = ShapesOf(database);
  Progress progress("checking", RowsOf(manifest) * 2);
  SqliteFile backup(file);
  backup.RequireSound();
  std::vector<std::string> differing =
      TablesThatDiffer(manifest, backup.Sums(shapes, [&] { progress.Step(); }));
  if (!differing.empty()) FailForTables("the backup is damaged", differing);
  SqliteFile practice(SqliteFileOf(place));
  NewFile kept(std::filesystem::path(SqliteFileOf(place)) += ".before-restore");
  SqliteFile old(kept.Temporary());
  old.UseNoFilesBeside();
  const auto interruptible = [](int, int) { Interruption::Check(); };
  practice.CopyTo(old, interruptible);
  progress.Rename("restoring");
  backup.CopyTo(practice, interruptible);
  differing = TablesThatDiffer(manifest, practice.Sums(shapes, [&] { progress.Step(); }));
  if (differing.empty()) return;
  old.CopyTo(practice, [](int, int) {});
  FailForTables(kNotRestored, differing);
}

void RestoreServer(const Place& place, PracticeDatabase& database, const std::filesystem::path& file,
                   const Manifest& manifest) {
  const std::vector<Shape> shapes = ShapesOf(database);
  const ServerPrograms programs(place, database);
  RaiseCounters(database, shapes, manifest);
  Session session(programs, database);
  Progress progress("restoring", RowsOf(manifest) * 2);
  session.Begin(shapes);
  database.Kind() == System::kPostgresql ? FeedPostgresql(session, shapes, file, progress)
                                         : FeedMariadb(session, shapes, file, progress);
  progress.Rename("checking");
  const std::vector<std::string> differing = TablesThatDiffer(manifest, ReadBack(session, shapes, progress));
  if (!differing.empty()) FailForTables(kNotRestored, differing);
  Interruption::Check();
  session.Commit();
}
