// Workstations: how they are browsed and how a record selects one.
#ifndef KYODBC_RECSET_STAT_REC_H
#define KYODBC_RECSET_STAT_REC_H

#include "recset/kyrecset.h"
#include "tables/records.h"

class CStatRec : public CKyRecSet {
 public:
  CStatRec(CDatabase* database, const char* owner);
  ~CStatRec() override;

  CString GetDefaultConnect() override;
  CString GetDefaultSQL() override;
  void DoFieldExchange(CFieldExchange* exchange) override;
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override;
  // Moves as GetByPos does and copies that row. Returns 0; 64 when there is none; 1 for a null record.
  virtual WORD GetRecByPos(tagTSTATION* record, LONG* position);

  // The current row into `record`, texts cut to their fields.
  void CopyOut(tagTSTATION* record) const;
  // The fields of `record` selected by m_dwFieldMask into the members.
  void CopyIn(const tagTSTATION* record);
  // Makes m_strFilter select the station that `record` describes: by its key, or for key 0 by its natural
  // key (the name), whose mask bits are then cleared. Returns 0, and changes nothing,
  // when `record` is null or describes none.
  BOOL SelectRow(const tagTSTATION* record);

  // Single rows, through short-lived sets of this class; defined in rowops/station.cpp.
  WORD AddRow(tagTSTATION* record);
  WORD EditRow(tagTSTATION* record, DWORD mask);
  WORD DeleteRow(const tagTSTATION* record);
  WORD GetRow(tagTSTATION* record);

  // Bound members, in the order of the columns; the key is m_lID.
  CString m_strName;
};

#endif
