// Direct access to single rows of TGroupRaw: groups of images with every column.
#ifndef KYODBC_TABLES_GROUP_RAW_REC_H
#define KYODBC_TABLES_GROUP_RAW_REC_H

#include "../recset/kyrecset.h"
#include "group.h"

struct RawRecWorker;  // reading, inserting and editing, written once for all tables

// Reads, inserts and edits one group of images at a time, as a CTGrpRaw.
//
// A record describes its row by its key, or with key 0 by its natural key: the patient, and with it each
// of name, time and time of the last change that is given.
class KYODBC_API CGrpRawRec : public CKyRecSet {
 public:
  static const CRuntimeClass classCGrpRawRec;

  // Bits of a field mask, to be combined; -1 selects every field. The key has none: it is never written.
  enum Field : LONG {
    kPatID = 0x1,
    kName = 0x2,
    kTime = 0x4,
    kLoc = 0x8,
    kFile = 0x10,
    kMakNo = 0x20,
    kPvwFile = 0x40,
    kPvwLoc = 0x80,
    kTimeLast = 0x100,
    kResponsible = 0x200,
    kAdd = 0x400,
  };

  // A closed set. A null `database` means the library's connection; a null or empty `owner` the library's
  // owner prefix. The set must be gone before the connection is.
  CGrpRawRec(CDatabase* database, const char* owner);

  const CRuntimeClass* GetRuntimeClass() const override;
  ~CGrpRawRec() override;
  CString GetDefaultSQL() override;  // owner prefix and TGroupRaw
  void DoFieldExchange(CFieldExchange* exchange) override;
  // The column, counted from 0, of a single mask bit; -1 for everything else. Of the two preview bits each
  // gives the other's column; callers rely on it.
  short GetIntFieldID(LONG bit) override;

  // All three return 56, and do nothing, while the library knows of no schema of version 4.0 or more.

  // Opens the set on the row that `record` describes, for GetData. That there is none is no failure: ask
  // IsEOF. Returns 0; 1 when the record describes no row; 3 when the set did not open. Lets a CDBException
  // pass.
  WORD OpenQuery(const CTGrpRaw& record);

  // Adds a row with the fields of `record` that `mask` selects, and reads it back into `record`, new key
  // included. It is found by the record's natural key, whatever key the record had, so the mask must select
  // the fields of that. Returns 0; 6 when the database refused; 30 when the set is open and takes no rows; 1,
  // 64 or 52 when the row was added but the natural key is incomplete, matches no row, or matches others
  // too: the record then has key 0. The set is closed afterwards.
  WORD Insert(CTGrpRaw& record, LONG mask);

  // Writes the fields of `record` that `mask` selects into the row that it describes. Fields by which the
  // row was found are not written. Returns 0, with the set open on the row; 1 when the record describes no
  // row; 3; 64 for no row; 52 for several; 6 when the database refused. After 0 the record's key is 0: keep
  // it elsewhere.
  WORD Edit(CTGrpRaw& record, LONG mask);
  using CKyRecSet::Edit;  // the framework's, for changing the current row's members by hand

  // Copies the current row into `record`, all columns.
  void GetData(CTGrpRaw& record) const;

 protected:
  friend struct RawRecWorker;

  // Copies the fields selected by m_dwFieldMask into the current row's members; never the key.
  void SetData(const CTGrpRaw& record);
  // Makes m_strFilter select the row that `record` describes, and clears the mask bits of the natural key.
  // Returns 0, and changes nothing, when the record describes none.
  int SetSelectFilter(const CTGrpRaw& record);

  CTGrpRaw m_record;  // the columns' members; after a move they hold the current row

 private:
  void NarrowBy(const char* condition, const CString& value, Field field);
};

#endif
