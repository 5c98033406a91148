// Rows into plain records and back, for all ten tables.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "tests/db/table_layouts.h"
#include "tests/support/fixtures.h"

namespace {

using layouts::Field;
using support::Row;
using support::Ts;

constexpr int kKey = 77;
const std::string kKeyText = "77";

// Two different values for every field, as the database spells them.
std::string ValueText(const Field& field, std::size_t index, bool second) {
  const int number = static_cast<int>(index) + (second ? 500 : 100);
  const std::string day = std::to_string(10 + index % 19);
  switch (field.kind) {
    case 'K':
      return kKeyText;
    case 'O':
      return second ? "65535" : "40000";
    case 'F':
      return second ? "0" : "1";
    case 'D':
      return (second ? "1950-02-" : "2001-05-") + day;
    case 'S':
      return (second ? "1950-02-" : "2001-05-") + day + " 10:20:30";
    case 'N':
      return std::to_string(number);
    default:
      return std::string(std::min<std::size_t>(field.size - 1, 20),
                         static_cast<char>((second ? 'A' : 'a') + index));
  }
}

TIMESTAMP_STRUCT TimeOf(const std::string& text) {
  const auto part = [&](std::size_t start, std::size_t length) {
    return start < text.size() ? std::stoi(text.substr(start, length)) : 0;
  };
  return Ts(part(0, 4), part(5, 2), part(8, 2), part(11, 2), part(14, 2), part(17, 2));
}

void PutField(void* record, const Field& field, const std::string& value) {
  char* place = static_cast<char*>(record) + field.offset;
  if (field.kind == 'T' || field.kind == 'X') {
    std::memset(place, 0, field.size);
    std::copy(value.begin(), value.end(), place);
  } else if (field.kind == 'D' || field.kind == 'S') {
    const TIMESTAMP_STRUCT time = TimeOf(value);
    std::memcpy(place, &time, sizeof time);
  } else {
    const LONG number = std::stoi(value);
    std::memcpy(place, &number, field.size);
  }
}

std::string FieldText(const void* record, const Field& field) {
  const char* place = static_cast<const char*>(record) + field.offset;
  if (field.kind == 'T' || field.kind == 'X') return std::string(place, strnlen(place, field.size));
  if (field.kind == 'D' || field.kind == 'S') {
    TIMESTAMP_STRUCT time;
    std::memcpy(&time, place, sizeof time);
    const std::string text = support::TimeText(time);
    return field.kind == 'D' && text.ends_with(" 00:00:00") ? text.substr(0, 10) : text;
  }
  LONG number = 0;
  std::memcpy(&number, place, field.size);
  return std::to_string(number);
}

template <class Layout>
class RecordCopies : public support::ConnectedTest {
 protected:
  using Set = typename Layout::Set;
  using Record = typename Layout::Record;

  static std::string Columns() {
    std::string columns;
    for (const Field& field : Layout::kFields)
      columns += (columns.empty() ? "" : ",") + std::string(field.column);
    return columns;
  }

  static std::string KeyColumn() {
    for (const Field& field : Layout::kFields) {
      if (field.kind == 'K') return field.column;
    }
    return "";
  }

  static std::vector<std::string> Values(bool second) {
    std::vector<std::string> values;
    for (const Field& field : Layout::kFields) values.push_back(ValueText(field, values.size(), second));
    return values;
  }

  static Record MakeRecord(bool second) {
    Record record{};
    const std::vector<std::string> values = Values(second);
    for (std::size_t i = 0; i < values.size(); ++i) PutField(&record, Layout::kFields[i], values[i]);
    return record;
  }

  void StoreRow() {
    Raw().Exec(std::string("DELETE FROM ") + Layout::kTable);
    std::string list;
    const std::vector<std::string> values = Values(false);
    for (std::size_t i = 0; i < values.size(); ++i) {
      const char kind = Layout::kFields[i].kind;
      const bool quoted = kind != 'K' && kind != 'N' && kind != 'O' && kind != 'F';
      list += (i == 0 ? "" : ",") + (quoted ? "'" + values[i] + "'" : values[i]);
    }
    Raw().Exec(std::string("INSERT INTO ") + Layout::kTable + " (" + Columns() + ") VALUES (" + list + ")");
  }

  std::vector<std::string> StoredRow() {
    const std::vector<Row> rows = Raw().Query("SELECT " + Columns() + " FROM " + Layout::kTable + " WHERE " +
                                              KeyColumn() + "=" + kKeyText);
    std::vector<std::string> texts;
    for (const support::Value& value : rows.at(0)) texts.push_back(value.value_or("NULL"));
    return texts;
  }
};
TYPED_TEST_SUITE(RecordCopies, layouts::AllTables, layouts::TableName);

TYPED_TEST(RecordCopies, EveryFieldOfARowReachesItsPlaceInTheRecord) {
  this->StoreRow();
  typename TypeParam::Set set(nullptr, nullptr);
  ASSERT_NE(set.Open(set.m_nOpenType, nullptr, 0), 0);
  typename TypeParam::Record record;
  std::memset(static_cast<void*>(&record), 0x7E, sizeof record);
  LONG position = 1;
  ASSERT_EQ(set.GetRecByPos(&record, &position), 0);
  const auto values = this->Values(false);
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(FieldText(&record, TypeParam::kFields[i]), values[i]) << TypeParam::kFields[i].column;
  }
}

