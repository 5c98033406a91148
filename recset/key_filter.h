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

// Opens `counter` with its filter, writes the number of its rows, and closes it again. Returns 0; 3 when it
// did not open; else what GetMaxPos answers.
inline WORD CountRows(CKyRecSet& counter, LONG* count) {
  if (!counter.Open(counter.m_nOpenType, nullptr, CRecordset::none)) return kNotOpened;
  const WORD code = counter.GetMaxPos(count);
  counter.Close();
  return code;
}

}  // namespace key_filter

#endif
