// Connecting and ending a connection with a driver that refuses, fails or answers late.
#include "tests/scripted/play_set.h"

namespace {

using scripted::Catch;
using scripted::PlaySet;
using scripted::PlayTest;
using scripted::TheScript;

class Connecting : public PlayTest {
 protected:
  CDatabase m_database;
};

TEST_F(Connecting, ItNeverPromptsAndSendsTheStringWithoutThePrefix) {
  m_database.OpenEx("ODBC;DSN=a;UID=b;PWD=c");
  EXPECT_EQ(TheScript().connection_string, "DSN=a;UID=b;PWD=c");
  EXPECT_EQ(TheScript().completion, SQL_DRIVER_NOPROMPT);
}

TEST_F(Connecting, TheLoginTimeOutIsFifteenSecondsOrWhatWasSet) {
  m_database.OpenEx("DSN=a");
  EXPECT_EQ(TheScript().connection_attributes[SQL_ATTR_LOGIN_TIMEOUT], 15u);
  m_database.SetLoginTimeout(30);
  m_database.OpenEx("DSN=a");
  EXPECT_EQ(TheScript().connection_attributes[SQL_ATTR_LOGIN_TIMEOUT], 30u);
}

TEST_F(Connecting, ARefusedTimeOutOrCursorTypeIsNoError) {
  TheScript().Answer("SQLSetConnectAttr", {SQL_ERROR}, {{"HYC00"}});
  EXPECT_TRUE(m_database.OpenEx("DSN=a"));
  TheScript().Answer("SQLSetStmtAttr", {SQL_ERROR, SQL_SUCCESS_WITH_INFO, SQL_ERROR}, {{"01S02"}});
  PlaySet set(&m_database);
  EXPECT_TRUE(set.Open());
  EXPECT_EQ(set.m_id, 1);
}

TEST_F(Connecting, AServerThatIsNotReachedOrRefusesTheLoginIsAConnectionFailure) {
  for (const scripted::Record& record : {
           scripted::Record{"08001"},
           scripted::Record{       "08S01",   2013},
           scripted::Record{       "08004"      },
           scripted::Record{ "28000",       1045},
           scripted::Record{       "HY000",       2002},
           scripted::Record{       "HY000",       2005}
  }) {
    TheScript().Answer("SQLDriverConnect", {SQL_ERROR}, {record});
    EXPECT_EQ(Catch([&] { m_database.OpenEx("DSN=a"); }).code, AFX_SQL_ERROR_CONNECT_FAIL) << record.state;
    EXPECT_FALSE(m_database.IsOpen());
    EXPECT_EQ(TheScript().Live(), 0u);
  }
}

TEST_F(Connecting, AnyOtherFailureIsAnError) {
  for (const scripted::Record& record : {
           scripted::Record{"IM002"},
           scripted::Record{"HY000", 14},
           scripted::Record{"42000",       1049},
           scripted::Record{"01000"}
  }) {
    TheScript().Answer("SQLDriverConnect", {SQL_ERROR}, {record});
    EXPECT_EQ(Catch([&] { m_database.OpenEx("DSN=a"); }).code, SQL_ERROR) << record.state;
    EXPECT_FALSE(m_database.IsOpen());
    EXPECT_EQ(TheScript().Live(), 0u);
  }
}

TEST_F(Connecting, HandlesThatCannotBeMadeAreAnError) {
  for (const char* function : {"SQLAllocHandle env", "SQLAllocHandle dbc", "SQLSetEnvAttr"}) {
    TheScript().Answer(function, {SQL_ERROR});
    EXPECT_EQ(Catch([&] { m_database.OpenEx("DSN=a"); }).code, SQL_ERROR) << function;
    EXPECT_FALSE(m_database.IsOpen());
    EXPECT_EQ(TheScript().Live(), 0u) << function;
  }
  EXPECT_TRUE(m_database.OpenEx("DSN=a"));
}

TEST_F(Connecting, StatementsThatCannotBeMadeAreAnError) {
  m_database.OpenEx("DSN=a");
  TheScript().Answer("SQLAllocHandle stmt", {SQL_ERROR}, {{"HY001"}});
  EXPECT_EQ(Catch([&] { m_database.ExecuteSQL("DELETE FROM Play"); }).code, SQL_ERROR);
  PlaySet set(&m_database);
  TheScript().Answer("SQLAllocHandle stmt", {SQL_ERROR}, {{"HY001"}});
  EXPECT_EQ(Catch([&] { set.Open(); }).code, SQL_ERROR);
  EXPECT_FALSE(set.IsOpen());
  EXPECT_TRUE(set.Open());
  set.Edit();
  set.m_text = "new";
  TheScript().Answer("SQLAllocHandle stmt", {SQL_ERROR}, {{"HY001"}});
  EXPECT_EQ(Catch([&] { set.Update(); }).code, SQL_ERROR);
  EXPECT_TRUE(set.Update());
  EXPECT_TRUE(m_database.IsOpen());
}

TEST_F(Connecting, FailuresWhileClosingAreNotThrown) {
  for (const char* function : {"SQLDisconnect", "SQLEndTran", "SQLFreeHandle stmt", "SQLFreeHandle dbc",
                               "SQLFreeHandle env", "SQLFreeStmt"}) {
    scripted::NewScript();
    TheScript().Gives("SELECT id", scripted::Rows(2));
    m_database.OpenEx("DSN=a");
    PlaySet set(&m_database);
    set.Open();
    m_database.BeginTrans();
    TheScript().Answer(function, {SQL_ERROR}, {{"25000"}});
    EXPECT_NO_THROW(m_database.Close()) << function;
    EXPECT_FALSE(m_database.IsOpen());
    EXPECT_FALSE(set.IsOpen());
  }
  scripted::NewScript();
}

TEST_F(Connecting, ItRollsBackBeforeItDisconnects) {
  m_database.OpenEx("DSN=a");
  m_database.BeginTrans();
  m_database.Close();
  EXPECT_EQ(TheScript().Calls("SQLEndTran"), 1);
  EXPECT_EQ(TheScript().Calls("SQLDisconnect"), 1);
}

TEST_F(Connecting, EveryDiagnosticRecordIsGathered) {
  m_database.OpenEx("DSN=a");
  TheScript().Answer(
      "SQLExecDirect",
      {
          SQL_ERROR
  },
      {{"42S02", 11, "[maker][driver]no table"}, {"01000", 22, "no origin"}, {"HY000", -3, "[x]third"}});
  const scripted::Thrown thrown = Catch([&] { m_database.ExecuteSQL("DELETE FROM Play"); });
  EXPECT_EQ(thrown.error, "no table");
  EXPECT_EQ(
      thrown.origin,
      "State:42S02,Native:11,Origin:[maker][driver]\nState:01000,Native:22,Origin:\nState:HY000,Native:-3,"
      "Origin:[x]");
}

TEST_F(Connecting, AFailureWithoutARecordIsThrownAllTheSame) {
  m_database.OpenEx("DSN=a");
  TheScript().Answer("SQLExecDirect", {SQL_ERROR});
  const scripted::Thrown thrown = Catch([&] { m_database.ExecuteSQL("DELETE FROM Play"); });
  EXPECT_EQ(thrown.code, SQL_ERROR);
  EXPECT_FALSE(thrown.error.empty());
  EXPECT_EQ(thrown.origin, "");
}

TEST_F(Connecting, NoDataIsNoFailureOfAStatement) {
  m_database.OpenEx("DSN=a");
  TheScript().Answer("SQLExecDirect", {SQL_NO_DATA});
  EXPECT_EQ(Catch([&] { m_database.ExecuteSQL("DELETE FROM Play"); }).code, 0);
}

TEST_F(Connecting, AFailureAmongFurtherResultsIsThrown) {
  m_database.OpenEx("DSN=a");
  TheScript().Answer("SQLMoreResults", {SQL_SUCCESS_WITH_INFO, SQL_ERROR}, {{"42000"}});
  EXPECT_EQ(Catch([&] { m_database.ExecuteSQL("{call p}"); }).code, SQL_ERROR);
}

TEST_F(Connecting, ADataSourceWithoutTransactionsSaysSo) {
  TheScript().transactions = false;
  m_database.OpenEx("DSN=a");
  EXPECT_FALSE(m_database.CanTransact());
  EXPECT_FALSE(m_database.BeginTrans());
  EXPECT_EQ(TheScript().connection_attributes.count(SQL_ATTR_AUTOCOMMIT), 0u);
}

TEST_F(Connecting, ATransactionThatCannotBeBegunIsNotPending) {
  m_database.OpenEx("DSN=a");
  TheScript().Answer("SQLSetConnectAttr", {SQL_ERROR}, {{"HY000"}});
  EXPECT_FALSE(m_database.BeginTrans());
  EXPECT_FALSE(m_database.CommitTrans());
  EXPECT_TRUE(m_database.BeginTrans());
}

TEST_F(Connecting, AnEndThatFailsIsRolledBackAndNoneIsPendingThen) {
  m_database.OpenEx("DSN=a");
  for (const bool commit : {true, false}) {
    EXPECT_TRUE(m_database.BeginTrans());
    TheScript().Answer("SQLEndTran", {SQL_ERROR}, {{"40001"}});
    const int before = TheScript().Calls("SQLEndTran");
    EXPECT_FALSE(commit ? m_database.CommitTrans() : m_database.Rollback());
    EXPECT_EQ(TheScript().Calls("SQLEndTran"), before + 2);
    EXPECT_TRUE(m_database.IsOpen());
    EXPECT_FALSE(m_database.InTransaction());
    EXPECT_EQ(TheScript().connection_attributes[SQL_ATTR_AUTOCOMMIT], SQLULEN{SQL_AUTOCOMMIT_ON});
    EXPECT_FALSE(m_database.CommitTrans());
  }
}

TEST_F(Connecting, AConnectionThatCannotRollBackIsGivenUp) {
  for (const bool commit : {true, false}) {
    m_database.OpenEx("DSN=a");
    m_database.BeginTrans();
    TheScript().Answer("SQLEndTran", {SQL_ERROR, SQL_ERROR}, {{"HY000"}});
    EXPECT_FALSE(commit ? m_database.CommitTrans() : m_database.Rollback());
    EXPECT_FALSE(m_database.IsOpen());
    EXPECT_FALSE(m_database.InTransaction());
  }
}

TEST_F(Connecting, AConnectionThatCannotLeaveManualCommitIsGivenUp) {
  m_database.OpenEx("DSN=a");
  m_database.BeginTrans();
  TheScript().Answer("SQLSetConnectAttr", {SQL_ERROR}, {{"HY000"}});
  EXPECT_TRUE(m_database.CommitTrans());
  EXPECT_FALSE(m_database.IsOpen());
}

TEST_F(Connecting, ClosingOutsideATransactionAsksTheServerForNoRollback) {
  m_database.OpenEx("DSN=a");
  m_database.BeginTrans();
  m_database.CommitTrans();
  m_database.Close();
  EXPECT_EQ(TheScript().Calls("SQLEndTran"), 1);
}

TEST_F(Connecting, ATransactionWithARefusedPartIsRolledBackAtTheCommit) {
  for (const char* state : {"40001", "40P01"}) {
    m_database.OpenEx("DSN=a");
    m_database.BeginTrans();
    TheScript().Answer("SQLExecDirect", {SQL_ERROR}, {{state}});
    EXPECT_NE(Catch([&] { m_database.ExecuteSQL("DELETE FROM Play"); }).code, 0);
    EXPECT_FALSE(m_database.CommitTrans());
    EXPECT_FALSE(m_database.Rollback());  // none is pending
    EXPECT_TRUE(m_database.BeginTrans());
    EXPECT_TRUE(m_database.CommitTrans());
  }
}

TEST_F(Connecting, ARefusedStatementOutsideATransactionDoesNotTouchTheNextOne) {
  m_database.OpenEx("DSN=a");
  TheScript().Answer("SQLExecDirect", {SQL_ERROR}, {{"40001"}});
  EXPECT_NE(Catch([&] { m_database.ExecuteSQL("DELETE FROM Play"); }).code, 0);
  EXPECT_TRUE(m_database.BeginTrans());
  EXPECT_TRUE(m_database.CommitTrans());
}

class BeginningByStatement : public Connecting {
 protected:
  BeginningByStatement() {
    TheScript().dbms = "SQLite";
    TheScript().Gives("SELECT LENGTH", scripted::OneNumber(3));
    m_database.OpenEx("DSN=a");
  }
  static std::string Last() { return TheScript().Sent().back(); }
};

TEST_F(BeginningByStatement, ATransactionTakesTheRightToWriteAtItsBegin) {
  EXPECT_TRUE(m_database.BeginTrans());
  EXPECT_EQ(Last(), "BEGIN IMMEDIATE");
  EXPECT_FALSE(m_database.BeginTrans());
  EXPECT_TRUE(m_database.CommitTrans());
  EXPECT_EQ(Last(), "COMMIT");
  EXPECT_FALSE(m_database.CommitTrans());
  EXPECT_TRUE(m_database.BeginTrans());
  EXPECT_TRUE(m_database.Rollback());
  EXPECT_EQ(Last(), "ROLLBACK");
  EXPECT_EQ(TheScript().connection_attributes.count(SQL_ATTR_AUTOCOMMIT), 0u);
}

TEST_F(BeginningByStatement, WhoCannotWriteBeginsNothing) {
  TheScript().Answer("SQLExecDirect",
                     {
                         SQL_ERROR
  },
                     {{"HY000", 5}});
  EXPECT_FALSE(m_database.BeginTrans());
  EXPECT_FALSE(m_database.Rollback());
  EXPECT_TRUE(m_database.BeginTrans());
}

TEST_F(BeginningByStatement, AnEndThatFailsIsRolledBackAndNoneIsPendingThen) {
  for (const bool commit : {true, false}) {
    EXPECT_TRUE(m_database.BeginTrans());
    TheScript().Answer("SQLExecDirect",
                       {
                           SQL_ERROR
    },
                       {{"HY000", 5}});
    EXPECT_FALSE(commit ? m_database.CommitTrans() : m_database.Rollback());
    EXPECT_EQ(Last(), "ROLLBACK");
    EXPECT_FALSE(m_database.InTransaction());
    EXPECT_FALSE(m_database.CommitTrans());
  }
}

TEST_F(BeginningByStatement, WhatHasRolledBackByItselfIsKnownByAnotherBegin) {
  m_database.BeginTrans();
  TheScript().Answer("SQLExecDirect",
                     {
                         SQL_ERROR, SQL_ERROR
  },
                     {{"HY000", 1}});
  EXPECT_FALSE(m_database.CommitTrans());
  const std::vector<std::string> done = TheScript().Sent();  // the refused COMMIT and ROLLBACK are not told
  ASSERT_GE(done.size(), 3u);
  EXPECT_EQ(std::vector(done.end() - 3, done.end()),
            (std::vector<std::string>{"BEGIN IMMEDIATE", "BEGIN IMMEDIATE", "ROLLBACK"}));
  EXPECT_TRUE(m_database.IsOpen());
  EXPECT_FALSE(m_database.InTransaction());
}

TEST_F(BeginningByStatement, AConnectionThatCannotRollBackIsGivenUp) {
  m_database.BeginTrans();
  TheScript().Answer("SQLExecDirect",
                     {
                         SQL_ERROR, SQL_ERROR, SQL_ERROR
  },
                     {{"HY000", 1}});
  EXPECT_FALSE(m_database.Rollback());
  EXPECT_FALSE(m_database.IsOpen());
}

class ProvingTheSession : public Connecting {
 protected:
  ProvingTheSession() { TheScript().dbms = "MariaDB"; }
  void Prove(int length) { TheScript().Gives("SELECT CHAR_LENGTH", scripted::OneNumber(length)); }
};

TEST_F(ProvingTheSession, ASessionWithOrdinaryBackslashesIsAccepted) {
  Prove(3);
  EXPECT_TRUE(m_database.OpenEx("DSN=a"));
  ASSERT_EQ(TheScript().Sent().size(), 2u);
  EXPECT_NE(TheScript().Sent()[0].find("NO_BACKSLASH_ESCAPES"), std::string::npos);
  EXPECT_NE(TheScript().Sent()[0].find(", SESSION max_statement_time = 15"), std::string::npos);
}

TEST_F(ProvingTheSession, ASessionInWhichABackslashEscapesIsRefused) {
  Prove(2);
  EXPECT_EQ(Catch([&] { m_database.OpenEx("DSN=a"); }).code, SQL_ERROR);
  EXPECT_FALSE(m_database.IsOpen());
  EXPECT_EQ(TheScript().Live(), 0u);
}

TEST_F(ProvingTheSession, AProofOrSetupThatFailsRefusesTheConnection) {
  Prove(3);
  for (const char* function : {"SQLExecDirect", "SQLExtendedFetch", "SQLGetData"}) {
    TheScript().Answer(function, {SQL_ERROR}, {{"HY000"}});
    EXPECT_EQ(Catch([&] { m_database.OpenEx("DSN=a"); }).code, SQL_ERROR) << function;
    EXPECT_FALSE(m_database.IsOpen());
    EXPECT_EQ(TheScript().Live(), 0u);
  }
  TheScript().Gives("SELECT CHAR_LENGTH", {{{"number"}}, {}});
  EXPECT_NE(Catch([&] { m_database.OpenEx("DSN=a"); }).code, 0);
  EXPECT_FALSE(m_database.IsOpen());
}

}  // namespace
