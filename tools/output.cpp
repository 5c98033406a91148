#include "tools/output.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

namespace {

bool as_json = false;
bool printed = false;

}  // namespace

void AddJson(CLI::App& command) {
  command.add_flag("--json", as_json, "Print one JSON document instead of text");
}

void UseJson() { as_json = true; }

bool AsJson() { return as_json; }

std::string JsonText(const Json& value, int indent) {
  return value.dump(indent, ' ', false, Json::error_handler_t::replace);
}

void PrintJson(const Json& document) {
  printed = true;
  fmt::print("{}\n", JsonText(document, 2));
}

void PrintJsonError(ExitCode code, const std::string& message) {
  if (printed) return;
  PrintJson({
      {"error", {{"message", message}, {"exit_code", static_cast<int>(code)}}}
  });
}
