// The library's log: off unless KYODBC_LOG names a level (error, warn, info, debug, trace). It goes to
// stderr, or to the file named by KYODBC_LOG_FILE. Values of patients are masked unless
// KYODBC_LOG_VALUES=1; passwords never reach it.
#ifndef KYODBC_PLATFORM_LOG_H
#define KYODBC_PLATFORM_LOG_H

#include <chrono>
#include <string>
#include <string_view>

#include "platform/cdbexception.h"
#include "platform/types.h"

namespace klog {

enum class Level { kTrace, kDebug, kInfo, kWarn, kError, kOff };

bool Enabled(Level level);

void Trace(std::string_view message);
void Debug(std::string_view message);
void Info(std::string_view message);
void Warn(std::string_view message);
void Error(std::string_view message);

// Logs the exception (SQLSTATE, native code, message) and the code it is turned into at error level,
// remembers what it said (refusal.h), deletes it and returns the code.
WORD Caught(CDBException* exception, WORD code);

// What a logged message adds for a conflict of two changes; empty for other SQLSTATEs.
const char* ConflictNote(std::string_view state);

// One executed statement and the time it took, at debug level.
void Statement(std::string_view sql, std::chrono::steady_clock::duration time);

// As masking.h hides values; nothing is hidden when they are asked for.
std::string MaskedSQL(std::string_view sql);
std::string MaskedMessage(std::string_view state, std::string_view message, int native = 0);

// Reads the environment again. For tests; the library reads it once.
void Reconfigure();

}  // namespace klog

#endif
