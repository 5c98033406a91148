// A record set over one ODBC result: opening, moving, and changing single rows.
//
// Rows are counted from 0 in m_lCurrentRecord and from 1 in positions. Dynaset and snapshot are the same
// here: a static read-only cursor, positioned by SQLExtendedFetch only. Changes are searched statements
// of the changed fields, found by the row key. Rows deleted through the set vanish from it; its other
// rows keep what they showed when the set was executed, except for the set's own edits. The library's own
// browse sets hold a dynaset's rows by key instead: a row shows what it holds when it is visited.
#ifndef KYODBC_PLATFORM_CRECORDSET_H
#define KYODBC_PLATFORM_CRECORDSET_H

#include <memory>
#include <vector>

#include "cdatabase.h"
#include "cdbexception.h"
#include "cfieldexchange.h"
#include "cfieldinfo.h"
#include "cobject.h"
#include "coledatetime.h"
#include "cstring.h"
#include "types.h"

inline constexpr UINT AFX_DB_USE_DEFAULT_TYPE = 0xFFFFFFFF;
inline constexpr short DEFAULT_FIELD_TYPE = 0x1FFF;  // GetFieldValue: the C type that suits the column
inline constexpr LONG AFX_CURRENT_RECORD_UNDEFINED = -2;
inline constexpr LONG AFX_CURRENT_RECORD_BOF = -1;

struct CRecordsetStatus {
  LONG m_lCurrentRecord;  // from 0; -1 before the first row, -2 not known
  BOOL m_bRecordCountFinal;
};

namespace odbc {
struct Parameter;
class Statement;
}  // namespace odbc
struct FieldValue;
class RowFields;  // the bound columns: buffers, flags, saved values
class RowSource;  // how rows are reached: execute, position, count
struct RowQuery;

class KYODBC_API CRecordset : public CObject {
 public:
  static const CRuntimeClass classCRecordset;

  enum OpenType : UINT { dynaset = 0, snapshot = 1, forwardOnly = 2, dynamic = 3 };
  enum OpenOptions : DWORD {
    none = 0,
    appendOnly = 0x0001,
    readOnly = 0x0002,
    optimizeBulkAdd = 0x0004,
    useMultiRowFetch = 0x0008,
    skipDeletedRecords = 0x0010,
    useBookmarks = 0x0020,
    noDirtyFieldCheck = 0x0040,
    executeDirect = 0x2000,  // run unprepared; such a set cannot be requeried
    useExtendedFetch = 0x4000,
    userAllocMultiRowBuffers = 0x8000,
  };
  enum LockMode { optimistic = 0, pessimistic = 1 };

  // With a null database the set makes its own at Open from GetDefaultConnect.
  explicit CRecordset(CDatabase* database = nullptr);
  CRecordset(const CRecordset&) = delete;
  CRecordset& operator=(const CRecordset&) = delete;

  // Virtual operations. The order of declaration is relied upon; append only.
  const CRuntimeClass* GetRuntimeClass() const override;
  ~CRecordset() override;  // closes without throwing
  void Serialize(CArchive& archive) override;
  void AssertValid() const override;
  void Dump(CDumpContext& context) const override;
  // Opens on `sql`: a SELECT, a {call ...}, or a FROM list; null takes GetDefaultSQL. Filter and sort are
  // appended except to a call. The first row, if any, is current. Opening an open set closes it first.
  // Returns nonzero; throws CDBException on failure, and the set is then closed.
  virtual BOOL Open(UINT open_type = AFX_DB_USE_DEFAULT_TYPE, const char* sql = nullptr,
                    DWORD options = none);
  // Frees the statement; members keep their values, filter and sort stay. Does nothing on a closed set.
  virtual void Close();
  // FIRST, LAST, NEXT and PRIOR ignore `rows`; RELATIVE counts from the current row, 0 reads it again;
  // ABSOLUTE counts from 1, from the end when negative, and 0 is before the first row. Passing an end
  // sets its flag and does not throw; moving on an empty set, or further past an end, throws.
  virtual void Move(LONG rows, WORD fetch_type = SQL_FETCH_RELATIVE);
  virtual void SetRowsetSize(DWORD rows);       // only 1; anything else throws
  virtual void CheckRowsetError(RETCODE code);  // throws unless the fetch succeeded or found no row
  virtual void AddNew();
  virtual void Edit();
  // Writes the changed fields. Returns nonzero when a row was written; 0, with the mode kept, when
  // nothing had changed.
  virtual BOOL Update();
  virtual void Delete();
  // Runs the query again, with filter and sort as they are now, and stands on the first row. Returns 0,
  // and leaves the set as it is, for a set opened with executeDirect. A failure throws; the set is closed.
  virtual BOOL Requery();
  virtual CString GetDefaultConnect();
  virtual CString GetDefaultSQL();
  virtual void OnSetOptions(HSTMT statement);
  virtual void DoFieldExchange(CFieldExchange* exchange);
  virtual void DoBulkFieldExchange(CFieldExchange* exchange);
  virtual BOOL Check(RETCODE code) const;  // success of any kind, no data, still executing, need data
  virtual void SetRowsetCurrencyStatus(RETCODE code, WORD fetch_type, SQLLEN rows, DWORD fetched);
  virtual void PreBindFields();
  virtual void ThrowDBException(RETCODE code, HSTMT statement = SQL_NULL_HSTMT);
  virtual void OnSetUpdateOptions(HSTMT statement);
  virtual void OnReserved();  // holds the place of one further operation

