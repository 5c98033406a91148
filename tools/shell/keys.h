// What was pressed, whatever the terminal sends for it.
#ifndef KYODBC_TOOLS_SHELL_KEYS_H
#define KYODBC_TOOLS_SHELL_KEYS_H

#include <string>

namespace shell {

enum class Key {
  kText,  // a character
  kUp,
  kDown,
  kLeft,
  kRight,
  kPageUp,
  kPageDown,
  kHome,
  kEnd,
  kEnter,
  kEscape,
  kTab,
  kBackspace,
  kDelete,
  kEraseLine,
  kOther,
};

struct KeyPress {
  Key key = Key::kOther;
  std::string text;  // the character of kText in UTF-8
};

}  // namespace shell

#endif
