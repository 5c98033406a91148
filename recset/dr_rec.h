// Doctors: how they are browsed and how a record selects one.
#ifndef KYODBC_RECSET_DR_REC_H
#define KYODBC_RECSET_DR_REC_H

#include "recset/kyrecset.h"
#include "tables/records.h"

class CDrRec : public CKyRecSet {
 public:
  CDrRec(CDatabase* database, const char* owner);
  ~CDrRec() override;

  CString GetDefaultConnect() override;
  CString GetDefaultSQL() override;
  void DoFieldExchange(CFieldExchange* exchange) override;
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override;
  // Moves as GetByPos does and copies that row. Returns 0; 64 when there is none; 1 for a null record.
  virtual WORD GetRecByPos(tagTDOCTOR* record, LONG* position);

  // The current row into `record`, texts cut to their fields.
  void CopyOut(tagTDOCTOR* record) const;
  // The fields of `record` selected by m_dwFieldMask into the members.
  void CopyIn(const tagTDOCTOR* record);
  // Makes m_strFilter select the doctor that `record` describes: by its key, or for key 0 by its natural
  // key, whose mask bits are then cleared. Returns 0, and changes nothing, when `record` is null or
  // describes none. The natural key is the server identifier, or without one the name.
  BOOL SelectRow(const tagTDOCTOR* record);

  // Single rows, through short-lived sets of this class; defined in rowops/doctor.cpp.
  WORD AddRow(tagTDOCTOR* record);
  WORD EditRow(tagTDOCTOR* record, DWORD mask);
  WORD DeleteRow(const tagTDOCTOR* record);
  WORD GetRow(tagTDOCTOR* record);

  // Bound members, in the order of the columns; the key is m_lID.
  CString m_strName;
  CString m_strSrvID;
};

#endif
