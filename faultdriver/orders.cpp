#include "faultdriver/orders.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <sstream>

#include "faultdriver/functions.h"

namespace kyfault {
namespace {

enum class Argument { kNone, kStateAndNative, kAmount, kTimes };

struct Verb {
  const char* word;
  Action action;
  Argument argument;
  const char* state;  // unless the order names one
};

constexpr Verb kVerbs[] = {
    {"error",     Action::kError,     Argument::kStateAndNative, "HY000"},
    {"lost",      Action::kLost,      Argument::kNone,           "08S01"},
    {"executing", Action::kExecuting, Argument::kTimes,          ""     },
    {"info",      Action::kInfo,      Argument::kStateAndNative, "01000"},
    {"nodata",    Action::kNoData,    Argument::kNone,           ""     },
    {"cut",       Action::kCut,       Argument::kAmount,         "01004"},
    {"lengthen",  Action::kLengthen,  Argument::kAmount,         "01004"},
    {"delay",     Action::kDelay,     Argument::kAmount,         ""     },
};

template <class Number>
bool Parse(const std::string& word, Number* number) {
  const char* end = word.data() + word.size();
  const auto parsed = std::from_chars(word.data(), end, *number);
  return !word.empty() && parsed.ec == std::errc() && parsed.ptr == end;
}

class Words {
 public:
  explicit Words(const std::string& text) : m_stream(text) { Next(); }
  const std::string& Word() const { return m_word; }
  bool AtEnd() const { return m_word.empty(); }
  void Next() {
    m_word.clear();
    m_stream >> m_word;
  }
  template <class Number>
  bool TakeNumber(Number* number) {
    if (!Parse(m_word, number)) return false;
    Next();
    return true;
  }
  bool Take(const char* word) {
    if (m_word != word) return false;
    Next();
    return true;
  }

 private:
  std::istringstream m_stream;
  std::string m_word;
};

// A SQLSTATE has five capitals or digits, with a digit among them; the words of the language have none.
bool IsState(const std::string& word) {
  const auto fits = [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z'); };
  return word.size() == 5 && std::all_of(word.begin(), word.end(), fits);
}

bool TakeArgument(Argument argument, Words& words, Order* order) {
  switch (argument) {
    case Argument::kNone:
      return true;
    case Argument::kAmount:
      return words.TakeNumber(&order->amount) && order->amount >= 0;
    case Argument::kTimes:
      order->amount = kEndless;
      return words.Take("endless") || (words.TakeNumber(&order->amount) && order->amount > 0);
    case Argument::kStateAndNative:
      if (!IsState(words.Word())) return true;
      order->state = words.Word();
      words.Next();
      words.TakeNumber(&order->native);
      return true;
  }
  return false;
}

bool TakeVerb(Words& words, Order* order) {
  for (const Verb& verb : kVerbs) {
    if (!words.Take(verb.word)) continue;
    order->action = verb.action;
    order->state = verb.state;
    return TakeArgument(verb.argument, words, order);
  }
  return false;
}

bool TakeModifier(Words& words, Order* order) {
  if (words.Take("after")) return order->after = true;
  if (words.Take("always")) return order->always = true;
  return words.Take("records") && words.TakeNumber(&order->records) && order->records >= 0;
}

// An order that cannot be carried out on this function waits for one on which it can.
bool CanBeDone(Action action, const std::string& function) {
  return action != Action::kExecuting ||
         std::find(std::begin(kBackground), std::end(kBackground), function) != std::end(kBackground);
}

}  // namespace

std::optional<Order> ParseOrder(const std::string& text) {
  Words words(text);
  Order order;
  if (!words.Take("call")) {
    if (!words.Word().starts_with("SQL")) return std::nullopt;
    order.function = words.Word();
    words.Next();
  }
  if (!words.TakeNumber(&order.number) || order.number == 0 || !TakeVerb(words, &order)) return std::nullopt;
  while (!words.AtEnd()) {
    if (!TakeModifier(words, &order)) return std::nullopt;
  }
  return order;
}

void Orders::Add(const Order& order) {
  const std::lock_guard lock(m_mutex);
  m_orders.push_back(order);
}

void Orders::Forget() {
  const std::lock_guard lock(m_mutex);
  m_orders.clear();
  m_happened = 0;
}

Order Orders::Take(const std::string& function) {
  const std::lock_guard lock(m_mutex);
  ++m_all_calls;
  ++m_calls[function];
  Order due;
  for (Order& order : m_orders) {
    if (!order.function.empty() && order.function != function) continue;
    if (order.number > 0) --order.number;
    // 0 from now on; an order that was carried out has lost its action.
    if (order.number > 0 || order.action == Action::kNone || due.action != Action::kNone) continue;
    if (!CanBeDone(order.action, function)) continue;
    due = order;
    ++m_happened;
    m_last = function;
    if (!order.always) order.action = Action::kNone;
  }
  return due;
}

int Orders::Happened() const {
  const std::lock_guard lock(m_mutex);
  return m_happened;
}

std::uint64_t Orders::Calls(const char* function) const {
  const std::lock_guard lock(m_mutex);
  if (function == nullptr) return m_all_calls;
  const auto found = m_calls.find(function);
  return found == m_calls.end() ? 0 : found->second;
}

void Orders::ResetCounts() {
  const std::lock_guard lock(m_mutex);
  m_calls.clear();
  m_all_calls = 0;
}

Orders& TheOrders() {
  static Orders orders;
  return orders;
}

}  // namespace kyfault
