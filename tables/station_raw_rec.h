// Direct access to single rows of TStationRaw: stations with every column.
#ifndef KYODBC_TABLES_STATION_RAW_REC_H
#define KYODBC_TABLES_STATION_RAW_REC_H

#include "../recset/kyrecset.h"
#include "station.h"

struct RawRecWorker;  // reading, inserting and editing, written once for all tables

// Reads, inserts and edits one station at a time, as a CTStatRaw.
//
// A record describes its row by its key, or with key 0 by its natural key: the name.
class KYODBC_API CStatRawRec : public CKyRecSet {
 public:
  static const CRuntimeClass classCStatRawRec;

  // Bits of a field mask, to be combined; -1 selects every field. The key has none: it is never written.
  enum Field : LONG {
    kName = 0x1,
    kAdd = 0x2,
  };

  // A closed set. A null `database` means the library's connection; a null or empty `owner` the library's
  // owner prefix. The set must be gone before the connection is.
  CStatRawRec(CDatabase* database, const char* owner);

  const CRuntimeClass* GetRuntimeClass() const override;
  ~CStatRawRec() override;
  CString GetDefaultSQL() override;  // owner prefix and TStationRaw
  void DoFieldExchange(CFieldExchange* exchange) override;

  // All three return 56, and do nothing, while the library knows of no schema of version 4.0 or more.

  // Opens the set on the row that `record` describes, for GetData. That there is none is no failure: ask
  // IsEOF. Returns 0; 1 when the record describes no row; 3 when the set did not open. Lets a CDBException
  // pass.
  WORD OpenQuery(const CTStatRaw& record);

  // Adds a row with the fields of `record` that `mask` selects, and reads it back into `record`, new key
  // included. It is found by the record's natural key, whatever key the record had, so the mask must select
  // the fields of that. Returns 0; 6 when the database refused; 30 when the set is open and takes no rows; 1,
  // 64 or 52 when the row was added but the natural key is incomplete, matches no row, or matches others
  // too: the record then has key 0. The set is closed afterwards.
  WORD Insert(CTStatRaw& record, LONG mask);

  // Writes the fields of `record` that `mask` selects into the row that it describes. Fields by which the
  // row was found are not written. Returns 0, with the set open on the row; 1 when the record describes no
  // row; 3; 64 for no row; 52 for several; 6 when the database refused. After 0 the record's key is 0: keep
  // it elsewhere.
  WORD Edit(CTStatRaw& record, LONG mask);
  using CKyRecSet::Edit;  // the framework's, for changing the current row's members by hand

  // Copies the current row into `record`, all columns.
  void GetData(CTStatRaw& record) const;

 protected:
  friend struct RawRecWorker;

  // Copies the fields selected by m_dwFieldMask into the current row's members; never the key.
  void SetData(const CTStatRaw& record);
  // Makes m_strFilter select the row that `record` describes, and clears the mask bits of the natural key.
  // Returns 0, and changes nothing, when the record describes none.
  int SetSelectFilter(const CTStatRaw& record);

  CTStatRaw m_record;  // the columns' members; after a move they hold the current row
};

#endif
