// The computer's local time, for the dates and times that the library stamps itself.
#ifndef KYODBC_PLATFORM_LOCAL_TIME_H
#define KYODBC_PLATFORM_LOCAL_TIME_H

#include <ctime>

#include "platform/types.h"

// Now, to the second; the fraction is 0. Follows changes of the time zone while the process runs. All
// zero, which is stored as NULL, when the clock stands outside what the calendar can express.
TIMESTAMP_STRUCT LocalNow();

// Today at 00:00:00.
TIMESTAMP_STRUCT LocalToday();

// Seconds since 1970-01-01 00:00:00 UTC.
using Clock = std::time_t (*)();

// Makes both functions read `clock` instead of the system's; null restores it. For tests.
void SetClockForTests(Clock clock);

#endif
