// The text fields that filters know, each with its column, and the calls of the browse sets.
#ifndef KYODBC_TESTS_HOSTILE_FILTER_FIELDS_H
#define KYODBC_TESTS_HOSTILE_FILTER_FIELDS_H

#include <vector>

#include "frame/KyODBC.h"

namespace hostile {

struct TextField {
  LONG id;
  const char* column;
};

struct BrowseSet {
  const char* from;  // what the rows are read from
  const char* key;   // with the condition that joins, if any
  std::vector<TextField> fields;
  WORD (*open)();
  WORD (*filter)(LONG, LONG, const void*, const void*, const void*, const void*);
  WORD (*count)(LONG*);
  LONG (*key_at)(LONG);  // of the row at a position; -1 when it cannot be read
};

// The first field of a record is its key.
template <class Record, WORD (*GetByPos)(LONG, Record*)>
LONG KeyAt(LONG position) {
  Record record{};
  if (GetByPos(position, &record) != 0) return -1;
  LONG key = 0;
  __builtin_memcpy(&key, &record, sizeof key);
  return key;
}

const std::vector<BrowseSet>& BrowseSets();

}  // namespace hostile

#endif
