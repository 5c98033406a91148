#include "platform/coledatetime.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <vector>

namespace {

void ExpectParts(const COleDateTime& value, const std::array<int, 6>& parts) {
  EXPECT_EQ(value.GetYear(), parts[0]);
  EXPECT_EQ(value.GetMonth(), parts[1]);
  EXPECT_EQ(value.GetDay(), parts[2]);
  EXPECT_EQ(value.GetHour(), parts[3]);
  EXPECT_EQ(value.GetMinute(), parts[4]);
  EXPECT_EQ(value.GetSecond(), parts[5]);
}

COleDateTime WithStatus(COleDateTime::DateTimeStatus status) {
  COleDateTime value(2001, 5, 6, 10, 0, 0);
  value.SetStatus(status);
  return value;
}

TEST(COleDateTime, DefaultIsThe30thOfDecember1899AndValid) {
  const COleDateTime value;
  EXPECT_EQ(value.GetStatus(), COleDateTime::valid);
  ExpectParts(value, {1899, 12, 30, 0, 0, 0});
}

TEST(COleDateTime, StatusNumbersAreFixed) {
  EXPECT_EQ(COleDateTime::valid, 0);
  EXPECT_EQ(COleDateTime::invalid, 1);
  EXPECT_EQ(COleDateTime::null, 2);
}

TEST(COleDateTime, ConstructorTakesAllParts) {
  const COleDateTime value(2001, 5, 6, 10, 11, 12);
  EXPECT_EQ(value.GetStatus(), COleDateTime::valid);
  ExpectParts(value, {2001, 5, 6, 10, 11, 12});
}

TEST(COleDateTime, ConstructorWithAnImpossibleDateIsInvalid) {
  EXPECT_EQ(COleDateTime(2001, 2, 30, 0, 0, 0).GetStatus(), COleDateTime::invalid);
}

TEST(COleDateTime, SetDateTimeReturnsZeroAndBecomesValid) {
  COleDateTime value = WithStatus(COleDateTime::null);
  EXPECT_EQ(value.SetDateTime(1999, 12, 31, 23, 59, 59), 0);
  EXPECT_EQ(value.GetStatus(), COleDateTime::valid);
  ExpectParts(value, {1999, 12, 31, 23, 59, 59});
}

TEST(COleDateTime, SetDateSetsMidnight) {
  COleDateTime value(2001, 5, 6, 10, 11, 12);
  EXPECT_EQ(value.SetDate(2002, 7, 8), 0);
  ExpectParts(value, {2002, 7, 8, 0, 0, 0});
}

TEST(COleDateTime, RefusedSetDateTimeReturnsOneAndKeepsTheValueBehindTheStatus) {
  COleDateTime value(2001, 5, 6, 10, 11, 12);
  EXPECT_EQ(value.SetDateTime(2001, 13, 1, 0, 0, 0), 1);
  EXPECT_EQ(value.GetStatus(), COleDateTime::invalid);
  value.SetStatus(COleDateTime::valid);
  ExpectParts(value, {2001, 5, 6, 10, 11, 12});
}

TEST(COleDateTime, RefusedSetDateReturnsOneAndKeepsTheValueBehindTheStatus) {
  COleDateTime value(2001, 5, 6, 10, 11, 12);
  EXPECT_EQ(value.SetDate(2001, 4, 31), 1);
  EXPECT_EQ(value.GetStatus(), COleDateTime::invalid);
  value.SetStatus(COleDateTime::valid);
  ExpectParts(value, {2001, 5, 6, 10, 11, 12});
}

TEST(COleDateTime, PartsAreMinusOneUnlessValid) {
  ExpectParts(WithStatus(COleDateTime::invalid), {-1, -1, -1, -1, -1, -1});
  ExpectParts(WithStatus(COleDateTime::null), {-1, -1, -1, -1, -1, -1});
}

TEST(COleDateTime, EndsOfEveryRangeAreAccepted) {
  COleDateTime value;
  EXPECT_EQ(value.SetDateTime(100, 1, 1, 0, 0, 0), 0);
  EXPECT_EQ(value.SetDateTime(9999, 12, 31, 23, 59, 59), 0);
}

TEST(COleDateTime, PartsBeyondTheirRangeAreRefused) {
  const std::vector<std::array<int, 6>> impossible = {
      {99,    1,  1,  0,  0,  0 },
      {10000, 1,  1,  0,  0,  0 },
      {0,     1,  1,  0,  0,  0 },
      {-2001, 1,  1,  0,  0,  0 },
      {2001,  0,  1,  0,  0,  0 },
      {2001,  13, 1,  0,  0,  0 },
      {2001,  -1, 1,  0,  0,  0 },
      {2001,  1,  0,  0,  0,  0 },
      {2001,  1,  32, 0,  0,  0 },
      {2001,  1,  -1, 0,  0,  0 },
      {2001,  1,  1,  24, 0,  0 },
      {2001,  1,  1,  -1, 0,  0 },
      {2001,  1,  1,  0,  60, 0 },
      {2001,  1,  1,  0,  -1, 0 },
      {2001,  1,  1,  0,  0,  60},
      {2001,  1,  1,  0,  0,  -1},
      {0,     0,  0,  0,  0,  0 },
  };
  for (const auto& p : impossible) {
    COleDateTime value;
    EXPECT_EQ(value.SetDateTime(p[0], p[1], p[2], p[3], p[4], p[5]), 1) << p[0] << "-" << p[1] << "-" << p[2];
    EXPECT_EQ(value.GetStatus(), COleDateTime::invalid);
  }
}

TEST(COleDateTime, DaysAreThoseOfTheCalendarInEveryMonth) {
  using namespace std::chrono;
  for (const int y : {100, 1600, 1700, 1880, 1899, 1900, 1999, 2000, 2001, 2004, 2100, 9999}) {
    for (unsigned m = 1; m <= 12; ++m) {
      for (unsigned d = 0; d <= 32; ++d) {
        const bool exists = year_month_day(year(y), month(m), day(d)).ok();
        COleDateTime value;
        EXPECT_EQ(value.SetDate(y, static_cast<int>(m), static_cast<int>(d)), exists ? 0 : 1)
            << y << "-" << m << "-" << d;
      }
    }
  }
}

TEST(COleDateTime, OrdersChronologicallyAlsoBefore1899) {
  const std::vector<COleDateTime> ascending = {
      {100,  1,  1,  0,  0,  0 },
      {1879, 12, 31, 23, 59, 59},
      {1880, 1,  1,  0,  0,  0 },
      {1880, 1,  1,  0,  0,  1 },
      {1880, 1,  1,  0,  1,  0 },
      {1880, 1,  1,  1,  0,  0 },
      {1880, 1,  1,  23, 0,  0 },
      {1880, 1,  31, 0,  0,  0 },
      {1880, 2,  1,  0,  0,  0 },
      {1880, 2,  29, 12, 0,  0 },
      {1899, 12, 29, 6,  0,  0 },
      {1899, 12, 29, 18, 0,  0 },
      {1899, 12, 30, 0,  0,  0 },
      {1899, 12, 30, 6,  0,  0 },
      {1900, 1,  1,  0,  0,  0 },
      {2001, 5,  6,  9,  59, 59},
      {2001, 5,  6,  10, 0,  0 },
      {2001, 12, 31, 23, 59, 59},
      {2002, 1,  1,  0,  0,  0 },
      {9999, 12, 31, 23, 59, 59},
  };
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    for (std::size_t j = 0; j < ascending.size(); ++j) {
      EXPECT_EQ(ascending[i] < ascending[j], i < j) << i << " " << j;
      EXPECT_EQ(ascending[i] > ascending[j], i > j) << i << " " << j;
      EXPECT_EQ(ascending[i] <= ascending[j], i <= j) << i << " " << j;
      EXPECT_EQ(ascending[i] >= ascending[j], i >= j) << i << " " << j;
      EXPECT_EQ(ascending[i] == ascending[j], i == j) << i << " " << j;
      EXPECT_EQ(ascending[i] != ascending[j], i != j) << i << " " << j;
    }
  }
}

