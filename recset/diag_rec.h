// Diagnoses: how they are browsed and how a record selects one.
#ifndef KYODBC_RECSET_DIAG_REC_H
#define KYODBC_RECSET_DIAG_REC_H

#include "recset/kyrecset.h"
#include "tables/records.h"

class CDiagRec : public CKyRecSet {
 public:
  CDiagRec(CDatabase* database, const char* owner);
  ~CDiagRec() override;

  CString GetDefaultConnect() override;
  CString GetDefaultSQL() override;
  void DoFieldExchange(CFieldExchange* exchange) override;
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override;
  // Moves as GetByPos does and copies that row. Returns 0; 64 when there is none; 1 for a null record.
  virtual WORD GetRecByPos(tagTDIAGNOSIS* record, LONG* position);

  // The current row into `record`, texts cut to their fields.
  void CopyOut(tagTDIAGNOSIS* record) const;
  // The fields of `record` selected by m_dwFieldMask into the members.
  void CopyIn(const tagTDIAGNOSIS* record);
  // Makes m_strFilter select the diagnosis with the record's key. Returns 0, and changes nothing, when the
  // key is 0 or `record` null: diagnoses have no natural key.
  BOOL SelectRow(const tagTDIAGNOSIS* record);

  // Single rows, through short-lived sets of this class; defined in rowops/diagnosis.cpp.
  WORD AddRow(tagTDIAGNOSIS* record);
  WORD EditRow(tagTDIAGNOSIS* record, DWORD mask);
  WORD DeleteRow(const tagTDIAGNOSIS* record);
  WORD GetRow(tagTDIAGNOSIS* record);

  // Bound members, in the order of the columns; the key is m_lID.
  LONG m_lDrID = 0;
  LONG m_lImgID = 0;
  CString m_strRegio;
  CString m_strCode;
  CString m_strText;
  TIMESTAMP_STRUCT m_ts = {};
};

#endif
