// Hostile texts in compact records: patients with their doctor's name, and units whose texts are packed.
#include <gtest/gtest.h>

#include "frame/KyODBC.h"
#include "tests/flat/texts.h"
#include "tests/hostile/attack.h"
#include "tests/support/records.h"

namespace hostile {
namespace {

constexpr char kSeparator = '\xBB';
constexpr std::size_t kUnitNameWidth = sizeof(tagTUNIT::szName) - 1;
constexpr std::size_t kNumberWidth = sizeof(tagTUNIT::szTubeSNo) - 1;

}  // namespace

// The patient is found by name and birthday, or by the Slida identifier, as the record says.
void Attack::CompactPatient(const std::string& text) {
  SCOPED_TRACE("compact patient");
  tagTDOCTOR doctor{};
  support::SetText(doctor.szName, CutTo(text, sizeof(tagPATIENTCOMPACT::szDrName) - 1));
  tagPATIENTCOMPACT record{};
  support::SetText(record.szDrName, support::Text(doctor.szName));
  support::SetText(record.szName, CutTo(text, sizeof record.szName - 1));
  support::SetText(record.szFirstname, CutTo(m_draw.Valid(200), sizeof record.szFirstname - 1));
  support::SetText(record.szIdent, CutTo((m_draw.OneIn(2) ? "}" : "") + text, sizeof record.szIdent - 1));
  record.wYear = 1970;
  record.byMonth = record.byDay = 2;
  const bool storable = IsUtf8(record.szName) && IsUtf8(record.szIdent) && IsUtf8(record.szDrName);
  const tagPATIENTCOMPACT given = record;
  DB_AddNewTDr(&doctor);
  m_calls += 8;
  const WORD added = DB_AddNewPat(&record);
  EXPECT_TRUE(added == 0 || !storable) << added;
  if (added == 0) {
    const DWORD key = record.dwID;
    ExpectCompactPatient(given, key);
    tagPATIENTCOMPACT edited = given;
    support::SetText(edited.szFirstname, CutTo(m_draw.Valid(200), sizeof edited.szFirstname - 1));
    edited.dwID = key;
    tagPATIENTCOMPACT handed = edited;
    EXPECT_EQ(DB_EditSelPat(&handed, KYODBC_MASK_PAT_FIRSTNAME), 0);
    ExpectCompactPatient(edited, key);
    handed = edited;
    handed.dwID = 0;
    EXPECT_EQ(DB_EditPat(&handed), 0);
    EXPECT_EQ(support::Val(handed.dwID), key);
    ExpectCompactPatient(edited, key);
    handed = edited;
    handed.dwID = 0;
    EXPECT_EQ(DB_DeletePat(&handed), 0);
    EXPECT_EQ(m_raw.Count("TPatient", "tPatCulIntPatIDPk = " + std::to_string(key)), 0);
  }
  if (support::Val(doctor.lDrID) != 0) {
    EXPECT_EQ(DB_DeleteTDr(&doctor), 0);
  }
}

// Stored as given, and read by key and by name.
void Attack::ExpectCompactPatient(const tagPATIENTCOMPACT& given, DWORD key) {
  const std::string identifier = support::Text(given.szIdent);
  const bool external = identifier.starts_with('}');
  const auto rows = m_raw.Query(
      "SELECT tPatSName, tPatSFirstname, tPatSSlidaID, tPatSExtPatID FROM TPatient WHERE tPatCulIntPatIDPk "
      "= " +
      std::to_string(key));
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0][0], support::Text(given.szName));
  EXPECT_EQ(rows[0][1], support::Text(given.szFirstname));
  EXPECT_EQ(rows[0][2].value_or(""), external ? "" : identifier);
  EXPECT_EQ(rows[0][3].value_or(""), external ? identifier.substr(1) : "");
  for (const DWORD by_key : {key, DWORD{0}}) {
    tagPATIENTCOMPACT read = given;
    read.dwID = by_key;
    EXPECT_EQ(DB_GetPat(&read), 0);
    EXPECT_EQ(support::Val(read.dwID), key);
    EXPECT_EQ(support::Text(read.szName), support::Text(given.szName));
    EXPECT_EQ(support::Text(read.szFirstname), support::Text(given.szFirstname));
    EXPECT_EQ(support::Text(read.szIdent), identifier);
    EXPECT_EQ(support::Text(read.szDrName), support::Text(given.szDrName));
  }
  tagTPATIENTEX joined{};
  support::SetText(joined.szSlidaID, external ? "" : identifier);
  support::SetText(joined.szName, support::Text(given.szName));
  support::SetText(joined.szFirstname, support::Text(given.szFirstname));
  joined.dBirthday = support::Ts(given.wYear, given.byMonth, given.byDay);
  EXPECT_EQ(DB_GetPatEx(&joined), 0);
  EXPECT_EQ(support::Val(joined.lPatID), static_cast<LONG>(key));
  EXPECT_EQ(support::Text(joined.szDrName), support::Text(given.szDrName));
}

