#include "tools/doctor/session.h"

#include <fmt/format.h>

#include <sstream>

#include "tools/doctor/query.h"

namespace {

constexpr double kVersion = 4.0;
constexpr const char* kThreeCharacters = "ä€🦷";

struct DefaultRow {
  const char* table;
  const char* key;
  const char* name;
};

constexpr DefaultRow kDefaultRows[] = {
    {"TDoctor",  tDrCulIntDrIDPk,     tDrSName  },
    {"TStation", tStatCulIntStatIDPk, tStatSName},
    {"TUnit",    tUnitCulIntUnitIDPk, tUnitSName},
};

void CheckVersion(Findings& findings) {
  double version = 0.0;
  DB_GetDBVersion(&version);
  if (version >= kVersion) return;
  findings.Add(fmt::format("the schema version is {:.1f}, and most functions need {:.1f}", version, kVersion),
               "bring the schema up to date and set the setting DBVersion of the station '-'");
}

void CheckSystemName(Findings& findings) {
  char name[129] = {};
  if (DB_GetDBMS(name, sizeof name) == 0 && std::string(name) != "Unknown") return;
  findings.Add("the setting DBMS of the station '-' is missing",
               "apply the schema file of this database again");
}

// By its name only: asking a name service would tell others what is examined.
bool IsThisMachine(const std::string& server) {
  return server.empty() || server == "localhost" || server == "::1" || server.starts_with("127.") ||
         server.starts_with('/');
}

std::string ServerOf(const Source& source) {
  const std::string server = source.Option("Servername");
  return server.empty() ? source.Option("Server") : server;
}

bool IsEncrypted(CDatabase& database, DriverKind kind) {
  if (kind == DriverKind::kPostgresql) {
    return Answer(
               database,
               "SELECT CASE WHEN ssl THEN 'yes' ELSE 'no' END FROM pg_stat_ssl WHERE pid=pg_backend_pid()") ==
           "yes";
  }
  return !Answer(
              database,
              "SELECT VARIABLE_VALUE FROM information_schema.SESSION_STATUS WHERE VARIABLE_NAME='SSL_CIPHER'")
              .empty();
}

bool IsServer(const Source& source) {
  return source.kind == DriverKind::kPostgresql || source.kind == DriverKind::kMariadb;
}

void CheckEscapes(CDatabase& database, const Source& source, Findings& findings) {
  constexpr const char* kMode = "NO_BACKSLASH_ESCAPES";
  if (source.kind != DriverKind::kMariadb || source.Option("INITSTMT").find(kMode) != std::string::npos ||
      Answer(database, "SELECT @@GLOBAL.sql_mode").find(kMode) != std::string::npos) {
    return;
  }
  findings.Add("NO_BACKSLASH_ESCAPES is missing, so other programs take a backslash in a text for an escape",
               fmt::format("[{}] of odbc.ini needs INITSTMT=SET sql_mode=CONCAT(@@sql_mode,',{}')",
                           source.name, kMode));
}

}  // namespace

Facts FactsOf(CDatabase& database, const Source& source) {
  Facts found;
  std::istringstream facts(database.DescribeDriver().GetString());
  for (std::string fact; std::getline(facts, fact, ';');) {
    found.push_back(fact.starts_with(' ') ? fact.substr(1) : fact);
  }
  double version = 0;
  DB_GetDBVersion(&version);
  found.push_back(fmt::format("schema version {:.1f}", version));
  if (IsServer(source)) {
    found.push_back(fmt::format("encryption (TLS) {}{}", IsEncrypted(database, source.kind) ? "on" : "off",
                                IsThisMachine(ServerOf(source)) ? ", the server is on this machine" : ""));
  }
  return found;
}

void CheckAbilities(CDatabase& database, Findings& findings) {
  if (std::string(database.DescribeDriver()).find("static cursors no") != std::string::npos) {
    findings.Add("the driver has no static cursors, so tables cannot be browsed",
                 "use a driver that has them");
  }
  if (!database.CanTransact()) {
    findings.Add(
        "the data source has no transactions, so a failure may leave half of a change, and whether "
        "tables can be written to was not tried",
        "use a driver and options that allow them");
  }
}

void CheckPractice(CDatabase& database, const std::string& owner, Findings& findings) {
  CheckVersion(findings);
  CheckSystemName(findings);
  const std::string ping =
      Refusal([&] { database.ExecuteSQL(fmt::format("{{call {}spky_ping}}", owner).c_str()); });
  if (!ping.empty()) {
    findings.Add(fmt::format("the procedure {}spky_ping cannot be called ({})", owner, ping),
                 "apply the schema file of this database again, and grant the user the right to call it");
  }
  for (const DefaultRow& row : kDefaultRows) {
    const std::string name =
        Answer(database, fmt::format("SELECT {} FROM {}{} WHERE {}=1", row.name, owner, row.table, row.key));
    if (name == "-") continue;
    findings.Add(fmt::format("{}{} has no row with key 1 and the name '-'", owner, row.table),
                 "apply the schema file of this database again");
  }
}

void CheckEncoding(CDatabase& database, const Source& source, Findings& findings) {
  CheckEscapes(database, source, findings);
  const char* length = source.kind == DriverKind::kSqlite ? "LENGTH" : "CHAR_LENGTH";
  const std::string counted = Answer(database, fmt::format("SELECT {}('{}')", length, kThreeCharacters));
  const std::string returned = Answer(database, fmt::format("SELECT '{}'", kThreeCharacters));
  if (counted == "3" && returned == kThreeCharacters) return;
  findings.Add("the connection does not carry texts in UTF-8",
               "use UTF-8 for the database, and on MariaDB CHARSET=utf8mb4 in odbc.ini");
}

void CheckEncryption(CDatabase& database, const Source& source, Findings& findings) {
  if (!IsServer(source) || IsThisMachine(ServerOf(source)) || IsEncrypted(database, source.kind)) return;
  findings.Add("patients' data and the password travel to the server without encryption",
               source.kind == DriverKind::kPostgresql
                   ? "switch TLS on in the server and set SSLmode=verify-full in odbc.ini"
                   : "switch TLS on in the server and set FORCETLS=1, SSLCA and SSLVERIFY=1 in odbc.ini");
}
