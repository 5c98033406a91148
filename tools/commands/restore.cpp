// kyodbc restore: a practice as it was in a backup.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "tools/commands/commands.h"
#include "tools/data/backup.h"
#include "tools/data/catalog.h"
#include "tools/data/checksum.h"
#include "tools/data/contents.h"
#include "tools/interruption.h"
#include "tools/output.h"
#include "tools/terminal.h"
#include "tools/tool_error.h"

namespace {

struct RestoreOptions {
  Place place;
  std::string file;
  bool replace = false;
  bool yes = false;
};

Manifest Checked(const RestoreOptions& options, const PracticeDatabase& database) {
  Manifest manifest = ReadManifest(options.file);
  if (manifest.system != NameOf(database.Kind())) {
    throw ToolError(
        kFailed, fmt::format("{0} is a backup of {1}, and {2} is on {3}; restore it into a practice "
                             "on {1} and take that to {3} with 'kyodbc copy'",
                             options.file, manifest.system, options.place.practice, NameOf(database.Kind())));
  }
  if (Sha256OfFile(options.file) != manifest.sha256) {
    throw ToolError(kDiffers, options.file + " is not the file that was backed up: its checksum differs");
  }
  return manifest;
}

void RequireConsent(const RestoreOptions& options, const Manifest& manifest, PracticeDatabase& database) {
  const std::uint64_t rows = RowsBesidesSchema(database, ShapesOf(database));
  if (rows > 0 && !options.replace) {
    throw ToolError(kFailed, fmt::format("{} holds {} rows already; restore into an empty practice, or give "
                                         "--replace to lose them",
                                         options.place.practice, rows));
  }
  const std::string lost = rows == 0 ? "" : fmt::format(" Its {} rows are lost.", rows);
  Confirm(fmt::format("Make {} what it was at {}?{}", options.place.practice, manifest.made, lost),
          options.yes);
}

void Restore(const RestoreOptions& options) {
  const Interruption interruption;
  PracticeDatabase database(options.place);
  const Manifest manifest = Checked(options, database);
  RequireConsent(options, manifest, database);
  database.Kind() == System::kSqlite ? RestoreSqlite(options.place, database, options.file, manifest)
                                     : RestoreServer(options.place, database, options.file, manifest);
  if (AsJson()) return PrintJson(ManifestAsJson(manifest));
  fmt::print("{} is what it was at {}; rows read back and equal.\n", options.place.practice, manifest.made);
}

constexpr const char* kFooter =
    "The practice must have its tables already: made by 'kyodbc init' or by the schema file of its database\n"
    "system, which has to be that of the backup. The rows change in one transaction, which is committed "
    "when\n"
    "they have been read back and are those of the backup; until then, and when it fails or is interrupted,\n"
    "the old rows stay. Let nobody work in the practice meanwhile. Exit code 3: the backup is damaged.\n"
    "\n"
    "  kyodbc restore ./practice /backup/practice-monday --replace\n";

}  // namespace

void AddRestore(CLI::App& program, Action& run) {
  CLI::App* command = program.add_subcommand("restore", "Make a practice what it was in a backup");
  const auto options = std::make_shared<RestoreOptions>();
  AddPlace(*command, options->place);
  command->add_option("FILE", options->file, "The backup, with FILE.json beside it")->required();
  command->add_flag("--replace", options->replace, "Lose the rows that the practice has, after asking");
  AddYes(*command, options->yes);
  AddJson(*command);
  command->footer(kFooter);
  command->callback([options, &run] { run = [options] { Restore(*options); }; });
}
