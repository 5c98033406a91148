// Constancy tests of units: the column names and the record class of TTest.
#ifndef KYODBC_TABLES_TEST_H
#define KYODBC_TABLES_TEST_H

#include "../platform/cstring.h"
#include "records.h"

// The columns of TTestRaw in binding order. TTest has those that tagTTEST carries.
inline constexpr const char* tTstCulIntTstIDPk = "tTstCulIntTstIDPk";    // key of the test
inline constexpr const char* tTstCulIntUnitIDFk = "tTstCulIntUnitIDFk";  // unit tested
inline constexpr const char* tTstSPerson = "tTstSPerson";                // person who made the test
inline constexpr const char* tTstSType = "tTstSType";                    // type
inline constexpr const char* tTstSRegio = "tTstSRegio";                  // region
inline constexpr const char* tTstSName = "tTstSName";                    // name
inline constexpr const char* tTstTs = "tTstTs";                          // time of the test
inline constexpr const char* tTstSResult = "tTstSResult";                // result, up to 1,000,000 bytes
inline constexpr const char* tTstSLoc = "tTstSLoc";                      // storage location
inline constexpr const char* tTstSFile = "tTstSFile";                    // file name
inline constexpr const char* tTstSArcLoc = "tTstSArcLoc";                // location in the archive
inline constexpr const char* tTstSArcFile = "tTstSArcFile";              // file name in the archive
inline constexpr const char* tTstSArcVol = "tTstSArcVol";                // volume of the archive
inline constexpr const char* tTstSArcType = "tTstSArcType";              // type of the archive
inline constexpr const char* tTstDArcOut = "tTstDArcOut";                // date taken out of the archive
inline constexpr const char* tTstDArcIn = "tTstDArcIn";                  // date put into the archive
inline constexpr const char* tTstSAdd = "tTstSAdd";  // additional data, up to 1,000,000 bytes

// A constancy test with every column. A new record has 0 in numbers and flags, empty texts and all-zero
// dates.
class KYODBC_API CTTestRaw {
 public:
  CTTestRaw();
  CTTestRaw(const CTTestRaw& other);
  CTTestRaw& operator=(const CTTestRaw& other);
  virtual ~CTTestRaw();

  // Takes every field of `record`, texts up to their zero byte or the end of the field. Members that
  // `record` has no field for keep their values.
  void CopyFrom(const tagTTEST& record);

  LONG m_lTstID = 0;                // tTstCulIntTstIDPk
  LONG m_lUnitID = 0;               // tTstCulIntUnitIDFk
  CString m_strPerson;              // tTstSPerson
  CString m_strType;                // tTstSType
  CString m_strRegio;               // tTstSRegio
  CString m_strName;                // tTstSName
  TIMESTAMP_STRUCT m_ts = {};       // tTstTs
  CString m_strResult;              // tTstSResult
  CString m_strLoc;                 // tTstSLoc
  CString m_strFile;                // tTstSFile
  CString m_strArcLoc;              // tTstSArcLoc
  CString m_strArcFile;             // tTstSArcFile
  CString m_strArcVol;              // tTstSArcVol
  CString m_strArcType;             // tTstSArcType
  TIMESTAMP_STRUCT m_dArcOut = {};  // tTstDArcOut
  TIMESTAMP_STRUCT m_dArcIn = {};   // tTstDArcIn
  CString m_strAdd;                 // tTstSAdd
};

#endif
