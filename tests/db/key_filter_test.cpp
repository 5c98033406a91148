// The filter that selects the row a record describes, to the blank, and the mask bits it takes away. On
// closed sets: no database is asked.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "tests/db/table_layouts.h"
#include "tests/support/records.h"

namespace {

using support::SetText;
using support::SetUnterminated;
using support::Ts;

// The answer of SelectRow, and what it did to a filter and a mask of all ones.
struct Selected {
  BOOL found;
  std::string filter;
  DWORD cleared;
};

template <class Set, class Record>
Selected Select(const Record& record) {
  Set set(nullptr, nullptr);
  set.m_strFilter = "before";
  set.m_dwFieldMask = 0xFFFFFFFF;
  const BOOL found = set.SelectRow(&record);
  return {found, std::string(set.m_strFilter.View()), ~set.m_dwFieldMask};
}

void ExpectSelected(const Selected& selected, const std::string& filter, DWORD cleared) {
  EXPECT_NE(selected.found, 0);
  EXPECT_EQ(selected.filter, filter);
  EXPECT_EQ(selected.cleared, cleared);
}

void ExpectNone(const Selected& selected) {
  EXPECT_EQ(selected.found, 0);
  EXPECT_EQ(selected.filter, "before");
  EXPECT_EQ(selected.cleared, 0u);
}

template <class Layout>
class KeyFilters : public testing::Test {};
TYPED_TEST_SUITE(KeyFilters, layouts::AllTables, layouts::TableName);

TYPED_TEST(KeyFilters, AnEmptyRecordSelectsNothing) {
  ExpectNone(Select<typename TypeParam::Set>(typename TypeParam::Record{}));
}

TYPED_TEST(KeyFilters, ANullRecordSelectsNothing) {
  typename TypeParam::Set set(nullptr, nullptr);
  set.m_strFilter = "before";
  EXPECT_EQ(set.SelectRow(nullptr), 0);
  EXPECT_EQ(set.m_strFilter, "before");
}

TYPED_TEST(KeyFilters, TheKeyGoesBeforeTheNaturalKeyAndClearsNoBit) {
  typename TypeParam::Record record;
  std::memset(static_cast<void*>(&record), '9', sizeof record);
  const LONG key = -5;
  std::memcpy(static_cast<void*>(&record), &key, sizeof key);
  const Selected selected = Select<typename TypeParam::Set>(record);
  EXPECT_NE(selected.found, 0);
  EXPECT_NE(selected.filter.find("-5"), std::string::npos);
  EXPECT_EQ(selected.cleared, 0u);
}

TEST(KeyFilterTexts, ByKey) {
  tagTCONFIG config{};
  config.lCfgID = 12;
  ExpectSelected(Select<CCfgRec>(config), " ( tCfgCulIntCfgIDPk = 12 ) ", 0);
  tagTDIAGNOSIS diagnosis{};
  diagnosis.lDiagID = 12;
  ExpectSelected(Select<CDiagRec>(diagnosis), " ( tDiagCulIntDiagIDPk = 12 ) ", 0);
  tagTDOCTOR doctor{};
  doctor.lDrID = 12;
  ExpectSelected(Select<CDrRec>(doctor), " ( tDrCulIntDrIDPk = 12 ) ", 0);
  tagTGROUP group{};
  group.lGrpID = 12;
  ExpectSelected(Select<CGrpRec>(group), " ( tGrpCulIntGrpIDPk = 12 ) ", 0);
  tagTIMAGE image{};
  image.lImgID = 12;
  ExpectSelected(Select<CImgRec>(image), " (tImgCulIntImgIDPk=12) ", 0);
  tagTMAKRO makro{};
  makro.lMakID = 12;
  ExpectSelected(Select<CMakRec>(makro), " (tMakCulIntMakIDPk=12) ", 0);
  tagTPATIENT patient{};
  patient.lPatID = 12;
  ExpectSelected(Select<CPatRec>(patient), " (tPatCulIntPatIDPk=12) ", 0);
  tagTSTATION station{};
  station.lStatID = 12;
  ExpectSelected(Select<CStatRec>(station), " (tStatCulIntStatIDPk=12) ", 0);
  tagTTEST test{};
  test.lTstID = 12;
  ExpectSelected(Select<CTestRec>(test), " (tTstCulIntTstIDPk=12) ", 0);
  tagTUNIT unit{};
  unit.lUnitID = 12;
  ExpectSelected(Select<CUnitRec>(unit), " (tUnitCulIntUnitIDPk=12) ", 0);
}

TEST(KeyFilterTexts, AConfigurationEntryByDoctorStationAndName) {
  tagTCONFIG config{};
  config.lDrID = 1;
  config.lStatID = 2;
  SetText(config.szKey, "it's");
  ExpectSelected(Select<CCfgRec>(config),
                 " (( tCfgCulIntDrIDFk = 1 ) AND ( tCfgCulIntStatIDFk = 2 ) AND ( tCfgSKey = 'it''s' )) ",
                 0x7);
  tagTCONFIG lacking = config;
  lacking.lDrID = 0;
  ExpectNone(Select<CCfgRec>(lacking));
  lacking = config;
  lacking.lStatID = 0;
  ExpectNone(Select<CCfgRec>(lacking));
  lacking = config;
  lacking.szKey[0] = '\0';
  ExpectNone(Select<CCfgRec>(lacking));
}

TEST(KeyFilterTexts, ADiagnosisHasNoNaturalKey) {
  tagTDIAGNOSIS diagnosis{};
  diagnosis.lImgID = 1;
  diagnosis.lDrID = 2;
  SetText(diagnosis.szCode, "K02");
  ExpectNone(Select<CDiagRec>(diagnosis));
}

TEST(KeyFilterTexts, ADoctorByServerIdentifierElseByName) {
  tagTDOCTOR doctor{};
  SetText(doctor.szName, "O'Neil");
  ExpectSelected(Select<CDrRec>(doctor), " ( tDrSName = 'O''Neil') ", 0x3);
  SetText(doctor.szSrvID, "srv");
  ExpectSelected(Select<CDrRec>(doctor), " ( tDrSSrvID = 'srv') ", 0x2);
}

TEST(KeyFilterTexts, AGroupByPatientTimeAndTheLibrarysLocation) {
  tagTGROUP group{};
  group.lPatID = 4;
  const TIMESTAMP_STRUCT time = Ts(2001, 5, 6, 10, 20, 30);
  std::memcpy(&group.ts, &time, sizeof time);
  SetText(group.szLoc, "9");
  ExpectSelected(Select<CGrpRec>(group),
                 " (tGrpCulIntPatIDFK=4) AND (tGrpTS={ts '2001-05-06 10:20:30'} ) AND (tGrpSLoc='9' ) ", 0xD);
}

TEST(KeyFilterTexts, AnImageByPatientTimeAndTheLibrarysLocation) {
  tagTIMAGE image{};
  image.lPatID = 4;
  const TIMESTAMP_STRUCT time = Ts(2001, 5, 6, 10, 20, 30);
  std::memcpy(&image.ts, &time, sizeof time);
  SetText(image.szLoc, "9");
  ExpectSelected(Select<CImgRec>(image),
                 " (tImgCulIntPatIDFK=4) AND (tImgTS={ts '2001-05-06 10:20:30'} ) AND (tImgSLoc='9' ) ",
                 0x80041);
}

TEST(KeyFilterTexts, ATestByUnitTimeAndTheLibrarysLocation) {
  tagTTEST test{};
  test.lUnitID = 4;
  const TIMESTAMP_STRUCT time = Ts(2001, 5, 6, 10, 20, 30);
  std::memcpy(&test.ts, &time, sizeof time);
  SetText(test.szLoc, "9");
  ExpectSelected(Select<CTestRec>(test),
                 " (tTstCulIntUnitIDFk=4) AND (tTstTs={ts '2001-05-06 10:20:30'} ) AND (tTstSLoc='9' ) ",
                 0x2021);
}

template <class Set, class Record>
void ExpectTimeAndLocationNeeded(Record record, LONG Record::*owner) {
  record.*owner = 4;
  SetText(record.szLoc, "9");
  for (const TIMESTAMP_STRUCT& time : {Ts(0, 5, 6), Ts(2001, 0, 6), Ts(2001, 5, 0)}) {
    std::memcpy(&record.ts, &time, sizeof time);
    ExpectNone(Select<Set>(record));
  }
  const TIMESTAMP_STRUCT midnight = Ts(2001, 5, 6);
  std::memcpy(&record.ts, &midnight, sizeof midnight);
  EXPECT_NE(Select<Set>(record).found, 0) << "the time of day may be zero";
  for (const char* location : {"", "1", "8", " "}) {
    SetText(record.szLoc, location);
    ExpectNone(Select<Set>(record));
  }
  SetText(record.szLoc, "9");
  record.*owner = 0;
  ExpectNone(Select<Set>(record));
}

TEST(KeyFilterTexts, GroupsImagesAndTestsNeedOwnerDateAndTheLocationNine) {
  ExpectTimeAndLocationNeeded<CGrpRec>(tagTGROUP{}, &tagTGROUP::lPatID);
  ExpectTimeAndLocationNeeded<CImgRec>(tagTIMAGE{}, &tagTIMAGE::lPatID);
  ExpectTimeAndLocationNeeded<CTestRec>(tagTTEST{}, &tagTTEST::lUnitID);
}

TEST(KeyFilterTexts, TheFractionOfATimeIsDropped) {
  tagTIMAGE image{};
  image.lPatID = 4;
  TIMESTAMP_STRUCT time = Ts(2001, 5, 6, 10, 20, 30);
  time.fraction = 500000000;
  std::memcpy(&image.ts, &time, sizeof time);
  SetText(image.szLoc, "9");
  EXPECT_NE(Select<CImgRec>(image).filter.find("{ts '2001-05-06 10:20:30'}"), std::string::npos);
}

TEST(KeyFilterTexts, AMakroByImageAndOrdinal) {
  tagTMAKRO makro{};
  makro.lImgID = 4;
  makro.wNo = 65535;
  ExpectSelected(Select<CMakRec>(makro), " ((tMakCulIntImgIDFk=4) AND  (tMakUwNo=65535))", 0x21);
  makro.wNo = 0;
  ExpectNone(Select<CMakRec>(makro));
  makro.wNo = 1;
  makro.lImgID = 0;
  ExpectNone(Select<CMakRec>(makro));
}

TEST(KeyFilterTexts, AStationAndAUnitByName) {
  tagTSTATION station{};
  SetText(station.szName, "R'm 1");
  ExpectSelected(Select<CStatRec>(station), " (tStatSName='R''m 1') ", 0x1);
  tagTUNIT unit{};
  SetText(unit.szName, "Unit");
  ExpectSelected(Select<CUnitRec>(unit), " (tUnitSName='Unit') ", 0x2);
}

tagTPATIENT NamedPatient() {
  tagTPATIENT patient{};
  SetText(patient.szName, "O'Neil");
  SetText(patient.szFirstname,
          "Mar\xC3\xAD"
          "a");
  const TIMESTAMP_STRUCT birthday = Ts(1960, 2, 29, 11, 12, 13);
  std::memcpy(&patient.dBirthday, &birthday, sizeof birthday);
  return patient;
}

TEST(KeyFilterTexts, APatientByNameFirstNameAndBirthday) {
  ExpectSelected(Select<CPatRec>(NamedPatient()),
                 " ((tPatSName='O''Neil') AND (tPatSFirstname='Mar\xC3\xAD"
                 "a') AND (tPatDBirthday={d '1960-02-29'})) ",
                 0x04 | 0x08 | 0x20 | 0x40 | 0x80);
}

TEST(KeyFilterTexts, APatientByServerIdentifier) {
  tagTPATIENT patient = NamedPatient();
  SetText(patient.szSrvID, "srv");
  ExpectSelected(Select<CPatRec>(patient), " (tPatSSrvID= 'srv' ) ", 0x4 | 0x8);
}

TEST(KeyFilterTexts, APatientBySlidaIdentifierFirstOfAll) {
  tagTPATIENT patient = NamedPatient();
  SetText(patient.szSrvID, "srv");
  SetText(patient.szSlidaID, "sl");
  ExpectSelected(Select<CPatRec>(patient), " (tPatSSlidaID='sl' ) ", 0x8);
}

TEST(KeyFilterTexts, AnIncompleteNameSelectsNoPatient) {
  tagTPATIENT patient = NamedPatient();
  patient.szName[0] = '\0';
  ExpectNone(Select<CPatRec>(patient));
  patient = NamedPatient();
  patient.szFirstname[0] = '\0';
  ExpectNone(Select<CPatRec>(patient));
  for (const TIMESTAMP_STRUCT& birthday : {Ts(0, 2, 3), Ts(1960, 0, 3), Ts(1960, 2, 0)}) {
    patient = NamedPatient();
    std::memcpy(&patient.dBirthday, &birthday, sizeof birthday);
    ExpectNone(Select<CPatRec>(patient));
  }
  patient = tagTPATIENT{};
  SetText(patient.szExtPatID, "external");
  SetText(patient.szSocID, "social");
  ExpectNone(Select<CPatRec>(patient));
}

TEST(KeyFilterTexts, AnUnterminatedNameEndsWithItsField) {
  tagTSTATION station{};
  SetUnterminated(station.szName, 'x');
  ExpectSelected(Select<CStatRec>(station), " (tStatSName='" + std::string(16, 'x') + "') ", 0x1);
}

}  // namespace
