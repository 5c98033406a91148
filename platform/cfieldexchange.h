// Record field exchange: how a record set's members meet its columns.
//
// DoFieldExchange names the columns in order, one RFX call each. It runs when the set is opened, to learn
// the columns and the members, and for every row, to copy it into the members. The RFX functions act only
// after SetFieldType(outputColumn). Members must stay where they are while the set is open.
#ifndef KYODBC_PLATFORM_CFIELDEXCHANGE_H
#define KYODBC_PLATFORM_CFIELDEXCHANGE_H

#include "cstring.h"
#include "types.h"

class CRecordset;

class KYODBC_API CFieldExchange {
 public:
  enum FieldType { noFieldType = 0, outputColumn = 1, param = 2, inputParam = 2 };

  // The library has no parameters: RFX calls after SetFieldType(param) do nothing.
  void SetFieldType(FieldType type) { m_type = type; }
  BOOL IsFieldType(UINT* field) const;  // nonzero for an output column; writes its index from 0

 private:
  friend class CRecordset;
  friend struct FieldAccess;

  enum Purpose { kDescribe, kLoad };

  CFieldExchange(Purpose purpose, CRecordset* set) : m_purpose(purpose), m_set(set) {}

  Purpose m_purpose;
  CRecordset* m_set;
  FieldType m_type = noFieldType;
  UINT m_field = 0;  // index of the next output column
};

// Each binds the column `name` (passed through as given, table alias included) to `value`. Several
// columns may share one member; on loading the last wins. A NULL is read as 0, the empty text or the
// all-zero timestamp.

KYODBC_API void RFX_Long(CFieldExchange* exchange, const char* name, LONG& value);
// The member has 32 bits; ordinals up to 65535 fit.
KYODBC_API void RFX_Int(CFieldExchange* exchange, const char* name, int& value);
KYODBC_API void RFX_Bool(CFieldExchange* exchange, const char* name, BOOL& value);
// Texts longer than `max_length` bytes are cut silently, at a character border, in both directions.
// `column_type` and `scale` are accepted for callers' sake; the described column decides.
KYODBC_API void RFX_Text(CFieldExchange* exchange, const char* name, CString& value, int max_length = 255,
                         int column_type = SQL_VARCHAR, short scale = 0);
// Of a date column the time part is zero. All zero is written as NULL.
KYODBC_API void RFX_Date(CFieldExchange* exchange, const char* name, TIMESTAMP_STRUCT& value);

#endif
