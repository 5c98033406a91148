// The fault driver itself: a program of plain ODBC calls sees what was ordered, and nothing else.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sql.h>
#include <sqlext.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "tests/faults/fault_driver.h"
#include "tests/support/raw_odbc.h"

namespace faults {
namespace {

SQLCHAR* Chars(const std::string& text) {
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

struct Diagnosis {
  std::string state;
  SQLINTEGER native = 0;
  bool operator==(const Diagnosis&) const = default;
};

class FaultDriverTest : public testing::Test {
 protected:
  FaultDriverTest() { Connect({}); }
  ~FaultDriverTest() override {
    Driver().Forget();
    Disconnect();
    EXPECT_EQ(Driver().Handles(0), 0);
  }

  static const FaultDriver& Driver() { return TheFaultDriver(); }

  void Connect(const support::Options& more) {
    m_source = std::make_unique<FaultSource>(m_practice, more);
    const std::string text = m_source->ConnectionString();
    ASSERT_EQ(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment), SQL_SUCCESS);
    SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    ASSERT_EQ(SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection), SQL_SUCCESS);
    m_connected = SQLDriverConnect(m_connection, nullptr, Chars(text), SQL_NTS, nullptr, 0, nullptr,
                                   SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(m_connected)) return;
    ASSERT_EQ(SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &m_statement), SQL_SUCCESS);
  }
  void Disconnect() {
    if (m_statement != SQL_NULL_HSTMT) SQLFreeHandle(SQL_HANDLE_STMT, m_statement);
    SQLEndTran(SQL_HANDLE_DBC, m_connection, SQL_ROLLBACK);
    SQLDisconnect(m_connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
    m_statement = SQL_NULL_HSTMT;
  }
  void ConnectAgain(const support::Options& more) {
    Disconnect();
    Connect(more);
  }

  SQLRETURN Execute(const std::string& sql) { return SQLExecDirect(m_statement, Chars(sql), SQL_NTS); }
  SQLRETURN AddStation() { return Execute("INSERT INTO TStation (tStatSName) VALUES ('new')"); }
  int NewStations() { return support::RawOdbc(m_practice).Count("TStation", "tStatSName = 'new'"); }
  // The first station's name, which is "-".
  SQLRETURN ReadName(std::string* name, SQLLEN size = 20) {
    Execute("SELECT tStatSName FROM TStation WHERE tStatCulIntStatIDPk = 1");
    char text[20] = {};
    SQLLEN length = 0;
    SQLRETURN code = SQLFetch(m_statement);
    if (SQL_SUCCEEDED(code)) code = SQLGetData(m_statement, 1, SQL_C_CHAR, text, size, &length);
    *name = text;
    SQLFreeStmt(m_statement, SQL_CLOSE);
    return code;
  }
  std::vector<Diagnosis> Diagnoses(SQLSMALLINT kind, SQLHANDLE handle) {
    std::vector<Diagnosis> records;
    for (SQLSMALLINT number = 1;; ++number) {
      SQLCHAR state[6] = {};
      SQLCHAR message[200] = {};
      SQLINTEGER native = 0;
      SQLSMALLINT length = 0;
      if (!SQL_SUCCEEDED(
              SQLGetDiagRec(kind, handle, number, state, &native, message, sizeof message, &length))) {
        return records;
      }
      records.push_back({reinterpret_cast<char*>(state), native});
    }
  }
  std::vector<Diagnosis> Diagnoses() { return Diagnoses(SQL_HANDLE_STMT, m_statement); }
  SQLUINTEGER Dead() {
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttr(m_connection, SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
    return dead;
  }

  support::Practice m_practice;
  std::unique_ptr<FaultSource> m_source;
  SQLHENV m_environment = SQL_NULL_HENV;
  SQLHDBC m_connection = SQL_NULL_HDBC;
  SQLHSTMT m_statement = SQL_NULL_HSTMT;
  SQLRETURN m_connected = SQL_ERROR;
};

TEST_F(FaultDriverTest, WithoutOrdersEverythingIsAsWithoutIt) {
  std::string name;
  EXPECT_EQ(AddStation(), SQL_SUCCESS);
  EXPECT_EQ(ReadName(&name), SQL_SUCCESS);
  EXPECT_EQ(name, "-");
  EXPECT_EQ(NewStations(), 1);
  EXPECT_EQ(Driver().Happened(), 0);
}

TEST_F(FaultDriverTest, AnErrorHasTheStateAndNativeCodeThatWereOrdered) {
  Driver().Order("SQLExecDirect 1 error 40001 1213");
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(Diagnoses(), (std::vector<Diagnosis>{
                             {"40001", 1213}
  }));
  EXPECT_EQ(NewStations(), 0);
  EXPECT_EQ(Driver().Happened(), 1);
  EXPECT_STREQ(Driver().Last(), "SQLExecDirect");
  EXPECT_EQ(AddStation(), SQL_SUCCESS);
}

TEST_F(FaultDriverTest, AnErrorHasAsManyRecordsAsWereOrdered) {
  Driver().Order("SQLExecDirect 1 error 42000 7 records 3");
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(Diagnoses(), (std::vector<Diagnosis>{
                             {"42000", 7},
                             {"42000", 7},
                             {"42000", 7}
  }));
}

TEST_F(FaultDriverTest, AnErrorMayHaveNoRecordAtAll) {
  Driver().Order("SQLExecDirect 1 error records 0");
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(Diagnoses(), std::vector<Diagnosis>());
}

TEST_F(FaultDriverTest, AnErrorAfterwardsLeavesTheChangeInTheDatabase) {
  Driver().Order("SQLExecDirect 1 error after");
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(NewStations(), 1);
}

// One real driver would fail again, the connection being ended, and the handle could never be freed.
TEST_F(FaultDriverTest, ADisconnectingThatWasSaidToHaveFailedSucceedsWhenItIsAskedForAgain) {
  Driver().Order("SQLDisconnect 1 error after");
  SQLFreeHandle(SQL_HANDLE_STMT, m_statement);
  m_statement = SQL_NULL_HSTMT;
  EXPECT_EQ(SQLDisconnect(m_connection), SQL_ERROR);
  EXPECT_EQ(SQLDisconnect(m_connection), SQL_SUCCESS);
  EXPECT_EQ(SQLFreeHandle(SQL_HANDLE_DBC, m_connection), SQL_SUCCESS);
  EXPECT_EQ(SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection), SQL_SUCCESS);
}

TEST_F(FaultDriverTest, OrdersCountTheirOwnFunctionOrAllCalls) {
  Driver().Order("SQLExecDirect 2 error");
  EXPECT_EQ(AddStation(), SQL_SUCCESS);
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(AddStation(), SQL_SUCCESS);
  Driver().Order("call 1 error always");
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(AddStation(), SQL_ERROR);
  Driver().Forget();
  EXPECT_EQ(AddStation(), SQL_SUCCESS);
}

TEST_F(FaultDriverTest, ALostConnectionIsDeadForEveryLaterCall) {
  EXPECT_EQ(Dead(), SQLUINTEGER{SQL_CD_FALSE});
  Driver().Order("SQLExecDirect 1 lost");
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(Diagnoses(), (std::vector<Diagnosis>{
                             {"08S01", 0}
  }));
  EXPECT_EQ(Dead(), SQLUINTEGER{SQL_CD_TRUE});
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(Diagnoses(), (std::vector<Diagnosis>{
                             {"08S01", 0}
  }));
  EXPECT_EQ(NewStations(), 0);
  ConnectAgain({});
  EXPECT_EQ(AddStation(), SQL_SUCCESS);
}

TEST_F(FaultDriverTest, AConnectionLostAfterwardsHasDoneItsWork) {
  Driver().Order("SQLExecDirect 1 lost after");
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(Dead(), SQLUINTEGER{SQL_CD_TRUE});
  EXPECT_EQ(NewStations(), 1);
}

TEST_F(FaultDriverTest, WhatALostConnectionHadNotCommittedIsUndone) {
  SQLSetConnectAttr(m_connection, SQL_ATTR_AUTOCOMMIT, nullptr, SQL_IS_UINTEGER);
  ASSERT_EQ(AddStation(), SQL_SUCCESS);
  Driver().LoseConnections();
  EXPECT_EQ(NewStations(), 0);
  EXPECT_EQ(SQLEndTran(SQL_HANDLE_DBC, m_connection, SQL_COMMIT), SQL_ERROR);
  EXPECT_EQ(NewStations(), 0);
}

TEST_F(FaultDriverTest, ACallExecutesAsOftenAsOrderedAndIsThenMade) {
  Driver().ResetCounts();
  Driver().Order("SQLExecDirect 1 executing 3");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(AddStation(), SQL_STILL_EXECUTING);
  EXPECT_EQ(AddStation(), SQL_SUCCESS);
  EXPECT_EQ(NewStations(), 1);
  EXPECT_EQ(Driver().Calls("SQLExecDirect"), 1u);
}

TEST_F(FaultDriverTest, ACallThatExecutesEndlesslyCanBeCancelled) {
  Driver().Order("SQLExecDirect 1 executing endless");
  for (int i = 0; i < 30; ++i) ASSERT_EQ(AddStation(), SQL_STILL_EXECUTING);
  SQLCancel(m_statement);
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(Diagnoses(), (std::vector<Diagnosis>{
                             {"HY008", 0}
  }));
  EXPECT_EQ(NewStations(), 0);
  EXPECT_EQ(AddStation(), SQL_SUCCESS);
}

TEST_F(FaultDriverTest, InformationComesWithTheWorkDone) {
  Driver().Order("SQLExecDirect 1 info 01003 5");
  EXPECT_EQ(AddStation(), SQL_SUCCESS_WITH_INFO);
  EXPECT_EQ(Diagnoses(), (std::vector<Diagnosis>{
                             {"01003", 5}
  }));
  EXPECT_EQ(NewStations(), 1);
}

TEST_F(FaultDriverTest, NoDataIsAnsweredInsteadOfARow) {
  std::string name;
  Driver().Order("SQLFetch 1 nodata");
  EXPECT_EQ(ReadName(&name), SQL_NO_DATA);
  EXPECT_EQ(ReadName(&name), SQL_SUCCESS);
}

TEST_F(FaultDriverTest, NoDataAfterwardsHasTakenTheRow) {
  Execute("SELECT tStatSName FROM TStation WHERE tStatCulIntStatIDPk = 1");
  Driver().Order("SQLFetch 1 nodata after");
  EXPECT_EQ(SQLFetch(m_statement), SQL_NO_DATA);
  EXPECT_EQ(SQLFetch(m_statement), SQL_NO_DATA);
  EXPECT_EQ(Driver().Happened(), 1);
}

TEST_F(FaultDriverTest, TextsAreCutAndLengthened) {
  std::string name;
  Driver().Order("SQLGetData 1 cut 0");
  EXPECT_EQ(ReadName(&name), SQL_SUCCESS);
  EXPECT_EQ(name, "");
  Driver().Order("SQLGetData 1 lengthen 4");
  EXPECT_EQ(ReadName(&name), SQL_SUCCESS);
  EXPECT_EQ(name, "-++++");
  Driver().Order("SQLGetData 1 lengthen 4");
  EXPECT_EQ(ReadName(&name, 4), SQL_SUCCESS_WITH_INFO);
  EXPECT_EQ(name, "-++");
}

TEST_F(FaultDriverTest, BoundTextsAreLengthenedAndCutInTheFetch) {
  char text[20] = {};
  SQLLEN length = 0;
  SQLBindCol(m_statement, 1, SQL_C_CHAR, text, sizeof text, &length);
  Driver().Order("SQLFetch 1 lengthen 2");
  ASSERT_EQ(Execute("SELECT tStatSName FROM TStation WHERE tStatCulIntStatIDPk = 1"), SQL_SUCCESS);
  ASSERT_EQ(SQLFetch(m_statement), SQL_SUCCESS);
  EXPECT_STREQ(text, "-++");
  EXPECT_EQ(length, 3);
  SQLFreeStmt(m_statement, SQL_CLOSE);
  Driver().Order("SQLFetch 1 cut 0");
  ASSERT_EQ(Execute("SELECT tStatSName FROM TStation WHERE tStatCulIntStatIDPk = 1"), SQL_SUCCESS);
  ASSERT_EQ(SQLFetch(m_statement), SQL_SUCCESS);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(length, 0);
}

TEST_F(FaultDriverTest, ADelayedCallTakesItsTime) {
  Driver().Order("SQLExecDirect 1 delay 50");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(AddStation(), SQL_SUCCESS);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(50));
}

