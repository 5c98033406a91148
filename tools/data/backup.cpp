#include "tools/data/backup.h"

#include <fmt/format.h>

#include <fstream>

#include "tools/data/catalog.h"
#include "tools/data/contents.h"
#include "tools/data/counters.h"
#include "tools/data/row_reader.h"
#include "tools/data/server_programs.h"
#include "tools/data/sqlite_file.h"
#include "tools/doctor/source.h"
#include "tools/interruption.h"
#include "tools/practice_folder.h"
#include "tools/tool_error.h"

namespace {

// Adds up the lines that a program writes or a file holds, with a step of the bar for each.
template <class ReadLine>
void AddUp(DumpRows& rows, Progress& progress, const ReadLine& read_line) {
  for (std::string line; read_line(line);) {
    if (rows.Line(line)) progress.Step();
  }
  rows.End();
}

// What the dump holds must be what the snapshot showed.
Manifest Proved(PracticeDatabase& database, const std::vector<Shape>& shapes, const Checksums& shown,
                const Checksums& dumped) {
  Manifest manifest;
  manifest.tables = TablesOf(database, shapes, shown);
  const std::vector<std::string> differing = TablesThatDiffer(manifest, dumped);
  if (!differing.empty()) FailForTables("the backup does not hold the rows of the practice", differing);
  return manifest;
}

// Lets nobody write until it is unlocked.
void LockTables(PracticeDatabase& database) {
  std::vector<std::string> locks;
  locks.reserve(std::size(kTableNames));
  for (const char* table : kTableNames) locks.push_back(database.Name(table) + " READ");
  database.Execute(fmt::format("LOCK TABLES {}", fmt::join(locks, ", ")), "locking the tables for a moment");
}

// Copies what the program writes to the file. Its snapshot and ours are of the same moment, because nobody
// can write between: the lock ends when the program has begun to tell of the first table.
void DumpUnderLock(Process& dump, std::ofstream& file, PracticeDatabase& lock) {
  bool locked = true;
  for (std::string line; dump.ReadLine(line);) {
    if (locked && line.starts_with("-- Table structure")) {
      lock.Execute("UNLOCK TABLES", "unlocking the tables");
      locked = false;
    }
    file << line << '\n';
  }
  if (locked) lock.Execute("UNLOCK TABLES", "unlocking the tables");
  dump.Finish();
}

}  // namespace

std::filesystem::path SqliteFileOf(const Place& place) {
  const std::optional<std::string> source = SourceOf(place);
  return source ? FindSource(*source).Option("Database") : PracticeFolder(place.practice).Database().string();
}

std::vector<BackedUpTable> TablesOf(PracticeDatabase& database, const std::vector<Shape>& shapes,
                                    const Checksums& sums) {
  std::vector<BackedUpTable> tables;
  for (const Shape& shape : shapes) {
    const Checksum& sum = sums.at(shape.table);
    tables.push_back({shape.table, sum.Rows(), sum.Text(), NextKey(database, shape)});
  }
  return tables;
}

void FailForTables(const char* what, const std::vector<std::string>& tables) {
  throw ToolError(kDiffers, fmt::format("{}: {}", what, fmt::join(tables, ", ")));
}

std::uint64_t RowsIn(PracticeDatabase& database, const std::vector<Shape>& shapes) {
  std::uint64_t rows = 0;
  for (const Shape& shape : shapes) rows += CountRows(database, shape);
  return rows;
}

Checksums SumsOf(PracticeDatabase& database, const std::vector<Shape>& shapes, Progress& progress) {
  Checksums sums;
  for (const Shape& shape : shapes) {
    Checksum& sum = sums[shape.table];
    RowReader reader(database, shape);
    for (std::optional<Row> row = reader.Next(); row; row = reader.Next()) {
      sum.Add(*row);
      progress.Step();
    }
  }
  return sums;
}

Manifest BackUpSqlite(const Place& place, PracticeDatabase& database, const std::filesystem::path& file) {
  const std::vector<Shape> shapes = ShapesOf(database);
  SqliteFile practice(SqliteFileOf(place));
  practice.BeginSnapshot();
  Progress progress("reading", RowsIn(database, shapes) * 2);
  const Checksums shown = practice.Sums(shapes, [&] { progress.Step(); });
  SqliteFile copy(file);
  copy.UseNoFilesBeside();
  practice.CopyTo(copy, [](int, int) { Interruption::Check(); });
  copy.UseSingleFile();
  copy.RequireSound();
  progress.Rename("checking");
  return Proved(database, shapes, shown, copy.Sums(shapes, [&] { progress.Step(); }));
}

Manifest BackUpPostgresql(const Place& place, PracticeDatabase& database, const std::filesystem::path& file) {
  const std::vector<Shape> shapes = ShapesOf(database);
  const ServerPrograms programs(place, database);
  database.BeginSnapshot();
  const std::string snapshot = database.Answer("SELECT pg_export_snapshot()", "sharing the snapshot");
  Process dump(programs.DumpPostgresql(file, snapshot, OtherSchemas(database)), programs.Variables());
  Progress progress("reading", RowsIn(database, shapes) * 2);
  const Checksums shown = SumsOf(database, shapes, progress);
  progress.Rename("writing");
  for (std::string line; dump.ReadLine(line);) {
  }
  dump.Finish();
  progress.Rename("checking");
  CopyRows rows(shapes);
  Process read(ServerPrograms::ReadPostgresql(file));
  AddUp(rows, progress, [&](std::string& line) { return read.ReadLine(line); });
  read.Finish();
  return Proved(database, shapes, shown, rows.Sums());
}

Manifest BackUpMariadb(const Place& place, PracticeDatabase& database, const std::filesystem::path& file) {
  const std::vector<Shape> shapes = ShapesOf(database);
  const ServerPrograms programs(place, database);
  PracticeDatabase lock(database, PracticeDatabase::Another::kConnection);
  LockTables(lock);
  database.BeginSnapshot();
  Progress progress("writing", RowsIn(database, shapes) * 2);
  {
    Process dump(programs.DumpMariadb(), programs.Variables());
    std::ofstream output(file, std::ios::binary);
    DumpUnderLock(dump, output, lock);
    if (!output.flush()) throw ToolError(kFailed, fmt::format("cannot write {}", file.string()));
  }
  progress.Rename("reading");
  const Checksums shown = SumsOf(database, shapes, progress);
  progress.Rename("checking");
  InsertRows rows(shapes);
  std::ifstream input(file, std::ios::binary);
  AddUp(rows, progress, [&](std::string& line) { return static_cast<bool>(std::getline(input, line)); });
  return Proved(database, shapes, shown, rows.Sums());
}
