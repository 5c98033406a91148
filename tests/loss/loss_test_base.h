// A practice on a server of this program's own, connected through a relay that loses connections.
#ifndef KYODBC_TESTS_LOSS_LOSS_TEST_BASE_H
#define KYODBC_TESTS_LOSS_LOSS_TEST_BASE_H

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "tests/support/own_server.h"
#include "tests/support/practice.h"
#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"
#include "tests/support/relay.h"

namespace loss {

using Seconds = std::chrono::duration<double>;

// The one server of this program, started before the first test. KYODBC_TEST_DB chooses which.
support::OwnServer& Server();
bool OnPostgresql();

// How much longer than usual the loops run: KYODBC_TEST_ROUNDS, 1 without it.
int Rounds();

// Runs `call` and tells how long it took.
template <class Call>
Seconds Time(Call call) {
  const auto start = std::chrono::steady_clock::now();
  call();
  return std::chrono::steady_clock::now() - start;
}

// One practice for all tests of a suite; each test starts connected through the relay, with what it needs of
// rows, and ends with the server running.
class LossTest : public testing::Test {
 public:
  static void SetUpTestSuite();
  static void TearDownTestSuite();

 protected:
  void SetUp() override;
  void TearDown() override;

  // What the data source through the relay has beside the usual options.
  virtual support::Options MoreOptions() const { return {}; }
  WORD Connect();  // through the relay

  // The tests' own connection, past the library and past the relay; made when first asked for.
  support::RawOdbc& Raw();
  void DropRaw() { m_raw.reset(); }  // before the server ends

  // Ends the library's session at the server, as an administrator does.
  void EndSession();
  // Waits until the server has ended the sessions from these ports of the relay, and whatever they were at.
  void WaitForEndOf(const std::vector<int>& ports);

  // The patients' set opens with the rows there, first with DB_OpenTPat, then with DB_OpenPatEx; the other
  // sets open again too; the library has no transaction.
  void ExpectHealed();

  support::Relay& TheRelay() { return *m_relay; }

  static std::unique_ptr<support::Practice> m_practice;
  LONG m_patient = 0;  // key of the one patient there is, named "Lost" with first name "Before"
  std::unique_ptr<support::Relay> m_relay;

 private:
  std::string m_source;
  std::unique_ptr<support::RawOdbc> m_raw;
};

// A patient's record with these names and a birthday.
tagTPATIENT Patient(const std::string& name, const std::string& first_name);

}  // namespace loss

#endif
