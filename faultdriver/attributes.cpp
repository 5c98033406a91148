#include "faultdriver/attributes.h"

#include <cstring>
#include <sstream>

#include "faultdriver/hand_on.h"

namespace kyfault {
namespace {

// A capability that a data source can deny, or tell otherwise than the real driver does.
struct Capability {
  const char* word;
  SQLUSMALLINT item;
  const char* text;    // what is told, for items that are texts
  SQLUINTEGER number;  // for the others
  int size;            // bytes of the number; 0: all bits but these are kept
};

constexpr Capability kCapabilities[] = {
    {"no-transactions",   SQL_TXN_CAPABLE,     nullptr, SQL_TC_NONE,   2},
    {"no-procedures",     SQL_PROCEDURES,      "N",     0,             0},
    {"procedures",        SQL_PROCEDURES,      "Y",     0,             0},
    {"no-static-cursors", SQL_SCROLL_OPTIONS,  nullptr, SQL_SO_STATIC, 0},
    {"lower-case-names",  SQL_IDENTIFIER_CASE, nullptr, SQL_IC_LOWER,  2},
    {"upper-case-names",  SQL_IDENTIFIER_CASE, nullptr, SQL_IC_UPPER,  2},
};

bool HasWord(const std::string& words, const std::string& wanted) {
  std::istringstream stream(words);
  for (std::string word; stream >> word;) {
    if (word == wanted) return true;
  }
  return false;
}

void TellText(const char* text, SQLPOINTER value, SQLSMALLINT size, SQLSMALLINT* length, int character) {
  const auto bytes = static_cast<SQLSMALLINT>(std::strlen(text) * static_cast<std::size_t>(character));
  if (length != nullptr) *length = bytes;
  if (value == nullptr || size < bytes + character) return;
  if (character == 1) {
    std::strcpy(static_cast<char*>(value), text);
  } else {
    auto* wide = static_cast<SQLWCHAR*>(value);
    for (; *text != '\0'; ++text) *wide++ = static_cast<unsigned char>(*text);
    *wide = 0;
  }
}

void TellNumber(const Capability& capability, SQLPOINTER value) {
  if (value == nullptr) return;
  if (capability.size == 0) {
    SQLUINTEGER bits = 0;
    std::memcpy(&bits, value, sizeof bits);
    bits &= ~capability.number;
    std::memcpy(value, &bits, sizeof bits);
  } else {
    const auto number = static_cast<SQLUSMALLINT>(capability.number);
    std::memcpy(value, &number, sizeof number);
  }
}

bool IsDescriptorAttribute(SQLINTEGER attribute) {
  return attribute == SQL_ATTR_APP_ROW_DESC || attribute == SQL_ATTR_APP_PARAM_DESC ||
         attribute == SQL_ATTR_IMP_ROW_DESC || attribute == SQL_ATTR_IMP_PARAM_DESC;
}

}  // namespace

SQLRETURN SetConnectionAttribute(const char* symbol, SQLHDBC connection, SQLINTEGER attribute,
                                 SQLPOINTER value, SQLINTEGER length) {
  Call call(symbol, connection, SQL_HANDLE_DBC);
  return call.Run([&]() -> SQLRETURN {
    Handle* target = call.Target();
    if (target->real == SQL_NULL_HANDLE) {
      target->kept.push_back({attribute, value, length});
      return SQL_SUCCESS;
    }
    auto* set = call.Real<decltype(SQLSetConnectAttr)>();
    return set == nullptr ? call.Missing() : set(target->real, attribute, value, length);
  });
}

SQLRETURN GetConnectionAttribute(const char* symbol, SQLHDBC connection, SQLINTEGER attribute,
                                 SQLPOINTER value, SQLINTEGER size, SQLINTEGER* length) {
  Call call(symbol, connection, SQL_HANDLE_DBC);
  return call.Run([&]() -> SQLRETURN {
    const Handle* target = call.Target();
    if (attribute == SQL_ATTR_CONNECTION_DEAD && target->lost) {
      const SQLUINTEGER dead = SQL_CD_TRUE;
      std::memcpy(value, &dead, sizeof dead);
      return SQL_SUCCESS;
    }
    if (target->real == SQL_NULL_HANDLE) return call.Fail("08003", "not connected");
    auto* get = call.Real<decltype(SQLGetConnectAttr)>();
    return get == nullptr ? call.Missing() : get(target->real, attribute, value, size, length);
  });
}

SQLRETURN SetStatementAttribute(const char* symbol, SQLHSTMT statement, SQLINTEGER attribute,
                                SQLPOINTER value, SQLINTEGER length) {
  const Handle* descriptor = IsDescriptorAttribute(attribute) ? Find(value, SQL_HANDLE_DESC) : nullptr;
  const SQLPOINTER real = descriptor != nullptr ? descriptor->real : value;
  return Call(symbol, statement, SQL_HANDLE_STMT).HandOn<decltype(SQLSetStmtAttr)>(attribute, real, length);
}

SQLRETURN GetStatementAttribute(const char* symbol, SQLHSTMT statement, SQLINTEGER attribute,
                                SQLPOINTER value, SQLINTEGER size, SQLINTEGER* length) {
  Call call(symbol, statement, SQL_HANDLE_STMT);
  const SQLRETURN code = call.HandOn<decltype(SQLGetStmtAttr)>(attribute, value, size, length);
  if (!SQL_SUCCEEDED(code) || value == nullptr || !IsDescriptorAttribute(attribute)) return code;
  auto* descriptor = static_cast<SQLHANDLE*>(value);
  *descriptor = DescriptorOf(call.Target(), *descriptor);
  return code;
}

SQLRETURN GetInformation(const char* symbol, SQLHDBC connection, SQLUSMALLINT item, SQLPOINTER value,
                         SQLSMALLINT size, SQLSMALLINT* length, int character) {
  Call call(symbol, connection, SQL_HANDLE_DBC);
  const SQLRETURN code = call.HandOn<decltype(SQLGetInfo)>(item, value, size, length);
  if (!SQL_SUCCEEDED(code)) return code;
  for (const Capability& capability : kCapabilities) {
    if (capability.item != item || !HasWord(call.Target()->capabilities, capability.word)) continue;
    if (capability.text != nullptr) {
      TellText(capability.text, value, size, length, character);
    } else {
      TellNumber(capability, value);
    }
  }
  return code;
}

}  // namespace kyfault

