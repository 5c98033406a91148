// What is told of a transaction that the database does not begin or end.
#include <gtest/gtest.h>

#include <memory>

#include "tests/faults/connection.h"
#include "tests/flat/error_detail.h"
#include "tests/support/raw_odbc.h"

namespace faults {
namespace {

class RefusedTransaction : public testing::Test {
 protected:
  RefusedTransaction() : m_source(m_practice), m_raw(m_practice) {
    UseSource(m_source);
    EXPECT_EQ(Connect(), 0);
  }
  ~RefusedTransaction() override {
    TheFaultDriver().Forget();
    DB_CloseDatabase();
  }

  // A transaction is begun and ended by a call of the driver or by a statement, as the driver wants it.
  static void Refuse(const char* function) {
    TheFaultDriver().Order(std::string(function) + " 1 error 53100 4711");
    TheFaultDriver().Order("SQLExecDirect 1 error 53100 4711");
  }
  static WORD AddStation() {
    tagTSTATION station{};
    support::SetText(station.szName, "Added");
    return DB_AddNewTStat(&station);
  }
  static void ExpectTold(const std::string& function) {
    TheFaultDriver().Forget();
    const Failure failure = LastFailure();
    ExpectRefusalByDatabase(failure, 1, function);
    EXPECT_EQ(failure.state, "53100");
    EXPECT_EQ(failure.native, 4711);
  }

  support::Practice m_practice;
  FaultSource m_source;
  support::RawOdbc m_raw;
};

TEST_F(RefusedTransaction, ABeginTellsWhatTheDatabaseSaid) {
  Refuse("SQLSetConnectAttr");
  ASSERT_EQ(DB_BeginTransaction(), 1);
  ExpectTold("DB_BeginTransaction");
  EXPECT_EQ(AddStation(), 0);
  EXPECT_EQ(m_raw.Count("TStation", "tStatSName = 'Added'"), 1);
}

TEST_F(RefusedTransaction, ACommitTellsWhatTheDatabaseSaid) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  ASSERT_EQ(AddStation(), 0);
  Refuse("SQLEndTran");
  ASSERT_EQ(DB_CommitTransaction(), 1);
  ExpectTold("DB_CommitTransaction");
  EXPECT_EQ(DB_RollbackTransaction(), 1) << "none is pending";
  EXPECT_EQ(m_raw.Count("TStation", "tStatSName = 'Added'"), 0);
  EXPECT_EQ(AddStation(), 0);
  EXPECT_EQ(m_raw.Count("TStation", "tStatSName = 'Added'"), 1);
}

TEST_F(RefusedTransaction, ARollbackTellsWhatTheDatabaseSaid) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  Refuse("SQLEndTran");
  ASSERT_EQ(DB_RollbackTransaction(), 1);
  ExpectTold("DB_RollbackTransaction");
  EXPECT_EQ(DB_CommitTransaction(), 1) << "none is pending";
  EXPECT_EQ(AddStation(), 0);
  EXPECT_EQ(m_raw.Count("TStation", "tStatSName = 'Added'"), 1);
}

TEST_F(RefusedTransaction, WhatTheLibraryRefusesItselfIsToldByItsMeaning) {
  ASSERT_EQ(DB_CommitTransaction(), 1);
  ExpectOwnRefusal(LastFailure(), 1, "DB_CommitTransaction");
}

}  // namespace
}  // namespace faults
