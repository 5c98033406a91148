#include "tools/doctor/source.h"

#include <fmt/format.h>
#include <odbcinst.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <string_view>

namespace {

std::string Entry(const char* file, const std::string& section, const char* key) {
  std::array<char, 1024> value{};
  if (section.empty()) return {};
  SQLGetPrivateProfileString(section.c_str(), key, "", value.data(), static_cast<int>(value.size()), file);
  return value.data();
}

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

// As the drivers read options: the number that the text begins with, 0 when it begins with none that fits.
int LeadingNumber(const std::string& text) {
  const std::size_t begin = std::min(text.find_first_not_of(" \t"), text.size());
  int number = 0;
  std::from_chars(text.data() + begin, text.data() + text.size(), number);
  return number;
}

bool IsOn(const std::string& value) {
  const std::string word = Lower(value);
  return LeadingNumber(word) != 0 || word == "yes" || word == "on" || word == "true" || word == "y";
}

// Tests of an option's value; true when it is bad.
bool On(const std::string& value) { return IsOn(value); }
bool OnOrUnset(const std::string& value) { return value.empty() || IsOn(value); }
bool Set(const std::string& value) { return !value.empty(); }
bool BelowOneMillion(const std::string& value) { return LeadingNumber(value) < 1000000; }
bool BelowOneSecond(const std::string& value) { return !value.empty() && LeadingNumber(value) < 1000; }
bool NotPositive(const std::string& value) { return LeadingNumber(value) <= 0; }
bool NotUtf8mb4(const std::string& value) { return Lower(value) != "utf8mb4"; }
bool IsOff(const std::string& value) { return Lower(value) == "off" || value == "0"; }
bool LosesJournal(const std::string& value) { return Lower(value) == "off" || Lower(value) == "memory"; }
bool WithoutFoundRows(const std::string& value) { return (LeadingNumber(value) & 2) == 0; }
bool Reconnects(const std::string& value) { return (LeadingNumber(value) & 0x400000) != 0; }
bool ForwardOnly(const std::string& value) { return (LeadingNumber(value) & 0x300000) != 0; }

// `effect` goes on behind the option and its value.
struct BadOption {
  DriverKind kind;
  const char* key;
  bool (*bad)(const std::string& value);
  const char* effect;
  const char* cure;  // the line for odbc.ini
};

constexpr DriverKind kLite = DriverKind::kSqlite;
constexpr DriverKind kPg = DriverKind::kPostgresql;
constexpr DriverKind kMaria = DriverKind::kMariadb;

// One row per option and fault.
constexpr BadOption kBadOptions[] = {
    {kLite,  "LongNames",          On,               "has columns reported with their table's name",             "LongNames=0"               },
    {kLite,  "JDConv",             On,               "stores dates as numbers, which no filter finds",           "JDConv=0"                  },
    {kLite,  "BigInt",             On,               "reports keys with 64 bits",                                "BigInt=0"                  },
    {kLite,  "NoTXN",              On,               "takes transactions away",                                  "NoTXN=0"                   },
    {kLite,  "StepAPI",            On,               "lets an open table keep others from writing",              "StepAPI=0"                 },
    {kLite,  "Timeout",            BelowOneSecond,   "gives up at once when another program is writing",         "Timeout=5000"              },
    {kLite,  "SyncPragma",         IsOff,            "may lose the whole database when the power fails",         "SyncPragma=NORMAL"         },
    {kLite,  "JournalMode",        LosesJournal,     "may lose the whole database when a program dies",
     "JournalMode=WAL"                                                                                                                       },
    {kLite,  "Tracefile",          Set,              "writes patients' values to a file",                        "no line Tracefile"         },
    {kPg,    "UpdatableCursors",   OnOrUnset,        "makes reading of views fail",                              "UpdatableCursors=0"        },
    {kPg,    "BoolsAsChar",        OnOrUnset,        "reports flags as texts",                                   "BoolsAsChar=0"             },
    {kPg,    "MaxLongVarcharSize", BelowOneMillion,  "cuts long texts",                                          "MaxLongVarcharSize=1000000"},
    {kPg,    "UseDeclareFetch",    On,               "lets a rollback end every open table",                     "UseDeclareFetch=0"         },
    {kPg,    "LFConversion",       On,               "changes the line ends of texts",                           "LFConversion=0"            },
    {kPg,    "ReadOnly",           On,               "refuses every change",                                     "ReadOnly=0"                },
    {kPg,    "CommLog",            On,               "writes patients' values to a file that everyone can read", "CommLog=0"                 },
    {kPg,    "Debug",              On,               "writes the password to a file that everyone can read",     "Debug=0"                   },
    {kMaria, "OPTION",             WithoutFoundRows, "has changed rows counted instead of rows found",           "OPTION=2"                  },
    {kMaria, "OPTION",             Reconnects,       "reconnects in secret and loses open transactions",         "OPTION=2"                  },
    {kMaria, "OPTION",             ForwardOnly,      "gives results that cannot be browsed",                     "OPTION=2"                  },
    {kMaria, "AUTO_RECONNECT",     On,               "reconnects in secret and loses open transactions",         "AUTO_RECONNECT=0"          },
    {kMaria, "CHARSET",            NotUtf8mb4,       "does not carry every character",                           "CHARSET=utf8mb4"           },
    {kMaria, "CONN_TIMEOUT",       NotPositive,      "lets programs wait for ever for a server that hangs",
     "CONN_TIMEOUT=30"                                                                                                                       },
};

void CheckOptions(const Source& source, Findings& findings) {
  for (const BadOption& option : kBadOptions) {
    if (option.kind != source.kind) continue;
    const std::string value = source.Option(option.key);
    if (!option.bad(value)) continue;
    const std::string given = value.empty() ? fmt::format("{}, which is not set,", option.key)
                                            : fmt::format("{}={}", option.key, value);
    findings.Add(fmt::format("{} {}", given, option.effect),
                 fmt::format("[{}] of odbc.ini needs {}", source.name, option.cure));
  }
}

struct KnownDriver {
  const char* part;  // of the file's name
  DriverKind kind;
};

constexpr KnownDriver kDrivers[] = {
    {"sqlite",   kLite },
    {"psqlodbc", kPg   },
    {"maodbc",   kMaria},
};

DriverKind KindOf(const std::string& file) {
  const std::string name = Lower(std::filesystem::path(file).filename().string());
  for (const KnownDriver& driver : kDrivers) {
    if (name.find(driver.part) != name.npos) return driver.kind;
  }
  return DriverKind::kOther;
}

void CheckDriver(const Source& source, Findings& findings) {
  std::error_code ignored;
  if (source.driver_file.empty()) {
    findings.Add(fmt::format("no data source '{}' with a driver is configured", source.name),
                 "write it into odbc.ini, or let ODBCINI name the file it is in");
  } else if (source.driver_file.starts_with('/') && !std::filesystem::exists(source.driver_file, ignored)) {
    findings.Add(fmt::format("the driver {} is not there", source.driver_file), "install it");
  } else if (source.kind == DriverKind::kOther) {
    findings.Add(fmt::format("the driver {} was never tried with this library", source.driver_file),
                 "use those of SQLite, PostgreSQL or MariaDB");
  } else if (source.driver_file.find("psqlodbca") != std::string::npos) {
    findings.Add("the driver psqlodbca depends on the locale of the program", "use psqlodbcw.so");
  }
}

}  // namespace

std::string Source::Option(const char* key) const {
  const std::string own = Entry("odbc.ini", name, key);
  return own.empty() && kind == DriverKind::kPostgresql ? Entry("odbcinst.ini", driver, key) : own;
}

Source FindSource(const std::string& name) {
  Source source;
  source.name = name;
  source.driver = Entry("odbc.ini", name, "Driver");
  for (const char* key : {"Driver64", "Driver"}) {
    if (source.driver_file.empty()) source.driver_file = Entry("odbcinst.ini", source.driver, key);
  }
  if (source.driver_file.empty() && source.driver.find('/') != std::string::npos) {
    source.driver_file = source.driver;
  }
  source.kind = KindOf(source.driver_file);
  return source;
}

void CheckSource(const Source& source, Findings& findings) {
  CheckDriver(source, findings);
  CheckOptions(source, findings);
  if (IsOn(Entry("odbcinst.ini", "ODBC", "Trace"))) {
    findings.Add("the driver manager's trace writes patients' values to a file and slows every call",
                 "[ODBC] of odbcinst.ini needs Trace=No");
  }
}
