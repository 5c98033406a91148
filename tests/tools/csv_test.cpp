#include "tools/csv.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

using Fields = std::vector<std::string>;

std::vector<CsvRow> ReadAll(const std::string& text) {
  std::istringstream stream(text);
  CsvReader reader(stream);
  std::vector<CsvRow> rows;
  for (CsvRow row; reader.Next(row);) rows.push_back(row);
  EXPECT_EQ(reader.BytesRead(), text.size());
  return rows;
}

// The fields of the only row.
Fields ReadOne(const std::string& text) {
  const std::vector<CsvRow> rows = ReadAll(text);
  EXPECT_EQ(rows.size(), 1u) << text;
  EXPECT_EQ(rows.at(0).fault, "") << text;
  return rows.at(0).fields;
}

TEST(Csv, FieldsAreCutAtCommas) { EXPECT_EQ(ReadOne("a,b c,d\n"), (Fields{"a", "b c", "d"})); }

TEST(Csv, EmptyFieldsCount) { EXPECT_EQ(ReadOne(",a,,\n"), (Fields{"", "a", "", ""})); }

TEST(Csv, LinesMayEndWithCarriageReturn) {
  const std::vector<CsvRow> rows = ReadAll("a,b\r\nc,d\r\n");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].fields, (Fields{"a", "b"}));
  EXPECT_EQ(rows[1].fields, (Fields{"c", "d"}));
  EXPECT_EQ(rows[1].line, 2);
}

TEST(Csv, ACarriageReturnAloneBelongsToTheField) { EXPECT_EQ(ReadOne("a\rb,c\n"), (Fields{"a\rb", "c"})); }

TEST(Csv, TheLastLineEndMayBeMissing) {
  EXPECT_EQ(ReadOne("a,b"), (Fields{"a", "b"}));
  EXPECT_EQ(ReadOne("a,"), (Fields{"a", ""}));
  EXPECT_EQ(ReadOne("\"a\",\"b\""), (Fields{"a", "b"}));
}

TEST(Csv, QuotedFieldsHoldCommasQuotesAndLineEnds) {
  EXPECT_EQ(ReadOne("\"a,b\",\"say \"\"no\"\"\",\"one\r\ntwo\"\n"),
            (Fields{"a,b", "say \"no\"", "one\r\ntwo"}));
}

TEST(Csv, QuotedFieldsMayBeEmptyOrAQuoteAlone) {
  EXPECT_EQ(ReadOne("\"\",x\n"), (Fields{"", "x"}));
  EXPECT_EQ(ReadOne("\"\"\"\"\n"), (Fields{"\""}));
}

TEST(Csv, LinesAreCountedThroughQuotedLineEnds) {
  const std::vector<CsvRow> rows = ReadAll("a,\"1\n2\n3\"\nb,c\n");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].line, 1);
  EXPECT_EQ(rows[1].line, 4);
}

TEST(Csv, AByteOrderMarkIsSkipped) { EXPECT_EQ(ReadOne("\xEF\xBB\xBF\"a\",b\n"), (Fields{"a", "b"})); }

TEST(Csv, EmptyLinesAreLeftOut) {
  const std::vector<CsvRow> rows = ReadAll("\n\na,b\r\n\r\nc,d\n\n");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].line, 3);
  EXPECT_EQ(rows[1].line, 5);
}

TEST(Csv, AnEmptyFileHasNoRows) {
  EXPECT_TRUE(ReadAll("").empty());
  EXPECT_TRUE(ReadAll("\n").empty());
}

TEST(Csv, OtherCharactersPassAsTheyAre) {
  EXPECT_EQ(ReadOne("María,\\'%\t;,\xFF\n"), (Fields{"María", "\\'%\t;", "\xFF"}));
  EXPECT_EQ(ReadOne(std::string("a\0b,c\n", 6)), (Fields{std::string("a\0b", 3), "c"}));
}

TEST(Csv, AQuoteNeverClosedIsReportedAtTheLineWhereTheRowBegins) {
  const std::vector<CsvRow> rows = ReadAll("a,b\nc,\"d\ne,f\ng,h\n");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[1].line, 2);
  EXPECT_EQ(rows[1].fault, "a quote that is never closed");
}

TEST(Csv, TextBehindAClosingQuoteIsReportedAndTheNextRowRead) {
  const std::vector<CsvRow> rows = ReadAll("\"a\" b,c\nd,e\n");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].fault, "text behind a closing quote");
  EXPECT_EQ(rows[1].fault, "");
  EXPECT_EQ(rows[1].fields, (Fields{"d", "e"}));
  EXPECT_EQ(rows[1].line, 2);
}

TEST(Csv, AQuoteInsideAnUnquotedFieldIsReportedAndTheNextRowRead) {
  const std::vector<CsvRow> rows = ReadAll("a,6\" nail\nd,e\n");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].fault, "a quote inside a field that does not begin with one");
  EXPECT_EQ(rows[1].fields, (Fields{"d", "e"}));
}

}  // namespace
