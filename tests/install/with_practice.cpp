// Runs a command on a fresh practice: "SOURCE [USER PASSWORD]" is put behind its arguments, and the
// environment finds the data source. Ends with the command's status.
// Usage: with_practice COMMAND [ARGUMENT...]
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "tests/support/practice.h"

namespace {

int RunToItsEnd(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    execv(arguments[0], arguments.data());
    _exit(127);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child) return 126;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 125;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const support::Practice practice;
    std::vector<std::string> words(argv + 1, argv + argc);
    words.push_back(practice.Dsn());
    const support::DatabaseKind& kind = support::CurrentKind();
    if (!kind.User().empty()) words.insert(words.end(), {kind.User(), kind.Password()});
    return RunToItsEnd(words);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "with_practice: %s\n", error.what());
    return 124;
  }
}
