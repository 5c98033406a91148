#include "platform/cfieldinfo.h"

#include <cstring>

// Zeroing m_storage zeroes every member of the union.
static_assert(sizeof(double) == 8 && sizeof(void*) == 8);

CDBVariant::CDBVariant() : m_dwType(DBVT_NULL), m_storage{} {}

CDBVariant::CDBVariant(const CDBVariant& other) : CDBVariant() { *this = other; }

CDBVariant& CDBVariant::operator=(const CDBVariant& other) {
  switch (other.m_dwType) {
    case DBVT_DATE:
      SetDate(*other.m_pdate);
      break;
    case DBVT_STRING:
      SetString(*other.m_pstring);
      break;
    case DBVT_BINARY:
      SetBinary(*other.m_pbinary);
      break;
    default:
      if (this == &other) break;
      Clear();
      std::memcpy(m_storage, other.m_storage, sizeof m_storage);
      m_dwType = other.m_dwType;
  }
  return *this;
}

CDBVariant::~CDBVariant() { Clear(); }

void CDBVariant::Clear() {
  if (m_dwType == DBVT_DATE) delete m_pdate;
  if (m_dwType == DBVT_STRING) delete m_pstring;
  if (m_dwType == DBVT_BINARY) delete m_pbinary;
  m_dwType = DBVT_NULL;
  std::memset(m_storage, 0, sizeof m_storage);
}

void CDBVariant::SetBool(BOOL value) {
  Clear();
  m_dwType = DBVT_BOOL;
  m_boolVal = value;
}

void CDBVariant::SetUChar(unsigned char value) {
  Clear();
  m_dwType = DBVT_UCHAR;
  m_chVal = value;
}

void CDBVariant::SetShort(short value) {
  Clear();
  m_dwType = DBVT_SHORT;
  m_iVal = value;
}

void CDBVariant::SetLong(LONG value) {
  Clear();
  m_dwType = DBVT_LONG;
  m_lVal = value;
}

void CDBVariant::SetSingle(float value) {
  Clear();
  m_dwType = DBVT_SINGLE;
  m_fltVal = value;
}

void CDBVariant::SetDouble(double value) {
  Clear();
  m_dwType = DBVT_DOUBLE;
  m_dblVal = value;
}

// The copies below are made before Clear: the argument may be the value that it frees.

void CDBVariant::SetDate(const TIMESTAMP_STRUCT& value) {
  auto* copy = new TIMESTAMP_STRUCT(value);
  Clear();
  m_dwType = DBVT_DATE;
  m_pdate = copy;
}

void CDBVariant::SetString(const CString& value) {
  auto* copy = new CString(value);
  Clear();
  m_dwType = DBVT_STRING;
  m_pstring = copy;
}

void CDBVariant::SetBinary(const CString& value) {
  auto* copy = new CString(value);
  Clear();
  m_dwType = DBVT_BINARY;
  m_pbinary = copy;
}
