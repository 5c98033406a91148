#include "tests/shell/shell_case.h"

#include <cstdio>

#include "tests/support/records.h"

namespace shell_tests {

using shell::Key;

std::unique_ptr<support::Practice> SixtyPatients::m_practice;

std::string NameOf(int patient) {
  char name[4] = {};
  std::snprintf(name, sizeof name, "%c%02d", 'A' + patient / 3, patient);
  return name;
}

LONG AddPatient(const std::string& name, const std::string& first_name) {
  tagTPATIENT patient{};
  patient.lDrID = 1;
  support::SetText(patient.szName, name);
  support::SetText(patient.szFirstname, first_name);
  support::SetText(patient.szSex, "f");
  patient.dBirthday = support::Ts(1970, 1, 2);
  EXPECT_EQ(DB_AddNewTPat(&patient), 0);
  return patient.lPatID;
}

void AddImage(LONG patient, int year) {
  tagTIMAGE image{};
  image.lPatID = patient;
  image.lDrID = 1;
  image.lUnitID = 1;
  support::SetText(image.szName, "of " + std::to_string(year));
  image.ts = support::Ts(year, 1, 2, 3, 4, 5);
  EXPECT_EQ(DB_AddNewTImg(&image), 0);
}

void AddSixtyPatients() {
  constexpr int kStride = 7;  // has no factor in common with their number
  for (int i = 0; i < kPatients; ++i) {
    const int patient = i * kStride % kPatients;
    const LONG key = AddPatient(NameOf(patient));
    if (patient == 2) AddImage(key, 2010);
    for (int year = 2001; patient == 0 && year <= 2005; ++year) AddImage(key, year);
  }
}

void SixtyPatients::SetUpTestSuite() {
  m_practice = std::make_unique<support::Practice>();
  const tagDBCONNECT parameters = m_practice->Parameters();
  ASSERT_EQ(DB_InitDatabase(&parameters), 0);
  AddSixtyPatients();
  ASSERT_EQ(DB_CloseDatabase(), 0);
}

void SixtyPatients::TearDownTestSuite() { m_practice.reset(); }

void SixtyPatients::SetUp() {
  const tagDBCONNECT parameters = m_practice->Parameters();
  ASSERT_EQ(DB_InitDatabase(&parameters), 0);
}

void OwnPatients::SetUp() {
  ConnectedTest::SetUp();
  AddSixtyPatients();
}

void Press(shell::Browser& browser, Key key, int times) {
  for (int i = 0; i < times; ++i) browser.Press({key, {}});
}

void Type(shell::Browser& browser, const std::string& text) {
  for (const char c : text) browser.Press({Key::kText, std::string(1, c)});
}

void Enter(shell::Browser& browser, const std::string& letter, const std::string& line) {
  Type(browser, letter);
  Press(browser, Key::kEraseLine);
  Type(browser, line);
  Press(browser, Key::kEnter);
}

std::string NameAtCursor(const shell::Pager& pager) {
  const shell::Row* row = pager.Here();
  if (row == nullptr || row->Gone()) return {};
  return support::Text(reinterpret_cast<const tagTPATIENT*>(row->record.data())->szName);
}

std::vector<std::string> Names(const shell::Pager& pager) {
  std::vector<std::string> names;
  for (const shell::Row& row : pager.Rows()) {
    names.push_back(
        row.Gone() ? "gone" : support::Text(reinterpret_cast<const tagTPATIENT*>(row.record.data())->szName));
  }
  return names;
}

}  // namespace shell_tests
