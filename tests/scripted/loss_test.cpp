// A connection that is lost while it is used.
#include <memory>

#include "tests/scripted/play_set.h"

namespace {

using scripted::Catch;
using scripted::PlaySet;
using scripted::PlayTest;
using scripted::TheScript;

// How a driver tells of the loss: by the state of the failure, or only when it is asked.
struct Telling {
  const char* name;
  scripted::Records records;
  bool dead;
};

// GoogleTest would print the bytes, also those between the members.
void PrintTo(const Telling& telling, std::ostream* out) { *out << telling.name; }

const Telling kTellings[] = {
    {"LinkFailure",     {{"08S01", 2013}},      false},
    {"NoConnection",    {{"08003"}},            false},
    {"ServerShutsDown", {{"57P01", 7}},         true },
    {"OnlyWhenAsked",   {{"HY000", 2006}},      true },
    {"SecondRecord",    {{"HY000"}, {"08S01"}}, false},
    {"WithoutRecord",   {},                     true },
};

class Loss : public PlayTest, public testing::WithParamInterface<Telling> {
 protected:
  void SetUp() override {
    PlayTest::SetUp();
    m_database.OpenEx("DSN=a");
    m_set = std::make_unique<PlaySet>(&m_database);
    m_set->Open();
    m_other = std::make_unique<PlaySet>(&m_database);
    m_other->Open();
  }
  // The next call of the function finds the connection lost.
  void LoseAt(const char* function) {
    TheScript().Answer(function, {SQL_ERROR}, GetParam().records);
    TheScript().dead = GetParam().dead;
  }
  // The handles are given back at once, the sets are closed and everything may be used and destroyed after
  // it.
  void ExpectReleased() {
    EXPECT_FALSE(m_database.IsOpen());
    EXPECT_EQ(TheScript().Live(), 0u);
    EXPECT_FALSE(m_set->IsOpen());
    EXPECT_FALSE(m_other->IsOpen());
    EXPECT_EQ(m_set->m_hstmt, nullptr);
    EXPECT_FALSE(m_set->CanUpdate());
    EXPECT_EQ(m_set->ExtendedFetch(SQL_FETCH_NEXT, 0), SQL_INVALID_HANDLE);
    m_set->Close();
    EXPECT_NE(Catch([&] { m_other->MoveFirst(); }).code, 0);
    EXPECT_NE(Catch([&] { m_database.ExecuteSQL("DELETE FROM Play"); }).code, 0);
    EXPECT_FALSE(m_database.Rollback());
    m_other.reset();
    TheScript().dead = false;
    EXPECT_TRUE(m_database.OpenEx("DSN=a"));
    EXPECT_TRUE(m_set->Open());
    EXPECT_EQ(m_set->m_id, 1);
  }

