#include "platform/log.h"

#include <algorithm>
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

// The position behind the literal that opens at `start`. A doubled quote belongs to the literal, and so does
// a quote with a word right behind it: that is a text whose quotes were not doubled. When the quotes do not
// even come in pairs, nobody knows where a text ends, and the rest counts as one.
std::size_t LiteralEnd(std::string_view sql, std::size_t start) {
  const char quote = sql[start];
  if (std::count(sql.begin(), sql.end(), quote) % 2 != 0) return sql.size();
  for (std::size_t at = start + 1; at < sql.size(); ++at) {
    if (sql[at] != quote) continue;
    if (at + 1 == sql.size()) break;
    if (sql[at + 1] == quote) {
      ++at;
    } else if (!IsWordByte(sql[at + 1])) {
      return at + 1;
    }
  }
  return sql.size();
}

bool IsQuote(char byte) { return byte == '\'' || byte == '"' || byte == '`'; }

bool IsLetterAt(std::string_view text, std::size_t at) {
  return at < text.size() && std::isalpha(static_cast<unsigned char>(text[at])) != 0;
}

// Databases quote what they complain of as it stands, quotes inside and all. So everything from the first
// quote to the last one is hidden; an apostrophe within a word ("can't") opens and closes nothing.
std::string MaskQuoted(std::string_view message) {
  std::size_t first = 0;
  while (first < message.size() && !(IsQuote(message[first]) && !IsLetterAt(message, first - 1))) ++first;
  if (first == message.size()) return std::string(message);
  std::size_t last = message.size();
  for (std::size_t at = first + 1; at < message.size(); ++at) {
    if (IsQuote(message[at]) && !IsLetterAt(message, at + 1)) last = at + 1;
  }
  return std::string(message.substr(0, first)) + "'?'" + std::string(message.substr(last));
}

// A server's detail names a key as (column)=(value).
std::string MaskKeyValues(const std::string& message) {
  const std::size_t open = message.find("=(");
  if (open == std::string::npos) return message;
  const std::size_t close = message.rfind(')');
  return message.substr(0, open) + "=(?)" +
         (close > open + 1 && close != std::string::npos ? message.substr(close + 1) : std::string());
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
    if (sql[at] == '\'' || sql[at] == '"') {
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
  return MaskKeyValues(MaskQuoted(message));
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
