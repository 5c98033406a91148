#include "tools/filter_words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/records.h"

namespace {

using support::TimeText;

constexpr int kPatient[] = {KYODBC_FIELD_KEY, KYODBC_FIELD_DOCTOR_KEY, KYODBC_FIELD_NAME,
                            KYODBC_FIELD_FIRSTNAME, KYODBC_FIELD_BIRTHDAY};
constexpr int kJoined[] = {KYODBC_FIELD_KEY, KYODBC_FIELD_DOCTOR_KEY, KYODBC_FIELD_DOCTOR_NAME,
                           KYODBC_FIELD_NAME, KYODBC_FIELD_LAST_DISPLAY};

Filter Read(const std::string& text) { return ReadFilter({text}, kPatient); }

std::string TextAt(const Filter& filter, std::size_t slot) {
  return static_cast<const char*>(filter.ValuePointer(slot));
}
LONG KeyAt(const Filter& filter, std::size_t slot) {
  return *static_cast<const LONG*>(filter.ValuePointer(slot));
}
std::string TimeAt(const Filter& filter, std::size_t slot) {
  return TimeText(*static_cast<const TIMESTAMP_STRUCT*>(filter.ValuePointer(slot)));
}

// What is wrong with it; empty when nothing is.
std::string Complaint(const std::vector<std::string>& texts, FieldIds known = kPatient) {
  try {
    ReadFilter(texts, known);
  } catch (const WordsError& error) {
    return error.what();
  }
  return {};
}
void ExpectComplaint(const std::string& text, const std::string& part) {
  EXPECT_NE(Complaint({text}).find(part), std::string::npos) << text << " -> " << Complaint({text});
}

TEST(FilterWords, OneClauseFillsTheLowestBytes) {
  const Filter filter = Read("name like M%");
  EXPECT_EQ(filter.Fields(), 17);
  EXPECT_EQ(filter.Operators(), 16);
  EXPECT_EQ(TextAt(filter, 0), "M%");
  EXPECT_EQ(filter.ValuePointer(1), nullptr);
}

TEST(FilterWords, ClausesArePackedOnePerByteWithTheJoinerInItsHighestBit) {
  const Filter filter = Read("name like A% and firstname = Bo or key > 3 and doctor < 4");
  EXPECT_EQ(static_cast<DWORD>(filter.Fields()), 0x03'81'16'11u);
  EXPECT_EQ(static_cast<DWORD>(filter.Operators()), 0x05'03'00'10u);
  EXPECT_EQ(TextAt(filter, 1), "Bo");
  EXPECT_EQ(KeyAt(filter, 2), 3);
  EXPECT_EQ(KeyAt(filter, 3), 4);
}

TEST(FilterWords, EveryOperatorHasItsCode) {
  const std::vector<std::pair<std::string, LONG>> operators = {
      {"=",    0 },
      {">=",   2 },
      {">",    3 },
      {"<=",   4 },
      {"<",    5 },
      {"<>",   7 },
      {"!=",   7 },
      {"like", 16},
      {"LIKE", 16}
  };
  for (const auto& [word, code] : operators) EXPECT_EQ(Read("name " + word + " x").Operators(), code) << word;
}

TEST(FilterWords, SignsNeedNoBlanksAroundThem) {
  const Filter filter = Read("key>=12 and name<>O'Neil");
  EXPECT_EQ(static_cast<DWORD>(filter.Operators()), 0x07'02u);
  EXPECT_EQ(KeyAt(filter, 0), 12);
  EXPECT_EQ(TextAt(filter, 1), "O'Neil");
}

TEST(FilterWords, TextsInQuotesHoldBlanksAndDoubledQuotes) {
  EXPECT_EQ(TextAt(Read("name = \"van der Berg\""), 0), "van der Berg");
  EXPECT_EQ(TextAt(Read("name = 'O''Neil'"), 0), "O'Neil");
  EXPECT_EQ(TextAt(Read("name = 'say \"no\"'"), 0), "say \"no\"");
  EXPECT_EQ(TextAt(Read("name = ''"), 0), "");
  EXPECT_EQ(TextAt(Read("name = 'and' and firstname = \"or\""), 1), "or");
}

TEST(FilterWords, BackslashesAndWildcardsPassAsTheyAre) {
  EXPECT_EQ(TextAt(Read("name like Back\\slash%_"), 0), "Back\\slash%_");
}

TEST(FilterWords, DatesAreReadWithOrWithoutAClock) {
  EXPECT_EQ(TimeAt(Read("birthday = 1960-02-29"), 0), TimeText(support::Ts(1960, 2, 29)));
  const Filter filter = ReadFilter({"last-display >= '2001-05-06 10:20:30'"}, kJoined);
  EXPECT_EQ(filter.Fields(), 35);
  EXPECT_EQ(TimeAt(filter, 0), TimeText(support::Ts(2001, 5, 6, 10, 20, 30)));
}

TEST(FilterWords, BetweenTakesTwoSlotsAndLeavesTheSecondFieldEmpty) {
  const Filter filter = Read("birthday between 1950-01-01 and 1959-12-31 or name = X");
  EXPECT_EQ(static_cast<DWORD>(filter.Fields()), 0x91'00'22u);
  EXPECT_EQ(static_cast<DWORD>(filter.Operators()), 0x00'00'11u);
  EXPECT_EQ(TimeAt(filter, 0), TimeText(support::Ts(1950, 1, 1)));
  EXPECT_EQ(TimeAt(filter, 1), TimeText(support::Ts(1959, 12, 31)));
  EXPECT_EQ(TextAt(filter, 2), "X");
}

TEST(FilterWords, SeveralFiltersAreJoinedByAnd) {
  const Filter filter = ReadFilter({"name = A or name = B", "key < 9"}, kPatient);
  EXPECT_EQ(static_cast<DWORD>(filter.Fields()), 0x01'91'11u);
}

TEST(FilterWords, WithoutTextsTheFilterIsEmpty) { EXPECT_EQ(ReadFilter({}, kPatient).Fields(), 0); }

TEST(FilterWords, DoctorIsTheNameWhereTheTableHasItElseTheKey) {
  EXPECT_EQ(ReadFilter({"doctor = 5"}, kPatient).Fields(), 3);
  EXPECT_EQ(ReadFilter({"doctor = Weber"}, kJoined).Fields(), 20);
  EXPECT_EQ(ReadFilter({"doctor-key = 5"}, kJoined).Fields(), 3);
}

TEST(FilterWords, FieldsAreKnownInAnyCase) { EXPECT_EQ(Read("NAME = x").Fields(), 17); }

TEST(FilterWords, KeysAreWholeNumbersOf32Bits) {
  EXPECT_EQ(KeyAt(Read("key = -2147483648"), 0), -2147483647 - 1);
  ExpectComplaint("key = 2147483648", "is not a whole number of 32 bits");
  ExpectComplaint("key = 1.5", "is not a whole number");
  ExpectComplaint("key = ''", "is not a whole number");
}

TEST(FilterWords, AnUnknownFieldIsAnsweredWithTheKnownOnes) {
  ExpectComplaint(
      "age = 5",
      "there is no field 'age' here; there are: birthday, doctor, doctor-key, firstname, key, name");
  ExpectComplaint("last-display = 2001-01-01", "there is no field 'last-display'");
}

TEST(FilterWords, WhatIsMissingIsNamed) {
  ExpectComplaint("", "a field is missing");
  ExpectComplaint("name", "an operator (= <> < <= > >= like between) is missing");
  ExpectComplaint("name is x", "an operator (= <> < <= > >= like between) is missing at 'is x'");
  ExpectComplaint("name =", "a value is missing at the end");
  ExpectComplaint("name = x and", "a field is missing");
  ExpectComplaint("name = van der Berg", "'and' or 'or' is missing at 'der Berg'");
  ExpectComplaint("name = 'x", "is never closed");
  ExpectComplaint("birthday between 1950-01-01", "between needs 'and' and a second value");
}

TEST(FilterWords, ImpossibleDatesAreRefused) {
  for (const char* date :
       {"1959-02-29", "1950-13-01", "1950-1-1", "today", "1950-01-01T25:00", "0000-01-01"}) {
    ExpectComplaint(std::string("birthday = ") + date, "is not a date like");
  }
}

TEST(FilterWords, BetweenIsForDatesOnly) {
  ExpectComplaint("name between a and b", "between is for dates and times");
  ExpectComplaint("key between 1 and 2", "between is for dates and times");
}

TEST(FilterWords, MoreThanFourValuesAreRefused) {
  ExpectComplaint("key=1 or key=2 or key=3 or key=4 or key=5", "at most four values");
  ExpectComplaint("key=1 or key=2 or key=3 or birthday between 1950-01-01 and 1950-01-02",
                  "at most four values");
}

TEST(SortWords, FieldsArePackedWithTheHighestBitForDescending) {
  EXPECT_EQ(ReadSort("name", kPatient), 17);
  EXPECT_EQ(static_cast<DWORD>(ReadSort("name,-birthday", kPatient)), 0xA2'11u);
  EXPECT_EQ(static_cast<DWORD>(ReadSort("-name,firstname,birthday,-key", kPatient)), 0x81'22'16'91u);
}

TEST(SortWords, UnknownEmptyAndTooManyFieldsAreRefused) {
  for (const char* text : {"age", "", "-", "name,", ",name", "name,,key", "name, key"}) {
    EXPECT_THROW(ReadSort(text, kPatient), WordsError) << text;
  }
  EXPECT_THROW(ReadSort("name,key,name,key,name", kPatient), WordsError);
}

}  // namespace