// The packed texts are taken apart at a byte that hostile texts may have, too: then only whole rows count.
void Attack::CompactUnit(const std::string& text) {
  SCOPED_TRACE("compact unit");
  tagPATIENTCOMPACT record{};
  support::SetText(record.szName, CutTo(text, sizeof record.szName - 1));
  support::SetText(record.szFirstname, CutTo(text, sizeof record.szFirstname - 1));
  support::SetText(record.szDrName, CutTo(text, sizeof record.szDrName - 1));
  support::SetText(record.szIdent, CutTo("]" + text, sizeof record.szIdent - 1));
  const tagPATIENTCOMPACT given = record;
  LONG rows = -1;
  EXPECT_EQ(DB_GetNumTUnit(&rows), 0);
  m_calls += 6;
  const WORD added = DB_AddNewUnit(&record);
  EXPECT_TRUE(added == 0 || added == 1 || added == 6) << added;
  LONG rows_after = -1;
  EXPECT_EQ(DB_GetNumTUnit(&rows_after), 0);
  EXPECT_EQ(rows_after, rows + (added == 6 ? 0 : 1));
  LONG newest = 0;
  EXPECT_EQ(DB_GetLastUnitID(&newest), 0);
  if (added == 6) {
    tagPATIENTCOMPACT nothing = given;
    EXPECT_NE(DB_GetUnit(&nothing), 0);
    EXPECT_NE(DB_EditSelUnit(&given, KYODBC_MASK_ALL), 0);
    EXPECT_NE(DB_DeleteUnit(&given), 0);
    return;
  }
  const auto key = static_cast<DWORD>(newest);
  // Nothing names a unit whose name is empty.
  const bool named = added == 0;
  if (named && text.find(kSeparator) == text.npos && IsUtf8(text)) ExpectCompactUnit(given, key);
  record = given;
  record.dwID = key;
  EXPECT_EQ(DB_EditUnit(&record), 0);
  record = given;
  record.dwID = named ? 0 : key;
  EXPECT_EQ(DB_EditSelUnit(&record, KYODBC_MASK_UNIT_TUBE), 0);
  if (named) {
    EXPECT_EQ(DB_GetUnit(&record), 0);
    EXPECT_EQ(support::Val(record.dwID), key);
  }
  record = given;
  record.dwID = named ? 0 : key;
  EXPECT_EQ(DB_DeleteUnit(&record), 0);
}

// Of texts without the separator, each is the first of its field.
void Attack::ExpectCompactUnit(const tagPATIENTCOMPACT& given, DWORD key) {
  const auto rows = m_raw.Query(
      "SELECT tUnitSName, tUnitSCtrlUnitSNo, tUnitSTubeSNo, tUnitSCtrlElemSNo, tUnitSTestBodySNo FROM TUnit "
      "WHERE tUnitCulIntUnitIDPk = " +
      std::to_string(key));
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0][0], CutTo(support::Text(given.szName), kUnitNameWidth));
  EXPECT_EQ(rows[0][1], CutTo(support::Text(given.szFirstname), kNumberWidth));
  EXPECT_EQ(rows[0][2], CutTo(support::Text(given.szDrName), kNumberWidth));
  EXPECT_EQ(rows[0][3], CutTo(support::Text(given.szIdent).substr(1), kNumberWidth));
  EXPECT_EQ(rows[0][4].value_or(""), "");
}

void Attack::CompactRecords(const std::string& text) {
  CompactPatient(text);
  CompactUnit(text);
}

}  // namespace hostile
