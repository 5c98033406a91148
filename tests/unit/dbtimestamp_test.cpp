#include "recset/dbtimestamp.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <vector>

namespace {

constexpr TIMESTAMP_STRUCT kPlain = {2001, 5, 6, 10, 11, 12, 13};

TIMESTAMP_STRUCT At(SQLSMALLINT year, SQLUSMALLINT month, SQLUSMALLINT day, SQLUSMALLINT hour = 0,
                    SQLUSMALLINT minute = 0, SQLUSMALLINT second = 0, SQLUINTEGER fraction = 0) {
  return {year, month, day, hour, minute, second, fraction};
}

void ExpectFields(const TIMESTAMP_STRUCT& value, const TIMESTAMP_STRUCT& expected) {
  EXPECT_EQ(value.year, expected.year);
  EXPECT_EQ(value.month, expected.month);
  EXPECT_EQ(value.day, expected.day);
  EXPECT_EQ(value.hour, expected.hour);
  EXPECT_EQ(value.minute, expected.minute);
  EXPECT_EQ(value.second, expected.second);
  EXPECT_EQ(value.fraction, expected.fraction);
}

// Every field differs from kPlain in one of these.
std::vector<TIMESTAMP_STRUCT> NeighboursOfPlain() {
  return {At(2002, 5, 6, 10, 11, 12, 13), At(2001, 6, 6, 10, 11, 12, 13), At(2001, 5, 7, 10, 11, 12, 13),
          At(2001, 5, 6, 11, 11, 12, 13), At(2001, 5, 6, 10, 12, 12, 13), At(2001, 5, 6, 10, 11, 13, 13),
          At(2001, 5, 6, 10, 11, 12, 14)};
}

// None of them is a date and time of the years 100 to 9999; no two are equal.
std::vector<TIMESTAMP_STRUCT> Unrepresentable() {
  return {At(0, 0, 0),        At(2001, 0, 6),         At(2001, 5, 0),           At(2001, 2, 30),
          At(2001, 13, 1),    At(99, 5, 6),           At(-44, 3, 15),           At(10000, 1, 1),
          At(2001, 5, 6, 24), At(2001, 5, 6, 10, 60), At(2001, 5, 6, 10, 0, 60)};
}

TEST(CDBTimeStamp, HoldsThePlainStructureBehindItsVirtualTable) {
  static_assert(std::is_base_of_v<tagTIMESTAMP_STRUCT, CDBTimeStamp>);
  static_assert(std::has_virtual_destructor_v<CDBTimeStamp>);
  const CDBTimeStamp value;
  const TIMESTAMP_STRUCT* plain = &value;
  EXPECT_EQ(sizeof value, 24u);
  EXPECT_EQ(reinterpret_cast<const char*>(plain) - reinterpret_cast<const char*>(&value), 8);
}

TEST(CDBTimeStamp, DestructionOfADerivedObjectGoesThroughTheBase) {
  struct Derived : CDBTimeStamp {
    explicit Derived(bool* destroyed) : m_destroyed(destroyed) {}
    ~Derived() override { *m_destroyed = true; }
    bool* m_destroyed;
  };
  bool destroyed = false;
  { const std::unique_ptr<CDBTimeStamp> value = std::make_unique<Derived>(&destroyed); }
  EXPECT_TRUE(destroyed);
}

TEST(CDBTimeStamp, DefaultIsTheFirstOfJanuary1880AndNull) {
  const CDBTimeStamp value;
  ExpectFields(value, At(1880, 1, 1));
  EXPECT_EQ(value.IsNull(), 1);
}

TEST(CDBTimeStamp, NullDateWithFractionOneIsNotNull) {
  CDBTimeStamp value;
  value.fraction = 1;
  EXPECT_EQ(value.IsNull(), 0);
}

TEST(CDBTimeStamp, NullDateAtAnotherTimeIsNotNull) {
  EXPECT_EQ(CDBTimeStamp(At(1880, 1, 1, 0, 0, 1)).IsNull(), 0);
  EXPECT_EQ(CDBTimeStamp(At(1880, 1, 1, 1)).IsNull(), 0);
  EXPECT_EQ(CDBTimeStamp(At(1880, 1, 2)).IsNull(), 0);
  EXPECT_EQ(CDBTimeStamp(At(1881, 1, 1)).IsNull(), 0);
}

TEST(CDBTimeStamp, AllZeroIsNotNull) { EXPECT_EQ(CDBTimeStamp(At(0, 0, 0)).IsNull(), 0); }

TEST(CDBTimeStamp, PlainNullDateIsNull) { EXPECT_EQ(CDBTimeStamp(At(1880, 1, 1)).IsNull(), 1); }

TEST(CDBTimeStamp, ConstructionFromThePlainStructureCopiesAllFields) {
  ExpectFields(CDBTimeStamp(kPlain), kPlain);
  ExpectFields(CDBTimeStamp(At(0, 0, 0)), At(0, 0, 0));
}

TEST(CDBTimeStamp, CopyConstructionCopiesAllFields) {
  const CDBTimeStamp original(kPlain);
  CDBTimeStamp copy(original);
  ExpectFields(copy, kPlain);
  copy.year = 1999;
  EXPECT_EQ(original.year, 2001);
}

TEST(CDBTimeStamp, AssignmentOfThePlainStructureCopiesAllFieldsAndReturnsTheObject) {
  CDBTimeStamp value;
  EXPECT_EQ(&(value = kPlain), &value);
  ExpectFields(value, kPlain);
}

TEST(CDBTimeStamp, AssignmentCopiesAllFieldsAndReturnsTheObject) {
  const CDBTimeStamp original(kPlain);
  CDBTimeStamp value;
  EXPECT_EQ(&(value = original), &value);
  ExpectFields(value, kPlain);
}

TEST(CDBTimeStamp, AssignmentOfItselfKeepsTheValue) {
  CDBTimeStamp value(kPlain);
  const CDBTimeStamp& itself = value;
  value = itself;
  ExpectFields(value, kPlain);
  value = static_cast<const TIMESTAMP_STRUCT&>(itself);
  ExpectFields(value, kPlain);
}

TEST(CDBTimeStamp, ConversionFromADateTimeTakesItToTheSecond) {
  ExpectFields(CDBTimeStamp(COleDateTime(2001, 5, 6, 10, 11, 12)), At(2001, 5, 6, 10, 11, 12));
  ExpectFields(CDBTimeStamp(COleDateTime(100, 1, 1, 0, 0, 0)), At(100, 1, 1));
  ExpectFields(CDBTimeStamp(COleDateTime(9999, 12, 31, 23, 59, 59)), At(9999, 12, 31, 23, 59, 59));
  ExpectFields(CDBTimeStamp(COleDateTime()), At(1899, 12, 30));
}

TEST(CDBTimeStamp, AssignmentOfADateTimeSetsTheFractionToZero) {
  CDBTimeStamp value(kPlain);
  EXPECT_EQ(&(value = COleDateTime(1999, 12, 31, 23, 59, 58)), &value);
  ExpectFields(value, At(1999, 12, 31, 23, 59, 58));
}

TEST(CDBTimeStamp, AssignmentOfAnInvalidDateTimeGivesNull) {
  COleDateTime invalid(2001, 5, 6, 10, 11, 12);
  invalid.SetStatus(COleDateTime::invalid);
  CDBTimeStamp value(kPlain);
  EXPECT_EQ(&(value = invalid), &value);
  ExpectFields(value, At(1880, 1, 1));
  EXPECT_EQ(value.IsNull(), 1);
  ExpectFields(CDBTimeStamp(COleDateTime(2001, 2, 30, 0, 0, 0)), At(1880, 1, 1));
}

TEST(CDBTimeStamp, AssignmentOfANullDateTimeGivesNull) {
  COleDateTime null(2001, 5, 6, 10, 11, 12);
  null.SetStatus(COleDateTime::null);
  CDBTimeStamp value(kPlain);
  value = null;
  ExpectFields(value, At(1880, 1, 1));
  EXPECT_EQ(CDBTimeStamp(null).IsNull(), 1);
}

TEST(CDBTimeStamp, EqualityLooksAtAllSevenFields) {
  const CDBTimeStamp value(kPlain);
  EXPECT_EQ(value == CDBTimeStamp(kPlain), 1);
  for (const TIMESTAMP_STRUCT& other : NeighboursOfPlain()) {
    EXPECT_EQ(value == other, 0);
    EXPECT_EQ(CDBTimeStamp(other) == value, 0);
  }
}

TEST(CDBTimeStamp, ValuesThatDifferOnlyInTheFractionAreEachLessThanTheOther) {
  const CDBTimeStamp with_fraction(At(2001, 5, 6, 10, 0, 0, 5));
  const CDBTimeStamp without(At(2001, 5, 6, 10));
  EXPECT_EQ(with_fraction == without, 0);
  EXPECT_EQ(without == with_fraction, 0);
  EXPECT_EQ(with_fraction > without, 0);
  EXPECT_EQ(without > with_fraction, 0);
  EXPECT_EQ(with_fraction < without, 1);
  EXPECT_EQ(without < with_fraction, 1);
}

TEST(CDBTimeStamp, EqualValuesAreNeitherGreaterNorLess) {
  const CDBTimeStamp value(kPlain);
  EXPECT_EQ(value > value, 0);
  EXPECT_EQ(value < value, 0);
}

TEST(CDBTimeStamp, OrderIsChronologicalForRepresentableValues) {
  const std::vector<CDBTimeStamp> ascending = {
      At(100, 1, 1),           At(1879, 12, 31, 23),  At(1880, 1, 1),
      At(1880, 1, 1, 0, 0, 1), At(1880, 1, 1, 1),     At(1880, 2, 1),
      At(1899, 12, 29, 18),    At(1899, 12, 30),      At(2001, 5, 6, 9),
      At(2001, 5, 6, 10),      At(2001, 5, 6, 10, 1), At(2001, 5, 6, 10, 1, 1),
      At(2001, 5, 7),          At(2002, 1, 1),        At(9999, 12, 31, 23, 59, 59)};
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    for (std::size_t j = 0; j < ascending.size(); ++j) {
      EXPECT_EQ(ascending[i] > ascending[j], i > j ? 1 : 0) << i << " " << j;
      EXPECT_EQ(ascending[i] < ascending[j], i < j ? 1 : 0) << i << " " << j;
      EXPECT_EQ(ascending[i] == ascending[j], i == j ? 1 : 0) << i << " " << j;
    }
  }
}

