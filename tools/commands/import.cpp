// kyodbc import: rows of CSV files.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/commands/import_rows.h"
#include "tools/connection.h"
#include "tools/interruption.h"
#include "tools/output.h"
#include "tools/progress.h"
#include "tools/text_table.h"
#include "tools/tool_error.h"

namespace {

struct ImportOptions {
  Place place;
  std::vector<std::string> files = std::vector<std::string>(ImportKinds().size());  // empty: not asked for
};

struct Rejected {
  int line;
  std::string reason;
};

struct Report {
  int added = 0;
  int updated = 0;
  int texts_cut = 0;
  std::vector<Rejected> rejected;
};

// Stores the next row. False at the end of the file.
bool ImportRow(CsvTable& table, StoreRow store, Report& report) {
  try {
    if (!table.Next()) return false;
    const Stored stored = store(table);
    ++(stored.added ? report.added : report.updated);
    report.texts_cut += stored.texts_cut;
  } catch (const RowRejected& reason) {
    report.rejected.push_back({table.Line(), reason.what()});
  }
  return true;
}

Report ImportFile(const ImportKind& kind, const std::string& file) {
  CsvTable table(file, kind.columns);
  Report report;
  Batches batches;
  std::error_code not_a_file;  // a pipe, whose size nobody knows
  const std::uintmax_t size = std::filesystem::file_size(file, not_a_file);
  Progress progress(kind.what, not_a_file ? 0 : size);
  while (ImportRow(table, kind.store, report)) {
    batches.Step();
    progress.Reach(table.BytesRead());
  }
  batches.Finish();
  return report;
}

void Print(const ImportKind& kind, const std::string& file, const Report& report) {
  fmt::print("{}: {} added, {} updated, {} lines rejected", kind.what, report.added, report.updated,
             report.rejected.size());
  if (report.texts_cut > 0) fmt::print(", {} texts cut to the width of their fields", report.texts_cut);
  fmt::print("\n");
  for (const Rejected& row : report.rejected)
    fmt::print("  {}:{}: {}\n", file, row.line, Printable(row.reason));
}

Json AsJsonObject(const ImportKind& kind, const std::string& file, const Report& report) {
  Json rejected = Json::array();
  for (const Rejected& row : report.rejected)
    rejected.push_back({
        {"line",   row.line  },
        {"reason", row.reason}
    });
  return {
      {"what",      kind.what       },
      {"file",      file            },
      {"added",     report.added    },
      {"updated",   report.updated  },
      {"texts_cut", report.texts_cut},
      {"rejected",  rejected        }
  };
}

void Import(const ImportOptions& options) {
  const Interruption interruption;
  if (std::all_of(options.files.begin(), options.files.end(),
                  [](const std::string& file) { return file.empty(); })) {
    throw ToolError(kUsage, "no file to import: give --doctors, --patients or --images");
  }
  const Connection connection(options.place);
  std::size_t rejected = 0;
  Json files = Json::array();
  for (std::size_t i = 0; i < options.files.size(); ++i) {
    if (options.files[i].empty()) continue;
    const Report report = ImportFile(ImportKinds()[i], options.files[i]);
    if (AsJson()) {
      files.push_back(AsJsonObject(ImportKinds()[i], options.files[i], report));
    } else {
      Print(ImportKinds()[i], options.files[i], report);
    }
    rejected += report.rejected.size();
  }
  if (AsJson()) PrintJson(files);
  if (rejected > 0) throw ToolError(kFailed, fmt::format("{} lines were rejected", rejected));
}

constexpr const char* kFooter =
    "The first row of a file names its columns; other columns than those above are left out. Rows are found\n"
    "again by their Id and brought up to date, so a file can be imported more than once. Times are taken as\n"
    "they stand.\n";

}  // namespace

void AddImport(CLI::App& program, Action& run) {
  CLI::App* command = program.add_subcommand("import", "Import doctors, patients and images from CSV files");
  const auto options = std::make_shared<ImportOptions>();
  AddPlace(*command, options->place);
  for (std::size_t i = 0; i < ImportKinds().size(); ++i) {
    const ImportKind& kind = ImportKinds()[i];
    command
        ->add_option(kind.option, options->files[i],
                     fmt::format("With the columns {}", fmt::join(kind.columns, ", ")))
        ->type_name("FILE");
  }
  AddJson(*command);
  command->footer(kFooter);
  command->callback([options, &run] { run = [options] { Import(*options); }; });
}
