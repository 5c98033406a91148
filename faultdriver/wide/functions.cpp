// The functions with texts that are not only handed on, in their wide form.
#include "faultdriver/attributes.h"
#include "faultdriver/connecting.h"
#include "faultdriver/diagnosing.h"
#include "faultdriver/hand_on.h"

KYFAULT_EXPORT SQLRETURN SQLConnectW(SQLHDBC connection, SQLWCHAR* source, SQLSMALLINT source_length,
                                     SQLWCHAR* user, SQLSMALLINT user_length, SQLWCHAR* password,
                                     SQLSMALLINT password_length) {
  return kyfault::Connect<decltype(SQLConnectW)>("SQLConnectW", connection, source, source_length, source,
                                                 source_length, user, user_length, password, password_length);
}

KYFAULT_EXPORT SQLRETURN SQLDriverConnectW(SQLHDBC connection, SQLHWND window, SQLWCHAR* text,
                                           SQLSMALLINT length, SQLWCHAR* completed, SQLSMALLINT size,
                                           SQLSMALLINT* completed_length, SQLUSMALLINT completion) {
  return kyfault::Connect<decltype(SQLDriverConnectW)>("SQLDriverConnectW", connection, text, length, window,
                                                       text, length, completed, size, completed_length,
                                                       completion);
}

KYFAULT_EXPORT SQLRETURN SQLBrowseConnectW(SQLHDBC connection, SQLWCHAR* text, SQLSMALLINT length,
                                           SQLWCHAR* result, SQLSMALLINT size, SQLSMALLINT* result_length) {
  return kyfault::Connect<decltype(SQLBrowseConnectW)>("SQLBrowseConnectW", connection, text, length, text,
                                                       length, result, size, result_length);
}

KYFAULT_EXPORT SQLRETURN SQLSetConnectAttrW(SQLHDBC connection, SQLINTEGER attribute, SQLPOINTER value,
                                            SQLINTEGER length) {
  return kyfault::SetConnectionAttribute("SQLSetConnectAttrW", connection, attribute, value, length);
}

KYFAULT_EXPORT SQLRETURN SQLGetConnectAttrW(SQLHDBC connection, SQLINTEGER attribute, SQLPOINTER value,
                                            SQLINTEGER size, SQLINTEGER* length) {
  return kyfault::GetConnectionAttribute("SQLGetConnectAttrW", connection, attribute, value, size, length);
}

KYFAULT_EXPORT SQLRETURN SQLSetStmtAttrW(SQLHSTMT statement, SQLINTEGER attribute, SQLPOINTER value,
                                         SQLINTEGER length) {
  return kyfault::SetStatementAttribute("SQLSetStmtAttrW", statement, attribute, value, length);
}

KYFAULT_EXPORT SQLRETURN SQLGetStmtAttrW(SQLHSTMT statement, SQLINTEGER attribute, SQLPOINTER value,
                                         SQLINTEGER size, SQLINTEGER* length) {
  return kyfault::GetStatementAttribute("SQLGetStmtAttrW", statement, attribute, value, size, length);
}

KYFAULT_EXPORT SQLRETURN SQLGetInfoW(SQLHDBC connection, SQLUSMALLINT item, SQLPOINTER value,
                                     SQLSMALLINT size, SQLSMALLINT* length) {
  return kyfault::GetInformation("SQLGetInfoW", connection, item, value, size, length, sizeof(SQLWCHAR));
}

KYFAULT_EXPORT SQLRETURN SQLGetDiagRecW(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number,
                                        SQLWCHAR* state, SQLINTEGER* native, SQLWCHAR* message,
                                        SQLSMALLINT size, SQLSMALLINT* length) {
  return kyfault::GetRecord<decltype(SQLGetDiagRecW)>("SQLGetDiagRecW", kind, handle, number, state, native,
                                                      message, size, length);
}

KYFAULT_EXPORT SQLRETURN SQLErrorW(SQLHENV environment, SQLHDBC connection, SQLHSTMT statement,
                                   SQLWCHAR* state, SQLINTEGER* native, SQLWCHAR* message, SQLSMALLINT size,
                                   SQLSMALLINT* length) {
  return kyfault::TakeError<decltype(SQLErrorW)>("SQLErrorW", environment, connection, statement, state,
                                                 native, message, size, length);
}

KYFAULT_EXPORT SQLRETURN SQLGetDiagFieldW(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number,
                                          SQLSMALLINT field, SQLPOINTER value, SQLSMALLINT size,
                                          SQLSMALLINT* length) {
  return kyfault::GetField<decltype(SQLGetDiagFieldW), SQLWCHAR>("SQLGetDiagFieldW", kind, handle, number,
                                                                 field, value, size, length);
}