TEST(CDBTimeStamp, LaterSecondIsGreaterWhateverTheFractions) {
  const CDBTimeStamp earlier(At(2001, 5, 6, 10, 0, 0, 999999999));
  const CDBTimeStamp later(At(2001, 5, 6, 10, 0, 1, 0));
  EXPECT_EQ(later > earlier, 1);
  EXPECT_EQ(earlier > later, 0);
  EXPECT_EQ(earlier < later, 1);
  EXPECT_EQ(later < earlier, 0);
}

TEST(CDBTimeStamp, NothingIsGreaterThanAnUnrepresentableValueAndUnequalOnesAreLessBothWays) {
  const CDBTimeStamp good(kPlain);
  for (const CDBTimeStamp bad : Unrepresentable()) {
    EXPECT_EQ(bad > good, 0);
    EXPECT_EQ(good > bad, 0);
    EXPECT_EQ(bad < good, 1);
    EXPECT_EQ(good < bad, 1);
    EXPECT_EQ(bad == good, 0);
  }
}

TEST(CDBTimeStamp, UnrepresentableValuesCompareByTheirFields) {
  const std::vector<TIMESTAMP_STRUCT> bad = Unrepresentable();
  for (std::size_t i = 0; i < bad.size(); ++i) {
    for (std::size_t j = 0; j < bad.size(); ++j) {
      const CDBTimeStamp left(bad[i]);
      const CDBTimeStamp right(bad[j]);
      EXPECT_EQ(left > right, 0) << i << " " << j;
      EXPECT_EQ(left == right, i == j ? 1 : 0) << i << " " << j;
      EXPECT_EQ(left < right, i == j ? 0 : 1) << i << " " << j;
    }
  }
}

TEST(CDBTimeStamp, ConvertsImplicitlyToThePlainStructure) {
  const CDBTimeStamp value(kPlain);
  const TIMESTAMP_STRUCT plain = value;  // NOLINT(cppcoreguidelines-slicing): what callers do
  ExpectFields(plain, kPlain);
}

TEST(CDBTimeStamp, ComparesWithThePlainStructureAndWithADateTime) {
  const CDBTimeStamp value(At(2001, 5, 6, 10));
  EXPECT_EQ(value == At(2001, 5, 6, 10), 1);
  EXPECT_EQ(value == COleDateTime(2001, 5, 6, 10, 0, 0), 1);
  EXPECT_EQ(value > COleDateTime(2001, 5, 6, 9, 59, 59), 1);
}

}  // namespace
