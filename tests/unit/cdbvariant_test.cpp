#include <gtest/gtest.h>

#include <algorithm>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/cfieldinfo.h"

namespace {

constexpr TIMESTAMP_STRUCT kTime = {2001, 5, 6, 10, 11, 12, 13};

bool IsZeroed(const CDBVariant& value) {
  return std::all_of(std::begin(value.m_storage), std::end(value.m_storage), [](auto b) { return b == 0; });
}

// One variant of every type, null first.
std::vector<CDBVariant> OneOfEveryType() {
  std::vector<CDBVariant> all(10);
  all[DBVT_BOOL].SetBool(TRUE);
  all[DBVT_UCHAR].SetUChar(200);
  all[DBVT_SHORT].SetShort(-3);
  all[DBVT_LONG].SetLong(70000);
  all[DBVT_SINGLE].SetSingle(1.5F);
  all[DBVT_DOUBLE].SetDouble(-2.25);
  all[DBVT_DATE].SetDate(kTime);
  all[DBVT_STRING].SetString("a text that is too long for the string's own buffer");
  all[DBVT_BINARY].SetBinary(CString("\0\xFF\0", 3));
  return all;
}

void ExpectSameValue(const CDBVariant& value, const CDBVariant& expected) {
  ASSERT_EQ(value.m_dwType, expected.m_dwType);
  switch (expected.m_dwType) {
    case DBVT_DATE:
      EXPECT_NE(value.m_pdate, expected.m_pdate);
      EXPECT_EQ(value.m_pdate->year, expected.m_pdate->year);
      EXPECT_EQ(value.m_pdate->fraction, expected.m_pdate->fraction);
      break;
    case DBVT_STRING:
      EXPECT_NE(value.m_pstring, expected.m_pstring);
      EXPECT_EQ(*value.m_pstring, *expected.m_pstring);
      break;
    case DBVT_BINARY:
      EXPECT_NE(value.m_pbinary, expected.m_pbinary);
      EXPECT_EQ(*value.m_pbinary, *expected.m_pbinary);
      break;
    default:
      EXPECT_TRUE(std::ranges::equal(value.m_storage, expected.m_storage));
  }
}

TEST(CDBVariant, TypesAreTenDistinctNumbersFromNull) {
  const std::vector<DWORD> types = {DBVT_NULL,   DBVT_BOOL,   DBVT_UCHAR, DBVT_SHORT,  DBVT_LONG,
                                    DBVT_SINGLE, DBVT_DOUBLE, DBVT_DATE,  DBVT_STRING, DBVT_BINARY};
  for (DWORD i = 0; i < types.size(); ++i) EXPECT_EQ(types[i], i);
}

TEST(CDBVariant, NewValueIsNullAndZero) {
  const CDBVariant value;
  EXPECT_EQ(value.m_dwType, DBVT_NULL);
  EXPECT_TRUE(IsZeroed(value));
}

TEST(CDBVariant, EveryTypeKeepsItsValue) {
  const std::vector<CDBVariant> all = OneOfEveryType();
  for (DWORD type = 0; type < all.size(); ++type) EXPECT_EQ(all[type].m_dwType, type);
  EXPECT_EQ(all[DBVT_BOOL].m_boolVal, TRUE);
  EXPECT_EQ(all[DBVT_UCHAR].m_chVal, 200);
  EXPECT_EQ(all[DBVT_SHORT].m_iVal, -3);
  EXPECT_EQ(all[DBVT_LONG].m_lVal, 70000);
  EXPECT_EQ(all[DBVT_SINGLE].m_fltVal, 1.5F);
  EXPECT_EQ(all[DBVT_DOUBLE].m_dblVal, -2.25);
  EXPECT_EQ(all[DBVT_STRING].m_pstring->GetLength(), 51);
}

TEST(CDBVariant, DateKeepsAllSevenFields) {
  CDBVariant value;
  value.SetDate(kTime);
  const TIMESTAMP_STRUCT& stored = *value.m_pdate;
  EXPECT_EQ(stored.year, 2001);
  EXPECT_EQ(stored.month, 5);
  EXPECT_EQ(stored.day, 6);
  EXPECT_EQ(stored.hour, 10);
  EXPECT_EQ(stored.minute, 11);
  EXPECT_EQ(stored.second, 12);
  EXPECT_EQ(stored.fraction, 13u);
}

TEST(CDBVariant, BinaryKeepsZeroBytes) {
  CDBVariant value;
  value.SetBinary(CString("\0\xFF\0", 3));
  EXPECT_EQ(value.m_pbinary->View(), std::string_view("\0\xFF\0", 3));
}

TEST(CDBVariant, ShortReadAsLongHasNoRestOfAnEarlierValue) {
  CDBVariant value;
  value.SetLong(-1);
  value.SetShort(5);
  EXPECT_EQ(value.m_lVal, 5);
}

TEST(CDBVariant, LongReadAsShortIsItsLowHalf) {
  CDBVariant value;
  value.SetLong(0x00010007);
  EXPECT_EQ(value.m_iVal, 7);
}

TEST(CDBVariant, SmallValuesAfterAnOwnedOneLeaveNoPointerBehind) {
  for (CDBVariant value : OneOfEveryType()) {
    value.SetUChar(9);
    EXPECT_EQ(value.m_lVal, 9);
    EXPECT_EQ(std::count(std::begin(value.m_storage), std::end(value.m_storage), 0), 7);
  }
}

TEST(CDBVariant, ClearMakesEveryTypeNullAndZero) {
  for (CDBVariant value : OneOfEveryType()) {
    value.Clear();
    EXPECT_EQ(value.m_dwType, DBVT_NULL);
    EXPECT_TRUE(IsZeroed(value));
    value.Clear();
    EXPECT_EQ(value.m_dwType, DBVT_NULL);
  }
}

TEST(CDBVariant, CopyHasTheValueAndMemoryOfItsOwn) {
  for (const CDBVariant& original : OneOfEveryType()) {
    const CDBVariant copy(original);
    ExpectSameValue(copy, original);
  }
}

TEST(CDBVariant, CopyOutlivesTheOriginal) {
  CDBVariant copy;
  {
    CDBVariant original;
    original.SetString("M\xC3\xBCller, a text of more than sixteen bytes");
    copy = original;
  }
  EXPECT_EQ(*copy.m_pstring, "M\xC3\xBCller, a text of more than sixteen bytes");
}

TEST(CDBVariant, EveryTypeCanBeAssignedOverEveryOther) {
  const std::vector<CDBVariant> all = OneOfEveryType();
  for (const CDBVariant& before : all) {
    for (const CDBVariant& after : all) {
      CDBVariant value(before);
      value = after;
      ExpectSameValue(value, after);
    }
  }
}

TEST(CDBVariant, AssigningItselfKeepsTheValue) {
  for (CDBVariant value : OneOfEveryType()) {
    const CDBVariant expected(value);
    const CDBVariant& itself = value;
    value = itself;
    ExpectSameValue(value, expected);
  }
}

TEST(CDBVariant, SetterTakesTheVariantsOwnValue) {
  CDBVariant value;
  value.SetDate(kTime);
  value.SetDate(*value.m_pdate);
  EXPECT_EQ(value.m_pdate->second, 12);
  value.SetString("a text that is too long for the string's own buffer");
  value.SetString(*value.m_pstring);
  EXPECT_EQ(*value.m_pstring, "a text that is too long for the string's own buffer");
  value.SetBinary(*value.m_pstring);
  EXPECT_EQ(*value.m_pbinary, "a text that is too long for the string's own buffer");
  value.SetBinary(*value.m_pbinary);
  EXPECT_EQ(value.m_pbinary->GetLength(), 51);
}

TEST(CODBCFieldInfo, StartsEmptyWithUnknownNullability) {
  const CODBCFieldInfo info;
  EXPECT_TRUE(info.m_strName.IsEmpty());
  EXPECT_EQ(info.m_nSQLType, 0);
  EXPECT_EQ(info.m_nPrecision, 0u);
  EXPECT_EQ(info.m_nScale, 0);
  EXPECT_EQ(info.m_nNullability, SQL_NULLABLE_UNKNOWN);
}

}  // namespace
