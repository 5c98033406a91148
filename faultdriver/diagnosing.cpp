#include "faultdriver/diagnosing.h"

#include "faultdriver/hand_on.h"

namespace kyfault {

const Record* OwnRecord(const Handle& handle, SQLSMALLINT number) {
  const auto index = static_cast<std::size_t>(number) - 1;
  return handle.answered && number >= 1 && index < handle.records.size() ? &handle.records[index] : nullptr;
}

}  // namespace kyfault

KYFAULT_EXPORT SQLRETURN SQLGetDiagRec(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number, SQLCHAR* state,
                                       SQLINTEGER* native, SQLCHAR* message, SQLSMALLINT size,
                                       SQLSMALLINT* length) {
  return kyfault::GetRecord<decltype(SQLGetDiagRec)>("SQLGetDiagRec", kind, handle, number, state, native,
                                                     message, size, length);
}

KYFAULT_EXPORT SQLRETURN SQLError(SQLHENV environment, SQLHDBC connection, SQLHSTMT statement, SQLCHAR* state,
                                  SQLINTEGER* native, SQLCHAR* message, SQLSMALLINT size,
                                  SQLSMALLINT* length) {
  return kyfault::TakeError<decltype(SQLError)>("SQLError", environment, connection, statement, state, native,
                                                message, size, length);
}

KYFAULT_EXPORT SQLRETURN SQLGetDiagField(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number,
                                         SQLSMALLINT field, SQLPOINTER value, SQLSMALLINT size,
                                         SQLSMALLINT* length) {
  return kyfault::GetField<decltype(SQLGetDiagField), SQLCHAR>("SQLGetDiagField", kind, handle, number, field,
                                                               value, size, length);
}
