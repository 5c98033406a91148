// The joined view: every patient whose doctor exists, with the doctor's name. It cannot be written to.
#ifndef KYODBC_RECSET_PATEX_REC_H
#define KYODBC_RECSET_PATEX_REC_H

#include "recset/pat_rec.h"

class CPatExRec : public CPatRec {
 public:
  // Its filter is the join condition from the start.
  CPatExRec(CDatabase* database, const char* owner);
  ~CPatExRec() override;

  CString GetDefaultSQL() override;
  void DoFieldExchange(CFieldExchange* exchange) override;
  using CPatRec::GetFieldName;
  // As for patients, and besides 20, the doctor's name, and 35, the time of the last display.
  CString GetFieldName(LONG field, LONG* error) override;

  // The position of the patient with the key `id`, found by its sort values instead of row by row. Of several
  // rows with the same sort values the patient's own; the first of them when the filter hides the patient.
  // 0 for an unknown patient (the position is kept) and when no row follows; after a database exception the
  // position as it is then.
  LONG MoveToIntID(LONG id) override;
  // Counts the patients whose doctor exists, whatever the filter. Returns 0; 3 or 5 when they could not be
  // counted.
  WORD GetNum(LONG* count) override;
  LONG MoveToSortValue(const char* text) override;
  using CPatRec::GetRecByPos;
  virtual WORD GetRecByPos(tagTPATIENTEX* record, LONG* position);

  using CPatRec::CopyOut;
  // The current row into `record`, texts cut to their fields.
  void CopyOut(tagTPATIENTEX* record) const;
  // Reads the patient that `record` describes, by key or natural key, into `record`. Returns 0; 1 when it
  // describes none or is null; 3 when the view did not open; 21 when there is no such patient or no such
  // doctor; 52 for several. On failure `record` is unchanged.
  WORD GetJoinedRow(tagTPATIENTEX* record);

  CString m_strDrName;  // bound like the inherited members

 private:
  struct Seek {
    CString before;  // holds for the rows before a target row; empty when its sort values tell nothing
    CString equal;   // holds for the rows with the target's sort values
  };

  WORD OpenOn(const tagTPATIENT& patient);
  CString SeekLiteral(LONG field) const;
  Seek SeekRow(const CPatExRec& target);
  WORD CountWhere(const CString& condition, LONG* count);
  LONG SeekKey(LONG id);
  LONG StepToKey(LONG id, LONG first, const CString& equal);
};

#endif
