// The server stops, and comes back or not.
#include <string>

#include "tests/loss/loss_test_base.h"

namespace loss {
namespace {

using support::Loss;

struct Stop {
  const char* name;
  void (support::OwnServer::*stop)();
};

const Stop kStops[] = {
    {"Halted", &support::OwnServer::Halt},
    {"Killed", &support::OwnServer::Kill},
};

class ServerDown : public LossTest, public testing::WithParamInterface<Stop> {
 protected:
  void StopServer() {
    DropRaw();
    (Server().*GetParam().stop)();
  }
};
INSTANTIATE_TEST_SUITE_P(Stops, ServerDown, testing::ValuesIn(kStops),
                         [](const auto& stop) { return std::string(stop.param.name); });

TEST_P(ServerDown, ThePatientsOpenAgainOnceItIsBack) {
  ASSERT_EQ(DB_OpenTPat(), 0);
  ASSERT_EQ(DB_OpenTStat(), 0);
  StopServer();
  EXPECT_EQ(DB_OpenTPat(), 3);
  EXPECT_EQ(DB_IsDatabaseOpen(), 0);
  EXPECT_EQ(DB_GetDatabase(), nullptr);
  EXPECT_EQ(DB_OpenPatEx(), 3);
  EXPECT_EQ(DB_OpenTStat(), 3);
  EXPECT_EQ(DB_IsTPatOpen(), 0);
  EXPECT_EQ(DB_MoveToTPatByPos(1), 0);
  EXPECT_EQ(DB_BeginTransaction(), 3);
  EXPECT_EQ(DB_OpenTPat(), 3);
  Server().Resume();
  ExpectHealed();
}

TEST_P(ServerDown, TheJoinedViewOpensAgainOnceItIsBack) {
  StopServer();
  EXPECT_EQ(DB_OpenPatEx(), 3);
  Server().Resume();
  EXPECT_EQ(DB_OpenPatEx(), 0);
  ExpectHealed();
}

TEST_P(ServerDown, ConnectingGives30AndWorksOnceItIsBack) {
  ASSERT_EQ(DB_CloseDatabase(), 0);
  StopServer();
  // Through the relay a stopped server shows as a connection that ends at once; without it as a refused one.
  EXPECT_EQ(Connect(), 30);
  TheRelay().Refuse(true);
  EXPECT_EQ(Connect(), 30);
  EXPECT_EQ(DB_IsDatabaseOpen(), 0);
  EXPECT_EQ(DB_OpenTPat(), 3);
  TheRelay().Refuse(false);
  Server().Resume();
  EXPECT_EQ(DB_OpenTPat(), 3);  // nobody is to connect but by DB_InitDatabase
  EXPECT_EQ(Connect(), 0);
  ExpectHealed();
}

TEST_P(ServerDown, ARestartInATransactionLeavesNothingOfIt) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  tagTSTATION station{};
  support::SetText(station.szName, "New");
  ASSERT_EQ(DB_AddNewTStat(&station), 0);
  StopServer();
  Server().Resume();
  EXPECT_EQ(DB_CommitTransaction(), 1);
  ExpectHealed();
  EXPECT_EQ(Raw().Count("TStation"), 1);
}

TEST_P(ServerDown, WhatWasAcknowledgedIsThereAfterARestart) {
  tagTSTATION station{};
  support::SetText(station.szName, "New");
  ASSERT_EQ(DB_AddNewTStat(&station), 0);
  StopServer();
  Server().Resume();
  EXPECT_EQ(DB_OpenTPat(), 0);
  EXPECT_EQ(DB_GetTStat(&station), 0);
  EXPECT_EQ(Raw().Count("TStation"), 2);
}

using Unreachable = LossTest;

TEST_F(Unreachable, FiveAttemptsAreMadeAndTheNextCallTriesAgain) {
  ASSERT_EQ(DB_OpenTPat(), 0);
  TheRelay().Refuse(true);
  TheRelay().Lose(Loss::kReset);
  for (int call = 1; call <= 3; ++call) EXPECT_EQ(DB_OpenTPat(), 3);
  TheRelay().Refuse(false);
  EXPECT_EQ(DB_OpenTPat(), 0);
  ExpectHealed();
}

TEST_F(Unreachable, AfterACloseNobodyReconnects) {
  TheRelay().Refuse(true);
  TheRelay().Lose(Loss::kReset);
  EXPECT_EQ(DB_OpenTPat(), 3);
  EXPECT_EQ(DB_CloseDatabase(), 0);
  TheRelay().Refuse(false);
  EXPECT_EQ(DB_OpenTPat(), 3);
  EXPECT_EQ(DB_OpenPatEx(), 3);
  EXPECT_EQ(Connect(), 0);
  ExpectHealed();
}

}  // namespace
}  // namespace loss
