#include "platform/cstring.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace std::string_view_literals;

constexpr const char* kNull = nullptr;
// Too long for a string's own buffer, so that the address checker sees stale pointers.
constexpr const char* kLong = "SELECT tPatSName, tPatSVorname FROM TPatient WHERE tPatFSelect=1";

CString WithZeroBytes() { return CString("a\0b\0c", 5); }

TEST(CString, DefaultIsEmpty) {
  const CString text;
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_EQ(text.GetLength(), 0);
  EXPECT_STREQ(text.GetString(), "");
}

TEST(CString, NullIsTheEmptyTextEverywhere) {
  CString text = kNull;
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_TRUE(CString(kNull, 5).IsEmpty());
  text = "abc";
  text += kNull;
  EXPECT_EQ(text + kNull, "abc");
  EXPECT_EQ(kNull + text, "abc");
  EXPECT_EQ(text.Find(kNull), 0);
  EXPECT_EQ(text.FindOneOf(kNull), -1);
  EXPECT_EQ(text.Replace(kNull, "x"), 0);
  EXPECT_EQ(text.Replace("b", kNull), 1);
  EXPECT_EQ(text.Insert(1, kNull), 2);
  EXPECT_EQ(text.Trim(kNull), "ac");
  EXPECT_EQ(text.SpanIncluding(kNull), "");
  EXPECT_EQ(text.SpanExcluding(kNull), "ac");
  EXPECT_GT(text.Compare(kNull), 0);
  EXPECT_GT(text.CompareNoCase(kNull), 0);
  EXPECT_FALSE(text == kNull);
  EXPECT_TRUE(text > kNull);
  text = kNull;
  EXPECT_TRUE(text == kNull);
}

TEST(CString, PointerAndLengthTakeZeroBytes) {
  const CString text = WithZeroBytes();
  EXPECT_EQ(text.GetLength(), 5);
  EXPECT_EQ(text.View(), "a\0b\0c"sv);
}

TEST(CString, PointerAndLengthReadNoFurther) {
  const std::vector<char> unterminated = {'a', 'b', 'c'};
  EXPECT_EQ(CString(unterminated.data(), 3), "abc");
  EXPECT_EQ(CString(unterminated.data(), 2), "ab");
  EXPECT_TRUE(CString(unterminated.data(), 0).IsEmpty());
  EXPECT_TRUE(CString(unterminated.data(), -1).IsEmpty());
}

TEST(CString, CharacterAndCountRepeatTheCharacter) {
  EXPECT_EQ(CString('x'), "x");
  EXPECT_EQ(CString('x', 3), "xxx");
  EXPECT_TRUE(CString('x', 0).IsEmpty());
  EXPECT_TRUE(CString('x', -3).IsEmpty());
}

TEST(CString, CopiesAreIndependent) {
  CString original = kLong;
  CString copy = original;
  copy.SetAt(0, 's');
  EXPECT_EQ(original, kLong);
  EXPECT_NE(copy, original);
}

TEST(CString, AssignmentTakesAPartOfTheTextItself) {
  CString text = kLong;
  text = text.GetString() + 7;
  EXPECT_EQ(text, kLong + 7);
  const CString& itself = text;
  text = itself;
  EXPECT_EQ(text, kLong + 7);
}

TEST(CString, EmptyMakesItEmpty) {
  CString text = kLong;
  text.Empty();
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_STREQ(text, "");
}

TEST(CString, AppendingTakesTextsStringsAndCharacters) {
  CString text = "a";
  text += "bc";
  text += CString("de");
  text += 'f';
  EXPECT_EQ(text, "abcdef");
}

TEST(CString, AppendingKeepsZeroBytesOfAString) {
  CString text = "x";
  text += WithZeroBytes();
  EXPECT_EQ(text.View(), "xa\0b\0c"sv);
}

TEST(CString, AppendingTakesTheStringItself) {
  CString text = kLong;
  text += text;
  text += text.GetString();
  EXPECT_EQ(text, std::string(kLong).append(kLong).append(kLong).append(kLong).c_str());
}

TEST(CString, SumsOfEveryKind) {
  const CString text = "b";
  EXPECT_EQ(text + text, "bb");
  EXPECT_EQ(text + "c", "bc");
  EXPECT_EQ("a" + text, "ab");
  EXPECT_EQ(text + 'c', "bc");
  EXPECT_EQ('a' + text, "ab");
  EXPECT_EQ("a" + text + 'c' + "d" + text, "abcdb");
  EXPECT_EQ(text, "b");
}

TEST(CString, GetAtReadsBytesAndZeroOutside) {
  const CString text = "ab";
  EXPECT_EQ(text.GetAt(0), 'a');
  EXPECT_EQ(text[1], 'b');
  EXPECT_EQ(text.GetAt(2), '\0');
  EXPECT_EQ(text.GetAt(-1), '\0');
  EXPECT_EQ(text[INT_MAX], '\0');
  EXPECT_EQ(text[INT_MIN], '\0');
}

