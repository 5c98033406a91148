// The record set from which every set of the library derives, and from which callers derive their own.
//
// It adds to CRecordset: 1-based positions, counting, an owner prefix for the table names, and filters and
// sort orders described by numbers instead of SQL.
//
// To derive a set of your own:
//   1. Pass database and owner to the constructor and set m_nFields to the number of RFX calls.
//   2. Override GetDefaultSQL (m_strOwner followed by the table's name) and DoFieldExchange. Bind the
//      primary key to m_lID: changes find their row by it.
//   3. Override GetFieldName(LONG, LONG*) for the field ids that may be filtered and sorted on, and
//      GetIntFieldID when GetFieldSize, GetFieldName(LONG) and AddSortCriteria are to work.
//
// Unless said otherwise, operations pass a CDBException of the framework on to the caller. A set belongs to
// one caller at a time.
#ifndef KYODBC_RECSET_KYRECSET_H
#define KYODBC_RECSET_KYRECSET_H

#include "../platform/crecordset.h"

class KYODBC_API CKyRecSet : public CRecordset {
 public:
  static const CRuntimeClass classCKyRecSet;

  // A closed set. A null `database` means the library's own connection; a null or empty `owner` means the
  // library's own owner prefix, or none when there is none or it does not fit 260 bytes.
  CKyRecSet(CDatabase* database, const char* owner);

  // Virtual operations. The order of declaration is relied upon; append only.
  const CRuntimeClass* GetRuntimeClass() const override;
  ~CKyRecSet() override;
  void Serialize(CArchive& archive) override;  // this and the next two do nothing
  void AssertValid() const override;
  void Dump(CDumpContext& context) const override;
  BOOL Open(UINT open_type = AFX_DB_USE_DEFAULT_TYPE, const char* sql = nullptr,
            DWORD options = none) override;
  // Opens a closed set without rows first, so that a row can be added to a set that was never read.
  void AddNew() override;

 protected:
  // 0 when the result holds exactly one row, which is then current; 64 when it is empty; 52 when it holds
  // more, and the second row is then current. The set must be open.
  virtual WORD IsUniqueRecord();

  // The 0-based column of a field id in the result; -1 for an unknown id, and for every id in this class.
  virtual short GetIntFieldID(LONG field);

 public:
  // Positions count from 1 within the current filter and sort; 0 means "no position".

  // Returns the new position. 0 when there is no such row, for 0 and for negative positions: the set then
  // stands after the last row and its position is not known.
  virtual LONG MoveToPos(LONG position);
  // The position of the row whose m_lID is `id`; of the first row when none matches (compare m_lID to tell);
  // 0 when the set is closed, empty or before the first row. Reads row by row where rows are not held by key.
  virtual LONG MoveToIntID(LONG id);
  // Returns the new position. 0 when the move passed an end, or without moving when the set already stood
  // before the first or after the last row.
  virtual LONG MoveToDelta(LONG delta);

  // Builds m_strFilter from up to four clauses and requeries an open set, which then stands on its first
  // row. Byte i of `fields` (least significant first) holds a field id in bits 0 to 6, 0 ending the list, and
  // in bit 7 the join to the clauses before it: 0 AND, 1 OR. Byte i of `operators`: 2 >=, 3 >, 4 <=, 5 <,
  // 7 <>, 16 LIKE, 17 BETWEEN, anything else =. Value i points to
  //   a LONG                      for the ids 1 to 11
  //   a zero-terminated text      for 17 to 20, 22 to 26, 42, 43, 49 to 53, 58 and 59
  //   a TIMESTAMP_STRUCT (date)   for 33 and 34
  //   a TIMESTAMP_STRUCT          for 35 and 36 (without its fraction)
  // BETWEEN takes values i and i+1 and uses up the next clause; only dates and timestamps have it.
  // Returns 0, or 1 for an unknown field, a field without a value type, a refused BETWEEN or a null value
  // pointer; the set is then not requeried and keeps its filter, or only its base filter if it has one.
  // Without any clause the filter becomes " (()) ", which no database accepts; it does not clear a filter.
  virtual WORD SetFilter(LONG fields, LONG operators, void* value1, void* value2, void* value3, void* value4);

  // Builds m_strSort from up to four keys and requeries an open set, which then stands on its first row.
  // Byte i: the field id in bits 0 to 6, 0 ending the list; bit 7 for descending order. Does nothing when
  // `sort_index` equals m_lSortIndex. Returns 0, or 1 when the first key is unknown: m_strSort is then empty
  // and the set not requeried. An unknown later key ends the list and leaves a comma behind.
  virtual WORD SetSortIndex(LONG sort_index);

