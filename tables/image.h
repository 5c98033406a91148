// Images of patients: the column names and the record class of TImage.
#ifndef KYODBC_TABLES_IMAGE_H
#define KYODBC_TABLES_IMAGE_H

#include "../platform/cstring.h"
#include "records.h"

// The columns of TImageRaw in binding order. TImage has those that tagTIMAGE carries.
inline constexpr const char* tImgCulIntImgIDPk = "tImgCulIntImgIDPk";    // key of the image
inline constexpr const char* tImgCulIntPatIDFk = "tImgCulIntPatIDFk";    // patient
inline constexpr const char* tImgCulIntUnitIDFk = "tImgCulIntUnitIDFk";  // unit that took the image
inline constexpr const char* tImgCulIntDrIDFk = "tImgCulIntDrIDFk";      // doctor
inline constexpr const char* tImgSType = "tImgSType";                    // type
inline constexpr const char* tImgSRegio = "tImgSRegio";                  // region
inline constexpr const char* tImgSName = "tImgSName";                    // name
inline constexpr const char* tImgTs = "tImgTs";                          // time of the image
inline constexpr const char* tImgSPreg = "tImgSPreg";                    // one character, free for the caller
inline constexpr const char* tImgSOrdType = "tImgSOrdType";              // type that was ordered
inline constexpr const char* tImgSOrdRegio = "tImgSOrdRegio";            // region that was ordered
inline constexpr const char* tImgSOrdReason = "tImgSOrdReason";          // reason of the order
inline constexpr const char* tImgSLoc = "tImgSLoc";                      // storage location
inline constexpr const char* tImgSFile = "tImgSFile";                    // file name
inline constexpr const char* tImgSPvwLoc = "tImgSPvwLoc";                // storage location of the preview
inline constexpr const char* tImgSPvwFile = "tImgSPvwFile";              // file name of the preview
inline constexpr const char* tImgSArcLoc = "tImgSArcLoc";                // location in the archive
inline constexpr const char* tImgSArcFile = "tImgSArcFile";              // file name in the archive
inline constexpr const char* tImgSArcType = "tImgSArcType";              // type of the archive
inline constexpr const char* tImgSArcVol = "tImgSArcVol";                // volume of the archive
inline constexpr const char* tImgDArcOut = "tImgDArcOut";                // date taken out of the archive
inline constexpr const char* tImgDArcIn = "tImgDArcIn";                  // date put into the archive
inline constexpr const char* tImgCulIntMakIDLast =
    "tImgCulIntMakIDLast";  // last makro of the image; not a declared key
inline constexpr const char* tImgSResponsible = "tImgSResponsible";  // responsible person
inline constexpr const char* tImgIntRefImgID =
    "tImgIntRefImgID";                               // image that this image refers to; not a declared key
inline constexpr const char* tImgSAdd = "tImgSAdd";  // additional data, up to 1,000,000 bytes

// An image with every column. A new record has 0 in numbers and flags, empty texts and all-zero dates.
// The members behind the key follow tagTIMAGE, not the binding order.
class KYODBC_API CTImageRaw {
 public:
  CTImageRaw();
  CTImageRaw(const CTImageRaw& other);
  CTImageRaw& operator=(const CTImageRaw& other);
  virtual ~CTImageRaw();

  // Takes every field of `record`, texts up to their zero byte or the end of the field. Members that
  // `record` has no field for keep their values.
  void CopyFrom(const tagTIMAGE& record);

  LONG m_lImgID = 0;                // tImgCulIntImgIDPk
  LONG m_lPatID = 0;                // tImgCulIntPatIDFk
  LONG m_lUnitID = 0;               // tImgCulIntUnitIDFk
  LONG m_lDrID = 0;                 // tImgCulIntDrIDFk
  CString m_strType;                // tImgSType
  CString m_strRegio;               // tImgSRegio
  CString m_strName;                // tImgSName
  TIMESTAMP_STRUCT m_ts = {};       // tImgTs
  CString m_strPreg;                // tImgSPreg
  CString m_strOrdType;             // tImgSOrdType
  CString m_strOrdRegio;            // tImgSOrdRegio
  CString m_strOrdReason;           // tImgSOrdReason
  CString m_strArcType;             // tImgSArcType
  CString m_strArcLoc;              // tImgSArcLoc
  CString m_strArcFile;             // tImgSArcFile
  CString m_strArcVol;              // tImgSArcVol
  TIMESTAMP_STRUCT m_dArcOut = {};  // tImgDArcOut
  TIMESTAMP_STRUCT m_dArcIn = {};   // tImgDArcIn
  CString m_strPvwLoc;              // tImgSPvwLoc
  CString m_strPvwFile;             // tImgSPvwFile
  CString m_strLoc;                 // tImgSLoc
  CString m_strFile;                // tImgSFile
  LONG m_lMakIDLast = 0;            // tImgCulIntMakIDLast
  CString m_strResponsible;         // tImgSResponsible
  LONG m_lRefImgID = 0;             // tImgIntRefImgID
  CString m_strAdd;                 // tImgSAdd
};

#endif
