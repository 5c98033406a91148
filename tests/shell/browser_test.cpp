// What the keys do.
#include "tools/shell/browser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/shell/shell_case.h"
#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"

namespace shell_tests {
namespace {

using shell::Browser;
using shell::Key;

// A screen of 24 lines has three lines around the table and one of titles.
constexpr int kRows = 20;

class BrowserKeys : public SixtyPatients {
 protected:
  void SetUp() override {
    SixtyPatients::SetUp();
    m_browser = std::make_unique<Browser>(FindTable("patients"), shell::UsualWords(FindTable("patients")));
    m_browser->Resize(24, 80);
  }
  void TearDown() override {
    m_browser.reset();
    SixtyPatients::TearDown();
  }
  const shell::Pager& Main() const { return m_browser->Main().pager; }
  void ExpectMessage(const std::string& part) const {
    EXPECT_NE(m_browser->Message().find(part), std::string::npos) << m_browser->Message();
  }

  std::unique_ptr<Browser> m_browser;
};

TEST_F(BrowserKeys, ItStartsOnTheFirstNameWithAFullScreen) {
  EXPECT_EQ(Main().Count(), kPatients);
  EXPECT_EQ(NameAtCursor(Main()), "A00");
  ASSERT_EQ(Names(Main()).size(), kRows);
  for (int i = 0; i < kRows; ++i) EXPECT_EQ(Names(Main())[static_cast<std::size_t>(i)], NameOf(i));
}

TEST_F(BrowserKeys, ArrowsMoveByARowAndTheScreenFollows) {
  Press(*m_browser, Key::kUp);
  EXPECT_EQ(Main().Cursor(), 1);
  Press(*m_browser, Key::kDown, kRows - 1);
  EXPECT_EQ(Main().First(), 1);
  EXPECT_EQ(NameAtCursor(Main()), NameOf(kRows - 1));
  Press(*m_browser, Key::kDown);
  EXPECT_EQ(Main().First(), 2);
  EXPECT_EQ(NameAtCursor(Main()), NameOf(kRows));
  Press(*m_browser, Key::kUp, kRows);
  EXPECT_EQ(Main().First(), 1);
  EXPECT_EQ(NameAtCursor(Main()), "A00");
}

TEST_F(BrowserKeys, PageKeysTurnWholePagesAndEndAtTheEnds) {
  Press(*m_browser, Key::kPageDown);
  EXPECT_EQ(Names(Main()).front(), NameOf(20));
  EXPECT_EQ(NameAtCursor(Main()), NameOf(20));
  Press(*m_browser, Key::kPageDown, 5);
  EXPECT_EQ(Names(Main()).back(), NameOf(59));
  EXPECT_EQ(Names(Main()).size(), kRows);
  EXPECT_EQ(NameAtCursor(Main()), NameOf(59));
  Press(*m_browser, Key::kPageUp, 9);
  EXPECT_EQ(NameAtCursor(Main()), NameOf(0));
}

TEST_F(BrowserKeys, HomeAndEndGoToTheFirstAndTheLastRow) {
  Press(*m_browser, Key::kEnd);
  EXPECT_EQ(NameAtCursor(Main()), "T59");
  EXPECT_EQ(Main().Cursor(), kPatients);
  Press(*m_browser, Key::kHome);
  EXPECT_EQ(NameAtCursor(Main()), "A00");
}

TEST_F(BrowserKeys, AFilterLineLeavesTheRowsThatPassAndAnEmptyOneAllOfThem) {
  Enter(*m_browser, "f", "name like C% or name = T59");
  EXPECT_EQ(Names(Main()), (std::vector<std::string>{"C06", "C07", "C08", "T59"}));
  EXPECT_EQ(Main().OpenedWith().filter, "name like C% or name = T59");
  Enter(*m_browser, "f", "");
  EXPECT_EQ(Main().Count(), kPatients);
}

TEST_F(BrowserKeys, AFilterThatMakesNoSenseIsExplainedAndTheRowsStay) {
  Press(*m_browser, Key::kDown, 3);
  Enter(*m_browser, "f", "colour = red");
  ExpectMessage("there is no field 'colour' here");
  EXPECT_EQ(Main().Count(), kPatients);
  EXPECT_EQ(NameAtCursor(Main()), "B03");
  Press(*m_browser, Key::kDown);
  EXPECT_EQ(m_browser->Message(), "");
}

TEST_F(BrowserKeys, AFilterThatNothingPassesShowsAnEmptyTableThatCanBeLeft) {
  Enter(*m_browser, "f", "name = Nobody");
  EXPECT_EQ(Main().Count(), 0);
  EXPECT_EQ(Main().Cursor(), 0);
  EXPECT_TRUE(Main().Rows().empty());
  for (const Key key : {Key::kDown, Key::kUp, Key::kPageDown, Key::kEnd, Key::kHome, Key::kEnter}) {
    Press(*m_browser, key);
    EXPECT_EQ(m_browser->Message(), "");
  }
  EXPECT_EQ(m_browser->Page(), nullptr);
  Enter(*m_browser, "f", "");
  EXPECT_EQ(NameAtCursor(Main()), "A00");
}

TEST_F(BrowserKeys, EscapeLeavesALineWithoutAnyEffect) {
  Type(*m_browser, "fqt");
  ASSERT_NE(m_browser->Typing(), nullptr);
  EXPECT_EQ(m_browser->Typing()->Text(), "qt");
  Press(*m_browser, Key::kEscape);
  EXPECT_EQ(m_browser->Typing(), nullptr);
  EXPECT_EQ(Main().OpenedWith().filter, "");
  EXPECT_FALSE(m_browser->Ended());
}

TEST_F(BrowserKeys, ASortLineSortsAndKeepsTheFilter) {
  Enter(*m_browser, "f", "name like C%");
  Enter(*m_browser, "s", "-name");
  EXPECT_EQ(Names(Main()), (std::vector<std::string>{"C08", "C07", "C06"}));
  Enter(*m_browser, "s", "name,nothing");
  ExpectMessage("there is no field 'nothing' here");
  EXPECT_EQ(Main().OpenedWith().sort, "-name");
  Enter(*m_browser, "s", "");
  EXPECT_EQ(Main().OpenedWith().sort, "name,firstname");
}

TEST_F(BrowserKeys, TheSelectedColumnSortsAndOnceMoreInDescendingOrder) {
  EXPECT_STREQ(m_browser->Main().columns.SelectedTitle(), "key");
  Type(*m_browser, "o");
  EXPECT_EQ(Main().OpenedWith().sort, "key");
  EXPECT_EQ(NameAtCursor(Main()), "A00");
  EXPECT_EQ(Names(Main())[1], NameOf(7));
  Type(*m_browser, "o");
  EXPECT_EQ(Main().OpenedWith().sort, "-key");
  EXPECT_EQ(NameAtCursor(Main()), NameOf(53));
  Press(*m_browser, Key::kRight);
  Type(*m_browser, "o");
  EXPECT_EQ(Main().OpenedWith().sort, m_browser->Main().columns.SelectedTitle());
}

TEST_F(BrowserKeys, ACapitalLetterJumpsToTheFirstNameThatBeginsSo) {
  Type(*m_browser, "K");
  EXPECT_EQ(NameAtCursor(Main()), "K30");
  Type(*m_browser, "A");
  EXPECT_EQ(NameAtCursor(Main()), "A00");
  Enter(*m_browser, "j", "K31");
  EXPECT_EQ(NameAtCursor(Main()), "K31");
}

TEST_F(BrowserKeys, ALetterBehindAllNamesGoesToTheLastRowAndSaysSo) {
  Type(*m_browser, "Z");
  EXPECT_EQ(NameAtCursor(Main()), "T59");
  ExpectMessage("nothing from 'Z' on");
}

TEST_F(BrowserKeys, WhereTheOrderDoesNotAllowAJumpItIsExplained) {
  Enter(*m_browser, "s", "-name");
  Type(*m_browser, "K");
  ExpectMessage("ascending order that begins with a text");
  Enter(*m_browser, "s", "birthday");
  Type(*m_browser, "K");
  ExpectMessage("ascending order that begins with a text");
  EXPECT_EQ(Main().Cursor(), 1);
}

TEST_F(BrowserKeys, ARowIsReachedByItsNumber) {
  Enter(*m_browser, "g", "33");
  EXPECT_EQ(NameAtCursor(Main()), NameOf(32));
  Enter(*m_browser, "g", "1000");
  EXPECT_EQ(NameAtCursor(Main()), "T59");
  Enter(*m_browser, "g", "x");
  ExpectMessage("'x' is no number of a row");
}

TEST_F(BrowserKeys, ImagesAreThoseOfThePatientAtTheCursorTheNewestFirst) {
  EXPECT_FALSE(m_browser->ImagesAreLate());
  Type(*m_browser, "i");
  ASSERT_TRUE(m_browser->ImagesAreLate());
  m_browser->BringImages();
  EXPECT_FALSE(m_browser->ImagesAreLate());
  const shell::Pager& images = m_browser->Images()->pager;
  ASSERT_EQ(images.Count(), 5);
  const auto* newest = reinterpret_cast<const tagTIMAGE*>(images.Here()->record.data());
  EXPECT_EQ(support::Text(newest->szName), "of 2005");
  Press(*m_browser, Key::kDown);
  ASSERT_TRUE(m_browser->ImagesAreLate());
  m_browser->BringImages();
  EXPECT_EQ(images.Count(), 0);
  EXPECT_NE(m_browser->ImagesTitle().find("none"), std::string::npos);
  Press(*m_browser, Key::kDown);
  m_browser->BringImages();
  EXPECT_EQ(images.Count(), 1);
  Type(*m_browser, "i");
  EXPECT_EQ(m_browser->Images(), nullptr);
  EXPECT_FALSE(m_browser->ImagesAreLate());
}

TEST_F(BrowserKeys, TabGoesToTheImagesAndThePatientStays) {
  Press(*m_browser, Key::kTab);
  EXPECT_FALSE(m_browser->InImages());
  Type(*m_browser, "i");
  m_browser->BringImages();
  Press(*m_browser, Key::kTab);
  EXPECT_TRUE(m_browser->InImages());
  Press(*m_browser, Key::kDown, 2);
  EXPECT_EQ(m_browser->Images()->pager.Cursor(), 3);
  EXPECT_EQ(Main().Cursor(), 1);
  Press(*m_browser, Key::kEnter);
  ASSERT_NE(m_browser->Page(), nullptr);
  EXPECT_EQ(m_browser->Page()->Title().substr(0, 6), "image ");
  Press(*m_browser, Key::kEscape);
  Press(*m_browser, Key::kTab);
  Press(*m_browser, Key::kDown);
  EXPECT_EQ(Main().Cursor(), 2);
}

TEST_F(BrowserKeys, TheFilterOfPatientsIsKeptWhileImagesAreShown) {
  Enter(*m_browser, "f", "name like A%");
  Type(*m_browser, "i");
  m_browser->BringImages();
  Press(*m_browser, Key::kDown, 2);
  m_browser->BringImages();
  EXPECT_EQ(Names(Main()), (std::vector<std::string>{"A00", "A01", "A02"}));
  EXPECT_EQ(m_browser->Images()->pager.Count(), 1);
}

TEST_F(BrowserKeys, ATableIsChosenFromAllElevenAndHasNoImagesBeside) {
  Type(*m_browser, "i");
  m_browser->BringImages();
  Type(*m_browser, "t");
  ASSERT_NE(m_browser->Page(), nullptr);
  EXPECT_EQ(m_browser->Page()->Visible().size(), 11u);
  EXPECT_EQ(m_browser->Page()->Visible()[m_browser->Page()->Selected()], "patients");
  Press(*m_browser, Key::kDown, 3);
  Press(*m_browser, Key::kEnter);
  EXPECT_STREQ(Main().Of().plural, "images");
  EXPECT_EQ(Main().Count(), 6);
  EXPECT_EQ(m_browser->Images(), nullptr);
  Type(*m_browser, "i");
  ExpectMessage("images are shown beside patients");
  Type(*m_browser, "K");
  ExpectMessage("jumping works in the patients only");
}

TEST_F(BrowserKeys, EveryTableOpens) {
  for (const Table* table : shell::AllTables()) {
    Type(*m_browser, "t");
    Press(*m_browser, Key::kHome);
    while (m_browser->Page()->Visible()[m_browser->Page()->Selected()] != table->plural) {
      Press(*m_browser, Key::kDown);
    }
    Press(*m_browser, Key::kEnter);
    EXPECT_EQ(m_browser->Message(), "");
    EXPECT_STREQ(Main().Of().plural, table->plural);
    LONG count = 0;
    EXPECT_EQ(table->count(&count), 0);
    EXPECT_EQ(Main().Count(), count);
    Press(*m_browser, Key::kEnd);
    Type(*m_browser, "r");
    EXPECT_EQ(Main().Cursor(), count);
  }
}

TEST_F(BrowserKeys, EnterShowsAllFieldsOfTheRowAndEscapeTheTableAgain) {
  Press(*m_browser, Key::kDown);
  Press(*m_browser, Key::kEnter);
  ASSERT_NE(m_browser->Page(), nullptr);
  std::string page;
  for (const std::string& line : m_browser->Page()->Visible()) page += line + '\n';
  for (const char* part : {"A01", "First", "1970-01-02"}) {
    EXPECT_NE(page.find(part), std::string::npos) << page;
  }
  Press(*m_browser, Key::kEscape);
  EXPECT_EQ(m_browser->Page(), nullptr);
  EXPECT_EQ(NameAtCursor(Main()), "A01");
}

TEST_F(BrowserKeys, HelpNamesEveryLetterThatDoesSomething) {
  Type(*m_browser, "?");
  ASSERT_NE(m_browser->Page(), nullptr);
  m_browser->Resize(60, 80);
  std::string page;
  for (const std::string& line : m_browser->Page()->Visible()) page += line.substr(0, 12) + '\n';
  for (const char* key : {"Up, Down", "PgUp, PgDn", "Home, End", "Enter", "Tab"}) {
    EXPECT_NE(page.find(key), std::string::npos) << page;
  }
  for (const char letter : std::string("jgfsotir?q")) {
    EXPECT_NE(page.find(std::string("\n") + letter + ' '), std::string::npos) << letter;
  }
}

TEST_F(BrowserKeys, QuitEndsAndOnAPageItOnlyLeavesThePage) {
  Type(*m_browser, "?q");
  EXPECT_FALSE(m_browser->Ended());
  Type(*m_browser, "q");
  EXPECT_TRUE(m_browser->Ended());
}

TEST_F(BrowserKeys, ANewSizeKeepsTheRowInSight) {
  Press(*m_browser, Key::kEnd);
  m_browser->Resize(14, 80);
  EXPECT_EQ(NameAtCursor(Main()), "T59");
  EXPECT_EQ(Names(Main()).size(), 10u);
  m_browser->Resize(54, 80);
  EXPECT_EQ(Names(Main()).size(), 50u);
  EXPECT_EQ(Names(Main()).back(), "T59");
  m_browser->Resize(5, 20);
  EXPECT_FALSE(m_browser->Places().fits);
  m_browser->Resize(24, 80);
  EXPECT_EQ(NameAtCursor(Main()), "T59");
}

TEST_F(BrowserKeys, ImagesStandBesideAWideTableAndBelowANarrowOne) {
  Type(*m_browser, "i");
  EXPECT_FALSE(m_browser->Places().ImagesBeside());
  EXPECT_LT(Names(Main()).size(), kRows / 2);
  m_browser->Resize(24, 140);
  EXPECT_TRUE(m_browser->Places().ImagesBeside());
  EXPECT_EQ(Names(Main()).size(), kRows);
}

TEST_F(BrowserKeys, LinesEnteredBeforeComeBackAndFieldsAreCompleted) {
  Enter(*m_browser, "f", "name like C%");
  Enter(*m_browser, "f", "");
  Type(*m_browser, "f");
  Press(*m_browser, Key::kUp);
  EXPECT_EQ(m_browser->Typing()->Text(), "name like C%");
  Press(*m_browser, Key::kEraseLine);
  Type(*m_browser, "birt");
  Press(*m_browser, Key::kTab);
  EXPECT_EQ(m_browser->Typing()->Text(), "birthday ");
}

}  // namespace
}  // namespace shell_tests
