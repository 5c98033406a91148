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

const fs::path kScripts = fs::path(KYODBC_SOURCE_DIR) / "tests" / "support";

fs::path NewFolder() {
  const fs::path memory = "/dev/shm";
  std::string pattern =
      (fs::is_directory(memory) ? memory : fs::temp_directory_path()) / "kyodbc-own-server-XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make " + pattern);
  return pattern;
}

}  // namespace

OwnProcesses::OwnProcesses(const std::string& script, const std::string& what)
    : m_script(kScripts / script), m_folder(NewFolder()) {
  Watch();
  Run("start", what);
  setenv("KYODBC_TEST_SERVERS", m_folder.c_str(), 1);
}

OwnProcesses::~OwnProcesses() {
  unsetenv("KYODBC_TEST_SERVERS");
  close(m_life_line);
  char none = 0;
  while (read(m_ended, &none, 1) > 0) {
  }
  close(m_ended);
}

// A process of its own takes the servers down when the last holder of the life line is gone. It is no child,
// so that whoever kills this process with all its children leaves it alive.
void OwnProcesses::Watch() {
  int life_line[2];
  int ended[2];
  if (pipe2(life_line, O_CLOEXEC) != 0 || pipe2(ended, O_CLOEXEC) != 0) {
    throw std::runtime_error("no pipe");
  }
  const std::string script = m_script;
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

void OwnProcesses::Run(const std::string& command, const std::string& more) const {
  const std::string line = "'" + m_script.string() + "' " + command + " '" + m_folder.string() + "' " + more;
  if (std::system(line.c_str()) != 0) throw std::runtime_error("failed: " + line);
}

int OwnProcesses::Port(const std::string& name) const {
  std::ifstream file(m_folder / (name + ".port"));
  int port = 0;
  if (!(file >> port)) throw std::runtime_error("no port of " + name);
  return port;
}

std::string OwnProcesses::Host(const std::string& name) const {
  std::ifstream file(m_folder / (name + ".host"));
  std::string host;
  if (!(file >> host)) throw std::runtime_error("no host of " + name);
  return host;
}

OwnServer::OwnServer(const std::string& name) : OwnProcesses("servers", name), m_name(name) {}

OwnCluster::OwnCluster(const std::string& kind) : OwnProcesses("cluster", kind) {}

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
