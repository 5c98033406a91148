// A running worker program.
#ifndef KYODBC_TESTS_PROCESSES_WORKER_PROCESS_H
#define KYODBC_TESTS_PROCESSES_WORKER_PROCESS_H

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace processes {

class WorkerProcess {
 public:
  // Starts the program with these arguments; it writes its lines to `output` and ends with this process.
  WorkerProcess(const std::filesystem::path& output, const std::vector<std::string>& arguments);
  ~WorkerProcess();  // kills it if it still runs
  WorkerProcess(const WorkerProcess&) = delete;
  WorkerProcess& operator=(const WorkerProcess&) = delete;

  void Go();    // sends it a line
  void Kill();  // as a crash or an impatient user does
  // True when it ends by itself in time, with exit status 0.
  bool EndsWell(std::chrono::seconds patience);
  // Its whole lines so far.
  std::vector<std::string> Lines() const;
  // Waits until it has written this many lines, or has ended. False when the patience is over.
  bool HasWritten(std::size_t lines, std::chrono::seconds patience);

 private:
  bool HasEnded();

  std::filesystem::path m_output;
  pid_t m_process = -1;
  int m_input = -1;
  bool m_ended = false;
  int m_status = -1;
};

}  // namespace processes

#endif
