// Images: how they are browsed and how a record selects one.
#ifndef KYODBC_RECSET_IMG_REC_H
#define KYODBC_RECSET_IMG_REC_H

#include "recset/kyrecset.h"
#include "tables/records.h"

class CImgRec : public CKyRecSet {
 public:
  CImgRec(CDatabase* database, const char* owner);
  ~CImgRec() override;

  CString GetDefaultConnect() override;
  CString GetDefaultSQL() override;
  void DoFieldExchange(CFieldExchange* exchange) override;
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override;
  // As the base's; afterwards the patient's last-display time is brought up to date.
  WORD DeleteByPos(LONG position) override;
  // Moves as GetByPos does and copies that row. Returns 0; 64 when there is none; 1 for a null record.
  virtual WORD GetRecByPos(tagTIMAGE* record, LONG* position);

  // The current row into `record`, texts cut to their fields.
  void CopyOut(tagTIMAGE* record) const;
  // The fields of `record` selected by m_dwFieldMask into the members.
  void CopyIn(const tagTIMAGE* record);
  // Makes m_strFilter select the image that `record` describes: by its key, or for key 0 by its natural
  // key, whose mask bits are then cleared. Returns 0, and changes nothing, when `record` is null or
  // describes none. The natural key is patient, date and the location "9".
  BOOL SelectRow(const tagTIMAGE* record);

  // Single rows, through short-lived sets of this class; defined in rowops/image.cpp.
  WORD AddRow(tagTIMAGE* record);
  WORD EditRow(tagTIMAGE* record, DWORD mask);
  WORD DeleteRow(const tagTIMAGE* record);
  WORD GetRow(tagTIMAGE* record);
  WORD CountRows(LONG patient, LONG* count);
  WORD GetNewest(LONG patient, LONG* key, TIMESTAMP_STRUCT* time);

  // Bound members, in the order of the columns; the key is m_lID.
  LONG m_lDrID = 0;
  LONG m_lPatID = 0;
  LONG m_lUnitID = 0;
  TIMESTAMP_STRUCT m_dArcIn = {};
  TIMESTAMP_STRUCT m_dArcOut = {};
  CString m_strArcType;
  CString m_strArcFile;
  CString m_strArcLoc;
  CString m_strArcVol;
  CString m_strFile;
  CString m_strLoc;
  CString m_strName;
  CString m_strOrdReason;
  CString m_strOrdRegio;
  CString m_strOrdType;
  CString m_strPreg;
  CString m_strPvwFile;
  CString m_strPvwLoc;
  CString m_strRegio;
  CString m_strType;
  TIMESTAMP_STRUCT m_ts = {};
  LONG m_lMakIDLast = 0;
};

#endif