  CDatabase m_database;
  std::unique_ptr<PlaySet> m_set;
  std::unique_ptr<PlaySet> m_other;
};

TEST_P(Loss, InAStatementItReleasesTheConnection) {
  LoseAt("SQLExecDirect");
  EXPECT_EQ(Catch([&] { m_database.ExecuteSQL("DELETE FROM Play"); }).code, SQL_ERROR);
  ExpectReleased();
}

TEST_P(Loss, AmongFurtherResultsItReleasesTheConnection) {
  LoseAt("SQLMoreResults");
  EXPECT_EQ(Catch([&] { m_database.ExecuteSQL("DELETE FROM Play"); }).code, SQL_ERROR);
  ExpectReleased();
}

TEST_P(Loss, InAMoveItReleasesTheConnection) {
  LoseAt("SQLExtendedFetch");
  EXPECT_EQ(Catch([&] { m_set->MoveNext(); }).code, SQL_ERROR);
  ExpectReleased();
}

TEST_P(Loss, WhileTheRowsAreCountedItReleasesTheConnection) {
  LoseAt("SQLExtendedFetch");
  EXPECT_EQ(Catch([&] { m_set->MoveLast(); }).code, SQL_ERROR);
  ExpectReleased();
}

TEST_P(Loss, InARequeryItReleasesTheConnection) {
  LoseAt("SQLExecute");
  EXPECT_EQ(Catch([&] { m_set->Requery(); }).code, SQL_ERROR);
  ExpectReleased();
}

TEST_P(Loss, WhileASetIsOpenedItReleasesTheConnection) {
  for (const char* function : {"SQLPrepare", "SQLExecute", "SQLExtendedFetch"}) {
    LoseAt(function);
    PlaySet set(&m_database);
    EXPECT_EQ(Catch([&] { set.Open(); }).code, SQL_ERROR);
    EXPECT_FALSE(set.IsOpen());
    ExpectReleased();
    m_other = std::make_unique<PlaySet>(&m_database);
  }
}

TEST_P(Loss, InAnAdditionAnEditOrADeletionItReleasesTheConnection) {
  LoseAt("SQLExecDirect");
  m_set->Edit();
  m_set->m_text = "changed";
  EXPECT_EQ(Catch([&] { m_set->Update(); }).code, SQL_ERROR);
  EXPECT_STREQ(m_set->m_text, "changed");
  ExpectReleased();
  m_other = std::make_unique<PlaySet>(&m_database);
  LoseAt("SQLExecDirect");
  m_set->AddNew();
  m_set->m_text = "new";
  EXPECT_EQ(Catch([&] { m_set->Update(); }).code, SQL_ERROR);
  ExpectReleased();
  m_other = std::make_unique<PlaySet>(&m_database);
  LoseAt("SQLExecDirect");
  EXPECT_EQ(Catch([&] { m_set->Delete(); }).code, SQL_ERROR);
  ExpectReleased();
}

TEST_P(Loss, WhileAColumnIsReadItReleasesTheConnection) {
  LoseAt("SQLGetData");
  CString text;
  EXPECT_EQ(Catch([&] { m_set->GetFieldValue(short{1}, text); }).code, SQL_ERROR);
  ExpectReleased();
}

TEST_P(Loss, AtTheEndOfATransactionItReleasesTheConnection) {
  ASSERT_TRUE(m_database.BeginTrans());
  LoseAt("SQLEndTran");
  EXPECT_FALSE(m_database.CommitTrans());
  ExpectReleased();
  EXPECT_TRUE(m_database.BeginTrans());
}

TEST_P(Loss, AtTheBeginOfATransactionItReleasesTheConnection) {
  LoseAt("SQLSetConnectAttr");
  EXPECT_FALSE(m_database.BeginTrans());
  ExpectReleased();
}

TEST_P(Loss, WhenNoStatementCanBeMadeItReleasesTheConnection) {
  LoseAt("SQLAllocHandle stmt");
  PlaySet set(&m_database);
  EXPECT_EQ(Catch([&] { set.Open(); }).code, SQL_ERROR);
  ExpectReleased();
}

INSTANTIATE_TEST_SUITE_P(Tellings, Loss, testing::ValuesIn(kTellings),
                         [](const auto& instance) { return std::string(instance.param.name); });

class NoLoss : public PlayTest {};

TEST_F(NoLoss, AFailureOfALivingConnectionKeepsItOpen) {
  CDatabase database;
  database.OpenEx("DSN=a");
  PlaySet set(&database);
  set.Open();
  for (const char* state : {"42S02", "HY000", "23000", "57014", "40001"}) {
    TheScript().Answer("SQLExecDirect", {SQL_ERROR}, {{state}});
    EXPECT_EQ(Catch([&] { database.ExecuteSQL("DELETE FROM Play"); }).code, SQL_ERROR);
    EXPECT_TRUE(database.IsOpen()) << state;
    EXPECT_TRUE(set.IsOpen()) << state;
  }
  set.MoveNext();
  EXPECT_EQ(set.m_id, 2);
}

TEST_F(NoLoss, AMisuseOfASetDoesNotAskTheServer) {
  CDatabase database;
  database.OpenEx("DSN=a");
  PlaySet set(&database);
  set.Open();
  EXPECT_EQ(Catch([&] { set.Update(); }).code, AFX_SQL_ERROR_ILLEGAL_MODE);
  EXPECT_EQ(TheScript().Calls("SQLGetConnectAttr"), 0);
}

}  // namespace
