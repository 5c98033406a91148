#include "tools/shell/restore.h"

#include <signal.h>
#include <sys/mman.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>

namespace shell {
namespace {

constexpr int kSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGABRT};

// What the handler needs, in memory that it may read.
termios the_state{};
bool is_terminal = false;
std::array<char, 256> the_farewell{};
std::size_t the_length = 0;

// Only calls that are allowed in a handler. The signal then ends the program as if it had never been taken.
void RestoreAndEnd(int signal) {
  if (is_terminal) {
    const ssize_t written = write(STDOUT_FILENO, the_farewell.data(), the_length);
    static_cast<void>(written);
    tcsetattr(STDIN_FILENO, TCSANOW, &the_state);
  }
  raise(signal);
}

}  // namespace

RestoreOnSignals::RestoreOnSignals(const std::string& farewell) {
  is_terminal = tcgetattr(STDIN_FILENO, &the_state) == 0;
  SetFarewell(farewell);
  Take();
}

void RestoreOnSignals::SetFarewell(const std::string& farewell) {
  if (farewell.size() > the_farewell.size()) return;
  std::memcpy(the_farewell.data(), farewell.data(), farewell.size());
  the_length = farewell.size();
}

void RestoreOnSignals::Take() {
  struct sigaction action {};
  action.sa_handler = RestoreAndEnd;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int signal : kSignals) sigaction(signal, &action, nullptr);
}

RestoreOnSignals::~RestoreOnSignals() {
  for (const int signal : kSignals) ::signal(signal, SIG_DFL);
}

HeldErrors::HeldErrors() {
  if (isatty(STDERR_FILENO) == 0) return;
  const int memory = memfd_create("errors", MFD_CLOEXEC);
  if (memory < 0) return;
  std::fflush(stderr);
  m_errors = dup(STDERR_FILENO);
  dup2(memory, STDERR_FILENO);
  close(memory);
}

HeldErrors::~HeldErrors() {
  if (m_errors < 0) return;
  std::fflush(stderr);
  const int memory = dup(STDERR_FILENO);
  dup2(m_errors, STDERR_FILENO);
  close(m_errors);
  lseek(memory, 0, SEEK_SET);
  std::array<char, 4096> bytes{};
  ssize_t count = 0;
  while ((count = read(memory, bytes.data(), bytes.size())) > 0) {
    std::fwrite(bytes.data(), 1, static_cast<std::size_t>(count), stderr);
  }
  close(memory);
}

}  // namespace shell
