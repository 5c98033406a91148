// A line that is being typed at the bottom of the screen.
#ifndef KYODBC_TOOLS_SHELL_INPUT_LINE_H
#define KYODBC_TOOLS_SHELL_INPUT_LINE_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "tools/shell/completion.h"
#include "tools/shell/keys.h"

namespace shell {

// Lines entered before, the oldest first.
using History = std::vector<std::string>;

class InputLine {
 public:
  using Complete = std::function<Completion(const std::string& text)>;

  // Begins with `text`. `history` must live as long.
  InputLine(std::string label, std::string text, History& history, Complete complete = {});

  const std::string& Label() const { return m_label; }
  const std::string& Text() const { return m_text; }
  std::string BeforeCursor() const { return m_text.substr(0, m_cursor); }
  // What could come next, after Tab found several words.
  const std::vector<std::string>& Choices() const { return m_choices; }

  // Changes the line. Enter and Escape are the caller's.
  void Press(const KeyPress& key);
  // Adds the line to the history.
  void Remember();

 private:
  void Insert(const std::string& text);
  void Erase(std::size_t from, std::size_t to);
  std::size_t Previous() const;
  std::size_t Next() const;
  void Recall(std::size_t index);
  void CompleteHere();

  std::string m_label;
  std::string m_text;
  std::size_t m_cursor;  // in bytes
  History& m_history;
  std::size_t m_recalled;  // index of the shown line; the size of the history for the new one
  std::string m_new;       // the new line while another one is shown
  Complete m_complete;
  std::vector<std::string> m_choices;
};

}  // namespace shell

#endif
