// kyodbc shell: look around in a practice, in full screen or line by line.
#include <fmt/format.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/connection.h"
#include "tools/shell/full_screen.h"
#include "tools/shell/line_mode.h"

namespace {

constexpr int kUsualRows = 20;
constexpr int kMostRows = 1'000'000;

struct ShellOptions {
  Place place;
  std::string table = "patients";
  std::vector<std::string> filters;
  std::string sort;
  bool lines = false;
  LONG rows = kUsualRows;
};

void Browse(const ShellOptions& options) {
  const Table& table = FindTable(options.table);
  shell::Words words = shell::UsualWords(table);
  words.filter = fmt::format("{}", fmt::join(options.filters, " and "));
  if (!options.sort.empty()) words.sort = options.sort;
  const Connection connection(options.place);
  const bool full_screen = !options.lines && isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
  try {
    if (full_screen) {
      shell::RunFullScreen(table, words);
    } else {
      shell::RunLineMode(table, words, options.rows);
    }
  } catch (const WordsError& error) {
    throw ToolError(kUsage, fmt::format("{}: {}", table.plural, error.what()));
  }
}

constexpr const char* kFooter =
    "On a terminal it fills the screen; '?' lists the keys. Otherwise, and with --lines, it reads commands, "
    "one\n"
    "a line; 'help' lists them. Filters and sort orders are those of 'kyodbc list'. It changes nothing.\n"
    "A letter, or 'jump', goes to a text in the patients, in an order that begins with a text. The library "
    "jumps\n"
    "in no other table: there a filter does it, for example 'name >= M'.\n"
    "\n"
    "A typed line is remembered for later sessions in $XDG_STATE_HOME/kyodbc/history (else\n"
    "~/.local/state/kyodbc/history) unless it can hold patients' names: KYODBC_HISTORY=commands. off: "
    "nothing\n"
    "is remembered; all: filters and jumps too.\n"
    "\n"
    "  kyodbc shell PRACTICE images --sort -time\n"
    "  printf 'filter name like M%\\ncount\\n' | kyodbc shell PRACTICE\n";

}  // namespace

void AddShell(CLI::App& program, Action& run) {
  CLI::App* command = program.add_subcommand("shell", "Look around in a practice, interactively");
  const auto options = std::make_shared<ShellOptions>();
  AddPlace(*command, options->place);
  command->add_option("TABLE", options->table, "What to begin with: " + PluralNames())->capture_default_str();
  command->add_option("--filter", options->filters, "Rows to show; several are joined by 'and'")
      ->take_all()
      ->allow_extra_args(false);
  command->add_option("--sort", options->sort,
                      "Fields to sort by, up to four; '-' before one: descending. Patients are sorted by "
                      "name,firstname without it, other tables by key");
  command->add_flag("--lines", options->lines, "Commands line by line, also on a terminal");
  command->add_option("--rows", options->rows, "Rows that a command prints at a time")
      ->capture_default_str()
      ->check(CLI::Range(1, kMostRows));
  command->footer(kFooter);
  command->callback([options, &run] { run = [options] { Browse(*options); }; });
}
