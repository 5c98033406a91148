// Answers that drivers may give and seldom do, and operations that callers seldom use.
#include "tests/scripted/play_set.h"

namespace {

using scripted::Catch;
using scripted::PlaySet;
using scripted::PlayTest;
using scripted::TheScript;

class RareAnswers : public PlayTest {
 protected:
  CDatabase m_database;
};

class LimitedStatements : public RareAnswers {
 protected:
  LimitedStatements() {
    TheScript().dbms = "MariaDB";
    TheScript().Gives("SELECT CHAR_LENGTH", scripted::OneNumber(3));
    m_database.OpenEx("DSN=a");
  }
};

TEST_F(LimitedStatements, NoTimeOutIsThatOfTheServer) {
  m_database.SetQueryTimeout(0);
  EXPECT_EQ(TheScript().Sent().back(), "SET SESSION max_statement_time = DEFAULT");
}

TEST_F(LimitedStatements, AServerThatDoesNotTakeTheTimeOutGoesOnWithTheOneBefore) {
  TheScript().Answer("SQLExecDirect", {SQL_ERROR}, {{"42000"}});
  EXPECT_EQ(Catch([&] { m_database.SetQueryTimeout(3); }).code, 0);
  EXPECT_TRUE(m_database.IsOpen());
  m_database.SetQueryTimeout(4);
  EXPECT_EQ(TheScript().Sent().back(), "SET SESSION max_statement_time = 4");
}

class KeyedPlaySet : public PlaySet {
 public:
  explicit KeyedPlaySet(CDatabase* database) : PlaySet(database) { HoldRows(keysOnly); }
};

TEST_F(LimitedStatements, AKeyThatCannotBeReadIsAnError) {
  TheScript().row_error = true;
  KeyedPlaySet set(&m_database);
  EXPECT_EQ(Catch([&] { set.Open(CRecordset::dynaset); }).code, SQL_ERROR);
  EXPECT_FALSE(set.IsOpen());
}

class FewRowsSet : public PlaySet {
 public:
  explicit FewRowsSet(CDatabase* database) : PlaySet(database) { HoldRows(fewRows); }
};

// The row is still in the buffers, while the driver's cursor stands behind the last one.
TEST_F(LimitedStatements, AColumnOfTheLastRowCanBeReadAfterAMoveToTheEndAndBack) {
  FewRowsSet set(&m_database);
  ASSERT_TRUE(set.Open());
  set.MoveLast();
  set.MoveNext();
  EXPECT_TRUE(set.IsEOF());
  set.MovePrev();
  CString text;
  set.GetFieldValue("text", text);
  EXPECT_STREQ(text, "row 5");
}

TEST_F(RareAnswers, ATextOfUntoldLengthEndsAtItsZeroByte) {
  m_database.OpenEx("DSN=a");
  TheScript().lengths = false;
  PlaySet set(&m_database);
  ASSERT_TRUE(set.Open());
  EXPECT_STREQ(set.m_text, "row 1");
}

TEST_F(RareAnswers, AColumnMayBeNullUnlessTheDriverKnowsBetter) {
  m_database.OpenEx("DSN=a");
  scripted::Result result = scripted::Rows(1);
  result.columns[0].nullable = SQL_NO_NULLS;
  TheScript().Gives("SELECT id", result);
  PlaySet set(&m_database);
  ASSERT_TRUE(set.Open());
  EXPECT_FALSE(set.IsFieldNullable(&set.m_id));
  EXPECT_TRUE(set.IsFieldNullable(&set.m_text));
  EXPECT_TRUE(set.IsFieldNullable(nullptr));
  int unbound = 0;
  EXPECT_FALSE(set.IsFieldNullable(&unbound));
}

// One driver answers what SQLDescribeCol tells of type and nullability from the server's catalogue.
TEST_F(RareAnswers, OpeningAsksNothingThatADriverLooksUpInTheCatalogue) {
  m_database.OpenEx("DSN=a");
  PlaySet set(&m_database);
  ASSERT_TRUE(set.Open());
  EXPECT_EQ(TheScript().catalogue_questions, 0);
  CODBCFieldInfo info;
  set.GetODBCFieldInfo(short{0}, info);
  EXPECT_EQ(info.m_nNullability, SQL_NULLABLE);
  EXPECT_EQ(TheScript().catalogue_questions, 1);
}

TEST_F(RareAnswers, NullabilityIsUnknownWhereTheDriverDoesNotTellIt) {
  m_database.OpenEx("DSN=a");
  PlaySet set(&m_database);
  ASSERT_TRUE(set.Open());
  TheScript().Answer("SQLDescribeCol", {SQL_ERROR}, {{"HY000"}});
  CODBCFieldInfo info;
  set.GetODBCFieldInfo(short{0}, info);
  EXPECT_STREQ(info.m_strName, "id");
  EXPECT_EQ(info.m_nNullability, SQL_NULLABLE_UNKNOWN);
  set.Close();
  EXPECT_TRUE(set.IsFieldNullable(&set.m_id));
}

TEST_F(RareAnswers, KindsOfTimesAreToldApartByTheirWidth) {
  m_database.OpenEx("DSN=a");
  struct Kind {
    SQLSMALLINT type;
    SQLULEN width;
  };
  for (const auto& [type, width] : {
           Kind{SQL_TYPE_DATE,      10},
           Kind{SQL_TYPE_TIME,      8 },
           Kind{SQL_TYPE_TIME,      15},
           Kind{SQL_TYPE_TIMESTAMP, 19},
           Kind{SQL_TYPE_TIMESTAMP, 26},
  }) {
    scripted::Result result = scripted::Rows(1);
    result.columns.push_back({"at", type, width});
    for (auto& row : result.rows) row.emplace_back("2001-05-06");
    TheScript().Gives("SELECT id", result);
    PlaySet set(&m_database);
    ASSERT_TRUE(set.Open());
    CODBCFieldInfo info;
    set.GetODBCFieldInfo("at", info);
    EXPECT_EQ(info.m_nSQLType, type) << width;
    EXPECT_EQ(info.m_nPrecision, width);
  }
}

class AskingSet : public PlaySet {
 public:
  using CRecordset::Check;
  using CRecordset::DoBulkFieldExchange;
  using CRecordset::OnReserved;
  using CRecordset::SetRowsetCurrencyStatus;
  using PlaySet::PlaySet;

