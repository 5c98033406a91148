// Rows made of hostile texts: stored as they are, found by them, changed and deleted by them.
#include <gtest/gtest.h>

#include "tests/flat/family.h"
#include "tests/flat/family_tables.h"
#include "tests/flat/text_fields.h"
#include "tests/flat/texts.h"
#include "tests/hostile/attack.h"

namespace hostile {
namespace {

constexpr std::size_t kWidestKey = 24;

std::string CutTo(const std::string& text, std::size_t width) {
  return IsUtf8(text) ? texts::Cut(text, width) : text.substr(0, width);
}

// Where a text that is no UTF-8 has the border of a character is anyone's guess.
bool WhereToCutIsKnown(const std::string& text, std::size_t width) {
  return IsUtf8(text) || text.size() <= width;
}

// Found by another of its natural keys, where it has several.
void VaryKey(tagTDOCTOR* record, Draw& draw) {
  if (draw.OneIn(2)) record->szSrvID[0] = '\0';
}
void VaryKey(tagTPATIENT* record, Draw& draw) {
  if (!draw.OneIn(3)) record->szSlidaID[0] = '\0';
  if (draw.OneIn(2)) record->szSrvID[0] = '\0';
}
template <class Record>
void VaryKey(Record*, Draw&) {}

// Where the library itself wants the location of what is added.
void EmptyLocation(tagTIMAGE* record) { record->szLoc[0] = '\0'; }
void EmptyLocation(tagTGROUP* record) { record->szLoc[0] = '\0'; }
void EmptyLocation(tagTTEST* record) { record->szLoc[0] = '\0'; }
template <class Record>
void EmptyLocation(Record*) {}

template <class Record>
bool AllUtf8(const Record& record) {
  for (const family::TextField& field : family::TextFields<Record>()) {
    if (!IsUtf8(field.Get(record))) return false;
  }
  return true;
}

}  // namespace

template <class Table>
void Attack::ExpectStored(const typename Table::Record& record) {
  const auto fields = family::TextFields<typename Table::Record>();
  std::string columns;
  for (const family::TextField& field : fields) columns += "," + std::string(field.column);
  const auto rows =
      m_raw.Query(std::string("SELECT ") + Table::kKeyColumn + columns + " FROM " + Table::kTable +
                  " WHERE " + Table::kKeyColumn + " = " + std::to_string(family::Key(record)));
  ASSERT_EQ(rows.size(), 1u);
  typename Table::Record read{};
  family::SetKey(&read, family::Key(record));
  ASSERT_EQ(Table::Get(&read), 0);
  for (std::size_t i = 0; i < fields.size(); ++i) {
    EXPECT_EQ(rows[0][i + 1].value_or(""), fields[i].Get(record)) << fields[i].column;
    EXPECT_EQ(fields[i].Get(read), fields[i].Get(record)) << fields[i].column;
  }
}

template <class Table>
void Attack::OneRecord(const std::string& text) {
  using Record = typename Table::Record;
  SCOPED_TRACE(Table::kName);
  Record record = Table::Fill(7);
  for (const family::TextField& field : family::TextFields<Record>())
    field.Set(&record, CutTo(m_draw.OneIn(3) ? m_draw.Valid(200) : text, field.width - 1));
  VaryKey(&record, m_draw);
  EmptyLocation(&record);
  m_calls += 5;
  const Record given = record;
  const WORD added = Table::Add(&record);
  if (added != 0) {
    // The images to be replaced are looked for before the add, where the database may refuse the text, too.
    EXPECT_FALSE(AllUtf8(record)) << added;
    EXPECT_TRUE(added == 6 || added == 31) << added;
    record = given;
    Table::Get(&record);
    Table::EditSel(&record, KYODBC_MASK_ALL);
    Table::Delete(&record);
    return;
  }
  if (!Table::kHasNaturalKey) {
    LONG key = 0;
    EXPECT_EQ(Table::LastID(&key), 0);
    family::SetKey(&record, key);
  }
  ExpectStored<Table>(record);
  Record named = record;
  if (Table::kHasNaturalKey) family::SetKey(&named, 0);
  Record found = named;
  EXPECT_EQ(Table::Get(&found), 0);
  EXPECT_EQ(family::Key(found), family::Key(record));
  EXPECT_EQ(Table::Edit(&named), 0);
  ExpectStored<Table>(record);
  if (Table::kHasNaturalKey) family::SetKey(&named, 0);
  EXPECT_EQ(Table::Delete(&named), 0);
}

void Attack::Records(const std::string& text) {
  OneRecord<family::Doctors>(text);
  OneRecord<family::Stations>(text);
  OneRecord<family::Units>(text);
  OneRecord<family::Patients>(text);
  OneRecord<family::Images>(text);
  OneRecord<family::Makros>(text);
  OneRecord<family::Groups>(text);
  OneRecord<family::Diagnoses>(text);
  OneRecord<family::Configs>(text);
  OneRecord<family::Tests>(text);
}

void Attack::Settings(const std::string& text) {
  constexpr std::size_t kStationWidth = sizeof(tagTSTATION::szName) - 1;
  SCOPED_TRACE("settings");
  tagTSTATION station{};
  support::SetText(station.szName, CutTo(text, kStationWidth));
  const bool station_added = DB_AddNewTStat(&station) == 0;
  EXPECT_TRUE(station_added || !IsUtf8(station.szName));
  m_calls += 6;
  char value[300] = {};
  LONG length = -1;
  // Of a station and a setting that are not there.
  EXPECT_EQ(DB_GetProfileString(text.c_str(), station.szName, "default", value, sizeof value, &length), 0);
  EXPECT_STREQ(value, "default");
  const WORD written = DB_WriteProfileString(text.c_str(), station.szName, text.c_str());
  EXPECT_TRUE(written == 0 || !IsUtf8(text)) << written;
  if (written == 0) {
    ExpectSetting(text, station);
    EXPECT_EQ(DB_WriteProfileString(text.c_str(), station.szName, ""), 0);
  }
  if (station_added) {
    EXPECT_EQ(DB_DeleteTStat(&station), 0);
  }
  EXPECT_EQ(DB_GetProfileString(text.c_str(), text.c_str(), text.c_str(), value, sizeof value, &length), 0);
  if (WhereToCutIsKnown(text, sizeof value - 1)) {
    EXPECT_EQ(value, CutTo(text, sizeof value - 1));
  }
}

// The setting of this key and value is there, and is one row.
void Attack::ExpectSetting(const std::string& text, const tagTSTATION& station) {
  constexpr std::size_t kValueWidth = sizeof(tagTCONFIG::szSet) - 1;
  char value[300] = {};
  EXPECT_EQ(DB_GetProfileString(text.c_str(), station.szName, "default", value, sizeof value, nullptr), 0);
  if (WhereToCutIsKnown(text, kValueWidth)) {
    EXPECT_EQ(value, CutTo(text, kValueWidth));
  }
  EXPECT_EQ(DB_WriteProfileInt(text.c_str(), station.szName, 7), 0);
  LONG number = 0;
  EXPECT_EQ(DB_GetProfileInt(text.c_str(), station.szName, 1, &number), 0);
  EXPECT_EQ(number, 7);
  const std::string ours =
      "tCfgCulIntDrIDFk = 1 AND tCfgCulIntStatIDFk = " + std::to_string(support::Val(station.lStatID));
  EXPECT_EQ(m_raw.Count("TConfig", ours), 1);
  if (WhereToCutIsKnown(text, kWidestKey)) {
    EXPECT_EQ(m_raw.Text("SELECT tCfgSKey FROM TConfig WHERE " + ours), CutTo(text, kWidestKey));
  }
}

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
  DB_AddNewTDr(&doctor);
  m_calls += 4;
  const WORD added = DB_AddNewPat(&record);
  EXPECT_TRUE(added == 0 || !storable) << added;
  if (added == 0) {
    const auto rows =
        m_raw.Query("SELECT tPatSName, tPatSFirstname FROM TPatient WHERE tPatCulIntPatIDPk = " +
                    std::to_string(support::Val(record.dwID)));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0], support::Text(record.szName));
    EXPECT_EQ(rows[0][1], support::Text(record.szFirstname));
    tagPATIENTCOMPACT read{};
    read.dwID = record.dwID;
    EXPECT_EQ(DB_GetPat(&read), 0);
    EXPECT_EQ(support::Text(read.szName), support::Text(record.szName));
    EXPECT_EQ(support::Text(read.szDrName), support::Text(record.szDrName));
    EXPECT_EQ(DB_EditPat(&read), 0);
    EXPECT_EQ(DB_DeletePat(&record), 0);
  }
  if (support::Val(doctor.lDrID) != 0) {
    EXPECT_EQ(DB_DeleteTDr(&doctor), 0);
  }
}

