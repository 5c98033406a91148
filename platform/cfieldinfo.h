// What a caller learns of a result column, and a value of a type known only at run time.
#ifndef KYODBC_PLATFORM_CFIELDINFO_H
#define KYODBC_PLATFORM_CFIELDINFO_H

#include "cstring.h"
#include "types.h"

struct KYODBC_API CODBCFieldInfo {
  CString m_strName;       // as the driver reports it; letter case differs between databases
  SWORD m_nSQLType = 0;    // SQL_VARCHAR, SQL_TYPE_TIMESTAMP, ...
  DWORD m_nPrecision = 0;  // characters of a text column, digits of a number
  SWORD m_nScale = 0;
  SWORD m_nNullability = SQL_NULLABLE_UNKNOWN;
};

inline constexpr DWORD DBVT_NULL = 0;
inline constexpr DWORD DBVT_BOOL = 1;
inline constexpr DWORD DBVT_UCHAR = 2;
inline constexpr DWORD DBVT_SHORT = 3;
inline constexpr DWORD DBVT_LONG = 4;
inline constexpr DWORD DBVT_SINGLE = 5;
inline constexpr DWORD DBVT_DOUBLE = 6;
inline constexpr DWORD DBVT_DATE = 7;
inline constexpr DWORD DBVT_STRING = 8;
inline constexpr DWORD DBVT_BINARY = 9;

// A value whose type is told by m_dwType. Owned memory (date, string, binary) is freed by Clear and by
// the destructor. The whole union is zeroed before a value is stored, so that a value read as another
// integer type than it was stored as is deterministic.
class KYODBC_API CDBVariant {
 public:
  CDBVariant();  // null
  CDBVariant(const CDBVariant& other);
  CDBVariant& operator=(const CDBVariant& other);
  ~CDBVariant();

  void Clear();  // makes it null

  // Each replaces type and value; the argument may be the variant's own value.
  void SetBool(BOOL value);
  void SetUChar(unsigned char value);
  void SetShort(short value);
  void SetLong(LONG value);
  void SetSingle(float value);
  void SetDouble(double value);
  void SetDate(const TIMESTAMP_STRUCT& value);
  void SetString(const CString& value);
  void SetBinary(const CString& value);  // bytes, zero bytes included

  DWORD m_dwType;
  union {
    BOOL m_boolVal;
    unsigned char m_chVal;
    short m_iVal;
    LONG m_lVal;
    float m_fltVal;
    double m_dblVal;
    TIMESTAMP_STRUCT* m_pdate;
    CString* m_pstring;
    CString* m_pbinary;
    unsigned char m_storage[8];
  };
};

#endif
