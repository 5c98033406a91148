#include "platform/connect_text.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "platform/odbc.h"

namespace {

constexpr const char* kHarmlessKeys[] = {"DSN", "DRIVER", "SERVER", "SERVERNAME", "PORT", "DATABASE", "UID"};
constexpr const char* kMariaDBDriver = "libmaodbc";  // in the name of its file
constexpr const char* kMariaDBTimeout = "CONN_TIMEOUT";
constexpr const char* kMariaDBReadTimeout = "READ_TIMEOUT";
constexpr const char* kMariaDBOptions = "OPTION";
constexpr int kFoundRows = 2;
constexpr const char* kPostgreSQLDriver = "psqlodbc";
constexpr const char* kSQLiteDriver = "sqlite";
constexpr const char* kPostgreSQLOptions = "pqopt";

CString Keyword(const CString& part) {
  CString keyword = part.SpanExcluding("=");
  return keyword.Trim();
}

CString WithoutBraces(CString value) {
  value.Trim();
  const int length = value.GetLength();
  if (length < 2 || value.GetAt(0) != '{' || value.GetAt(length - 1) != '}') return value;
  value = value.Mid(1, length - 2);
  value.Replace("}}", "}");
  return value;
}

// Behind the braces that begin at `open`; a brace written twice is one of the value. Without a last one the
// value goes on to the end.
std::size_t BehindBraces(std::string_view text, std::size_t open) {
  for (std::size_t at = text.find('}', open); at != std::string_view::npos; at = text.find('}', at + 2)) {
    if (at + 1 == text.size() || text[at + 1] != '}') return at + 1;
  }
  return text.size();
}

// Where the first part of a connection string ends. A semicolon in braces does not end it.
std::size_t EndOfPart(std::string_view text) {
  const std::size_t equals = std::min(text.find_first_of("=;"), text.size());
  const std::size_t value = text.find_first_not_of(' ', equals + 1);
  const bool braced = value < text.size() && text[equals] == '=' && text[value] == '{';
  return std::min(text.find(';', braced ? BehindBraces(text, value) : equals), text.size());
}

// The parts "keyword=value" of a connection string.
std::vector<CString> Parts(const CString& connect) {
  std::vector<CString> parts;
  for (std::string_view rest = connect.View(); !rest.empty();) {
    const std::size_t end = EndOfPart(rest);
    if (end > 0) parts.emplace_back(std::string(rest.substr(0, end)));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return parts;
}

// The file of the driver that the string means, by way of a data source or not, and of a section for the
// driver or not.
std::string DriverFile(const CString& connect) {
  const CString source = ConnectPart(connect, "DSN");
  std::string driver = ConnectPart(connect, "DRIVER").GetString();
  if (!source.IsEmpty()) driver = odbc::SourceEntry(source, "Driver");
  for (const char* key : {"Driver64", "Driver"}) {
    std::string file = odbc::DriverEntry(driver.c_str(), key);
    if (!file.empty()) return file;
  }
  return driver;
}

// An option in the string, else that of the data source; 0 when neither has it.
int Option(const CString& connect, const char* keyword) {
  const CString given = ConnectPart(connect, keyword);
  if (!given.IsEmpty()) return std::atoi(given);
  return std::atoi(odbc::SourceEntry(ConnectPart(connect, "DSN"), keyword).c_str());
}

bool IsGiven(const CString& connect, const char* keyword) {
  return !ConnectPart(connect, keyword).IsEmpty() ||
         !odbc::SourceEntry(ConnectPart(connect, "DSN"), keyword).empty();
}

// The acknowledgement of what was sent may take that long; while nothing is sent, the machine is asked for a
// sign of life often enough.
CString TcpLimits(DWORD seconds) {
  constexpr DWORD kMilliseconds = 1000;
  return CString(fmt::format("{}={{keepalives_idle={} keepalives_interval={} tcp_user_timeout={}}};",
                             kPostgreSQLOptions, std::max(seconds / 2, DWORD{1}),
                             std::max(seconds / 4, DWORD{1}), seconds * kMilliseconds));
}

}  // namespace

CString ConnectPart(const CString& connect, const char* keyword) {
  for (const CString& part : Parts(connect)) {
    if (Keyword(part).CompareNoCase(keyword) != 0) continue;
    const int equals = part.Find('=');
    return equals < 0 ? CString() : WithoutBraces(part.Mid(equals + 1));
  }
  return CString();
}

CString HarmlessParts(const CString& connect) {
  CString shown;
  for (const CString& part : Parts(connect)) {
    const CString key = Keyword(part);
    const bool harmless = std::any_of(std::begin(kHarmlessKeys), std::end(kHarmlessKeys),
                                      [&key](const char* known) { return key.CompareNoCase(known) == 0; });
    if (!harmless) continue;
    if (!shown.IsEmpty()) shown += ";";
    shown += part;
  }
  return shown;
}

CString WithoutIgnoredLogin(const CString& connect) {
  if (DriverFile(connect).find(kSQLiteDriver) == std::string::npos) return connect;
  CString kept;
  for (const CString& part : Parts(connect)) {
    const CString key = Keyword(part);
    if (key.CompareNoCase("UID") != 0 && key.CompareNoCase("PWD") != 0) kept += part + ";";
  }
  return kept;
}

// In front, where nothing that stands before it can swallow it: a password may hold a brace.
CString WithLoginTimeout(const CString& connect, DWORD seconds) {
  if (seconds == 0 || DriverFile(connect).find(kMariaDBDriver) == std::string::npos) return connect;
  const int set = Option(connect, kMariaDBTimeout);
  const bool given = !ConnectPart(connect, kMariaDBTimeout).IsEmpty();
  if (given || (set > 0 && static_cast<DWORD>(set) <= seconds)) return connect;
  return CString(fmt::format("{}={};", kMariaDBTimeout, seconds)) + connect;
}

CString WithSilenceLimit(const CString& connect, DWORD seconds) {
  if (seconds == 0) return connect;
  const std::string driver = DriverFile(connect);
  if (driver.find(kMariaDBDriver) != std::string::npos && !IsGiven(connect, kMariaDBReadTimeout)) {
    return CString(fmt::format("{}={};", kMariaDBReadTimeout, seconds)) + connect;
  }
  // The driver refuses to connect when the same limit is given in two ways.
  const bool decided = IsGiven(connect, kPostgreSQLOptions) || IsGiven(connect, "KeepaliveTime") ||
                       IsGiven(connect, "KeepaliveInterval");
  if (driver.find(kPostgreSQLDriver) == std::string::npos || decided) return connect;
  return TcpLimits(seconds) + connect;
}

bool AsksForFoundRows(const CString& connect) { return (Option(connect, kMariaDBOptions) & kFoundRows) != 0; }
