// The rules of single tables in direct access, patients aside.
#include "tests/flat/raw_tables.h"

namespace raw {
namespace {

using support::Ts;

class RawRules : public RawTest {
 protected:
  support::Value Column(const std::string& name, const std::string& table) {
    return Raw().Scalar("SELECT " + name + " FROM " + table);
  }
};

// --- makros: the time of the last change ---

class RawMakros : public RawRules {
 protected:
  void SetUp() override {
    RawRules::SetUp();
    m_makro = MakeRecord<Makros>(1);
    m_key = Add<Makros>(m_makro, kAllFields);
    m_makro.m_lMakID = m_key;
  }
  CTMakRaw Stored() {
    CTMakRaw makro;
    makro.m_lMakID = m_key;
    CMakRawRec set(nullptr, nullptr);
    EXPECT_EQ(set.OpenQuery(makro), 0);
    set.GetData(makro);
    return makro;
  }

  CTMakRaw m_makro;
  LONG m_key = 0;
};

TEST_F(RawMakros, AnEditWithoutTheBitStampsTheCurrentTime) {
  const TIMESTAMP_STRUCT before = support::Now();
  CMakRawRec set(nullptr, nullptr);
  ASSERT_EQ(set.Edit(m_makro, ~CMakRawRec::kTimeLast), 0);
  const TIMESTAMP_STRUCT stamped = Stored().m_tsLast;
  EXPECT_GE(support::SecondsBetween(before, stamped), 0);
  EXPECT_GE(support::SecondsBetween(stamped, support::Now()), 0);
  EXPECT_EQ(stamped.fraction, 0u);
}

TEST_F(RawMakros, AnEditWithTheBitStoresTheCallersTime) {
  m_makro.m_tsLast = Ts(2007, 8, 9, 10, 11, 12);
  CMakRawRec set(nullptr, nullptr);
  ASSERT_EQ(set.Edit(m_makro, CMakRawRec::kTimeLast), 0);
  EXPECT_EQ(support::TimeText(Stored().m_tsLast), "2007-08-09 10:11:12");
}

TEST_F(RawMakros, AnInsertStampsNothing) {
  EXPECT_EQ(support::TimeText(Stored().m_tsLast), support::TimeText(MakeRecord<Makros>(1).m_tsLast));
  const LONG key = Add<Makros>(MakeRecord<Makros>(2), ~CMakRawRec::kTimeLast);
  EXPECT_EQ(RowOf<Makros>(key)[3], std::nullopt);
}

TEST_F(RawMakros, AnOrdinalOf65535IsKept) {
  m_makro.m_lNo = 65535;
  CMakRawRec set(nullptr, nullptr);
  ASSERT_EQ(set.Edit(m_makro, CMakRawRec::kNo), 0);
  EXPECT_EQ(Stored().m_lNo, 65535);
}

// --- tests: two columns of file names on one member ---

class RawTests : public RawRules {
 protected:
  void SetUp() override {
    RawRules::SetUp();
    m_key = Add<Tests>(MakeRecord<Tests>(1));
    Raw().Exec("UPDATE TTest SET tTstSFile = 'file', tTstSArcFile = 'archived'");
  }
  CTTestRaw WithKey() const {
    CTTestRaw test;
    test.m_lTstID = m_key;
    return test;
  }

