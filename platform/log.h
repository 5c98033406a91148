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
// deletes it and returns the code.
WORD Caught(CDBException* exception, WORD code);

// One executed statement and the time it took, at debug level.
void Statement(std::string_view sql, std::chrono::steady_clock::duration time);

// `sql` with the contents of its literals and its numbers replaced by "?", unless values are asked for.
std::string MaskedSQL(std::string_view sql);
// A driver's message with everything from its first quotation to its last masked. Messages about missing
// tables and columns (by SQLSTATE) keep their names.
std::string MaskedMessage(std::string_view state, std::string_view message);

// Reads the environment again. For tests; the library reads it once.
void Reconfigure();

}  // namespace klog

#endif
