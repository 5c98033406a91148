// Passwords never stand on a command line, where every user of the machine can read them.
#ifndef KYODBC_TOOLS_PASSWORD_H
#define KYODBC_TOOLS_PASSWORD_H

#include <string>

// The first line of `file` when one is named, else KYODBC_PASSWORD of the environment, else what is typed
// when `ask` and there is a terminal; else empty. Throws ToolError when the file cannot be read.
std::string Password(const std::string& file, bool ask);

#endif
