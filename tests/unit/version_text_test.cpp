// The schema version: from the text in the database to a number.
#include "frame/version_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace {

TEST(VersionText, WholeNumbersAreTakenAsTheyAre) {
  EXPECT_DOUBLE_EQ(VersionFromText("4"), 4.0);
  EXPECT_DOUBLE_EQ(VersionFromText("0"), 0.0);
  EXPECT_DOUBLE_EQ(VersionFromText("1200"), 1200.0);
}

TEST(VersionText, AnyCharacterThatIsNoLetterOrDigitSeparatesTheFraction) {
  for (const char* text : {"4.2", "4,2", "4-2", "4/2", "4 2", "4\xC2\x32"}) {
    EXPECT_DOUBLE_EQ(VersionFromText(text), 4.2) << text;
  }
}

TEST(VersionText, TheFractionCountsByItsLength) {
  EXPECT_DOUBLE_EQ(VersionFromText("4.0"), 4.0);
  EXPECT_DOUBLE_EQ(VersionFromText("4.25"), 4.25);
  EXPECT_DOUBLE_EQ(VersionFromText("4.025"), 4.025);
  EXPECT_DOUBLE_EQ(VersionFromText("3.9"), 3.9);
  EXPECT_DOUBLE_EQ(VersionFromText("4.10"), 4.1);
}

TEST(VersionText, TheSignReachesTheFractionOnly) {
  EXPECT_DOUBLE_EQ(VersionFromText("-1.5"), 0.5);
  EXPECT_DOUBLE_EQ(VersionFromText("-0.5"), -0.5);
}

TEST(VersionText, TheSignOfAWholeNumberReachesItAll) { EXPECT_DOUBLE_EQ(VersionFromText("-2"), -2.0); }

TEST(VersionText, WithoutALeadingDigitItIsZero) {
  EXPECT_DOUBLE_EQ(VersionFromText(nullptr), 0.0);
  EXPECT_DOUBLE_EQ(VersionFromText(""), 0.0);
  EXPECT_DOUBLE_EQ(VersionFromText("-"), 0.0);
  EXPECT_DOUBLE_EQ(VersionFromText("."), 0.0);
  EXPECT_DOUBLE_EQ(VersionFromText("version"), 0.0);
  EXPECT_DOUBLE_EQ(VersionFromText("v4"), 0.0);
}

TEST(VersionText, AMissingPartIsZero) {
  EXPECT_DOUBLE_EQ(VersionFromText("4."), 4.0);
  EXPECT_DOUBLE_EQ(VersionFromText(".5"), 0.5);
}

TEST(VersionText, LettersBehindTheDigitsAreLeftOut) {
  EXPECT_DOUBLE_EQ(VersionFromText("4beta"), 4.0);
  EXPECT_DOUBLE_EQ(VersionFromText("4beta.5"), 4.5);
}

TEST(VersionText, ASecondSeparatorBelongsToTheFraction) {
  // "2.1" is three characters long, so its number counts a thousandth.
  EXPECT_DOUBLE_EQ(VersionFromText("4.2.1"), 4.0 + 2.1 / 1000);
}

TEST(VersionText, AVeryLongTextIsNoTrouble) {
  EXPECT_DOUBLE_EQ(VersionFromText("4.000000000000000000000000000000000000000000000000000000000000001"), 4.0);
}

TEST(VersionText, TheProcessesLocaleDoesNotMatter) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"de_DE.UTF-8", "de_DE", "C.UTF-8", "C"}) {
    if (std::setlocale(LC_ALL, locale) == nullptr) continue;
    EXPECT_DOUBLE_EQ(VersionFromText("4.25"), 4.25) << locale;
    EXPECT_DOUBLE_EQ(VersionFromText("4,25"), 4.25) << locale;
  }
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