  // Appends a key to m_strSort without requerying. Returns 0, or 1 when GetFieldName(field) knows no column.
  virtual WORD AddSortCriteria(LONG field, int descending);

  // Writes the number of rows of the current result. Returns 0; 5 when the old position could not be
  // restored (after the last row then); 1 for a null pointer. The position is kept.
  virtual WORD GetMaxPos(LONG* count);
  // Moves to *position, or with 0 writes the current position there; null means the current row. Returns 0,
  // or 64 when the set stands on no row.
  virtual WORD GetByPos(LONG* position);
  // Deletes the row at `position`, or the current row for 0. The following row becomes current, or the new
  // last row. Returns 0; 64 when there is no such row; 8 after a database exception.
  virtual WORD DeleteByPos(LONG position);
  // Writes the number of rows of the whole table, whatever the filter. Returns 0; a null pointer is ignored.
  // The position is kept.
  virtual WORD GetNum(LONG* count);
  // Writes the key of the last row of the whole table in the current sort order (by key when there is
  // none), 0 for an empty table. Returns 0; 3 when the set could not be opened; 1 for a null pointer. The
  // position is kept.
  virtual WORD GetLastID(LONG* id);

  // The driver's name of the field's column. Empty when the column is not known or the set does not open. A
  // closed set is opened for it and closed again; its filter then stays "1 = 2" until the next one is set.
  virtual CString GetFieldName(LONG field);
  // The SQL expression that stands for a field id in filters and sorts. An unknown id gives an empty text and
  // writes 1 to *error, a known one 0; `error` may be null. This class knows no field.
  virtual CString GetFieldName(LONG field, LONG* error);
  // The characters that the field's column takes; -1 when it is no text or not known. Opens and closes as
  // GetFieldName(LONG) does.
  virtual LONG GetFieldSize(LONG field);

  // The rows of an open set may have changed: it is requeried before it is looked at again, and not before.
  void RequeryLater() { m_bStale = IsOpen(); }
  bool IsMarked() const { return m_bStale != FALSE && IsOpen(); }
  // Requeries now what was to be requeried later. The operations of this class do so by themselves; a direct
  // look at the members of a set that others may have marked does not.
  void CatchUp();

  // 0 before the first row and on a closed set, -1 when the position is not known.
  LONG GetIndexPos() const { return m_lCurrentRecord + 1; }

  LONG m_lID;               // key of the current row
  CString m_strBaseFilter;  // fixed part of every filter: a format with two %s; empty for none
  UINT m_nOpenType;         // snapshot when constructed with an owner, else dynaset
  CString m_strOwner;       // stands directly before every table name; its own point included
  LONG m_lSortIndex;        // last one applied by SetSortIndex
  DWORD m_dwFieldMask;      // fields that a copy from a record transfers

 protected:
  // Requeries an open set. Opens a closed one and writes 1 to *opened (which may be null). Returns 0, or 3
  // when the set did not open.
  WORD TryRequery(int* opened);

  // Literals: 'text' with quotes doubled, {d 'yyyy-mm-dd'}, {ts 'yyyy-mm-dd hh:mm:ss'}. Null counts as an
  // empty text or an all-zero date.
  static CString MakeSQLString(const char* text);
  static CString MakeSQLDate(const TIMESTAMP_STRUCT* date);
  static CString MakeSQLTimeStamp(const TIMESTAMP_STRUCT* time);

  // m_strBaseFilter with its two %s replaced.
  CString FillBaseFilter(const char* first, const char* second) const;

 private:
  void RequeryNow();
  void Settle(LONG position);
  bool FetchAt(LONG position);
  bool Fetched(WORD type, LONG row);
  void MoveFar(LONG delta);

  WORD AppendClauses(LONG fields, LONG operators, const void* const* values, CString& clauses);

  static CString WhereClause(const CString& filter);
  WORD CountByProbing(LONG* count);
  bool ProbeLastRow(LONG* row);
  LONG CountByQuery(const CString& where);
  bool ReadHighest(const CString& key, LONG* id);
  WORD ReadWholeTable(const CString& sort, void (CKyRecSet::*read)(LONG*), LONG* result);
  void ReadCount(LONG* count);
  void ReadLastID(LONG* id);
  void RequeryAt(LONG position);

  bool OpenWithoutRows();
  bool ReadFieldInfo(LONG field, CODBCFieldInfo& info);

  BOOL m_bStale;
};

#endif
