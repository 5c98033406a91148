// Values held as text, read as the C types of ODBC.
#include "platform/text_value.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "platform/local_time.h"
#include "tests/support/records.h"

namespace {

// The value read, or nothing when it was refused; NULL fails.
template <class T>
std::optional<T> Read(std::string_view text, SWORD c_type) {
  T value{};
  SQLLEN indicator = 0;
  if (text_value::Read(text, c_type, &value, &indicator) != SQL_SUCCESS) return std::nullopt;
  EXPECT_EQ(indicator, static_cast<SQLLEN>(sizeof value)) << text;
  return value;
}

std::optional<LONG> Long(std::string_view text) { return Read<LONG>(text, SQL_C_SLONG); }

// "NULL", or the time.
std::string Time(std::string_view text) {
  TIMESTAMP_STRUCT time = {};
  SQLLEN indicator = 0;
  EXPECT_EQ(text_value::Read(text, SQL_C_TYPE_TIMESTAMP, &time, &indicator), SQL_SUCCESS);
  return indicator == SQL_NULL_DATA ? "NULL" : support::TimeText(time);
}

TEST(TextValue, IntegersAreReadUpToTheEndsOfTheirType) {
  EXPECT_EQ(Long("0"), 0);
  EXPECT_EQ(Long("-2147483648"), INT32_MIN);
  EXPECT_EQ(Long("2147483647"), INT32_MAX);
  EXPECT_EQ(Long("2147483648"), std::nullopt);
  EXPECT_EQ(Long("99999999999999999999"), std::nullopt);
  EXPECT_EQ(Read<short>("-32768", SQL_C_SSHORT), -32768);
  EXPECT_EQ(Read<short>("32768", SQL_C_SSHORT), std::nullopt);
  EXPECT_EQ(Read<unsigned char>("255", SQL_C_UTINYINT), 255);
  EXPECT_EQ(Read<unsigned char>("256", SQL_C_UTINYINT), std::nullopt);
  EXPECT_EQ(Read<unsigned char>("-1", SQL_C_UTINYINT), std::nullopt);
}

TEST(TextValue, ABitIsZeroOrOne) {
  EXPECT_EQ(Read<unsigned char>("1", SQL_C_BIT), 1);
  EXPECT_EQ(Read<unsigned char>("0", SQL_C_BIT), 0);
  EXPECT_EQ(Read<unsigned char>("2", SQL_C_BIT), std::nullopt);
}

TEST(TextValue, TheFractionOfANumberIsDroppedForAnInteger) {
  EXPECT_EQ(Long("12.99"), 12);
  EXPECT_EQ(Long("-1.5"), -1);
}

TEST(TextValue, TextsThatAreNoNumbersAreRefused) {
  for (const char* text : {"", "abc", "12a", " 1", "1 2", "."}) {
    EXPECT_EQ(Long(text), std::nullopt) << text;
    EXPECT_EQ(Read<double>(text, SQL_C_DOUBLE), std::nullopt) << text;
  }
}

TEST(TextValue, RealNumbersKeepTheirPrecision) {
  EXPECT_EQ(Read<double>("0.30000000000000004", SQL_C_DOUBLE), 0.1 + 0.2);
  EXPECT_EQ(Read<double>("-1e300", SQL_C_DOUBLE), -1e300);
  EXPECT_EQ(Read<float>("1.5", SQL_C_FLOAT), 1.5f);
}

TEST(TextValue, DatesAndTimesAreReadInTheFormsOfTheDrivers) {
  EXPECT_EQ(Time("2001-05-06"), "2001-05-06 00:00:00");
  EXPECT_EQ(Time("2001-05-06 10:11:12"), "2001-05-06 10:11:12");
  EXPECT_EQ(Time("2001-05-06T10:11:12"), "2001-05-06 10:11:12");
  EXPECT_EQ(Time("2001-05-06 10:11:12.5"), "2001-05-06 10:11:12.500000000");
  EXPECT_EQ(Time("2001-05-06 10:11:12.123456789"), "2001-05-06 10:11:12.123456789");
  EXPECT_EQ(Time("0099-01-01 00:00:00"), "0099-01-01 00:00:00");
}

TEST(TextValue, ATimeWithoutADateIsTodays) {
  SetClockForTests([] { return std::time_t{1000000000}; });
  TIMESTAMP_STRUCT expected = LocalToday();
  expected.hour = 10;
  expected.minute = 11;
  expected.second = 12;
  EXPECT_EQ(Time("10:11:12"), support::TimeText(expected));
  SetClockForTests(nullptr);
}

TEST(TextValue, TextsThatAreNoDatesReadAsNull) {
  for (const char* text :
       {"", "soon", "2001-02-30", "2001-13-01", "2001-05", "2001-05-06 25:00:00", "0000-00-00",
        "2001-05-06 10:11", "2001-05-06 10:11:12+02", "70000-01-01", "-1-01-01"}) {
    EXPECT_EQ(Time(text), "NULL") << text;
  }
}

TEST(TextValue, OtherTypesAreRefused) {
  EXPECT_EQ(Read<int64_t>("1", SQL_C_SBIGINT), std::nullopt);
  EXPECT_EQ(Read<int64_t>("1", SQL_C_CHAR), std::nullopt);
}

}  // namespace
