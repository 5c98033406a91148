// The terminal as it was, whatever ends the program.
#ifndef KYODBC_TOOLS_SHELL_RESTORE_H
#define KYODBC_TOOLS_SHELL_RESTORE_H

#include <string>

namespace shell {

// From its making on, a signal that ends the program first brings back how the terminal was then, and writes
// `farewell` to it. One at a time.
class RestoreOnSignals {
 public:
  explicit RestoreOnSignals(const std::string& farewell = {});
  ~RestoreOnSignals();
  RestoreOnSignals(const RestoreOnSignals&) = delete;
  RestoreOnSignals& operator=(const RestoreOnSignals&) = delete;

  // Once it is known. Longer ones than a terminal ever needs are not taken.
  void SetFarewell(const std::string& farewell);
  // Takes the signals again after somebody else did.
  void Take();
};

// While it lives, what is written to the standard error goes to memory when that is a terminal, where the log
// would spoil the picture; at its end all of it is written.
class HeldErrors {
 public:
  HeldErrors();
  ~HeldErrors();
  HeldErrors(const HeldErrors&) = delete;
  HeldErrors& operator=(const HeldErrors&) = delete;

 private:
  int m_errors = -1;  // where they went before; -1: they still do
};

}  // namespace shell

#endif
