#include "platform/cfieldexchange.h"

#include "platform/crecordset.h"
#include "platform/field_access.h"
#include "platform/row_fields.h"
#include "platform/row_source.h"

BOOL CFieldExchange::IsFieldType(UINT* field) const {
  if (m_type != outputColumn) return FALSE;
  if (field != nullptr) *field = m_field;
  return TRUE;
}

void FieldAccess::Exchange(CFieldExchange* exchange, const FieldRef& ref) {
  if (exchange->m_type != CFieldExchange::outputColumn) return;
  CRecordset& set = *exchange->m_set;
  const UINT index = exchange->m_field++;
  if (exchange->m_purpose == CFieldExchange::kDescribe) {
    set.m_fields->Add(ref);
    return;
  }
  // A set that names more columns than it did when it was opened is left alone with the surplus.
  if (index >= set.m_fields->Count()) return;
  const RETCODE code = set.m_fields->Load(index, *set.m_rows, set.m_rows->RowIdentity());
  if (!odbc::Succeeded(code)) set.ThrowDBException(code);
  if (!set.m_fields->IsBuffered(index)) set.m_columnsRead.push_back(static_cast<short>(index));
}

void FieldAccess::ExchangeDay(CFieldExchange* exchange, const char* name, TIMESTAMP_STRUCT& value) {
  Exchange(exchange, {name, FieldKind::kDate, &value, 0, true});
}

void RFX_Long(CFieldExchange* exchange, const char* name, LONG& value) {
  FieldAccess::Exchange(exchange, {name, FieldKind::kLong, &value, 0});
}

void RFX_Int(CFieldExchange* exchange, const char* name, int& value) {
  FieldAccess::Exchange(exchange, {name, FieldKind::kInt, &value, 0});
}

void RFX_Bool(CFieldExchange* exchange, const char* name, BOOL& value) {
  FieldAccess::Exchange(exchange, {name, FieldKind::kBool, &value, 0});
}

void RFX_Text(CFieldExchange* exchange, const char* name, CString& value, int max_length, int /*column_type*/,
              short /*scale*/) {
  FieldAccess::Exchange(exchange, {name, FieldKind::kText, &value, max_length});
}

void RFX_Date(CFieldExchange* exchange, const char* name, TIMESTAMP_STRUCT& value) {
  FieldAccess::Exchange(exchange, {name, FieldKind::kDate, &value, 0});
}