TEST(CString, SetAtWritesInsideOnly) {
  CString text = "abc";
  text.SetAt(1, 'X');
  text.SetAt(3, 'Y');
  text.SetAt(-1, 'Z');
  EXPECT_EQ(text, "aXc");
}

TEST(CString, LeftMidAndRightClampTheirCounts) {
  const CString text = "abcdef";
  EXPECT_EQ(text.Left(2), "ab");
  EXPECT_EQ(text.Left(99), "abcdef");
  EXPECT_EQ(text.Left(-1), "");
  EXPECT_EQ(text.Right(2), "ef");
  EXPECT_EQ(text.Right(99), "abcdef");
  EXPECT_EQ(text.Right(-1), "");
  EXPECT_EQ(text.Mid(2), "cdef");
  EXPECT_EQ(text.Mid(6), "");
  EXPECT_EQ(text.Mid(99), "");
  EXPECT_EQ(text.Mid(-5), "abcdef");
  EXPECT_EQ(text.Mid(2, 3), "cde");
  EXPECT_EQ(text.Mid(2, INT_MAX), "cdef");
  EXPECT_EQ(text.Mid(INT_MAX, INT_MAX), "");
  EXPECT_EQ(text.Mid(2, -1), "");
  EXPECT_EQ(text.Mid(INT_MIN, 2), "ab");
}

TEST(CString, LeftPutTogetherWithTheRestIsTheText) {
  const CString text = "M\xC3\xBCller \xBB O'Neil";
  const int length = text.GetLength();
  for (int i = 0; i <= length + 2; ++i) {
    EXPECT_EQ(text.Left(i) + text.Mid(i), text) << i;
    EXPECT_EQ(text.Left(length - i) + text.Right(i), text) << i;
    EXPECT_EQ(text.Mid(0, i), text.Left(i)) << i;
  }
}

TEST(CString, FindGivesTheFirstMatchFromTheStart) {
  const CString text = "abcabc";
  EXPECT_EQ(text.Find('b'), 1);
  EXPECT_EQ(text.Find('b', 1), 1);
  EXPECT_EQ(text.Find('b', 2), 4);
  EXPECT_EQ(text.Find('b', 5), -1);
  EXPECT_EQ(text.Find("bc"), 1);
  EXPECT_EQ(text.Find("bc", 2), 4);
  EXPECT_EQ(text.Find("bx"), -1);
  EXPECT_EQ(text.Find("abcabcd"), -1);
}

TEST(CString, FindTakesStartsOutsideTheText) {
  const CString text = "abc";
  EXPECT_EQ(text.Find('a', -7), 0);
  EXPECT_EQ(text.Find("c", INT_MIN), 2);
  EXPECT_EQ(text.Find('a', 3), -1);
  EXPECT_EQ(text.Find("a", INT_MAX), -1);
}

TEST(CString, FindOfTheEmptyTextIsItsStart) {
  const CString text = "abc";
  EXPECT_EQ(text.Find(""), 0);
  EXPECT_EQ(text.Find("", 2), 2);
  EXPECT_EQ(text.Find("", 3), 3);
  EXPECT_EQ(text.Find("", 4), -1);
}

TEST(CString, FindSearchesBytes) {
  const CString text = "a\xC3\xBB\xBB";
  EXPECT_EQ(text.Find('\xBB'), 2);
  EXPECT_EQ(text.ReverseFind('\xBB'), 3);
  EXPECT_EQ(WithZeroBytes().Find('\0'), 1);
  EXPECT_EQ(WithZeroBytes().Find("c"), 4);
}

TEST(CString, ReverseFindGivesTheLastMatch) {
  const CString text = "abcabc";
  EXPECT_EQ(text.ReverseFind('b'), 4);
  EXPECT_EQ(text.ReverseFind('x'), -1);
  EXPECT_EQ(CString().ReverseFind('x'), -1);
}

TEST(CString, FindOneOfGivesTheFirstOfAnyCharacter) {
  const CString text = "abc;def,ghi";
  EXPECT_EQ(text.FindOneOf(",;"), 3);
  EXPECT_EQ(text.FindOneOf("xyz"), -1);
  EXPECT_EQ(text.FindOneOf(""), -1);
}

TEST(CString, CompareOrdersByUnsignedBytes) {
  EXPECT_EQ(CString("abc").Compare("abc"), 0);
  EXPECT_LT(CString("abc").Compare("abd"), 0);
  EXPECT_GT(CString("abd").Compare("abc"), 0);
  EXPECT_LT(CString("ab").Compare("abc"), 0);
  EXPECT_GT(CString("abc").Compare("ab"), 0);
  EXPECT_GT(CString("a").Compare("A"), 0);
  EXPECT_GT(CString("\xC3\xBC").Compare("z"), 0);
}

