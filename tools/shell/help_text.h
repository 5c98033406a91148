// The help screen of the browser.
#ifndef KYODBC_TOOLS_SHELL_HELP_TEXT_H
#define KYODBC_TOOLS_SHELL_HELP_TEXT_H

#include <cstddef>
#include <string>
#include <vector>

namespace shell {

// In lines of at most `width` columns of the terminal.
std::vector<std::string> HelpLines(std::size_t width);

}  // namespace shell

#endif
