#include "tools/interruption.h"

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

bool Interruption::Came() { return came != 0; }

void Interruption::Check() {
  if (came == SIGINT) throw ToolError(kInterrupted, "interrupted");
  if (came != 0) throw ToolError(kTerminated, "asked to end");
}
