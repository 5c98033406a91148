// A real driver, loaded from its file and kept to the end of the process.
#ifndef KYODBC_FAULTDRIVER_REAL_DRIVER_H
#define KYODBC_FAULTDRIVER_REAL_DRIVER_H

#include <map>
#include <mutex>
#include <string>

namespace kyfault {

class RealDriver {
 public:
  // Null when the file cannot be loaded; `reason` then says why.
  static RealDriver* Load(const std::string& file, std::string* reason);

  // Null when the driver has no such function.
  template <class Function>
  Function* Find(const char* symbol) {
    return reinterpret_cast<Function*>(Address(symbol));
  }

 private:
  explicit RealDriver(void* library) : m_library(library) {}
  void* Address(const char* symbol);

  void* m_library;
  std::mutex m_mutex;
  std::map<std::string, void*> m_addresses;
};

}  // namespace kyfault

#endif
