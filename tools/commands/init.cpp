// kyodbc init: makes an empty practice.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "tools/commands/commands.h"
#include "tools/output.h"
#include "tools/practice_folder.h"

namespace {

// The text as a shell takes it for one word.
std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'') quoted += "'\\'";
    quoted += c;
  }
  return quoted + '\'';
}

void Init(const std::string& name) {
  const PracticeFolder folder(name);
  folder.Create();
  if (AsJson()) {
    return PrintJson({
        {"folder",      folder.Folder().string()                                                          },
        {"data_source", kDataSource                                                                       },
        {"environment", {{"ODBCSYSINI", folder.Folder().string()}, {"ODBCINI", folder.Sources().string()}}}
    });
  }
  fmt::print(
      "Made an empty practice in {0}.\n"
      "\n"
      "A program reaches it as the data source \"{1}\" when its environment names the folder:\n"
      "  export ODBCSYSINI={2} ODBCINI={3}\n"
      "and it connects with:\n"
      "  tagDBCONNECT parameters = {{\"{1}\"}};\n"
      "  DB_InitDatabase(&parameters);\n"
      "\n"
      "'kyodbc sample' fills it with a made-up practice, 'kyodbc import' with rows of CSV files.\n",
      folder.Folder().string(), kDataSource, Quoted(folder.Folder().string()),
      Quoted(folder.Sources().string()));
}

}  // namespace

void AddInit(CLI::App& program, Action& run) {
  CLI::App* command = program.add_subcommand("init", "Make an empty practice in a folder");
  const auto folder = std::make_shared<std::string>();
  command->add_option("DIR", *folder, "The folder; it is made when there is none")->required();
  AddJson(*command);
  command->callback([folder, &run] { run = [folder] { Init(*folder); }; });
}
