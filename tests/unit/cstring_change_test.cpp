// What changes a text in place: replacing, trimming, formatting, buffers.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

#include "platform/cstring.h"

namespace {

using namespace std::string_view_literals;

constexpr const char* kNull = nullptr;
// Too long for a string's own buffer, so that the address checker sees stale pointers.
constexpr const char* kLong = "SELECT tPatSName, tPatSVorname FROM TPatient WHERE tPatFSelect=1";

CString WithZeroBytes() { return CString("a\0b\0c", 5); }

TEST(CStringChange, ReplaceOfCharactersCountsThem) {
  CString text = "a.b.c";
  EXPECT_EQ(text.Replace('.', ','), 2);
  EXPECT_EQ(text, "a,b,c");
  EXPECT_EQ(text.Replace('x', 'y'), 0);
  EXPECT_EQ(text, "a,b,c");
}

TEST(CStringChange, ReplaceOfTextsCountsThem) {
  CString text = "O'Neil's";
  EXPECT_EQ(text.Replace("'", "''"), 2);
  EXPECT_EQ(text, "O''Neil''s");
  EXPECT_EQ(text.Replace("''", ""), 2);
  EXPECT_EQ(text, "ONeils");
  EXPECT_EQ(text.Replace("xyz", "-"), 0);
  EXPECT_EQ(text, "ONeils");
}

TEST(CStringChange, ReplaceFindsMatchesThatDoNotOverlap) {
  CString text = "aaaaa";
  EXPECT_EQ(text.Replace("aa", "b"), 2);
  EXPECT_EQ(text, "bba");
}

TEST(CStringChange, ReplaceOfTheEmptyTextDoesNothing) {
  CString text = "abc";
  EXPECT_EQ(text.Replace("", "x"), 0);
  EXPECT_EQ(text, "abc");
}

TEST(CStringChange, ReplaceTakesTheStringItself) {
  CString text = kLong;
  EXPECT_EQ(text.Replace(text, "<" + text + ">"), 1);
  EXPECT_EQ(text, "<SELECT tPatSName, tPatSVorname FROM TPatient WHERE tPatFSelect=1>");
  EXPECT_EQ(text.Replace("<", text), 1);
  EXPECT_EQ(text.GetLength(), 2 * static_cast<int>(std::string_view(kLong).size()) + 3);
}

TEST(CStringChange, ReplaceKeepsZeroBytes) {
  CString text = WithZeroBytes();
  EXPECT_EQ(text.Replace("b", "xx"), 1);
  EXPECT_EQ(text.View(), "a\0xx\0c"sv);
  EXPECT_EQ(text.Replace('\0', '-'), 2);
  EXPECT_EQ(text, "a-xx-c");
}

TEST(CStringChange, RemoveCountsTheBytesRemoved) {
  CString text = "a-b-c";
  EXPECT_EQ(text.Remove('-'), 2);
  EXPECT_EQ(text, "abc");
  EXPECT_EQ(text.Remove('-'), 0);
}

TEST(CStringChange, InsertClampsItsIndexAndReturnsTheLength) {
  CString text = "bc";
  EXPECT_EQ(text.Insert(0, "a"), 3);
  EXPECT_EQ(text.Insert(99, "e"), 4);
  EXPECT_EQ(text.Insert(3, 'd'), 5);
  EXPECT_EQ(text.Insert(-9, '>'), 6);
  EXPECT_EQ(text, ">abcde");
}

TEST(CStringChange, InsertTakesTheStringItself) {
  CString text = kLong;
  text.Insert(7, text);
  EXPECT_EQ(text, (std::string(kLong).substr(0, 7) + kLong + (kLong + 7)).c_str());
}

TEST(CStringChange, DeleteClampsIndexAndCountAndReturnsTheLength) {
  CString text = "abcdef";
  EXPECT_EQ(text.Delete(1), 5);
  EXPECT_EQ(text, "acdef");
  EXPECT_EQ(text.Delete(3, 99), 3);
  EXPECT_EQ(text, "acd");
  EXPECT_EQ(text.Delete(99, 1), 3);
  EXPECT_EQ(text.Delete(1, 0), 3);
  EXPECT_EQ(text.Delete(1, -1), 3);
  EXPECT_EQ(text.Delete(-4, 1), 2);
  EXPECT_EQ(text, "cd");
}

TEST(CStringChange, TrimCutsBlanksTabsAndLineEndsOffTheEnds) {
  EXPECT_EQ(CString(" \t\r\n\v\f a b \f\v\n\r\t ").Trim(), "a b");
  EXPECT_EQ(CString("  a ").TrimLeft(), "a ");
  EXPECT_EQ(CString("  a ").TrimRight(), "  a");
  EXPECT_EQ(CString(" \t ").Trim(), "");
  EXPECT_EQ(CString(" \t ").TrimLeft(), "");
  EXPECT_EQ(CString(" \t ").TrimRight(), "");
  EXPECT_EQ(CString().Trim(), "");
}

TEST(CStringChange, TrimCutsTheCharactersGiven) {
  EXPECT_EQ(CString("-+a-+b+-").Trim("+-"), "a-+b");
  EXPECT_EQ(CString("-+a+-").TrimLeft("+-"), "a+-");
  EXPECT_EQ(CString("-+a+-").TrimRight("+-"), "-+a");
  EXPECT_EQ(CString("//a//").Trim('/'), "a");
  EXPECT_EQ(CString("//a//").TrimLeft('/'), "a//");
  EXPECT_EQ(CString("//a//").TrimRight('/'), "//a");
  EXPECT_EQ(CString("////").Trim('/'), "");
  EXPECT_EQ(CString(" a ").Trim(""), " a ");
}

TEST(CStringChange, TrimReturnsTheStringItself) {
  CString text = " a ";
  EXPECT_EQ(&text.Trim(), &text);
  EXPECT_EQ(&text.Trim("x"), &text);
  EXPECT_EQ(&text.Trim('x'), &text);
}

TEST(CStringChange, TrimTakesTheStringItself) {
  CString text = kLong;
  EXPECT_EQ(text.Trim(text), "");
  text = "ab-ba";
  EXPECT_EQ(text.Trim(text.GetString() + 3), "-");
}

TEST(CStringChange, TrimKeepsALoneSeparator) { EXPECT_EQ(CString(" \xBB\xA0 ").Trim(), "\xBB\xA0"); }

TEST(CStringChange, UpperAndLowerChangeLettersAToZOnly) {
  CString text = "aZ[`{\xC3\xA4\xC3\x84 9";
  EXPECT_EQ(text.MakeUpper(), "AZ[`{\xC3\xA4\xC3\x84 9");
  EXPECT_EQ(text.MakeLower(), "az[`{\xC3\xA4\xC3\x84 9");
  EXPECT_EQ(&text.MakeUpper(), &text);
  EXPECT_EQ(&text.MakeLower(), &text);
}

TEST(CStringChange, FormatWorksLikeSprintf) {
  CString text;
  text.Format("%d-%02d %s %c %.2f %u %%", -5, 7, "abc", 'x', 1.5, 3000000000U);
  EXPECT_EQ(text, "-5-07 abc x 1.50 3000000000 %");
}

TEST(CStringChange, FormatTakesStringsArraysAndIntegersOfEveryWidth) {
  const char field[17] = "Station";
  const CString name = "M\xC3\xBCller";
  const WORD word = 65535;
  const LONG key = INT32_MIN;
  CString text;
  text.Format("%s|%s|%u|%d|%5.3s|%s", field, name, word, key, "abcdef", name + "!");
  EXPECT_EQ(text, "Station|M\xC3\xBCller|65535|-2147483648|  abc|M\xC3\xBCller!");
}

TEST(CStringChange, FormatReplacesTheOldText) {
  CString text = kLong;
  text.Format("x");
  EXPECT_EQ(text, "x");
  text.Format("%s", "");
  EXPECT_TRUE(text.IsEmpty());
  text.Format("");
  EXPECT_TRUE(text.IsEmpty());
}

TEST(CStringChange, FormatTakesTheStringItselfAsArgument) {
  CString text = kLong;
  text.Format("(%s) AND (%s)", text, text.GetString());
  EXPECT_EQ(text, (std::string("(") + kLong + ") AND (" + kLong + ")").c_str());
}

TEST(CStringChange, FormatTakesTheStringItselfAsFormat) {
  CString text = "%s = %d and a tail beyond the string's own buffer";
  text.Format(text, "key", 7);
  EXPECT_EQ(text, "key = 7 and a tail beyond the string's own buffer");
}

TEST(CStringChange, FormatTakesResultsOfAnyLength) {
  for (const int length : {0, 1, 15, 16, 255, 256, 1023, 1024, 4095, 4096, 1000000}) {
    const CString part('x', length);
    CString text;
    text.Format("<%s>", part);
    EXPECT_EQ(text.GetLength(), length + 2);
    EXPECT_EQ(text, "<" + part + ">");
  }
}

TEST(CStringChange, FormatOfNullIsEmpty) {
  CString text = "abc";
  text.Format(kNull);
  EXPECT_TRUE(text.IsEmpty());
}

TEST(CStringChange, FormatThatCannotBeDoneGivesTheEmptyText) {
  CString text = "abc";
  const wchar_t unknown[] = {static_cast<wchar_t>(0x7FFFFFFF), 0};
  text.Format("%ls", unknown);
  EXPECT_TRUE(text.IsEmpty());
}

TEST(CStringChange, AppendFormatKeepsTheTextBefore) {
  CString text = "a";
  text.AppendFormat(" %s %d", "b", 3);
  EXPECT_EQ(text, "a b 3");
  text.AppendFormat("[%s]", text);
  EXPECT_EQ(text, "a b 3[a b 3]");
  text.AppendFormat(kNull);
  EXPECT_EQ(text, "a b 3[a b 3]");
}

TEST(CStringChange, BufferBeginsWithTheTextAndHasRoom) {
  CString text = "abc";
  char* buffer = text.GetBuffer(64);
  EXPECT_STREQ(buffer, "abc");
  for (int i = 0; i < 64; ++i) buffer[i] = 'x';
  buffer[64] = '\0';
  text.ReleaseBuffer();
  EXPECT_EQ(text, CString('x', 64));
}

TEST(CStringChange, BufferIsNeverShorterThanTheText) {
  CString text = kLong;
  EXPECT_STREQ(text.GetBuffer(3), kLong);
  EXPECT_STREQ(text.GetBuffer(-1), kLong);
  text.ReleaseBuffer();
  EXPECT_EQ(text, kLong);
}

TEST(CStringChange, ReleaseBufferTakesTheTextToItsZeroByte) {
  CString text;
  char* buffer = text.GetBuffer(32);
  buffer[0] = 'o';
  buffer[1] = 'k';
  buffer[2] = '\0';
  text.ReleaseBuffer();
  EXPECT_EQ(text.GetLength(), 2);
  EXPECT_EQ(text, "ok");
}

TEST(CStringChange, ReleaseBufferTakesTheLengthGiven) {
  CString text = "abcdef";
  text.GetBuffer();
  text.ReleaseBuffer(2);
  EXPECT_EQ(text, "ab");
  text.GetBuffer();
  text.ReleaseBuffer(99);
  EXPECT_EQ(text, "ab");
  text.ReleaseBuffer(0);
  EXPECT_TRUE(text.IsEmpty());
}

TEST(CStringChange, PreallocatedMemoryServesShorterTexts) {
  CString text;
  text.Preallocate(256);
  const char* memory = text.GetString();
  text = kLong;
  EXPECT_EQ(text.GetString(), memory);
  text.Empty();
  const std::string bytes(256, 'x');
  text.Assign(bytes.data(), bytes.size());
  EXPECT_EQ(text.GetString(), memory);
  EXPECT_EQ(text.GetLength(), 256);
  text.Preallocate(-1);
  text.Preallocate(3);
  EXPECT_EQ(text.GetString(), memory);
}

TEST(CStringChange, AssignTakesBytesWithZeros) {
  CString text = kLong;
  text.Assign("a\0b", 3);
  EXPECT_EQ(text.View(), "a\0b"sv);
  text.Assign(nullptr, 0);
  EXPECT_TRUE(text.IsEmpty());
}

}  // namespace
