// DB_ReopenAtKey on a connection that lives. tests/loss has it on one that is lost.
#include "frame/KyODBCDiag.h"
#include "tests/flat/error_detail.h"
#include "tests/flat/family.h"

namespace {

class Reopen : public support::ConnectedTest {
 protected:
  static LONG AddPatient(const std::string& name, const std::string& first_name) {
    tagTPATIENT patient{};
    patient.lDrID = 1;
    support::SetText(patient.szName, name);
    support::SetText(patient.szFirstname, first_name);
    patient.dBirthday = support::Ts(1970, 1, 2);
    EXPECT_EQ(DB_AddNewTPat(&patient), 0);
    return patient.lPatID;
  }
  static void FilterByName(const char* name) {
    EXPECT_EQ(DB_SetTPatFilter(KYODBC_FIELD_NAME, KYODBC_EQUAL, name, nullptr, nullptr, nullptr), 0);
  }
  static LONG KeyOfCurrent() {
    tagTPATIENT patient{};
    EXPECT_EQ(DB_GetTPatByPos(0, &patient), 0);
    return patient.lPatID;
  }
};

TEST_F(Reopen, StandsOnTheRowWithTheKeyWhereverItIsNow) {
  const LONG key = AddPatient("Meyer", "Anna");
  ASSERT_EQ(DB_SetTPatSortIndex(KYODBC_FIELD_NAME), 0);
  LONG position = -1;
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, key, &position), 0);
  EXPECT_EQ(position, 1);
  AddPatient("Adam", "Bert");
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, key, &position), 0);
  EXPECT_EQ(position, 2);
  EXPECT_EQ(DB_GetTPatIndexPos(), 2);
  EXPECT_EQ(KeyOfCurrent(), key);
}

TEST_F(Reopen, KeepsTheFilter) {
  AddPatient("Adam", "Bert");
  const LONG key = AddPatient("Meyer", "Anna");
  FilterByName("Meyer");
  LONG position = -1;
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, key, &position), 0);
  EXPECT_EQ(position, 1);
  LONG rows = 0;
  EXPECT_EQ(DB_GetTPatMaxPos(&rows), 0);
  EXPECT_EQ(rows, 1);
}

TEST_F(Reopen, SaysThatARowIsGoneOrFilteredOutAndStandsOnTheFirst) {
  const LONG hidden = AddPatient("Adam", "Bert");
  const LONG first = AddPatient("Meyer", "Anna");
  const LONG deleted = AddPatient("Meyer", "Zoe");
  Raw().Exec("DELETE FROM TPatient WHERE tPatCulIntPatIDPk = " + std::to_string(deleted));
  FilterByName("Meyer");
  for (const LONG key : {hidden, deleted}) {
    LONG position = -1;
    EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, key, &position), 64);
    EXPECT_EQ(position, -1);
    EXPECT_EQ(KeyOfCurrent(), first);
    EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_PATEX, deleted, &position), 64);
    EXPECT_EQ(position, -1);
  }
}

TEST_F(Reopen, LooksForNoRowWithKey0AndNeedsNoPosition) {
  AddPatient("Meyer", "Anna");
  LONG position = -1;
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, 0, &position), 0);
  EXPECT_EQ(position, 1);
  FilterByName("Nobody");
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, 0, &position), 0);
  EXPECT_EQ(position, 0);
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, 0, nullptr), 0);
}

TEST_F(Reopen, KnowsElevenSets) {
  LONG position = -1;
  for (const LONG set : {LONG{0}, LONG{-1}, LONG{KYODBC_SET_TTEST + 1}}) {
    EXPECT_EQ(DB_ReopenAtKey(set, 1, &position), 1);
    ExpectOwnRefusal(LastFailure(), 1, "DB_ReopenAtKey");
  }
  EXPECT_EQ(position, -1);
  const struct {
    LONG set;
    BOOL (*is_open)();
  } sets[] = {
      {KYODBC_SET_TDR,   DB_IsTDrOpen  },
      {KYODBC_SET_TSTAT, DB_IsTStatOpen},
      {KYODBC_SET_TUNIT, DB_IsTUnitOpen},
      {KYODBC_SET_TPAT,  DB_IsTPatOpen },
      {KYODBC_SET_PATEX, DB_IsPatExOpen},
      {KYODBC_SET_TIMG,  DB_IsTImgOpen },
      {KYODBC_SET_TMAK,  DB_IsTMakOpen },
      {KYODBC_SET_TGRP,  DB_IsTGrpOpen },
      {KYODBC_SET_TDIAG, DB_IsTDiagOpen},
      {KYODBC_SET_TCFG,  DB_IsTCfgOpen },
      {KYODBC_SET_TTEST, DB_IsTTestOpen},
  };
  for (const auto& [set, is_open] : sets) {
    EXPECT_EQ(is_open(), 0) << set;
    EXPECT_EQ(DB_ReopenAtKey(set, 0, nullptr), 0) << set;
    EXPECT_NE(is_open(), 0) << set;
  }
}

TEST_F(Reopen, TellsARefusalFromARowThatIsGone) {
  const LONG key = AddPatient("Meyer", "Anna");
  ASSERT_EQ(DB_SetTPatFilter(0, 0, nullptr, nullptr, nullptr, nullptr), 0);
  LONG position = -1;
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, key, &position), 31);
  EXPECT_EQ(position, -1);
}

using ReopenWithoutConnection = support::PracticeTest;

TEST_F(ReopenWithoutConnection, Gives3) {
  LONG position = -1;
  EXPECT_EQ(DB_ReopenAtKey(KYODBC_SET_TPAT, 1, &position), 3);
  ExpectOwnRefusal(LastFailure(), 3, "DB_ReopenAtKey");
  EXPECT_EQ(position, -1);
}

}  // namespace
