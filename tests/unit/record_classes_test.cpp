// What all ten record classes promise, and the edges of taking over a plain record.
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>
#include <type_traits>

#include "tests/support/records.h"
#include "tests/unit/record_rows.h"

namespace {

using support::SetText;
using support::SetUnterminated;

// Values that differ from row to row and from `salt` to `salt`; none of them is 0 or empty.
LONG NumberFor(std::size_t row, int salt) { return static_cast<LONG>(row) * 100 + salt; }

std::string TextFor(std::size_t row, int salt) {
  return std::string(1, static_cast<char>('a' + row)) + std::to_string(salt) + "\xC3\xBC";
}

TIMESTAMP_STRUCT TimeFor(std::size_t row, int salt) {
  TIMESTAMP_STRUCT time = support::Ts(1990 + static_cast<int>(row), 5, salt, 23, 59, 58);
  time.fraction = 7;
  return time;
}

void Fill(std::vector<Row> rows, int salt) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].number != nullptr) *rows[i].number = NumberFor(i, salt);
    if (rows[i].text != nullptr) *rows[i].text = TextFor(i, salt).c_str();
    if (rows[i].time != nullptr) *rows[i].time = TimeFor(i, salt);
  }
}

// What fits the field of a plain record: one character fields take the first byte.
std::string TextForField(const Row& row, std::size_t index, int salt) {
  return row.slot.size == 2 ? TextFor(index, salt).substr(0, 1)
                            : TextFor(index, salt).substr(0, row.slot.size - 1);
}

template <class T>
void Store(char* field, const T& value) {
  std::memcpy(field, &value, sizeof value);
}

void StoreField(char* record, const Row& row, std::size_t index, int salt) {
  char* field = record + row.slot.offset;
  if (row.text != nullptr) {
    const std::string text = TextForField(row, index, salt);
    std::memcpy(field, text.c_str(), text.size() + 1);
  } else if (row.time != nullptr) {
    Store(field, TimeFor(index, salt));
  } else if (row.slot.size == sizeof(WORD)) {
    Store(field, static_cast<WORD>(NumberFor(index, salt)));
  } else {
    Store(field, NumberFor(index, salt));
  }
}

template <class Class>
typename Case<Class>::Record RecordFor(int salt) {
  typename Case<Class>::Record record;
  std::memset(&record, 0, sizeof record);
  Class object;
  const std::vector<Row> rows = Case<Class>::Rows(object);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].slot.size > 0) StoreField(reinterpret_cast<char*>(&record), rows[i], i, salt);
  }
  return record;
}

void ExpectRow(const Row& row, std::size_t index, int salt, const std::string& text) {
  SCOPED_TRACE(row.name);
  if (row.number != nullptr) {
    EXPECT_EQ(*row.number, NumberFor(index, salt));
  }
  if (row.text != nullptr) {
    EXPECT_EQ(row.text->View(), text);
  }
  if (row.time != nullptr) {
    const TIMESTAMP_STRUCT expected = TimeFor(index, salt);
    EXPECT_EQ(std::memcmp(row.time, &expected, sizeof expected), 0) << support::TimeText(*row.time);
  }
}

void ExpectFilled(const std::vector<Row>& rows, int salt) {
  for (std::size_t i = 0; i < rows.size(); ++i) ExpectRow(rows[i], i, salt, TextFor(i, salt));
}

const void* Address(const Row& row) {
  if (row.number != nullptr) return row.number;
  if (row.text != nullptr) return row.text;
  return row.time;
}

template <class Class>
class RecordClasses : public testing::Test {};

using AllClasses = testing::Types<CTCfgRaw, CTDiagRaw, CTDrRaw, CTGrpRaw, CTImageRaw, CTMakRaw, CTPatientRaw,
                                  CTStatRaw, CTTestRaw, CTUnitRaw>;
TYPED_TEST_SUITE(RecordClasses, AllClasses);

TYPED_TEST(RecordClasses, HoldOneMemberForEveryColumnOfTheTable) {
  TypeParam object;
  const std::vector<Row> rows = Case<TypeParam>::Rows(object);
  std::set<const void*> members;
  for (const Row& row : rows) members.insert(Address(row));
  EXPECT_EQ(rows.size(), Case<TypeParam>::kColumns);
  EXPECT_EQ(members.size(), rows.size());
}

TYPED_TEST(RecordClasses, ColumnConstantsHoldTheirOwnNames) {
  TypeParam object;
  for (const Row& row : Case<TypeParam>::Rows(object)) EXPECT_STREQ(row.column, row.name);
}

TYPED_TEST(RecordClasses, MembersFollowEachOtherWithTheKeyFirst) {
  TypeParam object;
  const std::vector<Row> rows = Case<TypeParam>::Rows(object);
  for (std::size_t i = 1; i < rows.size(); ++i) {
    EXPECT_LT(Address(rows[i - 1]), Address(rows[i])) << rows[i].name;
  }
}

TYPED_TEST(RecordClasses, ArePolymorphicWithAVirtualDestructor) {
  EXPECT_TRUE(std::is_polymorphic_v<TypeParam>);
  EXPECT_TRUE(std::has_virtual_destructor_v<TypeParam>);
}

TYPED_TEST(RecordClasses, StartWithZeroNumbersEmptyTextsAndAllZeroTimes) {
  alignas(TypeParam) unsigned char memory[sizeof(TypeParam)];
  std::memset(memory, 0xAB, sizeof memory);  // a member left alone would keep this
  auto* object = new (memory) TypeParam;
  const TIMESTAMP_STRUCT zero{};
  for (const Row& row : Case<TypeParam>::Rows(*object)) {
    SCOPED_TRACE(row.name);
    if (row.number != nullptr) {
      EXPECT_EQ(*row.number, 0);
    }
    if (row.text != nullptr) {
      EXPECT_TRUE(row.text->IsEmpty());
    }
    if (row.time != nullptr) {
      EXPECT_EQ(std::memcmp(row.time, &zero, sizeof zero), 0);
    }
  }
  object->~TypeParam();
}

