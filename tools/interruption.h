// Ending in order when Ctrl-C is pressed or the program is asked to end.
#ifndef KYODBC_TOOLS_INTERRUPTION_H
#define KYODBC_TOOLS_INTERRUPTION_H

#include <csignal>

// As long as one lives, the first SIGINT or SIGTERM is only remembered; a second one ends the program at
// once.
class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  static bool Came();
  // Returns when standard input can be read or a signal came, whichever is first.
  static void AwaitInput();
  // To be called wherever the work can end without damage: throws ToolError with the signal's exit code when
  // a signal came.
  static void Check();

 private:
  struct sigaction m_interrupt = {};  // what was done before
  struct sigaction m_terminate = {};
};

#endif