TEST(COleDateTime, OrderingAnOperandThatIsNotValidIsFalse) {
  const COleDateTime good(2001, 5, 6, 10, 0, 0);
  for (const auto status : {COleDateTime::invalid, COleDateTime::null}) {
    const COleDateTime bad = WithStatus(status);
    for (const auto& [left, right] : {std::pair(good, bad), std::pair(bad, good), std::pair(bad, bad)}) {
      EXPECT_FALSE(left < right);
      EXPECT_FALSE(left > right);
      EXPECT_FALSE(left <= right);
      EXPECT_FALSE(left >= right);
    }
  }
}

TEST(COleDateTime, EqualityOfOperandsThatAreNotValidLooksAtTheStatusAlone) {
  const COleDateTime invalid = WithStatus(COleDateTime::invalid);
  const COleDateTime other_invalid(1999, 2, 30, 1, 1, 1);
  const COleDateTime null = WithStatus(COleDateTime::null);
  const COleDateTime good(2001, 5, 6, 10, 0, 0);
  EXPECT_TRUE(invalid == other_invalid);
  EXPECT_FALSE(invalid != other_invalid);
  EXPECT_FALSE(invalid == null);
  EXPECT_FALSE(invalid == good);
  EXPECT_TRUE(null != good);
  EXPECT_TRUE(null == WithStatus(COleDateTime::null));
}

TEST(IsCalendarDay, AgreesWithTheCalendarOnEveryDayOfFourHundredYears) {
  using namespace std::chrono;
  for (int y = 1801; y <= 2200; ++y) {
    for (unsigned m = 1; m <= 12; ++m) {
      for (unsigned d = 28; d <= 32; ++d) {
        EXPECT_EQ(IsCalendarDay(y, static_cast<int>(m), static_cast<int>(d)),
                  year_month_day(year(y), month(m), day(d)).ok())
            << y << "-" << m << "-" << d;
      }
    }
  }
}

TEST(IsCalendarDay, CoversTheYears1To9999) {
  EXPECT_TRUE(IsCalendarDay(1, 1, 1));
  EXPECT_TRUE(IsCalendarDay(9999, 12, 31));
  EXPECT_FALSE(IsCalendarDay(0, 1, 1));
  EXPECT_FALSE(IsCalendarDay(-1, 1, 1));
  EXPECT_FALSE(IsCalendarDay(10000, 1, 1));
}

TEST(IsCalendarDay, RefusesMonthsAndDaysOutOfRange) {
  EXPECT_FALSE(IsCalendarDay(2001, 0, 1));
  EXPECT_FALSE(IsCalendarDay(2001, 13, 1));
  EXPECT_FALSE(IsCalendarDay(2001, -5, 1));
  EXPECT_FALSE(IsCalendarDay(2001, 1, 0));
  EXPECT_FALSE(IsCalendarDay(2001, 1, -3));
  EXPECT_FALSE(IsCalendarDay(0, 0, 0));
}

}  // namespace
