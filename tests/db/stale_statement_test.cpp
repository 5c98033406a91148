// Statements kept prepared that the database does not take any more are prepared anew, and nobody notices.
#include "tests/db/toy_set.h"

namespace {

using toys::CodeOf;
using toys::ToySet;

// Looks for a row on statements that the connection keeps.
class KeptToy : public ToySet {
 public:
  explicit KeptToy(CDatabase* database, int id = 1) : ToySet(database) {
    HoldRows(fewRows);
    m_strFilter.Format("tToyId=%d", id);
  }
};

class StaleStatements : public toys::ToyTest {
 protected:
  StaleStatements() { AddToys(2); }

  std::string NameOf(int id) {
    KeptToy toy(&m_database, id);
    toy.Open();
    return toy.IsEOF() ? "none" : toy.m_name.GetString();
  }
  void Rename(int id, const char* name) {
    KeptToy toy(&m_database, id);
    toy.Open();
    toy.Edit();
    toy.m_name = name;
    toy.Update();
  }
  // Twice, since a change is prepared when it comes a second time.
  void UseStatements() {
    EXPECT_EQ(NameOf(1), "toy1");
    Rename(1, "used");
    Rename(1, "toy1");
    Rename(1, "used");
    EXPECT_EQ(NameOf(2), "toy2");
  }
  void ExpectStatementsWork() {
    EXPECT_EQ(NameOf(2), "toy2");
    Rename(1, "changed");
    EXPECT_EQ(StoredText("tToyName"), "changed");
    EXPECT_EQ(NameOf(1), "changed");
  }
  void MakeTableAnew(const std::string& key) {
    m_raw.Exec("DROP TABLE Toy");
    m_raw.Exec(toys::TableOfToys("Toy", key));
    AddToys(2);
  }
};

TEST_F(StaleStatements, AColumnMoreOrLessIsNotNoticed) {
  UseStatements();
  m_raw.Exec("ALTER TABLE Toy ADD COLUMN tToyMore INTEGER");
  ExpectStatementsWork();
  m_raw.Exec("ALTER TABLE Toy DROP COLUMN tToyMore");
  ExpectStatementsWork();
}

TEST_F(StaleStatements, ATableMadeAnewIsRead) {
  UseStatements();
  MakeTableAnew(support::CurrentKind().Types().key);
  ExpectStatementsWork();
}

// The type of a result's column is part of what one server has prepared.
TEST_F(StaleStatements, ATableMadeAnewWithAnotherTypeIsRead) {
  UseStatements();
  MakeTableAnew("SMALLINT NOT NULL PRIMARY KEY");
  ExpectStatementsWork();
}

// What is known of the columns is asked for again as well.
TEST_F(StaleStatements, AColumnWithoutTimeOfDayGetsOne) {
  m_raw.Exec("UPDATE Toy SET tToyDay='2001-05-06', tToyTime='2001-05-06 00:00:00'");
  {
    KeptToy toy(&m_database);
    toy.Open();
    EXPECT_EQ(toy.m_day.day, 6);
  }
  MakeTableAnew("SMALLINT NOT NULL PRIMARY KEY");
  m_raw.Exec("UPDATE Toy SET tToyDay='2001-05-07', tToyTime='2001-05-07 08:00:00'");
  KeptToy toy(&m_database);
  toy.Open();
  EXPECT_EQ(toy.m_day.day, 7);
  EXPECT_EQ(toy.m_time.hour, 8);
}

TEST_F(StaleStatements, AClearedSessionIsNotNoticed) {
  UseStatements();
  // Where the session can be cleared; the others refuse the words.
  CodeOf([&] { m_database.ExecuteSQL("DEALLOCATE ALL"); });
  ExpectStatementsWork();
}

TEST_F(StaleStatements, InATransactionTheyArePreparedAnewToo) {
  UseStatements();
  ASSERT_TRUE(m_database.BeginTrans());
  CodeOf([&] { m_database.ExecuteSQL("DEALLOCATE ALL"); });
  Rename(2, "changed");
  EXPECT_TRUE(m_database.CommitTrans());
  EXPECT_EQ(StoredText("tToyName", 2), "changed");
}

}  // namespace
