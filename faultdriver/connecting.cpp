#include "faultdriver/connecting.h"

#include <odbcinst.h>
#include <strings.h>

#include <algorithm>

#include "faultdriver/hand_on.h"

namespace kyfault {
namespace {

constexpr int kEntrySize = 1024;

std::string Entry(const char* file, const std::string& section, const char* key) {
  char value[kEntrySize] = {};
  if (section.empty()) return value;
  SQLGetPrivateProfileString(section.c_str(), key, "", value, kEntrySize, file);
  return value;
}

// The value of a part of a connection string. Braces, in which values may stand, are taken away.
std::string Part(const std::string& text, const char* key) {
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = std::min(text.find(';', at), text.size());
    const std::string part = text.substr(at, end - at);
    const std::size_t equals = part.find('=');
    if (equals != std::string::npos && strcasecmp(part.substr(0, equals).c_str(), key) == 0) {
      std::string value = part.substr(equals + 1);
      if (value.starts_with('{') && value.ends_with('}')) value = value.substr(1, value.size() - 2);
      return value;
    }
    at = end + 1;
  }
  return {};
}

// What the source, or else its section of the drivers, says under this key.
class Source {
 public:
  explicit Source(const std::string& text)
      : m_text(text),
        m_name(text.find('=') == std::string::npos ? text : Part(text, "DSN")),
        m_driver(m_name.empty() ? Part(text, "DRIVER") : Entry("odbc.ini", m_name, "Driver")) {}

  std::string Option(const char* key) const {
    std::string value = Part(m_text, key);
    if (value.empty()) value = Entry("odbc.ini", m_name, key);
    if (value.empty()) value = Entry("odbcinst.ini", m_driver, key);
    return value;
  }

 private:
  std::string m_text;
  std::string m_name;
  std::string m_driver;
};

// KyFault, KyFault1, KyFault2 and so on to the first that there is not. False for one that is no order.
bool TakeOrders(const Source& source, std::string* wrong) {
  for (int number = 0;; ++number) {
    const std::string key = "KyFault" + (number == 0 ? std::string() : std::to_string(number));
    const std::string text = source.Option(key.c_str());
    if (text.empty() && number != 0) return true;
    if (text.empty()) continue;
    const std::optional<Order> order = ParseOrder(text);
    if (!order) {
      *wrong = text;
      return false;
    }
    TheOrders().Add(*order);
  }
}

SQLRETURN MakeEnvironment(Handle* environment, RealDriver* driver) {
  SQLHANDLE& real = environment->environments[driver];
  if (real != SQL_NULL_HANDLE) return SQL_SUCCESS;
  auto* allocate = driver->Find<decltype(SQLAllocHandle)>("SQLAllocHandle");
  auto* set = driver->Find<decltype(SQLSetEnvAttr)>("SQLSetEnvAttr");
  if (allocate == nullptr || set == nullptr) return SQL_ERROR;
  const SQLRETURN code = allocate(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &real);
  if (!SQL_SUCCEEDED(code)) {
    environment->environments.erase(driver);
    return code;
  }
  for (const KeptAttribute& kept : environment->kept) set(real, kept.attribute, kept.value, kept.length);
  return SQL_SUCCESS;
}

SQLRETURN MakeConnection(Handle* connection) {
  const SQLRETURN made = MakeEnvironment(connection->parent, connection->driver);
  if (!SQL_SUCCEEDED(made)) return made;
  auto* allocate = connection->driver->Find<decltype(SQLAllocHandle)>("SQLAllocHandle");
  auto* set = connection->driver->Find<decltype(SQLSetConnectAttr)>("SQLSetConnectAttr");
  const SQLRETURN code =
      allocate(SQL_HANDLE_DBC, connection->parent->environments.at(connection->driver), &connection->real);
  if (!SQL_SUCCEEDED(code) || set == nullptr) return code;
  // One that the real driver refuses now, it would have refused then.
  for (const KeptAttribute& kept : connection->kept)
    set(connection->real, kept.attribute, kept.value, kept.length);
  return code;
}

}  // namespace

