// Configuration entries: the column names and the record class of TConfig.
#ifndef KYODBC_TABLES_CONFIG_H
#define KYODBC_TABLES_CONFIG_H

#include "../platform/cstring.h"
#include "records.h"

// The columns of TConfigRaw in binding order. TConfig has those that tagTCONFIG carries.
inline constexpr const char* tCfgCulIntCfgIDPk = "tCfgCulIntCfgIDPk";    // key of the entry
inline constexpr const char* tCfgCulIntDrIDFk = "tCfgCulIntDrIDFk";      // doctor the entry belongs to
inline constexpr const char* tCfgCulIntStatIDFk = "tCfgCulIntStatIDFk";  // station the entry belongs to
inline constexpr const char* tCfgSKey = "tCfgSKey";                      // name of the setting
inline constexpr const char* tCfgSSet = "tCfgSSet";                      // its value
inline constexpr const char* tCfgSAdd = "tCfgSAdd";        // additional data, up to 1,000,000 bytes
inline constexpr const char* tCfgSPerson = "tCfgSPerson";  // person

// A configuration entry with every column. A new record has 0 in numbers and flags, empty texts and all-zero
// dates.
class KYODBC_API CTCfgRaw {
 public:
  CTCfgRaw();
  CTCfgRaw(const CTCfgRaw& other);
  CTCfgRaw& operator=(const CTCfgRaw& other);
  virtual ~CTCfgRaw();

  // Takes every field of `record`, texts up to their zero byte or the end of the field. Members that
  // `record` has no field for keep their values.
  void CopyFrom(const tagTCONFIG& record);

  LONG m_lCfgID = 0;    // tCfgCulIntCfgIDPk
  LONG m_lDrID = 0;     // tCfgCulIntDrIDFk
  LONG m_lStatID = 0;   // tCfgCulIntStatIDFk
  CString m_strKey;     // tCfgSKey
  CString m_strSet;     // tCfgSSet
  CString m_strAdd;     // tCfgSAdd
  CString m_strPerson;  // tCfgSPerson
};

#endif
