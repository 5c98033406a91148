// Diagnoses recorded on images: the column names and the record class of TDiagnosis.
#ifndef KYODBC_TABLES_DIAGNOSIS_H
#define KYODBC_TABLES_DIAGNOSIS_H

#include "../platform/cstring.h"
#include "records.h"

// The columns of TDiagnosisRaw in binding order. TDiagnosis has those that tagTDIAGNOSIS carries.
inline constexpr const char* tDiagCulIntDiagIDPk = "tDiagCulIntDiagIDPk";  // key of the diagnosis
inline constexpr const char* tDiagCulIntImgIDFk = "tDiagCulIntImgIDFk";    // image diagnosed
inline constexpr const char* tDiagCulIntDrIDFk = "tDiagCulIntDrIDFk";      // diagnosing doctor
inline constexpr const char* tDiagSRegio = "tDiagSRegio";                  // region
inline constexpr const char* tDiagTs = "tDiagTs";                          // time of the diagnosis
inline constexpr const char* tDiagSCode = "tDiagSCode";                    // code
inline constexpr const char* tDiagSText = "tDiagSText";                    // text, up to 1,000,000 bytes
inline constexpr const char* tDiagSResponsible = "tDiagSResponsible";      // responsible person
inline constexpr const char* tDiagIntMakID =
    "tDiagIntMakID";                                   // makro the diagnosis belongs to; not a declared key
inline constexpr const char* tDiagSAdd = "tDiagSAdd";  // additional data, up to 1,000,000 bytes

// A diagnosis with every column. A new record has 0 in numbers and flags, empty texts and all-zero dates.
class KYODBC_API CTDiagRaw {
 public:
  CTDiagRaw();
  CTDiagRaw(const CTDiagRaw& other);
  CTDiagRaw& operator=(const CTDiagRaw& other);
  virtual ~CTDiagRaw();

  // Takes every field of `record`, texts up to their zero byte or the end of the field. Members that
  // `record` has no field for keep their values.
  void CopyFrom(const tagTDIAGNOSIS& record);

  LONG m_lDiagID = 0;          // tDiagCulIntDiagIDPk
  LONG m_lImgID = 0;           // tDiagCulIntImgIDFk
  LONG m_lDrID = 0;            // tDiagCulIntDrIDFk
  CString m_strRegio;          // tDiagSRegio
  TIMESTAMP_STRUCT m_ts = {};  // tDiagTs
  CString m_strCode;           // tDiagSCode
  CString m_strText;           // tDiagSText
  CString m_strResponsible;    // tDiagSResponsible
  LONG m_lMakID = 0;           // tDiagIntMakID
  CString m_strAdd;            // tDiagSAdd
};

#endif
