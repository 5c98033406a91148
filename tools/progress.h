// A bar that shows how far a long job is.
#ifndef KYODBC_TOOLS_PROGRESS_H
#define KYODBC_TOOLS_PROGRESS_H

#include <cstdint>
#include <string>

// Draws to standard error while it lives, if that is a terminal, and wipes itself off at the end.
class Progress {
 public:
  Progress(std::string what, std::uint64_t total);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Reach(std::uint64_t done);
  void Step() { Reach(m_done + 1); }

 private:
  std::string m_what;
  std::uint64_t m_total;
  std::uint64_t m_done = 0;
  int m_percent = -1;
  bool m_visible;
};

#endif
