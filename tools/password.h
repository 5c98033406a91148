// Passwords never stand on a command line, where every user of the machine can read them.
#ifndef KYODBC_TOOLS_PASSWORD_H
#define KYODBC_TOOLS_PASSWORD_H

#include <string>

// Where a command needs two passwords: which one is meant. Empty where there is one only.
struct PasswordOf {
  std::string words;     // behind "Password" when it is asked for
  std::string variable;  // of the environment, looked at before KYODBC_PASSWORD
};

// The first line of `file` when one is named, else that of the environment, else what is typed when `ask` and
// there is a terminal; else empty. Throws ToolError when the file cannot be read.
std::string Password(const std::string& file, bool ask, const PasswordOf& whose = {});

#endif
