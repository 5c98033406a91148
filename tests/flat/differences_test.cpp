// Where databases differ, each does exactly what docs/databases.md says of it.
#include <gtest/gtest.h>

#include <string>

#include "frame/KyODBC.h"
#include "tests/support/documented.h"
#include "tests/support/fixtures.h"

using support::Documented;
using support::SetText;
using support::Val;

namespace {

class Differences : public support::ConnectedTest {
 protected:
  static WORD AddStation(const std::string& name) {
    tagTSTATION station{};
    SetText(station.szName, name);
    return DB_AddNewTStat(&station);
  }
  // How many stations a filter on their names leaves.
  static LONG StationsLike(const char* pattern) {
    EXPECT_EQ(DB_OpenTStat(), 0);
    EXPECT_EQ(DB_SetTStatFilter(KYODBC_FIELD_NAME, KYODBC_LIKE, pattern, nullptr, nullptr, nullptr), 0);
    LONG rows = -1;
    EXPECT_EQ(DB_GetTStatMaxPos(&rows), 0);
    EXPECT_EQ(DB_CloseTStat(), 0);
    return rows;
  }
  static tagTPATIENT AddPatient(const std::string& name, TIMESTAMP_STRUCT birthday = {}) {
    tagTPATIENT patient{};
    patient.lDrID = 1;
    SetText(patient.szSlidaID, name);
    SetText(patient.szName, name);
    patient.dBirthday = birthday;
    EXPECT_EQ(DB_AddNewTPat(&patient), 0);
    return patient;
  }
  // The surname of the patient at a position under a sort word.
  static std::string PatientAt(LONG position, LONG sort) {
    EXPECT_EQ(DB_SetTPatSortIndex(sort), 0);
    EXPECT_EQ(DB_OpenTPat(), 0);
    tagTPATIENT patient{};
    EXPECT_EQ(DB_GetTPatByPos(position, &patient), 0);
    EXPECT_EQ(DB_CloseTPat(), 0);
    return support::Text(patient.szName);
  }
};

TEST_F(Differences, BytesThatAreNoUtf8AreStoredOrRefused) {
  const bool stored = Documented("bytes that are no UTF-8") == "stored";
  EXPECT_EQ(AddStation("\xFF\xFE"), stored ? 0 : 6);
  EXPECT_EQ(Raw().Count("TStation"), stored ? 2 : 1);
}

// Nothing that a caller can store is taken for a field that he left out.
TEST_F(Differences, EverySingleByteThatIsNoUtf8IsStoredOrRefused) {
  const bool stored = Documented("bytes that are no UTF-8") == "stored";
  for (int byte = 0x80; byte <= 0xFF; ++byte) {
    const std::string name(1, static_cast<char>(byte));
    EXPECT_EQ(AddStation(name), stored ? 0 : 6) << byte;
  }
  EXPECT_EQ(Raw().Count("TStation", "tStatSName IS NULL"), 0);
  EXPECT_EQ(Raw().Count("TStation"), stored ? 129 : 1);
}

TEST_F(Differences, LikeTellsSmallFromCapitalLettersOrNot) {
  ASSERT_EQ(AddStation("Meyer"), 0);
  EXPECT_EQ(StationsLike("MEY%"), Documented("LIKE and letter case") == "ignored" ? 1 : 0);
  EXPECT_EQ(StationsLike("Mey%"), 1);
}

TEST_F(Differences, ABackslashInAPatternIsACharacterOrTakesTheNextLiterally) {
  ASSERT_EQ(AddStation("50%"), 0);
  ASSERT_EQ(AddStation("50\\x"), 0);
  const bool ordinary = Documented("LIKE and backslash") == "a character";
  EXPECT_EQ(StationsLike("50\\%"), 1);  // either the station with the backslash, or the one with the percent
  EXPECT_EQ(StationsLike("50\\x"), ordinary ? 1 : 0);
}

TEST_F(Differences, MissingDatesSortFirstOrLast) {
  AddPatient("dated", support::Ts(2001, 5, 6));
  AddPatient("undated");
  const bool first = Documented("missing values in ascending order") == "first";
  EXPECT_EQ(PatientAt(1, KYODBC_FIELD_DATE), first ? "undated" : "dated");
  EXPECT_EQ(PatientAt(2, KYODBC_FIELD_DATE), first ? "dated" : "undated");
}

TEST_F(Differences, MidnightIsTheDateOfItsDayOrLater) {
  tagTGROUP group{};
  group.lPatID = 7;
  group.ts = support::Ts(2001, 5, 6);
  ASSERT_EQ(DB_AddNewTGrp(&group), 0);
  ASSERT_EQ(DB_OpenTGrp(), 0);
  const bool equal = Documented("midnight against the date of its day") == "equal";
  const TIMESTAMP_STRUCT day = support::Ts(2001, 5, 6);
  LONG rows = -1;
  EXPECT_EQ(DB_SetTGrpFilter(KYODBC_FIELD_DATE, KYODBC_EQUAL, &day, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(DB_GetTGrpMaxPos(&rows), 0);
  EXPECT_EQ(rows, equal ? 1 : 0);
  EXPECT_EQ(DB_SetTGrpFilter(KYODBC_FIELD_DATE, KYODBC_GREATER, &day, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(DB_GetTGrpMaxPos(&rows), 0);
  EXPECT_EQ(rows, equal ? 0 : 1);
  EXPECT_EQ(DB_SetTGrpFilter(KYODBC_FIELD_DATE, KYODBC_GREATER_EQUAL, &day, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(DB_GetTGrpMaxPos(&rows), 0);
  EXPECT_EQ(rows, 1);
}

TEST_F(Differences, AKeyTakenBackWithItsTransactionIsGivenAgainOrNot) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  const LONG lost = Val(AddPatient("lost").lPatID);
  ASSERT_EQ(DB_RollbackTransaction(), 0);
  const LONG kept = Val(AddPatient("kept").lPatID);
  EXPECT_EQ(kept == lost, Documented("key of an add rolled back") == "given again");
  EXPECT_GE(kept, lost);
}

TEST_F(Differences, FractionsOfASecondKeepTheirDigits) {
  tagTTEST test{};
  test.lUnitID = 1;
  test.ts = support::Ts(2001, 5, 6, 10, 11, 12);
  test.ts.fraction = 123456789;
  EXPECT_EQ(DB_AddNewTTest(&test), 64);  // its own literal has no fraction
  ASSERT_EQ(DB_OpenTTest(), 0);
  tagTTEST read{};
  ASSERT_EQ(DB_GetTTestByPos(1, &read), 0);
  const SQLUINTEGER digits = std::stoul(Documented("digits of a fraction of a second"));
  EXPECT_EQ(Val(read.ts.fraction), digits == 9 ? 123456789u : digits == 6 ? 123456000u : 123000000u);
}

TEST_F(Differences, TheDatabaseIsNamedByItsFileOrByItsName) {
  tagDBINFO info{};
  ASSERT_EQ(DB_GetInfo(&info), 0);
  const std::string database = m_practice.Database();
  EXPECT_EQ(std::filesystem::path(database).is_absolute(), Documented("name of the database") == "its file");
  EXPECT_EQ(support::Text(info.szDatabase), database.substr(0, 32));
}

}  // namespace
