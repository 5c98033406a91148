// What the rooms below ask of the connection.
#include "recset/upcalls.h"

#include "frame/KyODBC.h"
#include "frame/connection.h"
#include "platform/result_codes.h"

namespace upcalls {

// Not through the exported function: that there is no connection is no failure of a caller's call here.
CDatabase* LibraryDatabase() { return TheConnection().m_pDatabase; }

bool LibraryOwner(char* buffer, LONG size) { return DB_GetDBOwner(buffer, size) == kOk; }

WORD RequireDBVersion(double minimum) {
  double version = 0.0;
  const WORD code = DB_GetDBVersion(&version);
  if (code != kOk) return code;
  return version < minimum ? kSchemaTooOld : kOk;
}

}  // namespace upcalls
