#include "faultdriver/call.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <string_view>
#include <thread>

#include "faultdriver/functions.h"

namespace kyfault {
namespace {

constexpr const char* kOrigin = "[KyFault]";

// Wide functions of one name with a plain function that ends in a "W" there are none.
bool IsLocal(const std::string& function) {
  return std::find(std::begin(kLocalFunctions), std::end(kLocalFunctions), function) !=
         std::end(kLocalFunctions);
}

// A transaction that a statement has begun has to be ended by one; one driver loses count otherwise.
void RollBackByStatement(Handle* connection) {
  auto* allocate = connection->driver->Find<decltype(SQLAllocHandle)>("SQLAllocHandle");
  auto* free = connection->driver->Find<decltype(SQLFreeHandle)>("SQLFreeHandle");
  auto* execute = connection->driver->Find<decltype(SQLExecDirect)>("SQLExecDirect");
  SQLHANDLE statement = SQL_NULL_HANDLE;
  if (allocate == nullptr || free == nullptr || execute == nullptr) return;
  if (!SQL_SUCCEEDED(allocate(SQL_HANDLE_STMT, connection->real, &statement))) return;
  SQLCHAR sql[] = "ROLLBACK";
  execute(statement, sql, SQL_NTS);
  free(SQL_HANDLE_STMT, statement);
}

void RollBack(Handle* connection) {
  auto* get = connection->driver->Find<decltype(SQLGetConnectAttr)>("SQLGetConnectAttr");
  auto* end = connection->driver->Find<decltype(SQLEndTran)>("SQLEndTran");
  SQLULEN autocommit = SQL_AUTOCOMMIT_ON;
  if (get != nullptr) {
    get(connection->real, SQL_ATTR_AUTOCOMMIT, &autocommit, SQL_IS_UINTEGER, nullptr);
  }
  if (static_cast<SQLUINTEGER>(autocommit) == SQL_AUTOCOMMIT_ON || end == nullptr) {
    RollBackByStatement(connection);
  } else {
    end(SQL_HANDLE_DBC, connection->real, SQL_ROLLBACK);
  }
}

}  // namespace

std::string PlainName(const char* symbol) {
  std::string name(symbol);
  if (name.ends_with('W')) name.pop_back();
  return name;
}

void LoseConnection(Handle* connection) {
  if (connection->lost) return;
  connection->lost = true;
  if (connection->driver != nullptr && connection->real != SQL_NULL_HANDLE) RollBack(connection);
}

Call::Call(const char* symbol, SQLHANDLE handle, SQLSMALLINT kind)
    : m_symbol(symbol), m_function(PlainName(symbol)), m_handle(Find(handle, kind)) {
  if (m_handle == nullptr) {
    m_answer = SQL_INVALID_HANDLE;
    return;
  }
  m_handle->answered = false;
  m_handle->records.clear();
  if (!StillExecuting()) Decide();
}

// True when the call is the repetition of one that was answered "still executing", and is so again or ends by
// having been cancelled.
bool Call::StillExecuting() {
  if (m_handle->executing != m_function) {
    if (m_function != "SQLCancel") m_handle->executing.clear();
    return false;
  }
  if (m_handle->cancelled) {
    m_handle->executing.clear();
    m_answer = Fail("HY008", "operation cancelled");
    return true;
  }
  if (m_handle->executing_left == 0) {
    m_handle->executing.clear();
    m_order = {};
    return true;
  }
  if (m_handle->executing_left > 0) --m_handle->executing_left;
  m_answer = SQL_STILL_EXECUTING;
  return true;
}

void Call::Decide() {
  m_order = TheOrders().Take(m_function);
  const Handle* connection = ConnectionOf(m_handle);
  if (connection != nullptr && connection->lost && !IsLocal(m_function)) {
    m_order.action = Action::kNone;
    m_answer = Fail("08S01", "the connection is lost");
    return;
  }
  if (m_order.action == Action::kDelay) {
    std::this_thread::sleep_for(std::chrono::milliseconds(m_order.amount));
  }
  // Nobody tries again to free a handle, and its memory would be lost.
  if (m_function == "SQLFreeHandle") m_order.after = true;
  // A handle comes with a plain success only; the driver manager would crash with any other.
  if (m_function == "SQLAllocHandle") m_order.after = false;
  if (m_function == "SQLAllocHandle" && m_order.action == Action::kInfo) m_order.action = Action::kNone;
  if (m_order.after) return;
  if (m_order.action == Action::kError) m_answer = WithRecords(SQL_ERROR, "error on demand");
  if (m_order.action == Action::kLost) m_answer = Lose();
  if (m_order.action == Action::kNoData) m_answer = SQL_NO_DATA;
  if (m_order.action == Action::kExecuting) {
    m_handle->executing = m_function;
    m_handle->executing_left = m_order.amount == kEndless ? kEndless : m_order.amount - 1;
    m_handle->cancelled = false;
    m_answer = SQL_STILL_EXECUTING;
  }
}

// What is done to a call that was made. The handle of a call that freed it is gone.
SQLRETURN Call::Finish(SQLRETURN code) {
  if (FindAny(m_handle) == nullptr) return m_order.after ? RETCODE{SQL_ERROR} : code;
  if (m_order.action == Action::kInfo && code == SQL_SUCCESS) {
    return WithRecords(SQL_SUCCESS_WITH_INFO, "information on demand");
  }
  if (!m_order.after) return code;
  if (m_order.action == Action::kError) return WithRecords(SQL_ERROR, "error on demand");
  if (m_order.action == Action::kLost) return Lose();
  return m_order.action == Action::kNoData ? RETCODE{SQL_NO_DATA} : code;
}

SQLRETURN Call::Lose() {
  Handle* connection = ConnectionOf(m_handle);
  if (connection != nullptr) LoseConnection(connection);
  return WithRecords(SQL_ERROR, "the connection is lost");
}

SQLRETURN Call::WithRecords(SQLRETURN code, const std::string& message) {
  m_handle->answered = true;
  const Record record = {m_order.state, m_order.native, kOrigin + message};
  m_handle->records.assign(static_cast<std::size_t>(m_order.records), record);
  return code;
}

SQLRETURN Call::Missing() { return Fail("IM001", std::string("the real driver has no ") + m_symbol); }

SQLRETURN Call::Fail(const std::string& state, const std::string& message) {
  m_handle->answered = true;
  m_handle->records = {
      {state, 0, kOrigin + message}
  };
  return SQL_ERROR;
}

}  // namespace kyfault
