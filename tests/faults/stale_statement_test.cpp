// A prepared statement that the server does not know any more, since the table or the session has changed.
#include <gtest/gtest.h>

#include "tests/faults/connection.h"
#include "tests/support/records.h"

namespace faults {
namespace {

class PreparedBefore : public testing::Test {
 protected:
  PreparedBefore() : m_source(m_practice) {
    UseSource(m_source);
    EXPECT_EQ(Connect(), 0);
    EXPECT_EQ(Read(), 0);
  }
  ~PreparedBefore() override {
    TheFaultDriver().Forget();
    EXPECT_EQ(DB_CloseDatabase(), 0);
    EXPECT_EQ(TheFaultDriver().Handles(0), 0);
  }

  // By a statement that stays prepared.
  static WORD Read() {
    tagTDOCTOR doctor{};
    doctor.lDrID = 1;
    const WORD code = DB_GetTDr(&doctor);
    if (code == 0) {
      EXPECT_EQ(support::Text(doctor.szName), "-");
    }
    return code;
  }

  support::Practice m_practice;
  FaultSource m_source;
};

TEST_F(PreparedBefore, AStatementThatTheServerHasForgottenIsPreparedAgain) {
  for (const char* order : {"SQLExecute 1 error 26000 7", "SQLExecute 1 error 0A000 7",
                            "SQLExecute 1 error HY000 1615", "SQLExecute 1 error HY000 17"}) {
    TheFaultDriver().Order(order);
    EXPECT_EQ(Read(), 0) << order;
    EXPECT_EQ(TheFaultDriver().Happened(), 1) << order;
    TheFaultDriver().Forget();
  }
}

TEST_F(PreparedBefore, AnyOtherRefusalIsAnError) {
  TheFaultDriver().Order("SQLExecute 1 error 42000 7");
  EXPECT_EQ(Read(), 3);
  EXPECT_EQ(TheFaultDriver().Happened(), 1);
}

}  // namespace
}  // namespace faults
