// The typical road of a caller, through all ten tables.
#include "tests/flat/family.h"

using family::Key;
using family::SetKey;

namespace {

template <class Table>
class Road : public family::TableTest<Table> {
 protected:
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

TYPED_TEST_SUITE(Road, family::AllTables, family::Name);

TYPED_TEST(Road, RowsAreAddedReadEditedAndDeleted) { this->AddReadEditAndDelete(); }
TYPED_TEST(Road, RowsAreBrowsedCountedAndDeleted) { this->BrowseCountAndDelete(); }

}  // namespace
