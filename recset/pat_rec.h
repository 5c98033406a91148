// Patients: how they are browsed and how a record selects one.
#ifndef KYODBC_RECSET_PAT_REC_H
#define KYODBC_RECSET_PAT_REC_H

#include "recset/kyrecset.h"
#include "tables/records.h"

class CPatRec : public CKyRecSet {
 public:
  CPatRec(CDatabase* database, const char* owner);
  ~CPatRec() override;

  CString GetDefaultConnect() override;
  CString GetDefaultSQL() override;
  void DoFieldExchange(CFieldExchange* exchange) override;
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override;
  // Stands on the first row whose leading sort key is not below `text`. Returns its position; 0 when there is
  // none (the first row is then current) or when the set is closed or its leading key has none of the bits
  // of 0x37 set (the position is then kept).
  virtual LONG MoveToSortValue(const char* text);
  // Moves as GetByPos does and copies that row. Returns 0; 64 when there is none; 1 for a null record.
  virtual WORD GetRecByPos(tagTPATIENT* record, LONG* position);

  // The current row into `record`, texts cut to their fields.
  void CopyOut(tagTPATIENT* record) const;
  // The fields of `record` selected by m_dwFieldMask into the members. With one of the identifiers that the
  // display identifier derives from, its bit is set as well.
  void CopyIn(const tagTPATIENT* record);
  // Makes m_strFilter select the patient that `record` describes: by its key, or for key 0 by its natural
  // key, whose mask bits are then cleared. Returns 0, and changes nothing, when `record` is null or
  // describes none. The natural key is the Slida identifier, else the server identifier, else surname,
  // first name and date of birth.
  BOOL SelectRow(const tagTPATIENT* record);

  // Single rows, through short-lived sets of this class; defined in rowops/patient.cpp.
  WORD AddRow(tagTPATIENT* record);
  WORD EditRow(tagTPATIENT* record, DWORD mask);
  WORD DeleteRow(const tagTPATIENT* record);
  WORD GetRow(tagTPATIENT* record);
  // Recomputes the fields selected by m_dwFieldMask that derive from others: entry date, last display and
  // display identifier. Between CopyIn and Update.
  void RefreshDerived();

  // Bound members, in the order of the columns; the key is m_lID.
  LONG m_lDrID = 0;
  TIMESTAMP_STRUCT m_dBirthday = {};
  BOOL m_bSelect = FALSE;
  CString m_strExtPatID;
  CString m_strFirstname;
  CString m_strName;
  CString m_strSex;
  CString m_strSlidaID;
  CString m_strSocID;
  CString m_strSrvID;
  TIMESTAMP_STRUCT m_dEntry = {};
  CString m_strIDDisp;
  TIMESTAMP_STRUCT m_tsLastDisp = {};

 protected:
  // MoveToSortValue with the rows before `text` counted on `counter`, a set of the same class.
  LONG MoveBehindLower(CPatRec& counter, const char* text);

 private:
  BOOL SelectByName(const tagTPATIENT& record);
};

#endif
