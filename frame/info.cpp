// What the library tells about itself and about the connected database.
#include <string_view>

#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "platform/cdbexception.h"
#include "platform/log.h"
#include "platform/text.h"

namespace {

// Returns 0, or 1 for a null buffer and for a text that had to be cut.
WORD PutText(char* buffer, LONG size, std::string_view value) {
  if (buffer == nullptr) return kBadArgument;
  const std::size_t room = size > 0 ? static_cast<std::size_t>(size) : 0;
  text::BoundedCopy(buffer, room, value.data(), value.size());
  return value.size() >= room ? kBadArgument : kOk;
}

}  // namespace

BOOL DB_CheckVersion(WORD version, WORD* library_version) {
  if (library_version != nullptr) flat::Put(library_version, WORD{KYODBC_INTERFACE_VERSION});
  const bool usable = version <= KYODBC_INTERFACE_VERSION;
  flat::Answer(usable ? kOk : kBadArgument);
  return usable ? TRUE : FALSE;
}

WORD DB_GetInfo(tagDBINFO* info) {
  if (info == nullptr) return flat::Answer(kBadArgument);
  const CDBConnection& connection = TheConnection();
  return flat::Code(connection.m_pDatabase, [&]() -> WORD {
    *info = {};
    try {
      const CString database = connection.m_pDatabase->GetDatabaseName();
      PutText(info->szDSN, sizeof info->szDSN, connection.m_Params.szDSN);
      PutText(info->szDatabase, sizeof info->szDatabase, database.View());
      return kOk;
    } catch (CDBException* exception) {
      return klog::Caught(exception, kCountFailed);
    }
  });
}

WORD DB_GetDBVersion(double* version) {
  return flat::Through([&] {
    if (version != nullptr) flat::Put(version, TheConnection().m_dDBVersion);
    return kOk;
  });
}

WORD DB_GetDBMS(char* buffer, LONG size) {
  return flat::Through([&] { return PutText(buffer, size, TheConnection().m_strDBMS.View()); });
}

WORD DB_GetDBOwner(char* buffer, LONG size) {
  return flat::Through([&] { return PutText(buffer, size, TheConnection().m_Params.szOwner); });
}
