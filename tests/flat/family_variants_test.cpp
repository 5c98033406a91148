// The same road through all ten tables where the database looks different: the short names are views, or an
// owner stands before every name.
#include "tests/flat/family.h"

using family::Key;
using family::SetKey;

namespace {

template <class Table>
class Road : public family::TableTest<Table> {
 protected:
  using family::TableTest<Table>::TableTest;

  void AddReadEditAndDelete() {
    typename Table::Record record = this->Added(1);
    Table::ChangeText(&record);
    EXPECT_EQ(Table::Edit(&record), 0);
    EXPECT_EQ(this->StoredText(Key(record)), "changed");
    EXPECT_EQ(Table::Edit(&record), 0);  // nothing new
    typename Table::Record read{};
    SetKey(&read, Key(record));
    EXPECT_EQ(Table::Get(&read), 0);
    EXPECT_EQ(Table::ShownText(read), "changed");
    EXPECT_EQ(Table::Delete(&record), 0);
    EXPECT_FALSE(this->Exists(Key(record)));
    EXPECT_EQ(Table::Delete(&record), Table::kNotFound);
  }

  void BrowseCountAndDelete() {
    this->FillTable(3);
    this->Browse();
    LONG rows = -1;
    EXPECT_EQ(Table::MoveByPos(2), 2);
    EXPECT_EQ(Table::MaxPos(&rows), 0);
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(Table::Num(&rows), 0);
    EXPECT_EQ(rows, 3);
    LONG id = 0;
    EXPECT_EQ(Table::LastID(&id), 0);
    EXPECT_EQ(id, this->HighestKey());
    EXPECT_EQ(Table::IndexPos(), 2);
    EXPECT_EQ(Table::DeleteByPos(2), 0);
    EXPECT_EQ(this->KeyAt(0), id);
    EXPECT_EQ(Table::MaxPos(&rows), 0);
    EXPECT_EQ(rows, 2);
  }
};

template <class Table>
class OnViews : public Road<Table> {
 protected:
  OnViews() : Road<Table>({.tables = support::Tables::kFullNames}) {}
};
TYPED_TEST_SUITE(OnViews, family::AllTables, family::Name);

TYPED_TEST(OnViews, RowsAreAddedReadEditedAndDeleted) { this->AddReadEditAndDelete(); }
TYPED_TEST(OnViews, RowsAreBrowsedCountedAndDeleted) { this->BrowseCountAndDelete(); }

template <class Table>
class WithAnOwner : public Road<Table> {
 protected:
  WithAnOwner() : Road<Table>({.with_owner = true}) {}
};
TYPED_TEST_SUITE(WithAnOwner, family::AllTables, family::Name);

TYPED_TEST(WithAnOwner, RowsAreAddedReadEditedAndDeleted) { this->AddReadEditAndDelete(); }
TYPED_TEST(WithAnOwner, RowsAreBrowsedCountedAndDeleted) { this->BrowseCountAndDelete(); }

}  // namespace
