// Field masks and text widths of the direct-access sets, column by column.
#include "tests/flat/raw_tables.h"

namespace raw {
namespace {

template <class Table>
class RawFields : public RawTest {
 protected:
  // Edits the row by its key, with one bit in the mask.
  void EditField(LONG key, int bit, typename Table::Record record) {
    Key<Table>(record) = key;
    auto set = Table::MakeSet();
    ASSERT_EQ(set.Edit(record, 1 << bit), 0) << "bit " << bit;
  }
};
TYPED_TEST_SUITE(RawFields, AllTables);

constexpr int kBits = 32;

bool IsDerived(DWORD derived, int bit) { return bit >= 0 && (derived >> bit & 1) != 0; }

TYPED_TEST(RawFields, EachMaskBitWritesItsOwnFieldAndNoOther) {
  for (int bit = 0; bit < kBits; ++bit) {
    if (IsDerived(TypeParam::kDerived, bit)) continue;
    const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(bit % 20 + 1));
    const support::Row before = this->template RowOf<TypeParam>(key);
    const auto other = MakeRecord<TypeParam>(bit % 20 + 2);
    this->EditField(key, bit, other);
    const support::Row after = this->template RowOf<TypeParam>(key);
    for (std::size_t i = 0; i < after.size(); ++i) {
      const auto& member = TypeParam::kMembers[i];
      if (IsDerived(TypeParam::kDerived, member.bit)) continue;
      EXPECT_EQ(after[i], member.bit == bit ? Stored(other, member) : before[i])
          << member.column << ", bit " << bit;
    }
    this->Raw().Exec("DELETE FROM " + FullName<TypeParam>() + " WHERE " + TypeParam::kMembers[0].column +
                     " = " + std::to_string(key));
  }
}

TYPED_TEST(RawFields, AnEmptyMaskWritesNothing) {
  const int before = this->template CountRows<TypeParam>();
  auto record = MakeRecord<TypeParam>(1);
  auto set = TypeParam::MakeSet();
  EXPECT_EQ(set.Insert(record, 0), 64);
  EXPECT_EQ(this->template CountRows<TypeParam>(), before);
}

TYPED_TEST(RawFields, TextsOf1000000CharactersGoWhole) {
  std::string text(1000000, 'x');
  text.front() = '<';
  text.back() = '>';
  for (const auto& member : TypeParam::kMembers) {
    if (member.kind != 'X') continue;
    auto record = MakeRecord<TypeParam>(1);
    record.*member.text = text.c_str();
    auto set = TypeParam::MakeSet();
    ASSERT_EQ(set.Insert(record, GivenFields<TypeParam>()), 0) << member.column;
    EXPECT_TRUE((record.*member.text).View() == text) << member.column;
    const support::Row row = this->template RowOf<TypeParam>(Key<TypeParam>(record));
    EXPECT_TRUE(row[static_cast<std::size_t>(&member - TypeParam::kMembers)] == text) << member.column;
    this->Raw().Exec("DELETE FROM " + FullName<TypeParam>());
  }
}

TYPED_TEST(RawFields, LongerTextsAreCutToTheWidthOfTheirColumn) {
  for (const auto& member : TypeParam::kMembers) {
    if (member.text == nullptr || IsDerived(TypeParam::kDerived, member.bit)) continue;
    const std::size_t width = member.kind == 'X' ? 1000000 : 255;
    const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
    auto record = MakeRecord<TypeParam>(2);
    record.*member.text = std::string(width + 1, 'y').c_str();
    this->EditField(key, member.bit, record);
    EXPECT_EQ(
        this->Raw().Number("SELECT LENGTH(" + std::string(member.column) + ") FROM " + FullName<TypeParam>() +
                           " WHERE " + TypeParam::kMembers[0].column + " = " + std::to_string(key)),
        static_cast<int>(width))
        << member.column;
    this->Raw().Exec("DELETE FROM " + FullName<TypeParam>());
  }
}

TYPED_TEST(RawFields, QuotesBackslashesAndUmlautsAreKept) {
  const std::string text = "O'Neil \\ \"Müller\" 100% ?";
  for (const auto& member : TypeParam::kMembers) {
    if (member.text == nullptr || IsDerived(TypeParam::kDerived, member.bit)) continue;
    const LONG key = this->template Add<TypeParam>(MakeRecord<TypeParam>(1));
    auto record = MakeRecord<TypeParam>(2);
    record.*member.text = text.c_str();
    this->EditField(key, member.bit, record);
    const support::Row row = this->template RowOf<TypeParam>(key);
    EXPECT_EQ(row[static_cast<std::size_t>(&member - TypeParam::kMembers)], text) << member.column;
    this->Raw().Exec("DELETE FROM " + FullName<TypeParam>());
  }
}

}  // namespace
}  // namespace raw
