#include "faultdriver/functions.h"
#include "faultdriver/hand_on.h"
#include "faultdriver/kyfault.h"

namespace {

template <std::size_t count>
std::uint64_t Sum(const char* const (&functions)[count]) {
  std::uint64_t calls = 0;
  for (const char* function : functions) calls += kyfault::TheOrders().Calls(function);
  return calls;
}

}  // namespace

KYFAULT_EXPORT int KyFaultOrder(const char* text) {
  const std::optional<kyfault::Order> order = kyfault::ParseOrder(text == nullptr ? "" : text);
  if (!order) return 0;
  kyfault::TheOrders().Add(*order);
  return 1;
}

KYFAULT_EXPORT void KyFaultForget(void) { kyfault::TheOrders().Forget(); }

KYFAULT_EXPORT int KyFaultHappened(void) { return kyfault::TheOrders().Happened(); }

KYFAULT_EXPORT const char* KyFaultLast(void) { return kyfault::TheOrders().Last().c_str(); }

KYFAULT_EXPORT std::uint64_t KyFaultCalls(const char* function) {
  return kyfault::TheOrders().Calls(function);
}

KYFAULT_EXPORT std::uint64_t KyFaultStatements(void) { return Sum(kyfault::kExecutions); }

KYFAULT_EXPORT std::uint64_t KyFaultRequests(void) {
  return KyFaultStatements() + Sum(kyfault::kOtherRequests);
}

KYFAULT_EXPORT void KyFaultResetCounts(void) { kyfault::TheOrders().ResetCounts(); }

KYFAULT_EXPORT int KyFaultHandles(int kind) { return kyfault::CountHandles(static_cast<SQLSMALLINT>(kind)); }

KYFAULT_EXPORT void KyFaultLoseConnections(void) {
  for (kyfault::Handle* connection : kyfault::Connections()) {
    if (connection->real != SQL_NULL_HANDLE) kyfault::LoseConnection(connection);
  }
}
