// kyodbc: makes an embedded practice, and fills and looks into practices on any database. Uses the library as
// any caller does, and is the shortest proof that its interface suffices.
#include <fmt/format.h>
#include <CLI/CLI.hpp>
#include <algorithm>

#include <cstdio>
#include <exception>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/output.h"
#include "tools/terminal.h"
#include "tools/tool_error.h"

namespace {

constexpr const char* kFooter =
    "Exit codes: 0 done; 1 not found, refused, or a result code of the library, which the message names;\n"
    "            2 the command line makes no sense; 3 two sides that must be equal are not;\n"
    "            4 a question was not answered with yes; 130 ended by Ctrl-C, 143 by SIGTERM.\n"
    "With --json every command prints one JSON document, {\"error\": ...} when it fails; messages for "
    "people\n"
    "go to standard error. Colours are for terminals only; NO_COLOR switches them off.\n"
    "KYODBC_LOG=error in the environment shows what the database said.\n";

int Fail(ExitCode code, const std::string& message) {
  std::fflush(stdout);
  if (AsJson()) PrintJsonError(code, message);
  std::fflush(stdout);
  std::fprintf(stderr, "%s %s\n", Coloured(stderr, Look::kError, "kyodbc:").c_str(), message.c_str());
  return code;
}

// The library's own word for its interface: it may be another one than the program was built with.
std::string VersionText() {
  WORD interface_version = 0;
  DB_CheckVersion(KYODBC_INTERFACE_VERSION, &interface_version);
  return fmt::format("kyodbc {}\nlibrary with interface version {} (0x{:04x})", KYODBC_VERSION,
                     interface_version, interface_version);
}

// A failure of the command line like every other one: CLI11's own form names neither the program nor a way
// on, and is no JSON.
int Refuse(const CLI::App& program, const CLI::ParseError& error, std::span<char* const> words) {
  if (std::find(words.begin(), words.end(), std::string_view("--json")) != words.end()) UseJson();
  const std::vector<CLI::App*> commands = program.get_subcommands();
  if (!commands.empty()) {
    return Fail(kUsage,
                fmt::format("{}; 'kyodbc {} --help' tells more", error.what(), commands.front()->get_name()));
  }
  if (words.size() < 2 || *words[1] == '-') {
    return Fail(kUsage, fmt::format("{}; 'kyodbc --help' tells more", error.what()));
  }
  std::vector<std::string> names;
  for (const CLI::App* command : program.get_subcommands({})) names.push_back(command->get_name());
  return Fail(kUsage,
              fmt::format("there is no command '{}'; there are: {}", words[1], fmt::join(names, ", ")));
}

int Run(int argc, char** argv) {
  CLI::App program("Makes an embedded practice, and fills, looks into and keeps practices on any database.",
                   "kyodbc");
  program.footer(kFooter);
  program.set_version_flag("--version", VersionText, "Print the version and exit");
  program.require_subcommand(1);
  Action run;
  for (const auto add : {AddInit, AddSample, AddImport, AddExport, AddList, AddShow, AddShell, AddEdit,
                         AddSettings, AddBackup, AddRestore, AddCopy, AddBench, AddDoctor})
    add(program, run);
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return program.exit(error);  // --help and --version
    return Refuse(program, error, {argv, static_cast<std::size_t>(argc)});
  }
  run();
  return std::fflush(stdout) == 0 ? kDone : Fail(kFailed, "cannot write the output");
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const ToolError& error) {
    return Fail(error.Code(), error.what());
  } catch (const std::exception& error) {
    return Fail(kFailed, error.what());
  }
}
