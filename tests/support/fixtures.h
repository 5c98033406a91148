// Fixtures for tests on a practice of their own.
#ifndef KYODBC_TESTS_SUPPORT_FIXTURES_H
#define KYODBC_TESTS_SUPPORT_FIXTURES_H

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "frame/KyODBC.h"
#include "tests/support/practice.h"
#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"

namespace support {

// A fresh practice for every test; the library is not connected, and is disconnected at the end whatever the
// test did.
class PracticeTest : public testing::Test {
 protected:
  // A derived fixture passes other options, e.g. PracticeTest({.tables = Tables::kFullNames}).
  explicit PracticeTest(PracticeOptions options = {}) : m_practice(options) {}
  ~PracticeTest() override { DB_CloseDatabase(); }

  WORD Connect() {
    tagDBCONNECT parameters = m_practice.Parameters();
    return DB_InitDatabase(&parameters);
  }
  // The tests' own connection, made when first asked for.
  RawOdbc& Raw() {
    if (!m_raw) m_raw = std::make_unique<RawOdbc>(m_practice);
    return *m_raw;
  }
  // Takes a table, or the view that stands for it, out of reach under one of its two names. Once in a test.
  void TakeAway(const std::string& name) {
    if (!m_practice.IsTable(name)) return Raw().Exec("DROP VIEW " + name);
    Raw().Exec("ALTER TABLE " + name + " RENAME TO TKept");
  }
  // After TakeAway: the same rows can be read again under that name, and every write fails.
  void BringBackReadOnly(const std::string& name) {
    const std::string rows = m_practice.IsTable(name) ? "TKept" : m_practice.OtherName(name);
    Raw().Exec("CREATE VIEW " + name + " AS SELECT DISTINCT * FROM " + rows);
  }
  void MakeReadOnly(const std::string& name) {
    TakeAway(name);
    BringBackReadOnly(name);
  }
  void RemovePing() {
    for (const std::string& sql : CurrentKind().RemovePingStatements()) Raw().Exec(sql);
  }

  Practice m_practice;

 private:
  std::unique_ptr<RawOdbc> m_raw;
};

// The same with the library connected; the connection must close cleanly at the end.
class ConnectedTest : public PracticeTest {
 protected:
  explicit ConnectedTest(PracticeOptions options = {}) : PracticeTest(options) {}
  void SetUp() override {
    ASSERT_EQ(Connect(), 0);
    ASSERT_NE(DB_IsDatabaseOpen(), 0);
  }
  void TearDown() override {
    EXPECT_EQ(DB_CloseDatabase(), 0);
    EXPECT_EQ(DB_IsDatabaseOpen(), 0);
  }
};

}  // namespace support

#endif