TEST_F(FaultDriverTest, CallsStatementsAndRequestsAreCounted) {
  Driver().ResetCounts();
  AddStation();
  SQLPrepare(m_statement, Chars("INSERT INTO TStation (tStatSName) VALUES ('new')"), SQL_NTS);
  SQLExecute(m_statement);
  SQLExecute(m_statement);
  EXPECT_EQ(Driver().Calls("SQLExecute"), 2u);
  EXPECT_EQ(Driver().Statements(), 3u);
  EXPECT_EQ(Driver().Requests(), 4u);
  EXPECT_GE(Driver().Calls(nullptr), 4u);
}

TEST_F(FaultDriverTest, HandlesAreCounted) {
  EXPECT_EQ(Driver().Handles(SQL_HANDLE_ENV), 1);
  EXPECT_EQ(Driver().Handles(SQL_HANDLE_DBC), 1);
  EXPECT_EQ(Driver().Handles(SQL_HANDLE_STMT), 1);
  EXPECT_EQ(Driver().Handles(0), 3);
}

TEST_F(FaultDriverTest, TheDataSourceGivesOrders) {
  ConnectAgain({
      {"KyFault",  "SQLExecDirect 1 error 42000 1"},
      {"KyFault1", "SQLExecDirect 2 error 42000 2"},
  });
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(Diagnoses(), (std::vector<Diagnosis>{
                             {"42000", 1}
  }));
  EXPECT_EQ(AddStation(), SQL_ERROR);
  EXPECT_EQ(Diagnoses(), (std::vector<Diagnosis>{
                             {"42000", 2}
  }));
}

