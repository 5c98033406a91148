// Direct access to single rows of TImageRaw: images with every column.
#ifndef KYODBC_TABLES_IMAGE_RAW_REC_H
#define KYODBC_TABLES_IMAGE_RAW_REC_H

#include "../recset/kyrecset.h"
#include "image.h"

struct RawRecWorker;  // reading, inserting and editing, written once for all tables

// Reads, inserts and edits one image at a time, as a CTImageRaw.
//
// A record describes its row by its key, or with key 0 by its natural key: patient, time and location "9"
// (and the file name when there is one); or else patient and reference image; or the reference image
// alone. Images at other locations are not found by their time.
//
// The file name goes into the SQL text as it is. One that holds a quote is an error of the database; never
// take file names for finding images from outside.
class KYODBC_API CImgRawRec : public CKyRecSet {
 public:
  static const CRuntimeClass classCImgRawRec;

  // Bits of a field mask, to be combined; -1 selects every field. The key has none: it is never written.
  enum Field : LONG {
    kPatID = 0x1,
    kUnitID = 0x2,
    kDrID = 0x4,
    kType = 0x8,
    kRegio = 0x10,
    kName = 0x20,
    kTime = 0x40,
    kPreg = 0x80,
    kOrdType = 0x100,
    kOrdRegio = 0x200,
    kOrdReason = 0x400,
    kArcType = 0x800,
    kArcLoc = 0x1000,
    kArcFile = 0x2000,
    kArcVol = 0x4000,
    kArcOut = 0x8000,
    kArcIn = 0x10000,
    kPvwLoc = 0x20000,
    kPvwFile = 0x40000,
    kLoc = 0x80000,
    kFile = 0x100000,
    kMakIDLast = 0x200000,
    kResponsible = 0x400000,
    kRefImgID = 0x800000,
    kAdd = 0x1000000,
  };

  // A closed set. A null `database` means the library's connection; a null or empty `owner` the library's
  // owner prefix. The set must be gone before the connection is.
  CImgRawRec(CDatabase* database, const char* owner);

  const CRuntimeClass* GetRuntimeClass() const override;
  ~CImgRawRec() override;
  CString GetDefaultSQL() override;  // owner prefix and TImageRaw
  void DoFieldExchange(CFieldExchange* exchange) override;

  // All three return 56, and do nothing, while the library knows of no schema of version 4.0 or more.

  // Opens the set on the row that `record` describes, for GetData. That there is none is no failure: ask
  // IsEOF. Returns 0; 1 when the record describes no row; 3 when the set did not open. Lets a CDBException
  // pass.
  WORD OpenQuery(const CTImageRaw& record);

  // Adds a row with the fields of `record` that `mask` selects, and reads it back into `record`, new key
  // included. It is found by the record's natural key, whatever key the record had, so the mask must select
  // the fields of that. Returns 0; 6 when the database refused; 30 when the set is open and takes no rows; 1,
  // 64 or 52 when the row was added but the natural key is incomplete, matches no row, or matches others
  // too: the record then has key 0. The set is closed afterwards.
  WORD Insert(CTImageRaw& record, LONG mask);

  // Writes the fields of `record` that `mask` selects into the row that it describes. Fields by which the
  // row was found are not written. Returns 0, with the set open on the row; 1 when the record describes no
  // row; 3; 64 for no row; 52 for several; 6 when the database refused. After 0 the record's key is 0: keep
  // it elsewhere.
  WORD Edit(CTImageRaw& record, LONG mask);
  using CKyRecSet::Edit;  // the framework's, for changing the current row's members by hand

  // Copies the current row into `record`, all columns.
  void GetData(CTImageRaw& record) const;

 protected:
  friend struct RawRecWorker;

  // Copies the fields selected by m_dwFieldMask into the current row's members; never the key.
  void SetData(const CTImageRaw& record);
  // Makes m_strFilter select the row that `record` describes, and clears the mask bits of the natural key.
  // Returns 0, and changes nothing, when the record describes none.
  int SetSelectFilter(const CTImageRaw& record);

  CTImageRaw m_record;  // the columns' members; after a move they hold the current row

 private:
  void SelectByTime(const CTImageRaw& record);
};

#endif
