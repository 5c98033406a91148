// The filters that the direct-access sets make of a record, to the blank, and the mask bits they clear.
#include "tests/flat/raw_tables.h"

namespace raw {
namespace {

using support::Ts;

// What a caller's own set, derived from a direct-access set, sees of the selection.
template <class Set>
class Probe : public Set {
 public:
  using Set::Set;

  // The filter and the bits cleared from a full mask, as "filter -bits"; "none" when no row is named.
  template <class Record>
  std::string Select(const Record& record) {
    this->m_strFilter = "untouched";
    this->m_dwFieldMask = 0xFFFFFFFF;
    if (this->SetSelectFilter(record) == 0) return this->m_strFilter == "untouched" ? "none" : "spoilt";
    CString text;
    text.Format("%s-%X", this->m_strFilter, ~this->m_dwFieldMask);
    return text.GetString();
  }
};

class RawSelection : public RawTest {
 protected:
  template <class Set, class Record>
  std::string Selected(const Record& record) {
    if constexpr (std::is_default_constructible_v<Set>) {
      return Probe<Set>().Select(record);
    } else {
      return Probe<Set>(nullptr, nullptr).Select(record);
    }
  }
};

TEST_F(RawSelection, ConfigsByKeyElseByDoctorStationAndName) {
  CTCfgRaw entry;
  const auto selected = [&] { return Selected<CCfgRawRec>(entry); };
  EXPECT_EQ(selected(), "none");
  entry.m_lDrID = 2;
  entry.m_lStatID = 3;
  EXPECT_EQ(selected(), "none");
  entry.m_strKey = "it's";
  EXPECT_EQ(selected(),
            " (( tCfgCulIntDrIDFk = 2 ) AND ( tCfgCulIntStatIDFk = 3 ) AND ( tCfgSKey = 'it''s' )) -7");
  entry.m_lStatID = 0;
  EXPECT_EQ(selected(), "none");
  entry.m_lStatID = 3;
  entry.m_lDrID = 0;
  EXPECT_EQ(selected(), "none");
  entry.m_lCfgID = -9;
  EXPECT_EQ(selected(), " ( tCfgCulIntCfgIDPk = -9 ) -0");
}

TEST_F(RawSelection, DiagnosesByKeyElseByImage) {
  CTDiagRaw diagnosis;
  const auto selected = [&] { return Selected<CDiagRawRec>(diagnosis); };
  EXPECT_EQ(selected(), "none");
  diagnosis.m_lImgID = 5;
  EXPECT_EQ(selected(), " ( tDiagCulIntImgIDFk = 5 ) -1");
  diagnosis.m_lDiagID = 6;
  EXPECT_EQ(selected(), " ( tDiagCulIntDiagIDPk = 6 ) -0");
}

TEST_F(RawSelection, DoctorsByKeyElseByServerIdentifierElseByName) {
  CTDrRaw doctor;
  const auto selected = [&] { return Selected<CDrRawRec>(doctor); };
  EXPECT_EQ(selected(), "none");
  doctor.m_strName = "O'Neil";
  EXPECT_EQ(selected(), " (tDrSName='O''Neil') -3");
  doctor.m_strSrvID = "S1";
  EXPECT_EQ(selected(), " (tDrSSrvID='S1') -2");
  doctor.m_lDrID = 7;
  EXPECT_EQ(selected(), " (tDrCulIntDrIDPk=7) -0");
}

TEST_F(RawSelection, GroupsByKeyElseByPatientAndWhateverElseIsGiven) {
  CTGrpRaw group;
  const auto selected = [&] { return Selected<CGrpRawRec>(group); };
  group.m_strName = "G";
  group.m_ts = Ts(2001, 5, 6, 10);
  EXPECT_EQ(selected(), "none");
  group = CTGrpRaw();
  group.m_lPatID = 7;
  EXPECT_EQ(selected(), " ( tGrpCulIntPatIDFK = 7 ) -1");
  group.m_strName = "it's";
  EXPECT_EQ(selected(), " ( tGrpCulIntPatIDFK = 7 )  AND ( tGrpSName = 'it''s' ) -3");
  group.m_ts = Ts(2001, 5, 6, 10);
  group.m_tsLast = Ts(2002, 6, 7, 11, 12, 13);
  EXPECT_EQ(selected(),
            " ( tGrpCulIntPatIDFK = 7 )  AND ( tGrpSName = 'it''s' )  AND ( tGrpTS = {ts '2001-05-06 "
            "10:00:00'} )  AND ( tGrpTsLast = {ts '2002-06-07 11:12:13'} ) -107");
  group.m_strName.Empty();
  group.m_ts.month = 0;
  EXPECT_EQ(selected(), " ( tGrpCulIntPatIDFK = 7 )  AND ( tGrpTsLast = {ts '2002-06-07 11:12:13'} ) -101");
  group.m_lGrpID = 8;
  EXPECT_EQ(selected(), " ( tGrpCulIntGrpIDPk = 8 ) -0");
}

TEST_F(RawSelection, ImagesByTimeOnlyAtLocation9AndWithTheRawFileName) {
  CTImageRaw image;
  const auto selected = [&] { return Selected<CImgRawRec>(image); };
  image.m_lPatID = 7;
  image.m_ts = Ts(2001, 5, 6, 10);
  image.m_strLoc = "8";
  EXPECT_EQ(selected(), "none");
  image.m_strLoc = "9";
  EXPECT_EQ(selected(),
            " (tImgCulIntPatIDFK=7) AND (tImgTS={ts '2001-05-06 10:00:00'}) AND (tImgSLoc='9')-80041");
  image.m_strFile = "a'b%s";
  EXPECT_EQ(selected(),
            " (tImgCulIntPatIDFK=7) AND (tImgTS={ts '2001-05-06 10:00:00'}) AND (tImgSLoc='9') AND "
            "(tImgSFile='a'b%s')-180041");
  image.m_ts.day = 0;
  EXPECT_EQ(selected(), "none");
  image.m_lImgID = 3;
  EXPECT_EQ(selected(), " (tImgCulIntImgIDPk=3) -0");
}

TEST_F(RawSelection, ImagesByReferenceWhenNotByTime) {
  CTImageRaw image;
  const auto selected = [&] { return Selected<CImgRawRec>(image); };
  image.m_lRefImgID = 11;
  EXPECT_EQ(selected(), " (tImgIntRefImgID=11)-800000");
  image.m_lPatID = 7;
  image.m_strLoc = "9";
  EXPECT_EQ(selected(), " (tImgCulIntPatIDFK=7) AND (tImgIntRefImgID=11)-800001");
  image.m_ts = Ts(2001, 5, 6, 10);
  EXPECT_EQ(selected(),
            " (tImgCulIntPatIDFK=7) AND (tImgTS={ts '2001-05-06 10:00:00'}) AND (tImgSLoc='9')-80041");
}

TEST_F(RawSelection, MakrosByKeyElseByImageAndOrdinal) {
  CTMakRaw makro;
  const auto selected = [&] { return Selected<CMakRawRec>(makro); };
  makro.m_lNo = 4;
  EXPECT_EQ(selected(), "none");
  makro.m_lImgID = 5;
  EXPECT_EQ(selected(), " ((tMakCulIntImgIDFk=5) AND (tMakUwNo=4))-21");
  makro.m_lNo = 0;
  EXPECT_EQ(selected(), "none");
  makro.m_lMakID = 6;
  EXPECT_EQ(selected(), " (tMakCulIntMakIDPk=6) -0");
}

TEST_F(RawSelection, PatientsByKeyElseBySlidaElseByServerIdentifier) {
  CTPatientRaw patient;
  const auto selected = [&] { return Selected<CPatientRawRec>(patient); };
  EXPECT_EQ(selected(), "none");
  patient.m_strExtPatID = "E";
  patient.m_strSocID = "S";
  EXPECT_EQ(selected(), "none");
  patient.m_strSrvID = "it's";
  EXPECT_EQ(selected(), " (tPatSSrvID='it''s') -C");
  patient.m_strSlidaID = "SL";
  EXPECT_EQ(selected(), " (tPatSSlidaID='SL') -8");
  patient.m_lPatID = 9;
  EXPECT_EQ(selected(), " (tPatCulIntPatIDPk=9) -0");
}

TEST_F(RawSelection, PatientsByNamesAndBirthdayAndTheDoctorAndDisplayIdentifierGivenWithThem) {
  CTPatientRaw patient;
  const auto selected = [&] { return Selected<CPatientRawRec>(patient); };
  patient.m_strName = "O'Neil";
  patient.m_strFirstname = "Ann";
  EXPECT_EQ(selected(), "none");
  patient.m_dBirthday = Ts(1960, 2, 3, 4, 5, 6);
  const std::string person =
      " ((tPatSName='O''Neil') AND (tPatSFirstname='Ann') AND (tPatDBirthday={d '1960-02-03'})";
  EXPECT_EQ(selected(), person + ") -EC");
  patient.m_lDrID = 5;
  EXPECT_EQ(selected(), person + " AND (tPatCulIntDrIDFk = 5)) -ED");
  patient.m_strIDDisp = "D'1";
  EXPECT_EQ(selected(), person + " AND (tPatCulIntDrIDFk = 5) AND (tPatSIDDisp = 'D''1')) -8ED");
  patient.m_lDrID = 0;
  EXPECT_EQ(selected(), person + " AND (tPatSIDDisp = 'D''1')) -8EC");
  patient.m_strFirstname.Empty();
  EXPECT_EQ(selected(), "none");
}

TEST_F(RawSelection, StationsAndUnitsByKeyElseByName) {
  CTStatRaw station;
  CTUnitRaw unit;
  EXPECT_EQ(Selected<CStatRawRec>(station), "none");
  EXPECT_EQ(Selected<CUnitRawRec>(unit), "none");
  station.m_strName = unit.m_strName = "it's";
  EXPECT_EQ(Selected<CStatRawRec>(station), " (tStatSName='it''s') -1");
  EXPECT_EQ(Selected<CUnitRawRec>(unit), " (tUnitSName='it''s') -2");
  station.m_lStatID = unit.m_lUnitID = 4;
  EXPECT_EQ(Selected<CStatRawRec>(station), " (tStatCulIntStatIDPk=4) -0");
  EXPECT_EQ(Selected<CUnitRawRec>(unit), " (tUnitCulIntUnitIDPk=4) -0");
}

TEST_F(RawSelection, TestsByKeyElseByUnitAndTime) {
  CTTestRaw test;
  const auto selected = [&] { return Selected<CTestRawRec>(test); };
  test.m_ts = Ts(2001, 5, 6, 10);
  EXPECT_EQ(selected(), "none");
  test.m_lUnitID = 3;
  EXPECT_EQ(selected(), " (tTstCulIntUnitIDFk=3) AND (tTstTs={ts '2001-05-06 10:00:00'} ) -2021");
  test.m_ts.year = 0;
  EXPECT_EQ(selected(), "none");
  test.m_lTstID = 4;
  EXPECT_EQ(selected(), " (tTstCulIntTstIDPk=4) -0");
}

class OldSchema : public support::PracticeTest {};

// Harmless, since every operation asks for the version before it selects.
TEST_F(OldSchema, ThePatientsSelectionGives56WithoutAFilter) {
  Raw().Exec("UPDATE TConfig SET tCfgSSet = '3.9' WHERE tCfgSKey = 'DBVersion'");
  ASSERT_EQ(Connect(), 0);
  struct Patients : CPatientRawRec {
    using CPatientRawRec::CPatientRawRec;
    using CPatientRawRec::Refresh;
    using CPatientRawRec::SetSelectFilter;
  };
  Patients set(nullptr, nullptr);
  CTPatientRaw patient;
  patient.m_lPatID = 1;
  EXPECT_EQ(set.SetSelectFilter(patient), 56);
  EXPECT_TRUE(set.m_strFilter.IsEmpty());
  EXPECT_EQ(set.Refresh(), 56);
}

}  // namespace
}  // namespace raw
