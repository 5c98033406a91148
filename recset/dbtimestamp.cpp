#include "recset/dbtimestamp.h"

namespace {

// Rows already written carry exactly this date.
constexpr TIMESTAMP_STRUCT kNoDate = {1880, 1, 1, 0, 0, 0, 0};

TIMESTAMP_STRUCT FromDateTime(const COleDateTime& value) {
  if (value.GetStatus() != COleDateTime::valid) return kNoDate;
  TIMESTAMP_STRUCT result{};
  result.year = static_cast<SQLSMALLINT>(value.GetYear());
  result.month = static_cast<SQLUSMALLINT>(value.GetMonth());
  result.day = static_cast<SQLUSMALLINT>(value.GetDay());
  result.hour = static_cast<SQLUSMALLINT>(value.GetHour());
  result.minute = static_cast<SQLUSMALLINT>(value.GetMinute());
  result.second = static_cast<SQLUSMALLINT>(value.GetSecond());
  return result;
}

// Invalid when the fields name no date and time of the years 100 to 9999.
COleDateTime ToDateTime(const TIMESTAMP_STRUCT& value) {
  return COleDateTime(value.year, value.month, value.day, value.hour, value.minute, value.second);
}

}  // namespace

CDBTimeStamp::~CDBTimeStamp() = default;

CDBTimeStamp::CDBTimeStamp() : tagTIMESTAMP_STRUCT(kNoDate) {}
CDBTimeStamp::CDBTimeStamp(const TIMESTAMP_STRUCT& value) : tagTIMESTAMP_STRUCT(value) {}
CDBTimeStamp::CDBTimeStamp(const CDBTimeStamp& value) = default;
CDBTimeStamp::CDBTimeStamp(const COleDateTime& value) : tagTIMESTAMP_STRUCT(FromDateTime(value)) {}

CDBTimeStamp& CDBTimeStamp::operator=(const TIMESTAMP_STRUCT& value) {
  tagTIMESTAMP_STRUCT::operator=(value);
  return *this;
}

CDBTimeStamp& CDBTimeStamp::operator=(const CDBTimeStamp& value) = default;

CDBTimeStamp& CDBTimeStamp::operator=(const COleDateTime& value) { return *this = FromDateTime(value); }

int CDBTimeStamp::operator==(const CDBTimeStamp& other) const {
  return year == other.year && month == other.month && day == other.day && hour == other.hour &&
         minute == other.minute && second == other.second && fraction == other.fraction;
}

// Comparing date-time values throws nothing, so there is no failure to answer 0 for.
int CDBTimeStamp::operator>(const CDBTimeStamp& other) const { return ToDateTime(*this) > ToDateTime(other); }

int CDBTimeStamp::operator<(const CDBTimeStamp& other) const { return !(*this > other) && !(*this == other); }

int CDBTimeStamp::IsNull() const { return *this == CDBTimeStamp(); }
