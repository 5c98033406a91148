// Days and opening hours of the sample practice.
#ifndef KYODBC_TOOLS_SAMPLE_CALENDAR_H
#define KYODBC_TOOLS_SAMPLE_CALENDAR_H

#include <KyODBC.h>

#include <chrono>
#include <cstdint>

namespace sample {

inline constexpr std::chrono::sys_days kFirstBirthday{std::chrono::year(1925) / 1 / 1};
inline constexpr std::chrono::sys_days kBirthdaysEnd{std::chrono::year(2015) / 1 / 1};
inline constexpr int kBirthdays = (kBirthdaysEnd - kFirstBirthday).count();

// The practice takes images for ten years of five-day weeks, from a Monday on, from 8:00 to 18:00.
inline constexpr std::chrono::sys_days kOpening{std::chrono::year(2015) / 1 / 5};
inline constexpr int kOpenHours = 10;
inline constexpr std::int64_t kSecondsOpen = std::int64_t{2600} * kOpenHours * 3600;

inline TIMESTAMP_STRUCT Date(std::chrono::sys_days days) {
  const std::chrono::year_month_day date(days);
  TIMESTAMP_STRUCT time{};
  time.year = static_cast<SQLSMALLINT>(static_cast<int>(date.year()));
  time.month = static_cast<SQLUSMALLINT>(static_cast<unsigned>(date.month()));
  time.day = static_cast<SQLUSMALLINT>(static_cast<unsigned>(date.day()));
  return time;
}

// The moment at which the practice has been open for `seconds`.
inline TIMESTAMP_STRUCT WhenOpenFor(std::int64_t seconds) {
  const auto day = static_cast<int>(seconds / (kOpenHours * 3600));
  const auto second = static_cast<int>(seconds % (kOpenHours * 3600));
  TIMESTAMP_STRUCT time = Date(kOpening + std::chrono::days(day / 5 * 7 + day % 5));
  time.hour = static_cast<SQLUSMALLINT>(8 + second / 3600);
  time.minute = static_cast<SQLUSMALLINT>(second / 60 % 60);
  time.second = static_cast<SQLUSMALLINT>(second % 60);
  return time;
}

}  // namespace sample

#endif
