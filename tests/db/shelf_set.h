// A record set as a caller of the library derives one: a table of its own, field ids of its own.
#ifndef KYODBC_TESTS_DB_SHELF_SET_H
#define KYODBC_TESTS_DB_SHELF_SET_H

#include <string>

#include "recset/kyrecset.h"
#include "tests/support/fixtures.h"

class ShelfSet : public CKyRecSet {
 public:
  explicit ShelfSet(CDatabase* database = nullptr, const char* owner = nullptr) : CKyRecSet(database, owner) {
    m_nFields = 3;
  }

  CString GetDefaultSQL() override { return m_strOwner + "TShelf"; }
  void DoFieldExchange(CFieldExchange* exchange) override {
    exchange->SetFieldType(CFieldExchange::outputColumn);
    RFX_Long(exchange, "tShelfIDPk", m_lID);
    RFX_Text(exchange, "tShelfSName", m_name);
    RFX_Date(exchange, "tShelfDBought", m_bought);
  }
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override {
    const char* column = field == 1    ? " tShelfIDPk"
                         : field == 17 ? " tShelfSName"
                         : field == 33 ? " tShelfDBought"
                                       : nullptr;
    if (column == nullptr) return CKyRecSet::GetFieldName(field, error);
    if (error != nullptr) *error = 0;
    return column;
  }
  short GetIntFieldID(LONG field) override {
    return field == 1    ? short{0}
           : field == 17 ? short{1}
           : field == 33 ? short{2}
                         : CKyRecSet::GetIntFieldID(field);
  }

  using CKyRecSet::IsUniqueRecord;
  using CKyRecSet::TryRequery;
  using CRecordset::m_lCurrentRecord;

  bool OpenNow() { return Open(m_nOpenType, nullptr, none) != 0; }
  std::string Name() const { return std::string(m_name.View()); }

  CString m_name;
  TIMESTAMP_STRUCT m_bought = {};
};

// The shelves: as many rows as a test wants, keys from 101, names "shelf 1" onwards. Runs once with and once
// without an owner prefix, which are the two kinds of cursor and of counting.
class ShelfTest : public support::ConnectedTest, public testing::WithParamInterface<bool> {
 protected:
  ShelfTest() : ConnectedTest({.with_owner = GetParam()}) {}

  void SetUp() override {
    ConnectedTest::SetUp();
    Raw().Exec(
        "CREATE TABLE TShelf (tShelfIDPk INTEGER NOT NULL PRIMARY KEY, tShelfSName VARCHAR(40), "
        "tShelfDBought DATE)");
  }

  void Fill(int rows) {
    std::string values;
    for (int row = 1; row <= rows; ++row) {
      values += (row == 1 ? "(" : ",(") + std::to_string(100 + row) + ",'shelf " + std::to_string(row) + "')";
    }
    Raw().Exec("INSERT INTO TShelf (tShelfIDPk, tShelfSName) VALUES " + values);
  }
};

#define INSTANTIATE_WITH_AND_WITHOUT_OWNER(suite)                                      \
  INSTANTIATE_TEST_SUITE_P(Shelves, suite, testing::Bool(), [](const auto& instance) { \
    return std::string(instance.param ? "WithOwner" : "WithoutOwner");                 \
  })

#endif