  BOOL IsOpen() const;
  BOOL IsBOF() const { return m_bBOF; }
  BOOL IsEOF() const { return m_bEOF; }
  BOOL IsDeleted() const;  // the current row was deleted through this set and no move followed
  void MoveFirst() { Move(1, SQL_FETCH_FIRST); }
  void MoveLast() { Move(-1, SQL_FETCH_LAST); }
  void MoveNext() { Move(1, SQL_FETCH_NEXT); }
  void MovePrev() { Move(-1, SQL_FETCH_PRIOR); }
  void SetAbsolutePosition(LONG row) { Move(row, SQL_FETCH_ABSOLUTE); }
  void GetStatus(CRecordsetStatus& status) const;
  LONG GetRecordCount() const { return m_lRecordCount; }          // rows seen so far
  const CString& GetSQL() const;                                  // the statement in use
  const CString& GetTableName() const { return m_strTableName; }  // empty unless the source is one table

  // All 0 on a closed set.
  BOOL CanUpdate() const;
  BOOL CanAppend() const;
  BOOL CanRestart() const;
  BOOL CanScroll() const;
  BOOL CanTransact() const;
  BOOL CanBookmark() const { return FALSE; }

  void CancelUpdate();             // ends AddNew or Edit, restoring the members
  void SetLockingMode(UINT mode);  // only optimistic; anything else throws
  // Take a bound member's address; null means any column (Is...) or all columns (Set...).
  BOOL IsFieldDirty(void* member);
  BOOL IsFieldNull(void* member);
  BOOL IsFieldNullable(void* member);
  void SetFieldDirty(void* member, BOOL dirty = TRUE);
  void SetFieldNull(void* member, BOOL null = TRUE);  // the column is written as NULL by the next Update

  // Any column of the current row, in any order, repeatedly. An unknown name, a bad index or no current
  // row throws. Names match without regard to case. NULL is the empty text or a null variant. Whether a
  // column may be NULL is SQL_NULLABLE_UNKNOWN where the driver does not tell.
  short GetODBCFieldCount() const;
  void GetODBCFieldInfo(const char* name, CODBCFieldInfo& info);
  void GetODBCFieldInfo(short index, CODBCFieldInfo& info);
  void GetFieldValue(const char* name, CDBVariant& value, short field_type = DEFAULT_FIELD_TYPE);
  void GetFieldValue(short index, CDBVariant& value, short field_type = DEFAULT_FIELD_TYPE);
  void GetFieldValue(const char* name, CString& value);
  void GetFieldValue(short index, CString& value);

  HSTMT m_hstmt;  // the statement handle while open, else null
  CDatabase* m_pDatabase;
  CString m_strFilter;  // WHERE text without the word; read at Open and Requery, never changed here
  CString m_strSort;    // ORDER BY text without the words

 protected:
  friend class CDatabase;
  friend struct FieldAccess;

