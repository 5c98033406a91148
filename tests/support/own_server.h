// Servers for tests that break them: started for this process alone, and ended with it whatever ends it.
#ifndef KYODBC_TESTS_SUPPORT_OWN_SERVER_H
#define KYODBC_TESTS_SUPPORT_OWN_SERVER_H

#include <filesystem>
#include <string>

namespace support {

// What the scripts beside this file start. Practices made while it lives are on it: KYODBC_TEST_SERVERS names
// its folder. All operations throw std::runtime_error when they fail.
class OwnProcesses {
 public:
  OwnProcesses(const OwnProcesses&) = delete;
  OwnProcesses& operator=(const OwnProcesses&) = delete;

  const std::filesystem::path& Folder() const { return m_folder; }  // gone when the processes are
  int Port(const std::string& name) const;                          // of FOLDER/name.port
  std::string Host(const std::string& name) const;                  // of FOLDER/name.host

 protected:
  OwnProcesses(const std::string& script, const std::string& what);
  ~OwnProcesses();  // returns when the processes are gone
  void Run(const std::string& command, const std::string& more = {}) const;

 private:
  void Watch();

  std::filesystem::path m_script;
  std::filesystem::path m_folder;
  int m_life_line = -1;  // closed when this process ends
  int m_ended = -1;      // at its end when the processes are gone
};

class OwnServer : public OwnProcesses {
 public:
  explicit OwnServer(const std::string& name);  // "postgresql" or "mariadb"

  int Port() const { return OwnProcesses::Port(m_name); }
  void Halt();    // in order: clients are told
  void Kill();    // at once: clients find out
  void Resume();  // on the same data and port; harmless while it runs

 private:
  std::string m_name;
  bool m_runs = true;
};

// Several servers that hold the same rows; its nodes are named by tests/support/cluster.
class OwnCluster : public OwnProcesses {
 public:
  explicit OwnCluster(const std::string& kind);  // "galera" or "standby"

  void Kill(const std::string& node) { Run("halt", node + " kill"); }
  void Promote(const std::string& node) { Run("promote", node); }
  // Blanks separate several nodes.
  void Resume(const std::string& nodes) { Run("resume", nodes); }
  void Cut(const std::string& nodes) { Run("cut", nodes); }
  void Mend(const std::string& nodes) { Run("mend", nodes); }
  void Await(const std::string& nodes) { Run("await", nodes); }
};

}  // namespace support

#endif
