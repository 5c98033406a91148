// What the browser does when rows change under it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/shell/shell_case.h"
#include "tools/shell/browser.h"

namespace shell_tests {
namespace {

using shell::Browser;
using shell::Key;
using shell::Words;

class RowsChange : public OwnPatients {
 protected:
  void Delete(const std::string& name) {
    Raw().Exec("DELETE FROM TPatient WHERE tPatSName = '" + name + "'");
  }
};

Words ByName() { return {"", "name"}; }

TEST_F(RowsChange, OnlyTheRowsInSightAreRead) {
  shell::Pager pager(FindTable("patients"));
  pager.Open(ByName());
  pager.ShowRows(10);
  // Whoever had read these rows already would show what they held then.
  Raw().Exec("UPDATE TPatient SET tPatSName = 'changed'");
  EXPECT_EQ(Names(pager).front(), "A00");
  pager.GoTo(40);
  EXPECT_EQ(Names(pager), std::vector<std::string>(10, "changed"));
}

TEST_F(RowsChange, RowsThatAreScrolledIntoSightAreReadAndTheOthersStay) {
  shell::Pager pager(FindTable("patients"));
  pager.Open(ByName());
  pager.ShowRows(5);
  pager.GoTo(40);
  Raw().Exec("UPDATE TPatient SET tPatSName = 'changed'");
  pager.Move(-6);
  EXPECT_EQ(Names(pager),
            (std::vector<std::string>{"changed", "changed", NameOf(35), NameOf(36), NameOf(37)}));
}

TEST_F(RowsChange, ADeletedRowKeepsItsPlaceUntilTheSetIsReadAgain) {
  Delete("B04");
  shell::Pager pager(FindTable("patients"));
  pager.Open(ByName());
  pager.ShowRows(3);
  Delete("F17");
  Delete("F15");
  pager.GoTo(17);  // without B04, F15 is row 15
  EXPECT_EQ(pager.First(), 15);
  EXPECT_EQ(Names(pager), (std::vector<std::string>{"gone", "F16", "gone"}));
  pager.Reload();
  EXPECT_EQ(pager.Count(), kPatients - 3);
  for (const std::string& name : Names(pager)) EXPECT_NE(name, "gone");
}

TEST_F(RowsChange, AfterAReloadTheUserIsOnTheSameRow) {
  Browser browser(FindTable("patients"), ByName());
  browser.Resize(24, 80);
  Type(browser, "K");
  const LONG before = browser.Main().pager.Cursor();
  for (const char* name : {"A00", "A01", "B03"}) Delete(name);
  Type(browser, "r");
  EXPECT_EQ(NameAtCursor(browser.Main().pager), "K30");
  EXPECT_EQ(browser.Main().pager.Cursor(), before - 3);
  EXPECT_EQ(browser.Main().pager.Count(), kPatients - 3);
}

TEST_F(RowsChange, AfterAReloadWithoutTheRowTheUserIsNearby) {
  Browser browser(FindTable("patients"), ByName());
  browser.Resize(24, 80);
  Press(browser, Key::kEnd);
  Delete("T59");
  Type(browser, "r");
  EXPECT_EQ(NameAtCursor(browser.Main().pager), "T58");
}

TEST_F(RowsChange, ARowIsFoundByItsKeyInEveryTable) {
  for (int i = 1; i <= 30; ++i) {
    tagTSTATION station{};
    support::SetText(station.szName, "Room" + std::to_string(i));
    ASSERT_EQ(DB_AddNewTStat(&station), 0);
  }
  shell::Pager pager(FindTable("stations"));
  pager.Open({"", "key"});
  pager.ShowRows(5);
  pager.GoTo(20);
  const LONG key = pager.Here()->Key();
  Raw().Exec("DELETE FROM TStation WHERE tStatSName IN ('Room1', 'Room2')");
  pager.Reload();
  EXPECT_EQ(pager.Here()->Key(), key);
  EXPECT_EQ(pager.Cursor(), 18);
}

TEST_F(RowsChange, AFilterThatTheDatabaseRefusesLeavesTheOldOne) {
  Browser browser(FindTable("patients"), ByName());
  browser.Resize(24, 80);
  Enter(browser, "f", "name like C%");
  TakeAway("TPatient");
  Enter(browser, "f", "name like D%");
  EXPECT_NE(browser.Message(), "");
  EXPECT_EQ(browser.Main().pager.OpenedWith().filter, "name like C%");
  EXPECT_EQ(Names(browser.Main().pager), (std::vector<std::string>{"C06", "C07", "C08"}));
  BringBackReadOnly("TPatient");
  Type(browser, "r");
  EXPECT_EQ(Names(browser.Main().pager), (std::vector<std::string>{"C06", "C07", "C08"}));
  Enter(browser, "f", "name like D%");
  EXPECT_EQ(NameAtCursor(browser.Main().pager), "D09");
}

}  // namespace
}  // namespace shell_tests
