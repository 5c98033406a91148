// The browser on a terminal.
#ifndef KYODBC_TOOLS_SHELL_FULL_SCREEN_H
#define KYODBC_TOOLS_SHELL_FULL_SCREEN_H

#include "tools/shell/row_set.h"

namespace shell {

// Runs until the user quits. Throws WordsError and ToolError when the table cannot be opened.
void RunFullScreen(const Table& table, const Words& words);

}  // namespace shell

#endif
