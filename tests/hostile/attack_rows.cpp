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

// Where the library itself has put what was added, empty before.
void KeepLocation(const tagTIMAGE& from, tagTIMAGE* to) {
  std::memcpy(to->szLoc, from.szLoc, sizeof to->szLoc);
}
void KeepLocation(const tagTGROUP& from, tagTGROUP* to) {
  std::memcpy(to->szLoc, from.szLoc, sizeof to->szLoc);
}
void KeepLocation(const tagTTEST& from, tagTTEST* to) {
  std::memcpy(to->szLoc, from.szLoc, sizeof to->szLoc);
}
template <class Record>
void KeepLocation(const Record&, Record*) {}

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

// The text, or another one, in every field that takes one.
template <class Record>
void Attack::FillTexts(const std::string& text, Record* record) {
  for (const family::TextField& field : family::TextFields<Record>())
    field.Set(record, CutTo(m_draw.OneIn(3) ? m_draw.Valid(200) : text, field.width - 1));
  VaryKey(record, m_draw);
}

// Nothing is there that the texts describe.
template <class Table>
void Attack::ExpectNothing(typename Table::Record record) {
  const auto given = record;
  EXPECT_NE(Table::Get(&record), 0);
  record = given;
  EXPECT_NE(Table::EditSel(&record, KYODBC_MASK_ALL), 0);
  EXPECT_NE(Table::Delete(&given), 0);
}

template <class Table>
void Attack::OneRecord(const std::string& text) {
  using Record = typename Table::Record;
  SCOPED_TRACE(Table::kName);
  Record record = Table::Fill(7);
  const Record plain = record;
  FillTexts(text, &record);
  KeepLocation(Record{}, &record);
  m_calls += 7;
  const Record given = record;
  const WORD added = Table::Add(&record);
  if (added != 0) {
    // The images to be replaced are looked for before the add, where the database may refuse the text, too.
    EXPECT_FALSE(AllUtf8(given)) << added;
    EXPECT_TRUE(added == 6 || added == 31) << added;
    ExpectNothing<Table>(given);
    return;
  }
  if (!Table::kHasNaturalKey) {
    LONG key = 0;
    EXPECT_EQ(Table::LastID(&key), 0);
    family::SetKey(&record, key);
  }
  ExpectStored<Table>(record);
  EditAll<Table>(text, plain, &record);
  Record named = record;
  if (Table::kHasNaturalKey) family::SetKey(&named, 0);
  Record found = named;
  EXPECT_EQ(Table::Get(&found), 0);
  EXPECT_EQ(family::Key(found), family::Key(record));
  EXPECT_EQ(Table::Edit(&named), 0);
  ExpectStored<Table>(record);
  if (Table::kHasNaturalKey) family::SetKey(&named, 0);
  EXPECT_EQ(Table::Delete(&named), 0);
  ExpectNothing<Table>(record);
}

// Other texts into the row of this key: what was to be stored is there, or what was there before.
template <class Table>
void Attack::EditAll(const std::string& text, const typename Table::Record& plain,
                     typename Table::Record* record) {
  typename Table::Record changed = plain;
  FillTexts(text, &changed);
  KeepLocation(*record, &changed);
  family::SetKey(&changed, family::Key(*record));
  const typename Table::Record given = changed;
  const WORD code = Table::Edit(&changed);
  if (code == 0) {
    *record = given;
  } else {
    EXPECT_EQ(code, 6);
    EXPECT_FALSE(AllUtf8(given));
  }
  ExpectStored<Table>(*record);
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

}  // namespace hostile