TEST_F(FaultDriverTest, ASourceWithoutARealDriverOrWithAnOrderThatIsNoneIsRefused) {
  ConnectAgain({
      {"KyFault", "SQLExecDirect one error"}
  });
  EXPECT_EQ(m_connected, SQL_ERROR);
  EXPECT_EQ(Diagnoses(SQL_HANDLE_DBC, m_connection), (std::vector<Diagnosis>{
                                                         {"HY000", 0}
  }));
  const support::BrokenSource nothing(m_practice, {}, FaultDriverFile());
  EXPECT_THROW(support::RawOdbc("DSN=" + nothing.Dsn()), std::runtime_error);
}

TEST_F(FaultDriverTest, TextsThatAreNoOrdersAreRefused) {
  for (const char* text : {"", "call", "call 0 lost", "call x lost", "call 1", "call 1 explode",
                           "SQLExecute lost", "execute 1 lost", "call 1 delay", "call 1 cut -1",
                           "call 1 lost twice", "call 1 error records", "call 1 executing 0"}) {
    EXPECT_THROW(Driver().Order(text), std::runtime_error) << text;
  }
}

// What the driver says of itself where it is to say something else than the real one.
TEST_F(FaultDriverTest, ItTellsOtherCapabilitiesThanTheRealDriver) {
  ConnectAgain({
      {"KyFaultCapabilities",
       "no-transactions no-procedures no-static-cursors lower-case-names no-row-counts"}
  });
  SQLUSMALLINT number = 99;
  SQLUINTEGER bits = SQL_SO_STATIC;
  char text[10] = {};
  SQLGetInfo(m_connection, SQL_TXN_CAPABLE, &number, sizeof number, nullptr);
  EXPECT_EQ(number, SQL_TC_NONE);
  SQLGetInfo(m_connection, SQL_IDENTIFIER_CASE, &number, sizeof number, nullptr);
  EXPECT_EQ(number, SQL_IC_LOWER);
  SQLGetInfo(m_connection, SQL_SCROLL_OPTIONS, &bits, sizeof bits, nullptr);
  EXPECT_EQ(bits & SQL_SO_STATIC, 0u);
  SQLGetInfo(m_connection, SQL_PROCEDURES, text, sizeof text, nullptr);
  EXPECT_STREQ(text, "N");
  SQLLEN rows = 99;
  ASSERT_EQ(AddStation(), SQL_SUCCESS);
  SQLRowCount(m_statement, &rows);
  EXPECT_EQ(rows, -1);
}

