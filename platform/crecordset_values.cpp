// Reading the columns of the current row on demand.
#include <algorithm>

#include "platform/crecordset.h"
#include "platform/row_fields.h"
#include "platform/row_source.h"
#include "platform/text_value.h"

namespace {

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

constexpr SWORD kNoCType = 0;

struct VariantType {
  SWORD asked;
  SWORD read;
};

// The C types that a variant can hold, by the names of both ODBC versions.
constexpr VariantType kVariantTypes[] = {
    {SQL_C_CHAR,           SQL_C_CHAR          },
    {SQL_C_BINARY,         SQL_C_BINARY        },
    {SQL_C_BIT,            SQL_C_BIT           },
    {SQL_C_UTINYINT,       SQL_C_UTINYINT      },
    {SQL_C_TINYINT,        SQL_C_UTINYINT      },
    {SQL_C_SSHORT,         SQL_C_SSHORT        },
    {SQL_C_SHORT,          SQL_C_SSHORT        },
    {SQL_C_SLONG,          SQL_C_SLONG         },
    {SQL_C_LONG,           SQL_C_SLONG         },
    {SQL_C_FLOAT,          SQL_C_FLOAT         },
    {SQL_C_DOUBLE,         SQL_C_DOUBLE        },
    {SQL_C_TYPE_TIMESTAMP, SQL_C_TYPE_TIMESTAMP},
    {SQL_C_TIMESTAMP,      SQL_C_TYPE_TIMESTAMP},
};

SWORD VariantCType(SWORD asked) {
  for (const VariantType& row : kVariantTypes) {
    if (row.asked == asked) return row.read;
  }
  return kNoCType;
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
    DescribeField(index, &info);
    if (info.m_strName.CompareNoCase(name) == 0) return index;
  }
  ThrowDBException(AFX_SQL_ERROR_NO_SUCH_COLUMN);
  return -1;
}

void CRecordset::DescribeField(short index, CODBCFieldInfo* info) {
  const auto number = static_cast<std::size_t>(index);
  if (number < m_fields->Count()) {
    *info = m_fields->At(number).column;
    return;
  }
  const RETCODE code = m_rows->DescribeColumn(static_cast<SQLUSMALLINT>(index + 1), info);
  if (!odbc::Succeeded(code)) ThrowDBException(code);
}

// Asked for when someone wants it, and unknown where the driver cannot be asked.
SWORD CRecordset::NullabilityOf(short index) {
  SWORD nullability = SQL_NULLABLE_UNKNOWN;
  if (!IsOpen()) return nullability;
  const RETCODE code = m_rows->Nullability(static_cast<SQLUSMALLINT>(index + 1), &nullability);
  return odbc::Succeeded(code) ? nullability : SWORD{SQL_NULLABLE_UNKNOWN};
}

void CRecordset::GetODBCFieldInfo(short index, CODBCFieldInfo& info) {
  RequireColumn(index);
  DescribeField(index, &info);
  info.m_nNullability = NullabilityOf(index);
}

void CRecordset::GetODBCFieldInfo(const char* name, CODBCFieldInfo& info) {
  GetODBCFieldInfo(ColumnIndex(name), info);
}

// The value that the set's own edit gave the column of the current row, as a text; null when there was none.
const FieldValue* CRecordset::OwnEdit(short index, std::string& text) const {
  const auto number = static_cast<std::size_t>(index);
  if (number >= m_fields->Count()) return nullptr;
  const FieldValue* edited = m_fields->Edited(number, m_rows->RowIdentity());
  const Field& field = m_fields->At(number);
  if (edited != nullptr && !edited->null) text = ValueText(*edited, field.kind, IsDateColumn(field));
  return edited;
}

bool CRecordset::ReadText(short index, SWORD c_type, CString& text) {
  std::string bytes;
  bool null = false;
  if (const FieldValue* edited = OwnEdit(index, bytes)) {
    if (!edited->null) text.Assign(bytes.data(), bytes.size());
    return !edited->null;
  }
  const RETCODE code = m_rows->ReadWhole(static_cast<SQLUSMALLINT>(index + 1), c_type, &bytes, &null);
  if (!odbc::Succeeded(code)) ThrowDBException(code);
  if (!null) text.Assign(bytes.data(), bytes.size());
  return !null;
}

RETCODE CRecordset::ReadFixed(short index, SWORD c_type, void* target, SQLLEN size, SQLLEN* indicator) {
  std::string text;
  const FieldValue* edited = OwnEdit(index, text);
  if (edited == nullptr) {
    return m_rows->GetData(static_cast<SQLUSMALLINT>(index + 1), c_type, target, size, indicator);
  }
  *indicator = SQL_NULL_DATA;
  return edited->null ? RETCODE{SQL_SUCCESS} : text_value::Read(text, c_type, target, indicator);
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
  const RETCODE code = ReadFixed(index, c_type, &read, sizeof read, &indicator);
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
    default:
      return value.SetDate(read.time);
  }
}

// Drivers differ on a second reading of a column: the row is fetched again first.
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
  CODBCFieldInfo info;
  if (field_type == DEFAULT_FIELD_TYPE) GetODBCFieldInfo(index, info);
  const SWORD c_type =
      field_type == DEFAULT_FIELD_TYPE ? DefaultCType(info.m_nSQLType) : VariantCType(field_type);
  // Other types are larger than what the variant holds, and a driver would write beyond it.
  if (c_type == kNoCType) ThrowDBException(AFX_SQL_ERROR_NOT_SUPPORTED);
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
