#include "platform/local_time.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>
#include <optional>
#include <string>

namespace {

constexpr std::time_t kTime = 1000000000;        // 2001-09-09 01:46:40 UTC
constexpr std::time_t kNewYear = 1704063599;     // 2023-12-31 22:59:59 UTC, the last second of 2023 in Berlin
constexpr std::time_t kLeapDay = 951782400;      // 2000-02-29 00:00:00 UTC
constexpr std::time_t kYear9999 = 253402300799;  // 9999-12-31 23:59:59 UTC
constexpr std::time_t kLastYearOfTm = 67767976233446399;  // tm_year holds its greatest number

void ExpectTime(const TIMESTAMP_STRUCT& value, const TIMESTAMP_STRUCT& expected) {
  EXPECT_EQ(value.year, expected.year);
  EXPECT_EQ(value.month, expected.month);
  EXPECT_EQ(value.day, expected.day);
  EXPECT_EQ(value.hour, expected.hour);
  EXPECT_EQ(value.minute, expected.minute);
  EXPECT_EQ(value.second, expected.second);
  EXPECT_EQ(value.fraction, expected.fraction);
}

// Fixes clock and time zone, and puts both back. Zones are spelled out: no zone files are needed.
class LocalTime : public testing::Test {
 protected:
  LocalTime() {
    if (const char* zone = std::getenv("TZ")) m_zone = zone;
    SetZone("UTC0");
  }
  ~LocalTime() override {
    SetClockForTests(nullptr);
    if (m_zone) {
      SetZone(m_zone->c_str());
    } else {
      unsetenv("TZ");
    }
    tzset();
  }

  static void SetZone(const char* zone) { setenv("TZ", zone, 1); }

  template <std::time_t kSeconds>
  static void SetTime() {
    SetClockForTests([] { return kSeconds; });
  }

 private:
  std::optional<std::string> m_zone;
};

TEST_F(LocalTime, NowIsTheClocksTimeToTheSecond) {
  SetTime<kTime>();
  ExpectTime(LocalNow(), {2001, 9, 9, 1, 46, 40, 0});
}

TEST_F(LocalTime, NowIsLocalTime) {
  SetZone("CET-1CEST,M3.5.0,M10.5.0/3");
  SetTime<kTime>();
  ExpectTime(LocalNow(), {2001, 9, 9, 3, 46, 40, 0});
  SetTime<kNewYear>();
  ExpectTime(LocalNow(), {2023, 12, 31, 23, 59, 59, 0});
  SetTime<kNewYear + 1>();
  ExpectTime(LocalNow(), {2024, 1, 1, 0, 0, 0, 0});
}

TEST_F(LocalTime, ChangeOfTheTimeZoneTakesEffectAtOnce) {
  SetTime<kTime>();
  ExpectTime(LocalNow(), {2001, 9, 9, 1, 46, 40, 0});
  SetZone("EST5");
  ExpectTime(LocalNow(), {2001, 9, 8, 20, 46, 40, 0});
}

TEST_F(LocalTime, TodayIsTheLocalDayAtMidnight) {
  SetTime<kTime>();
  ExpectTime(LocalToday(), {2001, 9, 9, 0, 0, 0, 0});
  SetZone("EST5");
  ExpectTime(LocalToday(), {2001, 9, 8, 0, 0, 0, 0});
}

TEST_F(LocalTime, LeapDayIsADay) {
  SetTime<kLeapDay>();
  ExpectTime(LocalToday(), {2000, 2, 29, 0, 0, 0, 0});
}

TEST_F(LocalTime, TimesBefore1970AreTimes) {
  SetTime<-1>();
  ExpectTime(LocalNow(), {1969, 12, 31, 23, 59, 59, 0});
}

TEST_F(LocalTime, LastSecondOfTheYear9999IsTheLastTime) {
  SetTime<kYear9999>();
  ExpectTime(LocalNow(), {9999, 12, 31, 23, 59, 59, 0});
  SetTime<kYear9999 + 1>();
  ExpectTime(LocalNow(), {});
  ExpectTime(LocalToday(), {});
}

TEST_F(LocalTime, ClockBeyondTheCalendarGivesAllZero) {
  SetTime<kLastYearOfTm>();
  ExpectTime(LocalNow(), {});
  SetTime<std::numeric_limits<std::time_t>::max()>();
  ExpectTime(LocalNow(), {});
  SetTime<std::numeric_limits<std::time_t>::min()>();
  ExpectTime(LocalNow(), {});
  ExpectTime(LocalToday(), {});
}

TEST_F(LocalTime, NullClockRestoresTheSystemsClock) {
  SetTime<kTime>();
  SetClockForTests(nullptr);
  const std::time_t before = std::time(nullptr);
  const TIMESTAMP_STRUCT now = LocalNow();
  const std::time_t after = std::time(nullptr);
  std::tm parts{};
  parts.tm_year = now.year - 1900;
  parts.tm_mon = now.month - 1;
  parts.tm_mday = now.day;
  parts.tm_hour = now.hour;
  parts.tm_min = now.minute;
  parts.tm_sec = now.second;
  const std::time_t told = timegm(&parts);
  EXPECT_GE(told, before);
  EXPECT_LE(told, after);
  EXPECT_EQ(now.fraction, 0u);
}

}  // namespace
