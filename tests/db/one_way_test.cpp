// Sets that look for a row and end read their rows one way; whoever moves to and fro in one sees the same
// rows.
#include "platform/field_access.h"
#include "tests/db/toy_set.h"

namespace {

using toys::ToySet;

class OneWayToys : public ToySet {
 public:
  explicit OneWayToys(CDatabase* database) : ToySet(database) {
    HoldRows(fewRows);
    m_strSort = "tToyId";
  }
  void OpenAll() { Open(dynaset); }
};

class OneWay : public toys::ToyTest {};

TEST_F(OneWay, MovesToAndFroReachTheRowsThatAnyOtherSetReaches) {
  AddToys(5);
  OneWayToys toys(&m_database);
  toys.OpenAll();
  toys::ExpectOnRow(toys, 1, 1);
  EXPECT_EQ(toys.Ids(), "1,2,3,4,5");
  toys.MoveLast();
  toys::ExpectOnRow(toys, 5, 5);
  toys.MovePrev();
  toys::ExpectOnRow(toys, 4, 4);
  toys.SetAbsolutePosition(2);
  toys::ExpectOnRow(toys, 2, 2);
  toys.Move(2);
  toys::ExpectOnRow(toys, 4, 4);
  toys.MoveFirst();
  toys::ExpectOnRow(toys, 1, 1);
  toys.MovePrev();
  toys::ExpectBeforeFirst(toys);
  toys.SetAbsolutePosition(-1);
  toys::ExpectOnRow(toys, 5, 5);
  toys.MoveNext();
  toys::ExpectAfterLast(toys);
  toys.MovePrev();
  toys::ExpectOnRow(toys, 5, 5);
  toys.SetAbsolutePosition(6);
  toys::ExpectAfterLast(toys);
}

TEST_F(OneWay, RowsDeletedOnTheWayVanish) {
  AddToys(4);
  OneWayToys toys(&m_database);
  toys.OpenAll();
  toys.MoveNext();
  toys.Delete();
  toys.MoveNext();
  toys::ExpectOnRow(toys, 2, 3);
  toys.Delete();
  toys.MoveNext();
  toys::ExpectOnRow(toys, 2, 4);
}

TEST_F(OneWay, AColumnOfTheLastRowCanBeReadBehindTheEnd) {
  AddToys(2);
  OneWayToys toys(&m_database);
  toys.OpenAll();
  toys.MoveLast();
  toys.MoveNext();
  toys.MovePrev();
  CString name;
  toys.GetFieldValue("tToyName", name);
  EXPECT_STREQ(name, "toy2");
}

TEST_F(OneWay, TheOnlyRowIsToldFromTheFirstOfSeveral) {
  AddToys(2);
  OneWayToys several(&m_database);
  several.OpenAll();
  EXPECT_EQ(FieldAccess::IsOnOnlyRow(several), false);
  OneWayToys only(&m_database);
  only.m_strFilter = "tToyId=2";
  only.OpenAll();
  EXPECT_EQ(FieldAccess::IsOnOnlyRow(only), true);
  toys::ExpectOnRow(only, 1, 2);
  OneWayToys none(&m_database);
  none.m_strFilter = "tToyId=3";
  none.OpenAll();
  EXPECT_EQ(FieldAccess::IsOnOnlyRow(none), std::nullopt);
}

}  // namespace
