// A column of a full table with its member in the record class, and records filled by lists of them.
#ifndef KYODBC_TESTS_FLAT_RAW_MEMBER_H
#define KYODBC_TESTS_FLAT_RAW_MEMBER_H

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "tests/support/fixtures.h"

namespace raw {

inline constexpr LONG kAllFields = -1;

template <class Record>
struct Member {
  const char* column;
  char kind;  // N number, F flag, D date, S date and time, T text of 255, X text of 1,000,000
  int bit;    // in the field mask; -1: the key
  LONG Record::*number = nullptr;
  TIMESTAMP_STRUCT Record::*time = nullptr;
  CString Record::*text = nullptr;

  constexpr Member(const char* c, char k, int b, LONG Record::*m) : column(c), kind(k), bit(b), number(m) {}
  constexpr Member(const char* c, char k, int b, TIMESTAMP_STRUCT Record::*m)
      : column(c), kind(k), bit(b), time(m) {}
  constexpr Member(const char* c, char k, int b, CString Record::*m) : column(c), kind(k), bit(b), text(m) {}
};

// What the column holds when the member was written to it; nothing for NULL.
template <class Record>
support::Value Stored(const Record& record, const Member<Record>& member) {
  if (member.number != nullptr) return std::to_string(record.*member.number);
  if (member.text != nullptr) return std::string((record.*member.text).View());
  const TIMESTAMP_STRUCT& time = record.*member.time;
  if (time.year == 0) return std::nullopt;
  const std::string text = support::TimeText(time);
  return member.kind == 'D' ? text.substr(0, 10) : text;
}

template <class Table>
support::Row Stored(const typename Table::Record& record) {
  support::Row row;
  for (const auto& member : Table::kMembers) row.push_back(Stored(record, member));
  return row;
}

template <class Table>
LONG& Key(typename Table::Record& record) {
  return record.*(Table::kMembers[0].number);
}

// The n-th (1 to 20) of a series of records with key 0, in which every other member is given and differs from
// the same member of the others. Texts have one character, so that they fit the plain records too.
template <class Table>
typename Table::Record MakeRecord(int n) {
  typename Table::Record record;
  int place = 0;
  for (const auto& member : Table::kMembers) {
    ++place;
    if (member.bit < 0) continue;
    if (member.kind == 'F') {
      record.*member.number = n % 2;
    } else if (member.number != nullptr) {
      record.*member.number = 100 * n + place;
    } else if (member.text != nullptr) {
      record.*member.text = CString(static_cast<char>('A' + (n + place) % 26));
    } else {
      const int hour = member.kind == 'D' ? 0 : 10;
      record.*member.time = support::Ts(2000 + n, 1 + place % 12, 1 + place % 28, hour);
    }
  }
  Table::Adapt(&record);
  return record;
}

// The mask of all fields but those that the library derives.
template <class Table>
constexpr LONG GivenFields() {
  return static_cast<LONG>(~Table::kDerived);
}

// The full name of the table.
template <class Table>
std::string FullName() {
  return std::string(Table::kShortName) + "Raw";
}

// The names of the columns, with a comma between them.
template <class Table>
std::string Columns() {
  std::string list;
  for (const auto& member : Table::kMembers) list += (list.empty() ? "" : ",") + std::string(member.column);
  return list;
}

class RawTest : public support::ConnectedTest {
 protected:
  explicit RawTest(support::PracticeOptions options = {}) : ConnectedTest(options) {}

  template <class Table>
  int CountRows() {
    return Raw().Count(FullName<Table>());
  }
  // All columns of the row with this key, as the tests' own connection sees them.
  template <class Table>
  support::Row RowOf(LONG key) {
    const auto rows = Raw().Query("SELECT " + Columns<Table>() + " FROM " + FullName<Table>() + " WHERE " +
                                  Table::kMembers[0].column + " = " + std::to_string(key));
    return rows.size() == 1 ? rows[0] : support::Row();
  }
  // Adds a record through a set of its own and returns its key; 0 and a failure when that did not work.
  template <class Table>
  LONG Add(typename Table::Record record, LONG mask = GivenFields<Table>()) {
    auto set = Table::MakeSet();
    EXPECT_EQ(set.Insert(record, mask), 0);
    return Key<Table>(record);
  }
};

}  // namespace raw

#endif
