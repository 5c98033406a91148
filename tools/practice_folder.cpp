#include "tools/practice_folder.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <vector>

#include "tools/odbc_driver.h"
#include "tools/sqlite_schema.h"
#include "tools/tool_error.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kDriverSection = "KyODBC SQLite";
constexpr const char* kDatabaseKey = "Database=";

// What the library relies on: plain column names, dates as texts that literals match, keys of 32 bits. The
// rest: wait for other writers, and commit fast but safely.
constexpr std::array kOptions = {"LongNames=0",  "JDConv=0",          "BigInt=0",
                                 "Timeout=5000", "SyncPragma=NORMAL", "JournalMode=WAL"};

std::string SourcesText(const fs::path& database) {
  return fmt::format(
      "[{}]\n"
      "Description=Practice database of KyODBC\n"
      "Driver={}\n"
      "{}{}\n"
      "{}\n",
      kDataSource, kDriverSection, kDatabaseKey, database.string(), fmt::join(kOptions, "\n"));
}

std::string DriversText(const std::string& driver) {
  return fmt::format("[{}]\nDescription=ODBC driver for SQLite\nDriver={}\n", kDriverSection, driver);
}

// Files made so far; removes them again unless they are all wanted in the end.
class NewFiles {
 public:
  ~NewFiles() {
    std::error_code ignored;
    for (const fs::path& file : m_files) fs::remove(file, ignored);
  }
  // Makes an empty file that only its owner can read: it will hold patients' data, or say where they are.
  void Make(const fs::path& file) {
    const int descriptor = open(file.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
    if (descriptor < 0) {
      throw ToolError(kFailed, fmt::format("cannot make {}: {}", file.string(), std::strerror(errno)));
    }
    close(descriptor);
    m_files.push_back(file);
  }
  void Keep() { m_files.clear(); }

 private:
  std::vector<fs::path> m_files;
};

void WriteText(const fs::path& file, const std::string& text) {
  std::ofstream stream(file, std::ios::binary);
  stream << text;
  stream.close();
  if (!stream) throw ToolError(kFailed, fmt::format("cannot write {}", file.string()));
}

bool Exists(const fs::path& file) {
  std::error_code error;
  const bool exists = fs::exists(file, error);
  if (error) throw ToolError(kFailed, fmt::format("cannot look for {}: {}", file.string(), error.message()));
  return exists;
}

void RequireNameForIniFile(const fs::path& folder) {
  if (folder.string().find_first_of("\r\n") != std::string::npos) {
    throw ToolError(kUsage, "the name of the folder must not contain a line end");
  }
}

}  // namespace

PracticeFolder::PracticeFolder(const fs::path& folder) {
  if (folder.empty()) throw ToolError(kUsage, "the name of the folder is empty");
  m_folder = fs::absolute(folder).lexically_normal();
}

void PracticeFolder::Create() const {
  RequireNameForIniFile(m_folder);
  for (const fs::path& file : {Database(), Sources(), Drivers()}) {
    if (Exists(file)) {
      throw ToolError(kFailed,
                      fmt::format("{} exists already; a practice is never overwritten", file.string()));
    }
  }
  const std::string driver = FindSqliteDriver();
  std::error_code error;
  fs::create_directories(m_folder, error);
  if (error) throw ToolError(kFailed, fmt::format("cannot make {}: {}", m_folder.string(), error.message()));
  WriteFiles(driver);
}

void PracticeFolder::WriteFiles(const std::string& driver) const {
  NewFiles files;
  for (const fs::path& file : {Database(), Sources(), Drivers()}) files.Make(file);
  ApplySqliteSchema(Database());
  WriteText(Sources(), SourcesText(Database()));
  WriteText(Drivers(), DriversText(driver));
  files.Keep();
}

std::string PracticeFolder::DatabaseNamedInSources() const {
  std::ifstream sources(Sources());
  for (std::string line; std::getline(sources, line);) {
    if (line.starts_with(kDatabaseKey)) return line.substr(std::strlen(kDatabaseKey));
  }
  return {};
}

std::string PracticeFolder::ConnectText() const { return SqliteConnectText(Database()); }

void PracticeFolder::RequirePractice() const {
  for (const fs::path& file : {Database(), Sources(), Drivers()}) {
    if (!Exists(file)) {
      throw ToolError(kFailed,
                      fmt::format("there is no practice in {}: {} is missing; 'kyodbc init' makes one",
                                  m_folder.string(), file.filename().string()));
    }
  }
  std::error_code error;
  const std::string named = DatabaseNamedInSources();
  if (!fs::equivalent(named, Database(), error)) {
    throw ToolError(kFailed, fmt::format("{} names the database {} instead of {}; correct the line {}...",
                                         Sources().string(), named, Database().string(), kDatabaseKey));
  }
}

void PracticeFolder::UseForThisProcess() const {
  RequirePractice();
  setenv("ODBCINI", Sources().c_str(), 1);
  setenv("ODBCSYSINI", m_folder.c_str(), 1);
}

// The driver knows no braces around values.
std::string SqliteConnectText(const fs::path& file) {
  if (file.string().find_first_of(";{}") != std::string::npos) {
    throw ToolError(
        kFailed,
        fmt::format("{}: a name with ';' or a brace cannot be used here; rename the folder", file.string()));
  }
  return fmt::format("Driver={};Database={};{};NoCreat=1", FindSqliteDriver(), file.string(),
                     fmt::join(kOptions, ";"));
}
