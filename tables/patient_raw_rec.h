// Direct access to single rows of TPatientRaw: patients with every column.
#ifndef KYODBC_TABLES_PATIENT_RAW_REC_H
#define KYODBC_TABLES_PATIENT_RAW_REC_H

#include "../recset/kyrecset.h"
#include "patient.h"

struct RawRecWorker;  // reading, inserting and editing, written once for all tables

// Reads, inserts and edits one patient at a time, as a CTPatientRaw.
//
// A record describes its row by its key, or with key 0 by its natural key: the Slida identifier; else the
// server identifier; else surname, first name and date of birth, all given, and with them the doctor and
// the display identifier when these are given.
//
// With their bits in the mask, the date of entry of an inserted patient is today (an edit never changes it);
// the last display of an edited patient is the time of its newest image on the library's connection, or the
// date of entry when there is none; and the display identifier is the Slida identifier, or else the external
// identifier, the Slida identifier then becoming empty, or else empty, both then becoming NULL. The record's
// values for these are not used, except that an inserted patient takes its last display from the record. So
// a display identifier of the caller's own, with kIDDisp in the mask, keeps Insert from finding a patient
// again by name: 64.
class KYODBC_API CPatientRawRec : public CKyRecSet {
 public:
  static const CRuntimeClass classCPatientRawRec;

  // Bits of a field mask, to be combined; -1 selects every field. The key has none: it is never written.
  enum Field : LONG {
    kDrID = 0x1,
    kExtPatID = 0x2,
    kSrvID = 0x4,
    kSlidaID = 0x8,
    kSocID = 0x10,
    kName = 0x20,
    kFirstname = 0x40,
    kBirthday = 0x80,
    kSex = 0x100,
    kSelect = 0x200,
    kEntry = 0x400,
    kIDDisp = 0x800,
    kLastDisp = 0x1000,
    kResponsible = 0x2000,
    kAdd = 0x4000,
  };

  // A closed set. A null `database` means the library's connection; a null or empty `owner` the library's
  // owner prefix. The set must be gone before the connection is.
  CPatientRawRec(CDatabase* database, const char* owner);

  const CRuntimeClass* GetRuntimeClass() const override;
  ~CPatientRawRec() override;
  CString GetDefaultSQL() override;  // owner prefix and TPatientRaw
  void DoFieldExchange(CFieldExchange* exchange) override;

  // All three return 56, and do nothing, while the library knows of no schema of version 4.0 or more.

  // Opens the set on the row that `record` describes, for GetData. That there is none is no failure: ask
  // IsEOF. Returns 0; 1 when the record describes no row; 3 when the set did not open. Lets a CDBException
  // pass.
  WORD OpenQuery(const CTPatientRaw& record);

  // Adds a row with the fields of `record` that `mask` selects, and reads it back into `record`, new key
  // included. It is found by the record's natural key, whatever key the record had, so the mask must select
  // the fields of that. Returns 0; 6 when the database refused; 30 when the set is open and takes no rows; 1,
  // 64 or 52 when the row was added but the natural key is incomplete, matches no row, or matches others
  // too: the record then has key 0. The set is closed afterwards.
  WORD Insert(CTPatientRaw& record, LONG mask);

  // Writes the fields of `record` that `mask` selects into the row that it describes. Fields by which the
  // row was found are not written. Returns 0, with the set open on the row; 1 when the record describes no
  // row; 3; 64 for no row; 52 for several; 6 when the database refused. After 0 the record's key is 0: keep
  // it elsewhere.
  WORD Edit(CTPatientRaw& record, LONG mask);
  using CKyRecSet::Edit;  // the framework's, for changing the current row's members by hand

  // Copies the current row into `record`, all columns.
  void GetData(CTPatientRaw& record) const;

 protected:
  friend struct RawRecWorker;

  // Copies the fields selected by m_dwFieldMask into the current row's members; never the key.
  void SetData(const CTPatientRaw& record);
  // Makes m_strFilter select the row that `record` describes, and clears the mask bits of the natural key.
  // Returns 0, and changes nothing, when the record describes none; 56, without having built a filter, for a
  // schema before version 4.0.
  int SetSelectFilter(const CTPatientRaw& record);
  // Derives the fields whose bits the mask has. Returns 0; 56 for a schema before version 4.0.
  WORD Refresh();

  CTPatientRaw m_record;  // the columns' members; after a move they hold the current row

 private:
  int SelectByName(const CTPatientRaw& record);
  bool HasText(CString& member);
  void RefreshDisplayID();
};

#endif
