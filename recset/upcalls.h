// Every call that goes up to a room above: this is the whole list.
#ifndef KYODBC_RECSET_UPCALLS_H
#define KYODBC_RECSET_UPCALLS_H

#include "platform/types.h"

class CDatabase;

namespace upcalls {

// Defined in frame/.

// The database of the library's connection; null while there is none.
CDatabase* LibraryDatabase();
// Writes the library's owner prefix. False when it does not fit `size` bytes; the buffer is then not to be
// used.
bool LibraryOwner(char* buffer, LONG size);
// 0 when the connected schema has at least version `minimum`, else 56.
WORD RequireDBVersion(double minimum);

// Defined in rowops/.

// Brings the last-display time of a patient up to date after one of the patient's images changed. Key 0 and
// unknown patients change nothing; neither does a failure, which is only logged.
void RefreshLastDisplay(CDatabase* database, const char* owner, LONG patient_key);
// Key and time of a patient's newest image (of all images for key 0). Returns 0; 65 when there is none; 3
// when the images could not be read. On failure nothing is written. Null pointers are not written to.
WORD NewestImage(CDatabase* database, const char* owner, LONG patient_key, LONG* key, TIMESTAMP_STRUCT* time);

}  // namespace upcalls

#endif
