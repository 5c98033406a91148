// kyodbc copy: a whole practice from one database system to another.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "tools/commands/commands.h"
#include "tools/data/copier.h"
#include "tools/interruption.h"
#include "tools/output.h"
#include "tools/progress.h"
#include "tools/terminal.h"
#include "tools/text_table.h"
#include "tools/tool_error.h"

namespace {

struct CopyOptions {
  Place from;
  Place to;
  bool replace = false;
  bool verify_only = false;
  bool yes = false;
};

struct Result {
  bool resumed = false;
  double seconds = 0;
  Differences differences;
};

void RequireTwo(const PracticeDatabase& source, const PracticeDatabase& target) {
  if (source.Identity() == target.Identity()) {
    throw ToolError(kUsage, "FROM and TO are the same database");
  }
}

// True when a copy goes on that had been begun.
bool Prepare(Copier& copier, const CopyOptions& options) {
  copier.RequireOther();
  if (!options.replace) {
    const TargetState state = copier.State();
    if (state == TargetState::kUnfinished) {
      copier.RaiseCounters();
      return true;
    }
    if (state == TargetState::kFilled) {
      throw ToolError(kFailed, fmt::format("{} holds {} rows already; copy into an empty practice, or give "
                                           "--replace to lose them",
                                           options.to.practice, copier.RowsInTarget()));
    }
  } else {
    Confirm(fmt::format("Replace the {} rows of {}?", copier.RowsInTarget(), options.to.practice),
            options.yes);
  }
  copier.RaiseCounters();
  copier.Clear();
  return false;
}

void PrintAsJson(const Copier& copier, const CopyOptions& options, const Result& result) {
  Json tables = Json::array();
  for (const CopiedTable& table : copier.Tables()) {
    tables.push_back({
        {"table", table.table},
        {"rows",  table.rows }
    });
  }
  PrintJson({
      {"from",        options.from.practice          },
      {"to",          options.to.practice            },
      {"resumed",     result.resumed                 },
      {"rows",        copier.RowsInSource()          },
      {"tables",      tables                         },
      {"equal",       result.differences.Count() == 0},
      {"differences", result.differences.First()     },
      {"seconds",     result.seconds                 }
  });
}

void Print(const Copier& copier, const CopyOptions& options, const Result& result) {
  TextTable table({
      {"table", {}                      },
      {"rows",  TextTable::Align::kRight}
  });
  for (const CopiedTable& copied : copier.Tables()) table.Add({copied.table, std::to_string(copied.rows)});
  fmt::print("{}", table.Text(ShowsColours(stdout)));
  for (const std::string& difference : result.differences.First()) {
    fmt::print("{}\n", Coloured(stdout, Look::kBad, difference));
  }
  if (result.differences.Count() > 0) return;
  fmt::print("{} {} rows {} {:.1f} seconds; every field compared equal.\n",
             options.verify_only ? "Compared" : (result.resumed ? "Went on copying" : "Copied"),
             copier.RowsInSource(), "in", result.seconds);
}

Result Run(Copier& copier, const CopyOptions& options) {
  Result result;
  if (!options.verify_only) result.resumed = Prepare(copier, options);
  const auto start = std::chrono::steady_clock::now();
  Progress progress("copying", copier.RowsInSource() * (options.verify_only ? 1 : 2));
  for (const auto part : {Copier::Part::kRows, Copier::Part::kSettings}) {
    if (!options.verify_only && result.differences.Count() > 0) break;
    if (!options.verify_only) copier.Copy(part, progress);
    copier.Verify(part, progress, result.differences);
  }
  if (!options.verify_only && result.differences.Count() == 0) copier.Finish();
  result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  return result;
}

void Copy(const CopyOptions& options) {
  const Interruption interruption;
  PracticeDatabase source(options.from, {" for FROM", "KYODBC_PASSWORD_FROM"});
  PracticeDatabase target(options.to, {" for TO", "KYODBC_PASSWORD_TO"});
  RequireTwo(source, target);
  source.BeginSnapshot();
  Copier copier(source, target);
  const Result result = Run(copier, options);
  AsJson() ? PrintAsJson(copier, options, result) : Print(copier, options, result);
  if (result.differences.Count() == 0) return;
  throw ToolError(kDiffers, fmt::format("{} rows differ{}", result.differences.Count(),
                                        options.verify_only ? "" : "; the copy is not finished"));
}

void AddSide(CLI::App& command, Place& place, const std::string& name, const char* prefix, const char* help) {
  command.add_option(name, place.practice, help)->required();
  const std::string option = std::string("--") + prefix;
  command.add_option(option + "-user", place.login.user, "The user to connect to " + name + " as");
  command.add_option(option + "-password-file", place.login.password_file,
                     fmt::format("A file whose first line is that user's password; without it "
                                 "KYODBC_PASSWORD_{0} or KYODBC_PASSWORD in the environment, and without "
                                 "these a question",
                                 name));
  command.add_option(option + "-owner", place.login.owner,
                     "What stands before table names of " + name + ", with its point");
}

constexpr const char* kFooter =
    "TO is a practice without rows: made by 'kyodbc init' or by the schema file of its database system. All\n"
    "rows and columns of the ten tables go over with their keys; new keys go on above them. At the end "
    "every\n"
    "field of every row is read from both sides and compared; until then TO has no schema version, and\n"
    "'kyodbc doctor' complains. FROM is only read, as it was when copying began: let nobody work in it\n"
    "meanwhile.\n"
    "\n"
    "A copy that was interrupted (Ctrl-C, lost connection) goes on when the same command is given again.\n"
    "Exit code 3: the two differ; the first differences are told by table, key and column.\n"
    "\n"
    "  kyodbc copy ./practice dsn:server --to-user admin\n"
    "  kyodbc copy ./practice dsn:server --to-user admin --verify-only\n";

}  // namespace

void AddCopy(CLI::App& program, Action& run) {
  CLI::App* command =
      program.add_subcommand("copy", "Copy a whole practice to another database system, and prove it equal");
  const auto options = std::make_shared<CopyOptions>();
  AddSide(*command, options->from, "FROM", "from",
          "The practice to copy: a folder, or dsn:NAME, an ODBC data source");
  AddSide(*command, options->to, "TO", "to", "The practice to fill, likewise");
  command->add_flag("--replace", options->replace, "Take the rows out that TO has, after asking");
  command->add_flag("--verify-only", options->verify_only, "Copy nothing, only compare")
      ->excludes("--replace");
  AddYes(*command, options->yes);
  AddJson(*command);
  command->footer(kFooter);
  command->callback([options, &run] { run = [options] { Copy(*options); }; });
}
