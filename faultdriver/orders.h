// What the driver was told to do to which call, and how many calls there were. One for all connections.
#ifndef KYODBC_FAULTDRIVER_ORDERS_H
#define KYODBC_FAULTDRIVER_ORDERS_H

#include <sqltypes.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace kyfault {

enum class Action { kNone, kError, kLost, kExecuting, kInfo, kNoData, kCut, kLengthen, kDelay };

inline constexpr int kEndless = -1;

struct Order {
  std::string function;      // empty: any
  std::uint64_t number = 1;  // of the matching calls from the order on
  Action action = Action::kNone;
  std::string state;
  SQLINTEGER native = 0;
  int records = 1;      // diagnostic records of an error or an information
  int amount = 0;       // of answers "still executing", bytes, milliseconds
  bool after = false;   // the call is made first
  bool always = false;  // this call and all later ones
};

// Nothing for a text that is no order.
std::optional<Order> ParseOrder(const std::string& text);

class Orders {
 public:
  void Add(const Order& order);
  void Forget();
  // Counts a call and tells what to do to it.
  Order Take(const std::string& function);

  int Happened() const;
  const std::string& Last() const { return m_last; }  // the function of the last order carried out
  std::uint64_t Calls(const char* function) const;    // null: all
  void ResetCounts();

 private:
  mutable std::mutex m_mutex;
  std::vector<Order> m_orders;
  std::map<std::string, std::uint64_t> m_calls;
  std::uint64_t m_all_calls = 0;
  int m_happened = 0;
  std::string m_last;
};

Orders& TheOrders();

}  // namespace kyfault

#endif
