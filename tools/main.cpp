// kyodbc: makes an embedded practice, and fills and looks into practices on any database. Uses the library as
// any caller does, and is the shortest proof that its interface suffices.
#include <cstdio>
#include <exception>

#include "tools/commands/commands.h"
#include "tools/tool_error.h"

namespace {

constexpr const char* kFooter =
    "Exit codes: 0 done; 1 not found, refused, or a result code of the library, which the message names;\n"
    "            2 the command line makes no sense.\n"
    "KYODBC_LOG=error in the environment shows what the database said.\n";

int Fail(ExitCode code, const char* message) {
  std::fflush(stdout);
  std::fprintf(stderr, "kyodbc: %s\n", message);
  return code;
}

int Run(int argc, char** argv) {
  CLI::App program("Makes an embedded practice, and fills and looks into practices on any database.",
                   "kyodbc");
  program.footer(kFooter);
  program.require_subcommand(1);
  Action run;
  for (const auto add : {AddInit, AddSample, AddImport, AddList, AddShow, AddSettings, AddDoctor, AddShell})
    add(program, run);
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? kDone : kUsage;
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
