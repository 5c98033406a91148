#include "platform/local_time.h"

#include <algorithm>
#include <atomic>

namespace {

std::time_t SystemClock() { return std::time(nullptr); }

std::atomic<Clock> g_clock = SystemClock;

// A tm counts years from 1900; a timestamp column holds the years 1 to 9999.
constexpr int kTmBase = 1900;
bool HoldsYear(int tm_year) { return tm_year >= 1 - kTmBase && tm_year <= 9999 - kTmBase; }

}  // namespace

TIMESTAMP_STRUCT LocalNow() {
  const std::time_t now = g_clock.load()();
  std::tm local{};
  tzset();  // localtime_r alone keeps the time zone it met first
  if (localtime_r(&now, &local) == nullptr || !HoldsYear(local.tm_year)) return {};
  TIMESTAMP_STRUCT result{};
  result.year = static_cast<SQLSMALLINT>(local.tm_year + kTmBase);
  result.month = static_cast<SQLUSMALLINT>(local.tm_mon + 1);
  result.day = static_cast<SQLUSMALLINT>(local.tm_mday);
  result.hour = static_cast<SQLUSMALLINT>(local.tm_hour);
  result.minute = static_cast<SQLUSMALLINT>(local.tm_min);
  result.second = static_cast<SQLUSMALLINT>(std::min(local.tm_sec, 59));  // a leap second would be 60
  return result;
}

TIMESTAMP_STRUCT LocalToday() {
  TIMESTAMP_STRUCT today = LocalNow();
  today.hour = today.minute = today.second = 0;
  return today;
}

void SetClockForTests(Clock clock) { g_clock = clock == nullptr ? SystemClock : clock; }
