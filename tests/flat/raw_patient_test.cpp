// What direct access derives for patients: date of entry, last display, display identifier.
#include "tests/flat/raw_tables.h"

namespace raw {
namespace {

using support::Ts;

class RawPatients : public RawTest {
 protected:
  // A patient without identifiers.
  static CTPatientRaw Person() {
    CTPatientRaw patient;
    patient.m_strName = "Meyer";
    patient.m_strFirstname = "Ann";
    patient.m_dBirthday = Ts(1960, 2, 3);
    return patient;
  }
  static CTPatientRaw PersonWithSlida() {
    CTPatientRaw patient = Person();
    patient.m_strSlidaID = "SL1";
    return patient;
  }
  WORD Insert(CTPatientRaw& patient, LONG mask = kAllFields) {
    CPatientRawRec set(nullptr, nullptr);
    return set.Insert(patient, mask);
  }
  WORD Edit(CTPatientRaw patient, LONG key, LONG mask) {
    patient.m_lPatID = key;
    CPatientRawRec set(nullptr, nullptr);
    return set.Edit(patient, mask);
  }
  support::Value Column(const std::string& name, LONG key) {
    return Raw().Scalar("SELECT " + name + " FROM TPatient WHERE tPatCulIntPatIDPk = " + std::to_string(key));
  }
  void AddImage(LONG patient, const std::string& time) {
    Raw().Exec("INSERT INTO TImage (tImgCulIntPatIDFk, tImgTs) VALUES (" + std::to_string(patient) + ", '" +
               time + "')");
  }
  static std::string Today() { return support::TimeText(support::Now()).substr(0, 10); }
};

TEST_F(RawPatients, AnInsertedPatientEntersTodayWhenTheMaskHasTheDateOfEntry) {
  CTPatientRaw patient = PersonWithSlida();
  patient.m_dEntry = Ts(1999, 1, 1);
  const std::string before = Today();
  ASSERT_EQ(Insert(patient), 0);
  const std::string entry = Column("tPatDEntry", patient.m_lPatID).value_or("NULL");
  EXPECT_TRUE(entry == before || entry == Today()) << entry;
  EXPECT_EQ(support::TimeText(patient.m_dEntry), entry + " 00:00:00");
}

TEST_F(RawPatients, AnInsertedPatientHasNoDateOfEntryWhenTheMaskLacksIt) {
  CTPatientRaw patient = PersonWithSlida();
  patient.m_dEntry = Ts(1999, 1, 1);
  ASSERT_EQ(Insert(patient, ~CPatientRawRec::kEntry), 0);
  EXPECT_EQ(Column("tPatDEntry", patient.m_lPatID), std::nullopt);
}

TEST_F(RawPatients, AnEditedPatientKeepsTheStoredDateOfEntry) {
  CTPatientRaw patient = PersonWithSlida();
  ASSERT_EQ(Insert(patient), 0);
  const LONG key = patient.m_lPatID;
  Raw().Exec("UPDATE TPatient SET tPatDEntry = '2000-01-02'");
  patient.m_dEntry = Ts(1999, 1, 1);
  EXPECT_EQ(Edit(patient, key, kAllFields), 0);
  EXPECT_EQ(Edit(patient, key, CPatientRawRec::kEntry), 0);
  EXPECT_EQ(Column("tPatDEntry", key), "2000-01-02");
}

TEST_F(RawPatients, AnInsertedPatientKeepsTheCallersLastDisplay) {
  CTPatientRaw patient = PersonWithSlida();
  patient.m_tsLastDisp = Ts(2003, 4, 5, 6, 7, 8);
  AddImage(0, "2010-01-01 00:00:00");
  ASSERT_EQ(Insert(patient), 0);
  EXPECT_EQ(Column("tPatTsLastDisp", patient.m_lPatID), "2003-04-05 06:07:08");
}

TEST_F(RawPatients, AnEditedPatientWasLastDisplayedWithItsNewestImage) {
  CTPatientRaw patient = PersonWithSlida();
  ASSERT_EQ(Insert(patient), 0);
  const LONG key = patient.m_lPatID;
  AddImage(key, "2004-05-06 07:08:09");
  AddImage(key, "2003-05-06 07:08:09");
  AddImage(key + 1, "2009-05-06 07:08:09");
  EXPECT_EQ(Edit(patient, key, CPatientRawRec::kLastDisp), 0);
  EXPECT_EQ(Column("tPatTsLastDisp", key), "2004-05-06 07:08:09");
}

TEST_F(RawPatients, AnEditedPatientWithoutImagesWasLastDisplayedOnTheDayOfEntry) {
  CTPatientRaw patient = PersonWithSlida();
  ASSERT_EQ(Insert(patient), 0);
  Raw().Exec("UPDATE TPatient SET tPatDEntry = '2000-01-02'");
  EXPECT_EQ(Edit(patient, patient.m_lPatID, CPatientRawRec::kLastDisp), 0);
  EXPECT_EQ(Column("tPatTsLastDisp", patient.m_lPatID), "2000-01-02 00:00:00");
}

TEST_F(RawPatients, AnEditWithoutItsBitLeavesTheLastDisplayAlone) {
  CTPatientRaw patient = PersonWithSlida();
  patient.m_tsLastDisp = Ts(2003, 4, 5);
  ASSERT_EQ(Insert(patient), 0);
  AddImage(patient.m_lPatID, "2004-05-06 07:08:09");
  EXPECT_EQ(Edit(patient, patient.m_lPatID, ~CPatientRawRec::kLastDisp), 0);
  EXPECT_EQ(Column("tPatTsLastDisp", patient.m_lPatID), "2003-04-05 00:00:00");
}

TEST_F(RawPatients, TheDisplayIdentifierIsTheSlidaIdentifier) {
  CTPatientRaw patient = PersonWithSlida();
  patient.m_strExtPatID = "EXT";
  patient.m_strIDDisp = "mine";
  ASSERT_EQ(Insert(patient), 0);
  EXPECT_STREQ(patient.m_strIDDisp, "SL1");
  EXPECT_STREQ(patient.m_strExtPatID, "EXT");
}

TEST_F(RawPatients, WithoutASlidaIdentifierItIsTheExternalOneAndTheSlidaIsEmpty) {
  CTPatientRaw patient = Person();
  patient.m_strExtPatID = "EXT";
  ASSERT_EQ(Insert(patient), 0);
  EXPECT_EQ(Column("tPatSIDDisp", patient.m_lPatID), "EXT");
  EXPECT_EQ(Column("tPatSSlidaID", patient.m_lPatID), "");
}

TEST_F(RawPatients, WithoutBothItIsEmptyAndBothAreNull) {
  CTPatientRaw patient = Person();
  ASSERT_EQ(Insert(patient), 0);
  EXPECT_EQ(Column("tPatSIDDisp", patient.m_lPatID), "");
  EXPECT_EQ(Column("tPatSSlidaID", patient.m_lPatID), std::nullopt);
  EXPECT_EQ(Column("tPatSExtPatID", patient.m_lPatID), std::nullopt);
}

TEST_F(RawPatients, IdentifiersThatTheMaskLeavesOutCountAsEmptyInAnInsert) {
  CTPatientRaw patient = Person();
  patient.m_strSrvID = "SRV";
  ASSERT_EQ(Insert(patient, CPatientRawRec::kSrvID | CPatientRawRec::kIDDisp), 0);
  EXPECT_EQ(Column("tPatSIDDisp", patient.m_lPatID), "");
  EXPECT_EQ(Column("tPatSSlidaID", patient.m_lPatID), std::nullopt);
}

TEST_F(RawPatients, AnEditDerivesTheDisplayIdentifierFromTheRowAsItBecomes) {
  CTPatientRaw patient = PersonWithSlida();
  ASSERT_EQ(Insert(patient), 0);
  const LONG key = patient.m_lPatID;
  patient.m_strSlidaID = "SL2";
  EXPECT_EQ(Edit(patient, key, CPatientRawRec::kSlidaID), 0);
  EXPECT_EQ(Column("tPatSIDDisp", key), "SL1");
  EXPECT_EQ(Edit(CTPatientRaw(), key, CPatientRawRec::kIDDisp), 0);
  EXPECT_EQ(Column("tPatSIDDisp", key), "SL2");
  patient.m_strSlidaID.Empty();
  patient.m_strExtPatID = "EXT";
  EXPECT_EQ(Edit(patient, key, kAllFields), 0);
  EXPECT_EQ(Column("tPatSIDDisp", key), "EXT");
  patient.m_strExtPatID.Empty();
  EXPECT_EQ(Edit(patient, key, kAllFields), 0);
  EXPECT_EQ(Column("tPatSIDDisp", key), "");
  EXPECT_EQ(Column("tPatSExtPatID", key), std::nullopt);
}

TEST_F(RawPatients, APatientFoundByNameKeepsNameBirthdayServerAndSlidaIdentifier) {
  CTPatientRaw patient = PersonWithSlida();
  patient.m_strSrvID = "SRV";
  ASSERT_EQ(Insert(patient), 0);
  CTPatientRaw named = Person();
  named.m_strSocID = "SOC";
  CPatientRawRec set(nullptr, nullptr);
  ASSERT_EQ(set.Edit(named, kAllFields), 0);
  EXPECT_EQ(Column("tPatSSlidaID", patient.m_lPatID), "SL1");
  EXPECT_EQ(Column("tPatSSrvID", patient.m_lPatID), "SRV");
  EXPECT_EQ(Column("tPatSSocID", patient.m_lPatID), "SOC");
  EXPECT_EQ(Column("tPatSIDDisp", patient.m_lPatID), "SL1");
}

TEST_F(RawPatients, APatientFoundByServerIdentifierKeepsItsSlidaIdentifier) {
  CTPatientRaw patient = PersonWithSlida();
  patient.m_strSrvID = "SRV";
  ASSERT_EQ(Insert(patient), 0);
  CTPatientRaw other = Person();
  other.m_strSrvID = "SRV";
  other.m_strName = "Miller";
  CPatientRawRec set(nullptr, nullptr);
  ASSERT_EQ(set.Edit(other, kAllFields), 0);
  EXPECT_EQ(Column("tPatSSlidaID", patient.m_lPatID), "SL1");
  EXPECT_EQ(Column("tPatSName", patient.m_lPatID), "Miller");
}

TEST_F(RawPatients, ADisplayIdentifierByWhichAPatientWasFoundIsNotDerivedAnew) {
  CTPatientRaw patient = PersonWithSlida();
  ASSERT_EQ(Insert(patient), 0);
  Raw().Exec("UPDATE TPatient SET tPatSIDDisp = 'shown'");
  CTPatientRaw named = Person();
  named.m_strIDDisp = "shown";
  CPatientRawRec set(nullptr, nullptr);
  ASSERT_EQ(set.Edit(named, kAllFields), 0);
  EXPECT_EQ(Column("tPatSIDDisp", patient.m_lPatID), "shown");
}

TEST_F(RawPatients, ADisplayIdentifierOfTheCallersOwnKeepsAnInsertFromFindingThePatientByName) {
  CTPatientRaw patient = Person();
  patient.m_strIDDisp = "mine";
  EXPECT_EQ(Insert(patient), 64);
  EXPECT_EQ(Raw().Count("TPatient", "tPatSName = 'Meyer'"), 1);
  EXPECT_EQ(patient.m_lPatID, 0);
}

TEST_F(RawPatients, AFlagIsStoredAsOneOrZero) {
  CTPatientRaw patient = PersonWithSlida();
  patient.m_bSelect = 255;
  ASSERT_EQ(Insert(patient), 0);
  EXPECT_EQ(Column("tPatFSelect", patient.m_lPatID), "1");
  patient.m_bSelect = FALSE;
  EXPECT_EQ(Edit(patient, patient.m_lPatID, CPatientRawRec::kSelect), 0);
  EXPECT_EQ(Column("tPatFSelect", patient.m_lPatID), "0");
}

}  // namespace
}  // namespace raw