std::string NarrowText(const SQLCHAR* text, SQLINTEGER length) {
  if (text == nullptr) return {};
  const auto* bytes = reinterpret_cast<const char*>(text);
  return length == SQL_NTS ? std::string(bytes) : std::string(bytes, static_cast<std::size_t>(length));
}

std::string NarrowText(const SQLWCHAR* text, SQLINTEGER length) {
  std::string narrow;
  for (SQLINTEGER i = 0; text != nullptr && (length == SQL_NTS ? text[i] != 0 : i < length); ++i) {
    constexpr SQLWCHAR kFirstBeyondAscii = 0x80;
    narrow += text[i] < kFirstBeyondAscii ? static_cast<char>(text[i]) : '?';
  }
  return narrow;
}

SQLRETURN PrepareConnection(Call& call, const std::string& text) {
  Handle* connection = call.Target();
  connection->lost = connection->ended = false;
  if (connection->real != SQL_NULL_HANDLE) return SQL_SUCCESS;  // connects again
  const Source source(text);
  std::string reason = "the option KyFaultDriver names no driver";
  const std::string file = source.Option("KyFaultDriver");
  if (!file.empty()) connection->driver = RealDriver::Load(file, &reason);
  if (connection->driver == nullptr) return call.Fail("IM003", reason);
  connection->capabilities = source.Option("KyFaultCapabilities");
  if (!TakeOrders(source, &reason)) return call.Fail("HY000", "not an order: " + reason);
  const SQLRETURN made = MakeConnection(connection);
  return SQL_SUCCEEDED(made) ? made : call.Fail("IM005", "the real driver gives no handle");
}

}  // namespace kyfault

KYFAULT_EXPORT SQLRETURN SQLConnect(SQLHDBC connection, SQLCHAR* source, SQLSMALLINT source_length,
                                    SQLCHAR* user, SQLSMALLINT user_length, SQLCHAR* password,
                                    SQLSMALLINT password_length) {
  return kyfault::Connect<decltype(SQLConnect)>("SQLConnect", connection, source, source_length, source,
                                                source_length, user, user_length, password, password_length);
}

KYFAULT_EXPORT SQLRETURN SQLDriverConnect(SQLHDBC connection, SQLHWND window, SQLCHAR* text,
                                          SQLSMALLINT length, SQLCHAR* completed, SQLSMALLINT size,
                                          SQLSMALLINT* completed_length, SQLUSMALLINT completion) {
  return kyfault::Connect<decltype(SQLDriverConnect)>("SQLDriverConnect", connection, text, length, window,
                                                      text, length, completed, size, completed_length,
                                                      completion);
}

KYFAULT_EXPORT SQLRETURN SQLBrowseConnect(SQLHDBC connection, SQLCHAR* text, SQLSMALLINT length,
                                          SQLCHAR* result, SQLSMALLINT size, SQLSMALLINT* result_length) {
  return kyfault::Connect<decltype(SQLBrowseConnect)>("SQLBrowseConnect", connection, text, length, text,
                                                      length, result, size, result_length);
}

// A driver ends the statements of the connection too; their handles are not freed singly. When it has been
// ended and an error was answered, the call may come again: one real driver would refuse it, and the driver
// manager would never let the handle be freed.
KYFAULT_EXPORT SQLRETURN SQLDisconnect(SQLHDBC connection) {
  kyfault::Call call("SQLDisconnect", connection, SQL_HANDLE_DBC);
  return call.Run([&]() -> SQLRETURN {
    if (call.Target()->ended) return SQL_SUCCESS;
    auto* disconnect = call.Real<decltype(SQLDisconnect)>();
    const SQLRETURN code = disconnect == nullptr ? call.Missing() : disconnect(call.Target()->real);
    if (SQL_SUCCEEDED(code)) {
      call.Target()->ended = true;
      kyfault::FreeChildren(call.Target());
    }
    return code;
  });
}
