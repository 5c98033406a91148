// What a closed set can tell of its columns, and adding to a closed set.
#include "platform/log.h"
#include "platform/result_codes.h"
#include "recset/kyrecset.h"
#include "recset/restore.h"

namespace {

constexpr const char* kNoRows = "1 = 2";  // a condition that no row meets

bool IsTextType(SWORD sql_type) {
  switch (sql_type) {
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_LONGVARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
    case SQL_WLONGVARCHAR:
      return true;
    default:
      return false;
  }
}

}  // namespace

void CKyRecSet::AddNew() {
  Restore<CString> filter(m_strFilter);
  if (!IsOpen()) {
    m_strFilter = kNoRows;
    Open(m_nOpenType, nullptr, none);
  }
  CRecordset::AddNew();
}

// A filter that selects nothing stays behind when the open succeeded: callers rely on having to set a filter
// before they open such a set.
bool CKyRecSet::OpenWithoutRows() {
  const CString filter = m_strFilter;
  m_strFilter = kNoRows;
  try {
    if (Open(m_nOpenType, nullptr, none)) return true;
  } catch (CDBException* exception) {
    klog::Caught(exception, kBadArgument);
  }
  m_strFilter = filter;
  return false;
}

// False when the column is not known or the set did not open.
bool CKyRecSet::ReadFieldInfo(LONG field, CODBCFieldInfo& info) {
  const bool opened = !IsOpen();
  if (opened && !OpenWithoutRows()) return false;
  bool known = true;
  try {
    GetODBCFieldInfo(GetIntFieldID(field), info);
  } catch (CDBException* exception) {
    klog::Caught(exception, kBadArgument);
    known = false;
  }
  if (opened) Close();
  return known;
}

CString CKyRecSet::GetFieldName(LONG field) {
  CODBCFieldInfo info;
  return ReadFieldInfo(field, info) ? info.m_strName : CString();
}

CString CKyRecSet::GetFieldName(LONG, LONG* error) {
  if (error != nullptr) *error = 1;
  return CString();
}

LONG CKyRecSet::GetFieldSize(LONG field) {
  CODBCFieldInfo info;
  if (!ReadFieldInfo(field, info) || !IsTextType(info.m_nSQLType)) return -1;
  return GetTextLen(info.m_nSQLType, info.m_nPrecision) - 1;
}

short CKyRecSet::GetIntFieldID(LONG) { return -1; }
