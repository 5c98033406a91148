// A server that takes connections on loopback and never says a word.
#ifndef KYODBC_TESTS_SUPPORT_SILENT_LISTENER_H
#define KYODBC_TESTS_SUPPORT_SILENT_LISTENER_H

#include <string>

namespace support {

// The system completes the connections; nobody ever reads from them.
class SilentListener {
 public:
  SilentListener();  // throws std::runtime_error
  ~SilentListener();
  SilentListener(const SilentListener&) = delete;
  SilentListener& operator=(const SilentListener&) = delete;

  std::string Port() const;

 private:
  int m_socket;
};

}  // namespace support

#endif
