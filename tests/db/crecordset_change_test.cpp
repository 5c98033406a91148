// Adding and editing single rows.
#include "tests/db/toy_set.h"

namespace {

using support::Ts;
using toys::CodeOf;
using toys::ExpectEmpty;
using toys::ExpectOnRow;
using toys::ToySet;

class RecordSetAdding : public toys::ToyTest {
 protected:
  RecordSetAdding() : m_set(&m_database) { m_set.Open(); }
  ToySet m_set;
};

TEST_F(RecordSetAdding, AnUntouchedKeyIsLeftOutAndTheDatabaseGivesIt) {
  m_set.AddNew();
  m_set.m_count = 7;
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(m_raw.Count("Toy"), 1);
  EXPECT_EQ(StoredText("tToyCount", m_raw.Number("SELECT tToyId FROM Toy")), "7");
}

TEST_F(RecordSetAdding, OnlyAssignedFieldsReachTheInsert) {
  m_set.AddNew();
  m_set.m_id = 1;
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(StoredText("tToyName"), "untold");
  EXPECT_EQ(Stored("tToyCount"), std::nullopt);
  EXPECT_EQ(Stored("tToySmall"), std::nullopt);
  EXPECT_EQ(Stored("tToyFlag"), std::nullopt);
  EXPECT_EQ(Stored("tToyDay"), std::nullopt);
  EXPECT_EQ(Stored("tToyTime"), std::nullopt);
}

TEST_F(RecordSetAdding, AssignedZerosFalseAndEmptyTextsAreWritten) {
  m_set.AddNew();
  m_set.m_id = 1;
  m_set.m_name = "";
  m_set.m_count = 0;
  m_set.m_small = 0;
  m_set.m_flag = FALSE;
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(Stored("tToyName"), std::string());
  EXPECT_EQ(StoredText("tToyCount"), "0");
  EXPECT_EQ(StoredText("tToySmall"), "0");
  EXPECT_EQ(StoredText("tToyFlag"), "0");
}

TEST_F(RecordSetAdding, EveryOrdinalAndFlagCanBeAssigned) {
  int id = 0;
  for (const int ordinal : {0x7EE4, 65535, 1, -1}) {
    m_set.AddNew();
    m_set.m_id = ++id;
    m_set.m_small = ordinal;
    m_set.m_flag = TRUE;
    EXPECT_TRUE(m_set.Update());
    EXPECT_EQ(StoredText("tToySmall", id), std::to_string(ordinal));
    EXPECT_EQ(StoredText("tToyFlag", id), "1");
  }
}

TEST_F(RecordSetAdding, AnAllZeroTimeIsLeftOutOrWrittenAsNull) {
  m_set.AddNew();
  m_set.m_id = 1;
  m_set.m_day = Ts(0, 0, 0);
  m_set.m_time = Ts(0, 0, 0);
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(Stored("tToyDay"), std::nullopt);
  EXPECT_EQ(Stored("tToyTime"), std::nullopt);
}

TEST_F(RecordSetAdding, MembersAndPositionOfBeforeComeBack) {
  AddToys(3);
  m_set.Requery();
  m_set.MoveNext();
  m_set.AddNew();
  EXPECT_NE(m_set.m_id, 2);
  m_set.m_id = 9;
  m_set.m_name = "new";
  m_set.Update();
  ExpectOnRow(m_set, 2, 2);
  EXPECT_STREQ(m_set.m_name, "toy2");
  EXPECT_EQ(m_set.m_count, 20);
  EXPECT_FALSE(m_set.IsFieldNull(&m_set.m_count));
  EXPECT_TRUE(m_set.IsFieldNull(&m_set.m_small));
  m_set.MoveNext();
  ExpectOnRow(m_set, 3, 3);
}

TEST_F(RecordSetAdding, OwnInsertsShowOnlyAfterARequery) {
  m_set.AddNew();
  m_set.m_id = 5;
  m_set.Update();
  EXPECT_EQ(m_set.GetRecordCount(), 1);
  ExpectEmpty(m_set);
  EXPECT_TRUE(m_set.Requery());
  ExpectOnRow(m_set, 1, 5);
}

TEST_F(RecordSetAdding, NothingAssignedWritesNothingAndKeepsTheMode) {
  m_set.AddNew();
  EXPECT_FALSE(m_set.Update());
  EXPECT_EQ(m_raw.Count("Toy"), 0);
  m_set.m_count = 1;
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(m_raw.Count("Toy"), 1);
  EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
}

TEST_F(RecordSetAdding, CancellingRestoresTheMembers) {
  AddToys(1);
  m_set.Requery();
  m_set.AddNew();
  m_set.m_name = "never stored";
  m_set.CancelUpdate();
  ExpectOnRow(m_set, 1, 1);
  EXPECT_STREQ(m_set.m_name, "toy1");
  EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
  m_set.CancelUpdate();
  EXPECT_STREQ(m_set.m_name, "toy1");
}

TEST_F(RecordSetAdding, ARefusedInsertThrowsAndKeepsTheMode) {
  AddToys(1);
  m_set.AddNew();
  m_set.m_id = 1;
  EXPECT_EQ(CodeOf([&] { m_set.Update(); }), SQL_ERROR);
  EXPECT_EQ(m_set.m_id, 1);
  m_set.m_id = 2;
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(m_raw.Count("Toy"), 2);
}

TEST_F(RecordSetAdding, AClosedOrReadOnlySetRefuses) {
  m_set.Close();
  EXPECT_NE(CodeOf([&] { m_set.AddNew(); }), 0);
  m_set.Open(CRecordset::snapshot, nullptr, CRecordset::readOnly);
  EXPECT_FALSE(m_set.CanAppend());
  EXPECT_FALSE(m_set.CanUpdate());
  EXPECT_EQ(CodeOf([&] { m_set.AddNew(); }), AFX_SQL_ERROR_RECORDSET_READONLY);
}

TEST_F(RecordSetAdding, AnAppendOnlySetTakesRowsAndRefusesChanges) {
  AddToys(1);
  m_set.Open(CRecordset::snapshot, nullptr, CRecordset::appendOnly);
  EXPECT_TRUE(m_set.CanAppend());
  EXPECT_FALSE(m_set.CanUpdate());
  EXPECT_EQ(CodeOf([&] { m_set.Edit(); }), AFX_SQL_ERROR_RECORDSET_READONLY);
  EXPECT_EQ(CodeOf([&] { m_set.Delete(); }), AFX_SQL_ERROR_RECORDSET_READONLY);
  m_set.AddNew();
  m_set.m_id = 2;
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(m_raw.Count("Toy"), 2);
}

class RecordSetEditing : public toys::ToyTest {
 protected:
  RecordSetEditing() : m_set(&m_database) {
    AddToys(3);
    m_set.m_strSort = "tToyId";
    m_set.Open();
  }
  ToySet m_set;
};

TEST_F(RecordSetEditing, OnlyChangedFieldsAreWritten) {
  m_set.Edit();
  m_set.m_count = 11;
  m_raw.Exec("UPDATE Toy SET tToyName='changed elsewhere' WHERE tToyId=1");
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(StoredText("tToyCount"), "11");
  EXPECT_EQ(StoredText("tToyName"), "changed elsewhere");
  EXPECT_EQ(StoredText("tToyCount", 2), "20");
}

TEST_F(RecordSetEditing, MembersKeepTheNewValuesAndTheRowStaysCurrent) {
  m_set.MoveNext();
  m_set.Edit();
  m_set.m_name = "new name";
  m_set.m_small = 65535;
  m_set.m_flag = TRUE;
  m_set.Update();
  ExpectOnRow(m_set, 2, 2);
  EXPECT_STREQ(m_set.m_name, "new name");
  EXPECT_EQ(StoredText("tToyName", 2), "new name");
  EXPECT_EQ(StoredText("tToySmall", 2), "65535");
  EXPECT_EQ(StoredText("tToyFlag", 2), "1");
}

TEST_F(RecordSetEditing, NothingChangedDoesNothingGivesZeroAndKeepsTheMode) {
  m_set.Edit();
  EXPECT_FALSE(m_set.Update());
  m_set.m_name = "later";
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(StoredText("tToyName"), "later");
}

TEST_F(RecordSetEditing, UpdatingWithoutAModeThrows) {
  EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
  m_set.Edit();
  m_set.m_count = 1;
  m_set.Update();
  EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
}

TEST_F(RecordSetEditing, ASecondEditRestoresTheFirstOnesCopy) {
  m_set.Edit();
  m_set.m_name = "dropped";
  m_set.Edit();
  EXPECT_STREQ(m_set.m_name, "toy1");
  m_set.m_count = 11;
  m_set.Update();
  EXPECT_EQ(StoredText("tToyName"), "toy1");
  EXPECT_EQ(StoredText("tToyCount"), "11");
}

TEST_F(RecordSetEditing, CancellingRestoresTheMembers) {
  m_set.Edit();
  m_set.m_name = "dropped";
  m_set.CancelUpdate();
  EXPECT_STREQ(m_set.m_name, "toy1");
  EXPECT_EQ(StoredText("tToyName"), "toy1");
}

TEST_F(RecordSetEditing, ATextChangedToEmptyIsWrittenAsEmptyText) {
  m_set.Edit();
  m_set.m_name.Empty();
  m_set.Update();
  EXPECT_EQ(Stored("tToyName"), std::string());
}

TEST_F(RecordSetEditing, OwnEditsShowOnTheRowWhenItIsVisitedAgain) {
  m_set.MoveNext();
  m_set.Edit();
  m_set.m_name = "edited";
  m_set.m_time = Ts(2001, 5, 6, 10, 0, 0);
  m_set.Update();
  m_set.MoveFirst();
  EXPECT_STREQ(m_set.m_name, "toy1");
  m_set.MoveNext();
  EXPECT_STREQ(m_set.m_name, "edited");
  EXPECT_EQ(support::TimeText(m_set.m_time), "2001-05-06 10:00:00");
  EXPECT_EQ(m_set.m_count, 20);
  m_set.Edit();
  m_set.m_name = "edited again";
  m_set.Update();
  m_set.Move(0);
  EXPECT_STREQ(m_set.m_name, "edited again");
  m_set.Requery();
  m_set.MoveNext();
  EXPECT_STREQ(m_set.m_name, "edited again");
}

TEST_F(RecordSetEditing, OwnEditsShowInColumnsReadOnDemandToo) {
  m_set.Edit();
  m_set.m_name = "edited";
  m_set.m_count = 4711;
  m_set.Update();
  CString name;
  m_set.GetFieldValue("tToyName", name);
  EXPECT_STREQ(name, "edited");
  CDBVariant count;
  m_set.GetFieldValue("tToyCount", count);
  EXPECT_EQ(count.m_lVal, 4711);
}

TEST_F(RecordSetEditing, AnEditedKeyFindsItsRowAgain) {
  m_set.Edit();
  m_set.m_id = 77;
  EXPECT_TRUE(m_set.Update());
  m_set.Edit();
  m_set.m_name = "still the same row";
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(StoredText("tToyName", 77), "still the same row");
}

TEST_F(RecordSetEditing, OffTheRowsEditingThrows) {
  m_set.MovePrev();
  EXPECT_EQ(CodeOf([&] { m_set.Edit(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  m_set.MoveLast();
  m_set.MoveNext();
  EXPECT_EQ(CodeOf([&] { m_set.Edit(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  EXPECT_EQ(CodeOf([&] { m_set.Delete(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  m_set.m_strFilter = "1 = 2";
  m_set.Requery();
  EXPECT_EQ(CodeOf([&] { m_set.Edit(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  m_set.Close();
  EXPECT_NE(CodeOf([&] { m_set.Edit(); }), 0);
}

TEST_F(RecordSetEditing, OnlyOptimisticLockingIsOffered) {
  m_set.SetLockingMode(CRecordset::optimistic);
  EXPECT_EQ(CodeOf([&] { m_set.SetLockingMode(CRecordset::pessimistic); }), AFX_SQL_ERROR_NOT_SUPPORTED);
}

}  // namespace
