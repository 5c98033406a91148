#include "tests/processes/worker_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <thread>

namespace processes {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kPause{5};

}  // namespace

WorkerProcess::WorkerProcess(const std::filesystem::path& output, const std::vector<std::string>& arguments)
    : m_output(output) {
  int input[2];
  if (pipe2(input, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  const int file = open(output.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0600);
  if (file < 0) throw std::runtime_error("cannot write " + output.string());
  std::string program = KYODBC_WORKER_FILE;
  std::vector<std::string> texts = arguments;
  std::vector<char*> pointers = {program.data()};
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  m_process = fork();
  if (m_process < 0) throw std::runtime_error("no process");
  if (m_process == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    dup2(input[0], STDIN_FILENO);
    dup2(file, STDOUT_FILENO);
    execv(program.c_str(), pointers.data());
    _exit(127);
  }
  close(file);
  close(input[0]);
  m_input = input[1];
}

WorkerProcess::~WorkerProcess() {
  if (!HasEnded()) Kill();
  close(m_input);
}

void WorkerProcess::Go() {
  if (write(m_input, "go\n", 3) != 3) throw std::runtime_error("the worker does not listen");
}

void WorkerProcess::Kill() {
  kill(m_process, SIGKILL);
  waitpid(m_process, &m_status, 0);
  m_ended = true;
}

bool WorkerProcess::HasEnded() {
  if (!m_ended) m_ended = waitpid(m_process, &m_status, WNOHANG) == m_process;
  return m_ended;
}

bool WorkerProcess::EndsWell(std::chrono::seconds patience) {
  const auto end = Clock::now() + patience;
  while (!HasEnded() && Clock::now() < end) std::this_thread::sleep_for(kPause);
  return HasEnded() && WIFEXITED(m_status) && WEXITSTATUS(m_status) == 0;
}

std::vector<std::string> WorkerProcess::Lines() const {
  std::ifstream file(m_output);
  std::vector<std::string> lines;
  std::string line;
  while (std::getline(file, line) && !file.eof()) lines.push_back(line);
  return lines;
}

bool WorkerProcess::HasWritten(std::size_t lines, std::chrono::seconds patience) {
  const auto end = Clock::now() + patience;
  while (Lines().size() < lines && !HasEnded()) {
    if (Clock::now() >= end) return false;
    std::this_thread::sleep_for(kPause);
  }
  return true;
}

}  // namespace processes
