// Dates without a time of day, in columns whose type has one or is no date at all: schemas differ.
#include <string>
#include <vector>

#include "tables/patient_raw_rec.h"
#include "tests/support/fixtures.h"

namespace {

class OddPatients : public CPatientRawRec {
 public:
  OddPatients() : CPatientRawRec(nullptr, nullptr) {}
  CString GetDefaultSQL() override { return m_strOwner + "TOddPatient"; }
};

class DayColumns : public support::ConnectedTest {
 protected:
  // Types of columns in which databases keep dates besides DATE.
  static std::vector<std::string> Types() {
    std::vector<std::string> types = {support::CurrentKind().Types().timestamp};
    if (support::CurrentKind().User().empty()) types.insert(types.end(), {"TEXT", "VARCHAR(30)", "DATETIME"});
    return types;
  }
  void MakeTable(const std::string& type) {
    std::string columns =
        "tPatCulIntPatIDPk " + support::CurrentKind().Types().key + ", tPatCulIntDrIDFk INTEGER";
    for (const char* text : {"tPatSExtPatID", "tPatSSrvID", "tPatSSlidaID", "tPatSSocID", "tPatSName",
                             "tPatSFirstname", "tPatSSex", "tPatSIDDisp", "tPatSResponsible", "tPatSAdd"}) {
      columns += std::string(", ") + text + " VARCHAR(200)";
    }
    columns += ", tPatFSelect INTEGER, tPatDBirthday " + type + ", tPatDEntry " + type + ", tPatTsLastDisp " +
               support::CurrentKind().Types().timestamp;
    Raw().Exec("CREATE TABLE TOddPatient (" + columns + ")");
  }
};

TEST_F(DayColumns, OfAnyTypeAreFoundByTheDayThatWasStored) {
  constexpr LONG kBirthday = 0x80;
  for (const std::string& type : Types()) {
    SCOPED_TRACE(type);
    MakeTable(type);
    CTPatientRaw patient;
    patient.m_strName = "Meyer";
    patient.m_strFirstname = "Ann";
    patient.m_dBirthday = support::Ts(1960, 2, 3, 4, 5, 6);
    OddPatients set;
    EXPECT_EQ(set.Insert(patient, -1), 0);
    EXPECT_NE(patient.m_lPatID, 0);
    EXPECT_EQ(support::TimeText(patient.m_dBirthday), "1960-02-03 00:00:00");

    patient.m_dBirthday = support::Ts(1961, 3, 4, 23, 59, 59);
    EXPECT_EQ(set.Edit(patient, kBirthday), 0);
    patient.m_lPatID = 0;
    patient.m_strIDDisp = "";
    EXPECT_EQ(set.OpenQuery(patient), 0);
    EXPECT_EQ(set.IsEOF(), 0);
    set.GetData(patient);
    EXPECT_EQ(support::TimeText(patient.m_dBirthday), "1961-03-04 00:00:00");
    set.Close();
    Raw().Exec("DROP TABLE TOddPatient");
  }
}

}  // namespace
