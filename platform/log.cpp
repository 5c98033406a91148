#include "platform/log.h"

#include <cstdlib>
#include <memory>
#include <new>

#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>

#include "platform/masking.h"
#include "platform/refusal.h"

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

}  // namespace

bool Enabled(Level level) { return level >= TheLog().level && TheLog().logger != nullptr; }

void Trace(std::string_view message) { Write(Level::kTrace, message); }
void Debug(std::string_view message) { Write(Level::kDebug, message); }
void Info(std::string_view message) { Write(Level::kInfo, message); }
void Warn(std::string_view message) { Write(Level::kWarn, message); }
void Error(std::string_view message) { Write(Level::kError, message); }

std::string MaskedSQL(std::string_view sql) {
  return TheLog().values ? std::string(sql) : masking::Statement(sql);
}

std::string MaskedMessage(std::string_view state, std::string_view message, int native) {
  return TheLog().values ? std::string(message) : masking::Message(state, native, message);
}

const char* ConflictNote(std::string_view state) {
  return refusal::IsConflict(state) ? "; a conflict with another change, which may be tried again" : "";
}

namespace {

void LogRefusal(const CDBException& exception, WORD code) {
  const refusal::Origin origin = refusal::OriginOf(exception);
  Error(fmt::format("code {}: {} ({}){}", code,
                    MaskedMessage(origin.state.View(), exception.m_strError.View(), origin.native),
                    exception.m_strStateNativeOrigin.View(), ConflictNote(origin.state.View())));
}

}  // namespace

// Called in handlers, from which nothing may be thrown any more: without memory the line is lost.
WORD Caught(CDBException* exception, WORD code) {
  refusal::Remember(*exception, code);
  try {
    if (Enabled(Level::kError)) LogRefusal(*exception, code);
  } catch (const std::bad_alloc&) {
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
