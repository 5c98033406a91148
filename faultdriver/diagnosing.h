// Diagnostic records: those of this driver when it answered the last call itself, else the real driver's.
// Reading them is no call that counts or fails.
#ifndef KYODBC_FAULTDRIVER_DIAGNOSING_H
#define KYODBC_FAULTDRIVER_DIAGNOSING_H

#include <sql.h>
#include <sqlext.h>

#include "faultdriver/call.h"

namespace kyfault {

// Writes a text of ASCII characters. Returns its length; `size` counts characters, with the zero at the end.
template <class Char>
SQLSMALLINT WriteText(const std::string& text, Char* out, SQLSMALLINT size) {
  if (out != nullptr && size > 0) {
    std::size_t length = std::min(text.size(), static_cast<std::size_t>(size) - 1);
    for (std::size_t i = 0; i < length; ++i) out[i] = static_cast<Char>(text[i]);
    out[length] = 0;
  }
  return static_cast<SQLSMALLINT>(text.size());
}

// Null when the real driver is to be asked, or nobody can be.
const Record* OwnRecord(const Handle& handle, SQLSMALLINT number);

template <class Char>
SQLRETURN WriteRecord(const Record& record, Char* state, SQLINTEGER* native, Char* message, SQLSMALLINT size,
                      SQLSMALLINT* length) {
  constexpr SQLSMALLINT kStateSize = 6;
  WriteText(record.state, state, kStateSize);
  if (native != nullptr) *native = record.native;
  const SQLSMALLINT written = WriteText(record.message, message, size);
  if (length != nullptr) *length = written;
  return written < size ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

template <class Function, class Char>
SQLRETURN GetRecord(const char* symbol, SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number, Char* state,
                    SQLINTEGER* native, Char* message, SQLSMALLINT size, SQLSMALLINT* length) {
  const Handle* target = Find(handle, kind);
  if (target == nullptr) return SQL_INVALID_HANDLE;
  const Record* own = OwnRecord(*target, number);
  if (own == nullptr) {
    auto* real = target->driver == nullptr ? nullptr : target->driver->Find<Function>(symbol);
    if (target->answered || target->real == SQL_NULL_HANDLE || real == nullptr) return SQL_NO_DATA;
    return real(kind, target->real, number, state, native, message, size, length);
  }
  return WriteRecord(*own, state, native, message, size, length);
}

// The older way of reading them: one after the other, each once, of the handle that is the most special one
// given.
template <class Function, class Char>
SQLRETURN TakeError(const char* symbol, SQLHENV environment, SQLHDBC connection, SQLHSTMT statement,
                    Char* state, SQLINTEGER* native, Char* message, SQLSMALLINT size, SQLSMALLINT* length) {
  const auto real = [](SQLHANDLE handle) -> SQLHANDLE {
    const Handle* found = FindAny(handle);
    return found == nullptr ? SQL_NULL_HANDLE : found->real;
  };
  Handle* target = FindAny(statement);
  if (target == nullptr) target = FindAny(connection);
  if (target == nullptr) target = FindAny(environment);
  if (target == nullptr) return SQL_INVALID_HANDLE;
  if (!target->answered) {
    auto* function = target->driver == nullptr ? nullptr : target->driver->Find<Function>(symbol);
    if (target->real == SQL_NULL_HANDLE || function == nullptr) return SQL_NO_DATA;
    return function(SQL_NULL_HENV, statement == SQL_NULL_HSTMT ? real(connection) : SQL_NULL_HDBC,
                    real(statement), state, native, message, size, length);
  }
  if (target->records.empty()) return SQL_NO_DATA;
  const SQLRETURN code = WriteRecord(target->records.front(), state, native, message, size, length);
  target->records.erase(target->records.begin());
  return code;
}

// Of an own record or header; SQL_NO_DATA for a record that is not there. Texts have characters of this kind.
template <class Char>
SQLRETURN OwnField(const Handle& handle, SQLSMALLINT number, SQLSMALLINT field, SQLPOINTER value,
                   SQLSMALLINT size, SQLSMALLINT* length) {
  if (number == 0) {
    if (field == SQL_DIAG_NUMBER)
      *static_cast<SQLINTEGER*>(value) = static_cast<SQLINTEGER>(handle.records.size());
    return field == SQL_DIAG_NUMBER ? SQL_SUCCESS : SQL_ERROR;
  }
  const Record* record = OwnRecord(handle, number);
  if (record == nullptr) return SQL_NO_DATA;
  if (field == SQL_DIAG_NATIVE) {
    *static_cast<SQLINTEGER*>(value) = record->native;
    return SQL_SUCCESS;
  }
  if (field != SQL_DIAG_SQLSTATE && field != SQL_DIAG_MESSAGE_TEXT) return SQL_ERROR;
  constexpr auto kCharacter = static_cast<SQLSMALLINT>(sizeof(Char));
  const std::string& text = field == SQL_DIAG_SQLSTATE ? record->state : record->message;
  const SQLSMALLINT written =
      WriteText(text, static_cast<Char*>(value), static_cast<SQLSMALLINT>(size / kCharacter));
  if (length != nullptr) *length = static_cast<SQLSMALLINT>(written * kCharacter);
  return SQL_SUCCESS;
}

template <class Function, class Char>
SQLRETURN GetField(const char* symbol, SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number,
                   SQLSMALLINT field, SQLPOINTER value, SQLSMALLINT size, SQLSMALLINT* length) {
  const Handle* target = Find(handle, kind);
  if (target == nullptr) return SQL_INVALID_HANDLE;
  if (target->answered) return OwnField<Char>(*target, number, field, value, size, length);
  auto* real = target->driver == nullptr ? nullptr : target->driver->Find<Function>(symbol);
  if (target->real == SQL_NULL_HANDLE || real == nullptr) return SQL_NO_DATA;
  return real(kind, target->real, number, field, value, size, length);
}

}  // namespace kyfault

#endif
