// Rows that an index holds in order are read by it however often they are read, whatever was read between.
#include "tests/db/toy_set.h"
#include "tests/support/practice.h"
#include "tests/support/raw_odbc.h"

namespace {

class ToysByCount : public toys::ToySet {
 public:
  explicit ToysByCount(CDatabase* database) : ToySet(database) {
    m_strSort = "tToyCount";
    HoldRows(keysOnly);
  }
};

class IndexPlans : public toys::ToyTest {
 protected:
  static constexpr int kToys = 300;

  IndexPlans() {
    AddToys(kToys);
    m_raw.Exec("UPDATE Toy SET tToyCount = 1000 - tToyId");
    m_raw.Exec("CREATE INDEX Toy_Count ON Toy (tToyCount)");
  }

  // By the library's session.
  LONG SortedRows() {
    CRecordset status(&m_database);
    status.Open(CRecordset::snapshot, support::CurrentKind().SortedRowsQuery().c_str(), CRecordset::readOnly);
    CDBVariant rows;
    status.GetFieldValue(short{0}, rows, SQL_C_SLONG);
    return rows.m_lVal;
  }
};

TEST_F(IndexPlans, AnIndexSavesTheSortAlsoWhenSingleRowsWereReadBetween) {
  for (int time = 1; time <= 4; ++time) {
    const LONG sorted = SortedRows();
    ToysByCount toys(&m_database);
    ASSERT_TRUE(toys.Open(CRecordset::dynaset));
    EXPECT_EQ(toys.m_id, kToys) << time;
    toys.SetAbsolutePosition(kToys);
    EXPECT_EQ(toys.m_id, 1) << time;
    EXPECT_EQ(SortedRows(), sorted) << "read for the time " << time;
  }
}

// What a set reads when it is opened, in an order that a practice looks at often.
TEST(PracticeIndexes, TheKeysOfSortedRowsComeFromAnIndexAlone) {
  const support::Practice practice;
  support::RawOdbc raw(practice);
  for (const char* query :
       {"SELECT tPatCulIntPatIDPk FROM TPatient ORDER BY tPatSName,tPatSFirstname,tPatDBirthday",
        "SELECT tPatCulIntPatIDPk FROM TPatient ORDER BY tPatSSlidaID",
        "SELECT tPatCulIntPatIDPk FROM TPatient ORDER BY tPatSSrvID",
        "SELECT tImgCulIntImgIDPk FROM TImage ORDER BY tImgTs",
        "SELECT tImgCulIntImgIDPk FROM TImage ORDER BY tImgSName"}) {
    EXPECT_TRUE(support::CurrentKind().IsAnsweredByIndex(raw, query)) << query;
  }
}

}  // namespace
