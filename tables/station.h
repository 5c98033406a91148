// Workstations: the column names and the record class of TStation.
#ifndef KYODBC_TABLES_STATION_H
#define KYODBC_TABLES_STATION_H

#include "../platform/cstring.h"
#include "records.h"

// The columns of TStationRaw in binding order. TStation has those that tagTSTATION carries.
inline constexpr const char* tStatCulIntStatIDPk = "tStatCulIntStatIDPk";  // key of the station
inline constexpr const char* tStatSName = "tStatSName";                    // name
inline constexpr const char* tStatSAdd = "tStatSAdd";  // additional data, up to 1,000,000 bytes

// A station with every column. A new record has 0 in numbers and flags, empty texts and all-zero dates.
class KYODBC_API CTStatRaw {
 public:
  CTStatRaw();
  CTStatRaw(const CTStatRaw& other);
  CTStatRaw& operator=(const CTStatRaw& other);
  virtual ~CTStatRaw();

  // Takes every field of `record`, texts up to their zero byte or the end of the field. Members that
  // `record` has no field for keep their values.
  void CopyFrom(const tagTSTATION& record);

  LONG m_lStatID = 0;  // tStatCulIntStatIDPk
  CString m_strName;   // tStatSName
  CString m_strAdd;    // tStatSAdd
};

#endif
