// A record set on the played ODBC library, and what tests with one share.
#ifndef KYODBC_TESTS_SCRIPTED_PLAY_SET_H
#define KYODBC_TESTS_SCRIPTED_PLAY_SET_H

#include <gtest/gtest.h>

#include <string>

#include "platform/crecordset.h"
#include "tests/scripted/script.h"

namespace scripted {

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

class PlaySet : public CRecordset {
 public:
  explicit PlaySet(CDatabase* database, bool with_key = true) : CRecordset(database) {
    if (with_key) SetRowKey(&m_id);
  }
  CString GetDefaultSQL() override { return "Play"; }
  void DoFieldExchange(CFieldExchange* exchange) override {
    exchange->SetFieldType(CFieldExchange::outputColumn);
    RFX_Long(exchange, "id", m_id);
    RFX_Text(exchange, "text", m_text);
  }
  using CRecordset::ExtendedFetch;
  using CRecordset::Fixups;
  using CRecordset::m_lCurrentRecord;

  LONG m_id = 0;
  CString m_text;
};

// Rows (1, "row 1"), (2, "row 2") and so on.
inline Result Rows(int count) {
  Result result{
      {{"id"},  {"text", SQL_VARCHAR, 255}},
      {       }
  };
  for (int row = 1; row <= count; ++row) {
    result.rows.push_back({std::to_string(row), "row " + std::to_string(row)});
  }
  return result;
}
inline Result OneNumber(int number) { return {{{"number"}}, {{std::to_string(number)}}}; }

// At its end no handle may be left, and none may have been used after it was freed.
class PlayTest : public testing::Test {
 protected:
  PlayTest() { NewScript(); }
  ~PlayTest() override {
    EXPECT_EQ(TheScript().Live(), m_expected_leftovers);
    EXPECT_EQ(TheScript().Misuses(), 0);
    NewScript();
  }
  void SetUp() override { TheScript().Gives("SELECT id", Rows(5)); }

  std::size_t m_expected_leftovers = 0;
};

}  // namespace scripted

#endif
