#include "tools/process.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

#include "tools/interruption.h"
#include "tools/tool_error.h"

namespace {

constexpr std::size_t kBlock = std::size_t{64} * 1024;
constexpr std::size_t kMostSaid = 2000;

class Pipe {
 public:
  Pipe() {
    if (pipe2(m_ends.data(), O_CLOEXEC) != 0) throw ToolError(kFailed, "cannot make a pipe");
  }
  ~Pipe() {
    for (const int end : m_ends) {
      if (end >= 0) close(end);
    }
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  int Reading() const { return m_ends[0]; }
  int Writing() const { return m_ends[1]; }
  int TakeReading() { return std::exchange(m_ends[0], -1); }
  int TakeWriting() { return std::exchange(m_ends[1], -1); }

 private:
  std::array<int, 2> m_ends{-1, -1};
};

std::vector<std::string> Joined(const std::map<std::string, std::string>& more) {
  std::vector<std::string> all;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string text = *entry;
    if (!more.contains(text.substr(0, text.find('=')))) all.push_back(text);
  }
  for (const auto& [name, value] : more) all.push_back(fmt::format("{}={}", name, value));
  return all;
}

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

int Spawn(pid_t* pid, const std::vector<std::string>& command, const std::vector<std::string>& environment,
          const Pipe& input, const Pipe& output, int errors) {
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_adddup2(&files, input.Reading(), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&files, output.Writing(), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&files, errors, STDERR_FILENO);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
  posix_spawnattr_setpgroup(&attributes, 0);
  const int code = posix_spawnp(pid, command.front().c_str(), &files, &attributes, Pointers(command).data(),
                                Pointers(environment).data());
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  return code;
}

}  // namespace

Process::Process(const std::vector<std::string>& command,
                 const std::map<std::string, std::string>& environment)
    : m_name(command.front()), m_errors(std::tmpfile()) {
  std::signal(SIGPIPE, SIG_IGN);  // a program that has ended is noticed at the next writing
  if (m_errors == nullptr) throw ToolError(kFailed, "cannot make a temporary file");
  Pipe input;
  Pipe output;
  const int code = Spawn(&m_pid, command, Joined(environment), input, output, fileno(m_errors));
  if (code != 0) {
    m_pid = -1;
    std::fclose(m_errors);
    throw ToolError(
        kFailed, fmt::format("cannot run {}: {}; it belongs to the programs of the database system", m_name,
                             std::strerror(code)));
  }
  m_input = input.TakeWriting();
  m_output = output.TakeReading();
}

Process::~Process() {
  CloseInput();
  close(m_output);
  if (m_pid > 0) {
    kill(m_pid, SIGTERM);
    Wait();
  }
  std::fclose(m_errors);
}

void Process::Write(std::string_view text) {
  while (!text.empty()) {
    Interruption::Check();
    const ssize_t written = write(m_input, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      Fail();
    }
  }
}

void Process::CloseInput() {
  if (m_input >= 0) close(m_input);
  m_input = -1;
}

bool Process::ReadLine(std::string& line) {
  while (true) {
    const std::size_t end = m_buffer.find('\n', m_read);
    if (end != std::string::npos) {
      line.assign(m_buffer, m_read, end - m_read);
      m_read = end + 1;
      return true;
    }
    m_buffer.erase(0, m_read);
    m_read = 0;
    Interruption::Check();
    std::array<char, kBlock> block{};
    const ssize_t got = read(m_output, block.data(), block.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) throw ToolError(kFailed, fmt::format("cannot read what {} writes", m_name));
    if (got == 0) {
      line = std::exchange(m_buffer, {});
      return !line.empty();
    }
    m_buffer.append(block.data(), static_cast<std::size_t>(got));
  }
}

int Process::Wait() {
  int status = 0;
  while (waitpid(m_pid, &status, 0) < 0 && errno == EINTR) {
  }
  m_pid = -1;
  return status;
}

std::string Process::Said() const {
  std::string said(kMostSaid, '\0');
  std::rewind(m_errors);
  said.resize(std::fread(said.data(), 1, said.size(), m_errors));
  while (!said.empty() && said.back() == '\n') said.pop_back();
  return said.empty() ? "it gives no reason" : said;
}

void Process::Fail() {
  CloseInput();
  if (m_pid > 0) Wait();
  throw ToolError(kFailed, fmt::format("{} failed: {}", m_name, Said()));
}

void Process::Finish() {
  CloseInput();
  if (Wait() != 0) Fail();
}
