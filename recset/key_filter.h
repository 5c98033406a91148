// What the key filters and counts of several browse sets share.
#ifndef KYODBC_RECSET_KEY_FILTER_H
#define KYODBC_RECSET_KEY_FILTER_H

#include "platform/result_codes.h"
#include "recset/kyrecset.h"

namespace key_filter {

// The one location that the library writes itself. Groups, images and tests are found by their natural key
// only there: callers rely on files at other locations never being found again that way.
inline constexpr const char* kLibraryLocation = "9";

inline bool HasDate(const TIMESTAMP_STRUCT& time) {
  return time.year != 0 && time.month != 0 && time.day != 0;
}

// Writes the number of rows of `counter`, which is closed, with its filter: by a query, or with an owner by
// opening and closing it. Returns 0; 3 when it did not open; else what GetMaxPos answers.
inline WORD CountRows(CKyRecSet& counter, LONG* count) {
  LONG rows = 0;
  const bool by_query = counter.m_strOwner.IsEmpty();
  if (!by_query && !counter.Open(counter.m_nOpenType, nullptr, CRecordset::none)) return kNotOpened;
  const WORD code = counter.GetMaxPos(&rows);
  if (!by_query) counter.Close();
  if (code == kOk) *count = rows;
  return code;
}

}  // namespace key_filter

#endif
