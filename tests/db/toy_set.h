// A table of the tests' own and a record set on it, for tests of the record set that all others derive from.
#ifndef KYODBC_TESTS_DB_TOY_SET_H
#define KYODBC_TESTS_DB_TOY_SET_H

#include <gtest/gtest.h>

#include <string>

#include "platform/crecordset.h"
#include "tests/support/practice.h"
#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"

namespace toys {

// What a CDBException told; the code is 0 when none was thrown.
struct Thrown {
  RETCODE code = 0;
  std::string error;
  std::string origin;
};

template <class Action>
Thrown Catch(Action action) {
  try {
    action();
  } catch (CDBException* exception) {
    Thrown thrown{exception->m_nRetCode, exception->m_strError.GetString(),
                  exception->m_strStateNativeOrigin.GetString()};
    exception->Delete();
    return thrown;
  }
  return {};
}

template <class Action>
RETCODE CodeOf(Action action) {
  return Catch(action).code;
}

// The statement that makes a table which a ToySet can read; `key` declares its key column.
std::string TableOfToys(const std::string& name, const std::string& key);

// For names in messages: databases tell them in the letter case they like.
std::string LowerCase(std::string text);

class ToySet : public CRecordset {
 public:
  enum Key { kRowKey, kNoKey };

  explicit ToySet(CDatabase* database, Key key = kRowKey);

  CString GetDefaultConnect() override { return m_connect; }
  CString GetDefaultSQL() override { return m_source; }
  void DoFieldExchange(CFieldExchange* exchange) override;

  using CRecordset::ExtendedFetch;
  using CRecordset::Fixups;
  using CRecordset::GetTextLen;
  using CRecordset::m_lCurrentRecord;
  using CRecordset::m_nOpenTypeInUse;
  using CRecordset::m_nResultCols;

  // Id of every row, in order, by moving through the set from its first row.
  std::string Ids();

  CString m_connect = "ODBC;";
  CString m_source = "Toy";

  LONG m_id = 0;
  CString m_name;
  LONG m_count = 0;
  int m_small = 0;
  BOOL m_flag = FALSE;
  TIMESTAMP_STRUCT m_day{};
  TIMESTAMP_STRUCT m_time{};
};

// Expects the flags and the index from 0 that describe where the set stands.
void ExpectAt(const ToySet& set, bool bof, bool eof, LONG current);
void ExpectOnRow(const ToySet& set, LONG row, LONG id);  // `row` counts from 1
inline void ExpectEmpty(const ToySet& set) { ExpectAt(set, true, true, -1); }
inline void ExpectBeforeFirst(const ToySet& set) { ExpectAt(set, true, false, -1); }
inline void ExpectAfterLast(const ToySet& set) { ExpectAt(set, false, true, -2); }

// A connected database with an empty table Toy.
class ToyTest : public testing::Test {
 protected:
  ToyTest();

  void AddToys(int count);  // ids from 1, named "toy1" and so on, counts 10, 20 and so on, the rest NULL
  CString Connect() const;  // the connection string
  // One column of the row with this id, as the tests' own connection sees it.
  support::Value Stored(const std::string& column, int id = 1);
  std::string StoredText(const std::string& column, int id = 1) {
    return Stored(column, id).value_or("NULL");
  }

  support::Practice m_practice;
  support::RawOdbc m_raw;
  CDatabase m_database;
};

}  // namespace toys

#endif
