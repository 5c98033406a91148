#include "frame/dynamic_rec.h"

#include "platform/log.h"
#include "platform/result_codes.h"

namespace {

// `column` is a name or an index. The base class is named, for its overloads that read into variants.
template <class Column>
CDBVariant Read(CRecordset& set, Column column) {
  CDBVariant value;
  set.GetFieldValue(column, value);
  return value;
}

void SetTime(const CDBVariant& value, COleDateTime& target) {
  if (value.m_dwType != DBVT_DATE) {
    target.SetStatus(value.m_dwType == DBVT_NULL ? COleDateTime::null : COleDateTime::invalid);
    return;
  }
  const TIMESTAMP_STRUCT& time = *value.m_pdate;
  target.SetDateTime(time.year, time.month, time.day, time.hour, time.minute, time.second);
}

}  // namespace

CDynamicRec::CDynamicRec() : CKyRecSet(nullptr, "") {}

CDynamicRec::~CDynamicRec() = default;

// Nothing but the base's work: the operation is declared so that callers' sets override it at this class.
BOOL CDynamicRec::Open(UINT open_type, const char* sql, DWORD options) {
  return CKyRecSet::Open(open_type, sql, options);
}

BOOL CDynamicRec::ExecuteSProc(const char* name) {
  CString call;
  call.Format("{call %s%s}", m_strOwner, CString(name));
  return Open(snapshot, call, executeDirect);
}

CString CDynamicRec::GetFieldName(LONG column, LONG* error) {
  LONG ignored = 0;
  LONG& result = error != nullptr ? *error : ignored;
  result = 0;
  CODBCFieldInfo info;
  if (column < 0 || column >= m_nResultCols) {
    result = kBadArgument;
    return CString();
  }
  try {
    GetODBCFieldInfo(static_cast<short>(column), info);
  } catch (CDBException* exception) {
    result = klog::Caught(exception, kSetsNotCreated);
    return CString();
  }
  return info.m_strName;
}

void CDynamicRec::GetFieldValue(const char* name, CString& value) { CRecordset::GetFieldValue(name, value); }
void CDynamicRec::GetFieldValue(short column, CString& value) { CRecordset::GetFieldValue(column, value); }

// The union's member of the type asked for, whatever the variant holds: callers rely on no conversion.
void CDynamicRec::GetFieldValue(const char* name, LONG& value) { value = Read(*this, name).m_lVal; }
void CDynamicRec::GetFieldValue(short column, LONG& value) { value = Read(*this, column).m_lVal; }
void CDynamicRec::GetFieldValue(const char* name, short& value) { value = Read(*this, name).m_iVal; }
void CDynamicRec::GetFieldValue(short column, short& value) { value = Read(*this, column).m_iVal; }
void CDynamicRec::GetFieldValue(const char* name, long& value) { value = Read(*this, name).m_lVal; }
void CDynamicRec::GetFieldValue(short column, long& value) { value = Read(*this, column).m_lVal; }

void CDynamicRec::GetFieldValue(const char* name, COleDateTime& value) { SetTime(Read(*this, name), value); }
void CDynamicRec::GetFieldValue(short column, COleDateTime& value) { SetTime(Read(*this, column), value); }
