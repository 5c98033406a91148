// Constancy tests: how they are browsed and how a record selects one.
#ifndef KYODBC_RECSET_TEST_REC_H
#define KYODBC_RECSET_TEST_REC_H

#include "recset/kyrecset.h"
#include "tables/records.h"

class CTestRec : public CKyRecSet {
 public:
  CTestRec(CDatabase* database, const char* owner);
  ~CTestRec() override;

  CString GetDefaultConnect() override;
  CString GetDefaultSQL() override;
  void DoFieldExchange(CFieldExchange* exchange) override;
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override;
  // Moves as GetByPos does and copies that row. Returns 0; 64 when there is none; 1 for a null record.
  virtual WORD GetRecByPos(tagTTEST* record, LONG* position);

  // The current row into `record`, texts cut to their fields.
  void CopyOut(tagTTEST* record) const;
  // The fields of `record` selected by m_dwFieldMask into the members.
  void CopyIn(const tagTTEST* record);
  // Makes m_strFilter select the test that `record` describes: by its key, or for key 0 by its natural
  // key, whose mask bits are then cleared. Returns 0, and changes nothing, when `record` is null or
  // describes none. The natural key is unit, date and the location "9".
  BOOL SelectRow(const tagTTEST* record);

  // Single rows, through short-lived sets of this class; defined in rowops/test.cpp.
  WORD AddRow(tagTTEST* record);
  WORD EditRow(tagTTEST* record, DWORD mask);
  WORD DeleteRow(const tagTTEST* record);
  WORD GetRow(tagTTEST* record);
  WORD CountRows(LONG unit, LONG* count);
  WORD GetNewest(LONG unit, LONG* key, TIMESTAMP_STRUCT* time);

  // Bound members, in the order of the columns; the key is m_lID.
  LONG m_lUnitID = 0;
  CString m_strPerson;
  TIMESTAMP_STRUCT m_ts = {};
  TIMESTAMP_STRUCT m_dArcIn = {};
  TIMESTAMP_STRUCT m_dArcOut = {};
  CString m_strArcType;
  CString m_strArcFile;
  CString m_strArcLoc;
  CString m_strArcVol;
  CString m_strFile;
  CString m_strLoc;
  CString m_strName;
  CString m_strRegio;
  CString m_strResult;
  CString m_strType;
};

#endif
