// Which rows are read when one is visited: jumps read one, walks read pages that grow.
#include "platform/read_ahead.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr SQLLEN kRows = 10000;

// A set of rows that is visited; a page that is asked for is read at once.
class Reader {
 public:
  // What is read for the visit: "first+rows", or "at hand".
  std::string Visit(SQLLEN row) {
    const ReadAhead::Range range = m_ahead.Visit(row, kRows, m_now);
    if (range.rows > 1) {
      m_ahead.BeginPage();
      m_ahead.HavePage(range, m_now);
    }
    if (range.rows != 1) m_ahead.Give(row);
    if (range.rows == 0) return "at hand";
    return std::to_string(range.first) + "+" + std::to_string(range.rows);
  }
  // Visits the rows between, both included.
  void Walk(SQLLEN from, SQLLEN to) {
    for (SQLLEN row = from; row != to; row += from < to ? 1 : -1) Visit(row);
    Visit(to);
  }
  void Wait(std::chrono::milliseconds time) { m_now.time += time; }
  void Change() { ++m_now.changes; }
  ReadAhead& Ahead() { return m_ahead; }

 private:
  ReadAhead m_ahead;
  ReadAhead::Moment m_now;
};

TEST(ReadAhead, TheFirstVisitAndJumpsReadTheRowAlone) {
  Reader reader;
  EXPECT_EQ(reader.Visit(1), "1+1");
  EXPECT_EQ(reader.Visit(500), "500+1");
  EXPECT_EQ(reader.Visit(kRows), "10000+1");
  EXPECT_EQ(reader.Ahead().Visited(), kRows);
}

TEST(ReadAhead, AStepBehindAJumpReadsAPageAndTheNextOnesNothing) {
  Reader reader;
  reader.Visit(100);
  EXPECT_EQ(reader.Visit(101), "101+64");
  EXPECT_EQ(reader.Visit(102), "at hand");
  EXPECT_EQ(reader.Visit(103), "at hand");
}

TEST(ReadAhead, PagesDoubleUpTo1024RowsTheFartherAWalkGoes) {
  Reader reader;
  reader.Walk(1, 65);
  EXPECT_EQ(reader.Visit(66), "66+128");
  reader.Walk(67, 193);
  EXPECT_EQ(reader.Visit(194), "194+256");
  reader.Walk(195, 449);
  EXPECT_EQ(reader.Visit(450), "450+512");
  reader.Walk(451, 961);
  EXPECT_EQ(reader.Visit(962), "962+1024");
  reader.Walk(963, 1985);
  EXPECT_EQ(reader.Visit(1986), "1986+1024");
}

TEST(ReadAhead, APageEndsWithTheRows) {
  Reader reader;
  reader.Visit(kRows - 10);
  EXPECT_EQ(reader.Visit(kRows - 9), "9991+10");
}

TEST(ReadAhead, AWalkBackReadsThePageBeforeTheRow) {
  Reader reader;
  reader.Visit(100);
  EXPECT_EQ(reader.Visit(99), "36+64");
  EXPECT_EQ(reader.Visit(98), "at hand");
}

TEST(ReadAhead, APageBackwardsBeginsWithTheFirstRowAtTheEarliest) {
  Reader reader;
  reader.Visit(5);
  EXPECT_EQ(reader.Visit(4), "1+4");
  EXPECT_EQ(reader.Visit(3), "at hand");
}

TEST(ReadAhead, ATurnReadsTheRowAlone) {
  Reader reader;
  reader.Walk(1, 10);
  EXPECT_EQ(reader.Visit(9), "9+1");
}

TEST(ReadAhead, AJumpBehindAWalkReadsAPageAsAWindowThatScrollsDoes) {
  Reader reader;
  reader.Walk(1, 10);
  EXPECT_EQ(reader.Visit(5000), "5000+64");
  EXPECT_EQ(reader.Visit(5001), "at hand");
  reader.Visit(7000);
  EXPECT_EQ(reader.Visit(100), "100+1");
}

TEST(ReadAhead, ARowReadAheadIsHandedOutOnce) {
  Reader reader;
  reader.Walk(1, 10);
  EXPECT_EQ(reader.Visit(9), "9+1");
  EXPECT_EQ(reader.Visit(8), "1+8");
}

TEST(ReadAhead, APageIsOutOfDateAfterAQuarterOfASecond) {
  Reader reader;
  reader.Walk(1, 2);
  reader.Wait(std::chrono::milliseconds(249));
  EXPECT_EQ(reader.Visit(3), "at hand");
  reader.Wait(std::chrono::milliseconds(1));
  EXPECT_EQ(reader.Visit(4), "4+2");
}

TEST(ReadAhead, ACallerWhoIsSlowGetsPagesOfWhatHeUses) {
  Reader reader;
  reader.Walk(1, 962);
  reader.Walk(963, 1061);
  reader.Wait(std::chrono::milliseconds(250));
  EXPECT_EQ(reader.Visit(1062), "1062+100");
  reader.Walk(1063, 1161);
  EXPECT_EQ(reader.Visit(1162), "1162+200");
}

TEST(ReadAhead, ACallerWhoChangesSomethingAtEachRowGetsHardlyMoreThanEachRow) {
  Reader reader;
  reader.Walk(1, 962);
  SQLLEN read = 0;
  for (SQLLEN row = 963; row < 1963; ++row) {
    reader.Change();
    const std::string range = reader.Visit(row);
    ASSERT_NE(range, "at hand");
    read += std::stoi(range.substr(range.find('+') + 1));
  }
  EXPECT_LE(read, 1500);
}

TEST(ReadAhead, OneChangeShortensPagesForFewRowsOnly) {
  Reader reader;
  reader.Walk(1, 962);
  reader.Change();
  EXPECT_EQ(reader.Visit(963), "963+1");
  EXPECT_EQ(reader.Visit(964), "964+2");
  reader.Visit(965);
  EXPECT_EQ(reader.Visit(966), "966+4");
}

TEST(ReadAhead, APageIsOutOfDateAfterAChange) {
  Reader reader;
  reader.Walk(1, 2);
  reader.Change();
  EXPECT_EQ(reader.Visit(3), "3+1");
}

TEST(ReadAhead, AfterForgettingNothingWasVisited) {
  Reader reader;
  reader.Walk(1, 10);
  reader.Ahead().Forget();
  EXPECT_EQ(reader.Ahead().Visited(), 0);
  EXPECT_EQ(reader.Visit(11), "11+1");
}

}  // namespace
