// Draws the browser.
#ifndef KYODBC_TOOLS_SHELL_SCREEN_H
#define KYODBC_TOOLS_SHELL_SCREEN_H

#include "tools/shell/browser.h"
#include "tools/shell/terminal.h"

namespace shell {

void Draw(const Browser& browser, Terminal& terminal);

}  // namespace shell

#endif
