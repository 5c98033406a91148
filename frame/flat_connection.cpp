// The exported names of the connection itself.
#include <cstring>

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

tagDBCONNECT Terminated(tagDBCONNECT parameters) {
  Terminate(parameters.szDSN);
  Terminate(parameters.szUID);
  Terminate(parameters.szPWD);
  Terminate(parameters.szOwner);
  return parameters;
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
  connection.m_Params = Terminated(parameters);
  if (connection.m_Params.bExclusive != 0 && !AppendExclusive(connection.m_Params)) return kBadArgument;
  const WORD code = connection.Connect();
  if (code == kOk) ReadLibrarySettings(connection);
  return code;
}

}  // namespace

WORD DB_InitDatabase(const tagDBCONNECT* parameters) {
  if (parameters == nullptr || parameters->szDSN[0] == '\0') return kBadArgument;
  CDBConnection& connection = TheConnection();
  return flat::Code(&connection, [&] { return Initialise(connection, *parameters); });
}

WORD DB_CloseDatabase() {
  CDBConnection& connection = TheConnection();
  return flat::Code(&connection, [&] { return connection.CloseAll(); });
}

BOOL DB_IsDatabaseOpen() {
  const CDatabase* database = TheConnection().m_pDatabase;
  return database != nullptr ? database->IsOpen() : FALSE;
}

CDatabase* DB_GetDatabase() { return TheConnection().m_pDatabase; }
