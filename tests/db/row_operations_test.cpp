// The row workers of the tables, each rule by itself. Patients have a file of their own.
#include <cstring>
#include <string>

#include "recset/cfg_rec.h"
#include "recset/diag_rec.h"
#include "recset/dr_rec.h"
#include "recset/grp_rec.h"
#include "recset/mak_rec.h"
#include "recset/stat_rec.h"
#include "recset/test_rec.h"
#include "recset/unit_rec.h"
#include "rowops/row_worker.h"
#include "tests/support/fixtures.h"

namespace {

using support::SetText;
using support::Text;
using support::Ts;
using support::Val;

tagTSTATION Station(const std::string& name, LONG key = 0) {
  tagTSTATION station{};
  station.lStatID = key;
  SetText(station.szName, name);
  return station;
}

class RowOperations : public support::ConnectedTest {
 protected:
  LONG KeyOf(const std::string& station) {
    return Raw().Number("SELECT tStatCulIntStatIDPk FROM TStation WHERE tStatSName='" + station + "'");
  }
};

// --- the browse set and the short-lived one ---

TEST_F(RowOperations, AWorkerLeavesFilterSortMaskAndPositionOfTheBrowseSet) {
  for (const char* name : {"a", "b", "c"})
    Raw().Exec(std::string("INSERT INTO TStation (tStatSName) VALUES ('") + name + "')");
  CStatRec browse(nullptr, nullptr);
  LONG first = 1;
  ASSERT_EQ(browse.SetFilter(1, 3, &first, nullptr, nullptr, nullptr), 0);
  ASSERT_EQ(browse.SetSortIndex(17 | 0x80), 0);
  browse.m_dwFieldMask = 0x1234;
  ASSERT_NE(browse.Open(browse.m_nOpenType, nullptr, 0), 0);
  ASSERT_EQ(browse.MoveToPos(2), 2);
  const CString filter = browse.m_strFilter;
  const CString sort = browse.m_strSort;

  tagTSTATION station = Station("d");
  EXPECT_EQ(browse.AddRow(&station), 0);
  EXPECT_EQ(browse.EditRow(&station, 0xFFFFFFFF), 0);
  EXPECT_EQ(browse.GetRow(&station), 0);
  EXPECT_EQ(browse.DeleteRow(&station), 0);

  EXPECT_EQ(browse.m_strFilter, filter);
  EXPECT_EQ(browse.m_strSort, sort);
  EXPECT_EQ(browse.m_dwFieldMask, 0x1234u);
  EXPECT_EQ(browse.GetIndexPos(), 2);
  EXPECT_EQ(browse.m_strName, "b");
}

TEST_F(RowOperations, AWorkerOnAClosedBrowseSetLeavesItClosed) {
  CStatRec browse(nullptr, nullptr);
  tagTSTATION station = Station("a");
  EXPECT_EQ(browse.AddRow(&station), 0);
  EXPECT_EQ(browse.GetRow(&station), 0);
  EXPECT_EQ(browse.IsOpen(), 0);
}

class RowOperationsWithOwner : public support::ConnectedTest {
 protected:
  RowOperationsWithOwner() : support::ConnectedTest({.with_owner = true}) {}
};

TEST_F(RowOperationsWithOwner, AWorkerUsesTheBrowseSetsOwner) {
  CStatRec browse(DB_GetDatabase(), m_practice.Owner().c_str());
  tagTSTATION station = Station("a");
  EXPECT_EQ(browse.AddRow(&station), 0);
  EXPECT_EQ(browse.EditRow(&station, 0xFFFFFFFF), 0);
  EXPECT_EQ(browse.DeleteRow(&station), 0);
  browse.m_strOwner = "nobody.";
  EXPECT_EQ(browse.GetRow(&station), 3);
}

// --- the common rules ---

TEST_F(RowOperations, AddingAStationWhoseNameExistsGives52AndTheRowStays) {
  CStatRec stations(nullptr, nullptr);
  tagTSTATION station = Station("twin");
  ASSERT_EQ(stations.AddRow(&station), 0);
  station = Station("twin", 77);
  EXPECT_EQ(stations.AddRow(&station), 52);
  EXPECT_EQ(Val(station.lStatID), 0);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName='twin'"), 2);
}

TEST_F(RowOperations, SeveralRowsOfOneNaturalKeyGive52AndNoneChanges) {
  for (int i = 0; i < 2; ++i) Raw().Exec("INSERT INTO TStation (tStatSName) VALUES ('twin')");
  CStatRec stations(nullptr, nullptr);
  tagTSTATION station = Station("twin");
  EXPECT_EQ(stations.GetRow(&station), 52);
  EXPECT_EQ(stations.EditRow(&station, 0xFFFFFFFF), 52);
  EXPECT_EQ(stations.DeleteRow(&station), 52);
  EXPECT_EQ(Val(station.lStatID), 0);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName='twin'"), 2);
}

TEST_F(RowOperations, EditingAStationByNameKeepsTheNameAndHandsBackTheKey) {
  CStatRec stations(nullptr, nullptr);
  tagTSTATION station = Station("a");
  ASSERT_EQ(stations.AddRow(&station), 0);
  const LONG key = station.lStatID;
  station.lStatID = 0;
  EXPECT_EQ(stations.EditRow(&station, 0xFFFFFFFF), 0);
  EXPECT_EQ(Val(station.lStatID), key);
  EXPECT_EQ(KeyOf("a"), key);
}

TEST_F(RowOperations, EditingAUnitByNameWritesAllButTheName) {
  CUnitRec units(nullptr, nullptr);
  tagTUNIT unit{};
  SetText(unit.szName, "u");
  ASSERT_EQ(units.AddRow(&unit), 0);
  unit.lUnitID = 0;
  SetText(unit.szType, "IO");
  SetText(unit.szTubeSNo, "tube");
  EXPECT_EQ(units.EditRow(&unit, 0xFFFFFFFF), 0);
  EXPECT_EQ(Raw().Count("TUnit", "tUnitSName='u' AND tUnitSType='IO' AND tUnitSTubeSNo='tube'"), 1);
}

TEST_F(RowOperations, ANameWithAQuoteIsFound) {
  CStatRec stations(nullptr, nullptr);
  tagTSTATION station = Station("O'Neil \\ 50%");
  EXPECT_EQ(stations.AddRow(&station), 0);
  station.lStatID = 0;
  EXPECT_EQ(stations.GetRow(&station), 0);
  EXPECT_NE(Val(station.lStatID), 0);
}

TEST_F(RowOperations, AnAddWithoutACompleteNaturalKeyInsertsAndGivesOne) {
  CStatRec stations(nullptr, nullptr);
  tagTSTATION station = Station("", 5);
  EXPECT_EQ(stations.AddRow(&station), 1);
  EXPECT_EQ(Val(station.lStatID), 0);
  EXPECT_EQ(Raw().Count("TStation"), 2);
  CMakRec makros(nullptr, nullptr);
  tagTMAKRO makro{};
  makro.lImgID = 7;
  EXPECT_EQ(makros.AddRow(&makro), 1);
  EXPECT_EQ(Raw().Count("TMakro"), 1);
  CCfgRec configs(nullptr, nullptr);
  tagTCONFIG config{};
  config.lDrID = config.lStatID = 9;
  EXPECT_EQ(configs.AddRow(&config), 1);
  EXPECT_EQ(Raw().Count("TConfig", "tCfgCulIntDrIDFk=9"), 1);
  CGrpRec groups(nullptr, nullptr);
  tagTGROUP group{};
  group.lPatID = 7;  // but no date
  EXPECT_EQ(groups.AddRow(&group), 1);
  EXPECT_EQ(Raw().Count("TGroup", "tGrpSLoc='9'"), 1);
}

TEST_F(RowOperations, AnAddedConfigurationEntryIsReadBack) {
  CCfgRec configs(nullptr, nullptr);
  tagTCONFIG config{};
  config.lDrID = 2;
  config.lStatID = 3;
  SetText(config.szKey, "key");
  SetText(config.szSet, "value");
  EXPECT_EQ(configs.AddRow(&config), 0);
  EXPECT_EQ(Val(config.lCfgID), Raw().Number("SELECT tCfgCulIntCfgIDPk FROM TConfig WHERE tCfgSKey='key'"));
  tagTCONFIG twin = config;
  EXPECT_EQ(configs.AddRow(&twin), 52);
  EXPECT_EQ(Val(twin.lCfgID), 0);
}

TEST_F(RowOperations, AnAddedDiagnosisLeavesTheRecordAsItWas) {
  CDiagRec diagnoses(nullptr, nullptr);
  tagTDIAGNOSIS diagnosis{};
  diagnosis.lDiagID = 77;
  diagnosis.lImgID = 7;
  SetText(diagnosis.szText, "caries");
  const tagTDIAGNOSIS before = diagnosis;
  EXPECT_EQ(diagnoses.AddRow(&diagnosis), 0);
  EXPECT_EQ(std::memcmp(&before, &diagnosis, sizeof before), 0);
  EXPECT_EQ(Raw().Count("TDiagnosis", "tDiagSText='caries'"), 1);
  EXPECT_EQ(Raw().Count("TDiagnosis", "tDiagCulIntDiagIDPk=77"), 0);
}

TEST_F(RowOperations, ADiagnosisWithoutAKeyGivesOne) {
  CDiagRec diagnoses(nullptr, nullptr);
  tagTDIAGNOSIS diagnosis{};
  diagnosis.lImgID = 7;
  EXPECT_EQ(diagnoses.GetRow(&diagnosis), 1);
  EXPECT_EQ(diagnoses.EditRow(&diagnosis, 0xFFFFFFFF), 1);
  EXPECT_EQ(diagnoses.DeleteRow(&diagnosis), 1);
}

// --- doctors ---

tagTDOCTOR Doctor(const std::string& name, const std::string& service) {
  tagTDOCTOR doctor{};
  SetText(doctor.szName, name);
  SetText(doctor.szSrvID, service);
  return doctor;
}

TEST_F(RowOperations, ADoctorFoundByServerIdentifierKeepsItAndTakesTheName) {
  CDrRec doctors(nullptr, nullptr);
  tagTDOCTOR doctor = Doctor("old", "S1");
  ASSERT_EQ(doctors.AddRow(&doctor), 0);
  doctor = Doctor("new", "S1");
  EXPECT_EQ(doctors.EditRow(&doctor, 0xFFFFFFFF), 0);
  EXPECT_EQ(Raw().Count("TDoctor", "tDrSName='new' AND tDrSSrvID='S1'"), 1);
}

TEST_F(RowOperations, ADoctorFoundByNameKeepsNameAndServerIdentifier) {
  CDrRec doctors(nullptr, nullptr);
  tagTDOCTOR doctor = Doctor("name", "S1");
  ASSERT_EQ(doctors.AddRow(&doctor), 0);
  doctor = Doctor("name", "");
  EXPECT_EQ(doctors.EditRow(&doctor, 0xFFFFFFFF), 0);
  EXPECT_EQ(Raw().Count("TDoctor", "tDrSName='name' AND tDrSSrvID='S1'"), 1);
}

TEST_F(RowOperations, TheServerIdentifierGoesBeforeTheName) {
  CDrRec doctors(nullptr, nullptr);
  tagTDOCTOR first = Doctor("one", "S1");
  tagTDOCTOR second = Doctor("two", "S2");
  ASSERT_EQ(doctors.AddRow(&first), 0);
  ASSERT_EQ(doctors.AddRow(&second), 0);
  tagTDOCTOR doctor = Doctor("one", "S2");
  EXPECT_EQ(doctors.GetRow(&doctor), 0);
  EXPECT_EQ(Text(doctor.szName), "two");
}

// --- protected rows ---

TEST_F(RowOperations, TheRowWithKeyOneIsProtectedWhateverItsName) {
  Raw().Exec("UPDATE TStation SET tStatSName='renamed' WHERE tStatCulIntStatIDPk=1");
  CStatRec stations(nullptr, nullptr);
  tagTSTATION by_key = Station("changed", 1);
  EXPECT_EQ(stations.EditRow(&by_key, 0xFFFFFFFF), 8);
  EXPECT_EQ(stations.DeleteRow(&by_key), 8);
  tagTSTATION by_name = Station("renamed");
  EXPECT_EQ(stations.EditRow(&by_name, 0xFFFFFFFF), 8);
  EXPECT_EQ(stations.DeleteRow(&by_name), 8);
  EXPECT_EQ(KeyOf("renamed"), 1);
}

TEST_F(RowOperations, ARowNamedDashIsProtectedWhateverItsKey) {
  Raw().Exec("INSERT INTO TStation (tStatCulIntStatIDPk, tStatSName) VALUES (50, '-')");
  Raw().Exec("INSERT INTO TDoctor (tDrCulIntDrIDPk, tDrSName) VALUES (50, '-')");
  Raw().Exec("INSERT INTO TUnit (tUnitCulIntUnitIDPk, tUnitSName) VALUES (50, '-')");
  tagTSTATION station = Station("changed", 50);
  EXPECT_EQ(CStatRec(nullptr, nullptr).EditRow(&station, 0xFFFFFFFF), 8);
  EXPECT_EQ(CStatRec(nullptr, nullptr).DeleteRow(&station), 8);
  tagTDOCTOR doctor = Doctor("changed", "");
  doctor.lDrID = 50;
  EXPECT_EQ(CDrRec(nullptr, nullptr).EditRow(&doctor, 0xFFFFFFFF), 8);
  EXPECT_EQ(CDrRec(nullptr, nullptr).DeleteRow(&doctor), 8);
  tagTUNIT unit{};
  unit.lUnitID = 50;
  SetText(unit.szName, "changed");
  EXPECT_EQ(CUnitRec(nullptr, nullptr).EditRow(&unit, 0xFFFFFFFF), 8);
  EXPECT_EQ(CUnitRec(nullptr, nullptr).DeleteRow(&unit), 8);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName='-'"), 2);
  EXPECT_EQ(Raw().Count("TDoctor", "tDrSName='-'"), 2);
  EXPECT_EQ(Raw().Count("TUnit", "tUnitSName='-'"), 2);
}

TEST_F(RowOperations, TheDefaultDoctorAndUnitAreProtectedByKeyAndByName) {
  tagTDOCTOR doctor = Doctor("-", "");
  EXPECT_EQ(CDrRec(nullptr, nullptr).EditRow(&doctor, 0xFFFFFFFF), 8);
  doctor.lDrID = 1;
  EXPECT_EQ(CDrRec(nullptr, nullptr).DeleteRow(&doctor), 8);
  tagTUNIT unit{};
  SetText(unit.szName, "-");
  EXPECT_EQ(CUnitRec(nullptr, nullptr).EditRow(&unit, 0xFFFFFFFF), 8);
  unit.lUnitID = 1;
  EXPECT_EQ(CUnitRec(nullptr, nullptr).DeleteRow(&unit), 8);
}

TEST_F(RowOperations, AProtectedRowCanBeRead) {
  tagTSTATION station = Station("", 1);
  EXPECT_EQ(CStatRec(nullptr, nullptr).GetRow(&station), 0);
  EXPECT_EQ(Text(station.szName), "-");
}

TEST_F(RowOperations, OtherTablesHaveNoProtectedRows) {
  CMakRec makros(nullptr, nullptr);
  tagTMAKRO makro{};
  makro.lImgID = 7;
  makro.wNo = 1;
  SetText(makro.szName, "-");
  ASSERT_EQ(makros.AddRow(&makro), 0);
  EXPECT_EQ(Val(makro.lMakID), Raw().Number("SELECT tMakCulIntMakIDPk FROM TMakro"));
  EXPECT_EQ(makros.EditRow(&makro, 0xFFFFFFFF), 0);
  EXPECT_EQ(makros.DeleteRow(&makro), 0);
}

// --- groups and tests: the library's location ---

TEST_F(RowOperations, AGroupWithALocationIsNotAdded) {
  CGrpRec groups(nullptr, nullptr);
  tagTGROUP group{};
  group.lPatID = 7;
  group.ts = Ts(2001, 5, 6);
  for (const char* location : {"9", "1", " "}) {
    SetText(group.szLoc, location);
    const tagTGROUP before = group;
    EXPECT_EQ(groups.AddRow(&group), 1);
    EXPECT_EQ(std::memcmp(&before, &group, sizeof before), 0);
  }
  EXPECT_EQ(Raw().Count("TGroup"), 0);
}

TEST_F(RowOperations, AnAddedGroupComesBackAtTheLibrarysLocation) {
  CGrpRec groups(nullptr, nullptr);
  tagTGROUP group{};
  group.lPatID = 7;
  group.ts = Ts(2001, 5, 6, 10, 11, 12);
  EXPECT_EQ(groups.AddRow(&group), 0);
  EXPECT_EQ(Text(group.szLoc), "9");
  EXPECT_NE(Val(group.lGrpID), 0);
  EXPECT_EQ(Raw().Count("TGroup", "tGrpSLoc='9'"), 1);
}

TEST_F(RowOperations, ATestWithALocationIsNotAdded) {
  CTestRec tests(nullptr, nullptr);
  tagTTEST test{};
  test.lUnitID = 7;
  test.ts = Ts(2001, 5, 6);
  SetText(test.szLoc, "9");
  EXPECT_EQ(tests.AddRow(&test), 1);
  EXPECT_EQ(Raw().Count("TTest"), 0);
  SetText(test.szLoc, "");
  EXPECT_EQ(tests.AddRow(&test), 0);
  EXPECT_EQ(Text(test.szLoc), "9");
  EXPECT_NE(Val(test.lTstID), 0);
}

TEST_F(RowOperations, AddingATestDoesNotFillAnEmptyPerson) {
  CTestRec tests(nullptr, nullptr);
  tagTTEST test{};
  test.lUnitID = 7;
  test.ts = Ts(2001, 5, 6);
  ASSERT_EQ(tests.AddRow(&test), 0);
  EXPECT_EQ(Text(test.szPerson), "");
}

TEST_F(RowOperations, ALongResultOfATestSurvives) {
  CTestRec tests(nullptr, nullptr);
  tagTTEST test{};
  test.lUnitID = 7;
  test.ts = Ts(2001, 5, 6);
  const std::string result(4095, 'r');
  SetText(test.szResult, result);
  ASSERT_EQ(tests.AddRow(&test), 0);
  tagTTEST read{};
  read.lTstID = test.lTstID;
  EXPECT_EQ(tests.GetRow(&read), 0);
  EXPECT_EQ(Text(read.szResult), result);
}

TEST_F(RowOperations, ARowAtAnotherLocationIsNotFoundByItsNaturalKey) {
  Raw().Exec(
      "INSERT INTO TGroup (tGrpCulIntPatIDFk, tGrpTs, tGrpSLoc) VALUES (7, '2001-05-06 00:00:00', '1')");
  tagTGROUP group{};
  group.lPatID = 7;
  group.ts = Ts(2001, 5, 6);
  SetText(group.szLoc, "1");
  EXPECT_EQ(CGrpRec(nullptr, nullptr).GetRow(&group), 1);
  SetText(group.szLoc, "9");
  EXPECT_EQ(CGrpRec(nullptr, nullptr).GetRow(&group), 64);
}

TEST_F(RowOperations, AFractionOfASecondIsStoredAndTheRowNotFoundAgain) {
  tagTGROUP group{};
  group.lPatID = 7;
  group.ts = Ts(2001, 5, 6, 10, 11, 12);
  group.ts.fraction = 500000000;
  EXPECT_EQ(CGrpRec(nullptr, nullptr).AddRow(&group), 64);
  EXPECT_EQ(Val(group.lGrpID), 0);
  EXPECT_EQ(Raw().Count("TGroup"), 1);
}

// --- makros ---

TEST_F(RowOperations, AnAddedMakroIsStampedWithTheClock) {
  CMakRec makros(nullptr, nullptr);
  tagTMAKRO makro{};
  makro.lImgID = 7;
  makro.wNo = 65535;
  makro.tsLast = Ts(1999, 1, 1);
  const TIMESTAMP_STRUCT before = support::Now();
  ASSERT_EQ(makros.AddRow(&makro), 0);
  EXPECT_GE(support::SecondsBetween(before, makro.tsLast), 0);
  EXPECT_LE(support::SecondsBetween(makro.tsLast, support::Now()), 60);
  EXPECT_EQ(Val(makro.tsLast.fraction), 0u);
  EXPECT_EQ(Val(makro.wNo), 65535);
}

TEST_F(RowOperations, AnEditStampsAMakroOnlyWithItsBit) {
  CMakRec makros(nullptr, nullptr);
  tagTMAKRO makro{};
  makro.lImgID = 7;
  makro.wNo = 1;
  ASSERT_EQ(makros.AddRow(&makro), 0);
  const std::string stored = "SELECT tMakTsLast FROM TMakro";
  Raw().Exec("UPDATE TMakro SET tMakTsLast='2001-01-01 00:00:00'");
  makro.tsLast = Ts(1999, 1, 1);
  EXPECT_EQ(makros.EditRow(&makro, 0xFFFFFFFF & ~0x4u), 0);
  EXPECT_EQ(Raw().Text(stored).substr(0, 10), "2001-01-01");
  makro.lMakID = 0;  // by natural key as well
  EXPECT_EQ(makros.EditRow(&makro, 0x4), 0);
  ASSERT_EQ(makros.GetRow(&makro), 0);
  EXPECT_LE(support::SecondsBetween(makro.tsLast, support::Now()), 60);
}

// --- reading a new row back ---

class Rereading : public RowOperations {};

TEST_F(Rereading, AClosedSetGives3) {
  rowops::ShortLived<CStatRec> set{CStatRec(nullptr, nullptr)};
  tagTSTATION station = Station("-");
  EXPECT_EQ(rowops::Reread(set, &station), 3);
}

TEST_F(Rereading, ASetThatCannotBeRequeriedGivesOne) {
  rowops::ShortLived<CStatRec> set{CStatRec(nullptr, nullptr)};
  ASSERT_NE(set.Open(set.m_nOpenType, nullptr, CRecordset::executeDirect), 0);
  tagTSTATION station = Station("-");
  EXPECT_EQ(rowops::Reread(set, &station), 1);
}

TEST_F(Rereading, PutsFilterAndMaskBack) {
  rowops::ShortLived<CStatRec> set{CStatRec(nullptr, nullptr)};
  set.m_strFilter = "1 = 2";
  set.m_dwFieldMask = 0xFFFFFFFF;
  ASSERT_TRUE(set.OpenRows());
  tagTSTATION station = Station("-");
  EXPECT_EQ(rowops::Reread(set, &station), 0);
  EXPECT_EQ(Val(station.lStatID), 1);
  EXPECT_EQ(set.m_strFilter, "1 = 2");
  EXPECT_EQ(set.m_dwFieldMask, 0xFFFFFFFFu);
  station = Station("nowhere");
  EXPECT_EQ(rowops::Reread(set, &station), 64);
  station = Station("");
  EXPECT_EQ(rowops::Reread(set, &station), 1);
  EXPECT_EQ(set.m_strFilter, "1 = 2");
  EXPECT_EQ(set.m_dwFieldMask, 0xFFFFFFFFu);
}

}  // namespace
