// One call of the driver manager: it is counted, what was ordered is done to it, and it is handed on.
#ifndef KYODBC_FAULTDRIVER_CALL_H
#define KYODBC_FAULTDRIVER_CALL_H

#include <optional>
#include <string>

#include "faultdriver/handle.h"
#include "faultdriver/orders.h"
#include "faultdriver/real_driver.h"

namespace kyfault {

class Call {
 public:
  // `symbol` is the function called, in its plain or its wide form.
  Call(const char* symbol, SQLHANDLE handle, SQLSMALLINT kind);

  // The call is not handed on: this is the answer.
  const std::optional<SQLRETURN>& Answer() const { return m_answer; }

  // Hands on the call of `function` of the real driver, or of a function of its own that stands for it.
  template <class Function>
  SQLRETURN Run(Function function) {
    return m_answer ? *m_answer : Finish(function());
  }
  // The same for a function of the real driver under the symbol, whose first argument is the handle.
  template <class Function, class... Rest>
  SQLRETURN HandOn(Rest... rest) {
    if (m_answer) return *m_answer;
    auto* function = Real<Function>();
    return function == nullptr ? Missing() : Finish(function(m_handle->real, rest...));
  }

  template <class Function>
  Function* Real() const {
    return m_handle->driver == nullptr ? nullptr : m_handle->driver->Find<Function>(m_symbol);
  }
  Handle* Target() const { return m_handle; }
  const Order& Due() const { return m_order; }
  SQLRETURN Missing();  // the real driver has no such function
  SQLRETURN Fail(const std::string& state, const std::string& message);

 private:
  SQLRETURN Finish(SQLRETURN code);
  void Decide();
  bool StillExecuting();
  SQLRETURN WithRecords(SQLRETURN code, const std::string& message);
  SQLRETURN Lose();

  const char* m_symbol;
  std::string m_function;  // without the letter of the wide form
  Handle* m_handle;
  Order m_order;
  std::optional<SQLRETURN> m_answer;
};

// The connection is lost from now on; what it had not committed is undone, as a server does.
void LoseConnection(Handle* connection);

// The name of a function's plain form.
std::string PlainName(const char* symbol);

}  // namespace kyfault

#endif
