// Texts of records and of times.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/records.h"
#include "tools/record_text.h"
#include "tools/time_text.h"
#include "tools/tool_error.h"

namespace {

std::string ReadBack(const char* text) {
  const std::optional<TIMESTAMP_STRUCT> time = ReadTime(text);
  return time ? TimeText(*time) : "none";
}

TEST(SetText, FillsTheFieldAndClearsTheRest) {
  char field[8] = {'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x'};
  EXPECT_TRUE(SetText(field, "abc"));
  EXPECT_EQ(std::string(field, sizeof field), std::string("abc\0\0\0\0\0", 8));
}

TEST(SetText, KeepsATextThatFillsTheFieldToItsZeroByte) {
  char field[4];
  EXPECT_TRUE(SetText(field, "abc"));
  EXPECT_EQ(FieldText(field), "abc");
}

TEST(SetText, CutsALongTextAndSaysSo) {
  char field[4];
  EXPECT_FALSE(SetText(field, "abcd"));
  EXPECT_EQ(FieldText(field), "abc");
}

TEST(SetText, NeverSplitsACharacter) {
  char field[4];
  EXPECT_FALSE(SetText(field, "abü"));
  EXPECT_EQ(FieldText(field), "ab");
  EXPECT_FALSE(SetText(field, "田中"));
  EXPECT_EQ(FieldText(field), "田");
}

TEST(FieldText, EndsWithAnUnterminatedField) {
  const char field[3] = {'a', 'b', 'c'};
  EXPECT_EQ(FieldText(field), "abc");
}

TEST(IsUtf8, AcceptsCharactersAndNothingElse) {
  for (const char* text : {"", "Meyer", "Müller", "田中", "😀"}) EXPECT_TRUE(IsUtf8(text)) << text;
  for (const char* text : {"\xFC", "a\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80"}) {
    EXPECT_FALSE(IsUtf8(text)) << text;
  }
}

TEST(ReadTime, ReadsDatesAndTimes) {
  EXPECT_EQ(ReadBack("2001-05-06"), "2001-05-06 00:00:00");
  EXPECT_EQ(ReadBack("2001-05-06 10:20"), "2001-05-06 10:20:00");
  EXPECT_EQ(ReadBack("2001-05-06 10:20:30"), "2001-05-06 10:20:30");
  EXPECT_EQ(ReadBack("1977-12-29T01:58:30Z"), "1977-12-29 01:58:30");
  EXPECT_EQ(ReadBack("2000-02-29"), "2000-02-29 00:00:00");
}

TEST(ReadTime, RefusesEverythingElse) {
  for (const char* text :
       {"", "2001", "2001-5-6", "2001-05-06 ", "2001-05-06x", "2001-05-06 24:00", "2001-05-06 10:60",
        "2001-05-06 10:20:60", "2001-02-29", "2001-00-10", "2001-04-31", "0000-01-01", "06.05.2001",
        "2001-05-06T10:20:30+01:00", "-001-05-06"}) {
    EXPECT_EQ(ReadBack(text), "none") << text;
  }
}

TEST(TimeTexts, OfTheAllZeroTimeAreEmpty) {
  EXPECT_EQ(DateText(TIMESTAMP_STRUCT{}), "");
  EXPECT_EQ(TimeText(TIMESTAMP_STRUCT{}), "");
  EXPECT_EQ(DateText(support::Ts(5, 1, 2)), "0005-01-02");
}

TEST(ResultCodes, AreNamedInMessages) {
  EXPECT_NO_THROW(Check(0, "reading"));
  try {
    Check(KYODBC_PATIENT_NOT_FOUND, "reading patient 7");
    FAIL() << "passed";
  } catch (const ToolError& error) {
    EXPECT_STREQ(error.what(), "reading patient 7: there is no such patient (code 21)");
    EXPECT_EQ(error.Code(), kFailed);
  }
}

TEST(ResultCodes, SayThatTheConnectionWasLostWhereItWas) {
  for (const char* state : {"08S01", "08003", "57P01"}) {
    EXPECT_EQ(MeaningOf(KYODBC_NO_ROW, state), "the connection to the database was lost") << state;
    EXPECT_EQ(MeaningOf(KYODBC_CONNECT_FAILED, state), MeaningOf(KYODBC_CONNECT_FAILED)) << state;
    EXPECT_EQ(MeaningOf(KYODBC_NOT_OPENED, state), MeaningOf(KYODBC_NOT_OPENED)) << state;
  }
  for (const char* state : {"", "42000", "57014"}) {
    EXPECT_EQ(MeaningOf(KYODBC_NO_ROW, state), "there is no such row") << state;
  }
}

TEST(ResultCodes, AllHaveAMeaning) {
  for (const WORD code : {0, 1, 3, 4, 5, 6, 8, 14, 21, 30, 31, 52, 55, 56, 57, 64, 65, 66, 67, 99}) {
    EXPECT_NE(MeaningOf(code), "unknown") << code;
  }
  EXPECT_EQ(MeaningOf(2), "unknown");
}

}  // namespace
