// The one storage location that the library itself gives out.
#ifndef KYODBC_ROWOPS_LIBRARY_LOCATION_H
#define KYODBC_ROWOPS_LIBRARY_LOCATION_H

#include "platform/result_codes.h"
#include "platform/types.h"
#include "recset/key_filter.h"

namespace rowops {

// Writes the library's location "9" into the empty location field (two bytes) of a row to be added; the
// row is found again by it. A caller must not choose a location: 1 and no change when the field holds one.
inline WORD TakeLibraryLocation(char* location) {
  if (location[0] != '\0') return kBadArgument;
  location[0] = key_filter::kLibraryLocation[0];
  location[1] = '\0';
  return kOk;
}

}  // namespace rowops

#endif
