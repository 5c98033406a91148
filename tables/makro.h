// Makros of images: the column names and the record class of TMakro.
#ifndef KYODBC_TABLES_MAKRO_H
#define KYODBC_TABLES_MAKRO_H

#include "../platform/cstring.h"
#include "records.h"

// The columns of TMakroRaw in binding order. TMakro has those that tagTMAKRO carries.
inline constexpr const char* tMakCulIntMakIDPk = "tMakCulIntMakIDPk";  // key of the makro
inline constexpr const char* tMakCulIntImgIDFk = "tMakCulIntImgIDFk";  // image
inline constexpr const char* tMakSName = "tMakSName";                  // name
inline constexpr const char* tMakTsLast = "tMakTsLast";                // time of the last change
inline constexpr const char* tMakSLoc = "tMakSLoc";                    // storage location
inline constexpr const char* tMakSFile = "tMakSFile";                  // file name
inline constexpr const char* tMakUwNo = "tMakUwNo";                    // ordinal within the image
inline constexpr const char* tMakSAdd = "tMakSAdd";          // additional data, up to 1,000,000 bytes
inline constexpr const char* tMakSRegio = "tMakSRegio";      // region
inline constexpr const char* tMakTsCreate = "tMakTsCreate";  // time of creation

// A makro with every column. A new record has 0 in numbers and flags, empty texts and all-zero dates.
class KYODBC_API CTMakRaw {
 public:
  CTMakRaw();
  CTMakRaw(const CTMakRaw& other);
  CTMakRaw& operator=(const CTMakRaw& other);
  virtual ~CTMakRaw();

  // Takes every field of `record`, texts up to their zero byte or the end of the field. Members that
  // `record` has no field for keep their values.
  void CopyFrom(const tagTMAKRO& record);

  LONG m_lMakID = 0;                 // tMakCulIntMakIDPk
  LONG m_lImgID = 0;                 // tMakCulIntImgIDFk
  CString m_strName;                 // tMakSName
  TIMESTAMP_STRUCT m_tsLast = {};    // tMakTsLast
  CString m_strLoc;                  // tMakSLoc
  CString m_strFile;                 // tMakSFile
  LONG m_lNo = 0;                    // tMakUwNo
  CString m_strAdd;                  // tMakSAdd
  CString m_strRegio;                // tMakSRegio
  TIMESTAMP_STRUCT m_tsCreate = {};  // tMakTsCreate
};

#endif
