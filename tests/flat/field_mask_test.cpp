// Which bit of a field mask writes which column.
#include <vector>

#include "tests/flat/family.h"

using family::Key;
using family::SetKey;

namespace {

// The columns of a table in the order of their bits, from 0x1 upward.
template <class Table>
std::vector<std::string> Columns();

template <>
std::vector<std::string> Columns<family::Doctors>() {
  return {"tDrSName", "tDrSSrvID"};
}
template <>
std::vector<std::string> Columns<family::Stations>() {
  return {"tStatSName"};
}
template <>
std::vector<std::string> Columns<family::Units>() {
  return {"tUnitSType",   "tUnitSName",    "tUnitDAccept",      "tUnitSCtrlUnitSNo", "tUnitSSensSNo",
          "tUnitSGenSNo", "tUnitSTubeSNo", "tUnitSCtrlElemSNo", "tUnitSConeSNo",     "tUnitSTestBodySNo"};
}
// The derived fields behind these have tests of their own.
template <>
std::vector<std::string> Columns<family::Patients>() {
  return {"tPatCulIntDrIDFk", "tPatSExtPatID",  "tPatSSrvID",    "tPatSSlidaID", "tPatSSocID",
          "tPatSName",        "tPatSFirstname", "tPatDBirthday", "tPatSSex",     "tPatFSelect"};
}
template <>
std::vector<std::string> Columns<family::Images>() {
  return {"tImgCulIntPatIDFk", "tImgCulIntUnitIDFk", "tImgCulIntDrIDFk", "tImgSType",
          "tImgSRegio",        "tImgSName",          "tImgTs",           "tImgSPreg",
          "tImgSOrdType",      "tImgSOrdRegio",      "tImgSOrdReason",   "tImgSArcType",
          "tImgSArcLoc",       "tImgSArcFile",       "tImgSArcVol",      "tImgDArcOut",
          "tImgDArcIn",        "tImgSPvwLoc",        "tImgSPvwFile",     "tImgSLoc",
          "tImgSFile",         "tImgCulIntMakIDLast"};
}
template <>
std::vector<std::string> Columns<family::Makros>() {
  return {"tMakCulIntImgIDFk", "tMakSName", "tMakTsLast", "tMakSFile", "tMakSLoc", "tMakUwNo"};
}
// The preview location comes before the preview file here, unlike in the record.
template <>
std::vector<std::string> Columns<family::Groups>() {
  return {"tGrpCulIntPatIDFk", "tGrpSName",   "tGrpTs",      "tGrpSLoc",
          "tGrpSFile",         "tGrpUwMakNo", "tGrpSPvwLoc", "tGrpSPvwFile"};
}
template <>
std::vector<std::string> Columns<family::Diagnoses>() {
  return {"tDiagCulIntImgIDFk", "tDiagCulIntDrIDFk", "tDiagSRegio", "tDiagTs", "tDiagSCode", "tDiagSText"};
}
template <>
std::vector<std::string> Columns<family::Configs>() {
  return {"tCfgCulIntDrIDFk", "tCfgCulIntStatIDFk", "tCfgSKey", "tCfgSSet"};
}
template <>
std::vector<std::string> Columns<family::Tests>() {
  return {"tTstCulIntUnitIDFk", "tTstSPerson",  "tTstSType",   "tTstSRegio",   "tTstSName",   "tTstTs",
          "tTstSResult",        "tTstSArcType", "tTstSArcLoc", "tTstSArcFile", "tTstSArcVol", "tTstDArcOut",
          "tTstDArcIn",         "tTstSLoc",     "tTstSFile"};
}

// An added group, image or test lies at the library's location; another one makes the write visible.
template <class Record>
void MoveElsewhere(Record*) {}
void MoveElsewhere(tagTGROUP* record) { support::SetText(record->szLoc, "5"); }
void MoveElsewhere(tagTIMAGE* record) { support::SetText(record->szLoc, "5"); }
void MoveElsewhere(tagTTEST* record) { support::SetText(record->szLoc, "5"); }

// The library writes the time of the change there, not what the record holds.
bool IsStamped(const std::string& column) { return column == "tMakTsLast"; }

template <class Table>
class FieldMask : public family::TableTest<Table> {
 protected:
  support::Row Stored(LONG key) {
    std::string columns;
    for (const std::string& column : Columns<Table>()) columns += (columns.empty() ? "" : ", ") + column;
    return this->Raw()
        .Query("SELECT " + columns + " FROM " + Table::kTable + " WHERE " + Table::kKeyColumn + "=" +
               std::to_string(key))
        .at(0);
  }
};
TYPED_TEST_SUITE(FieldMask, family::AllTables, family::Name);

TYPED_TEST(FieldMask, EachBitWritesItsColumnAndNoOther) {
  using Table = TypeParam;
  // What the columns look like when all of them are written.
  auto written = this->Added(1);
  auto other = Table::Fill(2);
  MoveElsewhere(&other);
  SetKey(&other, Key(written));
  ASSERT_EQ(Table::Edit(&other), 0);
  const support::Row expected = this->Stored(Key(written));

  const std::vector<std::string> columns = Columns<Table>();
  for (std::size_t bit = 0; bit < columns.size(); ++bit) {
    const LONG key = Key(this->Added(3));
    const support::Row before = this->Stored(key);
    SetKey(&other, key);
    ASSERT_EQ(Table::EditSel(&other, DWORD{1} << bit), 0) << columns[bit];
    const support::Row after = this->Stored(key);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (i == bit && IsStamped(columns[i])) {
        EXPECT_GE(after[i], expected[i]) << columns[i];  // the clock goes on between the two edits
      } else {
        EXPECT_EQ(after[i], i == bit ? expected[i] : before[i]) << columns[bit] << " wrote " << columns[i];
      }
    }
    this->Raw().Exec(std::string("DELETE FROM ") + Table::kTable + " WHERE " + Table::kKeyColumn + "=" +
                     std::to_string(key));
  }
}

TYPED_TEST(FieldMask, EveryFieldOfTheRecordDiffersBetweenTheTwoThatAreCompared) {
  auto first = this->Added(2);
  const LONG second = Key(this->Added(3));
  MoveElsewhere(&first);
  ASSERT_EQ(TypeParam::Edit(&first), 0);
  const support::Row one = this->Stored(Key(first));
  const support::Row two = this->Stored(second);
  const std::vector<std::string> columns = Columns<TypeParam>();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (IsStamped(columns[i])) continue;
    EXPECT_NE(one[i], two[i]) << columns[i];
  }
}

TYPED_TEST(FieldMask, BitsWithoutAFieldWriteNothing) {
  using Table = TypeParam;
  const LONG key = Key(this->Added(1));
  const support::Row before = this->Stored(key);
  auto other = Table::Fill(2);
  SetKey(&other, key);
  EXPECT_EQ(Table::EditSel(&other, 0xFFC00000), 0);
  EXPECT_EQ(this->Stored(key), before);
}

TYPED_TEST(FieldMask, TheKeyIsNeverWritten) {
  using Table = TypeParam;
  const LONG key = Key(this->Added(1));
  auto other = Table::Fill(2);
  SetKey(&other, key);
  EXPECT_EQ(Table::EditSel(&other, 0xFFFFFFFF), 0);
  EXPECT_TRUE(this->Exists(key));
}

}  // namespace
