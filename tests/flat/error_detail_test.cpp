// What is told of the last failure, and what never is.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "tests/flat/error_detail.h"
#include "tests/support/fixtures.h"

using support::SetText;
using testing::HasSubstr;

namespace {

class ErrorDetail : public support::ConnectedTest {
 protected:
  // Indexes and triggers of the tests' own need the table behind the short names.
  ErrorDetail() : ConnectedTest({.tables = support::Tables::kShortNames}) {}

  static WORD AddStation(const char* name) {
    tagTSTATION station{};
    SetText(station.szName, name);
    return DB_AddNewTStat(&station);
  }
  // Runs the first of these lists of statements that the database understands.
  void RunOne(const std::vector<std::vector<std::string>>& dialects) {
    for (const auto& statements : dialects) {
      try {
        for (const std::string& statement : statements) Raw().Exec(statement);
        return;
      } catch (const std::runtime_error&) {
      }
    }
    FAIL() << "no database understood";
  }
};

TEST_F(ErrorDetail, TellsCodesOfTheLibraryByTheirMeaning) {
  tagTPATIENT patient{};
  patient.lPatID = 4711;
  ASSERT_EQ(DB_GetTPat(&patient), 21);
  ExpectOwnRefusal(LastFailure(), 21, "DB_GetTPat");
  EXPECT_EQ(LastFailure().message, "There is no such patient.");
  tagTSTATION station{};
  station.lStatID = 1;
  ASSERT_EQ(DB_DeleteTStat(&station), 8);
  ExpectOwnRefusal(LastFailure(), 8, "DB_DeleteTStat");
  ASSERT_EQ(DB_EditTUnit(nullptr), 1);
  ExpectOwnRefusal(LastFailure(), 1, "DB_EditTUnit");
  ASSERT_EQ(AddStation("twice"), 0);
  ASSERT_EQ(AddStation("twice"), 52);
  ExpectOwnRefusal(LastFailure(), 52, "DB_AddNewTStat");
  ASSERT_EQ(DB_CommitTransaction(), 1);
  ExpectOwnRefusal(LastFailure(), 1, "DB_CommitTransaction");
}

TEST_F(ErrorDetail, TellsTheFunctionThatTheCallerCalled) {
  tagTTEST test{};
  test.lTstID = 4711;
  ASSERT_EQ(DB_EditTTest(&test), 67);
  EXPECT_EQ(LastFailure().function, "DB_EditTTest");
  ASSERT_EQ(DB_EditSelTTest(&test, 1), 67);
  EXPECT_EQ(LastFailure().function, "DB_EditSelTTest");
  ASSERT_EQ(DB_WriteProfileInt("key", "no such station", 1), 64);
  EXPECT_EQ(LastFailure().function, "DB_WriteProfileInt");
}

TEST_F(ErrorDetail, TellsWhatTheDatabaseSaid) {
  Raw().Exec("ALTER TABLE TMakro RENAME TO TMakroAway");
  ASSERT_EQ(DB_OpenTMak(), 31);
  const Failure failure = LastFailure();
  ExpectRefusalByDatabase(failure, 31, "DB_OpenTMak");
  EXPECT_THAT(failure.message, HasSubstr("akro"));
}

TEST_F(ErrorDetail, MovesThatEndNowhereFailWith64) {
  ASSERT_EQ(DB_OpenTStat(), 0);
  ASSERT_EQ(DB_MoveToTStatByPos(99), 0);
  ExpectOwnRefusal(LastFailure(), 64, "DB_MoveToTStatByPos");
  ASSERT_EQ(DB_MoveToTStatByDelta(1), 0);
  ExpectOwnRefusal(LastFailure(), 64, "DB_MoveToTStatByDelta");
}

TEST_F(ErrorDetail, StaysUntilTheNextFailure) {
  ASSERT_EQ(DB_DeleteTDrByPos(7), 64);
  ASSERT_EQ(DB_OpenTDr(), 0);
  LONG count = 0;
  ASSERT_EQ(DB_GetTDrMaxPos(&count), 0);
  ASSERT_NE(DB_IsTDrOpen(), 0);
  ASSERT_EQ(DB_IsTPatOpen(), 0);
  tagDBERRORDETAIL small{};
  ASSERT_EQ(DB_GetLastErrorDetail(&small, 10), 1);
  ExpectOwnRefusal(LastFailure(), 64, "DB_DeleteTDrByPos");
  ExpectOwnRefusal(LastFailure(), 64, "DB_DeleteTDrByPos");
}

TEST_F(ErrorDetail, ARefusalThatWasOvercomeIsNotTold) {
  Raw().Exec("ALTER TABLE TMakro RENAME TO TMakroAway");
  ASSERT_EQ(DB_OpenTMak(), 31);
  tagTMAKRO makro{};
  ASSERT_EQ(DB_GetTMak(&makro), 1);
  ExpectOwnRefusal(LastFailure(), 1, "DB_GetTMak");
}

TEST_F(ErrorDetail, AUniqueValueThatExistsIsNotShown) {
  Raw().Exec("CREATE UNIQUE INDEX uStation ON TStation (tStatSName)");
  for (const char* name :
       {"Meyer", "O'Meyer", "Me'y Meyer", "x) Meyer", "\"Meyer\" x", "Meyer' (", "»Meyer«"}) {
    ASSERT_EQ(AddStation(name), 0) << name;
    ASSERT_EQ(AddStation(name), 6) << name;
    const Failure failure = LastFailure();
    ExpectRefusalByDatabase(failure, 6, "DB_AddNewTStat");
    EXPECT_EQ(failure.message.find("eyer"), std::string::npos) << failure.message;
    EXPECT_EQ(failure.message.find("Me"), std::string::npos) << failure.message;
    EXPECT_EQ(failure.message.find("x)"), std::string::npos) << failure.message;
  }
}

TEST_F(ErrorDetail, ARowThatAConstraintRefusesIsNotShown) {
  RunOne({{"ALTER TABLE TStation ADD CONSTRAINT cStation CHECK (tStatSName <> 'Meyer, A.')"},
          {"CREATE TRIGGER rStation BEFORE INSERT ON TStation WHEN NEW.tStatSName = 'Meyer, A.' "
           "BEGIN SELECT RAISE(ABORT, 'row Meyer'); END"}});
  ASSERT_EQ(AddStation("Meyer, A."), 6);
  const Failure failure = LastFailure();
  ExpectRefusalByDatabase(failure, 6, "DB_AddNewTStat");
  EXPECT_EQ(failure.message.find("Meyer"), std::string::npos) << failure.message;
}

// One database looks at a rule only then, and has rolled back when it tells; another refuses the row at once.
TEST_F(ErrorDetail, ACommitThatTheDatabaseRefusesTellsWhyAndASecondOneStoresNothing) {
  RunOne({{"ALTER TABLE TStation ADD CONSTRAINT uStation UNIQUE (tStatSName) DEFERRABLE INITIALLY DEFERRED"},
          {"CREATE UNIQUE INDEX uStation ON TStation (tStatSName)"}});
  ASSERT_EQ(DB_BeginTransaction(), 0);
  ASSERT_EQ(AddStation("Meyer"), 0);
  ASSERT_NE(AddStation("Meyer"), 0);
  ASSERT_EQ(AddStation("other"), 0);
  const WORD first = DB_CommitTransaction();
  if (first != 0) {
    const Failure failure = LastFailure();
    ExpectRefusalByDatabase(failure, 1, "DB_CommitTransaction");
    EXPECT_EQ(failure.message.find("eyer"), std::string::npos) << failure.message;
  }
  EXPECT_EQ(DB_CommitTransaction(), 1);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName = 'other'"), first == 0 ? 1 : 0);
  ASSERT_EQ(AddStation("alone"), 0);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName = 'alone'"), 1);
}

TEST_F(ErrorDetail, WhatATriggerRaisesIsNotShown) {
  RunOne({
      {"CREATE TRIGGER rStation BEFORE INSERT ON TStation BEGIN "
       "SELECT RAISE(ABORT, 'Meyer is not welcome'); END"                 },
      {"CREATE FUNCTION fStation() RETURNS trigger LANGUAGE plpgsql AS "
       "$$BEGIN RAISE EXCEPTION '% is not welcome', NEW.tStatSName; END$$", "CREATE TRIGGER rStation BEFORE INSERT ON TStation FOR EACH ROW EXECUTE FUNCTION fStation()"},
      {"CREATE TRIGGER rStation BEFORE INSERT ON TStation FOR EACH ROW "
       "SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT = 'Meyer is not welcome'"                                                                         }
  });
  ASSERT_EQ(AddStation("Meyer"), 6);
  const Failure failure = LastFailure();
  ExpectRefusalByDatabase(failure, 6, "DB_AddNewTStat");
  EXPECT_EQ(failure.message, "?");
}

TEST_F(ErrorDetail, AFilterThatTheDatabaseRefusesIsNotShown) {
  ASSERT_EQ(DB_OpenTImg(), 0);
  const LONG unit = 31337;
  ASSERT_EQ(DB_SetTImgFilter(KYODBC_PACK(KYODBC_FIELD_NAME, KYODBC_FIELD_UNIT_KEY, 0, 0), 0, "Meyer", &unit,
                             nullptr, nullptr),
            31);
  const Failure failure = LastFailure();
  ExpectRefusalByDatabase(failure, 31, "DB_SetTImgFilter");
  EXPECT_EQ(failure.message.find("Meyer"), std::string::npos) << failure.message;
  EXPECT_EQ(failure.message.find("31337"), std::string::npos) << failure.message;
}

TEST_F(ErrorDetail, FillsALargerRecordAsFarAsItKnows) {
  ASSERT_EQ(DB_DeleteTDrByPos(7), 64);
  struct Larger {
    tagDBERRORDETAIL known;
    char later[16];
  } record;
  std::memset(&record, 0x5A, sizeof record);
  ASSERT_EQ(DB_GetLastErrorDetail(&record.known, sizeof record), 0);
  EXPECT_EQ(support::Val(record.known.dwSize), sizeof record.known);
  for (const char byte : record.later) EXPECT_EQ(byte, 0x5A);
}

TEST_F(ErrorDetail, RefusesSmallAndMissingRecords) {
  ASSERT_EQ(DB_DeleteTDrByPos(7), 64);
  tagDBERRORDETAIL detail;
  std::memset(static_cast<void*>(&detail), 0x5A, sizeof detail);
  const tagDBERRORDETAIL before = detail;
  EXPECT_EQ(DB_GetLastErrorDetail(nullptr, sizeof detail), 1);
  EXPECT_EQ(DB_GetLastErrorDetail(&detail, 0), 1);
  EXPECT_EQ(DB_GetLastErrorDetail(&detail, sizeof detail - 1), 1);
  EXPECT_EQ(std::memcmp(&detail, &before, sizeof detail), 0);
}

}  // namespace
