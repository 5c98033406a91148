// The layout of the packed records, field by field, against widths written down here.
#include "tables/records.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "platform/text.h"

namespace {

struct Field {
  const char* name;
  std::size_t offset;
  std::size_t size;
  std::size_t width;  // what the size must be
};

#define FIELD(record, field, width) \
  { #field, offsetof(record, field), sizeof(record::field), width }

constexpr std::size_t kLong = 4;
constexpr std::size_t kWord = 2;
constexpr std::size_t kByte = 1;
constexpr std::size_t kTime = 16;

// Each field begins where the one before it ends, and the last one ends the record.
void ExpectPacked(const std::vector<Field>& fields, std::size_t record_size, std::size_t expected_size) {
  std::size_t offset = 0;
  for (const Field& field : fields) {
    EXPECT_EQ(field.offset, offset) << field.name;
    EXPECT_EQ(field.size, field.width) << field.name;
    offset += field.width;
  }
  EXPECT_EQ(offset, expected_size);
  EXPECT_EQ(record_size, expected_size);
}

TEST(PlainRecords, ConnectionParametersArePackedInto363Bytes) {
  using R = tagDBCONNECT;
  ExpectPacked({FIELD(R, szDSN, 33), FIELD(R, szUID, 33), FIELD(R, szPWD, 33), FIELD(R, szOwner, 260),
                FIELD(R, bExclusive, kLong)},
               sizeof(R), 363);
}

TEST(PlainRecords, DatabaseInformationIsPackedInto81Bytes) {
  using R = tagDBINFO;
  ExpectPacked({FIELD(R, szDSN, 33), FIELD(R, szDatabase, 33), FIELD(R, abReserved, 15)}, sizeof(R), 81);
}

TEST(PlainRecords, ConfigurationIsPackedInto166Bytes) {
  using R = tagTCONFIG;
  ExpectPacked({FIELD(R, lCfgID, kLong), FIELD(R, lDrID, kLong), FIELD(R, lStatID, kLong),
                FIELD(R, szKey, 25), FIELD(R, szSet, 129)},
               sizeof(R), 166);
}

TEST(PlainRecords, DiagnosisIsPackedInto334Bytes) {
  using R = tagTDIAGNOSIS;
  ExpectPacked({FIELD(R, lDiagID, kLong), FIELD(R, lImgID, kLong), FIELD(R, lDrID, kLong),
                FIELD(R, szRegio, 17), FIELD(R, ts, kTime), FIELD(R, szCode, 33), FIELD(R, szText, 256)},
               sizeof(R), 334);
}

TEST(PlainRecords, DoctorIsPackedInto102BytesWithTheNameFirst) {
  using R = tagTDOCTOR;
  ExpectPacked({FIELD(R, lDrID, kLong), FIELD(R, szName, 33), FIELD(R, szSrvID, 65)}, sizeof(R), 102);
}

TEST(PlainRecords, GroupIsPackedInto159BytesWithThePreviewFileFirst) {
  using R = tagTGROUP;
  ExpectPacked({FIELD(R, lGrpID, kLong), FIELD(R, lPatID, kLong), FIELD(R, szName, 33), FIELD(R, ts, kTime),
                FIELD(R, szLoc, 2), FIELD(R, szFile, 48), FIELD(R, wMakNo, kWord), FIELD(R, szPvwFile, 48),
                FIELD(R, szPvwLoc, 2)},
               sizeof(R), 159);
}

TEST(PlainRecords, ImageIsPackedInto378Bytes) {
  using R = tagTIMAGE;
  ExpectPacked({FIELD(R, lImgID, kLong), FIELD(R, lPatID, kLong),    FIELD(R, lUnitID, kLong),
                FIELD(R, lDrID, kLong),  FIELD(R, szType, 5),        FIELD(R, szRegio, 17),
                FIELD(R, szName, 33),    FIELD(R, ts, kTime),        FIELD(R, szPreg, 2),
                FIELD(R, szOrdType, 5),  FIELD(R, szOrdRegio, 17),   FIELD(R, szOrdReason, 65),
                FIELD(R, szArcType, 5),  FIELD(R, szArcLoc, 2),      FIELD(R, szArcFile, 48),
                FIELD(R, szArcVol, 11),  FIELD(R, dArcOut, kTime),   FIELD(R, dArcIn, kTime),
                FIELD(R, szPvwLoc, 2),   FIELD(R, szPvwFile, 48),    FIELD(R, szLoc, 2),
                FIELD(R, szFile, 48),    FIELD(R, lMakIDLast, kLong)},
               sizeof(R), 378);
}

TEST(PlainRecords, MakroIsPackedInto109BytesWithTheFileBeforeTheLocation) {
  using R = tagTMAKRO;
  ExpectPacked({FIELD(R, lMakID, kLong), FIELD(R, lImgID, kLong), FIELD(R, szName, 33),
                FIELD(R, tsLast, kTime), FIELD(R, szFile, 48), FIELD(R, szLoc, 2), FIELD(R, wNo, kWord)},
               sizeof(R), 109);
}

TEST(PlainRecords, PatientIsPackedInto297Bytes) {
  using R = tagTPATIENT;
  ExpectPacked(
      {FIELD(R, lPatID, kLong), FIELD(R, lDrID, kLong), FIELD(R, szExtPatID, 33), FIELD(R, szSrvID, 65),
       FIELD(R, szSlidaID, 21), FIELD(R, szSocID, 17), FIELD(R, szName, 33), FIELD(R, szFirstname, 33),
       FIELD(R, dBirthday, kTime), FIELD(R, szSex, 2), FIELD(R, lSelect, kLong), FIELD(R, dEntry, kTime),
       FIELD(R, szIDDisp, 33), FIELD(R, tsLastDisp, kTime)},
      sizeof(R), 297);
}

TEST(PlainRecords, JoinedPatientIsThePatientWithTheDoctorsNameBehindIt) {
  using R = tagTPATIENTEX;
  ExpectPacked(
      {FIELD(R, lPatID, kLong), FIELD(R, lDrID, kLong), FIELD(R, szExtPatID, 33), FIELD(R, szSrvID, 65),
       FIELD(R, szSlidaID, 21), FIELD(R, szSocID, 17), FIELD(R, szName, 33), FIELD(R, szFirstname, 33),
       FIELD(R, dBirthday, kTime), FIELD(R, szSex, 2), FIELD(R, lSelect, kLong), FIELD(R, dEntry, kTime),
       FIELD(R, szIDDisp, 33), FIELD(R, tsLastDisp, kTime), FIELD(R, szDrName, 33)},
      sizeof(R), 330);
  EXPECT_EQ(offsetof(R, szDrName), sizeof(tagTPATIENT));
}

TEST(PlainRecords, StationIsPackedInto21Bytes) {
  using R = tagTSTATION;
  ExpectPacked({FIELD(R, lStatID, kLong), FIELD(R, szName, 17)}, sizeof(R), 21);
}

TEST(PlainRecords, TestIsPackedInto4356BytesWithThePersonAtByte8) {
  using R = tagTTEST;
  ExpectPacked(
      {FIELD(R, lTstID, kLong), FIELD(R, lUnitID, kLong), FIELD(R, szPerson, 33), FIELD(R, szType, 5),
       FIELD(R, szRegio, 17), FIELD(R, szName, 33), FIELD(R, ts, kTime), FIELD(R, szResult, 4096),
       FIELD(R, szArcType, 5), FIELD(R, szArcLoc, 2), FIELD(R, szArcFile, 48), FIELD(R, szArcVol, 11),
       FIELD(R, dArcOut, kTime), FIELD(R, dArcIn, kTime), FIELD(R, szLoc, 2), FIELD(R, szFile, 48)},
      sizeof(R), 4356);
  EXPECT_EQ(offsetof(R, szPerson), 8u);
}

TEST(PlainRecords, UnitIsPackedInto123Bytes) {
  using R = tagTUNIT;
  ExpectPacked(
      {FIELD(R, lUnitID, kLong), FIELD(R, szType, 3), FIELD(R, szName, 23), FIELD(R, dAccept, kTime),
       FIELD(R, szCtrlUnitSNo, 11), FIELD(R, szSensSNo, 11), FIELD(R, szGenSNo, 11), FIELD(R, szTubeSNo, 11),
       FIELD(R, szCtrlElemSNo, 11), FIELD(R, szConeSNo, 11), FIELD(R, szTestBodySNo, 11)},
      sizeof(R), 123);
}

TEST(PlainRecords, CompactRecordHas114BytesAndItsKeyAtByte87) {
  using R = tagPATIENTCOMPACT;
  ExpectPacked(
      {FIELD(R, szName, 33), FIELD(R, szFirstname, 33), FIELD(R, wYear, kWord), FIELD(R, byMonth, kByte),
       FIELD(R, byDay, kByte), FIELD(R, wDispYear, kWord), FIELD(R, byDispMonth, kByte),
       FIELD(R, byDispDay, kByte), FIELD(R, szDrName, 13), FIELD(R, dwID, kLong), FIELD(R, szIdent, 21),
       FIELD(R, bySex, kByte), FIELD(R, byReserved, kByte)},
      sizeof(R), 114);
  EXPECT_EQ(offsetof(R, dwID), 87u);
  EXPECT_EQ(offsetof(R, szIdent), 91u);
}

// Fills the name of a doctor, 33 bytes wide, with 'x' behind the copy to show what was written.
std::string NameFieldAfterCopying(const std::string& text) {
  tagTDOCTOR doctor;
  std::memset(&doctor, 'x', sizeof doctor);
  text::BoundedCopy(doctor.szName, sizeof doctor.szName, text.data(), text.size());
  EXPECT_EQ(doctor.szSrvID[0], 'x') << "wrote beyond the field";
  return {doctor.szName, sizeof doctor.szName};
}

TEST(TextFields, TextOf40BytesKeepsItsFirst32BytesAndAZeroByte) {
  const std::string text = "0123456789012345678901234567890123456789";
  EXPECT_EQ(NameFieldAfterCopying(text), text.substr(0, 32) + std::string(1, '\0'));
}

TEST(TextFields, TextOf10BytesKeepsAllAndAZeroByte) {
  EXPECT_EQ(NameFieldAfterCopying("0123456789").substr(0, 11), std::string("0123456789\0", 11));
}

TEST(TextFields, EmptyTextGivesASingleZeroByte) {
  EXPECT_EQ(NameFieldAfterCopying("").substr(0, 2), std::string("\0x", 2));
}

TEST(TextFields, CutNeverSplitsACharacter) {
  const std::string text =
      std::string(31, 'a') + "\xC3\xBC" + "b";  // the two bytes of "ü" are bytes 32 and 33
  EXPECT_EQ(NameFieldAfterCopying(text).substr(0, 32), std::string(31, 'a') + std::string(1, '\0'));
}

}  // namespace
