// Adding, editing and deleting images, and what that does to their patients.
#include <string>

#include "recset/img_rec.h"
#include "recset/upcalls.h"
#include "tests/support/fixtures.h"

namespace {

using support::SetText;
using support::Text;
using support::TimeText;
using support::Ts;
using support::Val;

constexpr LONG kPatient = 7;
constexpr LONG kOther = 8;
constexpr DWORD kAll = 0xFFFFFFFF;
constexpr DWORD kTime = 0x40;
constexpr char kUntouched[] = "1995-01-01 00:00:00";
constexpr char kEntry[] = "1990-01-02 00:00:00";

class ImageOperations : public support::ConnectedTest {
 protected:
  void SetUp() override {
    support::ConnectedTest::SetUp();
    for (const LONG key : {kPatient, kOther}) {
      Raw().Exec("INSERT INTO TPatient (tPatCulIntPatIDPk, tPatDEntry, tPatTsLastDisp) VALUES (" +
                 std::to_string(key) + ", '1990-01-02', '1995-01-01 00:00:00')");
    }
  }
  static tagTIMAGE Image(TIMESTAMP_STRUCT time, LONG patient = kPatient) {
    tagTIMAGE image{};
    image.lPatID = patient;
    image.ts = time;
    return image;
  }
  static WORD Add(tagTIMAGE* image) { return CImgRec(nullptr, nullptr).AddRow(image); }
  static WORD Edit(tagTIMAGE* image, DWORD mask) { return CImgRec(nullptr, nullptr).EditRow(image, mask); }
  static WORD Delete(const tagTIMAGE& image) { return CImgRec(nullptr, nullptr).DeleteRow(&image); }
  static tagTIMAGE Added(TIMESTAMP_STRUCT time, LONG patient = kPatient) {
    tagTIMAGE image = Image(time, patient);
    EXPECT_EQ(Add(&image), 0);
    return image;
  }
  // An image that the patient's last display knows nothing of.
  void InsertPast(const std::string& time, const std::string& location = "9", LONG patient = kPatient) {
    Raw().Exec("INSERT INTO TImage (tImgCulIntPatIDFk, tImgTs, tImgSLoc) VALUES (" + std::to_string(patient) +
               ", '" + time + "', '" + location + "')");
  }
  std::string LastDisplay(LONG patient = kPatient) {
    tagTPATIENT record{};
    record.lPatID = patient;
    EXPECT_EQ(DB_GetTPat(&record), 0);
    return TimeText(record.tsLastDisp);
  }
  void ForgetDisplays() { Raw().Exec("UPDATE TPatient SET tPatTsLastDisp='1995-01-01 00:00:00'"); }
  int Images(const std::string& condition = "1=1") { return Raw().Count("TImage", condition); }
};

// --- add ---

TEST_F(ImageOperations, AnImageWithALocationIsNotAdded) {
  tagTIMAGE image = Image(Ts(2001, 5, 6));
  SetText(image.szLoc, "9");
  EXPECT_EQ(Add(&image), 1);
  EXPECT_EQ(Images(), 0);
  EXPECT_EQ(LastDisplay(), kUntouched);
}

TEST_F(ImageOperations, AnAddedImageComesBackAtTheLibrarysLocationWithItsKey) {
  const tagTIMAGE image = Added(Ts(2001, 5, 6, 10, 0, 0));
  EXPECT_EQ(Text(image.szLoc), "9");
  EXPECT_EQ(Val(image.lImgID), Raw().Number("SELECT tImgCulIntImgIDPk FROM TImage"));
}

TEST_F(ImageOperations, AnAddReplacesEveryImageOfTheSamePatientTimeAndLocation) {
  InsertPast("2001-05-06 10:00:00");
  InsertPast("2001-05-06 10:00:00");
  const int before = Raw().Number("SELECT MAX(tImgCulIntImgIDPk) FROM TImage");
  const tagTIMAGE image = Added(Ts(2001, 5, 6, 10, 0, 0));
  EXPECT_EQ(Images(), 1);
  EXPECT_GT(Val(image.lImgID), before);
}

TEST_F(ImageOperations, AnAddReplacesASingleImageToo) {
  const tagTIMAGE first = Added(Ts(2001, 5, 6, 10, 0, 0));
  tagTIMAGE second = Image(Ts(2001, 5, 6, 10, 0, 0));
  SetText(second.szName, "second");
  EXPECT_EQ(Add(&second), 0);
  EXPECT_EQ(Images(), 1);
  EXPECT_EQ(Images("tImgSName='second'"), 1);
  EXPECT_NE(Val(first.lImgID), Val(second.lImgID));
}

TEST_F(ImageOperations, AnAddKeepsImagesOfOtherPatientsTimesAndLocations) {
  InsertPast("2001-05-06 10:00:00", "9", kOther);
  InsertPast("2001-05-06 10:00:01");
  InsertPast("2001-05-06 10:00:00", "1");
  Added(Ts(2001, 5, 6, 10, 0, 0));
  EXPECT_EQ(Images(), 4);
}

TEST_F(ImageOperations, TheKeyOfTheAddedRecordDoesNotChooseWhatIsReplaced) {
  const tagTIMAGE kept = Added(Ts(2001, 5, 6, 10, 0, 0));
  tagTIMAGE image = Image(Ts(2001, 5, 7, 10, 0, 0));
  image.lImgID = kept.lImgID;
  EXPECT_EQ(Add(&image), 0);
  EXPECT_EQ(Images(), 2);
}

TEST_F(ImageOperations, AnAddWithoutAPatientInsertsAndGivesOne) {
  tagTIMAGE image = Image(Ts(2001, 5, 6), 0);
  EXPECT_EQ(Add(&image), 1);
  EXPECT_EQ(Val(image.lImgID), 0);
  EXPECT_EQ(Images("tImgSLoc='9'"), 1);
  EXPECT_EQ(LastDisplay(), kUntouched);
}

TEST_F(ImageOperations, AnAddGives8WhenTheReplacedImagesCannotBeDeleted) {
  InsertPast("2001-05-06 10:00:00");
  MakeReadOnly("TImage");
  tagTIMAGE image = Image(Ts(2001, 5, 6, 10, 0, 0));
  EXPECT_EQ(Add(&image), 8);
  EXPECT_EQ(Text(image.szLoc), "");  // as it was, so that it can be tried again
  image = Image(Ts(2001, 5, 7));
  EXPECT_EQ(Add(&image), 6);
  EXPECT_EQ(Images(), 1);
}

TEST_F(ImageOperations, AnAddGives3WhenTheImagesCannotBeRead) {
  TakeAway("TImage");
  tagTIMAGE image = Image(Ts(2001, 5, 6, 10, 0, 0));
  EXPECT_EQ(Add(&image), 3);
}

// --- the patient's last display ---

TEST_F(ImageOperations, AnAddBringsTheLastDisplayToTheNewestImage) {
  Added(Ts(2001, 5, 6, 10, 0, 0));
  EXPECT_EQ(LastDisplay(), "2001-05-06 10:00:00");
  Added(Ts(2000, 1, 1));
  EXPECT_EQ(LastDisplay(), "2001-05-06 10:00:00");
  EXPECT_EQ(LastDisplay(kOther), kUntouched);
}

TEST_F(ImageOperations, AnEditByKeyWithTheTimesBitRefreshesTheLastDisplay) {
  tagTIMAGE image = Added(Ts(2001, 5, 6, 10, 0, 0));
  image.ts = Ts(2002, 5, 6, 10, 0, 0);
  EXPECT_EQ(Edit(&image, kTime), 0);
  EXPECT_EQ(LastDisplay(), "2002-05-06 10:00:00");
}

TEST_F(ImageOperations, AnEditWithoutTheTimesBitDoesNotRefreshTheLastDisplay) {
  tagTIMAGE image = Added(Ts(2001, 5, 6, 10, 0, 0));
  ForgetDisplays();
  EXPECT_EQ(Edit(&image, kAll & ~kTime), 0);
  EXPECT_EQ(LastDisplay(), kUntouched);
}

TEST_F(ImageOperations, AnEditByNaturalKeyDoesNotRefreshTheLastDisplay) {
  tagTIMAGE image = Added(Ts(2001, 5, 6, 10, 0, 0));
  ForgetDisplays();
  image.lImgID = 0;
  EXPECT_EQ(Edit(&image, kAll), 0);
  EXPECT_EQ(LastDisplay(), kUntouched);
}

TEST_F(ImageOperations, AnEditRefreshesThePatientOfTheRecordNotOfTheRow) {
  tagTIMAGE image = Added(Ts(2001, 5, 6, 10, 0, 0));
  ForgetDisplays();
  image.lPatID = kOther;
  EXPECT_EQ(Edit(&image, kTime), 0);  // the patient is not written
  EXPECT_EQ(LastDisplay(kPatient), kUntouched);
  EXPECT_EQ(LastDisplay(kOther), kEntry);
}

TEST_F(ImageOperations, ADeleteBringsTheLastDisplayToTheNewestImageLeft) {
  Added(Ts(2001, 5, 6, 10, 0, 0));
  const tagTIMAGE newest = Added(Ts(2002, 5, 6, 10, 0, 0));
  EXPECT_EQ(Delete(newest), 0);
  EXPECT_EQ(LastDisplay(), "2001-05-06 10:00:00");
}

TEST_F(ImageOperations, ADeleteOfTheLastImageBringsTheLastDisplayToTheEntry) {
  const tagTIMAGE image = Added(Ts(2001, 5, 6, 10, 0, 0));
  EXPECT_EQ(Delete(image), 0);
  EXPECT_EQ(LastDisplay(), kEntry);
}

TEST_F(ImageOperations, ADeleteByNaturalKeyRefreshesToo) {
  tagTIMAGE image = Added(Ts(2001, 5, 6, 10, 0, 0));
  image.lImgID = 0;
  EXPECT_EQ(Delete(image), 0);
  EXPECT_EQ(LastDisplay(), kEntry);
}

TEST_F(ImageOperations, ADeleteWithoutAPatientLeavesEveryPatientUnchanged) {
  tagTIMAGE image = Added(Ts(2001, 5, 6, 10, 0, 0));
  ForgetDisplays();
  image.lPatID = 0;
  EXPECT_EQ(Delete(image), 0);
  EXPECT_EQ(Images(), 0);
  EXPECT_EQ(LastDisplay(kPatient), kUntouched);
  EXPECT_EQ(LastDisplay(kOther), kUntouched);
}

TEST_F(ImageOperations, ARefreshThatFailsDoesNotFailTheImage) {
  TakeAway("TPatient");
  const tagTIMAGE image = Added(Ts(2001, 5, 6, 10, 0, 0));
  EXPECT_EQ(Delete(image), 0);
  EXPECT_EQ(Images(), 0);
}

TEST_F(ImageOperations, ARefreshOfAnUnknownPatientChangesNothing) {
  upcalls::RefreshLastDisplay(DB_GetDatabase(), nullptr, 4711);
  upcalls::RefreshLastDisplay(DB_GetDatabase(), nullptr, 0);
  EXPECT_EQ(LastDisplay(kPatient), kUntouched);
  EXPECT_EQ(LastDisplay(kOther), kUntouched);
  EXPECT_EQ(Raw().Count("TPatient"), 2);
}

// --- codes, counts, newest ---

TEST_F(ImageOperations, AMissingImageGives65) {
  tagTIMAGE image = Image(Ts(2001, 5, 6));
  SetText(image.szLoc, "9");
  EXPECT_EQ(CImgRec(nullptr, nullptr).GetRow(&image), 65);
  EXPECT_EQ(Edit(&image, kAll), 65);
  EXPECT_EQ(Delete(image), 65);
}

TEST_F(ImageOperations, ImagesAreCountedByPatientAndInAll) {
  InsertPast("2001-05-06 10:00:00");
  InsertPast("2001-05-07 10:00:00");
  InsertPast("2001-05-08 10:00:00", "1", kOther);
  LONG rows = -1;
  EXPECT_EQ(CImgRec(nullptr, nullptr).CountRows(kPatient, &rows), 0);
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(CImgRec(nullptr, nullptr).CountRows(4711, &rows), 0);
  EXPECT_EQ(rows, 0);
  EXPECT_EQ(CImgRec(nullptr, nullptr).CountRows(0, &rows), 0);
  EXPECT_EQ(rows, 3);
}

TEST_F(ImageOperations, TheNewestImageIsFoundByPatientAndInAll) {
  InsertPast("2001-05-07 10:00:00");
  InsertPast("2001-05-06 10:00:00");
  InsertPast("2001-05-08 10:00:00", "1", kOther);
  const LONG first = Raw().Number("SELECT MIN(tImgCulIntImgIDPk) FROM TImage");
  const LONG last = Raw().Number("SELECT MAX(tImgCulIntImgIDPk) FROM TImage");
  LONG key = 0;
  TIMESTAMP_STRUCT time{};
  EXPECT_EQ(upcalls::NewestImage(DB_GetDatabase(), nullptr, kPatient, &key, &time), 0);
  EXPECT_EQ(key, first);
  EXPECT_EQ(TimeText(time), "2001-05-07 10:00:00");
  EXPECT_EQ(upcalls::NewestImage(DB_GetDatabase(), nullptr, 0, &key, nullptr), 0);
  EXPECT_EQ(key, last);
  EXPECT_EQ(upcalls::NewestImage(DB_GetDatabase(), nullptr, 4711, &key, &time), 65);
  EXPECT_EQ(key, last);
}

}  // namespace
