// The texts that packed filters become, to the blank.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "recset/pat_rec.h"
#include "recset/stat_rec.h"
#include "tests/db/any_field_set.h"
#include "tests/support/records.h"

namespace {

using support::Ts;

class Filter : public testing::Test {
 protected:
  WORD Set(LONG fields, LONG operators, void* value1 = nullptr, void* value2 = nullptr,
           void* value3 = nullptr, void* value4 = nullptr) {
    return m_set.SetFilter(fields, operators, value1, value2, value3, value4);
  }
  std::string Now() const { return Text(m_set.m_strFilter); }

  AnyFieldSet m_set;
  LONG m_twelve = 12;
  char m_text[16] = "M%";
  TIMESTAMP_STRUCT m_from = Ts(1950, 1, 1, 7, 8, 9);
  TIMESTAMP_STRUCT m_to = Ts(1959, 12, 31, 23, 59, 58);
};

TEST_F(Filter, OneTextClauseOfThePatients) {
  CPatRec patients(nullptr, nullptr);
  EXPECT_EQ(patients.SetFilter(17, 16, m_text, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(Text(patients.m_strFilter), " (( tPatSName LIKE 'M%')) ");
}

TEST_F(Filter, TwoTextClausesOfThePatients) {
  CPatRec patients(nullptr, nullptr);
  char first[] = "A%";
  char second[] = "B%";
  EXPECT_EQ(patients.SetFilter(17 + 22 * 256, 16 + 16 * 256, first, second, nullptr, nullptr), 0);
  EXPECT_EQ(Text(patients.m_strFilter), " (( tPatSName LIKE 'A%' ) AND ( tPatSFirstname LIKE 'B%')) ");
}

TEST_F(Filter, AnIntegerClauseOfThePatients) {
  CPatRec patients(nullptr, nullptr);
  EXPECT_EQ(patients.SetFilter(3, 0, &m_twelve, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(Text(patients.m_strFilter), " (( tPatCulIntDrIDFk = 12)) ");
}

TEST_F(Filter, ADateRangeOfThePatients) {
  CPatRec patients(nullptr, nullptr);
  EXPECT_EQ(patients.SetFilter(33, 17, &m_from, &m_to, nullptr, nullptr), 0);
  EXPECT_EQ(Text(patients.m_strFilter), " (( tPatDBirthday BETWEEN {d '1950-01-01'} AND {d '1959-12-31'})) ");
}

TEST_F(Filter, AColumnWithoutALeadingBlankFollowsTheParenthesesDirectly) {
  CStatRec stations(nullptr, nullptr);
  EXPECT_EQ(stations.SetFilter(17, 0, m_text, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(Text(stations.m_strFilter), " ((tStatSName = 'M%')) ");
}

TEST_F(Filter, EveryOperatorCodeHasItsTextAndAllOthersMeanEqual) {
  for (LONG code = 0; code < 128; ++code) {
    std::string expected = "=";
    if (code == 2) expected = ">=";
    if (code == 3) expected = ">";
    if (code == 4) expected = "<=";
    if (code == 5) expected = "<";
    if (code == 7) expected = "<>";
    if (code == 16) expected = "LIKE";
    if (code == 17) continue;
    ASSERT_EQ(Set(1, code, &m_twelve), 0);
    EXPECT_EQ(Now(), " (( c1 " + expected + " 12)) ") << code;
    ASSERT_EQ(Set(1, code | 0x80, &m_twelve), 0);
    EXPECT_EQ(Now(), " (( c1 " + expected + " 12)) ") << "bit 7 of an operator means nothing: " << code;
  }
}

bool InAny(LONG id, std::initializer_list<std::pair<LONG, LONG>> ranges) {
  for (const auto& [first, last] : ranges) {
    if (id >= first && id <= last) return true;
  }
  return false;
}

TEST_F(Filter, TheRangeOfAnIdDecidesTheTypeOfItsValue) {
  for (LONG id = 1; id < 128; ++id) {
    m_set.m_strFilter = "before";
    const std::string start = " (( c" + std::to_string(id) + " = ";
    if (InAny(id, {
                      {1, 11}
    })) {
      EXPECT_EQ(Set(id, 0, &m_twelve), 0);
      EXPECT_EQ(Now(), start + "12)) ");
    } else if (InAny(id, {
                             {17, 20},
                             {22, 26},
                             {42, 43},
                             {49, 53},
                             {58, 59}
    })) {
      EXPECT_EQ(Set(id, 0, m_text), 0);
      EXPECT_EQ(Now(), start + "'M%')) ");
    } else if (InAny(id, {
                             {33, 34}
    })) {
      EXPECT_EQ(Set(id, 0, &m_from), 0);
      EXPECT_EQ(Now(), start + "{d '1950-01-01'})) ");
    } else if (InAny(id, {
                             {35, 36}
    })) {
      EXPECT_EQ(Set(id, 0, &m_from), 0);
      EXPECT_EQ(Now(), start + "{ts '1950-01-01 07:08:09'})) ");
    } else {
      EXPECT_EQ(Set(id, 0, &m_from), 1) << id;
      EXPECT_EQ(Now(), "before") << id;
    }
  }
}

TEST_F(Filter, IntegersAreReadAsFourSignedBytesWhereverTheyLie) {
  unsigned char bytes[9] = {};
  std::memset(bytes, 0x55, sizeof bytes);
  const LONG lowest = -2147483647 - 1;
  std::memcpy(bytes + 1, &lowest, sizeof lowest);
  EXPECT_EQ(Set(5, 5, bytes + 1), 0);
  EXPECT_EQ(Now(), " (( c5 < -2147483648)) ");
}

TEST_F(Filter, ThreeClausesAreJoinedFromLeftToRight) {
  char second[] = "x";
  EXPECT_EQ(Set(1 | (17 << 8) | ((33 | 0x80) << 16), 2 | (7 << 8) | (4 << 16), &m_twelve, second, &m_to), 0);
  EXPECT_EQ(Now(), " (( c1 >= 12 ) AND ( c17 <> 'x' ) OR ( c33 <= {d '1959-12-31'})) ");
}

TEST_F(Filter, FourClausesAreTaken) {
  const LONG fields = static_cast<LONG>(0x81u | (2u << 8) | (3u << 16) | (0x84u << 24));
  EXPECT_EQ(Set(fields, 0, &m_twelve, &m_twelve, &m_twelve, &m_twelve), 0);
  EXPECT_EQ(Now(), " (( c1 = 12 ) AND ( c2 = 12 ) AND ( c3 = 12 ) OR ( c4 = 12)) ")
      << "the join of the first clause means nothing";
}

TEST_F(Filter, TheListEndsWithTheFirstFieldZero) {
  EXPECT_EQ(Set(1 | (0x80 << 8) | (2 << 16), 0, &m_twelve, nullptr, nullptr), 0);
  EXPECT_EQ(Now(), " (( c1 = 12)) ");
}

TEST_F(Filter, NoFieldAtAllGivesEmptyParentheses) {
  EXPECT_EQ(Set(0, 0), 0);
  EXPECT_EQ(Now(), " (()) ");
}

TEST_F(Filter, ATimestampRange) {
  EXPECT_EQ(Set(36, 17, &m_from, &m_to), 0);
  EXPECT_EQ(Now(), " (( c36 BETWEEN {ts '1950-01-01 07:08:09'} AND {ts '1959-12-31 23:59:58'})) ");
}

TEST_F(Filter, ARangeUsesUpTheSlotOfItsSecondValue) {
  const LONG fields = 33 | (127 << 8) | ((17 | 0x80) << 16) | (1 << 24);
  m_set.m_unknown = 127;
  EXPECT_EQ(Set(fields, 17 | (2 << 8) | (16 << 16), &m_from, &m_to, m_text, &m_twelve), 0);
  EXPECT_EQ(Now(),
            " (( c33 BETWEEN {d '1950-01-01'} AND {d '1959-12-31'} ) OR ( c17 LIKE 'M%' ) AND ( c1 = 12)) ");
}

TEST_F(Filter, ARangeInTheThirdSlotTakesTheFourthValue) {
  EXPECT_EQ(Set(1 | (1 << 8) | (33 << 16), 17 << 16, &m_twelve, &m_twelve, &m_from, &m_to), 0);
  EXPECT_EQ(Now(),
            " (( c1 = 12 ) AND ( c1 = 12 ) AND ( c33 BETWEEN {d '1950-01-01'} AND {d '1959-12-31'})) ");
}

TEST_F(Filter, ARangeInTheFourthSlotHasNoSecondValueAndIsRefused) {
  m_set.m_strFilter = "before";
  EXPECT_EQ(Set(1 | (1 << 8) | (1 << 16) | (33 << 24), 17 << 24, &m_twelve, &m_twelve, &m_twelve, &m_from),
            1);
  EXPECT_EQ(Now(), "before");
}

TEST_F(Filter, IntegersAndTextsHaveNoRange) {
  m_set.m_strFilter = "before";
  EXPECT_EQ(Set(1, 17, &m_twelve, &m_twelve), 1);
  EXPECT_EQ(Set(17, 17, m_text, m_text), 1);
  EXPECT_EQ(Set(17 | (1 << 8), 17, m_text, &m_twelve), 1) << "what follows does not heal it";
  EXPECT_EQ(Now(), "before");
}

TEST_F(Filter, AnUnknownFieldIsRefused) {
  m_set.m_strFilter = "before";
  m_set.m_unknown = 2;
  EXPECT_EQ(Set(2, 0, &m_twelve), 1);
  EXPECT_EQ(Set(1 | (2 << 8), 0, &m_twelve, &m_twelve), 1);
  EXPECT_EQ(Now(), "before");
}

TEST_F(Filter, TheErrorOfAnUnknownFieldIsTheResultEvenBehindARefusedClause) {
  m_set.m_unknown = 2;
  m_set.m_error = 99;
  EXPECT_EQ(Set(2, 0, &m_twelve), 99);
  EXPECT_EQ(Set(1 | (2 << 8), 17, &m_twelve, &m_twelve), 99);
}

TEST_F(Filter, ANullValueOfAUsedClauseIsRefused) {
  m_set.m_strFilter = "before";
  for (const LONG field : {1, 17, 33, 36}) EXPECT_EQ(Set(field, 0), 1) << field;
  EXPECT_EQ(Set(33, 17, &m_from, nullptr), 1);
  EXPECT_EQ(Set(33, 17, nullptr, &m_to), 1);
  EXPECT_EQ(Set(1 | (1 << 8), 0, &m_twelve, nullptr), 1);
  EXPECT_EQ(Now(), "before");
}

TEST_F(Filter, ABaseFilterTakesTheClausesIn) {
  m_set.m_strBaseFilter = "(a=b%s%s)";
  EXPECT_EQ(Set(1, 0, &m_twelve), 0);
  EXPECT_EQ(Now(), "(a=b AND (( c1 = 12)) )");
}

TEST_F(Filter, ARefusedFilterFallsBackOnTheBaseFilter) {
  m_set.m_strBaseFilter = "(a=b%s%s)";
  m_set.m_strFilter = "before";
  EXPECT_EQ(Set(1, 17, &m_twelve), 1);
  EXPECT_EQ(Now(), "(a=b)");
}

TEST_F(Filter, OfABaseFilterOnlyTwoPlacesAreFilledAndDoubledPercentSignsBecomeOne) {
  m_set.m_strBaseFilter = "(a LIKE 'x%%'%s%s)%s 5% %d";
  EXPECT_EQ(Set(1, 0, &m_twelve), 0);
  EXPECT_EQ(Now(), "(a LIKE 'x%' AND (( c1 = 12)) ) 5% %d");
}

TEST_F(Filter, APercentSignInAValueIsNoFormat) {
  m_set.m_strBaseFilter = "(a=b%s%s)";
  char wild[] = "%s%n%d";
  EXPECT_EQ(Set(17, 16, wild), 0);
  EXPECT_EQ(Now(), "(a=b AND (( c17 LIKE '%s%n%d')) )");
}

TEST(Literals, QuotesAreDoubledAndNothingElseIsTouched) {
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLString("O'Brien")), "'O''Brien'");
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLString("''")), "''''''");
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLString("")), "''");
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLString("a\\b%_?{d")), "'a\\b%_?{d'");
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLString("M\xC3\xBCller \xBB \xC3")), "'M\xC3\xBCller \xBB \xC3'");
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLString(nullptr)), "''");
}

