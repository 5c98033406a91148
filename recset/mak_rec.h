// Makros: how they are browsed and how a record selects one.
#ifndef KYODBC_RECSET_MAK_REC_H
#define KYODBC_RECSET_MAK_REC_H

#include "recset/kyrecset.h"
#include "tables/records.h"

class CMakRec : public CKyRecSet {
 public:
  CMakRec(CDatabase* database, const char* owner);
  ~CMakRec() override;

  CString GetDefaultConnect() override;
  CString GetDefaultSQL() override;
  void DoFieldExchange(CFieldExchange* exchange) override;
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override;
  // Moves as GetByPos does and copies that row. Returns 0; 64 when there is none; 1 for a null record.
  virtual WORD GetRecByPos(tagTMAKRO* record, LONG* position);

  // The current row into `record`, texts cut to their fields.
  void CopyOut(tagTMAKRO* record) const;
  // The fields of `record` selected by m_dwFieldMask into the members. The time is stamped, never copied.
  void CopyIn(const tagTMAKRO* record);
  // Makes m_strFilter select the makro that `record` describes: by its key, or for key 0 by its natural
  // key (image and ordinal, both given), whose mask bits are then cleared. Returns 0, and changes nothing,
  // when `record` is null or describes none.
  BOOL SelectRow(const tagTMAKRO* record);

  // Single rows, through short-lived sets of this class; defined in rowops/makro.cpp.
  WORD AddRow(tagTMAKRO* record);
  WORD EditRow(tagTMAKRO* record, DWORD mask);
  WORD DeleteRow(const tagTMAKRO* record);
  WORD GetRow(tagTMAKRO* record);
  WORD CountRows(LONG image, LONG* count);
  WORD GetNewest(LONG image, LONG* key, TIMESTAMP_STRUCT* time);

  // Bound members, in the order of the columns; the key is m_lID.
  LONG m_lImgID = 0;
  CString m_strFile;
  CString m_strLoc;
  CString m_strName;
  int m_nNo = 0;
  TIMESTAMP_STRUCT m_tsLast = {};
};

#endif
