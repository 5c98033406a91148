// Direct access to single rows of TTestRaw: constancy tests with every column.
#ifndef KYODBC_TABLES_TEST_RAW_REC_H
#define KYODBC_TABLES_TEST_RAW_REC_H

#include "../recset/kyrecset.h"
#include "test.h"

struct RawRecWorker;  // reading, inserting and editing, written once for all tables

// Reads, inserts and edits one constancy test at a time, as a CTTestRaw.
//
// A record describes its row by its key, or with key 0 by its natural key: unit and time, both given.
//
// The columns of the file name and of the archive's file name share one member: CTTestRaw::m_strFile. A row
// that is read shows the archive's file name in it, and a row that is inserted or whose file name is edited
// has the file name in both columns. CTTestRaw::m_strArcFile is neither read nor written. Callers rely on it.
class KYODBC_API CTestRawRec : public CKyRecSet {
 public:
  static const CRuntimeClass classCTestRawRec;

  // Bits of a field mask, to be combined; -1 selects every field. The key has none: it is never written.
  enum Field : LONG {
    kUnitID = 0x1,
    kPerson = 0x2,
    kType = 0x4,
    kRegio = 0x8,
    kName = 0x10,
    kTime = 0x20,
    kResult = 0x40,
    kArcType = 0x80,
    kArcLoc = 0x100,
    kArcFile = 0x200,
    kArcVol = 0x400,
    kArcOut = 0x800,
    kArcIn = 0x1000,
    kLoc = 0x2000,
    kFile = 0x4000,
    kAdd = 0x8000,
  };

  // A closed set on the library's connection, with the library's owner prefix. It must be gone before the
  // connection is.
  CTestRawRec();

  const CRuntimeClass* GetRuntimeClass() const override;
  ~CTestRawRec() override;
  CString GetDefaultSQL() override;  // owner prefix and TTestRaw
  void DoFieldExchange(CFieldExchange* exchange) override;

  // All three return 56, and do nothing, while the library knows of no schema of version 4.0 or more.

  // Opens the set on the row that `record` describes, for GetData. That there is none is no failure: ask
  // IsEOF. Returns 0; 1 when the record describes no row; 3 when the set did not open. Lets a CDBException
  // pass.
  WORD OpenQuery(const CTTestRaw& record);

  // Adds a row with the fields of `record` that `mask` selects, and reads it back into `record`, new key
  // included. It is found by the record's natural key, whatever key the record had, so the mask must select
  // the fields of that. Returns 0; 6 when the database refused; 30 when the set is open and takes no rows; 1,
  // 64 or 52 when the row was added but the natural key is incomplete, matches no row, or matches others
  // too: the record then has key 0. The set is closed afterwards.
  WORD Insert(CTTestRaw& record, LONG mask);

  // Writes the fields of `record` that `mask` selects into the row that it describes. Fields by which the
  // row was found are not written. Returns 0, with the set open on the row; 1 when the record describes no
  // row; 3; 64 for no row; 52 for several; 6 when the database refused. After 0 the record's key is 0: keep
  // it elsewhere.
  WORD Edit(CTTestRaw& record, LONG mask);
  using CKyRecSet::Edit;  // the framework's, for changing the current row's members by hand

  // Copies the current row into `record`, all columns.
  void GetData(CTTestRaw& record) const;

 protected:
  friend struct RawRecWorker;

  // Copies the fields selected by m_dwFieldMask into the current row's members; never the key.
  void SetData(const CTTestRaw& record);
  // Makes m_strFilter select the row that `record` describes, and clears the mask bits of the natural key.
  // Returns 0, and changes nothing, when the record describes none.
  int SetSelectFilter(const CTTestRaw& record);

  CTTestRaw m_record;  // the columns' members; after a move they hold the current row
};

#endif
