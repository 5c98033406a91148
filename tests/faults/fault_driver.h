// The fault driver of this build in front of the driver under test, and a data source that uses it.
#ifndef KYODBC_TESTS_FAULTS_FAULT_DRIVER_H
#define KYODBC_TESTS_FAULTS_FAULT_DRIVER_H

#include <cstdint>
#include <memory>
#include <string>

#include "faultdriver/kyfault.h"
#include "tests/support/broken_source.h"
#include "tests/support/practice.h"

namespace faults {

// Its control functions.
struct FaultDriver {
  decltype(&KyFaultOrder) order_text;
  decltype(&KyFaultForget) Forget;
  decltype(&KyFaultHappened) Happened;
  decltype(&KyFaultLast) Last;
  decltype(&KyFaultCalls) Calls;
  decltype(&KyFaultStatements) Statements;
  decltype(&KyFaultRequests) Requests;
  decltype(&KyFaultResetCounts) ResetCounts;
  decltype(&KyFaultHandles) Handles;
  decltype(&KyFaultLoseConnections) LoseConnections;

  // Throws for what is no order.
  void Order(const std::string& text) const;
};

// That for the kind of driver under test, plain or wide. Loaded at the first call.
const FaultDriver& TheFaultDriver();
std::string FaultDriverFile();

// A data source like that of the practice, through the fault driver, with further options.
class FaultSource {
 public:
  explicit FaultSource(const support::Practice& practice, const support::Options& more = {});
  const std::string& Dsn() const { return m_source.Dsn(); }
  tagDBCONNECT Parameters() const;
  std::string ConnectionString() const;  // for support::RawOdbc

 private:
  const support::Practice& m_practice;
  support::BrokenSource m_source;
};

}  // namespace faults

#endif
