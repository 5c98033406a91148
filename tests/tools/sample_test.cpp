// The made-up practice: repeatable, fit for the library's adds, and odd enough to be a test of its own.
#include "tools/sample/practice.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "tests/support/records.h"
#include "tools/record_text.h"

namespace {

using sample::Practice;
using support::Text;
using support::TimeText;
using support::Val;

constexpr int kPatients = 400;

template <class Record>
std::string BytesOf(const Record& record) {
  std::string bytes(sizeof record, '\0');
  std::memcpy(bytes.data(), &record, sizeof record);
  return bytes;
}

// All rows of all tables, byte by byte.
std::string AllBytes(const Practice& practice) {
  std::string bytes;
  for (int i = 0; i < practice.Doctors(); ++i) bytes += BytesOf(practice.Doctor(i));
  for (int i = 0; i < practice.Stations(); ++i) bytes += BytesOf(practice.Station(i));
  for (int i = 0; i < practice.Units(); ++i) bytes += BytesOf(practice.Unit(i));
  for (int i = 0; i < practice.Patients(); ++i) bytes += BytesOf(practice.Patient(i));
  for (int i = 0; i < practice.Images(); ++i) bytes += BytesOf(practice.Image(i));
  for (int i = 0; i < practice.Makros(); ++i) bytes += BytesOf(practice.Makro(i));
  for (int i = 0; i < practice.Groups(); ++i) bytes += BytesOf(practice.Group(i));
  for (int i = 0; i < practice.Diagnoses(); ++i) bytes += BytesOf(practice.Diagnosis(i));
  for (int i = 0; i < practice.Tests(); ++i) bytes += BytesOf(practice.Test(i));
  for (int i = 0; i < practice.Settings(); ++i) bytes += BytesOf(practice.Setting(i));
  return bytes;
}

// The FNV-1a hash: another one means other samples than before, here or on another machine.
std::uint64_t HashOf(const std::string& bytes) {
  std::uint64_t hash = 0xCBF29CE484222325u;
  for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
  return hash;
}

std::string KeyOfPatient(const tagTPATIENT& patient) {
  if (!Text(patient.szSlidaID).empty()) return "slida " + Text(patient.szSlidaID);
  if (!Text(patient.szSrvID).empty()) return "server " + Text(patient.szSrvID);
  return "name " + Text(patient.szName) + "/" + Text(patient.szFirstname) + "/" +
         TimeText(Val(patient.dBirthday));
}

TEST(SamplePractice, TheSameSeedGivesTheSameBytes) {
  EXPECT_EQ(AllBytes(Practice(7, kPatients)), AllBytes(Practice(7, kPatients)));
}

TEST(SamplePractice, AnotherSeedGivesAnotherPractice) {
  EXPECT_NE(AllBytes(Practice(7, kPatients)), AllBytes(Practice(8, kPatients)));
}

TEST(SamplePractice, TheBytesAreTheSameOnEveryMachine) {
  EXPECT_EQ(HashOf(AllBytes(Practice(1, 50))), 9094793570831308354u);
}

TEST(SamplePractice, AnyRowCanBeMadeAlone) {
  const Practice practice(3, sample::kMostPatients);
  EXPECT_EQ(BytesOf(practice.Patient(999'999)), BytesOf(practice.Patient(999'999)));
  EXPECT_EQ(Val(practice.Image(2'999'999).ts.year), 2024);
  EXPECT_GE(Val(practice.Image(2'999'999).lPatID), 1);
}

TEST(SamplePractice, ANumberOfPatientsOutsideItsRangeIsRefused) {
  EXPECT_THROW(Practice(1, -1), std::out_of_range);
  EXPECT_THROW(Practice(1, sample::kMostPatients + 1), std::out_of_range);
}

TEST(SamplePractice, WithoutPatientsThereAreNoImagesButRooms) {
  const Practice practice(1, 0);
  EXPECT_EQ(practice.Patients(), 0);
  EXPECT_EQ(practice.Images(), 0);
  EXPECT_EQ(practice.Makros(), 0);
  EXPECT_EQ(practice.Groups(), 0);
  EXPECT_EQ(practice.Diagnoses(), 0);
  EXPECT_GT(practice.Units(), 0);
  EXPECT_GT(practice.Stations(), 0);
}

TEST(SamplePractice, PatientsCanBeFoundAgainByTheirNaturalKeys) {
  const Practice practice(5, 40'000);
  std::set<std::string> keys;
  for (int i = 0; i < practice.Patients(); ++i) keys.insert(KeyOfPatient(practice.Patient(i)));
  EXPECT_EQ(keys.size(), 40'000u);
}

TEST(SamplePractice, NoTwoPatientsShareNameAndBirthday) {
  const Practice practice(5, 80'000);
  std::set<std::string> people;
  for (int i = 0; i < practice.Patients(); ++i) {
    const tagTPATIENT patient = practice.Patient(i);
    people.insert(Text(patient.szName) + TimeText(Val(patient.dBirthday)));
  }
  EXPECT_EQ(people.size(), 80'000u);
}

TEST(SamplePractice, SomePatientsHaveAnExternalIdentifierAlone) {
  const Practice practice(1, kPatients);
  int external = 0;
  for (int i = 0; i < kPatients; ++i) {
    const tagTPATIENT patient = practice.Patient(i);
    const bool others = !Text(patient.szSlidaID).empty() || !Text(patient.szSrvID).empty();
    EXPECT_TRUE(others || !Text(patient.szExtPatID).empty());
    if (!others) ++external;
  }
  EXPECT_GT(external, kPatients / 20);
}

TEST(SamplePractice, NamesOfDoctorsStationsAndUnitsAreDistinct) {
  const Practice practice(9, 500'000);
  std::set<std::string> doctors;
  std::set<std::string> stations;
  std::set<std::string> units;
  for (int i = 0; i < practice.Doctors(); ++i) doctors.insert(Text(practice.Doctor(i).szName));
  for (int i = 0; i < practice.Stations(); ++i) stations.insert(Text(practice.Station(i).szName));
  for (int i = 0; i < practice.Units(); ++i) units.insert(Text(practice.Unit(i).szName));
  EXPECT_EQ(static_cast<int>(doctors.size()), practice.Doctors());
  EXPECT_EQ(static_cast<int>(stations.size()), practice.Stations());
  EXPECT_EQ(static_cast<int>(units.size()), practice.Units());
}

TEST(SamplePractice, NoTwoImagesAreTakenInTheSameSecond) {
  const Practice practice(2, 5'000);
  std::set<std::string> times;
  for (int i = 0; i < practice.Images(); ++i) times.insert(TimeText(Val(practice.Image(i).ts)));
  EXPECT_EQ(static_cast<int>(times.size()), practice.Images());
}

TEST(SamplePractice, ImagesAreTakenInOrderWhileThePracticeIsOpen) {
  const Practice practice(2, kPatients);
  std::string last;
  for (int i = 0; i < practice.Images(); ++i) {
    const TIMESTAMP_STRUCT time = practice.Image(i).ts;
    EXPECT_GE(time.hour, 8);
    EXPECT_LT(time.hour, 18);
    EXPECT_LT(last, TimeText(time));
    last = TimeText(time);
  }
}

TEST(SamplePractice, GroupsOfAPatientDifferInTime) {
  const Practice practice(2, 2'000);
  std::set<std::pair<LONG, std::string>> keys;
  for (int i = 0; i < practice.Groups(); ++i) {
    const tagTGROUP group = practice.Group(i);
    keys.emplace(Val(group.lPatID), TimeText(Val(group.ts)));
  }
  EXPECT_EQ(static_cast<int>(keys.size()), practice.Groups());
}

TEST(SamplePractice, TestsOfAUnitDifferInTimeAndMakrosOfAnImageInNumber) {
  const Practice practice(2, 2'000);
  std::set<std::pair<LONG, std::string>> tests;
  std::set<std::pair<LONG, WORD>> makros;
  for (int i = 0; i < practice.Tests(); ++i) {
    const tagTTEST test = practice.Test(i);
    tests.emplace(Val(test.lUnitID), TimeText(Val(test.ts)));
  }
  for (int i = 0; i < practice.Makros(); ++i) {
    const tagTMAKRO makro = practice.Makro(i);
    EXPECT_GT(Val(makro.wNo), 0);
    makros.emplace(Val(makro.lImgID), Val(makro.wNo));
  }
  EXPECT_EQ(static_cast<int>(tests.size()), practice.Tests());
  EXPECT_EQ(static_cast<int>(makros.size()), practice.Makros());
}

TEST(SamplePractice, SettingsOfAStationDifferInKey) {
  const Practice practice(2, 2'000);
  std::set<std::pair<LONG, std::string>> settings;
  for (int i = 0; i < practice.Settings(); ++i) {
    const tagTCONFIG setting = practice.Setting(i);
    EXPECT_EQ(Val(setting.lDrID), 1);
    EXPECT_FALSE(Text(setting.szSet).empty());
    settings.emplace(Val(setting.lStatID), Text(setting.szKey));
  }
  EXPECT_EQ(static_cast<int>(settings.size()), practice.Settings());
}

void ExpectBetween(LONG first, LONG value, LONG last) {
  EXPECT_GE(value, first);
  EXPECT_LE(value, last);
}

TEST(SamplePractice, ReferencesAreNumbersOfRowsThatExist) {
  const Practice practice(4, kPatients);
  for (int i = 0; i < practice.Patients(); ++i)
    ExpectBetween(0, practice.Patient(i).lDrID, practice.Doctors());
  for (int i = 0; i < practice.Images(); ++i) {
    const tagTIMAGE image = practice.Image(i);
    ExpectBetween(1, image.lPatID, practice.Patients());
    ExpectBetween(1, image.lUnitID, practice.Units());
    ExpectBetween(0, image.lDrID, practice.Doctors());
  }
  for (int i = 0; i < practice.Makros(); ++i) ExpectBetween(1, practice.Makro(i).lImgID, practice.Images());
  for (int i = 0; i < practice.Groups(); ++i) ExpectBetween(1, practice.Group(i).lPatID, practice.Patients());
  for (int i = 0; i < practice.Diagnoses(); ++i)
    ExpectBetween(1, practice.Diagnosis(i).lImgID, practice.Images());
  for (int i = 0; i < practice.Tests(); ++i) ExpectBetween(1, practice.Test(i).lUnitID, practice.Units());
  for (int i = 0; i < practice.Settings(); ++i)
    ExpectBetween(1, practice.Setting(i).lStatID, practice.Stations());
}

TEST(SamplePractice, ImagesBelongToTheirPatientsDoctor) {
  const Practice practice(4, kPatients);
  for (int i = 0; i < practice.Images(); ++i) {
    const tagTIMAGE image = practice.Image(i);
    EXPECT_EQ(Val(image.lDrID), Val(practice.Patient(image.lPatID - 1).lDrID));
  }
}

TEST(SamplePractice, LocationsOfWhatTheLibraryPlacesAreEmpty) {
  const Practice practice(4, kPatients);
  for (int i = 0; i < practice.Images(); ++i) EXPECT_EQ(Text(practice.Image(i).szLoc), "");
  for (int i = 0; i < practice.Groups(); ++i) EXPECT_EQ(Text(practice.Group(i).szLoc), "");
  for (int i = 0; i < practice.Tests(); ++i) EXPECT_EQ(Text(practice.Test(i).szLoc), "");
}

TEST(SamplePractice, NamesThatDatabasesStumbleOverOccurInSmallPractices) {
  const Practice practice(11, 20);
  std::string names;
  for (int i = 0; i < practice.Patients(); ++i) {
    const tagTPATIENT patient = practice.Patient(i);
    names += Text(patient.szFirstname) + " " + Text(patient.szName) + "\n";
  }
  for (const char* odd : {"O'Neil", "Müller", "María", "\\", "%", "_", "\"", "田中", "Παπαδόπουλος"}) {
    EXPECT_NE(names.find(odd), std::string::npos) << odd;
  }
}

TEST(SamplePractice, TextsAreWholeAndFilledFieldsKeepTheirZeroByte) {
  const Practice practice(6, kPatients);
  std::size_t longest = 0;
  for (int i = 0; i < practice.Patients(); ++i) {
    const tagTPATIENT patient = practice.Patient(i);
    longest = std::max(longest, Text(patient.szName).size());
    EXPECT_TRUE(IsUtf8(Text(patient.szName)) && IsUtf8(Text(patient.szFirstname)));
    EXPECT_EQ(patient.szName[sizeof patient.szName - 1], 0);
  }
  EXPECT_EQ(longest, sizeof(tagTPATIENT::szName) - 1);
  for (int i = 0; i < practice.Doctors(); ++i) EXPECT_TRUE(IsUtf8(Text(practice.Doctor(i).szName)));
}

TEST(SamplePractice, PatientsNamesAreManyAndSexesAllOccur) {
  const Practice practice(6, 1'000);
  std::set<std::string> people;
  std::map<std::string, int> sexes;
  for (int i = 0; i < practice.Patients(); ++i) {
    const tagTPATIENT patient = practice.Patient(i);
    people.insert(Text(patient.szName) + ", " + Text(patient.szFirstname));
    ++sexes[Text(patient.szSex)];
  }
  EXPECT_GT(people.size(), 850u);
  EXPECT_EQ(sexes.size(), 3u);
  EXPECT_GT(sexes["f"], 300);
  EXPECT_GT(sexes["m"], 300);
}

}  // namespace