  LONG m_key = 0;
};

TEST_F(RawTests, TheArchivesFileNameIsReadIntoTheFileName) {
  CTestRawRec set;
  ASSERT_EQ(set.OpenQuery(WithKey()), 0);
  CTTestRaw test;
  set.GetData(test);
  EXPECT_STREQ(test.m_strFile, "archived");
  EXPECT_STREQ(test.m_strArcFile, "");
}

TEST_F(RawTests, TheFileNameIsWrittenToBothColumns) {
  CTTestRaw test = WithKey();
  test.m_strFile = "new";
  test.m_strArcFile = "ignored";
  CTestRawRec set;
  ASSERT_EQ(set.Edit(test, CTestRawRec::kFile | CTestRawRec::kArcFile), 0);
  EXPECT_EQ(Column("tTstSFile", "TTest"), "new");
  EXPECT_EQ(Column("tTstSArcFile", "TTest"), "new");
}

TEST_F(RawTests, TheArchivesFileNameAloneIsNotWritten) {
  CTTestRaw test = WithKey();
  test.m_strArcFile = "ignored";
  CTestRawRec set;
  ASSERT_EQ(set.Edit(test, CTestRawRec::kArcFile), 0);
  EXPECT_EQ(Column("tTstSFile", "TTest"), "file");
  EXPECT_EQ(Column("tTstSArcFile", "TTest"), "archived");
}

TEST_F(RawTests, AnEditOfAnotherFieldLeavesBothFileNamesAlone) {
  CTTestRaw test = WithKey();
  test.m_strPerson = "Ann";
  CTestRawRec set;
  ASSERT_EQ(set.Edit(test, CTestRawRec::kPerson), 0);
  EXPECT_EQ(Column("tTstSPerson", "TTest"), "Ann");
  EXPECT_EQ(Column("tTstSFile", "TTest"), "file");
  EXPECT_EQ(Column("tTstSArcFile", "TTest"), "archived");
}

TEST_F(RawTests, ATestFoundByItsTimeKeepsItsLocation) {
  CTTestRaw test = MakeRecord<Tests>(1);
  test.m_strLoc = "!";
  test.m_strPerson = "Ann";
  CTestRawRec set;
  ASSERT_EQ(set.Edit(test, kAllFields), 0);
  EXPECT_EQ(Column("tTstSPerson", "TTest"), "Ann");
  EXPECT_EQ(Column("tTstSLoc", "TTest"), Stored(MakeRecord<Tests>(1), Tests::kMembers[8]));
}

// --- groups: the column of a mask bit ---

TEST_F(RawRules, AGroupsMaskBitGivesAColumnAndTheTwoOfThePreviewEachOthers) {
  CGrpRawRec set(nullptr, nullptr);
  for (LONG bit = 0; bit <= 10; ++bit) EXPECT_EQ(set.GetIntFieldID(1 << bit), bit + 1);
  for (const LONG other : {0, 3, -1, 2048, 96, INT32_MIN}) EXPECT_EQ(set.GetIntFieldID(other), -1) << other;
  EXPECT_EQ(set.GetFieldName(CGrpRawRec::kName).CompareNoCase("tGrpSName"), 0);
  EXPECT_EQ(set.GetFieldName(CGrpRawRec::kPvwFile).CompareNoCase("tGrpSPvwLoc"), 0);
  EXPECT_EQ(set.GetFieldName(CGrpRawRec::kPvwLoc).CompareNoCase("tGrpSPvwFile"), 0);
  EXPECT_EQ(set.GetFieldSize(CGrpRawRec::kName), 255);
  EXPECT_EQ(set.GetFieldSize(CGrpRawRec::kTime), -1);
}

TEST_F(RawRules, OtherSetsKnowNoFields) {
  CDrRawRec set(nullptr, nullptr);
  LONG error = 0;
  EXPECT_TRUE(static_cast<CKyRecSet&>(set).GetFieldName(17, &error).IsEmpty());
  EXPECT_EQ(error, 1);
  EXPECT_EQ(set.GetFieldSize(1), -1);
}

// --- doctors ---

TEST_F(RawRules, ADoctorFoundByNameKeepsItsServerIdentifier) {
  CTDrRaw doctor = MakeRecord<Doctors>(1);
  const LONG key = Add<Doctors>(doctor);
  doctor.m_strSrvID.Empty();
  doctor.m_bAct = 0;
  CDrRawRec set(nullptr, nullptr);
  ASSERT_EQ(set.Edit(doctor, kAllFields), 0);
  const support::Row row = RowOf<Doctors>(key);
  EXPECT_EQ(row[1], Stored(MakeRecord<Doctors>(1), Doctors::kMembers[1]));
  EXPECT_EQ(row[3], "0");
}

// The protection of default rows belongs to the flat calls.
TEST_F(RawRules, TheDefaultDoctorCanBeEditedByDirectAccess) {
  CTDrRaw doctor;
  doctor.m_lDrID = 1;
  doctor.m_strAdd = "note";
  CDrRawRec set(nullptr, nullptr);
  EXPECT_EQ(set.Edit(doctor, CDrRawRec::kAdd), 0);
  EXPECT_EQ(RowOf<Doctors>(1)[4], "note");
}

// --- images ---

TEST_F(RawRules, ImagesAtOtherLocationsAreNotFoundByTheirTime) {
  CTImageRaw image = MakeRecord<Images>(1);
  image.m_strLoc = "8";
  image.m_lRefImgID = 0;
  CImgRawRec set(nullptr, nullptr);
  EXPECT_EQ(set.Insert(image, kAllFields), 1);
  EXPECT_EQ(CountRows<Images>(), 1);
}

TEST_F(RawRules, TheFileNameTellsImagesOfOneTimeApart) {
  CTImageRaw first = MakeRecord<Images>(1);
  CTImageRaw second = MakeRecord<Images>(1);
  second.m_strFile = "second";
  CImgRawRec set(nullptr, nullptr);
  ASSERT_EQ(set.Insert(first, kAllFields), 0);
  ASSERT_EQ(set.Insert(second, kAllFields), 0);
  EXPECT_NE(first.m_lImgID, second.m_lImgID);
}

TEST_F(RawRules, AFileNameWithAQuoteIsAnErrorOfTheDatabase) {
  CTImageRaw image = MakeRecord<Images>(1);
  image.m_strFile = "it's";
  CImgRawRec set(nullptr, nullptr);
  EXPECT_EQ(set.Edit(image, kAllFields), 6);
}

}  // namespace
}  // namespace raw
