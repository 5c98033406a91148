#include "tests/faults/fault_driver.h"

#include <dlfcn.h>

#include <filesystem>
#include <stdexcept>

#include "tests/support/records.h"

namespace faults {
namespace {

template <class Function>
void Find(void* library, const char* name, Function** function) {
  *function = reinterpret_cast<Function*>(dlsym(library, name));
  if (*function == nullptr) throw std::runtime_error(std::string("the fault driver has no ") + name);
}

void* Load(const std::string& file) {
  void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_NODELETE);
  if (library == nullptr) throw std::runtime_error(dlerror());
  return library;
}

bool IsWide() {
  void* real = Load(support::CurrentKind().DriverFile());
  const bool wide = dlsym(real, "SQLDriverConnectW") != nullptr;
  dlclose(real);
  return wide;
}

FaultDriver LoadFaultDriver() {
  void* library = Load(FaultDriverFile());
  FaultDriver driver{};
  Find(library, "KyFaultOrder", &driver.order_text);
  Find(library, "KyFaultForget", &driver.Forget);
  Find(library, "KyFaultHappened", &driver.Happened);
  Find(library, "KyFaultLast", &driver.Last);
  Find(library, "KyFaultCalls", &driver.Calls);
  Find(library, "KyFaultStatements", &driver.Statements);
  Find(library, "KyFaultRequests", &driver.Requests);
  Find(library, "KyFaultResetCounts", &driver.ResetCounts);
  Find(library, "KyFaultHandles", &driver.Handles);
  Find(library, "KyFaultLoseConnections", &driver.LoseConnections);
  return driver;
}

support::Options WithDriver(support::Options more) {
  more.emplace_back("KyFaultDriver", support::CurrentKind().DriverFile());
  return more;
}

}  // namespace

void FaultDriver::Order(const std::string& text) const {
  if (order_text(text.c_str()) == 0) throw std::runtime_error("not an order: " + text);
}

const FaultDriver& TheFaultDriver() {
  static const FaultDriver driver = LoadFaultDriver();
  return driver;
}

std::string FaultDriverFile() {
  static const bool wide = IsWide();
  return std::filesystem::path(KYODBC_BINARY_DIR) / "faultdriver" /
         (wide ? "libkyfaultw.so" : "libkyfault.so");
}

FaultSource::FaultSource(const support::Practice& practice, const support::Options& more)
    : m_practice(practice), m_source(practice, WithDriver(more), FaultDriverFile()) {}

tagDBCONNECT FaultSource::Parameters() const {
  tagDBCONNECT parameters = m_practice.Parameters();
  support::SetText(parameters.szDSN, Dsn());
  return parameters;
}

std::string FaultSource::ConnectionString() const {
  const support::DatabaseKind& kind = support::CurrentKind();
  std::string text = "DSN=" + Dsn();
  if (!kind.User().empty()) text += ";UID=" + kind.User() + ";PWD=" + kind.Password();
  return text;
}

}  // namespace faults
