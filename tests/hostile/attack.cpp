#include "tests/hostile/attack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "frame/KyODBC.h"
#include "tests/flat/family_tables.h"
#include "tests/flat/texts.h"
#include "tests/hostile/filter_fields.h"
#include "tests/support/documented.h"
#include "tests/support/records.h"

namespace hostile {
namespace {

constexpr const char* kTables[] = {"TDoctor", "TStation", "TUnit",      "TPatient", "TImage",
                                   "TMakro",  "TGroup",   "TDiagnosis", "TConfig",  "TTest"};

struct Comparison {
  LONG code;
  const char* sign;
};

constexpr Comparison kComparisons[] = {
    {KYODBC_EQUAL,         "="   },
    {KYODBC_GREATER_EQUAL, ">="  },
    {KYODBC_GREATER,       ">"   },
    {KYODBC_LESS_EQUAL,    "<="  },
    {KYODBC_LESS,          "<"   },
    {KYODBC_NOT_EQUAL,     "<>"  },
    {KYODBC_LIKE,          "LIKE"},
};

// Rows that are there before the attack; one of each table.
template <class Table>
void Plant() {
  for (const int n : {41, 50}) {
    typename Table::Record record = Table::Fill(n);
    Table::ChangeText(&record, n == 50 ? "canary" : "Canary'\\");
    ASSERT_EQ(Table::Add(&record), 0) << Table::kName;
  }
}

std::vector<int> Sorted(std::vector<int> keys) {
  std::sort(keys.begin(), keys.end());
  return keys;
}

std::vector<int> KeysOf(const BrowseSet& set) {
  LONG rows = 0;
  EXPECT_EQ(set.count(&rows), 0);
  std::vector<int> keys;
  for (LONG position = 1; position <= rows; ++position) keys.push_back(set.key_at(position));
  return Sorted(keys);
}

}  // namespace

std::string CutTo(const std::string& text, std::size_t width) {
  return IsUtf8(text) ? texts::Cut(text, width) : text.substr(0, width);
}

Attack::Attack(support::RawOdbc& raw, Draw& draw) : m_raw(raw), m_draw(draw) {}

std::vector<support::Row> Attack::Rows(const std::string& table) {
  return m_raw.Query("SELECT * FROM " + table + " ORDER BY 1");
}

void Attack::PlantCanaries() {
  Plant<family::Doctors>();
  Plant<family::Stations>();
  Plant<family::Units>();
  Plant<family::Patients>();
  Plant<family::Images>();
  Plant<family::Makros>();
  Plant<family::Groups>();
  Plant<family::Diagnoses>();
  Plant<family::Configs>();
  Plant<family::Tests>();
  m_raw.Exec("UPDATE TPatient SET tPatCulIntDrIDFk = 1 WHERE tPatSName = 'Surname 50'");
  Remember();
}

void Attack::Remember() {
  for (const char* table : kTables) m_canaries[table] = Rows(table);
}

void Attack::ExpectCanaries() {
  for (const char* table : kTables) EXPECT_EQ(Rows(table), m_canaries[table]) << table;
}

bool Attack::Ask(const std::string& sql, const std::vector<std::string>& texts, std::vector<int>* answer) {
  answer->clear();
  try {
    for (const support::Row& row : m_raw.Query(sql, texts)) answer->push_back(std::stoi(row.at(0).value()));
    return true;
  } catch (const std::runtime_error&) {
    return false;
  }
}

void Attack::Everything(const std::string& text) {
  SCOPED_TRACE(Shown(text));
  Filters(text);
  Searches(text);
  Records(text);
  Settings(text);
  CompactRecords(text);
  ExpectCanaries();
}

// One clause, and two joined by OR.
void Attack::Filters(const std::string& text) {
  constexpr int kFilters = 12;
  const bool decidable = IsUtf8(text) || support::Documented("bytes that are no UTF-8") == "stored";
  for (int i = 0; i < kFilters; ++i) {
    const BrowseSet& set = BrowseSets()[static_cast<std::size_t>(m_draw.Below(11))];
    const auto any = [&] {
      return set.fields[static_cast<std::size_t>(m_draw.Below(int(set.fields.size())))];
    };
    const TextField one = any();
    const TextField two = any();
    const Comparison& first = kComparisons[m_draw.Below(7)];
    const Comparison& second = kComparisons[m_draw.Below(7)];
    const std::string other = m_draw.Valid(60);
    const bool both = m_draw.OneIn(3);
    const std::string condition = std::string(one.column) + " " + first.sign + " ?" +
                                  (both ? std::string(" OR ") + two.column + " " + second.sign + " ?" : "");
    SCOPED_TRACE(std::string(set.from) + " WHERE " + condition + (both ? " with " + Shown(other) : ""));
    ++m_calls;
    EXPECT_EQ(set.open(), 0);
    const WORD code =
        set.filter(both ? KYODBC_PACK(one.id, two.id | KYODBC_OR, 0, 0) : one.id,
                   KYODBC_PACK(first.code, second.code, 0, 0), text.c_str(), other.c_str(), nullptr, nullptr);
    EXPECT_TRUE(code == 0 || code == 31) << code;
    if (decidable) {
      std::vector<int> expected;
      std::vector<std::string> values = {text};
      if (both) values.push_back(other);
      const bool answered = Ask(
          std::string("SELECT ") + set.key + " FROM " + set.from + " WHERE " + condition, values, &expected);
      EXPECT_EQ(code, answered ? 0 : 31);
      if (code == 0) {
        EXPECT_EQ(KeysOf(set), Sorted(expected));
      }
    } else if (!both && first.code == KYODBC_EQUAL && code == 0) {
      EXPECT_EQ(KeysOf(set), std::vector<int>());
    }
    const LONG none = 0;
    EXPECT_EQ(set.filter(KYODBC_FIELD_KEY, KYODBC_GREATER, &none, nullptr, nullptr, nullptr), 0);
  }
}

void Attack::Searches(const std::string& text) {
  const bool decidable = IsUtf8(text) || support::Documented("bytes that are no UTF-8") == "stored";
  const struct {
    WORD (*open)();
    WORD (*sort)(LONG);
    LONG (*search)(const char*);
    const BrowseSet& set;
  } roads[] = {
      {DB_OpenTPat,  DB_SetTPatSortIndex,  DB_MoveToTPatByString,  BrowseSets()[3]},
      {DB_OpenPatEx, DB_SetPatExSortIndex, DB_MoveToPatExByString, BrowseSets()[4]},
  };
  for (const auto& road : roads) {
    SCOPED_TRACE(road.set.from);
    ++m_calls;
    EXPECT_EQ(road.sort(KYODBC_FIELD_NAME), 0);
    EXPECT_EQ(road.open(), 0);
    const LONG found = road.search(text.c_str());
    std::vector<int> before;
    std::vector<int> all;
    const std::string from = std::string("SELECT ") + road.set.key + " FROM " + road.set.from;
    const bool answered = Ask(from + " WHERE tPatSName < ?", {text}, &before);
    if (!decidable) continue;
    EXPECT_TRUE(Ask(from, {}, &all));
    const bool some = answered && before.size() < all.size();
    EXPECT_EQ(found, some ? static_cast<LONG>(before.size()) + 1 : 0);
  }
}

}  // namespace hostile