// The packed texts of a unit are taken apart at a byte that hostile texts have, too: only whole rows count.
void Attack::CompactUnit(const std::string& text) {
  SCOPED_TRACE("compact unit");
  tagPATIENTCOMPACT record{};
  support::SetText(record.szName, CutTo(text, sizeof record.szName - 1));
  support::SetText(record.szFirstname, CutTo(text, sizeof record.szFirstname - 1));
  support::SetText(record.szDrName, CutTo(text, sizeof record.szDrName - 1));
  support::SetText(record.szIdent, CutTo("]" + text, sizeof record.szIdent - 1));
  LONG rows = -1;
  EXPECT_EQ(DB_GetNumTUnit(&rows), 0);
  m_calls += 3;
  const WORD added = DB_AddNewUnit(&record);
  EXPECT_TRUE(added == 0 || added == 1 || added == 6) << added;
  LONG rows_after = -1;
  EXPECT_EQ(DB_GetNumTUnit(&rows_after), 0);
  EXPECT_EQ(rows_after, rows + (added == 6 ? 0 : 1));
  LONG newest = 0;
  EXPECT_EQ(DB_GetLastUnitID(&newest), 0);
  if (added == 6) {
    DB_DeleteUnit(&record);
    return;
  }
  record.dwID = static_cast<DWORD>(newest);
  EXPECT_EQ(DB_EditUnit(&record), 0);
  record.dwID = static_cast<DWORD>(newest);
  EXPECT_EQ(DB_DeleteUnit(&record), 0);
}

void Attack::CompactRecords(const std::string& text) {
  CompactPatient(text);
  CompactUnit(text);
}

}  // namespace hostile
