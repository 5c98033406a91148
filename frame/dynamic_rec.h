// The result of a stored procedure, whatever its columns are.
#ifndef KYODBC_FRAME_DYNAMIC_REC_H
#define KYODBC_FRAME_DYNAMIC_REC_H

#include "../recset/kyrecset.h"

// Runs a procedure of the database by its name and reads the columns of its rows by name or by index, on
// demand.
//
//     CDynamicRec rows;
//     if (rows.ExecuteSProc("recall_list")) {
//       for (; !rows.IsEOF(); rows.MoveNext()) {
//         CString name;
//         rows.GetFieldValue("name", name);
//       }
//     }
//
// Where the database has no procedures, the view of that name is read; where it has functions instead, the
// function is called. All rows are read at once and held in memory: the set can be moved over in every
// direction, and other statements run while it is open. Only the first result of a procedure is kept. Rows
// cannot be changed, and filters and sorts have no effect. MoveLast and GetIndexPos tell the number of rows.
//
// A set is executed again after Close, or right away; Requery does nothing. What is not handled here passes a
// CDBException on to the caller.
class KYODBC_API CDynamicRec : public CKyRecSet {
 public:
  // A closed set on the library's connection, with the library's owner prefix. The caller may assign
  // m_pDatabase and m_strOwner before executing. The set must be gone before the connection is.
  CDynamicRec();

  ~CDynamicRec() override;
  BOOL Open(UINT open_type = AFX_DB_USE_DEFAULT_TYPE, const char* sql = nullptr,
            DWORD options = none) override;

  // Runs {call NAME}, the owner prefix directly before the name, and stands on the first row; a procedure
  // without a result leaves the set open and empty. Returns not 0 when the set is open. Throws when there
  // is no such procedure, or when it fails.
  BOOL ExecuteSProc(const char* name);

  using CKyRecSet::GetFieldName;
  // The name of a column, counted from 0, as the driver reports it, with *error 0. Outside the columns the
  // name is empty and *error 1; after a CDBException 99. `error` may be null.
  CString GetFieldName(LONG column, LONG* error) override;

  // Each reads one column of the current row, by its name without regard to letter case, or by its index
  // from 0. An unknown column throws, and so does having no current row.
  //
  // The number overloads take what the driver delivered for the type that they read, without conversion: ask
  // for the type that the column has. Of a column of another type, a BIGINT or NUMERIC one among them, the
  // number means nothing; those are read as texts. NULL is 0.
  using CRecordset::GetFieldValue;  // into a CDBVariant
  void GetFieldValue(const char* name, CString& value);
  void GetFieldValue(short column, CString& value);
  void GetFieldValue(const char* name, LONG& value);  // LONG, int and BOOL are one type
  void GetFieldValue(short column, LONG& value);
  void GetFieldValue(const char* name, short& value);
  void GetFieldValue(short column, short& value);
  void GetFieldValue(const char* name, long& value);  // for variables of the platform's own 64-bit type
  void GetFieldValue(short column, long& value);
  // To the second; the fraction is dropped. NULL makes the value null, and a column of another type, or a
  // date before the year 100, makes it invalid.
  void GetFieldValue(const char* name, COleDateTime& value);
  void GetFieldValue(short column, COleDateTime& value);
};

#endif