  // Fetches by SQLExtendedFetch into the set's own buffers, in logical rows: those deleted through this
  // set do not count. Repeats while the driver is still executing. Like every move it drops a pending AddNew
  // or Edit; apart from that members and flags stay as they are, and Fixups copies the row.
  // SQL_INVALID_HANDLE on a closed set.
  RETCODE ExtendedFetch(WORD fetch_type, SQLLEN row);
  void Fixups();
  // How the rows of a result are held. All but the first run on statements that the connection keeps
  // prepared, so that OnSetOptions and OnSetUpdateOptions are not asked.
  enum Holding {
    wholeRows,  // by the driver, in a statement of the set's own
    fewRows,    // by the driver: sets that look for a row and end
    keysOnly,   // by key, each row read when it is visited; a snapshot, or a result without keys, as fewRows
  };
  // Before Open. `join`: what besides the key makes one row of several tables, for keysOnly; empty for one.
  void HoldRows(Holding holding, const CString& join = CString());
  Holding Held() const { return m_holding; }
  // The position of the row whose key is `key`, 0 for none; -1 when only reading the rows can tell.
  LONG FindKey(LONG key) const;
  // The result had a row at this position, but it has been deleted since, not through this set.
  bool IsGone(LONG position) const;
  // After a fetch of an open set that failed without an exception: what the database said is logged and kept
  // for DB_GetLastErrorDetail, as that of a call which ended with this code.
  void NoteFailure(RETCODE code, WORD becomes) const;

  // Names the member that holds the row key. Changes find their row by the key as fetched; without one
  // they compare all bound columns.
  void SetRowKey(const LONG* member) { m_pRowKey = member; }
  // Characters of a text column of this SQL type and precision, plus one for the zero byte.
  static LONG GetTextLen(SWORD sql_type, SQLULEN precision);

  UINT m_nFields;         // number of RFX calls in DoFieldExchange; set by derived constructors
  UINT m_nParams;         // always 0
  LONG m_lCurrentRecord;  // from 0; AFX_CURRENT_RECORD_BOF, AFX_CURRENT_RECORD_UNDEFINED
  LONG m_lRecordCount;    // high-water mark of rows seen
  BOOL m_bBOF;
  BOOL m_bEOF;      // both set: the result is empty, or the set is closed
  BOOL m_bEOFSeen;  // a forward move ran past the end: the count is final
  BOOL m_bAppendable;
  BOOL m_bUpdatable;
  short m_nResultCols;  // columns of the open result, bound or not
  UINT m_nOpenTypeInUse;
  DWORD m_dwOptions;  // as given to Open

 private:
  enum EditMode { noMode, addMode, editMode };

  bool ConnectDatabase();
  void TakeSource(const CString& source);
  void BuildQuery();
  void MakeRowSource();
  void Execute();
  void RunQuery();
  void DescribeColumns();
  void DescribeResult();
  void DescribeField(short index, CODBCFieldInfo* info);
  SWORD NullabilityOf(short index);
  void StandOnFirst();
  void SettleRow();
  void SettleEnd(WORD fetch_type);
  void RequireUpdatableRow();
  void EndMode(bool restore);
  void InsertRow();
  void UpdateRow();
  void ChangeRow(const CString& sql, std::vector<odbc::Parameter>& parameters, bool deleting);
  LONG CountRows(bool written);
  CString RowCondition(bool written, std::vector<odbc::Parameter>& parameters) const;
  bool IsView() const;
  LONG CountRowsAfter(SQLLEN changed, bool deleting);
  void RequireRowToDelete();
  SQLLEN RunChange(const CString& sql, std::vector<odbc::Parameter>& parameters);
  SQLLEN CountChanged(RETCODE code, odbc::Statement& statement);
  void BindParameters(odbc::Statement& statement, std::vector<odbc::Parameter>& parameters);
  short ColumnIndex(const char* name);
  void RequireColumn(short index);
  void BeginReading(short index);
  const FieldValue* OwnEdit(short index, std::string& text) const;
  bool ReadText(short index, SWORD c_type, CString& text);
  RETCODE ReadFixed(short index, SWORD c_type, void* target, SQLLEN size, SQLLEN* indicator);
  void ReadVariant(short index, SWORD c_type, CDBVariant& value);

  std::unique_ptr<RowFields> m_fields;
  std::unique_ptr<RowSource> m_rows;
  std::unique_ptr<CDatabase> m_ownDatabase;  // made at Open when no connected one was given
  CDatabase* m_pOpenDatabase;                // the set is open on it; null while closed
  const LONG* m_pRowKey;
  CString m_strSource;  // FROM list, SELECT or call
  std::unique_ptr<RowQuery> m_query;
  Holding m_holding;
  CString m_strJoin;
  CString m_strTableName;
  EditMode m_mode;
  BOOL m_bDeleted;                   // the current row was deleted and no move followed
  LONG m_lKeyLoaded;                 // the row key of the row last copied into the members
  std::vector<short> m_columnsRead;  // columns of the current row that were read on demand
};

#endif
