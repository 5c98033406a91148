// Configuration entries: how they are browsed and how a record selects one.
#ifndef KYODBC_RECSET_CFG_REC_H
#define KYODBC_RECSET_CFG_REC_H

#include "recset/kyrecset.h"
#include "tables/records.h"

class CCfgRec : public CKyRecSet {
 public:
  CCfgRec(CDatabase* database, const char* owner);
  ~CCfgRec() override;

  CString GetDefaultConnect() override;
  CString GetDefaultSQL() override;
  void DoFieldExchange(CFieldExchange* exchange) override;
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override;
  // Moves as GetByPos does and copies that row. Returns 0; 64 when there is none; 1 for a null record.
  virtual WORD GetRecByPos(tagTCONFIG* record, LONG* position);

  // The current row into `record`, texts cut to their fields.
  void CopyOut(tagTCONFIG* record) const;
  // The fields of `record` selected by m_dwFieldMask into the members.
  void CopyIn(const tagTCONFIG* record);
  // Makes m_strFilter select the entry that `record` describes: by its key, or for key 0 by its natural
  // key, whose mask bits are then cleared. Returns 0, and changes nothing, when `record` is null or
  // describes none. The natural key is doctor, station and name of the setting, all given.
  BOOL SelectRow(const tagTCONFIG* record);

  // Single rows, through short-lived sets of this class; defined in rowops/config.cpp.
  WORD AddRow(tagTCONFIG* record);
  WORD EditRow(tagTCONFIG* record, DWORD mask);
  WORD DeleteRow(const tagTCONFIG* record);
  WORD GetRow(tagTCONFIG* record);

  // Bound members, in the order of the columns; the key is m_lID.
  LONG m_lDrID = 0;
  LONG m_lStatID = 0;
  CString m_strKey;
  CString m_strSet;
};

#endif
