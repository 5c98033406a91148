// The open states after a database error. No driver gives one on demand, so this program is linked with
// CRecordset::IsOpen wrapped (see CMakeLists.txt): while armed, it throws.
#include <gtest/gtest.h>

#include "frame/KyODBC.h"
#include "frame/KyODBCDiag.h"
#include "platform/cdbexception.h"
#include "tests/support/fixtures.h"

namespace {

bool armed = false;

// For the length of a call.
BOOL WhileThrowing(BOOL (*is_open)()) {
  armed = true;
  const BOOL answer = is_open();
  armed = false;
  return answer;
}

}  // namespace

// BOOL CRecordset::IsOpen() const
extern "C" BOOL __real__ZNK10CRecordset6IsOpenEv(const CRecordset* set);
extern "C" BOOL __wrap__ZNK10CRecordset6IsOpenEv(const CRecordset* set);
BOOL __wrap__ZNK10CRecordset6IsOpenEv(const CRecordset* set) {
  if (armed) AfxThrowDBException(SQL_ERROR, nullptr, SQL_NULL_HSTMT);
  return __real__ZNK10CRecordset6IsOpenEv(set);
}

namespace {

class OpenStates : public support::ConnectedTest {};

TEST_F(OpenStates, StationOpenStateAfterDatabaseErrorIs31) {
  EXPECT_EQ(WhileThrowing(DB_IsTStatOpen), 31);
  EXPECT_EQ(DB_IsTStatOpen(), 0);
}

TEST_F(OpenStates, EveryOtherOpenStateAfterDatabaseErrorIs0) {
  for (const auto is_open : {DB_IsTDrOpen, DB_IsTUnitOpen, DB_IsTPatOpen, DB_IsPatExOpen, DB_IsTImgOpen,
                             DB_IsTMakOpen, DB_IsTGrpOpen, DB_IsTDiagOpen, DB_IsTCfgOpen, DB_IsTTestOpen}) {
    EXPECT_EQ(WhileThrowing(is_open), 0);
  }
}

TEST_F(OpenStates, AnOpenStateThatCouldNotBeReadIsAFailureOfItsOwn) {
  const struct {
    const char* name;
    BOOL (*is_open)();
  } rows[] = {
      {"DB_IsTDrOpen",   DB_IsTDrOpen  },
      {"DB_IsTStatOpen", DB_IsTStatOpen},
      {"DB_IsTUnitOpen", DB_IsTUnitOpen},
      {"DB_IsTPatOpen",  DB_IsTPatOpen },
      {"DB_IsPatExOpen", DB_IsPatExOpen},
      {"DB_IsTImgOpen",  DB_IsTImgOpen },
      {"DB_IsTMakOpen",  DB_IsTMakOpen },
      {"DB_IsTGrpOpen",  DB_IsTGrpOpen },
      {"DB_IsTDiagOpen", DB_IsTDiagOpen},
      {"DB_IsTCfgOpen",  DB_IsTCfgOpen },
      {"DB_IsTTestOpen", DB_IsTTestOpen}
  };
  for (const auto& row : rows) {
    WhileThrowing(row.is_open);
    tagDBERRORDETAIL detail{};
    ASSERT_EQ(DB_GetLastErrorDetail(&detail, sizeof detail), 0);
    EXPECT_STREQ(detail.szFunction, row.name);
    EXPECT_EQ(detail.wCode, 31);
  }
}

TEST_F(OpenStates, WithoutAConnectionNothingIsAskedAndAllAre0) {
  ASSERT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(WhileThrowing(DB_IsTStatOpen), 0);
}

}  // namespace
