// Texts and dates on their way into columns and back.
#include "tests/db/toy_set.h"

namespace {

using support::Ts;
using toys::CodeOf;
using toys::ToySet;

// A table of one long text beside the key.
class LongTextSet : public CRecordset {
 public:
  explicit LongTextSet(CDatabase* database) : CRecordset(database) { SetRowKey(&m_id); }
  CString GetDefaultSQL() override { return "Toy"; }
  void DoFieldExchange(CFieldExchange* exchange) override {
    exchange->SetFieldType(CFieldExchange::outputColumn);
    RFX_Long(exchange, "tToyId", m_id);
    RFX_Text(exchange, "tToyText", m_text, 1000000);
    RFX_Text(exchange, "tToyName", m_name, m_name_limit);
  }
  int m_name_limit = 255;
  LONG m_id = 0;
  CString m_text;
  CString m_name;
};

class RecordSetTexts : public toys::ToyTest {
 protected:
  RecordSetTexts() : m_set(&m_database) {
    AddToys(2);
    m_set.m_strSort = "tToyId";
    m_set.Open();
  }
  void StoreName(const std::string& name) {
    m_set.Edit();
    m_set.m_name = name.c_str();
    ASSERT_TRUE(m_set.Update());
  }
  ToySet m_set;
};

TEST_F(RecordSetTexts, LongerThanItsMaximumATextIsCutBeforeWriting) {
  StoreName(std::string(255, 'a'));
  EXPECT_EQ(StoredText("tToyName"), std::string(255, 'a'));
  StoreName(std::string(300, 'b'));
  EXPECT_EQ(StoredText("tToyName"), std::string(255, 'b'));
  m_set.Move(0);
  EXPECT_EQ(m_set.m_name.GetLength(), 255);
}

TEST_F(RecordSetTexts, TheCutIsNeverInsideACharacter) {
  StoreName(std::string(254, 'a') + "\xC3\xBC");
  EXPECT_EQ(StoredText("tToyName"), std::string(254, 'a'));
  StoreName(std::string(253, 'a') + "\xC3\xBC" + "b");
  EXPECT_EQ(StoredText("tToyName"), std::string(253, 'a') + "\xC3\xBC");
  StoreName(std::string(253, 'a') + "\xE2\x82\xAC");
  EXPECT_EQ(StoredText("tToyName"), std::string(253, 'a'));
}

TEST_F(RecordSetTexts, AnOverlongTextInTheDatabaseIsCutOnReadingWithoutFailingTheFetch) {
  for (const std::size_t size : {256u, 1020u, 1021u, 1022u, 100000u}) {
    m_raw.Query("UPDATE Toy SET tToyName=? WHERE tToyId=2",
                {std::string(254, 'x') + std::string(size - 254, 'y')});
    m_set.Requery();
    EXPECT_EQ(m_set.ExtendedFetch(SQL_FETCH_ABSOLUTE, 2), SQL_SUCCESS) << size;
    m_set.Fixups();
    EXPECT_EQ(std::string(m_set.m_name), std::string(254, 'x') + "y") << size;
    EXPECT_EQ(m_set.m_count, 20);
  }
  const std::string umlauts = std::string(254, 'x') + "\xC3\xBC\xC3\xBC";
  m_raw.Query("UPDATE Toy SET tToyName=? WHERE tToyId=2", {umlauts});
  m_set.Requery();
  m_set.MoveNext();
  EXPECT_EQ(std::string(m_set.m_name), std::string(254, 'x'));
}

TEST_F(RecordSetTexts, AnOverlongTextReadIsNoChange) {
  m_raw.Query("UPDATE Toy SET tToyName=? WHERE tToyId=1", {std::string(300, 'x')});
  m_set.Requery();
  m_set.Edit();
  m_set.m_count = 3;
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(StoredText("tToyName").size(), 300u);
}

TEST_F(RecordSetTexts, QuotesBackslashesPercentSignsAndUtf8ComeBackAsTheyWere) {
  for (const char* text :
       {"O'Neil", "back\\slash", "50%_of", "? {d '2001-01-01'} ?", "M\xC3\xBCller \xE2\x82\xAC",
        "line\nand\ttab", "\"quoted\"", "--", "  blanks  "}) {
    StoreName(text);
    EXPECT_EQ(StoredText("tToyName"), text);
    m_set.Requery();
    EXPECT_STREQ(m_set.m_name, text);
  }
}

TEST_F(RecordSetTexts, AMillionBytesAreWrittenAndReadWhole) {
  std::string text;
  while (text.size() < 1000000) text += "0123456789 \xC3\xBC ";
  text.resize(999998);
  text += "\xC3\xBC";
  ASSERT_EQ(text.size(), 1000000u);
  LongTextSet set(&m_database);
  set.m_strSort = "tToyId";
  set.Open();
  set.Edit();
  set.m_text = text.c_str();
  EXPECT_TRUE(set.Update());
  EXPECT_TRUE(StoredText("tToyText") == text);
  set.m_text.Empty();
  set.Requery();
  EXPECT_TRUE(std::string(set.m_text) == text);
  EXPECT_STREQ(set.m_name, "toy1");
  CString on_demand;
  set.GetFieldValue("tToyText", on_demand);
  EXPECT_TRUE(std::string(on_demand) == text);
  set.MoveNext();
  EXPECT_STREQ(set.m_text, "");
  EXPECT_TRUE(set.IsFieldNull(&set.m_text));
  set.MovePrev();
  EXPECT_TRUE(std::string(set.m_text) == text);
}

TEST_F(RecordSetTexts, BeyondAMillionBytesALongTextIsCutInBothDirections) {
  LongTextSet set(&m_database);
  set.m_strSort = "tToyId";
  set.Open();
  set.Edit();
  set.m_text = std::string(1000001, 'z').c_str();
  EXPECT_TRUE(set.Update());
  EXPECT_EQ(StoredText("tToyText").size(), 1000000u);
  m_raw.Query("UPDATE Toy SET tToyText=? WHERE tToyId=2", {std::string(999999, 'z') + "\xC3\xBC"});
  set.MoveNext();
  set.Requery();
  set.MoveNext();
  EXPECT_EQ(set.m_text.GetLength(), 999999);
}

TEST_F(RecordSetTexts, TextsAtTheEdgeOfTheParameterTypesArriveWhole) {
  LongTextSet set(&m_database);
  set.m_strSort = "tToyId";
  set.Open();
  for (const std::size_t size : {0u, 1u, 4096u, 8000u, 8001u, 65535u, 65536u}) {
    set.Edit();
    set.m_text = std::string(size, 'p').c_str();
    set.SetFieldDirty(&set.m_text);
    EXPECT_TRUE(set.Update());
    set.Requery();
    EXPECT_EQ(set.m_text.GetLength(), static_cast<int>(size));
  }
}

TEST_F(RecordSetTexts, AMaximumOfZeroOrLessLeavesNothing) {
  for (const int limit : {0, -1, -2147483647}) {
    LongTextSet set(&m_database);
    set.m_strSort = "tToyId";
    set.m_name_limit = limit;
    set.m_name = "before";
    set.Open();
    EXPECT_STREQ(set.m_name, "") << limit;
    EXPECT_EQ(set.m_id, 1);
  }
}

class RecordSetDates : public toys::ToyTest {
 protected:
  RecordSetDates() : m_set(&m_database) {
    AddToys(1);
    m_set.Open();
  }
  // The number of rows whose column equals the literal.
  int Found(const std::string& column, const std::string& literal) {
    return m_raw.Count("Toy", column + "=" + literal);
  }
  ToySet m_set;
};

TEST_F(RecordSetDates, WrittenDatesAreFoundAgainByTheLiterals) {
  m_set.Edit();
  m_set.m_day = Ts(2001, 5, 6);
  m_set.m_time = Ts(2001, 5, 6, 10, 11, 12);
  m_set.Update();
  EXPECT_EQ(Found("tToyDay", "{d '2001-05-06'}"), 1);
  EXPECT_EQ(Found("tToyTime", "{ts '2001-05-06 10:11:12'}"), 1);
  m_set.m_strFilter = "tToyTime={ts '2001-05-06 10:11:12'} AND tToyDay={d '2001-05-06'}";
  m_set.Requery();
  EXPECT_EQ(support::TimeText(m_set.m_day), "2001-05-06 00:00:00");
  EXPECT_EQ(support::TimeText(m_set.m_time), "2001-05-06 10:11:12");
}

TEST_F(RecordSetDates, AddedDatesAreFoundAgainByTheLiterals) {
  m_set.AddNew();
  m_set.m_id = 9;
  m_set.m_day = Ts(1880, 1, 1);
  m_set.m_time = Ts(9999, 12, 31, 23, 59, 59);
  m_set.Update();
  EXPECT_EQ(Found("tToyDay", "{d '1880-01-01'}"), 1);
  EXPECT_EQ(Found("tToyTime", "{ts '9999-12-31 23:59:59'}"), 1);
}

TEST_F(RecordSetDates, ADateColumnTakesNoTimeOfDay) {
  m_set.Edit();
  m_set.m_day = Ts(2001, 5, 6, 10, 11, 12);
  m_set.Update();
  EXPECT_EQ(Found("tToyDay", "{d '2001-05-06'}"), 1);
  m_set.Move(0);
  EXPECT_EQ(support::TimeText(m_set.m_day), "2001-05-06 00:00:00");
  m_set.Requery();
  EXPECT_EQ(support::TimeText(m_set.m_day), "2001-05-06 00:00:00");
}

TEST_F(RecordSetDates, AFractionIsKept) {
  m_set.Edit();
  m_set.m_time = Ts(2001, 5, 6, 10, 11, 12);
  m_set.m_time.fraction = 250000000;
  m_set.Update();
  m_set.Requery();
  EXPECT_EQ(m_set.m_time.fraction, 250000000u);
  EXPECT_EQ(m_set.m_time.second, 12);
}

TEST_F(RecordSetDates, ImpossibleDatesAreRefusedAndNothingIsWritten) {
  const TIMESTAMP_STRUCT impossible[] = {
      Ts(2001, 2, 30),
      Ts(2001, 13, 1),
      Ts(2001, 5, 0),
      Ts(2001, 0, 6),
      Ts(0, 5, 6),
      Ts(-44, 3, 15),
      Ts(10000, 1, 1),
      Ts(1900, 2, 29),
      Ts(2001, 5, 6, 24, 0, 0),
      Ts(2001, 5, 6, 0, 60, 0),
      Ts(2001, 5, 6, 0, 0, 60),
  };
  for (const TIMESTAMP_STRUCT& time : impossible) {
    m_set.Edit();
    m_set.m_count = 999;
    m_set.m_time = time;
    EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_IMPOSSIBLE_DATE) << support::TimeText(time);
    m_set.AddNew();
    m_set.m_time = time;
    EXPECT_EQ(CodeOf([&] { m_set.Update(); }), AFX_SQL_ERROR_IMPOSSIBLE_DATE) << support::TimeText(time);
    m_set.CancelUpdate();
  }
  EXPECT_EQ(m_raw.Count("Toy"), 1);
  EXPECT_EQ(StoredText("tToyCount"), "10");
  EXPECT_EQ(Stored("tToyTime"), std::nullopt);
}

TEST_F(RecordSetDates, ALeapDayIsPossible) {
  m_set.Edit();
  m_set.m_day = Ts(2000, 2, 29);
  EXPECT_TRUE(m_set.Update());
  EXPECT_EQ(Found("tToyDay", "{d '2000-02-29'}"), 1);
}

TEST_F(RecordSetDates, NumbersReachTheirLimits) {
  m_set.Edit();
  m_set.m_count = 2147483647;
  m_set.Update();
  EXPECT_EQ(StoredText("tToyCount"), "2147483647");
  m_set.Edit();
  m_set.m_count = -2147483647 - 1;
  m_set.Update();
  EXPECT_EQ(StoredText("tToyCount"), "-2147483648");
  m_set.m_count = 0;
  m_set.Requery();
  EXPECT_EQ(m_set.m_count, -2147483647 - 1);
}

}  // namespace
