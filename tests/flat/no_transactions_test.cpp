// A data source without transactions: an Access file, whose driver has none and says so by not answering the
// question. It reads only, so it serves as no practice; the library connects to it all the same.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "frame/KyODBC.h"
#include "tests/flat/error_detail.h"
#include "tests/support/database_kind.h"
#include "tests/support/odbc_home.h"
#include "tests/support/practice.h"
#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"

namespace {

// What an empty Access file begins with: the pages behind its first one are never looked at here.
void WriteAccessFile(const std::filesystem::path& path) {
  constexpr char kHead[] = "\0\1\0\0Standard Jet DB\0\1\0\0";
  constexpr std::size_t kPages = std::size_t{5} * 4096;
  std::string content(kHead, sizeof kHead);
  content.resize(kPages, '\0');
  std::ofstream(path, std::ios::binary) << content;
}

// The library pings what it connects to from schema version 4.0 on, and keeps the version of its last
// connection until it has read another one.
void ForgetVersion() {
  const support::Practice old({.tables = support::Tables::kShortNames, .with_owner = false});
  support::RawOdbc(old).Exec("UPDATE TConfig SET tCfgSSet = '3.9' WHERE tCfgSKey = 'DBVersion'");
  const tagDBCONNECT parameters = old.Parameters();
  ASSERT_EQ(DB_InitDatabase(&parameters), 0);
  ASSERT_EQ(DB_CloseDatabase(), 0);
}

class WithoutTransactions : public testing::Test {
 protected:
  void SetUp() override {
    ForgetVersion();
    const std::string driver = support::FindDriver({"libmdbodbc.so"});
    ASSERT_NE(driver, "") << "the package odbc-mdbtools is missing";
    const auto file = m_home->Folder() / "files.mdb";
    WriteAccessFile(file);
    m_home->AddDriver("Access", driver);
    m_home->AddSource(m_name, "Access",
                      {
                          {"Database", file.string()}
    });
    tagDBCONNECT parameters{};
    support::SetText(parameters.szDSN, m_name);
    ASSERT_EQ(DB_InitDatabase(&parameters), 0);
  }
  void TearDown() override {
    EXPECT_EQ(DB_CloseDatabase(), 0);
    m_home->RemoveSource(m_name);
  }

  std::shared_ptr<support::OdbcHome> m_home = support::OdbcHome::Hold();
  std::string m_name = support::OdbcHome::FreshName();
};

TEST_F(WithoutTransactions, AllThreeFunctionsGive55) {
  EXPECT_EQ(DB_BeginTransaction(), 55);
  ExpectOwnRefusal(LastFailure(), 55, "DB_BeginTransaction");
  EXPECT_EQ(DB_CommitTransaction(), 55);
  ExpectOwnRefusal(LastFailure(), 55, "DB_CommitTransaction");
  EXPECT_EQ(DB_RollbackTransaction(), 55);
  ExpectOwnRefusal(LastFailure(), 55, "DB_RollbackTransaction");
}

TEST_F(WithoutTransactions, NothingChangesByAsking) {
  ASSERT_EQ(DB_BeginTransaction(), 55);
  ASSERT_EQ(DB_BeginTransaction(), 55);
  EXPECT_NE(DB_IsDatabaseOpen(), 0);
  CDatabase* database = DB_GetDatabase();
  ASSERT_NE(database, nullptr);
  EXPECT_EQ(database->CanTransact(), 0);
  EXPECT_EQ(database->BeginTrans(), 0);
  EXPECT_EQ(database->CommitTrans(), 0);
  EXPECT_EQ(database->Rollback(), 0);
  EXPECT_NE(database->IsOpen(), 0);
}

}  // namespace
