// Units in the compact record.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "frame/KyODBC.h"
#include "tests/support/documented.h"
#include "tests/support/fixtures.h"

using support::SetText;
using support::SetUnterminated;
using support::Text;
using support::TimeText;
using support::Val;

namespace {

const std::string kSeparator = "\xBB";

class CompactUnits : public support::ConnectedTest {
 protected:
  static tagPATIENTCOMPACT Unit(const std::string& name = "Unit A") {
    tagPATIENTCOMPACT record{};
    SetText(record.szName, name + kSeparator + "BODY");
    SetText(record.szFirstname, "CTRL" + kSeparator + "SENS" + kSeparator + "GEN");
    record.wYear = 2001;
    record.byMonth = 2;
    record.byDay = 3;
    SetText(record.szDrName, "TUBE");
    SetText(record.szIdent, "]ELEM" + kSeparator + "CONE");
    return record;
  }
  static tagPATIENTCOMPACT Added(const std::string& name = "Unit A") {
    tagPATIENTCOMPACT record = Unit(name);
    EXPECT_EQ(DB_AddNewUnit(&record), 0);
    EXPECT_NE(Val(record.dwID), 0u);
    return record;
  }
  static tagTUNIT Stored(DWORD key) {
    tagTUNIT unit{};
    unit.lUnitID = static_cast<LONG>(key);
    EXPECT_EQ(DB_GetTUnit(&unit), 0);
    return unit;
  }
};

TEST_F(CompactUnits, WhateverStandsWhereTheMarkBelongsIsSkipped) {
  tagPATIENTCOMPACT record = Unit();
  for (const char mark : {'\0', 'x', '\xBB'}) {
    SetText(record.szName, "Unit " + std::to_string(mark));
    record.dwID = 0;
    record.szIdent[0] = mark;
    ASSERT_EQ(DB_AddNewUnit(&record), 0);
    const tagTUNIT stored = Stored(record.dwID);
    EXPECT_EQ(Text(stored.szCtrlElemSNo), "ELEM");
    EXPECT_EQ(Text(stored.szConeSNo), "CONE");
  }
}

TEST_F(CompactUnits, AddStoresEveryPackedText) {
  const tagTUNIT stored = Stored(Added().dwID);
  EXPECT_EQ(Text(stored.szName), "Unit A");
  EXPECT_EQ(Text(stored.szTestBodySNo), "BODY");
  EXPECT_EQ(Text(stored.szCtrlUnitSNo), "CTRL");
  EXPECT_EQ(Text(stored.szSensSNo), "SENS");
  EXPECT_EQ(Text(stored.szGenSNo), "GEN");
  EXPECT_EQ(Text(stored.szTubeSNo), "TUBE");
  EXPECT_EQ(Text(stored.szCtrlElemSNo), "ELEM");
  EXPECT_EQ(Text(stored.szConeSNo), "CONE");
  EXPECT_EQ(TimeText(stored.dAccept), TimeText(support::Ts(2001, 2, 3)));
}

TEST_F(CompactUnits, AddStoresTheUnknownType) { EXPECT_EQ(Text(Stored(Added().dwID).szType), "X?"); }

TEST_F(CompactUnits, EditOverwritesTheTypeAsWell) {
  tagPATIENTCOMPACT record = Added();
  Raw().Exec("UPDATE TUnit SET tUnitSType='IO' WHERE tUnitSName='Unit A'");
  EXPECT_EQ(DB_EditUnit(&record), 0);
  EXPECT_EQ(Text(Stored(record.dwID).szType), "X?");
}

TEST_F(CompactUnits, AddHandsBackThePackedRecordWithItsKey) {
  tagPATIENTCOMPACT record = Unit();
  record.wDispYear = 1999;
  record.byDispMonth = record.byDispDay = 9;
  record.bySex = 2;
  record.byReserved = 77;
  ASSERT_EQ(DB_AddNewUnit(&record), 0);
  tagPATIENTCOMPACT expected = Unit();
  expected.dwID = record.dwID;
  EXPECT_EQ(std::memcmp(&expected, &record, sizeof record), 0);
}

TEST_F(CompactUnits, GetReadsWhatWasAdded) {
  const tagPATIENTCOMPACT added = Added();
  tagPATIENTCOMPACT record{};
  record.dwID = added.dwID;
  EXPECT_EQ(DB_GetUnit(&record), 0);
  EXPECT_EQ(std::memcmp(&added, &record, sizeof record), 0);
}

TEST_F(CompactUnits, ANameWithoutASeparatorHasNoTestBody) {
  tagPATIENTCOMPACT record{};
  SetText(record.szName, "Plain");
  ASSERT_EQ(DB_AddNewUnit(&record), 0);
  EXPECT_EQ(Text(Stored(record.dwID).szName), "Plain");
  EXPECT_EQ(Text(Stored(record.dwID).szTestBodySNo), "");
  EXPECT_EQ(Text(record.szName), "Plain" + kSeparator);
  EXPECT_EQ(Text(record.szFirstname), kSeparator + kSeparator);
  EXPECT_EQ(Text(record.szIdent), "]" + kSeparator);
}

TEST_F(CompactUnits, MissingPartsAreEmpty) {
  tagPATIENTCOMPACT record = Unit();
  SetText(record.szFirstname, "CTRL" + kSeparator + "SENS");
  SetText(record.szIdent, "]ELEM");
  ASSERT_EQ(DB_AddNewUnit(&record), 0);
  const tagTUNIT stored = Stored(record.dwID);
  EXPECT_EQ(Text(stored.szSensSNo), "SENS");
  EXPECT_EQ(Text(stored.szGenSNo), "");
  EXPECT_EQ(Text(stored.szCtrlElemSNo), "ELEM");
  EXPECT_EQ(Text(stored.szConeSNo), "");
}

TEST_F(CompactUnits, TheMarkIsSkippedWhateverItIs) {
  tagPATIENTCOMPACT record = Unit();
  SetText(record.szIdent, "*ELEM" + kSeparator + "CONE");
  ASSERT_EQ(DB_AddNewUnit(&record), 0);
  EXPECT_EQ(Text(Stored(record.dwID).szCtrlElemSNo), "ELEM");
  EXPECT_EQ(Text(record.szIdent), "]ELEM" + kSeparator + "CONE");
}

TEST_F(CompactUnits, PartsAreCutToTheirColumns) {
  tagPATIENTCOMPACT record{};
  SetText(record.szName, "1234567890123456789012345" + kSeparator + "TB");
  SetText(record.szFirstname, "123456789012345" + kSeparator + "S" + kSeparator + "G");
  SetText(record.szDrName, "123456789012");
  ASSERT_EQ(DB_AddNewUnit(&record), 0);
  const tagTUNIT stored = Stored(record.dwID);
  EXPECT_EQ(Text(stored.szName), "1234567890123456789012");
  EXPECT_EQ(Text(stored.szTestBodySNo), "TB");
  EXPECT_EQ(Text(stored.szCtrlUnitSNo), "1234567890");
  EXPECT_EQ(Text(stored.szSensSNo), "S");
  EXPECT_EQ(Text(stored.szTubeSNo), "1234567890");
}

TEST_F(CompactUnits, PackedTextsThatAreTooLongTogetherAreCutAtTheEnd) {
  tagTUNIT unit{};
  SetText(unit.szName, "1234567890123456789012");
  SetText(unit.szTestBodySNo, "abcdefghij");
  SetText(unit.szCtrlElemSNo, "1234567890");
  SetText(unit.szConeSNo, "abcdefghij");
  SetText(unit.szCtrlUnitSNo, "1234567890");
  SetText(unit.szSensSNo, "1234567890");
  SetText(unit.szGenSNo, "1234567890");
  ASSERT_EQ(DB_AddNewTUnit(&unit), 0);
  tagPATIENTCOMPACT record{};
  record.dwID = static_cast<DWORD>(Val(unit.lUnitID));
  EXPECT_EQ(DB_GetUnit(&record), 0);
  EXPECT_EQ(Text(record.szName), "1234567890123456789012" + kSeparator + "abcdefghi");
  EXPECT_EQ(Text(record.szIdent), "]1234567890" + kSeparator + "abcdefgh");
  EXPECT_EQ(Text(record.szFirstname), "1234567890" + kSeparator + "1234567890" + kSeparator + "1234567890");
}

TEST_F(CompactUnits, ASeparatorAtTheCutIsKept) {
  tagTUNIT unit{};
  SetText(unit.szName, "Unit A");
  SetText(unit.szCtrlElemSNo, "1234567890");
  ASSERT_EQ(DB_AddNewTUnit(&unit), 0);
  tagPATIENTCOMPACT record{};
  record.dwID = static_cast<DWORD>(Val(unit.lUnitID));
  ASSERT_EQ(DB_GetUnit(&record), 0);
  EXPECT_EQ(Text(record.szIdent), "]1234567890" + kSeparator);
}

TEST_F(CompactUnits, ACharacterThatContainsTheSeparatorsByteIsNoSeparator) {
  const std::string name = "Z\xC3\xBBrich \xC2\xBB";  // U+00FB and U+00BB end with the byte 0xBB
  const tagPATIENTCOMPACT record = Added(name);
  EXPECT_EQ(Text(Stored(record.dwID).szName), name);
  EXPECT_EQ(Text(Stored(record.dwID).szTestBodySNo), "BODY");
}

TEST_F(CompactUnits, ALeadByteBeforeTheEndOfAFieldIsNoCharacter) {
  tagPATIENTCOMPACT record{};
  SetText(record.szName, "Unit" + kSeparator + "B\xE2");
  const bool stored = support::Documented("bytes that are no UTF-8") == "stored";
  ASSERT_EQ(DB_AddNewUnit(&record), stored ? 0 : 6);
  EXPECT_EQ(Text(record.szName).substr(0, 6), "Unit" + kSeparator + "B");
}

TEST_F(CompactUnits, UnterminatedFieldsAreBounded) {
  tagPATIENTCOMPACT record{};
  SetUnterminated(record.szName, 'n');
  SetUnterminated(record.szFirstname, '\xBB');
  SetUnterminated(record.szDrName, 't');
  SetUnterminated(record.szIdent, ']');
  const bool stored = support::Documented("bytes that are no UTF-8") == "stored";
  EXPECT_EQ(DB_AddNewUnit(&record), stored ? 0 : 6);
  EXPECT_EQ(Raw().Count("TUnit", "tUnitSName='" + std::string(22, 'n') + "'"), stored ? 1 : 0);
}

TEST_F(CompactUnits, EditWritesEveryFieldAndHandsBackTheKey) {
  const tagPATIENTCOMPACT added = Added();
  tagPATIENTCOMPACT record = Unit();
  SetText(record.szDrName, "TUBE2");
  EXPECT_EQ(DB_EditUnit(&record), 0);  // found by name
  EXPECT_EQ(Val(record.dwID), Val(added.dwID));
  EXPECT_EQ(Text(Stored(added.dwID).szTubeSNo), "TUBE2");
}

TEST_F(CompactUnits, EditSelectedWritesTheMaskAndLeavesTheRecordUnchanged) {
  const tagPATIENTCOMPACT added = Added();
  tagPATIENTCOMPACT record{};
  SetText(record.szName, "Unit A");
  SetText(record.szDrName, "TUBE2");
  record.bySex = 2;
  const tagPATIENTCOMPACT before = record;
  EXPECT_EQ(DB_EditSelUnit(&record, KYODBC_MASK_UNIT_TUBE), 0);
  EXPECT_EQ(std::memcmp(&before, &record, sizeof record), 0);
  EXPECT_EQ(Text(Stored(added.dwID).szTubeSNo), "TUBE2");
  EXPECT_EQ(Text(Stored(added.dwID).szSensSNo), "SENS");
}

TEST_F(CompactUnits, DeleteRemovesTheUnit) {
  const tagPATIENTCOMPACT record = Added();
  EXPECT_EQ(DB_DeleteUnit(&record), 0);
  EXPECT_EQ(Raw().Count("TUnit"), 1);
}

TEST_F(CompactUnits, TheDefaultUnitIsProtected) {
  tagPATIENTCOMPACT by_name{};
  SetText(by_name.szName, "-");
  EXPECT_EQ(DB_EditUnit(&by_name), 8);
  EXPECT_EQ(DB_EditSelUnit(&by_name, 1), 8);
  EXPECT_EQ(DB_DeleteUnit(&by_name), 8);
  tagPATIENTCOMPACT by_key = Unit();
  by_key.dwID = 1;
  EXPECT_EQ(DB_EditUnit(&by_key), 8);
  EXPECT_EQ(DB_DeleteUnit(&by_key), 8);
  EXPECT_EQ(Raw().Count("TUnit", "tUnitSName='-' AND tUnitSType='-'"), 1);
}

TEST_F(CompactUnits, AUnitThatDoesNotExistGives66) {
  tagPATIENTCOMPACT record = Unit("Nowhere");
  const tagPATIENTCOMPACT before = record;
  EXPECT_EQ(DB_GetUnit(&record), 66);
  EXPECT_EQ(DB_EditUnit(&record), 66);
  EXPECT_EQ(DB_EditSelUnit(&record, 1), 66);
  EXPECT_EQ(DB_DeleteUnit(&record), 66);
  EXPECT_EQ(std::memcmp(&before, &record, sizeof record), 0);
}

TEST_F(CompactUnits, ARecordWithoutKeyAndNameGivesOne) {
  tagPATIENTCOMPACT record{};
  EXPECT_EQ(DB_GetUnit(&record), 1);
  EXPECT_EQ(DB_EditUnit(&record), 1);
  EXPECT_EQ(DB_EditSelUnit(&record, 1), 1);
  EXPECT_EQ(DB_DeleteUnit(&record), 1);
}

TEST_F(CompactUnits, ASecondUnitOfTheSameNameGives52AndTheRowStays) {
  Added();
  tagPATIENTCOMPACT record = Unit();
  EXPECT_EQ(DB_AddNewUnit(&record), 52);
  EXPECT_EQ(Val(record.dwID), 0u);
  EXPECT_EQ(Raw().Count("TUnit", "tUnitSName='Unit A'"), 2);
  EXPECT_EQ(DB_GetUnit(&record), 52);
}

TEST_F(CompactUnits, EveryChangeShowsInTheOpenBrowseSet) {
  ASSERT_EQ(DB_SetTUnitSortIndex(KYODBC_FIELD_KEY), 0);
  ASSERT_EQ(DB_OpenTUnit(), 0);
  tagPATIENTCOMPACT record = Added();
  EXPECT_EQ(DB_MoveToTUnitByPos(2), 2);
  SetText(record.szDrName, "TUBE2");
  EXPECT_EQ(DB_EditSelUnit(&record, KYODBC_MASK_UNIT_TUBE), 0);
  tagPATIENTCOMPACT shown{};
  EXPECT_EQ(DB_GetUnitByPos(&shown, 2), 0);
  EXPECT_EQ(Text(shown.szDrName), "TUBE2");
  EXPECT_EQ(Val(shown.dwID), Val(record.dwID));
  EXPECT_EQ(DB_DeleteUnit(&record), 0);
  EXPECT_EQ(DB_MoveToTUnitByPos(2), 0);
}

TEST_F(CompactUnits, ReadingDoesNotTouchTheBrowseSet) {
  const tagPATIENTCOMPACT added = Added();
  ASSERT_EQ(DB_OpenTUnit(), 0);
  ASSERT_EQ(DB_MoveToTUnitByPos(2), 2);
  tagPATIENTCOMPACT record{};
  record.dwID = added.dwID;
  EXPECT_EQ(DB_GetUnit(&record), 0);
  EXPECT_EQ(DB_GetTUnitIndexPos(), 2);
}

TEST_F(CompactUnits, GetByPosOutsideTheRowsGives64AndLeavesTheRecord) {
  tagPATIENTCOMPACT record = Unit();
  const tagPATIENTCOMPACT before = record;
  EXPECT_EQ(DB_GetUnitByPos(&record, 1), 64);  // closed
  ASSERT_EQ(DB_OpenTUnit(), 0);
  EXPECT_EQ(DB_GetUnitByPos(&record, 2), 64);
  EXPECT_EQ(std::memcmp(&before, &record, sizeof record), 0);
}

TEST_F(CompactUnits, NullRecordsGiveOne) {
  EXPECT_EQ(DB_AddNewUnit(nullptr), 1);
  EXPECT_EQ(DB_EditUnit(nullptr), 1);
  EXPECT_EQ(DB_EditSelUnit(nullptr, 1), 1);
  EXPECT_EQ(DB_DeleteUnit(nullptr), 1);
  EXPECT_EQ(DB_GetUnit(nullptr), 1);
  EXPECT_EQ(DB_GetUnitByPos(nullptr, 1), 1);
}

}  // namespace