using kyfault::Call;

KYFAULT_EXPORT SQLRETURN SQLSetEnvAttr(SQLHENV environment, SQLINTEGER attribute, SQLPOINTER value,
                                       SQLINTEGER length) {
  Call call("SQLSetEnvAttr", environment, SQL_HANDLE_ENV);
  return call.Run([&]() -> SQLRETURN {
    call.Target()->kept.push_back({attribute, value, length});
    return SQL_SUCCESS;
  });
}

KYFAULT_EXPORT SQLRETURN SQLGetEnvAttr(SQLHENV environment, SQLINTEGER attribute, SQLPOINTER value,
                                       SQLINTEGER, SQLINTEGER* length) {
  Call call("SQLGetEnvAttr", environment, SQL_HANDLE_ENV);
  return call.Run([&]() -> SQLRETURN {
    for (const kyfault::KeptAttribute& kept : call.Target()->kept) {
      if (kept.attribute != attribute) continue;
      const auto number = static_cast<SQLINTEGER>(reinterpret_cast<SQLLEN>(kept.value));
      std::memcpy(value, &number, sizeof number);
      if (length != nullptr) *length = sizeof number;
    }
    return SQL_SUCCESS;
  });
}

KYFAULT_EXPORT SQLRETURN SQLSetConnectAttr(SQLHDBC connection, SQLINTEGER attribute, SQLPOINTER value,
                                           SQLINTEGER length) {
  return kyfault::SetConnectionAttribute("SQLSetConnectAttr", connection, attribute, value, length);
}

KYFAULT_EXPORT SQLRETURN SQLGetConnectAttr(SQLHDBC connection, SQLINTEGER attribute, SQLPOINTER value,
                                           SQLINTEGER size, SQLINTEGER* length) {
  return kyfault::GetConnectionAttribute("SQLGetConnectAttr", connection, attribute, value, size, length);
}

KYFAULT_EXPORT SQLRETURN SQLSetStmtAttr(SQLHSTMT statement, SQLINTEGER attribute, SQLPOINTER value,
                                        SQLINTEGER length) {
  return kyfault::SetStatementAttribute("SQLSetStmtAttr", statement, attribute, value, length);
}

KYFAULT_EXPORT SQLRETURN SQLGetStmtAttr(SQLHSTMT statement, SQLINTEGER attribute, SQLPOINTER value,
                                        SQLINTEGER size, SQLINTEGER* length) {
  return kyfault::GetStatementAttribute("SQLGetStmtAttr", statement, attribute, value, size, length);
}

KYFAULT_EXPORT SQLRETURN SQLGetInfo(SQLHDBC connection, SQLUSMALLINT item, SQLPOINTER value, SQLSMALLINT size,
                                    SQLSMALLINT* length) {
  return kyfault::GetInformation("SQLGetInfo", connection, item, value, size, length, sizeof(SQLCHAR));
}
