// NULL and changed flags of fields, and members that columns share.
#include "tests/db/toy_set.h"

namespace {

using support::Ts;
using toys::CodeOf;
using toys::ToySet;

class FieldState : public toys::ToyTest {
 protected:
  FieldState() : m_set(&m_database) {
    AddToys(2);
    m_set.m_strSort = "tToyId";
    m_set.Open();
  }
  ToySet m_set;
};

TEST_F(FieldState, NullIsReadAsZeroEmptyAndNoTime) {
  m_raw.Exec("UPDATE Toy SET tToyName=NULL, tToyCount=NULL WHERE tToyId=2");
  m_set.m_small = 5;
  m_set.m_flag = TRUE;
  m_set.m_day = m_set.m_time = Ts(2001, 5, 6);
  m_set.Requery();
  m_set.MoveNext();
  EXPECT_STREQ(m_set.m_name, "");
  EXPECT_EQ(m_set.m_count, 0);
  EXPECT_EQ(m_set.m_small, 0);
  EXPECT_EQ(m_set.m_flag, FALSE);
  EXPECT_EQ(support::TimeText(m_set.m_day), support::TimeText({}));
  EXPECT_EQ(support::TimeText(m_set.m_time), support::TimeText({}));
  EXPECT_TRUE(m_set.IsFieldNull(&m_set.m_name));
  EXPECT_TRUE(m_set.IsFieldNull(&m_set.m_count));
  EXPECT_FALSE(m_set.IsFieldNull(&m_set.m_id));
  EXPECT_TRUE(m_set.IsFieldNull(nullptr));
}

TEST_F(FieldState, NullReadBeforeAnEditIsNoChange) {
  m_set.Edit();
  EXPECT_FALSE(m_set.IsFieldDirty(nullptr));
  EXPECT_FALSE(m_set.Update());
}

TEST_F(FieldState, AddingStartsWithEveryFieldNullAndUnchanged) {
  m_set.AddNew();
  EXPECT_TRUE(m_set.IsFieldNull(&m_set.m_id));
  EXPECT_TRUE(m_set.IsFieldNull(&m_set.m_name));
  EXPECT_FALSE(m_set.IsFieldDirty(nullptr));
  m_set.m_count = 3;
  EXPECT_TRUE(m_set.IsFieldDirty(&m_set.m_count));
  EXPECT_TRUE(m_set.IsFieldDirty(nullptr));
  EXPECT_FALSE(m_set.IsFieldDirty(&m_set.m_id));
  EXPECT_FALSE(m_set.IsFieldNull(&m_set.m_count));
}

TEST_F(FieldState, AnEditedMemberIsChangedUntilItHasItsOldValueAgain) {
  m_set.Edit();
  m_set.m_name = "other";
  EXPECT_TRUE(m_set.IsFieldDirty(&m_set.m_name));
  m_set.m_name = "toy1";
  EXPECT_FALSE(m_set.IsFieldDirty(&m_set.m_name));
}

TEST_F(FieldState, SetFieldNullWritesNullWhenAdding) {
  m_set.AddNew();
  m_set.m_id = 5;
  m_set.m_name = "soon gone";
  m_set.SetFieldNull(&m_set.m_name);
  EXPECT_STREQ(m_set.m_name, "");
  EXPECT_TRUE(m_set.IsFieldDirty(&m_set.m_name));
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(Stored("tToyName", 5), std::nullopt);
}

TEST_F(FieldState, SetFieldNullWritesNullWhenEditingWhateverTheType) {
  m_raw.Exec("UPDATE Toy SET tToySmall=1, tToyFlag=1, tToyDay='2001-05-06', tToyTime='2001-05-06 10:00:00'");
  m_set.Requery();
  m_set.Edit();
  for (void* member : {static_cast<void*>(&m_set.m_name), static_cast<void*>(&m_set.m_count),
                       static_cast<void*>(&m_set.m_small), static_cast<void*>(&m_set.m_flag),
                       static_cast<void*>(&m_set.m_day), static_cast<void*>(&m_set.m_time)}) {
    m_set.SetFieldNull(member);
    EXPECT_TRUE(m_set.IsFieldNull(member));
  }
  EXPECT_TRUE(m_set.Update());
  for (const char* column : {"tToyName", "tToyCount", "tToySmall", "tToyFlag", "tToyDay", "tToyTime"}) {
    EXPECT_EQ(Stored(column), std::nullopt) << column;
  }
  EXPECT_TRUE(m_set.IsFieldNull(&m_set.m_name));
  EXPECT_TRUE(m_set.IsFieldNull(&m_set.m_count));
}

TEST_F(FieldState, AssigningAValueClearsNullByItself) {
  m_set.Edit();
  m_set.SetFieldNull(&m_set.m_name);
  m_set.m_name = "after all";
  EXPECT_FALSE(m_set.IsFieldNull(&m_set.m_name));
  m_set.m_small = 4;
  EXPECT_FALSE(m_set.IsFieldNull(&m_set.m_small));
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(StoredText("tToyName"), "after all");
  EXPECT_EQ(StoredText("tToySmall"), "4");
  EXPECT_FALSE(m_set.IsFieldNull(&m_set.m_small));
}

TEST_F(FieldState, NullCanBeTakenBack) {
  m_set.Edit();
  m_set.SetFieldNull(&m_set.m_count);
  m_set.SetFieldNull(&m_set.m_count, FALSE);
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(StoredText("tToyCount"), "0");
}

TEST_F(FieldState, TheNullAddressMeansAllFields) {
  m_set.Edit();
  m_set.SetFieldDirty(nullptr);
  EXPECT_TRUE(m_set.IsFieldDirty(&m_set.m_time));
  m_set.SetFieldDirty(nullptr, FALSE);
  EXPECT_FALSE(m_set.IsFieldDirty(nullptr));
  EXPECT_FALSE(m_set.Update());
}

TEST_F(FieldState, AFieldDeclaredUnchangedIsNotWritten) {
  m_set.Edit();
  m_set.m_name = "kept back";
  m_set.m_count = 12;
  m_set.SetFieldDirty(&m_set.m_name, FALSE);
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(StoredText("tToyName"), "toy1");
  EXPECT_EQ(StoredText("tToyCount"), "12");
}

TEST_F(FieldState, AFieldDeclaredChangedIsWrittenAsItIs) {
  m_raw.Exec("UPDATE Toy SET tToyName='elsewhere' WHERE tToyId=1");
  m_set.Edit();
  m_set.SetFieldDirty(&m_set.m_name);
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(StoredText("tToyName"), "toy1");
}

TEST_F(FieldState, AnUnassignedFieldDeclaredChangedIsAddedAsNull) {
  m_set.AddNew();
  m_set.m_id = 5;
  m_set.SetFieldDirty(&m_set.m_name);
  m_set.SetFieldDirty(&m_set.m_count);
  m_set.SetFieldDirty(&m_set.m_flag);
  m_set.SetFieldDirty(&m_set.m_day);
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(Stored("tToyName", 5), std::nullopt);
  EXPECT_EQ(Stored("tToyCount", 5), std::nullopt);
  EXPECT_EQ(Stored("tToyFlag", 5), std::nullopt);
  EXPECT_EQ(Stored("tToyDay", 5), std::nullopt);
}

TEST_F(FieldState, ANullFieldDeclaredChangedStaysNull) {
  m_raw.Exec("UPDATE Toy SET tToyCount=NULL WHERE tToyId=1");
  m_set.Requery();
  m_set.Edit();
  m_set.SetFieldDirty(&m_set.m_count);
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(Stored("tToyCount"), std::nullopt);
  EXPECT_TRUE(m_set.IsFieldNull(&m_set.m_count));
}

TEST_F(FieldState, OutsideAddingAndEditingTheSettersThrow) {
  EXPECT_EQ(CodeOf([&] { m_set.SetFieldNull(&m_set.m_name); }), AFX_SQL_ERROR_ILLEGAL_MODE);
  EXPECT_EQ(CodeOf([&] { m_set.SetFieldDirty(&m_set.m_name); }), AFX_SQL_ERROR_ILLEGAL_MODE);
  EXPECT_FALSE(m_set.IsFieldDirty(&m_set.m_name));
  EXPECT_STREQ(m_set.m_name, "toy1");
}

TEST_F(FieldState, AnEditedTimeSetToAllZeroIsWrittenAsNull) {
  m_raw.Exec("UPDATE Toy SET tToyTime='2001-05-06 10:00:00' WHERE tToyId=1");
  m_set.Requery();
  m_set.Edit();
  m_set.m_time = Ts(0, 0, 0);
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(Stored("tToyTime"), std::nullopt);
  EXPECT_TRUE(m_set.IsFieldNull(&m_set.m_time));
}

// Two columns, one member.
class SharedSet : public CRecordset {
 public:
  explicit SharedSet(CDatabase* database) : CRecordset(database) { SetRowKey(&m_id); }
  CString GetDefaultSQL() override { return "Toy"; }
  void DoFieldExchange(CFieldExchange* exchange) override {
    exchange->SetFieldType(CFieldExchange::outputColumn);
    RFX_Long(exchange, "tToyId", m_id);
    RFX_Long(exchange, "tToyCount", m_number);
    RFX_Long(exchange, "tToySmall", m_number);
    RFX_Text(exchange, "tToyName", m_name);
  }
  LONG m_id = 0;
  LONG m_number = 0;
  CString m_name;
};

TEST_F(FieldState, OfColumnsThatShareAMemberTheLastIsReadAndNoneLooksChanged) {
  m_raw.Exec("UPDATE Toy SET tToyCount=1, tToySmall=2 WHERE tToyId=1");
  SharedSet set(&m_database);
  set.m_strSort = "tToyId";
  set.Open();
  EXPECT_EQ(set.m_number, 2);
  set.Edit();
  EXPECT_FALSE(set.IsFieldDirty(&set.m_number));
  set.m_name = "renamed";
  EXPECT_TRUE(set.Update());
  EXPECT_EQ(StoredText("tToyCount"), "1");
  EXPECT_EQ(StoredText("tToySmall"), "2");
}

TEST_F(FieldState, AChangedSharedMemberIsWrittenToBothColumns) {
  SharedSet set(&m_database);
  set.m_strSort = "tToyId";
  set.Open();
  set.Edit();
  set.m_number = 8;
  EXPECT_TRUE(set.Update());
  EXPECT_EQ(StoredText("tToyCount"), "8");
  EXPECT_EQ(StoredText("tToySmall"), "8");
  set.AddNew();
  set.m_id = 6;
  set.m_number = 9;
  EXPECT_TRUE(set.Update());
  EXPECT_EQ(StoredText("tToyCount", 6), "9");
  EXPECT_EQ(StoredText("tToySmall", 6), "9");
}

}  // namespace
