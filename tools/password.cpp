#include "tools/password.h"

#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "tools/tool_error.h"

namespace {

std::string FirstLine(const std::string& name) {
  std::ifstream file(name);
  std::string line;
  if (!std::getline(file, line)) throw ToolError(kFailed, "cannot read a password from " + name);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

// Typed without being shown.
std::string Typed() {
  termios shown{};
  tcgetattr(STDIN_FILENO, &shown);
  termios hidden = shown;
  hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
  std::fputs("Password: ", stderr);
  std::string line;
  std::getline(std::cin, line);
  tcsetattr(STDIN_FILENO, TCSAFLUSH, &shown);
  std::fputc('\n', stderr);
  return line;
}

}  // namespace

std::string Password(const std::string& file, bool ask) {
  if (!file.empty()) return FirstLine(file);
  const char* given = std::getenv("KYODBC_PASSWORD");
  if (given != nullptr) return given;
  return ask && isatty(STDIN_FILENO) != 0 ? Typed() : std::string();
}
