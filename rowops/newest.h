// Key and time of the newest row, read by themselves: the other columns and the other rows are not wanted.
#ifndef KYODBC_ROWOPS_NEWEST_H
#define KYODBC_ROWOPS_NEWEST_H

#include "recset/kyrecset.h"

namespace rowops {

// How a table finds its newest row.
struct NewestQuery {
  const char* key;     // column of the row key
  const char* time;    // column sorted by
  const char* filter;  // owner filter with a %d
  const char* sort;    // newest first
  WORD none;           // the code for no row
};

class NewestRow : public CRecordset {
 public:
  // `tables` is the FROM list; an empty `filter` means all rows.
  NewestRow(CDatabase* database, const CString& tables, const NewestQuery& query, const CString& filter);
  ~NewestRow() override;
  CString GetDefaultSQL() override { return m_tables; }
  void DoFieldExchange(CFieldExchange* exchange) override;

  // False when the rows cannot be read; database exceptions pass on.
  bool Read();

  LONG m_key = 0;
  TIMESTAMP_STRUCT m_time = {};

 private:
  const CString m_tables;
  const NewestQuery& m_columns;
};

}  // namespace rowops

#endif