TEST(CString, CompareNoCaseIgnoresTheCaseOfAToZOnly) {
  EXPECT_EQ(CString("tPatSName").CompareNoCase("TPATSNAME"), 0);
  EXPECT_LT(CString("Abc").CompareNoCase("aBD"), 0);
  EXPECT_GT(CString("b").CompareNoCase("A"), 0);
  EXPECT_LT(CString("ab").CompareNoCase("ABC"), 0);
  EXPECT_NE(CString("\xC3\x84").CompareNoCase("\xC3\xA4"), 0);
  EXPECT_NE(CString("[").CompareNoCase("{"), 0);
  EXPECT_NE(CString("@").CompareNoCase("`"), 0);
}

TEST(CString, OperatorsCompareTextsAndStringsBothWays) {
  const std::vector<const char*> ascending = {"", "A", "a", "ab", "b", "\xC3\xBC"};
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    for (std::size_t j = 0; j < ascending.size(); ++j) {
      const CString left = ascending[i];
      const CString right = ascending[j];
      EXPECT_EQ(left == right, i == j);
      EXPECT_EQ(left == ascending[j], i == j);
      EXPECT_EQ(ascending[i] == right, i == j);
      EXPECT_EQ(left != right, i != j);
      EXPECT_EQ(left != ascending[j], i != j);
      EXPECT_EQ(ascending[i] != right, i != j);
      EXPECT_EQ(left < right, i < j);
      EXPECT_EQ(left < ascending[j], i < j);
      EXPECT_EQ(ascending[i] < right, i < j);
      EXPECT_EQ(left > right, i > j);
      EXPECT_EQ(left > ascending[j], i > j);
      EXPECT_EQ(ascending[i] > right, i > j);
      EXPECT_EQ(left <= right, i <= j);
      EXPECT_EQ(left <= ascending[j], i <= j);
      EXPECT_EQ(ascending[i] <= right, i <= j);
      EXPECT_EQ(left >= right, i >= j);
      EXPECT_EQ(left >= ascending[j], i >= j);
      EXPECT_EQ(ascending[i] >= right, i >= j);
    }
  }
}

TEST(CString, EqualityOfStringsLooksBehindZeroBytes) {
  EXPECT_FALSE(CString("a\0b", 3) == CString("a\0c", 3));
  EXPECT_TRUE(CString("a\0b", 3) < CString("a\0c", 3));
  EXPECT_FALSE(CString("a\0b", 3) == "a");
}

TEST(CString, SpansAreTheLongestBeginnings) {
  const CString text = "123abc456";
  EXPECT_EQ(text.SpanIncluding("0123456789"), "123");
  EXPECT_EQ(text.SpanIncluding("abc"), "");
  EXPECT_EQ(text.SpanIncluding("123abc456"), "123abc456");
  EXPECT_EQ(text.SpanExcluding("cba"), "123");
  EXPECT_EQ(text.SpanExcluding("1"), "");
  EXPECT_EQ(text.SpanExcluding("xyz"), "123abc456");
  EXPECT_EQ(text.SpanExcluding(""), "123abc456");
}

std::vector<std::string> Tokens(const CString& text, const char* separators) {
  std::vector<std::string> tokens;
  int start = 0;
  for (CString token = text.Tokenize(separators, start); start != -1;
       token = text.Tokenize(separators, start)) {
    tokens.emplace_back(token.GetString());
  }
  return tokens;
}

TEST(CString, TokenizeGivesEveryTokenBetweenSeparators) {
  using List = std::vector<std::string>;
  EXPECT_EQ(Tokens("a,bc;d", ",;"), (List{"a", "bc", "d"}));
  EXPECT_EQ(Tokens(",,a,,b,,", ","), (List{"a", "b"}));
  EXPECT_EQ(Tokens("a", ","), (List{"a"}));
  EXPECT_EQ(Tokens("", ","), List{});
  EXPECT_EQ(Tokens(",,,", ","), List{});
  EXPECT_EQ(Tokens("a,b", ""), (List{"a,b"}));
  EXPECT_EQ(Tokens("a,b", nullptr), (List{"a,b"}));
}

TEST(CString, TokenizeMovesTheStartBehindTheSeparator) {
  const CString text = "name=value=x";
  int start = 0;
  EXPECT_EQ(text.Tokenize("=", start), "name");
  EXPECT_EQ(start, 5);
  EXPECT_EQ(text.Tokenize("=", start), "value");
  EXPECT_EQ(start, 11);
  EXPECT_EQ(text.Tokenize("=", start), "x");
  EXPECT_EQ(start, 12);
  EXPECT_EQ(text.Tokenize("=", start), "");
  EXPECT_EQ(start, -1);
  EXPECT_EQ(text.Tokenize("=", start), "");
  EXPECT_EQ(start, -1);
}

TEST(CString, TokenizeTakesStartsOutsideTheText) {
  const CString text = "a,b";
  for (int start : {3, 99, INT_MAX, -1, INT_MIN}) {
    EXPECT_EQ(text.Tokenize(",", start), "");
    EXPECT_EQ(start, -1);
  }
}

}  // namespace
