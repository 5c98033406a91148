// A prepared statement that the server does not know any more, since the table or the session has changed.
#include <gtest/gtest.h>

#include "tests/faults/connection.h"

namespace faults {
namespace {

class PreparedBefore : public testing::Test {
 protected:
  PreparedBefore() : m_source(m_practice) {
    UseSource(m_source);
    EXPECT_EQ(Connect(), 0);
    EXPECT_EQ(DB_OpenTDr(), 0);
    EXPECT_EQ(DB_CloseTDr(), 0);
  }
  ~PreparedBefore() override {
    TheFaultDriver().Forget();
    EXPECT_EQ(DB_CloseDatabase(), 0);
    EXPECT_EQ(TheFaultDriver().Handles(0), 0);
  }

  support::Practice m_practice;
  FaultSource m_source;
};

TEST_F(PreparedBefore, AStatementThatTheServerHasForgottenIsPreparedAgain) {
  for (const char* order : {"SQLExecute 1 error 26000 7", "SQLExecute 1 error 0A000 7",
                            "SQLExecute 1 error HY000 1615", "SQLExecute 1 error HY000 17"}) {
    TheFaultDriver().Order(order);
    EXPECT_EQ(DB_OpenTDr(), 0) << order;
    EXPECT_EQ(TheFaultDriver().Happened(), 1) << order;
    TheFaultDriver().Forget();
    LONG doctors = 0;
    EXPECT_EQ(DB_GetTDrMaxPos(&doctors), 0) << order;
    EXPECT_EQ(DB_CloseTDr(), 0) << order;
  }
}

TEST_F(PreparedBefore, AnyOtherRefusalIsAnError) {
  TheFaultDriver().Order("SQLExecute 1 error 42000 7");
  EXPECT_EQ(DB_OpenTDr(), 31);
  EXPECT_EQ(TheFaultDriver().Happened(), 1);
}

}  // namespace
}  // namespace faults
