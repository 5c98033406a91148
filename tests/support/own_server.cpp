#include "tests/support/own_server.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace support {
namespace {

namespace fs = std::filesystem;

const fs::path kScript = fs::path(KYODBC_SOURCE_DIR) / "tests" / "support" / "servers";

fs::path NewFolder() {
  const fs::path memory = "/dev/shm";
  std::string pattern =
      (fs::is_directory(memory) ? memory : fs::temp_directory_path()) / "kyodbc-own-server-XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make " + pattern);
  return pattern;
}

}  // namespace

OwnServer::OwnServer(const std::string& name) : m_name(name), m_folder(NewFolder()) {
  Watch();
  Run("start", name);
  m_runs = true;
  setenv("KYODBC_TEST_SERVERS", m_folder.c_str(), 1);
}

OwnServer::~OwnServer() {
  unsetenv("KYODBC_TEST_SERVERS");
  close(m_life_line);
  char none = 0;
  while (read(m_ended, &none, 1) > 0) {
  }
  close(m_ended);
}

// A process of its own takes the server down when the last holder of the life line is gone. It is no child,
// so that whoever kills this process with all its children leaves it alive.
void OwnServer::Watch() {
  int life_line[2];
  int ended[2];
  if (pipe2(life_line, O_CLOEXEC) != 0 || pipe2(ended, O_CLOEXEC) != 0) {
    throw std::runtime_error("no pipe");
  }
  const std::string script = kScript;
  const std::string folder = m_folder;
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) {
    if (setsid() < 0 || fork() != 0) _exit(0);
    close(life_line[1]);
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere, standard);
    char none = 0;
    while (read(life_line[0], &none, 1) > 0) {
    }
    fcntl(ended[1], F_SETFD, 0);  // the script holds it to its end
    execl(script.c_str(), script.c_str(), "stop", folder.c_str(), nullptr);
    _exit(1);
  }
  waitpid(child, nullptr, 0);
  close(life_line[0]);
  close(ended[1]);
  m_life_line = life_line[1];
  m_ended = ended[0];
}

void OwnServer::Run(const std::string& command, const std::string& more) const {
  const std::string line = "'" + kScript.string() + "' " + command + " '" + m_folder.string() + "' " + more;
  if (std::system(line.c_str()) != 0) throw std::runtime_error("failed: " + line);
}

int OwnServer::Port() const {
  std::ifstream file(m_folder / (m_name + ".port"));
  int port = 0;
  if (!(file >> port)) throw std::runtime_error("no port of " + m_name);
  return port;
}

void OwnServer::Halt() {
  Run("halt", m_name);
  m_runs = false;
}

void OwnServer::Kill() {
  Run("halt", m_name + " kill");
  m_runs = false;
}

void OwnServer::Resume() {
  if (m_runs) return;
  Run("resume", m_name);
  m_runs = true;
}

}  // namespace support
