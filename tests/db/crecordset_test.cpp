// Opening a record set, the state it then has, and the SQL text it forms.
#include <memory>
#include <vector>

#include "tests/db/toy_set.h"

namespace {

using toys::Catch;
using toys::CodeOf;
using toys::ExpectEmpty;
using toys::ExpectOnRow;
using toys::ToySet;

class RecordSetOpening : public toys::ToyTest {};
class RecordSetSQL : public toys::ToyTest {};

TEST_F(RecordSetOpening, ASetThatWasNeverOpenedIsClosedAndEmpty) {
  ToySet set(&m_database);
  EXPECT_FALSE(set.IsOpen());
  ExpectEmpty(set);
  EXPECT_EQ(set.ExtendedFetch(SQL_FETCH_ABSOLUTE, 1), SQL_INVALID_HANDLE);
  EXPECT_FALSE(set.CanUpdate());
  EXPECT_FALSE(set.CanAppend());
  EXPECT_FALSE(set.CanRestart());
  EXPECT_FALSE(set.CanScroll());
  EXPECT_FALSE(set.CanTransact());
}

TEST_F(RecordSetOpening, OpeningStandsOnTheFirstRowWithItsColumnsInTheMembers) {
  AddToys(3);
  ToySet set(&m_database);
  EXPECT_TRUE(set.Open());
  EXPECT_TRUE(set.IsOpen());
  ExpectOnRow(set, 1, 1);
  EXPECT_STREQ(set.m_name, "toy1");
  EXPECT_EQ(set.m_count, 10);
  EXPECT_TRUE(set.CanUpdate());
  EXPECT_TRUE(set.CanAppend());
  EXPECT_TRUE(set.CanRestart());
  EXPECT_TRUE(set.CanScroll());
  EXPECT_TRUE(set.CanTransact());
}

TEST_F(RecordSetOpening, AnEmptyTableOpensAsAnEmptySet) {
  ToySet set(&m_database);
  EXPECT_TRUE(set.Open());
  EXPECT_TRUE(set.IsOpen());
  ExpectEmpty(set);
}

TEST_F(RecordSetOpening, TheDefaultTypeIsSnapshotAndBothTypesOpen) {
  AddToys(1);
  ToySet set(&m_database);
  set.Open();
  EXPECT_EQ(set.m_nOpenTypeInUse, CRecordset::snapshot);
  set.Open(CRecordset::dynaset);
  EXPECT_EQ(set.m_nOpenTypeInUse, CRecordset::dynaset);
  ExpectOnRow(set, 1, 1);
}

TEST_F(RecordSetOpening, UnsupportedTypesThrowAndLeaveTheSetClosed) {
  for (const UINT type : {UINT{CRecordset::forwardOnly}, UINT{CRecordset::dynamic}, UINT{77}}) {
    ToySet set(&m_database);
    EXPECT_NE(CodeOf([&] { set.Open(type); }), 0) << type;
    EXPECT_FALSE(set.IsOpen());
  }
}

TEST_F(RecordSetOpening, WithoutADatabaseTheSetConnectsItself) {
  AddToys(2);
  ToySet set(nullptr);
  set.m_connect = "ODBC;" + Connect();
  EXPECT_TRUE(set.Open());
  ExpectOnRow(set, 1, 1);
  ASSERT_NE(set.m_pDatabase, nullptr);
  EXPECT_NE(set.m_pDatabase, &m_database);
  set.Close();
  EXPECT_TRUE(set.Open());
}

TEST_F(RecordSetOpening, AnUnconnectedDatabaseIsConnectedByTheSet) {
  AddToys(1);
  CDatabase unconnected;
  ToySet set(&unconnected);
  set.m_connect = "ODBC;" + Connect();
  EXPECT_TRUE(set.Open());
  EXPECT_TRUE(unconnected.IsOpen());
  ExpectOnRow(set, 1, 1);
}

TEST_F(RecordSetOpening, NoConnectionToAskForFailsAsAConnectionFailure) {
  CRecordset set(nullptr);
  EXPECT_STREQ(set.GetDefaultConnect(), "ODBC;");
  EXPECT_STREQ(set.GetDefaultSQL(), "");
  EXPECT_EQ(CodeOf([&] { set.Open(CRecordset::snapshot, "SELECT 1"); }), AFX_SQL_ERROR_CONNECT_FAIL);
  EXPECT_FALSE(set.IsOpen());
  EXPECT_EQ(CodeOf([&] { set.Open(CRecordset::snapshot, "SELECT 1"); }), AFX_SQL_ERROR_CONNECT_FAIL);
}

class CancelledDatabase : public CDatabase {
 public:
  BOOL OpenEx(const char*, DWORD) override { return FALSE; }
};

TEST_F(RecordSetOpening, OpeningGivesZeroWhenConnectingGaveZero) {
  CancelledDatabase cancelled;
  ToySet set(&cancelled);
  EXPECT_FALSE(set.Open());
  EXPECT_FALSE(set.IsOpen());
  ExpectEmpty(set);
}

TEST_F(RecordSetOpening, AMissingTableThrowsAndLeavesTheSetClosed) {
  ToySet set(&m_database);
  set.m_source = "NoSuchTable";
  const toys::Thrown thrown = Catch([&] { set.Open(); });
  EXPECT_EQ(thrown.code, SQL_ERROR);
  EXPECT_NE(toys::LowerCase(thrown.error).find("nosuchtable"), std::string::npos) << thrown.error;
  EXPECT_FALSE(set.IsOpen());
  EXPECT_EQ(set.m_hstmt, nullptr);
  ExpectEmpty(set);
  set.m_source = "Toy";
  EXPECT_TRUE(set.Open());
}

TEST_F(RecordSetOpening, OpeningAnOpenSetOpensItAnew) {
  AddToys(2);
  ToySet set(&m_database);
  set.Open();
  set.MoveNext();
  EXPECT_TRUE(set.Open());
  ExpectOnRow(set, 1, 1);
  set.m_source = "NoSuchTable";
  EXPECT_NE(CodeOf([&] { set.Open(); }), 0);
  EXPECT_FALSE(set.IsOpen());
}

TEST_F(RecordSetOpening, ATableWithoutBoundColumnsThrows) {
  CRecordset set(&m_database);
  EXPECT_EQ(CodeOf([&] { set.Open(CRecordset::snapshot, "Toy"); }), AFX_SQL_ERROR_EMPTY_COLUMN_LIST);
  EXPECT_EQ(CodeOf([&] { set.Open(); }), AFX_SQL_ERROR_EMPTY_COLUMN_LIST);
  EXPECT_FALSE(set.IsOpen());
}

TEST_F(RecordSetOpening, AResultWithFewerColumnsThanTheSetThrows) {
  ToySet set(&m_database);
  EXPECT_EQ(CodeOf([&] { set.Open(CRecordset::snapshot, "SELECT tToyId FROM Toy"); }),
            AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH);
  EXPECT_FALSE(set.IsOpen());
}

TEST_F(RecordSetOpening, ASelectMayReturnMoreColumnsThanTheSetBinds) {
  AddToys(1);
  ToySet set(&m_database);
  set.Open(
      CRecordset::snapshot,
      "SELECT tToyId, tToyName, tToyCount, tToySmall, tToyFlag, tToyDay, tToyTime, 'more' AS extra FROM Toy");
  ExpectOnRow(set, 1, 1);
  EXPECT_EQ(set.m_nResultCols, 8);
  CString extra;
  set.GetFieldValue("extra", extra);
  EXPECT_STREQ(extra, "more");
}

TEST_F(RecordSetOpening, ManySetsOfOneConnectionStandOnRowsOfTheirOwn) {
  AddToys(40);
  std::vector<std::unique_ptr<ToySet>> sets;
  for (LONG row = 1; row <= 40; ++row) {
    sets.push_back(std::make_unique<ToySet>(&m_database));
    sets.back()->Open();
    sets.back()->SetAbsolutePosition(row);
  }
  for (LONG row = 1; row <= 40; ++row) {
    sets[static_cast<std::size_t>(row - 1)]->Move(0);
    ExpectOnRow(*sets[static_cast<std::size_t>(row - 1)], row, row);
  }
}

TEST_F(RecordSetSQL, AFromListBecomesASelectOfTheBoundColumnsInOrder) {
  ToySet set(&m_database);
  set.Open();
  EXPECT_STREQ(set.GetSQL(), "SELECT tToyId,tToyName,tToyCount,tToySmall,tToyFlag,tToyDay,tToyTime FROM Toy");
  EXPECT_STREQ(set.GetTableName(), "Toy");
}

TEST_F(RecordSetSQL, FilterAndSortFollowUnchanged) {
  AddToys(3);
  ToySet set(&m_database);
  set.m_strFilter = " (tToyId>1) ";
  set.m_strSort = "tToyId DESC";
  set.Open();
  EXPECT_STREQ(
      set.GetSQL(),
      "SELECT tToyId,tToyName,tToyCount,tToySmall,tToyFlag,tToyDay,tToyTime FROM Toy WHERE  (tToyId>1)  "
      "ORDER BY tToyId DESC");
  EXPECT_EQ(set.Ids(), "3,2");
  set.Close();
  EXPECT_STREQ(set.m_strFilter, " (tToyId>1) ");
  EXPECT_STREQ(set.m_strSort, "tToyId DESC");
}

TEST_F(RecordSetSQL, TheArgumentGoesBeforeTheDefaultSource) {
  AddToys(1);
  ToySet set(&m_database);
  set.m_source = "NoSuchTable";
  set.Open(CRecordset::snapshot, "Toy");
  ExpectOnRow(set, 1, 1);
}

TEST_F(RecordSetSQL, ASelectIsUsedAsItStandsWithFilterAndSortBehindIt) {
  AddToys(3);
  CRecordset set(&m_database);
  set.m_strFilter = "tToyId<3";
  set.m_strSort = "tToyId DESC";
  set.Open(CRecordset::snapshot, "select tToyName FROM Toy");
  EXPECT_STREQ(set.GetSQL(), "select tToyName FROM Toy WHERE tToyId<3 ORDER BY tToyId DESC");
  CString name;
  set.GetFieldValue(short{0}, name);
  EXPECT_STREQ(name, "toy2");
}

TEST_F(RecordSetSQL, ASelectNeedsNoBlankBehindTheWord) {
  AddToys(1);
  CRecordset set(&m_database);
  set.Open(CRecordset::snapshot, "SELECT(tToyName) FROM Toy");
  EXPECT_STREQ(set.GetSQL(), "SELECT(tToyName) FROM Toy");
  EXPECT_TRUE(set.Open(CRecordset::snapshot, "SELECT*FROM Toy"));
}

TEST_F(RecordSetSQL, ATableWhoseNameBeginsLikeTheWordIsATable) {
  m_raw.Exec(toys::TableOfToys("Selected", "INTEGER"));
  ToySet set(&m_database);
  set.m_source = "Selected";
  EXPECT_TRUE(set.Open());
  EXPECT_STREQ(set.GetTableName(), "Selected");
}

TEST_F(RecordSetSQL, ACallGetsNeitherFilterNorSort) {
  CRecordset set(&m_database);
  set.m_strFilter = "1 = 2";
  set.m_strSort = "nothing";
  EXPECT_TRUE(set.Open(CRecordset::snapshot, "{call spky_ping}", CRecordset::executeDirect));
  EXPECT_TRUE(set.IsOpen());
  EXPECT_TRUE(set.Open(CRecordset::snapshot, "{CALL spky_ping}"));
  EXPECT_FALSE(set.CanUpdate());
  EXPECT_FALSE(set.CanAppend());
  EXPECT_STREQ(set.GetTableName(), "");
}

class JoinedSet : public CRecordset {
 public:
  using CRecordset::CRecordset;
  CString GetDefaultSQL() override { return "Toy a, Toy b"; }
  void DoFieldExchange(CFieldExchange* exchange) override {
    exchange->SetFieldType(CFieldExchange::outputColumn);
    RFX_Long(exchange, "a.tToyId", m_first);
    RFX_Long(exchange, "b.tToyId", m_second);
  }
  LONG m_first = 0;
  LONG m_second = 0;
};

TEST_F(RecordSetSQL, AJoinIsReadWithItsAliasesAndCannotBeChanged) {
  AddToys(2);
  JoinedSet set(&m_database);
  set.m_strFilter = "a.tToyId=b.tToyId";
  set.m_strSort = "b.tToyId DESC";
  set.Open();
  EXPECT_EQ(set.m_first, 2);
  EXPECT_EQ(set.m_second, 2);
  EXPECT_STREQ(set.GetTableName(), "");
  EXPECT_FALSE(set.CanUpdate());
  EXPECT_EQ(CodeOf([&] { set.Edit(); }), AFX_SQL_ERROR_RECORDSET_READONLY);
  EXPECT_EQ(CodeOf([&] { set.AddNew(); }), AFX_SQL_ERROR_RECORDSET_READONLY);
  EXPECT_EQ(CodeOf([&] { set.Delete(); }), AFX_SQL_ERROR_RECORDSET_READONLY);
}

TEST_F(RecordSetSQL, AGroupingCannotBeChanged) {
  AddToys(1);
  ToySet set(&m_database);
  set.Open(CRecordset::snapshot,
           "SELECT MAX(tToyId) AS a, tToyName, MAX(tToyCount) AS b, MAX(tToySmall) AS c, MAX(tToyFlag) AS d, "
           "MAX(tToyDay) AS e, MAX(tToyTime) AS f FROM Toy GROUP BY tToyName");
  ExpectOnRow(set, 1, 1);
  EXPECT_FALSE(set.CanUpdate());
}

}  // namespace
