#include "tools/interruption.h"

#include <sys/select.h>
#include <unistd.h>

#include <cerrno>

#include "tools/tool_error.h"

namespace {

volatile std::sig_atomic_t came = 0;

void Remember(int signal) { came = signal; }

// Without restarting of calls, so that waiting for an answer on the terminal ends too.
void Handle(int signal, struct sigaction* before) {
  struct sigaction action = {};
  action.sa_handler = Remember;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, before);
}

}  // namespace

Interruption::Interruption() {
  Handle(SIGINT, &m_interrupt);
  Handle(SIGTERM, &m_terminate);
}

Interruption::~Interruption() {
  sigaction(SIGINT, &m_interrupt, nullptr);
  sigaction(SIGTERM, &m_terminate, nullptr);
}

// A signal between a look at `came` and the waiting would be noticed only when something is typed: they are
// held back until the waiting has begun.
void Interruption::AwaitInput() {
  sigset_t held;
  sigset_t before;
  sigemptyset(&held);
  sigaddset(&held, SIGINT);
  sigaddset(&held, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &held, &before);
  while (came == 0) {
    fd_set input;
    FD_ZERO(&input);
    FD_SET(STDIN_FILENO, &input);
    if (pselect(STDIN_FILENO + 1, &input, nullptr, nullptr, nullptr, &before) >= 0 || errno != EINTR) break;
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

bool Interruption::Came() { return came != 0; }

void Interruption::Check() {
  if (came == SIGINT) throw ToolError(kInterrupted, "interrupted");
  if (came != 0) throw ToolError(kTerminated, "asked to end");
}
