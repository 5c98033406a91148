// The commands of line mode and what they do.
#ifndef KYODBC_TOOLS_SHELL_COMMANDS_H
#define KYODBC_TOOLS_SHELL_COMMANDS_H

#include <memory>
#include <string>
#include <vector>

#include "tools/shell/completion.h"
#include "tools/shell/row_set.h"

namespace shell {

class Commands {
 public:
  // Opens the table. Throws WordsError and SetError.
  Commands(const Table& table, const Words& words, LONG rows);

  // Carries the line out and prints to the standard output. Throws WordsError and ToolError. A connection
  // that turns out to be lost is made again, and the line carried out then.
  void Answer(const std::string& line);
  bool Ended() const { return m_ended; }

  std::string Prompt() const;
  Completion Complete(const std::string& before_cursor) const;

  // False for lines that can hold what stands in a practice, and for those that are no commands.
  static bool IsFreeOfValues(const std::string& line);

 private:
  struct Command;
  static const Command kCommands[];
  static const Command* Find(const std::string& word);

  void Execute(const std::string& line);
  void Restore();
  void Open(const Words& words);
  void PrintFrom(LONG first);
  LONG RowNumber(const std::string& text) const;
  Row RowAt(const std::string& text);

  void Tables(const std::string& text);
  void OpenTable(const std::string& text);
  void Filter(const std::string& text);
  void Sort(const std::string& text);
  void Page(const std::string& text);
  void Next(const std::string& text);
  void Previous(const std::string& text);
  void GoTo(const std::string& text);
  void Jump(const std::string& text);
  void Rows(const std::string& text);
  void Show(const std::string& text);
  void Images(const std::string& text);
  void Count(const std::string& text);
  void Reload(const std::string& text);
  void Help(const std::string& text);
  void Quit(const std::string& text);

  std::unique_ptr<RowSet> m_set;
  LONG m_rows;
  LONG m_first = 1;      // position of the first row printed last
  LONG m_first_key = 0;  // its key
  bool m_ended = false;
};

}  // namespace shell

#endif
