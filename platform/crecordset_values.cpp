// Reading the columns of the current row on demand.
#include <algorithm>

#include "platform/crecordset.h"
#include "platform/row_fields.h"
#include "platform/row_source.h"

namespace {

constexpr std::size_t kTextStep = 4096;

struct DefaultType {
  SWORD sql_type;
  SWORD c_type;
};

// Dates by the codes of both ODBC versions. Types that are not listed are read as text.
constexpr DefaultType kDefaultTypes[] = {
    {SQL_BIT,            SQL_C_BIT           },
    {SQL_TINYINT,        SQL_C_UTINYINT      },
    {SQL_SMALLINT,       SQL_C_SSHORT        },
    {SQL_INTEGER,        SQL_C_SLONG         },
    {SQL_REAL,           SQL_C_FLOAT         },
    {SQL_FLOAT,          SQL_C_DOUBLE        },
    {SQL_DOUBLE,         SQL_C_DOUBLE        },
    {SQL_DATE,           SQL_C_TYPE_TIMESTAMP},
    {SQL_TIME,           SQL_C_TYPE_TIMESTAMP},
    {SQL_TIMESTAMP,      SQL_C_TYPE_TIMESTAMP},
    {SQL_TYPE_DATE,      SQL_C_TYPE_TIMESTAMP},
    {SQL_TYPE_TIME,      SQL_C_TYPE_TIMESTAMP},
    {SQL_TYPE_TIMESTAMP, SQL_C_TYPE_TIMESTAMP},
    {SQL_BINARY,         SQL_C_BINARY        },
    {SQL_VARBINARY,      SQL_C_BINARY        },
    {SQL_LONGVARBINARY,  SQL_C_BINARY        },
};

SWORD DefaultCType(SWORD sql_type) {
  for (const DefaultType& row : kDefaultTypes) {
    if (row.sql_type == sql_type) return row.c_type;
  }
  return SQL_C_CHAR;
}

bool IsTextType(SWORD type) {
  return type == SQL_CHAR || type == SQL_VARCHAR || type == SQL_LONGVARCHAR || type == SQL_WCHAR ||
         type == SQL_WVARCHAR || type == SQL_WLONGVARCHAR;
}

}  // namespace

LONG CRecordset::GetTextLen(SWORD sql_type, SQLULEN precision) {
  constexpr SQLULEN kMost = 0x7FFFFFFE;
  return IsTextType(sql_type) ? static_cast<LONG>(std::min(precision, kMost)) + 1 : 0;
}

short CRecordset::GetODBCFieldCount() const { return m_nResultCols; }

void CRecordset::RequireColumn(short index) {
  if (!IsOpen() || index < 0 || index >= m_nResultCols) ThrowDBException(AFX_SQL_ERROR_NO_SUCH_COLUMN);
}

short CRecordset::ColumnIndex(const char* name) {
  CODBCFieldInfo info;
  for (short index = 0; index < m_nResultCols; ++index) {
    GetODBCFieldInfo(index, info);
    if (info.m_strName.CompareNoCase(name) == 0) return index;
  }
  ThrowDBException(AFX_SQL_ERROR_NO_SUCH_COLUMN);
  return -1;
}

void CRecordset::GetODBCFieldInfo(short index, CODBCFieldInfo& info) {
  RequireColumn(index);
  const auto number = static_cast<std::size_t>(index);
  if (number < m_fields->Count()) {
    info = m_fields->At(number).column;
    return;
  }
  const RETCODE code = m_rows->Statement().DescribeColumn(static_cast<SQLUSMALLINT>(index + 1), &info);
  if (!odbc::Succeeded(code)) ThrowDBException(code);
}

void CRecordset::GetODBCFieldInfo(const char* name, CODBCFieldInfo& info) {
  GetODBCFieldInfo(ColumnIndex(name), info);
}

// One reading of a column of the current row. Drivers differ on a second one: the row is fetched again
// first.
RETCODE CRecordset::ReadColumn(short index, SWORD c_type, void* buffer, SQLLEN size, SQLLEN* indicator) {
  return m_rows->Statement().GetData(static_cast<SQLUSMALLINT>(index + 1), c_type, buffer, size, indicator);
}

