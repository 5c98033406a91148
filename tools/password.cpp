#include "tools/password.h"

#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "tools/interruption.h"
#include "tools/tool_error.h"

namespace {

constexpr const char* kPasswordVariable = "KYODBC_PASSWORD";

std::string FirstLine(const std::string& name) {
  std::ifstream file(name);
  std::string line;
  if (!std::getline(file, line)) throw ToolError(kFailed, "cannot read a password from " + name);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

// Typed without being shown. Ctrl-C ends the program with the terminal as it was.
std::string Typed(const std::string& whose) {
  const Interruption interruption;
  termios shown{};
  tcgetattr(STDIN_FILENO, &shown);
  termios hidden = shown;
  hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
  std::fputs(("Password" + whose + ": ").c_str(), stderr);
  std::string line;
  Interruption::AwaitInput();
  if (!Interruption::Came()) std::getline(std::cin, line);
  tcsetattr(STDIN_FILENO, TCSAFLUSH, &shown);
  std::fputc('\n', stderr);
  Interruption::Check();
  return line;
}

}  // namespace

std::string Password(const std::string& file, bool ask, const PasswordOf& whose) {
  if (!file.empty()) return FirstLine(file);
  for (const std::string& name : {whose.variable, std::string(kPasswordVariable)}) {
    const char* given = name.empty() ? nullptr : std::getenv(name.c_str());
    if (given != nullptr) return given;
  }
  return ask && isatty(STDIN_FILENO) != 0 ? Typed(whose.words) : std::string();
}
