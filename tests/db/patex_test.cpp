// The joined view: what it selects, its field ids, its counts and its records.
#include <cstring>

#include "tests/db/joined_view.h"

namespace {

using support::SetText;
using support::Text;
using support::Val;

std::string Show(const CString& text) { return std::string(text.View()); }

constexpr const char* kJoin = "(td.tDrCulIntDrIDPk=tp.tPatCulIntDrIDFk)";

class PatEx : public JoinedView {};
INSTANTIATE_VIEW_WITH_AND_WITHOUT_OWNER(PatEx);

TEST_P(PatEx, ItJoinsTheTwoTablesUnderTheOwnerAndSelectsItsColumnsInOrder) {
  CPatExRec view(nullptr, nullptr);
  const std::string owner = m_practice.Owner();
  EXPECT_EQ(Show(view.GetDefaultSQL()), owner + "TDoctor td, " + owner + "TPatient tp");
  EXPECT_EQ(view.GetDefaultConnect(), "ODBC;");
  OpenSorted(view, 0);
  EXPECT_EQ(Show(view.GetSQL()),
            "SELECT tp.tPatCulIntPatIDPk,tp.tPatCulIntDrIDFk,td.tDrSName,tp.tPatDBirthday,tp.tPatFSelect,"
            "tp.tPatSExtPatID,tp.tPatSFirstname,tp.tPatSName,tp.tPatSSex,tp.tPatSSocID,tp.tPatSSrvID,"
            "tp.tPatSSlidaID,tp.tPatDEntry,tp.tPatSIDDisp,tp.tPatTsLastDisp FROM " +
                owner + "TDoctor td, " + owner + "TPatient tp WHERE " + kJoin);
}

TEST_P(PatEx, ItIsJoinedBeforeAnyFilterIsSet) {
  CPatExRec view(nullptr, nullptr);
  EXPECT_EQ(Show(view.m_strBaseFilter), "(td.tDrCulIntDrIDPk=tp.tPatCulIntDrIDFk%s%s)");
  EXPECT_EQ(Show(view.m_strFilter), kJoin);
}

TEST_P(PatEx, PatientsWithoutADoctorAreNotPartOfIt) {
  Add(1, 10, "Adam");
  Add(2, 99, "Berg");
  Add(3, 0, "Cohn");
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 0);
  LONG count = 0;
  EXPECT_EQ(view.GetMaxPos(&count), 0);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(view.m_lID, 1);
  EXPECT_EQ(view.m_strDrName, "Dr. Ten");
}

TEST_P(PatEx, FieldIdsAreThePatientsAndTwoOfItsOwn) {
  CPatExRec view(nullptr, nullptr);
  CPatRec patients(nullptr, nullptr);
  for (LONG id = -1; id < 200; ++id) {
    LONG error = 55;
    LONG patients_error = 55;
    const CString expression = view.GetFieldName(id, &error);
    CString expected = patients.GetFieldName(id, &patients_error);
    if (id == 20) expected = "td.tDrSName";
    if (id == 35) expected = "tp.tPatTsLastDisp";
    EXPECT_EQ(expression, expected) << id;
    EXPECT_EQ(error, id == 20 || id == 35 ? 0 : patients_error) << id;
    EXPECT_EQ(view.GetFieldName(id, nullptr), expected);
  }
}

