// Sets that hold the keys of their rows, over keys that are far apart, doubled or missing.
#include "tests/db/toy_set.h"

namespace {

class KeyedToySet : public toys::ToySet {
 public:
  KeyedToySet(CDatabase* database, const char* table) : ToySet(database) {
    m_source = table;
    m_strSort = "tToyName";
    HoldRows(keysOnly);
  }
  std::string Names() {
    std::string names;
    for (MoveFirst(); !IsEOF(); MoveNext()) names += m_name;
    return names;
  }
};

// A table whose key column takes anything.
class HeldKeys : public toys::ToyTest {
 protected:
  HeldKeys() { m_raw.Exec(toys::TableOfToys("Loose", "INTEGER")); }

  // A row for each key, named "a", "b" and so on.
  void Fill(const std::vector<std::string>& keys) {
    m_raw.Exec("DELETE FROM Loose");
    char name = 'a';
    for (const std::string& key : keys) {
      m_raw.Exec("INSERT INTO Loose (tToyId, tToyName) VALUES (" + key + ", '" + name++ + "')");
    }
  }
};

TEST_F(HeldKeys, EveryRowIsVisitedOnceWhateverItsKey) {
  for (const std::vector<std::string>& keys : {
           std::vector<std::string>{"1",          "2",          "3"          },
           {"1",          "2000000000", "-2000000000"},
           {"2",          "1",          "2"          },
           {"2000000000", "1",          "2000000000" },
           {"1",          "NULL",       "3"          },
           {"NULL",       "NULL",       "NULL"       }
  }) {
    Fill(keys);
    KeyedToySet set(&m_database, "Loose");
    ASSERT_TRUE(set.Open(CRecordset::dynaset));
    EXPECT_EQ(set.Names(), "abc") << keys[0] << ' ' << keys[1] << ' ' << keys[2];
  }
}

TEST_F(HeldKeys, WhetherAColumnMayBeNullIsKnownWithAndWithoutRows) {
  for (const std::vector<std::string>& keys : {
           std::vector<std::string>{   },
           { "1", "2"}
  }) {
    Fill(keys);
    KeyedToySet set(&m_database, "Loose");
    ASSERT_TRUE(set.Open(CRecordset::dynaset));
    EXPECT_TRUE(set.IsFieldNullable(&set.m_id)) << keys.size();
    EXPECT_TRUE(set.IsFieldNullable(&set.m_name)) << keys.size();
  }
}

TEST_F(HeldKeys, AColumnCanBeReadAgainOnEveryRow) {
  AddToys(5);
  KeyedToySet set(&m_database, "Toy");
  ASSERT_TRUE(set.Open(CRecordset::dynaset));
  for (int row = 1; row <= 5; ++row, set.MoveNext()) {
    for (int time = 1; time <= 3; ++time) {
      CString name;
      set.GetFieldValue("tToyName", name);
      EXPECT_EQ(std::string(name), "toy" + std::to_string(row)) << time;
    }
  }
  set.Move(2, SQL_FETCH_ABSOLUTE);
  CString name;
  set.GetFieldValue("tToyName", name);
  EXPECT_STREQ(name, "toy2");
}

TEST_F(HeldKeys, AColumnOfARowThatSomebodyDeletesCannotBeReadAgain) {
  AddToys(3);
  KeyedToySet set(&m_database, "Toy");
  ASSERT_TRUE(set.Open(CRecordset::dynaset));
  CString name;
  set.GetFieldValue("tToyName", name);
  m_raw.Exec("DELETE FROM Toy WHERE tToyName = 'toy1'");
  EXPECT_NE(toys::CodeOf([&] { set.GetFieldValue("tToyName", name); }), 0);
}

}  // namespace
