// X-ray units: the column names and the record class of TUnit.
#ifndef KYODBC_TABLES_UNIT_H
#define KYODBC_TABLES_UNIT_H

#include "../platform/cstring.h"
#include "records.h"

// The columns of TUnitRaw in binding order. TUnit has those that tagTUNIT carries.
inline constexpr const char* tUnitCulIntUnitIDPk = "tUnitCulIntUnitIDPk";  // key of the unit
inline constexpr const char* tUnitSType = "tUnitSType";                    // type
inline constexpr const char* tUnitSName = "tUnitSName";                    // name
inline constexpr const char* tUnitDAccept = "tUnitDAccept";                // date of acceptance
inline constexpr const char* tUnitSCtrlUnitSNo = "tUnitSCtrlUnitSNo";  // serial number of the control unit
inline constexpr const char* tUnitSSensSNo = "tUnitSSensSNo";          // serial number of the sensor
inline constexpr const char* tUnitSGenSNo = "tUnitSGenSNo";            // serial number of the generator
inline constexpr const char* tUnitSTubeSNo = "tUnitSTubeSNo";          // serial number of the tube
inline constexpr const char* tUnitSCtrlElemSNo = "tUnitSCtrlElemSNo";  // serial number of the control element
inline constexpr const char* tUnitSConeSNo = "tUnitSConeSNo";          // serial number of the cone
inline constexpr const char* tUnitSTestBodySNo = "tUnitSTestBodySNo";  // serial number of the test body
inline constexpr const char* tUnitSAdd = "tUnitSAdd";  // additional data, up to 1,000,000 bytes

// An X-ray unit with every column. A new record has 0 in numbers and flags, empty texts and all-zero dates.
class KYODBC_API CTUnitRaw {
 public:
  CTUnitRaw();
  CTUnitRaw(const CTUnitRaw& other);
  CTUnitRaw& operator=(const CTUnitRaw& other);
  virtual ~CTUnitRaw();

  // Takes every field of `record`, texts up to their zero byte or the end of the field. Members that
  // `record` has no field for keep their values.
  void CopyFrom(const tagTUNIT& record);

  LONG m_lUnitID = 0;               // tUnitCulIntUnitIDPk
  CString m_strType;                // tUnitSType
  CString m_strName;                // tUnitSName
  TIMESTAMP_STRUCT m_dAccept = {};  // tUnitDAccept
  CString m_strCtrlUnitSNo;         // tUnitSCtrlUnitSNo
  CString m_strSensSNo;             // tUnitSSensSNo
  CString m_strGenSNo;              // tUnitSGenSNo
  CString m_strTubeSNo;             // tUnitSTubeSNo
  CString m_strCtrlElemSNo;         // tUnitSCtrlElemSNo
  CString m_strConeSNo;             // tUnitSConeSNo
  CString m_strTestBodySNo;         // tUnitSTestBodySNo
  CString m_strAdd;                 // tUnitSAdd
};

#endif
