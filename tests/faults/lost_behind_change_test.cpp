// The connection goes when a change has been made and nobody has told yet how many rows it was: the answer is
// what happened.
#include <gtest/gtest.h>

#include "tests/faults/connection.h"
#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"

namespace faults {
namespace {

class LostBehindChange : public testing::Test {
 protected:
  LostBehindChange() : m_source(m_practice), m_raw(m_practice) {
    UseSource(m_source);
    EXPECT_EQ(Connect(), 0);
    support::SetText(m_station.szName, "Added");
    EXPECT_EQ(DB_AddNewTStat(&m_station), 0);
    TheFaultDriver().Order("SQLRowCount 1 lost");
  }
  ~LostBehindChange() override {
    EXPECT_EQ(TheFaultDriver().Happened(), 1);
    TheFaultDriver().Forget();
    DB_CloseDatabase();
  }

  support::Practice m_practice;
  FaultSource m_source;
  support::RawOdbc m_raw;
  tagTSTATION m_station{};
};

TEST_F(LostBehindChange, AnEditIsStoredAndGivesZero) {
  support::SetText(m_station.szName, "Edited");
  EXPECT_EQ(DB_EditTStat(&m_station), 0);
  EXPECT_EQ(m_raw.Count("TStation", "tStatSName = 'Edited'"), 1);
}

TEST_F(LostBehindChange, ADeletedRowIsGoneAndGivesZero) {
  EXPECT_EQ(DB_DeleteTStat(&m_station), 0);
  EXPECT_EQ(m_raw.Count("TStation", "tStatSName = 'Added'"), 0);
}

}  // namespace
}  // namespace faults
