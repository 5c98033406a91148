#include "tools/terminal.h"

#include <fmt/color.h>
#include <unistd.h>

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <iostream>
#include <string_view>

#include "tools/interruption.h"
#include "tools/tool_error.h"

namespace {

fmt::text_style StyleOf(Look look) {
  switch (look) {
    case Look::kTitle:
      return fmt::emphasis::bold;
    case Look::kGood:
      return fg(fmt::terminal_color::green);
    case Look::kError:
      return fmt::emphasis::bold | fg(fmt::terminal_color::red);
    default:
      return fg(fmt::terminal_color::red);
  }
}

bool IsSet(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0';
}

}  // namespace

bool ShowsColours(std::FILE* stream) {
  if (isatty(fileno(stream)) == 0 || IsSet("NO_COLOR")) return false;
  const char* terminal = std::getenv("TERM");
  return terminal != nullptr && std::string_view(terminal) != "dumb";
}

std::string Coloured(std::FILE* stream, Look look, const std::string& text) {
  return ShowsColours(stream) ? fmt::format(StyleOf(look), "{}", text) : text;
}

void AddYes(CLI::App& command, bool& yes) { command.add_flag("-y,--yes", yes, "Do not ask"); }

void Confirm(const std::string& question, bool yes) {
  if (yes) return;
  if (isatty(STDIN_FILENO) == 0) {
    throw ToolError(kUsage, question + " There is no terminal to ask on; --yes says yes beforehand");
  }
  std::fflush(stdout);
  fmt::print(stderr, "{} [y/N] ", question);
  std::string answer;
  Interruption::AwaitInput();
  Interruption::Check();
  std::getline(std::cin, answer);
  Interruption::Check();
  if (answer == "y" || answer == "Y" || answer == "yes") return;
  throw ToolError(kDeclined, "not confirmed; nothing was changed");
}