bool CRecordset::ReadText(short index, SWORD c_type, CString& text) {
  const bool characters = c_type == SQL_C_CHAR;  // a zero byte follows each piece
  std::string bytes;
  std::size_t length = 0;
  for (;;) {
    bytes.resize(std::max(2 * length, kTextStep));
    const std::size_t room = bytes.size() - length;
    SQLLEN indicator = 0;
    const RETCODE code =
        ReadColumn(index, c_type, bytes.data() + length, static_cast<SQLLEN>(room), &indicator);
    if (code == SQL_NO_DATA) break;
    if (!odbc::Succeeded(code)) ThrowDBException(code);
    if (indicator == SQL_NULL_DATA) return false;
    const std::size_t piece = characters ? room - 1 : room;
    const bool all = indicator >= 0 && static_cast<std::size_t>(indicator) <= piece;
    length += all ? static_cast<std::size_t>(indicator) : piece;
    if (all) break;
  }
  text.Assign(bytes.data(), length);
  return true;
}

void CRecordset::ReadVariant(short index, SWORD c_type, CDBVariant& value) {
  value.Clear();
  if (c_type == SQL_C_CHAR || c_type == SQL_C_BINARY) {
    CString bytes;
    if (!ReadText(index, c_type, bytes)) return;
    c_type == SQL_C_CHAR ? value.SetString(bytes) : value.SetBinary(bytes);
    return;
  }
  union {
    unsigned char byte;
    short small;
    LONG number;
    float real;
    double precise;
    TIMESTAMP_STRUCT time;
  } read = {};
  SQLLEN indicator = 0;
  const RETCODE code = ReadColumn(index, c_type, &read, sizeof read, &indicator);
  if (!odbc::Succeeded(code)) ThrowDBException(code);
  if (indicator == SQL_NULL_DATA) return;
  switch (c_type) {
    case SQL_C_BIT:
      return value.SetBool(read.byte);
    case SQL_C_UTINYINT:
      return value.SetUChar(read.byte);
    case SQL_C_SSHORT:
      return value.SetShort(read.small);
    case SQL_C_SLONG:
      return value.SetLong(read.number);
    case SQL_C_FLOAT:
      return value.SetSingle(read.real);
    case SQL_C_DOUBLE:
      return value.SetDouble(read.precise);
    case SQL_C_TYPE_TIMESTAMP:
      return value.SetDate(read.time);
    default:
      ThrowDBException(AFX_SQL_ERROR_NOT_SUPPORTED);
  }
}

void CRecordset::BeginReading(short index) {
  RequireColumn(index);
  if (m_bBOF || m_bEOF || m_bDeleted) ThrowDBException(AFX_SQL_ERROR_NO_CURRENT_RECORD);
  if (std::find(m_columnsRead.begin(), m_columnsRead.end(), index) != m_columnsRead.end()) {
    const RETCODE code = m_rows->Refresh();
    if (!odbc::Succeeded(code)) ThrowDBException(code);
    m_columnsRead.clear();
  }
  m_columnsRead.push_back(index);
}

void CRecordset::GetFieldValue(short index, CDBVariant& value, short field_type) {
  BeginReading(index);
  SWORD c_type = field_type;
  if (field_type == DEFAULT_FIELD_TYPE) {
    CODBCFieldInfo info;
    GetODBCFieldInfo(index, info);
    c_type = DefaultCType(info.m_nSQLType);
  }
  ReadVariant(index, c_type, value);
}

void CRecordset::GetFieldValue(const char* name, CDBVariant& value, short field_type) {
  GetFieldValue(ColumnIndex(name), value, field_type);
}

void CRecordset::GetFieldValue(short index, CString& value) {
  BeginReading(index);
  if (!ReadText(index, SQL_C_CHAR, value)) value.Empty();
}

void CRecordset::GetFieldValue(const char* name, CString& value) { GetFieldValue(ColumnIndex(name), value); }
