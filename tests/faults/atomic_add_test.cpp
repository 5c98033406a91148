// Adding a patient and replacing an image: all of it or nothing, and nothing twice.
#include <gtest/gtest.h>

#include <memory>

#include "tests/faults/connection.h"
#include "tests/flat/family_tables.h"
#include "tests/support/raw_odbc.h"

namespace faults {
namespace {

class AtomicAdd : public testing::Test {
 protected:
  explicit AtomicAdd(const support::Options& more = {}) : m_source(m_practice, more), m_raw(m_practice) {
    UseSource(m_source);
    EXPECT_EQ(Connect(), 0);
  }
  ~AtomicAdd() override {
    TheFaultDriver().Forget();
    DB_CloseDatabase();
  }

  static WORD AddPatient() {
    tagTPATIENT patient = family::Patients::Fill(1);
    return DB_AddNewTPat(&patient);
  }
  int Patients() { return m_raw.Count("TPatient"); }

  static WORD AddImage(const char* name) {
    tagTIMAGE image = family::Images::Fill(1);
    family::Images::ChangeText(&image, name);
    return DB_AddNewTImg(&image);
  }
  int Images(const std::string& name) { return m_raw.Count("TImage", "tImgSName = '" + name + "'"); }

  support::Practice m_practice;
  FaultSource m_source;
  support::RawOdbc m_raw;
};

TEST_F(AtomicAdd, APatientIsThereOnceWhicheverCallFails) {
  for (int number = 1; number < 1000; ++number) {
    TheFaultDriver().Order("call " + std::to_string(number) + " error");
    const WORD code = AddPatient();
    const bool happened = TheFaultDriver().Happened() != 0;
    TheFaultDriver().Forget();
    // When only the answer of the commit fails, the patient is there although the add has failed.
    ASSERT_LE(Patients(), 1) << number << ": " << code;
    if (code == 0) {
      ASSERT_EQ(Patients(), 1) << number;
    }
    m_raw.Exec("DELETE FROM TPatient");
    if (!happened) return;
  }
  FAIL() << "every add has failed";
}

TEST_F(AtomicAdd, APatientIsThereOrNotFromWhicheverStatementOnNothingWorksAnyMore) {
  for (int number = 1; number < 1000; ++number) {
    for (const char* function : {"SQLExecDirect ", "SQLExecute "}) {
      TheFaultDriver().Order(function + std::to_string(number) + " error always");
    }
    const WORD code = AddPatient();
    const bool happened = TheFaultDriver().Happened() != 0;
    TheFaultDriver().Forget();
    DB_CloseDatabase();
    ASSERT_EQ(Patients(), code == 0 ? 1 : 0) << number << ": " << code;
    ASSERT_EQ(Connect(), 0);
    m_raw.Exec("DELETE FROM TPatient");
    if (!happened) return;
  }
  FAIL() << "every add has failed";
}

TEST_F(AtomicAdd, APatientInTheCallersTransactionIsCommittedByTheCaller) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  EXPECT_EQ(AddPatient(), 0);
  EXPECT_EQ(Patients(), 0);
  EXPECT_EQ(DB_RollbackTransaction(), 0);
  EXPECT_EQ(Patients(), 0);
}

TEST_F(AtomicAdd, AnAddThatFailsLeavesTheCallersTransactionPending) {
  ASSERT_EQ(DB_BeginTransaction(), 0);
  ASSERT_EQ(AddImage("first"), 0);
  TheFaultDriver().Order("SQLExecDirect 1 error always");
  EXPECT_EQ(AddPatient(), 6);
  TheFaultDriver().Forget();
  EXPECT_EQ(DB_CommitTransaction(), 0);
  EXPECT_EQ(Patients(), 0);
  EXPECT_EQ(Images("first"), 1);
}

TEST_F(AtomicAdd, AfterAPatientEveryChangeStandsByItselfAgain) {
  ASSERT_EQ(AddPatient(), 0);
  EXPECT_EQ(DB_CommitTransaction(), 1);
  EXPECT_EQ(AddImage("alone"), 0);
  EXPECT_EQ(Images("alone"), 1);
}

TEST_F(AtomicAdd, AnImageReplacesThatOfTheSamePatientAndTime) {
  ASSERT_EQ(AddImage("old"), 0);
  EXPECT_EQ(AddImage("new"), 0);
  EXPECT_EQ(Images("old"), 0);
  EXPECT_EQ(Images("new"), 1);
}

// Whichever statement or call fails, until none does. A statement that fails has changed nothing; of other
// calls it may be the answer of the commit that fails.
TEST_F(AtomicAdd, AnImageIsReplacedOnlyByOneThatIsStored) {
  ASSERT_EQ(AddImage("old"), 0);
  for (const std::string function : {"SQLExecDirect", "SQLExecute", "call"}) {
    for (int number = 1;; ++number) {
      SCOPED_TRACE(function + " " + std::to_string(number));
      TheFaultDriver().Order(function + " " + std::to_string(number) + " error");
      const WORD code = AddImage("new");
      const bool happened = TheFaultDriver().Happened() != 0;
      TheFaultDriver().Forget();
      ASSERT_EQ(Images("old") + Images("new"), 1) << code;
      if (function != "call" && (code == 3 || code == 6 || code == 8)) {
        ASSERT_EQ(Images("old"), 1) << code;
      }
      if (code == 0) {
        ASSERT_EQ(Images("new"), 1);
      }
      m_raw.Exec("UPDATE TImage SET tImgSName = 'old'");
      if (!happened) break;
    }
  }
}

TEST_F(AtomicAdd, AnImageReplacedInTheCallersTransactionComesBackWithItsRollback) {
  ASSERT_EQ(AddImage("old"), 0);
  ASSERT_EQ(DB_BeginTransaction(), 0);
  EXPECT_EQ(AddImage("new"), 0);
  EXPECT_EQ(DB_RollbackTransaction(), 0);
  EXPECT_EQ(Images("old"), 1);
  EXPECT_EQ(Images("new"), 0);
}

class AddWithoutTransactions : public AtomicAdd {
 protected:
  AddWithoutTransactions()
      : AtomicAdd({
            {"KyFaultCapabilities", "no-transactions"}
  }) {}
};

TEST_F(AddWithoutTransactions, PatientsAndImagesAreAddedAsEver) {
  EXPECT_EQ(DB_BeginTransaction(), 55);
  EXPECT_EQ(AddPatient(), 0);
  EXPECT_EQ(AddImage("old"), 0);
  EXPECT_EQ(AddImage("new"), 0);
  EXPECT_EQ(Patients(), 1);
  EXPECT_EQ(Images("old"), 0);
  EXPECT_EQ(Images("new"), 1);
}

TEST_F(AddWithoutTransactions, APatientWhoIsNotStoredIsTriedAgain) {
  TheFaultDriver().Order("SQLExecDirect 1 error");
  EXPECT_EQ(AddPatient(), 0);
  EXPECT_EQ(Patients(), 1);
}

}  // namespace
}  // namespace faults
