#include "faultdriver/real_driver.h"

#include <dlfcn.h>

namespace kyfault {

RealDriver* RealDriver::Load(const std::string& file, std::string* reason) {
  // Drivers do not bear being unloaded while the process has what they made.
  static std::mutex mutex;
  // Never ends: the drivers in it would seem lost to the leak checker.
  static auto& loaded = *new std::map<std::string, RealDriver*>;
  const std::lock_guard lock(mutex);
  RealDriver*& driver = loaded[file];
  if (driver != nullptr) return driver;
  void* library = dlopen(file.c_str(), RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) {
    *reason = dlerror();
    return nullptr;
  }
  driver = new RealDriver(library);
  return driver;
}

void* RealDriver::Address(const char* symbol) {
  const std::lock_guard lock(m_mutex);
  const auto found = m_addresses.find(symbol);
  if (found != m_addresses.end()) return found->second;
  void* address = dlsym(m_library, symbol);
  m_addresses[symbol] = address;
  return address;
}

}  // namespace kyfault
