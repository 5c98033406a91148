// The database exception. It is thrown as a pointer; whoever catches it calls Delete().
#ifndef KYODBC_PLATFORM_CDBEXCEPTION_H
#define KYODBC_PLATFORM_CDBEXCEPTION_H

#include "cstring.h"
#include "types.h"

class CDatabase;

// Reasons that the framework itself gives; every other value of m_nRetCode is an ODBC return code.
inline constexpr RETCODE AFX_SQL_ERROR_CONNECT_FAIL = 1001;
inline constexpr RETCODE AFX_SQL_ERROR_DATA_TRUNCATED = 1002;
inline constexpr RETCODE AFX_SQL_ERROR_DYNASET_NOT_SUPPORTED = 1003;
inline constexpr RETCODE AFX_SQL_ERROR_EMPTY_COLUMN_LIST = 1004;
inline constexpr RETCODE AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH = 1005;
inline constexpr RETCODE AFX_SQL_ERROR_ILLEGAL_MODE = 1006;
inline constexpr RETCODE AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED = 1007;
inline constexpr RETCODE AFX_SQL_ERROR_NO_CURRENT_RECORD = 1008;
inline constexpr RETCODE AFX_SQL_ERROR_NO_ROWS_AFFECTED = 1009;
inline constexpr RETCODE AFX_SQL_ERROR_RECORDSET_READONLY = 1010;
inline constexpr RETCODE AFX_SQL_ERROR_SNAPSHOT_NOT_SUPPORTED = 1011;
inline constexpr RETCODE AFX_SQL_ERROR_NOT_SUPPORTED = 1012;    // bulk operations, pessimistic locking
inline constexpr RETCODE AFX_SQL_ERROR_NO_SUCH_COLUMN = 1013;   // unknown name, index out of range
inline constexpr RETCODE AFX_SQL_ERROR_IMPOSSIBLE_DATE = 1014;  // 30 February; refused before any SQL runs

class KYODBC_API CException {
 public:
  CException() = default;
  CException(const CException&) = delete;
  CException& operator=(const CException&) = delete;
  virtual ~CException();

  // Destroys the exception. Call it exactly once, in the handler that does not pass it on.
  void Delete();
};

class KYODBC_API CDBException : public CException {
 public:
  CDBException(RETCODE code, CString error, CString state_native_origin);
  ~CDBException() override;

  RETCODE m_nRetCode;              // an ODBC return code or one of AFX_SQL_ERROR_*
  CString m_strError;              // the first record's message without its bracketed origin
  CString m_strStateNativeOrigin;  // "State:%s,Native:%ld,Origin:%s", one line per diagnostic record
};

// Collects the diagnostic records of `statement`, or of the connection when `statement` is null, and
// throws a CDBException with `code`. `database` may be null: the exception then has no records.
[[noreturn]] KYODBC_API void AfxThrowDBException(RETCODE code, CDatabase* database, HSTMT statement);

#endif
