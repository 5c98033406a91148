// X-ray units: how they are browsed and how a record selects one.
#ifndef KYODBC_RECSET_UNIT_REC_H
#define KYODBC_RECSET_UNIT_REC_H

#include "recset/kyrecset.h"
#include "tables/records.h"

class CUnitRec : public CKyRecSet {
 public:
  CUnitRec(CDatabase* database, const char* owner);
  ~CUnitRec() override;

  CString GetDefaultConnect() override;
  CString GetDefaultSQL() override;
  void DoFieldExchange(CFieldExchange* exchange) override;
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override;
  // Moves as GetByPos does and copies that row. Returns 0; 64 when there is none; 1 for a null record.
  virtual WORD GetRecByPos(tagTUNIT* record, LONG* position);

  // The current row into `record`, texts cut to their fields.
  void CopyOut(tagTUNIT* record) const;
  // The fields of `record` selected by m_dwFieldMask into the members.
  void CopyIn(const tagTUNIT* record);
  // Makes m_strFilter select the unit that `record` describes: by its key, or for key 0 by its natural
  // key (the name), whose mask bits are then cleared. Returns 0, and changes nothing,
  // when `record` is null or describes none.
  BOOL SelectRow(const tagTUNIT* record);

  // Single rows, through short-lived sets of this class; defined in rowops/unit.cpp.
  WORD AddRow(tagTUNIT* record);
  WORD EditRow(tagTUNIT* record, DWORD mask);
  WORD DeleteRow(const tagTUNIT* record);
  WORD GetRow(tagTUNIT* record);

  // Bound members, in the order of the columns; the key is m_lID.
  TIMESTAMP_STRUCT m_dAccept = {};
  CString m_strName;
  CString m_strType;
  CString m_strConeSNo;
  CString m_strCtrlElemSNo;
  CString m_strCtrlUnitSNo;
  CString m_strGenSNo;
  CString m_strSensSNo;
  CString m_strTestBodySNo;
  CString m_strTubeSNo;
};

#endif
