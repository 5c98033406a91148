#include "platform/log.h"

#include <cctype>
#include <cstdlib>
#include <memory>

#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>

namespace klog {
namespace {

struct Log {
  std::unique_ptr<spdlog::logger> logger;  // null when the log is off
  Level level = Level::kOff;
  bool values = false;
};

// The trace build shows every ODBC call without being asked.
#ifdef KYODBC_TRACE
constexpr Level kDefaultLevel = Level::kTrace;
#else
constexpr Level kDefaultLevel = Level::kOff;
#endif

struct LevelName {
  const char* name;
  Level level;
};

constexpr LevelName kLevelNames[] = {
    {"trace", Level::kTrace},
    {"debug", Level::kDebug},
    {"info",  Level::kInfo },
    {"warn",  Level::kWarn },
    {"error", Level::kError},
};

Level LevelFrom(const char* name) {
  if (name == nullptr) return kDefaultLevel;
  for (const LevelName& row : kLevelNames) {
    if (std::string_view(name) == row.name) return row.level;
  }
  return Level::kOff;
}

spdlog::level::level_enum SpdLevel(Level level) {
  return static_cast<spdlog::level::level_enum>(static_cast<int>(level) + SPDLOG_LEVEL_TRACE);
}

// A log file that cannot be opened must not stop the host: the log then goes to stderr.
spdlog::sink_ptr MakeSink() {
  const char* file = std::getenv("KYODBC_LOG_FILE");
  if (file != nullptr && *file != '\0') {
    try {
      return std::make_shared<spdlog::sinks::basic_file_sink_mt>(file);
    } catch (const spdlog::spdlog_ex&) {
    }
  }
  return std::make_shared<spdlog::sinks::stderr_sink_mt>();
}

void Configure(Log& log) {
  log.level = LevelFrom(std::getenv("KYODBC_LOG"));
  const char* values = std::getenv("KYODBC_LOG_VALUES");
  log.values = values != nullptr && std::string_view(values) == "1";
  log.logger.reset();
  if (log.level == Level::kOff) return;
  log.logger = std::make_unique<spdlog::logger>("kyodbc", MakeSink());
  log.logger->set_pattern("%Y-%m-%d %H:%M:%S.%e kyodbc %l: %v");
  log.logger->set_level(SpdLevel(log.level));
  log.logger->flush_on(SpdLevel(log.level));
}

// Never destroyed: calls may still arrive while the process takes its statics down.
Log& TheLog() {
  static Log* log = [] {
    auto* made = new Log;
    Configure(*made);
    return made;
  }();
  return *log;
}

void Write(Level level, std::string_view message) {
  Log& log = TheLog();
  if (level < log.level || !log.logger) return;
  log.logger->log(SpdLevel(level), "{}", message);
}

bool IsWordByte(char byte) { return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '_'; }

// The position behind the literal that opens at `start`; a doubled quote belongs to the literal.
std::size_t LiteralEnd(std::string_view sql, std::size_t start) {
  const char quote = sql[start];
  std::size_t at = start + 1;
  while (at < sql.size()) {
    if (sql[at] != quote) {
      ++at;
    } else if (at + 1 < sql.size() && sql[at + 1] == quote) {
      at += 2;
    } else {
      return at + 1;
    }
  }
  return at;
}

std::string MaskQuoted(std::string_view message) {
  std::string masked;
  std::size_t at = 0;
  while (at < message.size()) {
    if (message[at] == '\'' || message[at] == '"') {
      masked += "'?'";
      at = LiteralEnd(message, at);
    } else if (message.substr(at, 2) == "=(") {  // a server's detail names the key as (column)=(value)
      masked += "=(?)";
      const std::size_t close = message.find(')', at);
      at = close == std::string_view::npos ? message.size() : close + 1;
    } else {
      masked += message[at++];
    }
  }
  return masked;
}

}  // namespace

bool Enabled(Level level) { return level >= TheLog().level && TheLog().logger != nullptr; }

void Trace(std::string_view message) { Write(Level::kTrace, message); }
void Debug(std::string_view message) { Write(Level::kDebug, message); }
void Info(std::string_view message) { Write(Level::kInfo, message); }
void Warn(std::string_view message) { Write(Level::kWarn, message); }
void Error(std::string_view message) { Write(Level::kError, message); }

std::string MaskedSQL(std::string_view sql) {
  if (TheLog().values) return std::string(sql);
  std::string masked;
  std::size_t at = 0;
  while (at < sql.size()) {
    if (sql[at] == '\'') {
      masked += "'?'";
      at = LiteralEnd(sql, at);
    } else if (std::isdigit(static_cast<unsigned char>(sql[at])) != 0 &&
               (at == 0 || !IsWordByte(sql[at - 1]))) {
      masked += '?';
      while (at < sql.size() && (IsWordByte(sql[at]) || sql[at] == '.')) ++at;
    } else {
      masked += sql[at++];
    }
  }
  return masked;
}

std::string MaskedMessage(std::string_view state, std::string_view message) {
  const bool names_only = state == "42S02" || state == "42S22" || state == "42P01" || state == "42703";
  if (TheLog().values || names_only) return std::string(message);
  return MaskQuoted(message);
}

WORD Caught(CDBException* exception, WORD code) {
  if (Enabled(Level::kError)) {
    const std::string origin(exception->m_strStateNativeOrigin.View());
    const std::size_t comma = origin.find(',');
    const std::string state = origin.size() > 6 ? origin.substr(6, comma - 6) : std::string();
    Error(fmt::format("code {}: {} ({})", code, MaskedMessage(state, exception->m_strError.View()), origin));
  }
  exception->Delete();
  return code;
}

void Statement(std::string_view sql, std::chrono::steady_clock::duration time) {
  if (!Enabled(Level::kDebug)) return;
  const auto micros = std::chrono::duration_cast<std::chrono::microseconds>(time).count();
  Debug(fmt::format("{} us: {}", micros, MaskedSQL(sql)));
}

void Reconfigure() { Configure(TheLog()); }

}  // namespace klog
