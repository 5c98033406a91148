// Random patients through the compact record into the database and back.
#include "tests/flat/compact_round_trip.h"
#include "tests/support/fixtures.h"

using compact::kRecords;
using compact::Said;
using support::SetText;
using support::Text;
using support::TimeText;
using support::Val;
using texts::Cut;

namespace {

struct Doctor {
  LONG key;
  std::string name;
};

// A patient in plain terms.
struct Patient {
  Doctor doctor;
  std::string surname, firstname, slida, external, sex;
  TIMESTAMP_STRUCT birthday;
};

class CompactPatientRoundTrips : public support::ConnectedTest {
 protected:
  void SetUp() override {
    support::ConnectedTest::SetUp();
    for (int most : {12, 12, 12, 32, 32}) {
      tagTDOCTOR doctor{};
      SetText(doctor.szName, m_draw.Unique(most));
      ASSERT_EQ(DB_AddNewTDr(&doctor), 0);
      m_doctors.push_back({Val(doctor.lDrID), Text(doctor.szName)});
      if (most == 12) m_short_named.push_back(m_doctors.back());
    }
  }
  // A compact record has room for one identifier, and without the Slida identifier the patient must be told
  // by names and birthday.
  Patient ForCompact() {
    Patient patient = Drawn(m_short_named);
    if (patient.slida.empty()) patient.external = m_draw.Words(19);
    return patient;
  }
  Patient ForTable() {
    Patient patient = Drawn(m_doctors);
    patient.external = m_draw.Words(32);
    patient.sex = m_draw.Of<std::string>({"m", "f", "-", "", "x"});
    return patient;
  }
  Patient Drawn(const std::vector<Doctor>& doctors) {
    Patient patient;
    patient.doctor = m_draw.Of(doctors);
    const bool slida = m_draw.OneIn(2);
    if (slida) patient.slida = m_draw.Unique(20);
    patient.surname = slida ? m_draw.Words(32) : m_draw.Unique(32);
    patient.firstname = slida ? m_draw.Words(32) : m_draw.Unique(32);
    patient.birthday = m_draw.Day(!slida);
    patient.sex = m_draw.Of<std::string>({"m", "f", "-"});
    return patient;
  }
  // As reading gives it, but for key and last display.
  static tagPATIENTCOMPACT Compact(const Patient& patient) {
    tagPATIENTCOMPACT record{};
    SetText(record.szName, patient.surname);
    SetText(record.szFirstname, patient.firstname);
    SetText(record.szDrName, Cut(patient.doctor.name, 12));
    SetText(record.szIdent, patient.slida.empty() ? "}" + Cut(patient.external, 19) : patient.slida);
    compact::SetDay(&record, patient.birthday);
    record.bySex = patient.sex == "m" ? 1 : patient.sex == "f" ? 2 : 0;
    return record;
  }
  // A patient without images was displayed last on the day of entry.
  static void SetLastDisplay(tagPATIENTCOMPACT* record) {
    tagTPATIENT stored{};
    stored.lPatID = static_cast<LONG>(record->dwID);
    EXPECT_EQ(DB_GetTPat(&stored), 0);
    record->wDispYear = static_cast<WORD>(stored.dEntry.year);
    record->byDispMonth = static_cast<BYTE>(stored.dEntry.month);
    record->byDispDay = static_cast<BYTE>(stored.dEntry.day);
  }
  void ExpectStored(DWORD key, const Patient& patient) {
    tagTPATIENT stored{};
    stored.lPatID = static_cast<LONG>(key);
    ASSERT_EQ(DB_GetTPat(&stored), 0);
    EXPECT_EQ(Val(stored.lDrID), patient.doctor.key);
    EXPECT_EQ(Text(stored.szName), patient.surname);
    EXPECT_EQ(Text(stored.szFirstname), patient.firstname);
    EXPECT_EQ(Text(stored.szSlidaID), patient.slida);
    EXPECT_EQ(Text(stored.szExtPatID), patient.external);
    EXPECT_EQ(Text(stored.szIDDisp), patient.slida.empty() ? patient.external : patient.slida);
    EXPECT_EQ(Text(stored.szSrvID) + Text(stored.szSocID), "");
    EXPECT_EQ(Text(stored.szSex), patient.sex);
    EXPECT_EQ(Val(stored.lSelect), 0);
    EXPECT_EQ(TimeText(stored.dBirthday), TimeText(patient.birthday));
    EXPECT_GE(TimeText(stored.dEntry), m_first_day);
    EXPECT_LE(TimeText(stored.dEntry), TimeText(support::Now()));
    EXPECT_EQ(TimeText(stored.tsLastDisp), TimeText(stored.dEntry));
  }
  // Any other value of the sex means unknown, too.
  tagPATIENTCOMPACT Given(const Patient& patient) {
    tagPATIENTCOMPACT record = Compact(patient);
    compact::FillRest(&m_draw, &record);
    if (record.bySex == 0) record.bySex = m_draw.Of<BYTE>({0, 3, 109, 255});
    if (patient.slida.empty() && patient.external.empty() && m_draw.OneIn(2)) SetText(record.szIdent, "");
    return record;
  }
  // What an add makes of the caller's record.
  static tagPATIENTCOMPACT HandedBack(tagPATIENTCOMPACT given, DWORD key, const Patient& patient) {
    given.dwID = key;
    SetLastDisplay(&given);
    if (patient.slida.empty()) SetText(given.szIdent, "}");
    given.bySex = Compact(patient).bySex;
    return given;
  }
  void ExpectRead(DWORD key, const Patient& patient) {
    tagPATIENTCOMPACT record{};
    compact::FillRest(&m_draw, &record);
    record.dwID = key;
    ASSERT_EQ(DB_GetPat(&record), 0);
    tagPATIENTCOMPACT expected = Compact(patient);
    expected.dwID = key;
    SetLastDisplay(&expected);
    EXPECT_EQ(Said(record), Said(expected));
  }
  tagPATIENTCOMPACT Added(const Patient& patient) {
    const tagPATIENTCOMPACT given = Given(patient);
    tagPATIENTCOMPACT record = given;
    EXPECT_EQ(DB_AddNewPat(&record), 0) << Said(given);
    EXPECT_NE(Val(record.dwID), 0u);
    EXPECT_EQ(Said(record), Said(HandedBack(given, record.dwID, patient)));
    return record;
  }

