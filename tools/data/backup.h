// Backups by the databases' own means, and back.
#ifndef KYODBC_TOOLS_DATA_BACKUP_H
#define KYODBC_TOOLS_DATA_BACKUP_H

#include <filesystem>

#include "tools/data/manifest.h"
#include "tools/data/practice_database.h"
#include "tools/place.h"
#include "tools/progress.h"

// The database file of a practice on SQLite.
std::filesystem::path SqliteFileOf(const Place& place);

// Writes the backup to `file`, which exists and is empty, and proves that it holds the rows that the practice
// had at one moment. Programs may go on working meanwhile. The manifest's system, time and file are left out.
// Throws ToolError; kDiffers when the backup does not hold those rows.
Manifest BackUpSqlite(const Place& place, PracticeDatabase& database, const std::filesystem::path& file);
Manifest BackUpPostgresql(const Place& place, PracticeDatabase& database, const std::filesystem::path& file);
Manifest BackUpMariadb(const Place& place, PracticeDatabase& database, const std::filesystem::path& file);

// Makes the practice's rows those of the backup, in one transaction that is committed only when they have
// been read back and are those of the manifest. Whatever happens before leaves the old rows. Throws
// ToolError.
void RestoreSqlite(const Place& place, PracticeDatabase& database, const std::filesystem::path& file,
                   const Manifest& manifest);
void RestoreServer(const Place& place, PracticeDatabase& database, const std::filesystem::path& file,
                   const Manifest& manifest);

// The manifest's tables for rows that were read, with the counters of keys.
std::vector<BackedUpTable> TablesOf(PracticeDatabase& database, const std::vector<Shape>& shapes,
                                    const Checksums& sums);
[[noreturn]] void FailForTables(const char* what, const std::vector<std::string>& tables);
// Reads all rows of the practice as its connection sees them.
Checksums SumsOf(PracticeDatabase& database, const std::vector<Shape>& shapes, Progress& progress);
std::uint64_t RowsIn(PracticeDatabase& database, const std::vector<Shape>& shapes);

#endif
