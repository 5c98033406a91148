// Settings kept in the configuration table.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

#include "frame/KyODBC.h"
#include "tests/support/fixtures.h"

using support::SetText;

namespace {

class Profile : public support::ConnectedTest {
 protected:
  static std::string Read(const char* key, const char* station, const char* default_text) {
    char buffer[200] = {};
    LONG length = -1;
    EXPECT_EQ(DB_GetProfileString(key, station, default_text, buffer, sizeof buffer, &length), 0);
    EXPECT_EQ(static_cast<std::size_t>(length), std::strlen(buffer));
    return buffer;
  }
  static LONG ReadInt(const char* key, LONG default_value) {
    LONG value = -1;
    EXPECT_EQ(DB_GetProfileInt(key, "-", default_value, &value), 0);
    return value;
  }
  int Settings(const std::string& key) { return Raw().Count("TConfig", "tCfgSKey='" + key + "'"); }
  LONG AddStation(const std::string& name) {
    tagTSTATION station{};
    SetText(station.szName, name);
    EXPECT_EQ(DB_AddNewTStat(&station), 0);
    return support::Val(station.lStatID);
  }
};

TEST_F(Profile, AMissingSettingGivesTheDefaultAndItsLength) {
  char buffer[20] = "old";
  LONG length = -1;
  EXPECT_EQ(DB_GetProfileString("Missing", "-", "default", buffer, sizeof buffer, &length), 0);
  EXPECT_STREQ(buffer, "default");
  EXPECT_EQ(length, 7);
}

TEST_F(Profile, TheLengthMayBeLeftOut) {
  char buffer[20] = {};
  EXPECT_EQ(DB_GetProfileString("Missing", "-", "default", buffer, sizeof buffer, nullptr), 0);
  EXPECT_STREQ(buffer, "default");
}

TEST_F(Profile, ANewKeyInsertsARowOfDoctorOneAndTheStation) {
  EXPECT_EQ(DB_WriteProfileString("Color", "-", "blue"), 0);
  EXPECT_EQ(Raw().Count("TConfig",
                        "tCfgSKey='Color' AND tCfgSSet='blue' AND tCfgCulIntDrIDFk=1 AND "
                        "tCfgCulIntStatIDFk=1"),
            1);
  EXPECT_EQ(Read("Color", "-", "none"), "blue");
}

TEST_F(Profile, AnExistingKeyChangesItsValueOnly) {
  ASSERT_EQ(DB_WriteProfileString("Color", "-", "blue"), 0);
  const int key = Raw().Number("SELECT tCfgCulIntCfgIDPk FROM TConfig WHERE tCfgSKey='Color'");
  EXPECT_EQ(DB_WriteProfileString("Color", "-", "red"), 0);
  EXPECT_EQ(Settings("Color"), 1);
  EXPECT_EQ(Raw().Number("SELECT tCfgCulIntCfgIDPk FROM TConfig WHERE tCfgSKey='Color'"), key);
  EXPECT_EQ(Read("Color", "-", "none"), "red");
}

TEST_F(Profile, StationsHaveSettingsOfTheirOwn) {
  const LONG room = AddStation("Room 1");
  ASSERT_EQ(DB_WriteProfileString("Color", "-", "blue"), 0);
  EXPECT_EQ(DB_WriteProfileString("Color", "Room 1", "green"), 0);
  EXPECT_EQ(Raw().Text("SELECT tCfgSSet FROM TConfig WHERE tCfgCulIntStatIDFk=" + std::to_string(room)),
            "green");
  EXPECT_EQ(Read("Color", "-", "none"), "blue");
  EXPECT_EQ(Read("Color", "Room 1", "none"), "green");
}

TEST_F(Profile, TheStationDashIsTheOneWithKeyOneWhateverItIsCalled) {
  Raw().Exec("UPDATE TStation SET tStatSName='renamed' WHERE tStatCulIntStatIDPk=1");
  EXPECT_EQ(DB_WriteProfileString("Color", "-", "blue"), 0);
  EXPECT_EQ(Read("Color", "-", "none"), "blue");
}

TEST_F(Profile, ReadingAtAnUnknownStationGivesTheDefault) {
  EXPECT_EQ(Read("DBVersion", "Nowhere", "default"), "default");
}

TEST_F(Profile, WritingAtAnUnknownStationGivesTheLookupsCodeAndStoresNothing) {
  EXPECT_EQ(DB_WriteProfileString("Color", "Nowhere", "blue"), 64);
  EXPECT_EQ(DB_WriteProfileString("Color", "", "blue"), 1);
  EXPECT_EQ(Settings("Color"), 0);
  EXPECT_EQ(Raw().Count("TStation"), 1);
}

TEST_F(Profile, AStationNameThatTwoStationsHaveGives52) {
  Raw().Exec("INSERT INTO TStation (tStatSName) VALUES ('Twin')");
  Raw().Exec("INSERT INTO TStation (tStatSName) VALUES ('Twin')");
  EXPECT_EQ(DB_WriteProfileString("Color", "Twin", "blue"), 52);
  EXPECT_EQ(Read("Color", "Twin", "default"), "default");
}

TEST_F(Profile, AStationNameIsCutTo16Bytes) {
  AddStation("Sixteen bytes ab");
  EXPECT_EQ(DB_WriteProfileString("Color", "Sixteen bytes abcdef", "blue"), 0);
  EXPECT_EQ(Read("Color", "Sixteen bytes ab", "none"), "blue");
}

TEST_F(Profile, TheEmptyTextDeletesTheSetting) {
  ASSERT_EQ(DB_WriteProfileString("Color", "-", "blue"), 0);
  EXPECT_EQ(DB_WriteProfileString("Color", "-", ""), 0);
  EXPECT_EQ(Settings("Color"), 0);
  EXPECT_EQ(Read("Color", "-", "default"), "default");
}

TEST_F(Profile, DeletingAMissingSettingGives64) { EXPECT_EQ(DB_WriteProfileString("Missing", "-", ""), 64); }

TEST_F(Profile, KeysThatAgreeIn24CharactersAreTheSameSetting) {
  const std::string first = "123456789012345678901234abcdef";
  const std::string second = "123456789012345678901234ghijkl";
  ASSERT_EQ(first.size(), 30u);
  EXPECT_EQ(DB_WriteProfileString(first.c_str(), "-", "one"), 0);
  EXPECT_EQ(Settings(first.substr(0, 24)), 1);
  EXPECT_EQ(DB_WriteProfileString(second.c_str(), "-", "two"), 0);
  EXPECT_EQ(Settings(first.substr(0, 24)), 1);
  EXPECT_EQ(Read(first.c_str(), "-", "none"), "two");
}

TEST_F(Profile, AValueIsCutTo128Bytes) {
  const std::string value(140, 'v');
  EXPECT_EQ(DB_WriteProfileString("Long", "-", value.c_str()), 0);
  EXPECT_EQ(Read("Long", "-", "none"), value.substr(0, 128));
}

TEST_F(Profile, ACutNeverSplitsACharacter) {
  const std::string value = std::string(127, 'v') + "\xC3\xBC";
  EXPECT_EQ(DB_WriteProfileString("Long", "-", value.c_str()), 0);
  EXPECT_EQ(Read("Long", "-", "none"), value.substr(0, 127));
}

TEST_F(Profile, TextsWithQuotesAndWildcardsAreStoredAsTheyAre) {
  const char* const odd = "O'Neil \\ 100% _ \"x\" ; -- M\xC3\xBCller";
  EXPECT_EQ(DB_WriteProfileString("it's", "-", odd), 0);
  EXPECT_EQ(Read("it's", "-", "none"), odd);
}

TEST_F(Profile, ASettingThatExistsTwiceIsNotReadAndNotWritten) {
  for (int i = 0; i < 2; ++i) {
    Raw().Exec(
        "INSERT INTO TConfig (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet) "
        "VALUES (1, 1, 'Twice', 'old')");
  }
  EXPECT_EQ(Read("Twice", "-", "default"), "default");
  EXPECT_EQ(DB_WriteProfileString("Twice", "-", "new"), 52);
  EXPECT_EQ(DB_WriteProfileString("Twice", "-", ""), 52);
  EXPECT_EQ(Raw().Count("TConfig", "tCfgSKey='Twice' AND tCfgSSet='old'"), 2);
}

TEST_F(Profile, ASettingOfAnotherDoctorIsAnother) {
  Raw().Exec(
      "INSERT INTO TConfig (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet) "
      "VALUES (2, 1, 'Color', 'theirs')");
  EXPECT_EQ(Read("Color", "-", "default"), "default");
}

TEST_F(Profile, ANullKeyOrStationReadsTheDefault) {
  EXPECT_EQ(Read(nullptr, "-", "default"), "default");
  EXPECT_EQ(Read("DBVersion", nullptr, "default"), "default");
  EXPECT_EQ(Read("", "-", "default"), "default");
}

TEST_F(Profile, ReadingWithoutDefaultGivesOneAndAnEmptyBuffer) {
  char buffer[4] = "old";
  LONG length = 77;
  EXPECT_EQ(DB_GetProfileString("DBVersion", "-", nullptr, buffer, sizeof buffer, &length), 1);
  EXPECT_STREQ(buffer, "");
  EXPECT_EQ(length, 77);
  EXPECT_EQ(DB_GetProfileString("DBVersion", "-", nullptr, nullptr, 4, &length), 1);
}

TEST_F(Profile, ReadingWithoutABufferGivesOne) {
  EXPECT_EQ(DB_GetProfileString("DBVersion", "-", "default", nullptr, 10, nullptr), 1);
}

TEST_F(Profile, ReadingIntoABufferOfSizeZeroGivesOneAndEmptiesIt) {
  for (const LONG size : {0, -1, std::numeric_limits<LONG>::min()}) {
    char buffer[4] = "old";
    EXPECT_EQ(DB_GetProfileString("DBVersion", "-", "default", buffer, size, nullptr), 1);
    EXPECT_EQ(std::string(buffer, 3), std::string("\0ld", 3));
  }
}

TEST_F(Profile, ABufferOfSizeOneGivesTheEmptyText) {
  char buffer[2] = {'x', 'x'};
  LONG length = -1;
  EXPECT_EQ(DB_GetProfileString("DBVersion", "-", "default", buffer, 1, &length), 0);
  EXPECT_EQ(buffer[0], '\0');
  EXPECT_EQ(buffer[1], 'x');
  EXPECT_EQ(length, 0);
}

TEST_F(Profile, AValueLongerThanTheBufferIsCutAndItsLengthIsThatInTheBuffer) {
  ASSERT_EQ(DB_WriteProfileString("Color", "-", "turquoise"), 0);
  char buffer[6] = {};
  LONG length = -1;
  EXPECT_EQ(DB_GetProfileString("Color", "-", "none", buffer, 5, &length), 0);
  EXPECT_STREQ(buffer, "turq");
  EXPECT_EQ(length, 4);
}

TEST_F(Profile, WritingWithANullArgumentGivesOne) {
  EXPECT_EQ(DB_WriteProfileString(nullptr, "-", "x"), 1);
  EXPECT_EQ(DB_WriteProfileString("Color", nullptr, "x"), 1);
  EXPECT_EQ(DB_WriteProfileString("Color", "-", nullptr), 1);
  EXPECT_EQ(DB_WriteProfileInt(nullptr, "-", 1), 1);
  EXPECT_EQ(DB_WriteProfileInt("Color", nullptr, 1), 1);
  EXPECT_EQ(Settings("Color"), 0);
}

TEST_F(Profile, NumbersAreStoredAsDecimalTexts) {
  EXPECT_EQ(DB_WriteProfileInt("Count", "-", -42), 0);
  EXPECT_EQ(Read("Count", "-", "none"), "-42");
  EXPECT_EQ(ReadInt("Count", 7), -42);
  EXPECT_EQ(DB_WriteProfileInt("Count", "-", 0), 0);
  EXPECT_EQ(Settings("Count"), 1);
  EXPECT_EQ(ReadInt("Count", 7), 0);
}

TEST_F(Profile, TheLargestAndSmallestNumbersComeBack) {
  for (const LONG number : {std::numeric_limits<LONG>::max(), std::numeric_limits<LONG>::min()}) {
    EXPECT_EQ(DB_WriteProfileInt("Count", "-", number), 0);
    EXPECT_EQ(ReadInt("Count", 7), number);
  }
}

TEST_F(Profile, AMissingNumberGivesTheDefault) {
  EXPECT_EQ(ReadInt("Missing", 17), 17);
  EXPECT_EQ(ReadInt("Missing", std::numeric_limits<LONG>::min()), std::numeric_limits<LONG>::min());
}

TEST_F(Profile, LeadingDigitsOfATextAreTheNumber) {
  ASSERT_EQ(DB_WriteProfileString("Count", "-", "12abc"), 0);
  EXPECT_EQ(ReadInt("Count", 7), 12);
  ASSERT_EQ(DB_WriteProfileString("Count", "-", "abc"), 0);
  EXPECT_EQ(ReadInt("Count", 7), 0);
  ASSERT_EQ(DB_WriteProfileString("Count", "-", "+5"), 0);
  EXPECT_EQ(ReadInt("Count", 7), 5);
}

TEST_F(Profile, ANumberBeyond32BitsBecomesTheNearestOne) {
  ASSERT_EQ(DB_WriteProfileString("Count", "-", "99999999999999999999999"), 0);
  EXPECT_EQ(ReadInt("Count", 7), std::numeric_limits<LONG>::max());
  ASSERT_EQ(DB_WriteProfileString("Count", "-", "-3000000000"), 0);
  EXPECT_EQ(ReadInt("Count", 7), std::numeric_limits<LONG>::min());
}

TEST_F(Profile, ReadingANumberWithoutAnOutputGivesOne) {
  EXPECT_EQ(DB_GetProfileInt("Count", "-", 7, nullptr), 1);
}

TEST_F(Profile, ReadingFromAMissingTableGivesTheDefault) {
  TakeAway("TConfig");
  EXPECT_EQ(Read("DBVersion", "-", "default"), "default");
  EXPECT_EQ(ReadInt("Count", 7), 7);
}

TEST_F(Profile, WritingToAMissingTableGivesTheRowOperationsCode) {
  TakeAway("TConfig");
  EXPECT_EQ(DB_WriteProfileString("Color", "-", "blue"), 3);
  EXPECT_EQ(DB_WriteProfileString("Color", "-", ""), 3);
}

TEST_F(Profile, WritingToATableThatRefusesGivesTheRowOperationsCode) {
  ASSERT_EQ(DB_WriteProfileString("Color", "-", "blue"), 0);
  MakeReadOnly("TConfig");
  EXPECT_EQ(DB_WriteProfileString("Color", "-", "red"), 6);
  EXPECT_EQ(DB_WriteProfileString("New", "-", "red"), 6);
  EXPECT_EQ(DB_WriteProfileString("Color", "-", ""), 8);
  EXPECT_EQ(Read("Color", "-", "none"), "blue");
}

TEST_F(Profile, SettingsDoNotTouchTheBrowseSets) {
  ASSERT_EQ(DB_OpenTCfg(), 0);
  ASSERT_EQ(DB_OpenTStat(), 0);
  ASSERT_EQ(DB_MoveToTCfgByPos(2), 2);
  ASSERT_EQ(DB_WriteProfileString("Color", "-", "blue"), 0);
  EXPECT_EQ(Read("Color", "-", "none"), "blue");
  EXPECT_EQ(DB_GetTCfgIndexPos(), 2);
  EXPECT_EQ(DB_GetTStatIndexPos(), 1);
}

class ProfileWithoutConnection : public support::PracticeTest {};

TEST_F(ProfileWithoutConnection, ReadingGives3AndTheDefault) {
  char buffer[5] = {};
  LONG length = -1;
  EXPECT_EQ(DB_GetProfileString("Color", "-", "default", buffer, sizeof buffer, &length), 3);
  EXPECT_STREQ(buffer, "defa");
  EXPECT_EQ(length, 4);
  LONG value = -1;
  EXPECT_EQ(DB_GetProfileInt("Count", "-", 17, &value), 3);
  EXPECT_EQ(value, 17);
}

TEST_F(ProfileWithoutConnection, MissingArgumentsStillGiveOne) {
  char buffer[4] = "old";
  EXPECT_EQ(DB_GetProfileString("Color", "-", nullptr, buffer, sizeof buffer, nullptr), 1);
  EXPECT_EQ(DB_GetProfileString("Color", "-", "default", nullptr, 4, nullptr), 1);
  EXPECT_EQ(DB_GetProfileString("Color", "-", "default", buffer, 0, nullptr), 1);
  EXPECT_EQ(DB_GetProfileInt("Count", "-", 1, nullptr), 1);
  EXPECT_EQ(DB_WriteProfileString("Color", "-", nullptr), 1);
}

}  // namespace
