// The exported names of the connection itself.
#include <cstring>
#include <string_view>

#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "frame/version_text.h"
#include "platform/log.h"
#include "platform/text.h"

namespace {

constexpr char kExclusiveSuffix[] = "Exclusive";
constexpr char kLibraryStation[] = "-";
constexpr LONG kSettingSize = 129;

template <std::size_t N>
void Terminate(char (&field)[N]) {
  field[text::FieldLength(field, N)] = '\0';
}

void TerminateAll(tagDBCONNECT& parameters) {
  Terminate(parameters.szDSN);
  Terminate(parameters.szUID);
  Terminate(parameters.szPWD);
  Terminate(parameters.szOwner);
}

std::string_view OwnerOf(const tagDBCONNECT& parameters) {
  return {parameters.szOwner, strnlen(parameters.szOwner, sizeof parameters.szOwner)};
}

// An exclusive connection is made to a data source of its own, named with a suffix. False when the name
// does not fit.
bool AppendExclusive(tagDBCONNECT& parameters) {
  const std::size_t length = std::strlen(parameters.szDSN);
  if (length + sizeof kExclusiveSuffix > sizeof parameters.szDSN) return false;
  std::memcpy(parameters.szDSN + length, kExclusiveSuffix, sizeof kExclusiveSuffix);
  return true;
}

CString LibrarySetting(const char* key, const char* default_text) {
  char value[kSettingSize] = {};
  const WORD code = DB_GetProfileString(key, kLibraryStation, default_text, value, kSettingSize, nullptr);
  return code == kOk ? value : default_text;
}

void ReadLibrarySettings(CDBConnection& connection) {
  connection.m_dDBVersion = VersionFromText(LibrarySetting("DBVersion", "0.0"));
  connection.m_strDBMS = LibrarySetting("DBMS", "Unknown");
  CString message;
  message.Format("connected to %s: schema version %g on %s", CString(connection.m_Params.szDSN),
                 connection.m_dDBVersion, connection.m_strDBMS);
  klog::Info(message.View());
}

WORD Initialise(CDBConnection& connection, const tagDBCONNECT& parameters) {
  // Stored before anything can fail: a refused call has replaced the parameters, and a reconnection uses
  // them.
  connection.m_Params = parameters;
  TerminateAll(connection.m_Params);
  if (connection.m_Params.bExclusive != 0 && !AppendExclusive(connection.m_Params)) return kBadArgument;
  const WORD code = connection.Connect();
  if (code != kOk) return code;
  connection.m_bWanted = true;
  connection.ForgetBrowsing();
  ReadLibrarySettings(connection);
  return kOk;
}

}  // namespace

WORD DB_InitDatabase(const tagDBCONNECT* parameters) {
  if (parameters == nullptr || parameters->szDSN[0] == '\0') return flat::Answer(kBadArgument);
  if (!IsOwnerPrefix(OwnerOf(*parameters))) return flat::Answer(kBadArgument);
  CDBConnection& connection = TheConnection();
  return flat::Code(&connection, [&] {
    const WORD code = Initialise(connection, *parameters);
    if (!connection.m_bWanted) connection.ForgetPassword();
    return code;
  });
}

WORD DB_CloseDatabase() {
  CDBConnection& connection = TheConnection();
  return flat::Code(&connection, [&] {
    connection.m_bWanted = false;
    connection.ForgetPassword();
    connection.ForgetBrowsing();
    return connection.CloseAll();
  });
}

// No connection is an answer, not a failure.
BOOL DB_IsDatabaseOpen() {
  BOOL open = FALSE;
  flat::Through([&] {
    const CDatabase* database = TheConnection().m_pDatabase;
    open = database != nullptr ? database->IsOpen() : FALSE;
    return kOk;
  });
  return open;
}

CDatabase* DB_GetDatabase() {
  CDatabase* database = nullptr;
  flat::Through([&] {
    database = TheConnection().m_pDatabase;
    return database == nullptr ? kNotOpened : kOk;
  });
  return database;
}
