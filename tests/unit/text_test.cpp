#include "platform/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace {

using text::BoundedCopy;
using text::CutLength;
using text::FieldLength;

std::size_t Cut(std::string_view value, std::size_t limit) {
  return CutLength(value.data(), value.size(), limit);
}

std::string Join(const std::vector<std::string>& pieces) {
  std::string joined;
  for (const std::string& piece : pieces) joined += piece;
  return joined;
}

// The pieces are whole characters or lone bytes; a cut may fall between any two of them and nowhere else.
std::size_t LongestWholePieces(const std::vector<std::string>& pieces, std::size_t limit) {
  std::size_t length = 0;
  for (const std::string& piece : pieces) {
    if (length + piece.size() > limit) break;
    length += piece.size();
  }
  return length;
}

void ExpectCutsBetweenPieces(const std::vector<std::string>& pieces) {
  const std::string joined = Join(pieces);
  for (std::size_t limit = 0; limit <= joined.size() + 4; ++limit) {
    EXPECT_EQ(Cut(joined, limit), LongestWholePieces(pieces, limit)) << joined << " at " << limit;
  }
}

// As RFC 3629 defines it, independent of the code under test.
std::string Encode(char32_t point) {
  const auto tail = [point](int shift) { return static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
  if (point < 0x80) return {static_cast<char>(point)};
  if (point < 0x800) return {static_cast<char>(0xC0 | (point >> 6)), tail(0)};
  if (point < 0x10000) return {static_cast<char>(0xE0 | (point >> 12)), tail(6), tail(0)};
  return {static_cast<char>(0xF0 | (point >> 18)), tail(12), tail(6), tail(0)};
}

TEST(CutLength, TextShorterThanTheLimitIsKeptWhole) {
  EXPECT_EQ(Cut("", 0), 0u);
  EXPECT_EQ(Cut("", 10), 0u);
  EXPECT_EQ(Cut("Meier", 5), 5u);
  EXPECT_EQ(Cut("Meier", 6), 5u);
  EXPECT_EQ(Cut("M\xC3\xBCller", 7), 7u);
}

TEST(CutLength, NullTextOfNoLengthIsEmpty) { EXPECT_EQ(CutLength(nullptr, 0, 5), 0u); }

TEST(CutLength, LimitZeroKeepsNothing) {
  EXPECT_EQ(Cut("abc", 0), 0u);
  EXPECT_EQ(Cut("\xC3\xBC", 0), 0u);
}

TEST(CutLength, AsciiIsCutAtTheLimit) { EXPECT_EQ(Cut("Meier", 3), 3u); }

TEST(CutLength, CharacterThatEndsAtTheLimitIsKept) {
  EXPECT_EQ(Cut("M\xC3\xBCller", 3), 3u);
  EXPECT_EQ(Cut("\xE2\x82\xAC uro", 3), 3u);
  EXPECT_EQ(Cut("\xF0\x9F\x98\x80!", 4), 4u);
}

TEST(CutLength, CharacterAcrossTheLimitIsDropped) {
  EXPECT_EQ(Cut("M\xC3\xBCller", 2), 1u);
  EXPECT_EQ(Cut("a\xE2\x82\xAC", 2), 1u);
  EXPECT_EQ(Cut("a\xE2\x82\xAC", 3), 1u);
  EXPECT_EQ(Cut("a\xF0\x9F\x98\x80", 2), 1u);
  EXPECT_EQ(Cut("a\xF0\x9F\x98\x80", 3), 1u);
  EXPECT_EQ(Cut("a\xF0\x9F\x98\x80", 4), 1u);
}

TEST(CutLength, FirstCharacterAcrossTheLimitLeavesNothing) {
  EXPECT_EQ(Cut("\xC3\xBC", 1), 0u);
  EXPECT_EQ(Cut("\xF0\x9F\x98\x80", 3), 0u);
}

TEST(CutLength, LoneSeparatorAtTheCutIsKept) {
  EXPECT_EQ(Cut("ab\xBB\x63", 3), 3u);
  EXPECT_EQ(Cut("\xBB\xBB\xBB\xBB\xBB", 4), 4u);
}

TEST(CutLength, SeparatorAfterACompleteCharacterIsKept) { EXPECT_EQ(Cut("\xC3\xBC\xBB\x63", 3), 3u); }

TEST(CutLength, SeparatorAsTheSecondHalfOfACharacterIsNotSplitOff) {
  EXPECT_EQ(Cut("\xC3\xBB!", 1), 0u);
  EXPECT_EQ(Cut("\xC3\xBB!", 2), 2u);
}

TEST(CutLength, StrayContinuationBytesAreKept) {
  EXPECT_EQ(Cut("a\x80\x80\x80\x80\x80z", 5), 5u);
  EXPECT_EQ(Cut("\xC3\xBC\x80\x80z", 4), 4u);
}

TEST(CutLength, LeadWithoutItsContinuationStandsForItself) {
  EXPECT_EQ(Cut("a\xC3z", 2), 2u);
  EXPECT_EQ(Cut("a\xE2\x82z", 2), 2u);
  EXPECT_EQ(Cut("a\xE2\x82z", 3), 3u);
  EXPECT_EQ(Cut("a\xE2\xC3\xBC", 2), 2u);
  EXPECT_EQ(Cut("a\xE2\xC3\xBC", 3), 2u);
}

TEST(CutLength, SequenceThatTheTextItselfBreaksOffStaysTogether) {
  EXPECT_EQ(Cut("a\xE2\x82", 2), 1u);
  EXPECT_EQ(Cut("a\xF0\x9F\x98", 3), 1u);
}

TEST(CutLength, TextEndingInAnIncompleteSequenceLosesNothingBeforeTheLimit) {
  EXPECT_EQ(Cut("a\xC3", 2), 2u);
  EXPECT_EQ(Cut("a\xE2\x82", 3), 3u);
  EXPECT_EQ(Cut("a\xF0\x9F\x98", 9), 4u);
}

TEST(CutLength, BytesThatNeverBeginACharacterAreKept) {
  for (const int lead : {0xC0, 0xC1, 0xF5, 0xF8, 0xFC, 0xFE, 0xFF}) {
    const std::string value = {'a', static_cast<char>(lead), '\x80', '\x80', '\x80', 'z'};
    for (std::size_t limit = 0; limit < value.size(); ++limit) EXPECT_EQ(Cut(value, limit), limit) << lead;
  }
}

TEST(CutLength, OverlongFormsSurrogatesAndNumbersBeyondUnicodeAreLoneBytes) {
  for (const std::string value :
       {"\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xC0\xAF", "\xC1\xBF"}) {
    for (std::size_t limit = 0; limit < value.size(); ++limit) EXPECT_EQ(Cut(value, limit), limit) << value;
  }
}

TEST(CutLength, FirstAndLastCharacterOfEveryLengthStayWhole) {
  for (const char32_t point : {0x80, 0x7FF, 0x800, 0xFFF, 0x1000, 0xCFFF, 0xD000, 0xD7FF, 0xE000, 0xFFFF,
                               0x10000, 0x3FFFF, 0x40000, 0xFFFFF, 0x100000, 0x10FFFF}) {
    ExpectCutsBetweenPieces({"a", Encode(point), "b"});
    ExpectCutsBetweenPieces({Encode(point), Encode(point)});
  }
}

TEST(CutLength, MixedTextIsCutBetweenCharactersAtEveryLimit) {
  ExpectCutsBetweenPieces({"M",        "\xC3\xBC",
                           "l",        "\xE2\x82\xAC",
                           "\xBB",     "\xF0\x9F\x98\x80",
                           "\xBB",     "\xBB",
                           "\xFF",     "z",
                           "\xC3",     "a",
                           "\x80",     "\xE4\xB8\xAD",
                           "\xBB",     "\xC3\xBB",
                           "\xE0",     "\x9F",
                           "\xC3\xA9", "'",
                           "%",        "\\",
                           "\xC0",     "\x80"});
}

TEST(CutLength, EveryTwoByteLeadAndSecondByteAgreeWithTheDefinition) {
  for (int lead = 0; lead < 256; ++lead) {
    for (int second = 0; second < 256; ++second) {
      const std::string value = {static_cast<char>(lead), static_cast<char>(second)};
      const bool is_character = lead >= 0xC2 && lead <= 0xDF && second >= 0x80 && second <= 0xBF;
      const bool begins_longer =
          (lead == 0xE0 && second >= 0xA0 && second <= 0xBF) ||
          (lead >= 0xE1 && lead <= 0xEF && lead != 0xED && second >= 0x80 && second <= 0xBF) ||
          (lead == 0xED && second >= 0x80 && second <= 0x9F) ||
          (lead == 0xF0 && second >= 0x90 && second <= 0xBF) ||
          (lead >= 0xF1 && lead <= 0xF3 && second >= 0x80 && second <= 0xBF) ||
          (lead == 0xF4 && second >= 0x80 && second <= 0x8F);
      EXPECT_EQ(Cut(value, 1), is_character || begins_longer ? 0u : 1u) << lead << " " << second;
    }
  }
}

TEST(CutLength, CuttingTwiceChangesNothingMore) {
  const std::string value = "O'Neil \xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80\xBB M\xC3\xBCller";
  for (std::size_t limit = 0; limit <= value.size(); ++limit) {
    const std::size_t once = Cut(value, limit);
    EXPECT_LE(once, limit);
    EXPECT_GT(once + 4, limit);  // at most three bytes are given up
    EXPECT_EQ(Cut(value, once), once);
  }
}

TEST(CutLength, ZeroBytesAreOrdinaryBytes) { EXPECT_EQ(Cut(std::string_view("a\0b\0c", 5), 4), 4u); }

class BoundedCopyTest : public testing::Test {
 protected:
  static constexpr char kUntouched = '#';

  BoundedCopyTest() { std::fill(std::begin(m_buffer), std::end(m_buffer), kUntouched); }

  std::size_t Copy(std::size_t size, const char* value, std::size_t length) {
    return BoundedCopy(m_buffer, size, value, length);
  }

  char m_buffer[16];
};

TEST_F(BoundedCopyTest, ShortTextIsCopiedAndTerminated) {
  EXPECT_EQ(Copy(10, "Meier", 5), 5u);
  EXPECT_STREQ(m_buffer, "Meier");
  EXPECT_EQ(m_buffer[6], kUntouched);
}

TEST_F(BoundedCopyTest, TextOfTheBuffersSizeLosesItsLastByteToTheZero) {
  EXPECT_EQ(Copy(5, "Meier", 5), 4u);
  EXPECT_STREQ(m_buffer, "Meie");
  EXPECT_EQ(m_buffer[5], kUntouched);
}

TEST_F(BoundedCopyTest, TextThatJustFitsIsKeptWhole) {
  EXPECT_EQ(Copy(6, "Meier", 5), 5u);
  EXPECT_STREQ(m_buffer, "Meier");
  EXPECT_EQ(m_buffer[6], kUntouched);
}

TEST_F(BoundedCopyTest, GivenLengthBoundsTheCopy) {
  EXPECT_EQ(Copy(10, "Meier", 3), 3u);
  EXPECT_STREQ(m_buffer, "Mei");
}

TEST_F(BoundedCopyTest, ZeroByteEndsTheTextBeforeTheGivenLength) {
  EXPECT_EQ(Copy(10, "Mei\0er", 6), 3u);
  EXPECT_STREQ(m_buffer, "Mei");
  EXPECT_EQ(m_buffer[4], kUntouched);
}

TEST_F(BoundedCopyTest, UnterminatedTextIsReadNoFurtherThanItsLength) {
  const std::vector<char> unterminated = {'a', 'b', 'c'};  // the address checker guards its end
  EXPECT_EQ(Copy(10, unterminated.data(), unterminated.size()), 3u);
  EXPECT_STREQ(m_buffer, "abc");
}

TEST_F(BoundedCopyTest, SizeOneHoldsOnlyTheZeroByte) {
  EXPECT_EQ(Copy(1, "Meier", 5), 0u);
  EXPECT_EQ(m_buffer[0], '\0');
  EXPECT_EQ(m_buffer[1], kUntouched);
}

TEST_F(BoundedCopyTest, SizeZeroTouchesNothing) {
  EXPECT_EQ(Copy(0, "Meier", 5), 0u);
  EXPECT_EQ(m_buffer[0], kUntouched);
}

TEST_F(BoundedCopyTest, NullBufferIsLeftAlone) { EXPECT_EQ(BoundedCopy(nullptr, 10, "Meier", 5), 0u); }

TEST_F(BoundedCopyTest, NullTextIsEmpty) {
  EXPECT_EQ(Copy(10, nullptr, 5), 0u);
  EXPECT_STREQ(m_buffer, "");
}

TEST_F(BoundedCopyTest, CharacterAcrossTheEndIsDropped) {
  EXPECT_EQ(Copy(3, "M\xC3\xBCller", 7), 1u);
  EXPECT_STREQ(m_buffer, "M");
}

TEST_F(BoundedCopyTest, LoneSeparatorAtTheEndIsKept) {
  EXPECT_EQ(Copy(4, "ab\xBB\x63\x64", 5), 3u);
  EXPECT_STREQ(m_buffer, "ab\xBB");
}

TEST_F(BoundedCopyTest, TextEndingInALoneLeadIsKeptWhereItFits) {
  EXPECT_EQ(Copy(10, "ab\xC3", 3), 3u);
  EXPECT_STREQ(m_buffer, "ab\xC3");
}

TEST_F(BoundedCopyTest, TextMayLieInTheBufferItself) {
  Copy(10, "abcdef", 6);
  EXPECT_EQ(Copy(10, m_buffer + 2, 4), 4u);
  EXPECT_STREQ(m_buffer, "cdef");
  EXPECT_EQ(Copy(3, m_buffer, 4), 2u);
  EXPECT_STREQ(m_buffer, "cd");
}

TEST_F(BoundedCopyTest, EverySizeHoldsTheLongestWholeBeginning) {
  const std::vector<std::string> pieces = {"M", "\xC3\xBC", "\xBB", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "l"};
  const std::string joined = Join(pieces);
  for (std::size_t size = 1; size < sizeof m_buffer; ++size) {
    std::fill(std::begin(m_buffer), std::end(m_buffer), kUntouched);
    const std::size_t expected = LongestWholePieces(pieces, size - 1);
    EXPECT_EQ(Copy(size, joined.data(), joined.size()), expected);
    EXPECT_EQ(m_buffer, joined.substr(0, expected));
    EXPECT_EQ(m_buffer[size], kUntouched);
  }
}

TEST(FieldLength, EndsAtTheZeroByte) {
  const char field[8] = {'a', 'b', '\0', 'x', 'y', 'z', 'x', 'y'};
  EXPECT_EQ(FieldLength(field, sizeof field), 2u);
}

TEST(FieldLength, EmptyFieldHasNoText) {
  const char field[4] = {};
  EXPECT_EQ(FieldLength(field, sizeof field), 0u);
}

TEST(FieldLength, FullFieldWithItsZeroByteKeepsAllText) {
  const char field[4] = {'a', 'b', 'c', '\0'};
  EXPECT_EQ(FieldLength(field, sizeof field), 3u);
}

TEST(FieldLength, UnterminatedFieldLosesItsLastByte) {
  const std::vector<char> field = {'a', 'b', 'c', 'd'};
  EXPECT_EQ(FieldLength(field.data(), field.size()), 3u);
}

TEST(FieldLength, UnterminatedFieldIsNotCutInsideACharacter) {
  const std::vector<char> field = {'a', 'b', '\xC3', '\xBC'};
  EXPECT_EQ(FieldLength(field.data(), field.size()), 2u);
}

TEST(FieldLength, UnterminatedFieldKeepsALoneSeparator) {
  const std::vector<char> field = {'a', 'b', '\xBB', 'c'};
  EXPECT_EQ(FieldLength(field.data(), field.size()), 3u);
}

TEST(FieldLength, TerminatedFieldEndingInALoneLeadKeepsIt) {
  const char field[4] = {'a', 'b', '\xC3', '\0'};
  EXPECT_EQ(FieldLength(field, sizeof field), 3u);
}

TEST(FieldLength, FieldOfOneByteHasNoText) {
  const char unterminated = 'a';
  EXPECT_EQ(FieldLength(&unterminated, 1), 0u);
}

TEST(FieldLength, FieldOfNoSizeHasNoText) { EXPECT_EQ(FieldLength("abc", 0), 0u); }

TEST(FieldLength, WhatBoundedCopyPutThereIsReadBackWhole) {
  const std::string value = "M\xC3\xBC\xBB\xE2\x82\xAC\xF0\x9F\x98\x80\xBB";
  for (std::size_t size = 1; size <= value.size() + 2; ++size) {
    std::vector<char> field(size, '#');
    const std::size_t copied = BoundedCopy(field.data(), size, value.data(), value.size());
    EXPECT_EQ(FieldLength(field.data(), size), copied);
  }
}

}  // namespace
