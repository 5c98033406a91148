// kyodbc export: rows as CSV or JSON, for other programs.
#include <fmt/format.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "tools/commands/browse.h"
#include "tools/commands/commands.h"
#include "tools/connection.h"
#include "tools/csv.h"
#include "tools/interruption.h"
#include "tools/new_file.h"
#include "tools/output.h"
#include "tools/progress.h"
#include "tools/record_json.h"
#include "tools/tool_error.h"

namespace {

struct ExportOptions {
  Place place;
  BrowseOptions browse;
  std::string format;
  std::string file;  // empty: standard output
};

using Write = std::function<void(const std::string&)>;

std::string CsvTitles(const Table& table) {
  std::vector<std::string> titles;
  for (const Column& column : table.data->columns) titles.emplace_back(column.title);
  return CsvLine(titles);
}

std::string CsvRow(const Table& table, const void* record) {
  std::vector<std::string> fields;
  for (const Column& column : table.data->columns) fields.push_back(FieldAsText(column, record));
  return CsvLine(fields);
}

// One row after the other, so that memory does not grow with the table. A bar would be mixed with rows that
// go to the same terminal.
void WriteRows(const Table& table, Rows& rows, bool json, bool quiet, const Write& write) {
  std::optional<Progress> progress;
  if (!quiet) progress.emplace(table.plural, static_cast<std::uint64_t>(rows.Count()));
  write(json ? "[" : CsvTitles(table));
  for (LONG position = 1; position <= rows.Count(); ++position) {
    const void* record = rows.At(position);
    if (json) {
      write((position == 1 ? "\n" : ",\n") + JsonText(RecordAsJson(*table.data, record)));
    } else {
      write(CsvRow(table, record));
    }
    Interruption::Check();
    if (progress) progress->Step();
  }
  if (json) write(rows.Count() == 0 ? "]\n" : "\n]\n");
}

void WriteFile(const Table& table, Rows& rows, bool json, const std::string& name) {
  NewFile file(name);
  WriteRows(table, rows, json, false, [&](const std::string& text) { file.Write(text); });
  file.Finish();
  if (AsJson()) {
    PrintJson({
        {"table", table.plural},
        {"file",  name        },
        {"rows",  rows.Count()}
    });
  } else {
    fmt::print("{} {} in {}\n", rows.Count(), table.plural, name);
  }
}

void WriteStandardOutput(const Table& table, Rows& rows, bool json) {
  WriteRows(table, rows, json, isatty(STDOUT_FILENO) == 1, [](const std::string& text) {
    if (std::fputs(text.c_str(), stdout) < 0) throw ToolError(kFailed, "cannot write the output");
  });
}

void Export(const ExportOptions& options) {
  const Interruption interruption;
  const Table& table = FindTable(options.browse.table);
  const Request request = ReadRequest(table, options.browse);
  const bool to_file = !options.file.empty();
  const std::string usual = AsJson() && !to_file ? "json" : "csv";
  const bool json = (options.format.empty() ? usual : options.format) == "json";
  if (AsJson() && !to_file && !json) throw ToolError(kUsage, "--json and --format csv exclude each other");
  const Connection connection(options.place);
  Rows rows(table, request);
  to_file ? WriteFile(table, rows, json, options.file) : WriteStandardOutput(table, rows, json);
}

constexpr const char* kFooter =
    "\n"
    "CSV has a first row of titles, fields in quotes where needed, and nothing for 'no date'. JSON is a list "
    "of\n"
    "objects, one on a line. The file is there only when all rows are in it; only its owner can read it. An\n"
    "existing file is never overwritten.\n"
    "\n"
    "  kyodbc export PRACTICE images --filter \"date >= 2024-01-01\" --sort patient,time --output "
    "images.csv\n";

}  // namespace

void AddExport(CLI::App& program, Action& run) {
  CLI::App* command = program.add_subcommand("export", "Write rows of a table as CSV or JSON");
  const auto options = std::make_shared<ExportOptions>();
  AddPlace(*command, options->place);
  AddBrowse(*command, options->browse, "export");
  command->add_option("--format", options->format, "csv or json; csv without it, but json with --json")
      ->check(CLI::IsMember({"csv", "json"}));
  command->add_option("--output", options->file, "The file to make; standard output without it")
      ->type_name("FILE");
  AddJson(*command);
  command->footer(std::string(kFilterHelp) + kFooter);
  command->callback([options, &run] { run = [options] { Export(*options); }; });
}
