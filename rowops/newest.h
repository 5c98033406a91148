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

struct NewestRow {
  bool is_there = false;
  LONG key = 0;
  TIMESTAMP_STRUCT time = {};
};

// `tables` is the FROM list; the key 0 means all rows. False when the rows cannot be read; database
// exceptions pass on.
bool ReadNewest(CDatabase* database, const CString& tables, const NewestQuery& query, LONG owner_key,
                NewestRow* row);

}  // namespace rowops

#endif