TEST_F(FaultDriverTest, ItTellsTheOppositeCapabilitiesToo) {
  ConnectAgain({
      {"KyFaultCapabilities", "procedures upper-case-names zero-row-counts"}
  });
  SQLUSMALLINT number = 99;
  char text[10] = {};
  SQLGetInfo(m_connection, SQL_IDENTIFIER_CASE, &number, sizeof number, nullptr);
  EXPECT_EQ(number, SQL_IC_UPPER);
  SQLGetInfo(m_connection, SQL_PROCEDURES, text, sizeof text, nullptr);
  EXPECT_STREQ(text, "Y");
  SQLLEN rows = 99;
  ASSERT_EQ(AddStation(), SQL_SUCCESS);
  SQLRowCount(m_statement, &rows);
  EXPECT_EQ(rows, 0);
}

// A copy of its own, since the one that the tests use stays; and really unloaded, as nothing else is here.
TEST_F(FaultDriverTest, WhatIsNotFreedIsReportedWhenTheDriverIsUnloaded) {
  const std::filesystem::path copy = m_practice.Folder() / "copy.so";
  const std::filesystem::path report = m_practice.Folder() / "report.txt";
  std::filesystem::copy_file(FaultDriverFile(), copy);
  void* driver = dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(driver, nullptr) << dlerror();
  const auto allocate = reinterpret_cast<decltype(&SQLAllocHandle)>(dlsym(driver, "SQLAllocHandle"));
  static SQLHENV never_freed = SQL_NULL_HENV;
  ASSERT_EQ(allocate(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &never_freed), SQL_SUCCESS);
  setenv("KYFAULT_REPORT", report.c_str(), 1);
  const auto unload = reinterpret_cast<decltype(&dlclose)>(dlsym(RTLD_NEXT, "dlclose"));
  EXPECT_EQ(unload(driver), 0);
  unsetenv("KYFAULT_REPORT");
  std::ifstream lines(report);
  std::string line;
  EXPECT_TRUE(std::getline(lines, line));
  EXPECT_EQ(line, "kyfault: environments not freed: 1");
  EXPECT_FALSE(std::getline(lines, line));
}

}  // namespace
}  // namespace faults
