// kyodbc backup: a practice in a file, by the database's own means.
#include <fmt/chrono.h>
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <ctime>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "tools/commands/commands.h"
#include "tools/data/backup.h"
#include "tools/data/checksum.h"
#include "tools/interruption.h"
#include "tools/new_file.h"
#include "tools/output.h"
#include "tools/terminal.h"
#include "tools/text_table.h"
#include "tools/tool_error.h"

namespace {

struct BackupOptions {
  Place place;
  std::string file;
};

Manifest Write(const Place& place, PracticeDatabase& database, const std::filesystem::path& file) {
  switch (database.Kind()) {
    case System::kSqlite:
      return BackUpSqlite(place, database, file);
    case System::kPostgresql:
      return BackUpPostgresql(place, database, file);
    default:
      return BackUpMariadb(place, database, file);
  }
}

void Print(const Manifest& manifest, const std::string& file) {
  TextTable table({
      {"table",    {}                      },
      {"rows",     TextTable::Align::kRight},
      {"checksum", {}                      }
  });
  for (const BackedUpTable& row : manifest.tables)
    table.Add({row.table, std::to_string(row.rows), row.checksum});
  fmt::print("{}{} of {}, read back and equal; {}.json tells what is in it.\n",
             table.Text(ShowsColours(stdout)), file, manifest.system, file);
}

// The backup appears with its manifest already there: one without the other would be of no use.
void Backup(const BackupOptions& options) {
  const Interruption interruption;
  PracticeDatabase database(options.place);
  NewFile file(options.file);
  NewFile beside(ManifestFile(options.file));
  Manifest manifest = Write(options.place, database, file.Temporary());
  manifest.system = NameOf(database.Kind());
  manifest.made = fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(std::time(nullptr)));
  manifest.sha256 = Sha256OfFile(file.Temporary());
  beside.Write(JsonText(ManifestAsJson(manifest), 2) + "\n");
  beside.Finish();
  file.Finish();
  AsJson() ? PrintJson(ManifestAsJson(manifest)) : Print(manifest, options.file);
}

constexpr const char* kFooter =
    "The database's own means write it: SQLite's online backup (the file is a database itself), pg_dump in "
    "its\n"
    "own format (pg_restore reads it), mariadb-dump (a text of SQL). Programs may go on working: it holds "
    "the\n"
    "practice of one moment. The backup is read again and compared with the practice, table by table, by\n"
    "number of rows and checksum, before it is put in place; FILE.json keeps these, for 'kyodbc restore'.\n"
    "Only its owner can read either file. Patients' data are not encrypted in it: keep it where nobody else "
    "can.\n"
    "\n"
    "  kyodbc backup ./practice /backup/practice-monday\n";

}  // namespace

void AddBackup(CLI::App& program, Action& run) {
  CLI::App* command = program.add_subcommand("backup", "Write a practice to a file, and prove it equal");
  const auto options = std::make_shared<BackupOptions>();
  AddPlace(*command, options->place);
  command->add_option("FILE", options->file, "The file to make; an existing one is never overwritten")
      ->required();
  AddJson(*command);
  command->footer(kFooter);
  command->callback([options, &run] { run = [options] { Backup(*options); }; });
}
