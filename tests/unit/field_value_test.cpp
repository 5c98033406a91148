// Values of columns apart from any row: how dates are written, and when a member holds a value.
#include "platform/field_value.h"

#include <gtest/gtest.h>

#include "platform/cstring.h"

namespace {

TEST(DateText, WritesDaysAndTimesAsAFilterDoes) {
  EXPECT_EQ(DateText({2024, 2, 29, 23, 5, 9, 0}, true), "2024-02-29");
  EXPECT_EQ(DateText({2024, 2, 29, 23, 5, 9, 0}, false), "2024-02-29 23:05:09");
  EXPECT_EQ(DateText({1, 1, 1, 0, 0, 0, 0}, false), "0001-01-01 00:00:00");
  EXPECT_EQ(DateText({9999, 12, 31, 23, 59, 59, 999999999}, false), "9999-12-31 23:59:59.999999999");
}

TEST(DateText, WritesFractionsWithoutTheZerosBehindThem) {
  EXPECT_EQ(DateText({2024, 1, 2, 3, 4, 5, 120000000}, false), "2024-01-02 03:04:05.12");
  EXPECT_EQ(DateText({2024, 1, 2, 3, 4, 5, 1}, false), "2024-01-02 03:04:05.000000001");
}

TEST(DateText, NeverWritesAnotherYear) {
  EXPECT_EQ(DateText({12024, 1, 2, 0, 0, 0, 0}, true), "12024-01-02");
  EXPECT_EQ(DateText({-44, 3, 15, 0, 0, 0, 0}, true), "-44-03-15");
}

TEST(MemberIs, ComparesWhatTheKindNames) {
  FieldValue value = {
      false, 7, {2024, 1, 2, 3, 4, 5, 6},
        "seven"
  };
  LONG number = 7;
  TIMESTAMP_STRUCT time = value.time;
  CString text = "seven";
  EXPECT_TRUE(MemberIs(FieldKind::kLong, &number, value));
  EXPECT_TRUE(MemberIs(FieldKind::kDate, &time, value));
  EXPECT_TRUE(MemberIs(FieldKind::kText, &text, value));
  number = 8;
  time.fraction = 7;
  text += '\0';
  EXPECT_FALSE(MemberIs(FieldKind::kLong, &number, value));
  EXPECT_FALSE(MemberIs(FieldKind::kDate, &time, value));
  EXPECT_FALSE(MemberIs(FieldKind::kText, &text, value));
}

TEST(UnassignedValue, IsNoFlagNoDateAndNoTextThatEndsAtItsFirstZero) {
  EXPECT_NE(UnassignedValue(FieldKind::kBool).number, 0);
  EXPECT_NE(UnassignedValue(FieldKind::kBool).number, 1);
  EXPECT_TRUE(IsAllZero(UnassignedValue(FieldKind::kDate).time));
  EXPECT_NE(UnassignedValue(FieldKind::kText).text.find('\0'), std::string::npos);
}

}  // namespace