  void DoFieldExchange(CFieldExchange* exchange) override {
    UINT index = 99;
    exchange->SetFieldType(CFieldExchange::param);
    EXPECT_FALSE(exchange->IsFieldType(&index));
    EXPECT_EQ(index, 99u);
    exchange->SetFieldType(CFieldExchange::outputColumn);
    EXPECT_TRUE(exchange->IsFieldType(nullptr));
    EXPECT_TRUE(exchange->IsFieldType(&index));
    EXPECT_EQ(index, 0u);
    PlaySet::DoFieldExchange(exchange);
    EXPECT_TRUE(exchange->IsFieldType(&index));
    EXPECT_EQ(index, 2u);
    DoBulkFieldExchange(exchange);
    ++exchanges;
  }
  int exchanges = 0;
};

TEST_F(RareAnswers, AnExchangeTellsTheIndexOfTheNextColumn) {
  m_database.OpenEx("DSN=a");
  AskingSet set(&m_database);
  ASSERT_TRUE(set.Open());
  EXPECT_GT(set.exchanges, 0);
  EXPECT_EQ(set.m_id, 1);
}

TEST_F(RareAnswers, OnlyAnErrorAndAWrongHandleAreFailures) {
  AskingSet set(&m_database);
  for (const RETCODE code :
       {SQL_SUCCESS, SQL_SUCCESS_WITH_INFO, SQL_NO_DATA, SQL_STILL_EXECUTING, SQL_NEED_DATA}) {
    EXPECT_TRUE(set.Check(code)) << code;
  }
  EXPECT_FALSE(set.Check(SQL_ERROR));
  EXPECT_FALSE(set.Check(SQL_INVALID_HANDLE));
}

TEST_F(RareAnswers, OperationsForRowsetsOfSeveralRowsLeaveTheSetAsItIs) {
  m_database.OpenEx("DSN=a");
  AskingSet set(&m_database);
  ASSERT_TRUE(set.Open());
  set.SetRowsetCurrencyStatus(SQL_SUCCESS, SQL_FETCH_NEXT, 1, 1);
  set.OnReserved();
  EXPECT_EQ(set.m_lCurrentRecord, 0);
  EXPECT_EQ(set.m_id, 1);
  set.MoveNext();
  EXPECT_EQ(set.m_id, 2);
}

}  // namespace
