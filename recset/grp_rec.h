// Image groups: how they are browsed and how a record selects one.
#ifndef KYODBC_RECSET_GRP_REC_H
#define KYODBC_RECSET_GRP_REC_H

#include "recset/kyrecset.h"
#include "tables/records.h"

class CGrpRec : public CKyRecSet {
 public:
  CGrpRec(CDatabase* database, const char* owner);
  ~CGrpRec() override;

  CString GetDefaultConnect() override;
  CString GetDefaultSQL() override;
  void DoFieldExchange(CFieldExchange* exchange) override;
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override;
  // Moves as GetByPos does and copies that row. Returns 0; 64 when there is none; 1 for a null record.
  virtual WORD GetRecByPos(tagTGROUP* record, LONG* position);

  // The current row into `record`, texts cut to their fields.
  void CopyOut(tagTGROUP* record) const;
  // The fields of `record` selected by m_dwFieldMask into the members.
  void CopyIn(const tagTGROUP* record);
  // Makes m_strFilter select the group that `record` describes: by its key, or for key 0 by its natural
  // key, whose mask bits are then cleared. Returns 0, and changes nothing, when `record` is null or
  // describes none. The natural key is patient, date and the location "9".
  BOOL SelectRow(const tagTGROUP* record);

  // Single rows, through short-lived sets of this class; defined in rowops/group.cpp.
  WORD AddRow(tagTGROUP* record);
  WORD EditRow(tagTGROUP* record, DWORD mask);
  WORD DeleteRow(const tagTGROUP* record);
  WORD GetRow(tagTGROUP* record);
  WORD CountRows(LONG patient, LONG* count);

  // Bound members, in the order of the columns; the key is m_lID.
  LONG m_lPatID = 0;
  int m_nMakNo = 0;
  TIMESTAMP_STRUCT m_ts = {};
  CString m_strName;
  CString m_strFile;
  CString m_strLoc;
  CString m_strPvwLoc;
  CString m_strPvwFile;
};

#endif
