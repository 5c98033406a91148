// Record sets over procedure calls: bound columns, variants, moves, and the connection meanwhile.
#include "tests/db/toy_set.h"

namespace {

using namespace toys;

class CallRows : public ToyTest {
 protected:
  CallRows() {
    MakeProcedure("toys",
                  "SELECT tToyId, tToyName, tToyCount, tToySmall, tToyFlag, tToyDay, tToyTime, tToyText "
                  "FROM Toy ORDER BY tToyId");
  }
  void MakeProcedure(const std::string& name, const std::string& select) {
    for (const std::string& sql : support::CurrentKind().ProcedureStatements(name, select)) m_raw.Exec(sql);
  }
};

class CalledSet : public ToySet {
 public:
  explicit CalledSet(CDatabase* database) : ToySet(database) { m_source = "{call toys}"; }
};

TEST_F(CallRows, FillBoundMembers) {
  AddToys(1);
  m_raw.Exec(
      "UPDATE Toy SET tToySmall = 40, tToyFlag = 1, tToyDay = '2001-05-06', tToyTime = '2002-06-07 "
      "08:09:10'");
  CalledSet set(&m_database);
  ASSERT_TRUE(set.Open());
  ExpectOnRow(set, 1, 1);
  EXPECT_STREQ(set.m_name, "toy1");
  EXPECT_EQ(set.m_count, 10);
  EXPECT_EQ(set.m_small, 40);
  EXPECT_EQ(set.m_flag, TRUE);
  EXPECT_EQ(support::TimeText(set.m_day), "2001-05-06 00:00:00");
  EXPECT_EQ(support::TimeText(set.m_time), "2002-06-07 08:09:10");
}

TEST_F(CallRows, ReadNullAsTheValueOfNothing) {
  AddToys(2);
  m_raw.Exec("UPDATE Toy SET tToyName = NULL, tToyCount = NULL WHERE tToyId = 2");
  CalledSet set(&m_database);
  ASSERT_TRUE(set.Open());
  EXPECT_FALSE(set.IsFieldNull(&set.m_name));
  set.MoveNext();
  EXPECT_TRUE(set.IsFieldNull(&set.m_name));
  EXPECT_STREQ(set.m_name, "");
  EXPECT_EQ(set.m_count, 0);
  EXPECT_TRUE(set.IsFieldNull(&set.m_day));
}

TEST_F(CallRows, AreMovedOverInEveryDirection) {
  AddToys(4);
  CalledSet set(&m_database);
  ASSERT_TRUE(set.Open());
  EXPECT_EQ(set.Ids(), "1,2,3,4");
  ExpectAfterLast(set);
  set.MovePrev();
  ExpectOnRow(set, 4, 4);
  set.Move(-2);
  ExpectOnRow(set, 2, 2);
  set.Move(0);
  ExpectOnRow(set, 2, 2);
  set.SetAbsolutePosition(-1);
  ExpectOnRow(set, 4, 4);
  set.MoveFirst();
  set.MovePrev();
  ExpectBeforeFirst(set);
}

TEST_F(CallRows, AreEmptyWhenTheProcedureFindsNone) {
  CalledSet set(&m_database);
  ASSERT_TRUE(set.Open());
  ExpectEmpty(set);
}

TEST_F(CallRows, AreReadAnewByARequery) {
  AddToys(1);
  CalledSet set(&m_database);
  ASSERT_TRUE(set.Open());
  set.MoveNext();
  m_raw.Exec("INSERT INTO Toy (tToyId, tToyName) VALUES (5, 'late')");
  ASSERT_TRUE(set.Requery());
  EXPECT_EQ(set.Ids(), "1,5");
}

TEST_F(CallRows, LeaveTheConnectionFreeForChangesAndOtherSets) {
  AddToys(3);
  CalledSet set(&m_database);
  ASSERT_TRUE(set.Open());
  m_database.ExecuteSQL("UPDATE Toy SET tToyCount = 99 WHERE tToyId = 2");
  ToySet table(&m_database);
  table.m_strFilter = "tToyId=2";
  ASSERT_TRUE(table.Open());
  EXPECT_EQ(table.m_count, 99);
  table.Edit();
  table.m_name = "changed";
  EXPECT_TRUE(table.Update());
  EXPECT_EQ(StoredText("tToyName", 2), "changed");
  EXPECT_EQ(set.Ids(), "1,2,3");
}

TEST_F(CallRows, GiveVariantsOfTheColumnsTypes) {
  AddToys(1);
  m_raw.Exec("UPDATE Toy SET tToyFlag = -3, tToyDay = '2001-05-06', tToyTime = '2002-06-07 08:09:10'");
  CRecordset set(&m_database);
  ASSERT_TRUE(set.Open(CRecordset::snapshot, "{call toys}", CRecordset::executeDirect));
  CDBVariant value;
  set.GetFieldValue("tToyId", value);
  EXPECT_EQ(value.m_dwType, DBVT_LONG);
  EXPECT_EQ(value.m_lVal, 1);
  set.GetFieldValue("tToyFlag", value);
  EXPECT_EQ(value.m_dwType, DBVT_SHORT);
  EXPECT_EQ(value.m_iVal, -3);
  set.GetFieldValue("tToyName", value);
  ASSERT_EQ(value.m_dwType, DBVT_STRING);
  EXPECT_STREQ(*value.m_pstring, "toy1");
  set.GetFieldValue("tToyTime", value);
  ASSERT_EQ(value.m_dwType, DBVT_DATE);
  EXPECT_EQ(support::TimeText(*value.m_pdate), "2002-06-07 08:09:10");
  set.GetFieldValue("tToySmall", value);
  EXPECT_EQ(value.m_dwType, DBVT_NULL);
}

TEST_F(CallRows, GiveTheTypeThatIsAskedFor) {
  AddToys(1);
  CRecordset set(&m_database);
  ASSERT_TRUE(set.Open(CRecordset::snapshot, "{call toys}"));
  CDBVariant value;
  set.GetFieldValue("tToyCount", value, SQL_C_DOUBLE);
  ASSERT_EQ(value.m_dwType, DBVT_DOUBLE);
  EXPECT_EQ(value.m_dblVal, 10.0);
  set.GetFieldValue("tToyCount", value, SQL_C_SSHORT);
  EXPECT_EQ(value.m_dwType, DBVT_SHORT);
  set.GetFieldValue("tToyName", value, SQL_C_BINARY);
  ASSERT_EQ(value.m_dwType, DBVT_BINARY);
  EXPECT_EQ(value.m_pbinary->GetLength(), 4);
  EXPECT_NE(CodeOf([&] { set.GetFieldValue("tToyName", value, SQL_C_SLONG); }), 0);
}

class WideSet : public CRecordset {
 public:
  explicit WideSet(CDatabase* database) : CRecordset(database) { m_nFields = 1; }
  CString GetDefaultSQL() override { return "{call texts}"; }
  void DoFieldExchange(CFieldExchange* exchange) override {
    exchange->SetFieldType(CFieldExchange::outputColumn);
    RFX_Text(exchange, "tToyText", m_text, 1000000);
  }
  CString m_text;
};

TEST_F(CallRows, FillBoundTextsOf1000000Characters) {
  AddToys(2);
  m_raw.Exec("UPDATE Toy SET tToyText = '" + std::string(1000000, 'w') + "' WHERE tToyId = 2");
  MakeProcedure("texts", "SELECT tToyText FROM Toy ORDER BY tToyId");
  WideSet set(&m_database);
  ASSERT_TRUE(set.Open());
  EXPECT_TRUE(set.IsFieldNull(&set.m_text));
  set.MoveNext();
  EXPECT_TRUE(set.m_text.View() == std::string(1000000, 'w'));
}

TEST_F(CallRows, OfTooFewColumnsForTheSetAreRefused) {
  MakeProcedure("ids", "SELECT tToyId FROM Toy");
  CalledSet set(&m_database);
  set.m_source = "{call ids}";
  EXPECT_EQ(CodeOf([&] { set.Open(); }), AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH);
  EXPECT_FALSE(set.IsOpen());
}

TEST_F(CallRows, TellTheirColumns) {
  CRecordset set(&m_database);
  ASSERT_TRUE(set.Open(CRecordset::snapshot, "{call toys}"));
  EXPECT_EQ(set.GetODBCFieldCount(), 8);
  CODBCFieldInfo info;
  set.GetODBCFieldInfo("tToyCount", info);
  EXPECT_EQ(info.m_nSQLType, SQL_INTEGER);
  EXPECT_NE(CodeOf([&] { set.GetODBCFieldInfo(short{8}, info); }), 0);
}

}  // namespace