TEST(Literals, DatesHaveFourTwoAndTwoDigits) {
  const TIMESTAMP_STRUCT date = Ts(2001, 5, 6, 7, 8, 9);
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLDate(&date)), "{d '2001-05-06'}");
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLTimeStamp(&date)), "{ts '2001-05-06 07:08:09'}");
}

TEST(Literals, AYearOfOneDigitIsPaddedWithBlanks) {
  const TIMESTAMP_STRUCT date = Ts(5, 1, 1);
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLDate(&date)), "{d '   5-01-01'}");
  const TIMESTAMP_STRUCT before = Ts(-5, 1, 1);
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLDate(&before)), "{d '  -5-01-01'}");
}

TEST(Literals, FractionsAreDroppedAndWildFieldsFormatted) {
  TIMESTAMP_STRUCT time = Ts(2001, 5, 6, 10, 0, 0);
  time.fraction = 999999999;
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLTimeStamp(&time)), "{ts '2001-05-06 10:00:00'}");
  time = Ts(32767, 65535, 65535, 65535, 65535, 65535);
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLTimeStamp(&time)), "{ts '32767-65535-65535 65535:65535:65535'}");
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLDate(nullptr)), "{d '   0-00-00'}");
  EXPECT_EQ(Text(AnyFieldSet::MakeSQLTimeStamp(nullptr)), "{ts '   0-00-00 00:00:00'}");
}

}  // namespace
