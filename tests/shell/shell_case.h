// A practice with sixty patients for the parts of the browser, and ways to press its keys and read it.
#ifndef KYODBC_TESTS_SHELL_SHELL_CASE_H
#define KYODBC_TESTS_SHELL_SHELL_CASE_H

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "tests/support/fixtures.h"
#include "tools/shell/browser.h"

namespace shell_tests {

constexpr int kPatients = 60;

// Three for each letter from A to T: A00, A01, A02, B03, ..., T59. Their order by key is another one.
std::string NameOf(int patient);
// Adds one patient. Gives the key.
LONG AddPatient(const std::string& name, const std::string& first_name = "First");
void AddImage(LONG patient, int year);

// One practice for all tests of a suite, connected for each. The first patient, A00, has the images of 2001
// to 2005, the second one has none and the third one has that of 2010.
class SixtyPatients : public testing::Test {
 public:
  static void SetUpTestSuite();
  static void TearDownTestSuite();

 protected:
  void SetUp() override;
  void TearDown() override { EXPECT_EQ(DB_CloseDatabase(), 0); }

  static std::unique_ptr<support::Practice> m_practice;
};

// The same rows in a practice that the test may change.
class OwnPatients : public support::ConnectedTest {
 protected:
  OwnPatients() : ConnectedTest({.with_owner = false}) {}
  void SetUp() override;
};

void AddSixtyPatients();

void Press(shell::Browser& browser, shell::Key key, int times = 1);
// One character after the other.
void Type(shell::Browser& browser, const std::string& text);
// Types the line that the letter asks for, in place of what stands there.
void Enter(shell::Browser& browser, const std::string& letter, const std::string& line);

std::string NameAtCursor(const shell::Pager& pager);
std::vector<std::string> Names(const shell::Pager& pager);

}  // namespace shell_tests

#endif
