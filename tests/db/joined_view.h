// A practice for tests of the joined view: three doctors, patients with and without one.
#ifndef KYODBC_TESTS_DB_JOINED_VIEW_H
#define KYODBC_TESTS_DB_JOINED_VIEW_H

#include <string>

#include "recset/patex_rec.h"
#include "tests/support/fixtures.h"

class JoinedView : public support::ConnectedTest, public testing::WithParamInterface<bool> {
 protected:
  JoinedView() : ConnectedTest({.with_owner = GetParam()}) {}

  void SetUp() override {
    ConnectedTest::SetUp();
    Raw().Exec("INSERT INTO TDoctor (tDrCulIntDrIDPk, tDrSName) VALUES (10,'Dr. Ten')");
    Raw().Exec("INSERT INTO TDoctor (tDrCulIntDrIDPk, tDrSName) VALUES (20,'Dr. O''Twenty')");
    Raw().Exec("INSERT INTO TDoctor (tDrCulIntDrIDPk, tDrSName) VALUES (30,'Dr. Thirty')");
  }
  void Add(int key, int doctor, const std::string& name, const std::string& firstname = "F",
           const std::string& birthday = "'1960-01-01'") {
    Raw().Exec(
        "INSERT INTO TPatient (tPatCulIntPatIDPk, tPatCulIntDrIDFk, tPatSName, tPatSFirstname, "
        "tPatDBirthday, "
        "tPatSExtPatID, tPatTsLastDisp) VALUES (" +
        std::to_string(key) + "," + std::to_string(doctor) + ",'" + name + "','" + firstname + "'," +
        birthday + ",'x" + std::to_string(key) + "','2001-01-0" + std::to_string(key % 9 + 1) +
        " 10:00:00')");
  }
  // The view, sorted and open.
  static void OpenSorted(CPatExRec& view, LONG sort_index) {
    ASSERT_EQ(view.SetSortIndex(sort_index), 0);
    ASSERT_NE(view.Open(view.m_nOpenType, nullptr, 0), 0);
  }
};

#define INSTANTIATE_VIEW_WITH_AND_WITHOUT_OWNER(suite)                              \
  INSTANTIATE_TEST_SUITE_P(View, suite, testing::Bool(), [](const auto& instance) { \
    return std::string(instance.param ? "WithOwner" : "WithoutOwner");              \
  })

#endif