TEST_P(PatEx, AFilterIsPutIntoTheJoinAndQueried) {
  Add(1, 10, "Adam");
  Add(2, 20, "Berg");
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 0);
  char doctor[] = "Dr. O'T%";
  EXPECT_EQ(view.SetFilter(20, 16, doctor, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(Show(view.m_strFilter),
            "(td.tDrCulIntDrIDPk=tp.tPatCulIntDrIDFk AND ((td.tDrSName LIKE 'Dr. O''T%')) )");
  EXPECT_EQ(view.m_lID, 2);
  LONG count = 0;
  EXPECT_EQ(view.GetMaxPos(&count), 0);
  EXPECT_EQ(count, 1);
}

TEST_P(PatEx, TheTimeOfTheLastDisplayCanBeFilteredOn) {
  Add(1, 10, "Adam");
  Add(2, 20, "Berg");
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 0);
  TIMESTAMP_STRUCT time = support::Ts(2001, 1, 3, 10, 0, 0);
  EXPECT_EQ(view.SetFilter(35, 0, &time, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(view.m_lID, 2);
}

TEST_P(PatEx, ARefusedFilterLeavesTheJoinAloneAndIsNotQueried) {
  Add(1, 10, "Adam");
  Add(2, 20, "Berg");
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 0);
  char name[] = "Adam";
  EXPECT_EQ(view.SetFilter(17, 0, name, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(view.SetFilter(18, 0, name, nullptr, nullptr, nullptr), 1);
  EXPECT_EQ(Show(view.m_strFilter), kJoin);
  EXPECT_EQ(view.MoveToPos(2), 0) << "still the rows of the old filter";
}

TEST_P(PatEx, GetNumCountsAllPatientsWithADoctorWhateverTheFilter) {
  Add(1, 10, "Adam");
  Add(2, 20, "Berg");
  Add(3, 99, "Cohn");
  CPatExRec view(nullptr, nullptr);
  LONG count = 9;
  EXPECT_EQ(view.GetNum(&count), 0);
  EXPECT_EQ(count, 2);
  OpenSorted(view, 17);
  char name[] = "Berg";
  EXPECT_EQ(view.SetFilter(17, 0, name, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(view.GetNum(&count), 0);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(view.GetIndexPos(), 1);
  EXPECT_EQ(view.m_lID, 2);
  EXPECT_EQ(view.GetNum(nullptr), 0);
}

TEST_P(PatEx, ARowIsReadWithTheDoctorsNameAndWithoutIt) {
  Add(7, 20, "Berg", "Bea");
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 0);
  tagTPATIENTEX joined;
  std::memset(&joined, 0x7E, sizeof joined);
  LONG position = 1;
  EXPECT_EQ(view.GetRecByPos(&joined, &position), 0);
  EXPECT_EQ(Val(joined.lPatID), 7);
  EXPECT_EQ(Val(joined.lDrID), 20);
  EXPECT_EQ(Text(joined.szName), "Berg");
  EXPECT_EQ(Text(joined.szFirstname), "Bea");
  EXPECT_EQ(Text(joined.szExtPatID), "x7");
  EXPECT_EQ(Text(joined.szDrName), "Dr. O'Twenty");
  tagTPATIENT patient;
  std::memset(&patient, 0x7E, sizeof patient);
  EXPECT_EQ(view.GetRecByPos(&patient, &position), 0);
  EXPECT_EQ(std::memcmp(&patient, &joined, sizeof patient), 0)
      << "the joined record begins with the patient's";
  position = 2;
  EXPECT_EQ(view.GetRecByPos(&joined, &position), 64);
  EXPECT_EQ(view.GetRecByPos(static_cast<tagTPATIENTEX*>(nullptr), &position), 1);
}

TEST_P(PatEx, ItCannotBeWrittenTo) {
  Add(1, 10, "Adam");
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 0);
  EXPECT_EQ(view.CanUpdate(), 0);
  EXPECT_EQ(view.DeleteByPos(1), 8);
  EXPECT_EQ(Raw().Count("TPatient"), 1);
}

class JoinedRow : public JoinedView {};
INSTANTIATE_VIEW_WITH_AND_WITHOUT_OWNER(JoinedRow);

TEST_P(JoinedRow, IsReadByKeyAndByNaturalKey) {
  Add(1, 10, "Adam");
  Add(2, 20, "Berg", "Bea", "'1961-02-03'");
  CPatExRec view(nullptr, nullptr);
  tagTPATIENTEX record{};
  record.lPatID = 2;
  EXPECT_EQ(view.GetJoinedRow(&record), 0);
  EXPECT_EQ(Text(record.szName), "Berg");
  EXPECT_EQ(Text(record.szDrName), "Dr. O'Twenty");
  tagTPATIENTEX named{};
  SetText(named.szName, "Berg");
  SetText(named.szFirstname, "Bea");
  const TIMESTAMP_STRUCT birthday = support::Ts(1961, 2, 3);
  std::memcpy(&named.dBirthday, &birthday, sizeof birthday);
  EXPECT_EQ(view.GetJoinedRow(&named), 0);
  EXPECT_EQ(Val(named.lPatID), 2);
}

TEST_P(JoinedRow, WithoutAKeyGivesOne) {
  CPatExRec view(nullptr, nullptr);
  tagTPATIENTEX record{};
  EXPECT_EQ(view.GetJoinedRow(&record), 1);
  EXPECT_EQ(view.GetJoinedRow(nullptr), 1);
}

TEST_P(JoinedRow, OfAnUnknownPatientOrDoctorGives21AndLeavesTheRecordAlone) {
  Add(3, 99, "Cohn");
  CPatExRec view(nullptr, nullptr);
  for (const LONG key : {3, 4}) {
    tagTPATIENTEX record{};
    record.lPatID = key;
    EXPECT_EQ(view.GetJoinedRow(&record), 21);
    tagTPATIENTEX expected{};
    expected.lPatID = key;
    EXPECT_EQ(std::memcmp(&record, &expected, sizeof record), 0);
  }
}

TEST_P(JoinedRow, OfSeveralMatchesGives52) {
  Add(1, 10, "Adam");
  Add(2, 10, "Adam");
  CPatExRec view(nullptr, nullptr);
  tagTPATIENTEX record{};
  SetText(record.szName, "Adam");
  SetText(record.szFirstname, "F");
  const TIMESTAMP_STRUCT birthday = support::Ts(1960, 1, 1);
  std::memcpy(&record.dBirthday, &birthday, sizeof birthday);
  EXPECT_EQ(view.GetJoinedRow(&record), 52);
}

TEST_P(JoinedRow, IsReadWithoutTouchingTheBrowsedRows) {
  Add(1, 10, "Adam");
  Add(2, 20, "Berg");
  CPatExRec view(nullptr, nullptr);
  OpenSorted(view, 17);
  view.MoveToPos(2);
  tagTPATIENTEX record{};
  record.lPatID = 1;
  EXPECT_EQ(view.GetJoinedRow(&record), 0);
  EXPECT_EQ(view.GetIndexPos(), 2);
  EXPECT_EQ(view.m_lID, 2);
  EXPECT_EQ(Show(view.m_strFilter), kJoin);
}

}  // namespace
