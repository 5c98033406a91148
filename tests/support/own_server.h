// A server for tests that break it: started for this process alone, and ended with it whatever ends it.
#ifndef KYODBC_TESTS_SUPPORT_OWN_SERVER_H
#define KYODBC_TESTS_SUPPORT_OWN_SERVER_H

#include <filesystem>
#include <string>

namespace support {

// Practices made while it lives are on it: KYODBC_TEST_SERVERS names its folder.
class OwnServer {
 public:
  // `name` is "postgresql" or "mariadb". Throws std::runtime_error when it does not start.
  explicit OwnServer(const std::string& name);
  ~OwnServer();  // returns when the server is gone
  OwnServer(const OwnServer&) = delete;
  OwnServer& operator=(const OwnServer&) = delete;

  const std::filesystem::path& Folder() const { return m_folder; }  // gone when the server is
  int Port() const;
  // These throw std::runtime_error when they fail.
  void Halt();    // in order: clients are told
  void Kill();    // at once: clients find out
  void Resume();  // on the same data and port; harmless while it runs

 private:
  void Watch();
  void Run(const std::string& command, const std::string& more = {}) const;

  std::string m_name;
  std::filesystem::path m_folder;
  int m_life_line = -1;  // closed when this process ends
  int m_ended = -1;      // at its end when the server is gone
  bool m_runs = false;
};

}  // namespace support

#endif
