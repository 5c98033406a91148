#include "tools/text_table.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(DisplayWidth, CountsColumnsNotBytes) {
  EXPECT_EQ(DisplayWidth(""), 0u);
  EXPECT_EQ(DisplayWidth("Meyer"), 5u);
  EXPECT_EQ(DisplayWidth("Müller"), 6u);
  EXPECT_EQ(DisplayWidth("Παπαδόπουλος"), 12u);
}

TEST(DisplayWidth, CountsWideCharactersTwice) {
  EXPECT_EQ(DisplayWidth("田中"), 4u);
  EXPECT_EQ(DisplayWidth("한"), 2u);
  EXPECT_EQ(DisplayWidth("😀"), 2u);
}

TEST(DisplayWidth, CountsCombiningMarksNotAtAll) {
  EXPECT_EQ(DisplayWidth("e\u0301"), 1u);
  EXPECT_EQ(DisplayWidth("\u200B"), 0u);
}

TEST(DisplayWidth, CountsEachByteThatIsNoCharacter) { EXPECT_EQ(DisplayWidth("a\xFF\xC3"), 3u); }

TEST(Printable, KeepsTextsAndMakesLineEndsBlanks) {
  EXPECT_EQ(Printable("Müller 田中 O'Neil"), "Müller 田中 O'Neil");
  EXPECT_EQ(Printable("a\nb\tc"), "a b c");
}

TEST(Printable, DisarmsWhatCouldSteerATerminal) {
  EXPECT_EQ(Printable("\x1b[31m"), "\uFFFD[31m");
  EXPECT_EQ(Printable("\x7F"), "\uFFFD");
  EXPECT_EQ(Printable("\u009B"), "\uFFFD");
}

TEST(Printable, ReplacesBytesThatAreNoCharacters) {
  EXPECT_EQ(Printable("M\xFCller"), "M\uFFFDller");
  EXPECT_EQ(Printable("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(Printable("\xC0\x80"), "\uFFFD\uFFFD");
  EXPECT_EQ(Printable("\xE7\x94"), "\uFFFD\uFFFD");
}

TEST(Shortened, KeepsWhatFits) {
  EXPECT_EQ(Shortened("Müller", 6), "Müller");
  EXPECT_EQ(Shortened("", 0), "");
}

TEST(Shortened, EndsWithAnEllipsisWithinTheWidth) {
  EXPECT_EQ(Shortened("Müller", 5), "Müll…");
  EXPECT_EQ(Shortened("Müller", 1), "…");
  EXPECT_EQ(Shortened("Müller", 0), "");
}

TEST(Shortened, DoesNotSplitWideCharacters) {
  EXPECT_EQ(Shortened("田中田中", 5), "田中…");
  EXPECT_EQ(Shortened("田中田中", 4), "田…");
}

TEST(TextTable, AlignsColumnsByDisplayWidth) {
  TextTable table({
      {"key",  TextTable::Align::kRight},
      {"name", TextTable::Align::kLeft },
      {"sex",  TextTable::Align::kLeft }
  });
  table.Add({"7", "Müller", "f"});
  table.Add({"1234", "田中", "m"});
  EXPECT_EQ(table.Text(),
            " key  name    sex\n"
            "----  ------  ---\n"
            "   7  Müller  f\n"
            "1234  田中    m\n");
}

TEST(TextTable, LinesEndWithoutBlanks) {
  TextTable table({{"a"}, {"b"}});
  table.Add({"x", ""});
  EXPECT_EQ(table.Text(), "a  b\n-  -\nx\n");
}

TEST(TextTable, WithoutRowsShowsItsTitles) { EXPECT_EQ(TextTable({{"name"}}).Text(), "name\n----\n"); }

TEST(TextTable, ShortensLongCellsAndKeepsRowsOnOneLine) {
  TextTable table({{"text"}}, 6);
  table.Add({"one\ntwo three"});
  EXPECT_EQ(table.Text(), "text\n------\none t…\n");
}

}  // namespace
