// Groups of images of a patient: the column names and the record class of TGroup.
#ifndef KYODBC_TABLES_GROUP_H
#define KYODBC_TABLES_GROUP_H

#include "../platform/cstring.h"
#include "records.h"

// The columns of TGroupRaw in binding order. TGroup has those that tagTGROUP carries.
inline constexpr const char* tGrpCulIntGrpIDPk = "tGrpCulIntGrpIDPk";  // key of the group
inline constexpr const char* tGrpCulIntPatIDFk = "tGrpCulIntPatIDFk";  // patient
inline constexpr const char* tGrpSName = "tGrpSName";                  // name
inline constexpr const char* tGrpTs = "tGrpTs";                        // time of the group
inline constexpr const char* tGrpSLoc = "tGrpSLoc";                    // storage location
inline constexpr const char* tGrpSFile = "tGrpSFile";                  // file name
inline constexpr const char* tGrpUwMakNo = "tGrpUwMakNo";              // number of makros
inline constexpr const char* tGrpSPvwLoc = "tGrpSPvwLoc";              // storage location of the preview
inline constexpr const char* tGrpSPvwFile = "tGrpSPvwFile";            // file name of the preview
inline constexpr const char* tGrpTsLast = "tGrpTsLast";                // time of the last change
inline constexpr const char* tGrpSResponsible = "tGrpSResponsible";    // responsible person
inline constexpr const char* tGrpSAdd = "tGrpSAdd";  // additional data, up to 1,000,000 bytes

// A group of images with every column. A new record has 0 in numbers and flags, empty texts and all-zero
// dates.
class KYODBC_API CTGrpRaw {
 public:
  CTGrpRaw();
  CTGrpRaw(const CTGrpRaw& other);
  CTGrpRaw& operator=(const CTGrpRaw& other);
  virtual ~CTGrpRaw();

  // Takes every field of `record`, texts up to their zero byte or the end of the field. Members that
  // `record` has no field for keep their values.
  void CopyFrom(const tagTGROUP& record);

  LONG m_lGrpID = 0;               // tGrpCulIntGrpIDPk
  LONG m_lPatID = 0;               // tGrpCulIntPatIDFk
  CString m_strName;               // tGrpSName
  TIMESTAMP_STRUCT m_ts = {};      // tGrpTs
  CString m_strLoc;                // tGrpSLoc
  CString m_strFile;               // tGrpSFile
  LONG m_lMakNo = 0;               // tGrpUwMakNo
  CString m_strPvwLoc;             // tGrpSPvwLoc
  CString m_strPvwFile;            // tGrpSPvwFile
  TIMESTAMP_STRUCT m_tsLast = {};  // tGrpTsLast
  CString m_strResponsible;        // tGrpSResponsible
  CString m_strAdd;                // tGrpSAdd
};

#endif
