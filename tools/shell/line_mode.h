// The browser as a conversation of lines, for pipes, plain terminals and readers of the screen.
#ifndef KYODBC_TOOLS_SHELL_LINE_MODE_H
#define KYODBC_TOOLS_SHELL_LINE_MODE_H

#include "tools/shell/row_set.h"

namespace shell {

// Pages of `rows` rows. Runs until the user quits or the input ends. Throws WordsError and ToolError when the
// table cannot be opened; and ToolError at the end of an input that no one types, when a line of it failed.
void RunLineMode(const Table& table, const Words& words, LONG rows);

}  // namespace shell

#endif