  compact::Draw m_draw;
  std::vector<Doctor> m_doctors;
  std::vector<Doctor> m_short_named;  // whose names a compact record can hold
  const std::string m_first_day = TimeText(support::Now()).substr(0, 10);
};

TEST_F(CompactPatientRoundTrips, WhatTheCompactRecordAddsBothRecordsRead) {
  for (int i = 0; i < kRecords && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const Patient patient = ForCompact();
    const tagPATIENTCOMPACT record = Added(patient);
    ExpectRead(record.dwID, patient);
    ExpectStored(record.dwID, patient);
  }
}

TEST_F(CompactPatientRoundTrips, WhatTheCompactRecordEditsBothRecordsRead) {
  const DWORD key = Added(ForCompact()).dwID;
  for (int i = 0; i < kRecords && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const Patient patient = ForCompact();
    tagPATIENTCOMPACT record = Given(patient);
    record.dwID = key;
    ASSERT_EQ(DB_EditPat(&record), 0);
    EXPECT_EQ(Val(record.dwID), key);
    ExpectRead(key, patient);
    ExpectStored(key, patient);
  }
}

TEST_F(CompactPatientRoundTrips, WhatTheTableRecordAddsTheCompactRecordReads) {
  for (int i = 0; i < kRecords && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const Patient patient = ForTable();
    tagTPATIENT record{};
    record.lDrID = patient.doctor.key;
    SetText(record.szName, patient.surname);
    SetText(record.szFirstname, patient.firstname);
    SetText(record.szSlidaID, patient.slida);
    SetText(record.szExtPatID, patient.external);
    SetText(record.szSex, patient.sex);
    record.dBirthday = patient.birthday;
    ASSERT_EQ(DB_AddNewTPat(&record), 0);
    ExpectRead(static_cast<DWORD>(record.lPatID), patient);
    ExpectStored(static_cast<DWORD>(record.lPatID), patient);
  }
}

}  // namespace
