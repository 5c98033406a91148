// What the browse sets do beyond their lists: texts that do not fit, wild ordinals and flags, stamps,
// deleting images by position.
#include <cstring>
#include <string>

#include "recset/img_rec.h"
#include "recset/mak_rec.h"
#include "recset/pat_rec.h"
#include "recset/stat_rec.h"
#include "recset/test_rec.h"
#include "tests/support/fixtures.h"

namespace {

using support::SetText;
using support::Text;
using support::Val;

template <class Set>
void OpenNow(Set& set) {
  ASSERT_NE(set.Open(set.m_nOpenType, nullptr, 0), 0);
}

class BrowseRows : public support::ConnectedTest {};

TEST_F(BrowseRows, AFilterOnAFieldThatPatientsDoNotHaveIsRefusedWithoutAQuery) {
  Raw().Exec("INSERT INTO TPatient (tPatCulIntPatIDPk, tPatSName) VALUES (1,'a')");
  Raw().Exec("INSERT INTO TPatient (tPatCulIntPatIDPk, tPatSName) VALUES (2,'b')");
  CPatRec patients(nullptr, nullptr);
  OpenNow(patients);
  patients.MoveToPos(2);
  char text[] = "a";
  EXPECT_EQ(patients.SetFilter(18, 0, text, nullptr, nullptr, nullptr), 1);
  EXPECT_EQ(patients.GetIndexPos(), 2);
}

TEST_F(BrowseRows, TheUnitOfAnImageCannotBeFilteredOn) {
  CImgRec images(nullptr, nullptr);
  OpenNow(images);
  LONG unit = 1;
  bool thrown = false;
  try {
    images.SetFilter(5, 0, &unit, nullptr, nullptr, nullptr);
  } catch (CDBException* exception) {
    thrown = true;
    exception->Delete();
  }
  EXPECT_TRUE(thrown) << "images have no column tImgCulIntUnitIDPk";
  EXPECT_EQ(images.IsOpen(), 0);
}

TEST_F(BrowseRows, ATextLongerThanItsFieldIsCut) {
  Raw().Exec("INSERT INTO TStation (tStatCulIntStatIDPk, tStatSName) VALUES (50,'a station of a long name')");
  CStatRec stations(nullptr, nullptr);
  stations.m_strFilter = "tStatCulIntStatIDPk=50";
  OpenNow(stations);
  struct {
    tagTSTATION record;
    char behind[4];
  } guarded;
  std::memset(&guarded, 0x7E, sizeof guarded);
  EXPECT_EQ(stations.GetRecByPos(&guarded.record, nullptr), 0);
  EXPECT_EQ(Text(guarded.record.szName), "a station of a l");
  EXPECT_EQ(std::string(guarded.behind, 4), "\x7E\x7E\x7E\x7E");
}

TEST_F(BrowseRows, ATextIsNotCutInsideACharacter) {
  Raw().Exec("INSERT INTO TStation (tStatCulIntStatIDPk, tStatSName) VALUES (50,'123456789012345\xC3\xBC')");
  CStatRec stations(nullptr, nullptr);
  stations.m_strFilter = "tStatCulIntStatIDPk=50";
  OpenNow(stations);
  tagTSTATION record{};
  EXPECT_EQ(stations.GetRecByPos(&record, nullptr), 0);
  EXPECT_EQ(Text(record.szName), "123456789012345");
}

TEST_F(BrowseRows, OrdinalsAreNarrowedToTheirUnsignedField) {
  Raw().Exec("INSERT INTO TMakro (tMakCulIntMakIDPk, tMakUwNo) VALUES (1,65535)");
  Raw().Exec("INSERT INTO TMakro (tMakCulIntMakIDPk, tMakUwNo) VALUES (2,65537)");
  CMakRec makros(nullptr, nullptr);
  makros.m_strSort = "tMakCulIntMakIDPk";
  OpenNow(makros);
  EXPECT_EQ(makros.m_nNo, 65535);
  tagTMAKRO record{};
  EXPECT_EQ(makros.GetRecByPos(&record, nullptr), 0);
  EXPECT_EQ(Val(record.wNo), 65535);
  LONG position = 2;
  EXPECT_EQ(makros.GetRecByPos(&record, &position), 0);
  EXPECT_EQ(Val(record.wNo), 1);
}

TEST_F(BrowseRows, AWildFlagIsWrittenAsOne) {
  Raw().Exec("INSERT INTO TPatient (tPatCulIntPatIDPk, tPatFSelect) VALUES (1,0)");
  CPatRec patients(nullptr, nullptr);
  OpenNow(patients);
  tagTPATIENT record{};
  record.lSelect = -7;
  patients.m_dwFieldMask = 0x200;
  patients.Edit();
  patients.CopyIn(&record);
  EXPECT_NE(patients.Update(), 0);
  EXPECT_EQ(Raw().Number("SELECT tPatFSelect FROM TPatient"), 1);
}

TEST_F(BrowseRows, WritingAnIdentifierOfAPatientAsksForTheDisplayIdentifier) {
  for (const DWORD bit : {0x2u, 0x8u}) {
    CPatRec patients(nullptr, nullptr);
    patients.m_dwFieldMask = bit;
    const tagTPATIENT record{};
    patients.CopyIn(&record);
    EXPECT_EQ(patients.m_dwFieldMask, bit | 0x800);
  }
  CPatRec patients(nullptr, nullptr);
  patients.m_dwFieldMask = 0xFFFFF7F5;
  const tagTPATIENT record{};
  patients.CopyIn(&record);
  EXPECT_EQ(patients.m_dwFieldMask, 0xFFFFF7F5);
}

TEST_F(BrowseRows, TheTimeOfAMakroIsStampedUnderItsBitAndNeverCopied) {
  tagTMAKRO record{};
  const TIMESTAMP_STRUCT given = support::Ts(1999, 1, 2, 3, 4, 5);
  std::memcpy(&record.tsLast, &given, sizeof given);
  CMakRec makros(nullptr, nullptr);
  makros.m_dwFieldMask = 0xFFFFFFFF & ~0x4u;
  makros.CopyIn(&record);
  EXPECT_EQ(makros.m_tsLast.year, 0);
  makros.m_dwFieldMask = 0x4;
  const TIMESTAMP_STRUCT before = support::Now();
  makros.CopyIn(&record);
  EXPECT_GE(support::SecondsBetween(before, makros.m_tsLast), 0);
  EXPECT_LT(support::SecondsBetween(before, makros.m_tsLast), 60);
  EXPECT_EQ(makros.m_tsLast.fraction, 0u);
}

TEST_F(BrowseRows, AResultOf4095BytesSurvivesBothCopies) {
  tagTTEST record{};
  SetText(record.szResult, std::string(4095, 'r'));
  CTestRec tests(nullptr, nullptr);
  tests.m_dwFieldMask = 0x40;
  tests.AddNew();
  tests.CopyIn(&record);
  ASSERT_NE(tests.Update(), 0);
  ASSERT_NE(tests.Requery(), 0);
  tagTTEST read{};
  LONG position = 1;
  EXPECT_EQ(tests.GetRecByPos(&read, &position), 0);
  EXPECT_EQ(Text(read.szResult), std::string(4095, 'r'));
}

// Two patients, of whom the first has two images and the second one.
class ImageDeletes : public support::ConnectedTest {
 protected:
  void SetUp() override {
    ConnectedTest::SetUp();
    for (const char* key : {"1", "2"}) {
      Raw().Exec(
          std::string("INSERT INTO TPatient (tPatCulIntPatIDPk, tPatDEntry, tPatTsLastDisp) VALUES (") + key +
          ",'1990-01-01','1995-01-01 00:00:00')");
    }
    AddImage("11", "1", "2001-01-01 10:00:00");
    AddImage("12", "1", "2002-02-02 10:00:00");
    AddImage("21", "2", "2003-03-03 10:00:00");
  }
  void AddImage(const std::string& key, const std::string& patient, const std::string& time) {
    Raw().Exec("INSERT INTO TImage (tImgCulIntImgIDPk, tImgCulIntPatIDFk, tImgTs) VALUES (" + key + "," +
               patient + ",'" + time + "')");
  }
  void OpenImages(CImgRec& images) {
    images.m_strSort = "tImgCulIntImgIDPk";
    OpenNow(images);
  }
  std::string LastDisplay(const std::string& patient) {
    return Raw().Text("SELECT tPatTsLastDisp FROM TPatient WHERE tPatCulIntPatIDPk=" + patient).substr(0, 10);
  }
};

TEST_F(ImageDeletes, ThePatientOfTheDeletedImageIsBroughtUpToDateNotTheNextOnes) {
  CImgRec images(nullptr, nullptr);
  OpenImages(images);
  EXPECT_EQ(images.DeleteByPos(2), 0);
  EXPECT_EQ(images.m_lID, 21) << "the following image, of another patient, is current";
  EXPECT_EQ(Raw().Count("TImage", "tImgCulIntImgIDPk=12"), 0);
  EXPECT_EQ(LastDisplay("1"), "2001-01-01");
  EXPECT_EQ(LastDisplay("2"), "1995-01-01");
}

TEST_F(ImageDeletes, APatientWithoutImagesFallsBackOnTheDateOfEntry) {
  CImgRec images(nullptr, nullptr);
  OpenImages(images);
  images.MoveToPos(3);
  EXPECT_EQ(images.DeleteByPos(0), 0);
  EXPECT_EQ(LastDisplay("2"), "1990-01-01");
  EXPECT_EQ(images.m_lID, 12);
}

TEST_F(ImageDeletes, AWrongPositionDeletesNothingAndTouchesNoPatient) {
  CImgRec images(nullptr, nullptr);
  OpenImages(images);
  for (const LONG wild : {4, -1}) EXPECT_EQ(images.DeleteByPos(wild), 64) << wild;
  EXPECT_EQ(images.DeleteByPos(0), 64) << "no row is current now";
  EXPECT_EQ(Raw().Count("TImage"), 3);
  EXPECT_EQ(LastDisplay("1"), "1995-01-01");
}

TEST_F(ImageDeletes, AnImageWithoutAPatientIsDeletedAndNoPatientChanges) {
  AddImage("1", "0", "2009-01-01 10:00:00");
  CImgRec images(nullptr, nullptr);
  OpenImages(images);
  EXPECT_EQ(images.DeleteByPos(1), 0);
  EXPECT_EQ(Raw().Count("TImage"), 3);
  EXPECT_EQ(LastDisplay("1"), "1995-01-01");
  EXPECT_EQ(LastDisplay("2"), "1995-01-01");
}

TEST_F(ImageDeletes, RowsThatCannotBeReadAgainGiveEightAsInEveryTable) {
  CImgRec images(nullptr, nullptr);
  OpenImages(images);
  images.m_strFilter = " (no such column=1) ";
  images.RequeryLater();
  EXPECT_EQ(images.DeleteByPos(1), 8);
  EXPECT_EQ(Raw().Count("TImage"), 3);
}

TEST_F(ImageDeletes, ARefusedDeleteGivesEightAndTouchesNoPatient) {
  CImgRec images(nullptr, nullptr);
  ASSERT_NE(images.Open(images.m_nOpenType, nullptr, CRecordset::readOnly), 0);
  EXPECT_EQ(images.DeleteByPos(1), 8);
  EXPECT_EQ(Raw().Count("TImage"), 3);
  EXPECT_EQ(LastDisplay("1"), "1995-01-01");
}

}  // namespace
