// Random units through the compact record into the database and back.
#include <algorithm>

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

// A unit in plain terms.
struct Unit {
  std::string name, body, control_unit, sensor, generator, tube, control_element, cone;
  TIMESTAMP_STRUCT accepted;
};

const std::string kSeparator = "\xBB";
constexpr int kNameBytes = 22;
constexpr int kNumberBytes = 10;

int Size(const std::string& text) { return static_cast<int>(text.size()); }

class CompactUnitRoundTrips : public support::ConnectedTest {
 protected:
  // Parts may be longer than their columns, as long as together they have room in the packed fields.
  Unit ForCompact() {
    Unit unit;
    unit.name = m_draw.Unique(kNameBytes + 3);
    unit.body = m_draw.Words(31 - Size(unit.name));
    unit.control_unit = m_draw.Words(14);
    unit.sensor = m_draw.Words(14);
    unit.generator = m_draw.Words(std::min(14, 30 - Size(unit.control_unit) - Size(unit.sensor)));
    unit.tube = m_draw.Words(12);
    unit.control_element = m_draw.Words(14);
    unit.cone = m_draw.Words(18 - Size(unit.control_element));
    unit.accepted = m_draw.Day(false);
    return unit;
  }
  Unit ForTable() {
    Unit unit;
    unit.name = m_draw.Unique(kNameBytes);
    for (std::string* number : {&unit.body, &unit.control_unit, &unit.sensor, &unit.generator, &unit.tube,
                                &unit.control_element, &unit.cone})
      *number = m_draw.Words(kNumberBytes);
    unit.accepted = m_draw.Day(false);
    return unit;
  }
  // The fields of the record hold 32, 32, 12 and 20 bytes; what is last in one may have to be cut.
  static tagPATIENTCOMPACT Packed(const Unit& unit) {
    tagPATIENTCOMPACT record{};
    const auto rest = [](const std::string& before, const std::string& last, std::size_t room) {
      return before + Cut(last, room - before.size());
    };
    SetText(record.szName, rest(unit.name + kSeparator, unit.body, 32));
    SetText(record.szFirstname,
            rest(unit.control_unit + kSeparator + unit.sensor + kSeparator, unit.generator, 32));
    SetText(record.szDrName, unit.tube);
    SetText(record.szIdent, rest("]" + unit.control_element + kSeparator, unit.cone, 20));
    compact::SetDay(&record, unit.accepted);
    return record;
  }
  // Separators with nothing behind them may be missing, and the mark may be any.
  tagPATIENTCOMPACT Given(const Unit& unit) {
    tagPATIENTCOMPACT record = Packed(unit);
    compact::FillRest(&m_draw, &record);
    record.bySex = static_cast<BYTE>(m_draw.Number(0, 255));
    record.szIdent[0] = m_draw.Of<char>({']', '}', '*', ' ', '\0'});
    if (unit.body.empty() && m_draw.OneIn(2)) SetText(record.szName, unit.name);
    if (unit.cone.empty() && m_draw.OneIn(2)) SetText(record.szIdent, "]" + unit.control_element);
    if (unit.generator.empty() && m_draw.OneIn(2))
      SetText(record.szFirstname, unit.control_unit + kSeparator + unit.sensor);
    return record;
  }
  static Unit AsStored(Unit unit) {
    unit.name = Cut(unit.name, kNameBytes);
    for (std::string* number : {&unit.body, &unit.control_unit, &unit.sensor, &unit.generator, &unit.tube,
                                &unit.control_element, &unit.cone})
      *number = Cut(*number, kNumberBytes);
    return unit;
  }
  void ExpectRead(DWORD key, const Unit& unit) {
    tagPATIENTCOMPACT record{};
    compact::FillRest(&m_draw, &record);
    record.dwID = key;
    ASSERT_EQ(DB_GetUnit(&record), 0);
    tagPATIENTCOMPACT expected = Packed(unit);
    expected.dwID = key;
    EXPECT_EQ(Said(record), Said(expected));
  }
  static void ExpectStored(DWORD key, const Unit& unit) {
    tagTUNIT stored{};
    stored.lUnitID = static_cast<LONG>(key);
    ASSERT_EQ(DB_GetTUnit(&stored), 0);
    EXPECT_EQ(Text(stored.szType), "X?");
    EXPECT_EQ(Text(stored.szName), unit.name);
    EXPECT_EQ(Text(stored.szTestBodySNo), unit.body);
    EXPECT_EQ(Text(stored.szCtrlUnitSNo), unit.control_unit);
    EXPECT_EQ(Text(stored.szSensSNo), unit.sensor);
    EXPECT_EQ(Text(stored.szGenSNo), unit.generator);
    EXPECT_EQ(Text(stored.szTubeSNo), unit.tube);
    EXPECT_EQ(Text(stored.szCtrlElemSNo), unit.control_element);
    EXPECT_EQ(Text(stored.szConeSNo), unit.cone);
    EXPECT_EQ(TimeText(stored.dAccept), TimeText(unit.accepted));
  }
  // After an add or edit: what is stored is packed anew.
  static void ExpectHandedBack(const tagPATIENTCOMPACT& record, const Unit& stored) {
    tagPATIENTCOMPACT expected = Packed(stored);
    expected.dwID = record.dwID;
    EXPECT_NE(Val(record.dwID), 0u);
    EXPECT_EQ(Said(record), Said(expected));
  }

  compact::Draw m_draw;
};

TEST_F(CompactUnitRoundTrips, WhatTheCompactRecordAddsBothRecordsRead) {
  for (int i = 0; i < kRecords && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const Unit unit = ForCompact();
    tagPATIENTCOMPACT record = Given(unit);
    ASSERT_EQ(DB_AddNewUnit(&record), 0);
    ExpectHandedBack(record, AsStored(unit));
    ExpectRead(record.dwID, AsStored(unit));
    ExpectStored(record.dwID, AsStored(unit));
  }
}

TEST_F(CompactUnitRoundTrips, WhatTheCompactRecordEditsBothRecordsRead) {
  tagPATIENTCOMPACT first = Given(ForCompact());
  ASSERT_EQ(DB_AddNewUnit(&first), 0);
  for (int i = 0; i < kRecords && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const Unit unit = ForCompact();
    tagPATIENTCOMPACT record = Given(unit);
    record.dwID = first.dwID;
    ASSERT_EQ(DB_EditUnit(&record), 0);
    ExpectHandedBack(record, AsStored(unit));
    ExpectRead(first.dwID, AsStored(unit));
    ExpectStored(first.dwID, AsStored(unit));
  }
}

TEST_F(CompactUnitRoundTrips, WhatTheTableRecordAddsTheCompactRecordReads) {
  for (int i = 0; i < kRecords && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const Unit unit = ForTable();
    tagTUNIT record{};
    SetText(record.szType, "X?");
    SetText(record.szName, unit.name);
    SetText(record.szTestBodySNo, unit.body);
    SetText(record.szCtrlUnitSNo, unit.control_unit);
    SetText(record.szSensSNo, unit.sensor);
    SetText(record.szGenSNo, unit.generator);
    SetText(record.szTubeSNo, unit.tube);
    SetText(record.szCtrlElemSNo, unit.control_element);
    SetText(record.szConeSNo, unit.cone);
    record.dAccept = unit.accepted;
    ASSERT_EQ(DB_AddNewTUnit(&record), 0);
    ExpectRead(static_cast<DWORD>(record.lUnitID), unit);
    ExpectStored(static_cast<DWORD>(record.lUnitID), unit);
  }
}

}  // namespace
