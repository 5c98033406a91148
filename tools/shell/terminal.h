// The terminal in full screen: keys in, texts out.
#ifndef KYODBC_TOOLS_SHELL_TERMINAL_H
#define KYODBC_TOOLS_SHELL_TERMINAL_H

#include <optional>
#include <string>

#include "tools/shell/keys.h"
#include "tools/shell/restore.h"

namespace shell {

enum class Style { kPlain, kBar, kTitle, kSelectedTitle, kCursor, kOtherCursor, kMessage, kHint };

// The terminal is as it was when it ends, also by a signal.
class Terminal {
 public:
  // Throws ToolError when the terminal cannot do it.
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  int Lines() const;
  int Columns() const;

  void Clear();
  // Fills `width` columns from there on: the text, and blanks behind it. Longer texts are cut.
  void Put(int y, int x, int width, const std::string& text, Style style);
  // Where the cursor blinks while the user types; without it there is none.
  void PlaceCursor(int y, int x);
  void HideCursor();
  void Show();

  // What happened: a key, nothing within `milliseconds`, a new size or the end of all input. No limit: -1.
  enum class Event { kKey, kNothing, kResize, kEnd };
  Event Wait(int milliseconds, KeyPress& key);

 private:
  void SetUpStyles();

  HeldErrors m_errors;
  RestoreOnSignals m_restore;
  void* m_screen;  // what ncurses knows of it
  bool m_colours = false;
};

}  // namespace shell

#endif
