// Direct access to single rows of TMakroRaw: makros with every column.
#ifndef KYODBC_TABLES_MAKRO_RAW_REC_H
#define KYODBC_TABLES_MAKRO_RAW_REC_H

#include "../recset/kyrecset.h"
#include "makro.h"

struct RawRecWorker;  // reading, inserting and editing, written once for all tables

// Reads, inserts and edits one makro at a time, as a CTMakRaw.
//
// A record describes its row by its key, or with key 0 by its natural key: image and ordinal, both given.
//
// A makro inserted without kTimeLast has no time of its last change. Edit stamps the current local time
// unless the mask has kTimeLast; it then stores the record's value.
class KYODBC_API CMakRawRec : public CKyRecSet {
 public:
  static const CRuntimeClass classCMakRawRec;

  // Bits of a field mask, to be combined; -1 selects every field. The key has none: it is never written.
  enum Field : LONG {
    kImgID = 0x1,
    kName = 0x2,
    kTimeLast = 0x4,
    kFile = 0x8,
    kLoc = 0x10,
    kNo = 0x20,
    kAdd = 0x40,
    kRegio = 0x80,
    kTimeCreate = 0x100,
  };

  // A closed set. A null `database` means the library's connection; a null or empty `owner` the library's
  // owner prefix. The set must be gone before the connection is.
  CMakRawRec(CDatabase* database, const char* owner);

  const CRuntimeClass* GetRuntimeClass() const override;
  ~CMakRawRec() override;
  CString GetDefaultSQL() override;  // owner prefix and TMakroRaw
  void DoFieldExchange(CFieldExchange* exchange) override;

  // All three return 56, and do nothing, while the library knows of no schema of version 4.0 or more.

  // Opens the set on the row that `record` describes, for GetData. That there is none is no failure: ask
  // IsEOF. Returns 0; 1 when the record describes no row; 3 when the set did not open. Lets a CDBException
  // pass.
  WORD OpenQuery(const CTMakRaw& record);

  // Adds a row with the fields of `record` that `mask` selects, and reads it back into `record`, new key
  // included. It is found by the record's natural key, whatever key the record had, so the mask must select
  // the fields of that. Returns 0; 6 when the database refused; 30 when the set is open and takes no rows; 1,
  // 64 or 52 when the row was added but the natural key is incomplete, matches no row, or matches others
  // too: the record then has key 0. The set is closed afterwards.
  WORD Insert(CTMakRaw& record, LONG mask);

  // Writes the fields of `record` that `mask` selects into the row that it describes. Fields by which the
  // row was found are not written. Returns 0, with the set open on the row; 1 when the record describes no
  // row; 3; 64 for no row; 52 for several; 6 when the database refused. After 0 the record's key is 0: keep
  // it elsewhere.
  WORD Edit(CTMakRaw& record, LONG mask);
  using CKyRecSet::Edit;  // the framework's, for changing the current row's members by hand

  // Copies the current row into `record`, all columns.
  void GetData(CTMakRaw& record) const;

 protected:
  friend struct RawRecWorker;

  // Copies the fields selected by m_dwFieldMask into the current row's members; never the key.
  void SetData(const CTMakRaw& record);
  // Makes m_strFilter select the row that `record` describes, and clears the mask bits of the natural key.
  // Returns 0, and changes nothing, when the record describes none.
  int SetSelectFilter(const CTMakRaw& record);
  // Stamps the time of the last change when the mask has its bit. Returns 0; 56 for a schema before version
  // 4.0.
  WORD Refresh();

  CTMakRaw m_record;  // the columns' members; after a move they hold the current row
};

#endif
