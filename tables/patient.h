// Patients: the column names and the record class of TPatient.
#ifndef KYODBC_TABLES_PATIENT_H
#define KYODBC_TABLES_PATIENT_H

#include "../platform/cstring.h"
#include "records.h"

// The columns of TPatientRaw in binding order. TPatient has those that tagTPATIENT carries.
inline constexpr const char* tPatCulIntPatIDPk = "tPatCulIntPatIDPk";  // key of the patient
inline constexpr const char* tPatCulIntDrIDFk = "tPatCulIntDrIDFk";    // responsible doctor
inline constexpr const char* tPatSExtPatID = "tPatSExtPatID";          // identifier in an external system
inline constexpr const char* tPatSSrvID = "tPatSSrvID";                // server identifier
inline constexpr const char* tPatSSlidaID =
    "tPatSSlidaID";  // Slida identifier, the first one used to find a patient
inline constexpr const char* tPatSSocID = "tPatSSocID";              // social-insurance identifier
inline constexpr const char* tPatSName = "tPatSName";                // surname
inline constexpr const char* tPatSFirstname = "tPatSFirstname";      // first name
inline constexpr const char* tPatDBirthday = "tPatDBirthday";        // date of birth
inline constexpr const char* tPatSSex = "tPatSSex";                  // "m", "f" or "-"
inline constexpr const char* tPatDEntry = "tPatDEntry";              // date of entry
inline constexpr const char* tPatTsLastDisp = "tPatTsLastDisp";      // time of the last display
inline constexpr const char* tPatSIDDisp = "tPatSIDDisp";            // identifier to display
inline constexpr const char* tPatFSelect = "tPatFSelect";            // 1: the patient is selected, 0: not
inline constexpr const char* tPatSResponsible = "tPatSResponsible";  // responsible person
inline constexpr const char* tPatSAdd = "tPatSAdd";                  // additional data, up to 1,000,000 bytes

// A patient with every column. A new record has 0 in numbers and flags, empty texts and all-zero dates.
class KYODBC_API CTPatientRaw {
 public:
  CTPatientRaw();
  CTPatientRaw(const CTPatientRaw& other);
  CTPatientRaw& operator=(const CTPatientRaw& other);
  virtual ~CTPatientRaw();

  // Takes every field of `record`, texts up to their zero byte or the end of the field. Members that
  // `record` has no field for keep their values.
  void CopyFrom(const tagTPATIENT& record);

  LONG m_lPatID = 0;                   // tPatCulIntPatIDPk
  LONG m_lDrID = 0;                    // tPatCulIntDrIDFk
  CString m_strExtPatID;               // tPatSExtPatID
  CString m_strSrvID;                  // tPatSSrvID
  CString m_strSlidaID;                // tPatSSlidaID
  CString m_strSocID;                  // tPatSSocID
  CString m_strName;                   // tPatSName
  CString m_strFirstname;              // tPatSFirstname
  TIMESTAMP_STRUCT m_dBirthday = {};   // tPatDBirthday
  CString m_strSex;                    // tPatSSex
  TIMESTAMP_STRUCT m_dEntry = {};      // tPatDEntry
  TIMESTAMP_STRUCT m_tsLastDisp = {};  // tPatTsLastDisp
  CString m_strIDDisp;                 // tPatSIDDisp
  BOOL m_bSelect = FALSE;              // tPatFSelect
  CString m_strResponsible;            // tPatSResponsible
  CString m_strAdd;                    // tPatSAdd
};

#endif
