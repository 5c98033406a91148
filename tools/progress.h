// A bar that shows how far a long job is.
#ifndef KYODBC_TOOLS_PROGRESS_H
#define KYODBC_TOOLS_PROGRESS_H

#include <chrono>
#include <cstdint>
#include <string>

// Draws to standard error while it lives, if that is a terminal, and wipes itself off at the end. Each step
// is also where an interruption ends the job: Reach and Step throw ToolError then.
class Progress {
 public:
  Progress(std::string what, std::uint64_t total);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Reach(std::uint64_t done);
  void Step(std::uint64_t steps = 1) { Reach(m_done + steps); }
  // Another part of the same job; the bar goes on.
  void Rename(const std::string& what) { m_what = what; }

 private:
  using Clock = std::chrono::steady_clock;

  void Draw(int percent);
  std::string Estimate() const;

  std::string m_what;
  std::uint64_t m_total;
  std::uint64_t m_done = 0;
  int m_percent = -1;
  bool m_visible;
  Clock::time_point m_start = Clock::now();
  Clock::time_point m_drawn;
};

// A duration for people: "8 s", "3 min 20 s", "2 h 5 min".
std::string DurationText(std::chrono::seconds duration);

#endif
