// Doctors: the column names and the record class of TDoctor.
#ifndef KYODBC_TABLES_DOCTOR_H
#define KYODBC_TABLES_DOCTOR_H

#include "../platform/cstring.h"
#include "records.h"

// The columns of TDoctorRaw in binding order. TDoctor has those that tagTDOCTOR carries.
inline constexpr const char* tDrCulIntDrIDPk = "tDrCulIntDrIDPk";  // key of the doctor
inline constexpr const char* tDrSSrvID =
    "tDrSSrvID";                                     // server identifier, the first one used to find a doctor
inline constexpr const char* tDrSName = "tDrSName";  // name
inline constexpr const char* tDrFAct = "tDrFAct";    // 1: the doctor is active, 0: not
inline constexpr const char* tDrSAdd = "tDrSAdd";    // additional data, up to 1,000,000 bytes

// A doctor with every column. A new record has 0 in numbers and flags, empty texts and all-zero dates.
class KYODBC_API CTDrRaw {
 public:
  CTDrRaw();
  CTDrRaw(const CTDrRaw& other);
  CTDrRaw& operator=(const CTDrRaw& other);
  virtual ~CTDrRaw();

  // Takes every field of `record`, texts up to their zero byte or the end of the field. Members that
  // `record` has no field for keep their values.
  void CopyFrom(const tagTDOCTOR& record);

  LONG m_lDrID = 0;     // tDrCulIntDrIDPk
  CString m_strSrvID;   // tDrSSrvID
  CString m_strName;    // tDrSName
  BOOL m_bAct = FALSE;  // tDrFAct
  CString m_strAdd;     // tDrSAdd
};

#endif
