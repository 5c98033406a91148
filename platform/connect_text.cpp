#include "platform/connect_text.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
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

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

bool HasKeyword(std::string_view part, std::string_view keyword) {
  const std::string_view own = Trimmed(part.substr(0, part.find('=')));
  return std::equal(own.begin(), own.end(), keyword.begin(), keyword.end(),
                    [](char left, char right) { return Lower(left) == Lower(right); });
}

SecretText WithoutBraces(std::string_view value) {
  value = Trimmed(value);
  if (value.size() < 2 || value.front() != '{' || value.back() != '}') return SecretText(value);
  value = value.substr(1, value.size() - 2);
  SecretText inside;
  for (std::size_t brace = value.find("}}"); brace != std::string_view::npos; brace = value.find("}}")) {
    inside += value.substr(0, brace + 1);
    value.remove_prefix(brace + 2);
  }
  inside += value;
  return inside;
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
std::vector<std::string_view> Parts(std::string_view connect) {
  std::vector<std::string_view> parts;
  while (!connect.empty()) {
    const std::size_t end = EndOfPart(connect);
    if (end > 0) parts.push_back(connect.substr(0, end));
    connect.remove_prefix(std::min(end + 1, connect.size()));
  }
  return parts;
}

// The file of the driver that the string means, by way of a data source or not, and of a section for the
// driver or not.
std::string DriverFile(std::string_view connect) {
  const SecretText source = ConnectPart(connect, "DSN");
  std::string driver(ConnectPart(connect, "DRIVER").View());
  if (!source.IsEmpty()) driver = odbc::SourceEntry(source, "Driver");
  for (const char* key : {"Driver64", "Driver"}) {
    std::string file = odbc::DriverEntry(driver.c_str(), key);
    if (!file.empty()) return file;
  }
  return driver;
}

// As the drivers read options: the number that the text begins with, 0 when it begins with none that fits.
int LeadingNumber(std::string_view text) {
  text = Trimmed(text);
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// An option in the string, else that of the data source; 0 when neither has it.
int Option(std::string_view connect, const char* keyword) {
  const SecretText given = ConnectPart(connect, keyword);
  if (!given.IsEmpty()) return LeadingNumber(given.View());
  return LeadingNumber(odbc::SourceEntry(ConnectPart(connect, "DSN"), keyword));
}

bool IsGiven(std::string_view connect, const char* keyword) {
  return !ConnectPart(connect, keyword).IsEmpty() ||
         !odbc::SourceEntry(ConnectPart(connect, "DSN"), keyword).empty();
}

// The acknowledgement of what was sent may take that long; while nothing is sent, the machine is asked for a
// sign of life often enough.
std::string TcpLimits(DWORD seconds) {
  constexpr DWORD kMilliseconds = 1000;
  return fmt::format("{}={{keepalives_idle={} keepalives_interval={} tcp_user_timeout={}}};",
                     kPostgreSQLOptions, std::max(seconds / 2, DWORD{1}), std::max(seconds / 4, DWORD{1}),
                     seconds * kMilliseconds);
}

// In front, where nothing that stands before it can swallow it: a password may hold a brace.
SecretText WithOption(std::string_view option, std::string_view connect) {
  SecretText text(option);
  text += connect;
  return text;
}

}  // namespace

SecretText ConnectPart(std::string_view connect, const char* keyword) {
  for (const std::string_view part : Parts(connect)) {
    if (!HasKeyword(part, keyword)) continue;
    const std::size_t equals = part.find('=');
    return equals == std::string_view::npos ? SecretText() : WithoutBraces(part.substr(equals + 1));
  }
  return SecretText();
}

CString HarmlessParts(std::string_view connect) {
  std::string shown;
  for (const std::string_view part : Parts(connect)) {
    const bool harmless = std::any_of(std::begin(kHarmlessKeys), std::end(kHarmlessKeys),
                                      [part](const char* known) { return HasKeyword(part, known); });
    if (!harmless) continue;
    if (!shown.empty()) shown += ';';
    shown += part;
  }
  return CString(std::move(shown));
}

SecretText WithoutIgnoredLogin(std::string_view connect) {
  if (DriverFile(connect).find(kSQLiteDriver) == std::string::npos) return SecretText(connect);
  SecretText kept;
  for (const std::string_view part : Parts(connect)) {
    if (HasKeyword(part, "UID") || HasKeyword(part, "PWD")) continue;
    kept += part;
    kept += ";";
  }
  return kept;
}

SecretText WithLoginTimeout(std::string_view connect, DWORD seconds) {
  if (seconds == 0 || DriverFile(connect).find(kMariaDBDriver) == std::string::npos)
    return SecretText(connect);
  const int set = Option(connect, kMariaDBTimeout);
  const bool given = !ConnectPart(connect, kMariaDBTimeout).IsEmpty();
  if (given || (set > 0 && static_cast<DWORD>(set) <= seconds)) return SecretText(connect);
  return WithOption(fmt::format("{}={};", kMariaDBTimeout, seconds), connect);
}

SecretText WithSilenceLimit(std::string_view connect, DWORD seconds) {
  if (seconds == 0) return SecretText(connect);
  const std::string driver = DriverFile(connect);
  if (driver.find(kMariaDBDriver) != std::string::npos && !IsGiven(connect, kMariaDBReadTimeout)) {
    return WithOption(fmt::format("{}={};", kMariaDBReadTimeout, seconds), connect);
  }
  // The driver refuses to connect when the same limit is given in two ways.
  const bool decided = IsGiven(connect, kPostgreSQLOptions) || IsGiven(connect, "KeepaliveTime") ||
                       IsGiven(connect, "KeepaliveInterval");
  if (driver.find(kPostgreSQLDriver) == std::string::npos || decided) return SecretText(connect);
  return WithOption(TcpLimits(seconds), connect);
}

bool AsksForFoundRows(std::string_view connect) {
  return (Option(connect, kMariaDBOptions) & kFoundRows) != 0;
}
