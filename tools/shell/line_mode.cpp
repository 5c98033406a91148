#include "tools/shell/line_mode.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <optional>

#include "tools/shell/commands.h"
#include "tools/shell/history_file.h"
#include "tools/shell/line_reader.h"

namespace shell {
namespace {

bool IsTerminal() { return isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0; }

class Conversation {
 public:
  Conversation(Commands& commands, LineReader& reader, HistoryFile& history)
      : m_commands(commands), m_reader(reader), m_history(history) {}

  void Run() {
    while (!m_commands.Ended()) {
      const std::optional<std::string> line = m_reader.Read(m_commands.Prompt());
      if (!line) return;
      ++m_line;
      Answer(*line);
      std::fflush(stdout);
    }
  }
  int Failures() const { return m_failures; }

 private:
  void Answer(const std::string& line) {
    try {
      m_commands.Answer(line);
      if (!line.empty()) m_history.Add(line, !Commands::IsFreeOfValues(line));
    } catch (const std::runtime_error& error) {  // WordsError and ToolError
      std::fflush(stdout);
      fmt::print(stderr, "kyodbc: line {}: {}\n", m_line, error.what());
      ++m_failures;
    }
  }

  Commands& m_commands;
  LineReader& m_reader;
  HistoryFile& m_history;
  int m_line = 0;
  int m_failures = 0;
};

}  // namespace

void RunLineMode(const Table& table, const Words& words, LONG rows) {
  Commands commands(table, words, rows);
  const bool typed = IsTerminal();
  HistoryFile history(typed ? RememberAsAsked() : Remember::kNothing);
  const std::unique_ptr<LineReader> reader =
      typed ? EditingReader([&commands](const std::string& text) { return commands.Complete(text); },
                            history.Load())
            : PlainReader();
  Conversation conversation(commands, *reader, history);
  conversation.Run();
  if (!typed && conversation.Failures() > 0) {
    throw ToolError(kFailed, fmt::format("{} of the lines failed", conversation.Failures()));
  }
}

}  // namespace shell
