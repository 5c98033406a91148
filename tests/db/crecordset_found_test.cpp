// How a change finds its row: by the key, or by all columns; on tables and on views; and what happens when it
// finds none or several.
#include <stdexcept>
#include <vector>

#include "tests/db/toy_set.h"

namespace {

using toys::CodeOf;
using toys::ToySet;

class FindingTheRow : public toys::ToyTest {
 protected:
  // A row whose every column is filled, and its twin but for the key.
  void AddFullRows() {
    m_raw.Exec(
        "INSERT INTO Toy (tToyId, tToyName, tToyCount, tToySmall, tToyFlag, tToyDay, tToyTime) VALUES "
        "(1,'O''Neil',10,2,1,'2001-05-06','2001-05-06 10:00:00'),"
        "(2,'O''Neil',10,2,1,'2001-05-06','2001-05-06 10:00:00')");
  }
};

TEST_F(FindingTheRow, WithAKeyOtherColumnsMayHaveChangedMeanwhile) {
  AddToys(1);
  ToySet set(&m_database);
  set.Open();
  m_raw.Exec("UPDATE Toy SET tToyName='changed elsewhere'");
  set.Edit();
  set.m_count = 1;
  EXPECT_TRUE(set.Update());
  EXPECT_EQ(StoredText("tToyCount"), "1");
}

TEST_F(FindingTheRow, WithoutAKeyAllColumnsAreCompared) {
  AddFullRows();
  ToySet set(&m_database, ToySet::kNoKey);
  set.m_strSort = "tToyId";
  set.Open();
  set.Edit();
  set.m_count = 11;
  EXPECT_TRUE(set.Update());
  EXPECT_EQ(StoredText("tToyCount", 1), "11");
  EXPECT_EQ(StoredText("tToyCount", 2), "10");
}

TEST_F(FindingTheRow, WithoutAKeyNullColumnsAreComparedAsNull) {
  AddToys(2);
  ToySet set(&m_database, ToySet::kNoKey);
  set.m_strSort = "tToyId";
  set.Open();
  set.Delete();
  EXPECT_EQ(m_raw.Count("Toy"), 1);
  EXPECT_EQ(m_raw.Count("Toy", "tToyId=2"), 1);
}

TEST_F(FindingTheRow, WithoutAKeyARowCanBeEditedTwiceAndThenDeleted) {
  AddFullRows();
  ToySet set(&m_database, ToySet::kNoKey);
  set.m_strSort = "tToyId";
  set.Open();
  for (const LONG count : {11, 12}) {
    set.Edit();
    set.m_count = count;
    EXPECT_TRUE(set.Update());
  }
  set.MoveNext();
  set.MovePrev();
  set.Edit();
  set.SetFieldNull(&set.m_count);
  set.m_day = support::Ts(2002, 6, 7);
  EXPECT_TRUE(set.Update());
  set.Delete();
  EXPECT_EQ(m_raw.Count("Toy"), 1);
  EXPECT_EQ(m_raw.Count("Toy", "tToyId=2"), 1);
}

TEST_F(FindingTheRow, WithoutAKeyAnOverlongTextIsComparedWhole) {
  AddToys(1);
  m_raw.Exec("UPDATE Toy SET tToyName='" + std::string(300, 'x') + "'");
  ToySet set(&m_database, ToySet::kNoKey);
  set.Open();
  EXPECT_EQ(set.m_name.GetLength(), 255);
  set.Edit();
  set.m_count = 5;
  EXPECT_TRUE(set.Update());
  EXPECT_EQ(StoredText("tToyCount"), "5");
  EXPECT_EQ(StoredText("tToyName").size(), 300u);
}

TEST_F(FindingTheRow, WithoutAKeyATextTooLongForTheBufferTakesNoPart) {
  AddToys(1);
  m_raw.Exec("UPDATE Toy SET tToyName='" + std::string(5000, 'x') + "'");
  ToySet set(&m_database, ToySet::kNoKey);
  set.Open();
  EXPECT_EQ(set.m_name.GetLength(), 255);
  set.Edit();
  set.m_count = 5;
  EXPECT_TRUE(set.Update());
  EXPECT_EQ(StoredText("tToyCount"), "5");
}

class OnlyLongTextSet : public CRecordset {
 public:
  using CRecordset::CRecordset;
  CString GetDefaultSQL() override { return "Toy"; }
  void DoFieldExchange(CFieldExchange* exchange) override {
    exchange->SetFieldType(CFieldExchange::outputColumn);
    RFX_Text(exchange, "tToyText", m_text, 1000000);
  }
  CString m_text;
};

TEST_F(FindingTheRow, WhereNothingTellsRowsApartNoneIsChanged) {
  AddToys(2);
  m_raw.Exec("UPDATE Toy SET tToyText='a'");
  OnlyLongTextSet set(&m_database);
  set.Open();
  set.Edit();
  set.m_text = "b";
  EXPECT_EQ(CodeOf([&] { set.Update(); }), AFX_SQL_ERROR_RECORDSET_READONLY);
  EXPECT_EQ(CodeOf([&] { set.Delete(); }), AFX_SQL_ERROR_RECORDSET_READONLY);
  EXPECT_EQ(m_raw.Count("Toy", "tToyText='a'"), 2);
}

TEST_F(FindingTheRow, AnEditOfARowThatIsGoneThrowsAndKeepsTheMode) {
  AddToys(2);
  for (const ToySet::Key key : {ToySet::kRowKey, ToySet::kNoKey}) {
    ToySet set(&m_database, key);
    set.m_strSort = "tToyId DESC";
    set.Open();
    set.Edit();
    set.m_count = 1;
    m_raw.Exec("DELETE FROM Toy WHERE tToyId=" + std::to_string(set.m_id));
    EXPECT_EQ(CodeOf([&] { set.Update(); }), AFX_SQL_ERROR_NO_ROWS_AFFECTED);
    EXPECT_EQ(CodeOf([&] { set.Update(); }), AFX_SQL_ERROR_NO_ROWS_AFFECTED);
    EXPECT_EQ(set.m_count, 1);
  }
}

TEST_F(FindingTheRow, ADeletionOfARowThatIsGoneThrows) {
  AddToys(2);
  ToySet set(&m_database);
  set.m_strSort = "tToyId";
  set.Open();
  m_raw.Exec("DELETE FROM Toy WHERE tToyId=1");
  EXPECT_EQ(CodeOf([&] { set.Delete(); }), AFX_SQL_ERROR_NO_ROWS_AFFECTED);
  EXPECT_FALSE(set.IsDeleted());
  EXPECT_EQ(m_raw.Count("Toy"), 1);
}

TEST_F(FindingTheRow, SeveralRowsThrowAndKeepTheMode) {
  m_raw.Exec(toys::TableOfToys("Twins", "INTEGER"));
  m_raw.Exec("INSERT INTO Twins (tToyId, tToyName) VALUES (1,'a'),(1,'a')");
  for (const ToySet::Key key : {ToySet::kRowKey, ToySet::kNoKey}) {
    ToySet set(&m_database, key);
    set.m_source = "Twins";
    set.Open();
    set.Edit();
    set.m_name = key == ToySet::kRowKey ? "b" : "c";
    EXPECT_EQ(CodeOf([&] { set.Update(); }), AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED);
    EXPECT_STREQ(set.m_name, key == ToySet::kRowKey ? "b" : "c");
    set.CancelUpdate();
  }
  ToySet set(&m_database);
  set.m_source = "Twins";
  set.Open();
  EXPECT_EQ(CodeOf([&] { set.Delete(); }), AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED);
}

// The practice's stations under their full name, which is a view over the table of the short name.
class StationView : public CRecordset {
 public:
  StationView(CDatabase* database, bool with_key) : CRecordset(database) {
    if (with_key) SetRowKey(&m_id);
  }
  CString GetDefaultSQL() override { return m_source; }
  void DoFieldExchange(CFieldExchange* exchange) override {
    exchange->SetFieldType(CFieldExchange::outputColumn);
    RFX_Long(exchange, "tStatCulIntStatIDPk", m_id);
    RFX_Text(exchange, "tStatSName", m_name);
  }
  CString m_source = "TStationRaw";
  LONG m_id = 0;
  CString m_name;
};

class ChangesThroughAView : public FindingTheRow {
 protected:
  void SetUp() override {
    m_raw.Exec("INSERT INTO TStation (tStatCulIntStatIDPk, tStatSName) VALUES (50,'first'),(51,'second')");
  }
  // Some databases tell table names apart by the case of their letters.
  bool KnowsTable(const std::string& name) {
    try {
      m_raw.Query("SELECT * FROM " + name);
    } catch (const std::runtime_error&) {
      return false;
    }
    return true;
  }
  std::string Names() {
    std::string names;
    for (const support::Row& row :
         m_raw.Query("SELECT tStatSName FROM TStation WHERE tStatCulIntStatIDPk>=50 "
                     "ORDER BY tStatCulIntStatIDPk")) {
      names += row[0].value_or("NULL") + ";";
    }
    return names;
  }
};

TEST_F(ChangesThroughAView, AddsEditsAndDeletesAreDoneWhateverTheDriverCounts) {
  for (const bool with_key : {true, false}) {
    StationView set(&m_database, with_key);
    set.m_strFilter = "tStatCulIntStatIDPk>=50";
    set.m_strSort = "tStatCulIntStatIDPk";
    set.Open();
    set.AddNew();
    set.m_id = 52;
    set.m_name = "third";
    EXPECT_TRUE(set.Update());
    EXPECT_EQ(Names(), "first;second;third;");
    set.Edit();
    set.m_name = "1st";
    EXPECT_TRUE(set.Update());
    EXPECT_EQ(Names(), "1st;second;third;");
    set.Edit();
    set.m_name = "first";
    EXPECT_TRUE(set.Update());
    set.Requery();
    set.MoveLast();
    set.Delete();
    EXPECT_EQ(Names(), "first;second;");
  }
}

TEST_F(ChangesThroughAView, AnEditedKeyIsNotTakenForAMissingRow) {
  StationView set(&m_database, true);
  set.m_strFilter = "tStatCulIntStatIDPk=50";
  set.Open();
  set.Edit();
  set.m_id = 60;
  EXPECT_TRUE(set.Update());
  EXPECT_EQ(m_raw.Count("TStation", "tStatCulIntStatIDPk=60"), 1);
}

TEST_F(ChangesThroughAView, AViewIsKnownByItsNameInAnyCaseAndBehindAPrefix) {
  std::vector<std::string> names = {support::CurrentKind().Owner(m_practice.Database()) + "TStationRaw"};
  if (KnowsTable("tstationraw")) names.emplace_back("tstationraw");
  for (const std::string& name : names) {
    StationView set(&m_database, true);
    set.m_source = name.c_str();
    set.m_strFilter = "tStatCulIntStatIDPk>=50";
    set.Open();
    set.Delete();
    EXPECT_TRUE(set.IsDeleted()) << name;
  }
  EXPECT_EQ(m_raw.Count("TStation", "tStatCulIntStatIDPk>=50"), 2 - static_cast<int>(names.size()));
}

TEST_F(ChangesThroughAView, AnEditOfARowThatIsGoneThrows) {
  for (const bool with_key : {true, false}) {
    StationView set(&m_database, with_key);
    set.m_strFilter = "tStatCulIntStatIDPk>=50";
    set.m_strSort = "tStatCulIntStatIDPk";
    set.Open();
    m_raw.Exec("DELETE FROM TStation WHERE tStatCulIntStatIDPk=" + std::to_string(set.m_id));
    set.Edit();
    set.m_name = "nobody";
    EXPECT_EQ(CodeOf([&] { set.Update(); }), AFX_SQL_ERROR_NO_ROWS_AFFECTED);
  }
}

}  // namespace