TYPED_TEST(RecordClasses, CopyConstructorTakesEveryMember) {
  TypeParam source;
  Fill(Case<TypeParam>::Rows(source), 3);
  TypeParam copy(source);
  Fill(Case<TypeParam>::Rows(source), 4);
  ExpectFilled(Case<TypeParam>::Rows(copy), 3);
}

TYPED_TEST(RecordClasses, AssignmentTakesEveryMember) {
  TypeParam source, copy;
  Fill(Case<TypeParam>::Rows(source), 3);
  Fill(Case<TypeParam>::Rows(copy), 5);
  EXPECT_EQ(&(copy = source), &copy);
  Fill(Case<TypeParam>::Rows(source), 4);
  ExpectFilled(Case<TypeParam>::Rows(copy), 3);
}

TYPED_TEST(RecordClasses, AssignmentToItselfChangesNothing) {
  TypeParam object;
  Fill(Case<TypeParam>::Rows(object), 3);
  const TypeParam& same = object;
  object = same;
  ExpectFilled(Case<TypeParam>::Rows(object), 3);
}

TYPED_TEST(RecordClasses, CopyFromTakesTheFieldsOfTheRecordAndLeavesTheOtherMembers) {
  TypeParam object;
  const std::vector<Row> rows = Case<TypeParam>::Rows(object);
  Fill(rows, 3);
  object.CopyFrom(RecordFor<TypeParam>(9));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const bool carried = rows[i].slot.size > 0;
    ExpectRow(rows[i], i, carried ? 9 : 3, carried ? TextForField(rows[i], i, 9) : TextFor(i, 3));
  }
}

TYPED_TEST(RecordClasses, CopyFromAnEmptyRecordEmptiesTheMembersItCarries) {
  TypeParam object;
  Fill(Case<TypeParam>::Rows(object), 3);
  typename Case<TypeParam>::Record record;
  std::memset(&record, 0, sizeof record);
  object.CopyFrom(record);
  for (const Row& row : Case<TypeParam>::Rows(object)) {
    SCOPED_TRACE(row.name);
    if (row.text != nullptr) {
      EXPECT_EQ(row.text->IsEmpty(), row.slot.size > 0);
    }
    if (row.number != nullptr) {
      EXPECT_EQ(*row.number == 0, row.slot.size > 0);
    }
  }
}

TYPED_TEST(RecordClasses, CopyFromAnUnterminatedRecordStopsAtEachFieldsEnd) {
  TypeParam object;
  typename Case<TypeParam>::Record record;
  std::memset(&record, 'x', sizeof record);
  object.CopyFrom(record);
  for (const Row& row : Case<TypeParam>::Rows(object)) {
    if (row.text != nullptr && row.slot.size > 0) {
      EXPECT_EQ(row.text->View(), std::string(row.slot.size - 1, 'x')) << row.name;
    }
  }
}

TEST(RecordClassEdges, BytesBehindTheZeroByteAreNotPartOfTheText) {
  tagTSTATION record{};
  SetUnterminated(record.szName, 'x');
  record.szName[4] = '\0';
  CTStatRaw object;
  object.CopyFrom(record);
  EXPECT_EQ(object.m_strName.View(), "xxxx");
}

TEST(RecordClassEdges, UnterminatedFieldLosesACharacterThatWouldNotFitBesideAZeroByte) {
  tagTSTATION record{};  // 17 bytes of name, of which 16 are text
  SetUnterminated(record.szName, 'x');
  std::memcpy(record.szName + 15, "\xC3\xBC", 2);
  CTStatRaw object;
  object.CopyFrom(record);
  EXPECT_EQ(object.m_strName.View(), std::string(15, 'x'));
}

TEST(RecordClassEdges, TestResultOf4095BytesArrivesUnchanged) {
  const std::string result(4095, 'r');
  tagTTEST record{};
  SetText(record.szResult, result);
  CTTestRaw object;
  object.CopyFrom(record);
  EXPECT_EQ(object.m_strResult.View(), result);
}

TEST(RecordClassEdges, TestResultTakesMoreThanTheRecordHolds) {
  const std::string result(1'000'000, 'r');
  CTTestRaw object;
  object.m_strResult = result.c_str();
  const CTTestRaw copy(object);
  EXPECT_EQ(copy.m_strResult.View(), result);
}

TEST(RecordClassEdges, MakroOrdinalOf65535StaysPositive) {
  tagTMAKRO record{};
  record.wNo = 65535;
  CTMakRaw object;
  object.CopyFrom(record);
  EXPECT_EQ(object.m_lNo, 65535);
}

TEST(RecordClassEdges, GroupMakroCountOf65535StaysPositive) {
  tagTGROUP record{};
  record.wMakNo = 65535;
  CTGrpRaw object;
  object.CopyFrom(record);
  EXPECT_EQ(object.m_lMakNo, 65535);
}

TEST(RecordClassEdges, ImpossibleDatesAndNegativeKeysAreTakenAsTheyAre) {
  tagTPATIENT record{};
  record.lPatID = -5;
  record.dBirthday = support::Ts(-1, 13, 32, 25, 61, 61);
  CTPatientRaw object;
  object.CopyFrom(record);
  EXPECT_EQ(object.m_lPatID, -5);
  EXPECT_EQ(object.m_dBirthday.year, -1);
  EXPECT_EQ(object.m_dBirthday.month, 13);
  EXPECT_EQ(object.m_dBirthday.second, 61);
}

}  // namespace