TYPED_TEST(RecordCopies, EveryBitWritesItsOwnColumnAndNoOther) {
  const auto record = this->MakeRecord(true);
  const auto fresh = this->Values(true);
  for (std::size_t changed = 0; changed < fresh.size(); ++changed) {
    const Field& field = TypeParam::kFields[changed];
    if (field.bit == 0) continue;
    this->StoreRow();
    typename TypeParam::Set set(nullptr, nullptr);
    ASSERT_NE(set.Open(set.m_nOpenType, nullptr, 0), 0);
    set.m_dwFieldMask = field.bit;
    set.Edit();
    set.CopyIn(&record);
    ASSERT_NE(set.Update(), 0) << field.column;
    auto expected = this->Values(false);
    expected[changed] = fresh[changed];
    EXPECT_EQ(this->StoredRow(), expected) << field.column;
  }
}

TYPED_TEST(RecordCopies, WithoutAnyBitNothingIsWritten) {
  this->StoreRow();
  const auto record = this->MakeRecord(true);
  typename TypeParam::Set set(nullptr, nullptr);
  ASSERT_NE(set.Open(set.m_nOpenType, nullptr, 0), 0);
  set.m_dwFieldMask = 0;
  set.Edit();
  set.CopyIn(&record);
  EXPECT_EQ(set.Update(), 0);
  EXPECT_EQ(this->StoredRow(), this->Values(false));
}

TYPED_TEST(RecordCopies, AllBitsWriteAllButTheKey) {
  this->StoreRow();
  auto record = this->MakeRecord(true);
  for (const Field& field : TypeParam::kFields) {
    if (field.kind == 'K') PutField(&record, field, "88");
  }
  typename TypeParam::Set set(nullptr, nullptr);
  ASSERT_NE(set.Open(set.m_nOpenType, nullptr, 0), 0);
  set.m_dwFieldMask = 0xFFFFFFFF;
  set.Edit();
  set.CopyIn(&record);
  ASSERT_NE(set.Update(), 0);
  const auto stored = this->StoredRow();
  const auto fresh = this->Values(true);
  for (std::size_t i = 0; i < fresh.size(); ++i) {
    if (TypeParam::kFields[i].bit == 0) continue;
    EXPECT_EQ(stored[i], fresh[i]) << TypeParam::kFields[i].column;
  }
}

TYPED_TEST(RecordCopies, UnterminatedTextsEndWithTheirFieldOnTheWayIn) {
  typename TypeParam::Record record;
  std::memset(static_cast<void*>(&record), 'z', sizeof record);
  for (const Field& field : TypeParam::kFields) {
    if (field.kind != 'T' && field.kind != 'X') PutField(&record, field, ValueText(field, 0, false));
  }
  this->StoreRow();
  typename TypeParam::Set set(nullptr, nullptr);
  ASSERT_NE(set.Open(set.m_nOpenType, nullptr, 0), 0);
  set.m_dwFieldMask = 0xFFFFFFFF;
  set.Edit();
  set.CopyIn(&record);
  ASSERT_NE(set.Update(), 0);
  const auto stored = this->StoredRow();
  for (std::size_t i = 0; i < stored.size(); ++i) {
    const Field& field = TypeParam::kFields[i];
    if (field.kind != 'T' && field.kind != 'X') continue;
    EXPECT_EQ(stored[i], std::string(field.size - 1, 'z')) << field.column;
  }
}

TYPED_TEST(RecordCopies, NullsAreReadAsZeroAndEmpty) {
  this->Raw().Exec(std::string("DELETE FROM ") + TypeParam::kTable);
  this->Raw().Exec(std::string("INSERT INTO ") + TypeParam::kTable + " (" + this->KeyColumn() +
                   ") VALUES (77)");
  typename TypeParam::Set set(nullptr, nullptr);
  ASSERT_NE(set.Open(set.m_nOpenType, nullptr, 0), 0);
  typename TypeParam::Record record;
  std::memset(static_cast<void*>(&record), 0x7E, sizeof record);
  ASSERT_EQ(set.GetRecByPos(&record, nullptr), 0);
  for (const Field& field : TypeParam::kFields) {
    const bool time = field.kind == 'D' || field.kind == 'S';
    const bool text = field.kind == 'T' || field.kind == 'X';
    const std::string expected = field.kind == 'K' ? kKeyText
                                 : text            ? ""
                                 : time            ? support::TimeText({})
                                                   : "0";
    const std::string found = FieldText(&record, field);
    EXPECT_TRUE(found == expected || (field.kind == 'D' && expected.starts_with(found))) << field.column;
  }
}

TYPED_TEST(RecordCopies, ReadingAtPositionZeroTakesTheCurrentRowAndWritesThePositionBack) {
  this->StoreRow();
  typename TypeParam::Set set(nullptr, nullptr);
  ASSERT_NE(set.Open(set.m_nOpenType, nullptr, 0), 0);
  typename TypeParam::Record record{};
  LONG position = 0;
  EXPECT_EQ(set.GetRecByPos(&record, &position), 0);
  EXPECT_EQ(position, 1);
  EXPECT_EQ(set.m_lID, kKey);
}

TYPED_TEST(RecordCopies, WithoutARowOrARecordNothingIsCopied) {
  this->StoreRow();
  typename TypeParam::Set set(nullptr, nullptr);
  typename TypeParam::Record record;
  std::memset(static_cast<void*>(&record), 0x7E, sizeof record);
  const typename TypeParam::Record before = record;
  LONG position = 1;
  EXPECT_EQ(set.GetRecByPos(&record, &position), 64);
  ASSERT_NE(set.Open(set.m_nOpenType, nullptr, 0), 0);
  position = 2;
  EXPECT_EQ(set.GetRecByPos(&record, &position), 64);
  EXPECT_EQ(std::memcmp(&record, &before, sizeof record), 0);
  EXPECT_EQ(set.GetRecByPos(nullptr, nullptr), 1);
}

}  // namespace
