// The functions that are only handed on: name, and the number of parameters after the handle. What else there
// is to know of them, their types, the ODBC headers tell.
#ifndef KYODBC_FAULTDRIVER_FUNCTIONS_H
#define KYODBC_FAULTDRIVER_FUNCTIONS_H

#define KYFAULT_STATEMENT_FUNCTIONS(F) \
  F(SQLBindParameter, 9)               \
  F(SQLBulkOperations, 1)              \
  F(SQLCloseCursor, 0)                 \
  F(SQLDescribeParam, 5)               \
  F(SQLExecute, 0)                     \
  F(SQLMoreResults, 0)                 \
  F(SQLNumParams, 1)                   \
  F(SQLNumResultCols, 1)               \
  F(SQLParamData, 1)                   \
  F(SQLParamOptions, 2)                \
  F(SQLPutData, 2)                     \
  F(SQLSetPos, 3)

// These and the next have a wide form with as many parameters.
#define KYFAULT_STATEMENT_TEXT_FUNCTIONS(F) \
  F(SQLColAttribute, 6)                     \
  F(SQLColAttributes, 6)                    \
  F(SQLColumnPrivileges, 8)                 \
  F(SQLColumns, 8)                          \
  F(SQLDescribeCol, 8)                      \
  F(SQLExecDirect, 2)                       \
  F(SQLForeignKeys, 12)                     \
  F(SQLGetCursorName, 3)                    \
  F(SQLGetTypeInfo, 1)                      \
  F(SQLPrepare, 2)                          \
  F(SQLPrimaryKeys, 6)                      \
  F(SQLProcedureColumns, 8)                 \
  F(SQLProcedures, 6)                       \
  F(SQLSetCursorName, 2)                    \
  F(SQLSpecialColumns, 9)                   \
  F(SQLStatistics, 8)                       \
  F(SQLTablePrivileges, 6)                  \
  F(SQLTables, 8)

#define KYFAULT_CONNECTION_TEXT_FUNCTIONS(F) F(SQLNativeSql, 5)

#define KYFAULT_DESCRIPTOR_FUNCTIONS(F) F(SQLSetDescRec, 9)

#define KYFAULT_DESCRIPTOR_TEXT_FUNCTIONS(F) \
  F(SQLGetDescField, 5)                      \
  F(SQLGetDescRec, 10)                       \
  F(SQLSetDescField, 4)

namespace kyfault {

// What makes a server answer with a statement of its own.
inline constexpr const char* kExecutions[] = {
    "SQLExecute",     "SQLExecDirect",     "SQLColumnPrivileges", "SQLColumns",
    "SQLForeignKeys", "SQLGetTypeInfo",    "SQLPrimaryKeys",      "SQLProcedureColumns",
    "SQLProcedures",  "SQLSpecialColumns", "SQLStatistics",       "SQLTablePrivileges",
    "SQLTables"};
inline constexpr const char* kOtherRequests[] = {"SQLPrepare", "SQLEndTran"};

// What a driver may run in the background. Of the other calls the driver manager never forgets that they were
// still executing, and the statement can never be freed.
inline constexpr const char* kBackground[] = {
    "SQLColumns",       "SQLEndTran",        "SQLExecDirect",  "SQLExecute",
    "SQLExtendedFetch", "SQLFetch",          "SQLFetchScroll", "SQLGetData",
    "SQLGetTypeInfo",   "SQLPrepare",        "SQLPrimaryKeys", "SQLProcedures",
    "SQLSetPos",        "SQLSpecialColumns", "SQLStatistics",  "SQLTables"};

// What a driver still does after the connection was lost: nothing here needs the server.
inline constexpr const char* kLocalFunctions[] = {
    "SQLBindCol",      "SQLBindParameter", "SQLCancel",     "SQLCloseCursor",    "SQLDisconnect",
    "SQLFreeHandle",   "SQLFreeStmt",      "SQLGetInfo",    "SQLGetConnectAttr", "SQLGetEnvAttr",
    "SQLGetFunctions", "SQLGetStmtAttr",   "SQLSetStmtAttr"};

}  // namespace kyfault

#endif
