// Values taken out of generated conditions.
#include "platform/literals.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The statement, and its values in brackets behind it.
std::string Marked(const std::string& condition) {
  const MarkedSQL marked = TakeOutLiterals("SELECT a FROM t", condition);
  std::string shown(marked.sql.View());
  for (const odbc::Parameter& value : marked.values) {
    shown += " [" + (value.c_type == SQL_C_SLONG ? std::to_string(value.number) : value.text) + "]";
  }
  return shown;
}

SWORD TypeOf(const std::string& condition) { return TakeOutLiterals("", condition).values.at(0).sql_type; }

TEST(Literals, NumbersAndTextsBecomeValuesInTheirOrder) {
  EXPECT_EQ(Marked(" WHERE a=5 AND b='x' AND c<>2147483647"),
            "SELECT a FROM t WHERE a=? AND b=? AND c<>? [5] [x] [2147483647]");
  EXPECT_EQ(Marked(" WHERE (a=-5) AND b=6"), "SELECT a FROM t WHERE (a=-5) AND b=? [6]");
}

TEST(Literals, ADoubledQuoteIsOneQuoteOfTheValue) {
  EXPECT_EQ(Marked(" WHERE a='O''Neil'"), "SELECT a FROM t WHERE a=? [O'Neil]");
  EXPECT_EQ(Marked(" WHERE a=''"), "SELECT a FROM t WHERE a=? []");
  EXPECT_EQ(Marked(" WHERE a=''''"), "SELECT a FROM t WHERE a=? [']");
  EXPECT_EQ(Marked(" WHERE a='\\'"), "SELECT a FROM t WHERE a=? [\\]");
}

TEST(Literals, WhatLooksLikeSqlInsideATextIsOnlyText) {
  EXPECT_EQ(Marked(" WHERE a='? -- /* {d ''2001-01-01''} LIKE 7'"),
            "SELECT a FROM t WHERE a=? [? -- /* {d '2001-01-01'} LIKE 7]");
}

TEST(Literals, DigitsOfNamesStay) {
  EXPECT_EQ(Marked(" WHERE a1=b2 AND _3=x"), "SELECT a FROM t WHERE a1=b2 AND _3=x");
}

TEST(Literals, NumbersBeyond32BitsAndFractionsStay) {
  EXPECT_EQ(Marked(" WHERE a=2147483648"), "SELECT a FROM t WHERE a=2147483648");
  EXPECT_EQ(Marked(" WHERE a=1.5"), "SELECT a FROM t WHERE a=1.5");
  EXPECT_EQ(Marked(" WHERE a=.5 AND t.b1=c"), "SELECT a FROM t WHERE a=.5 AND t.b1=c");
}

TEST(Literals, DatesAndTimesBecomeValuesOfTheirType) {
  EXPECT_EQ(Marked(" WHERE a={d '2001-02-28'}"), "SELECT a FROM t WHERE a=? [2001-02-28]");
  EXPECT_EQ(Marked(" WHERE a BETWEEN {ts '2001-02-28 01:02:03'} AND {ts '2001-02-28 23:59:59'}"),
            "SELECT a FROM t WHERE a BETWEEN ? AND ? [2001-02-28 01:02:03] [2001-02-28 23:59:59]");
  EXPECT_EQ(TypeOf("a={d '2001-02-28'}"), SQL_TYPE_DATE);
  EXPECT_EQ(TypeOf("a={ts '2001-02-28 01:02:03'}"), SQL_TYPE_TIMESTAMP);
}

TEST(Literals, DatesThatDoNotExistStay) {
  for (const char* literal :
       {"{d '2001-02-30'}", "{d '0000-00-00'}", "{ts '2001-02-28 25:00:00'}", "{d '2001-02-28 '}",
        "{ts '2001-02-28'}", "{d '200a-02-28'}", "{d '-001-02-28'}"}) {
    const std::string condition = std::string(" WHERE a=") + literal;
    EXPECT_EQ(Marked(condition), "SELECT a FROM t" + condition);
  }
}

TEST(Literals, APatternStaysWhereTheDatabaseLooksForAnIndex) {
  EXPECT_EQ(Marked(" WHERE a LIKE 'M%' AND b='x'"), "SELECT a FROM t WHERE a LIKE 'M%' AND b=? [x]");
  EXPECT_EQ(Marked(" WHERE a like 'M%'"), "SELECT a FROM t WHERE a like 'M%'");
}

TEST(Literals, LongTextsStay) {
  const std::string condition = " WHERE a='" + std::string(1025, 'x') + "'";
  EXPECT_EQ(Marked(condition), "SELECT a FROM t" + condition);
}

TEST(Literals, ConditionsWithMarksQuotedNamesOrCommentsOfTheirOwnAreLeftAlone) {
  for (const char* condition : {" WHERE a=? AND b=5", " WHERE \"a 1\"=5", " WHERE a=5 -- 6",
                                " WHERE a=/*5*/6", " WHERE `a`=5", " WHERE [a]=5", " WHERE a=5 # 6"}) {
    EXPECT_EQ(Marked(condition), std::string("SELECT a FROM t") + condition);
  }
}

TEST(Literals, ATextThatIsNotClosedStays) {
  EXPECT_EQ(Marked(" WHERE a='x"), "SELECT a FROM t WHERE a='x");
  EXPECT_EQ(Marked(" WHERE a='"), "SELECT a FROM t WHERE a='");
  EXPECT_EQ(Marked(" WHERE a={d '2001-02-28'"), "SELECT a FROM t WHERE a={d '2001-02-28'");
  EXPECT_EQ(Marked(" WHERE {fn NOW()}=1"), "SELECT a FROM t WHERE {fn NOW()}=? [1]");
}

}  // namespace
