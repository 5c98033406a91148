// kyodbc doctor: what is wrong or risky about a data source.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/doctor/findings.h"
#include "tools/doctor/schema.h"
#include "tools/doctor/session.h"
#include "tools/doctor/source.h"
#include "tools/output.h"
#include "tools/place.h"
#include "tools/practice_folder.h"
#include "tools/terminal.h"
#include "tools/tool_error.h"

namespace {

// What to examine is a practice as elsewhere, a folder or dsn:NAME, or a data source's bare name, which is
// what people have at hand who have just written one. Told apart before anything is looked up: the driver
// manager remembers where its files are.
Source Wanted(const Place& place) {
  if (const std::optional<std::string> name = SourceOf(place)) return FindSource(*name);
  const PracticeFolder folder(place.practice);
  std::error_code ignored;
  if (!std::filesystem::exists(folder.Sources(), ignored)) return FindSource(place.practice);
  RequireNoLogin(place);
  folder.UseForThisProcess();
  return FindSource(kDataSource);
}

// One driver makes the file that it does not find.
bool MayConnect(const Source& source, Findings& findings) {
  if (source.driver_file.empty()) return false;
  if (source.kind != DriverKind::kSqlite) return true;
  std::error_code ignored;
  const std::string file = source.Option("Database");
  if (std::filesystem::exists(file, ignored)) return true;
  findings.Add(fmt::format("the database file '{}' is not there", file),
               "correct the line Database in odbc.ini, or make the practice with 'kyodbc init'");
  return false;
}

Facts CheckDatabase(const Login& login, const Source& source, Findings& findings) {
  const tagDBCONNECT parameters = Parameters(source.name, login);
  if (!MayConnect(source, findings)) return {};
  const WORD code = DB_InitDatabase(&parameters);
  if (code != KYODBC_OK) {
    findings.Add(fmt::format("connecting failed: {} (code {})", MeaningOf(code), code),
                 "run this again with KYODBC_LOG=error to see what the driver says");
    return {};
  }
  CDatabase& database = *DB_GetDatabase();
  Facts facts = FactsOf(database, source);
  CheckAbilities(database, findings);
  CheckPractice(database, login.owner, findings);
  CheckEncoding(database, source, findings);
  CheckEncryption(database, source, findings);
  CheckSchema(database, login.owner, findings);
  DB_CloseDatabase();
  return facts;
}

void Print(const Facts& facts, const Findings& findings) {
  for (const std::string& fact : facts) fmt::print("{}\n", fact);
  int number = 0;
  for (const std::string& sentence : findings.Sentences()) {
    fmt::print("{} {}\n", Coloured(stdout, Look::kBad, fmt::format("{}.", ++number)), sentence);
  }
  if (findings.Empty()) fmt::print("{}\n", Coloured(stdout, Look::kGood, "All is well."));
}

void Examine(const Place& place) {
  Findings findings;
  const Source source = Wanted(place);
  CheckSource(source, findings);
  const Facts facts = CheckDatabase(place.login, source, findings);
  const std::size_t number = findings.Sentences().size();
  if (AsJson()) {
    PrintJson({
        {"source",   source.name         },
        {"facts",    facts               },
        {"findings", findings.Sentences()}
    });
  } else {
    Print(facts, findings);
  }
  if (number > 0) throw ToolError(kFailed, fmt::format("{} finding{}", number, number == 1 ? "" : "s"));
}

}  // namespace

void AddDoctor(CLI::App& program, Action& run) {
  CLI::App* command =
      program.add_subcommand("doctor", "Tell what is wrong or risky about a practice's data source");
  const auto place = std::make_shared<Place>();
  command
      ->add_option("PRACTICE", place->practice,
                   "The folder of the practice, or an ODBC data source, NAME or dsn:NAME")
      ->required();
  AddLogin(*command, place->login);
  AddJson(*command);
  command->callback([place, &run] { run = [place] { Examine(*place); }; });
}
