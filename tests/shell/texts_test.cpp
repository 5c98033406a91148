// Columns, lines being typed, completion and the places on the screen: what needs no practice.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/records.h"
#include "tools/shell/columns.h"
#include "tools/shell/completion.h"
#include "tools/shell/history_file.h"
#include "tools/shell/input_line.h"
#include "tools/shell/layout.h"
#include "tools/shell/text_page.h"
#include "tools/text_table.h"

namespace shell_tests {
namespace {

namespace fs = std::filesystem;
using shell::Columns;
using shell::InputLine;
using shell::Key;
using shell::Row;
using Texts = std::vector<std::string>;

Row Patient(LONG key, const std::string& name, const std::string& first_name) {
  tagTPATIENT patient{};
  patient.lPatID = key;
  support::SetText(patient.szName, name);
  support::SetText(patient.szFirstname, first_name);
  Row row{1, std::vector<char>(sizeof patient)};
  std::memcpy(row.record.data(), &patient, sizeof patient);
  return row;
}

std::size_t PlaceOf(const std::vector<shell::Cell>& cells, std::size_t column) { return cells.at(column).x; }

TEST(ShellColumns, StandUnderEachOtherWhateverTheScript) {
  const std::vector<Row> rows = {Patient(1, "Ng", "plain"), Patient(22, "山田太郎", "wide"),
                                 Patient(333, "Ze\u0301le\u0301a", "combining")};
  Columns columns(FindTable("patients"));
  columns.See(rows);
  columns.Fit(80);
  const std::size_t first_name = PlaceOf(columns.Titles(), 2);
  EXPECT_EQ(PlaceOf(columns.Titles(), 1), 3u + 2u);             // "333" and the gap
  EXPECT_EQ(first_name, PlaceOf(columns.Titles(), 1) + 8 + 2);  // four wide characters
  for (const Row& row : rows) EXPECT_EQ(PlaceOf(columns.Line(row), 2), first_name);
  EXPECT_EQ(columns.Line(rows[0])[0].text, "  1");
}

TEST(ShellColumns, ALineNeverIsWiderThanTheScreen) {
  const Row row = Patient(1, "A very long name beyond", "First names of great length");
  Columns columns(FindTable("patients"));
  columns.See({row});
  for (const std::size_t width : {1u, 2u, 5u, 20u, 33u, 79u}) {
    columns.Fit(width);
    for (const shell::Cell& cell : columns.Line(row)) {
      EXPECT_LE(cell.x + DisplayWidth(cell.text), width) << cell.text;
    }
  }
}

TEST(ShellColumns, TheSelectedOneIsAlwaysInSight) {
  Columns columns(FindTable("patients"));
  columns.Fit(30);
  Texts seen;
  for (int i = 0; i < 20; ++i) {
    bool in_sight = false;
    for (const shell::Cell& cell : columns.Titles()) {
      in_sight = in_sight || (cell.column == columns.Selected() && cell.text == columns.SelectedTitle());
    }
    EXPECT_TRUE(in_sight) << columns.SelectedTitle();
    seen.emplace_back(columns.SelectedTitle());
    columns.Select(1);
  }
  for (const char* title : {"key", "name", "social-id", "entry"}) {
    EXPECT_NE(std::find(seen.begin(), seen.end(), title), seen.end()) << title;
  }
  columns.Select(-100);
  EXPECT_STREQ(columns.SelectedTitle(), "key");
}

TEST(ShellColumns, WhatCouldSteerTheTerminalIsNotShown) {
  Columns columns(FindTable("patients"));
  const Row row = Patient(1, "a\x1b[2Jb", "two\nlines");
  columns.See({row});
  EXPECT_EQ(columns.Line(row)[1].text, "a\uFFFD[2Jb");
  EXPECT_EQ(columns.Line(row)[2].text, "two lines");
}

TEST(ShellDetails, LongValuesGoOnInTheNextLineBehindTheTitles) {
  const Texts lines = shell::Details(FindTable("patients"), Patient(7, "Abcdefghijklmnopqrs", "x"), 24);
  EXPECT_EQ(lines[0], "key           7");
  EXPECT_EQ(lines[1], "name          Abcdefghij");
  EXPECT_EQ(lines[2], "              klmnopqrs");
  for (const std::string& line : lines) EXPECT_LE(DisplayWidth(line), 24u);
}

TEST(ShellCompletion, AFilterIsCompletedByWhatCanComeNext) {
  const FieldIds fields = FindTable("patients").fields;
  const auto words = [&](const std::string& text) { return shell::CompleteFilter(text, fields).words; };
  EXPECT_EQ(words("na"), Texts{"name"});
  EXPECT_EQ(words("name l"), Texts{"like"});
  EXPECT_EQ(words("name like M"), Texts{});
  EXPECT_EQ(words("name like M% "), (Texts{"and", "or"}));
  EXPECT_EQ(words("name = 'van d"), Texts{});
  EXPECT_EQ(words("name = 'van der Berg' a"), Texts{"and"});
  EXPECT_EQ(words("birthday between 2001-01-01 "), Texts{"and"});
  EXPECT_EQ(words("birthday between 2001-01-01 and 2002-01-01 o"), Texts{"or"});
  EXPECT_EQ(words("name like M% and fi"), Texts{"firstname"});
  EXPECT_EQ(shell::Completed("name like M% and fi", shell::CompleteFilter("name like M% and fi", fields)),
            "name like M% and firstname ");
}

TEST(ShellCompletion, ASortOrderIsCompletedFieldByField) {
  const FieldIds fields = FindTable("patients").fields;
  EXPECT_EQ(shell::CompleteSort("name,-bi", fields).words, Texts{"birthday"});
  EXPECT_EQ(shell::Completed("name,-bi", shell::CompleteSort("name,-bi", fields)), "name,-birthday ");
  EXPECT_EQ(shell::Completed("display-", shell::CompleteSort("display-", fields)), "display-id ");
  EXPECT_EQ(shell::Completed("s", shell::CompleteSort("s", fields)), "s");
}

class ShellInput : public testing::Test {
 protected:
  void Press(Key key) { m_line.Press({key, {}}); }
  void Type(const std::string& character) { m_line.Press({Key::kText, character}); }

  shell::History m_history = {"older", "newer"};
  InputLine m_line{"filter: ", "", m_history};
};

TEST_F(ShellInput, CharactersAreMovedOverAndErasedWhole) {
  for (const char* character : {"Z", "ö", "é", "山"}) Type(character);
  Press(Key::kLeft);
  EXPECT_EQ(m_line.BeforeCursor(), "Zöé");
  Press(Key::kBackspace);
  EXPECT_EQ(m_line.Text(), "Zö山");
  Press(Key::kDelete);
  Press(Key::kDelete);
  EXPECT_EQ(m_line.Text(), "Zö");
  Press(Key::kHome);
  Press(Key::kBackspace);
  Press(Key::kLeft);
  Type("A");
  EXPECT_EQ(m_line.Text(), "AZö");
  Press(Key::kEnd);
  Press(Key::kRight);
  Press(Key::kBackspace);
  EXPECT_EQ(m_line.Text(), "AZ");
  Press(Key::kEraseLine);
  EXPECT_EQ(m_line.Text(), "");
}

TEST_F(ShellInput, EarlierLinesComeBackAndTheNewOneIsKept) {
  Type("n");
  Press(Key::kUp);
  EXPECT_EQ(m_line.Text(), "newer");
  Press(Key::kUp);
  Press(Key::kUp);
  EXPECT_EQ(m_line.Text(), "older");
  Press(Key::kDown);
  Press(Key::kDown);
  Press(Key::kDown);
  EXPECT_EQ(m_line.Text(), "n");
}

TEST_F(ShellInput, ALineIsRememberedOnceInARow) {
  Type("x");
  m_line.Remember();
  m_line.Remember();
  EXPECT_EQ(m_history, (shell::History{"older", "newer", "x"}));
}

TEST(ShellLayout, NothingOverlapsAndNothingLeavesTheScreen) {
  for (int lines = 10; lines < 70; lines += 7) {
    for (int columns = 30; columns < 200; columns += 13) {
      for (const bool with_images : {false, true}) {
        const shell::Layout layout = shell::LayOut(lines, columns, with_images);
        EXPECT_TRUE(layout.fits);
        EXPECT_LE(layout.table.y + layout.table.height, layout.status);
        EXPECT_LE(layout.images.y + layout.images.height, layout.status);
        EXPECT_LE(layout.images.x + layout.images.width, columns);
        EXPECT_EQ(layout.bottom, lines - 1);
        if (!with_images) continue;
        EXPECT_GE(layout.images.height, 3);  // two lines of titles and a row
        const bool beside = layout.table.x + layout.table.width < layout.images.x;
        const bool below = layout.table.y + layout.table.height < layout.images.y;
        EXPECT_NE(beside, below);
      }
    }
  }
  EXPECT_FALSE(shell::LayOut(9, 80, false).fits);
  EXPECT_FALSE(shell::LayOut(24, 29, false).fits);
}

TEST(ShellTextPage, ScrollsToItsEndAndNoFurther) {
  shell::TextPage page("text", [](std::size_t) { return Texts{"1", "2", "3", "4", "5"}; });
  page.Fit(2, 80);
  EXPECT_EQ(page.Visible(), (Texts{"1", "2"}));
  EXPECT_TRUE(page.MoreBelow());
  page.Press({Key::kPageDown, {}});
  EXPECT_EQ(page.Visible(), (Texts{"3", "4"}));
  page.Press({Key::kEnd, {}});
  page.Press({Key::kDown, {}});
  EXPECT_EQ(page.Visible(), (Texts{"4", "5"}));
  EXPECT_FALSE(page.MoreBelow());
  page.Press({Key::kHome, {}});
  page.Press({Key::kUp, {}});
  EXPECT_EQ(page.Visible(), (Texts{"1", "2"}));
}

TEST(ShellTextPage, TheChoiceIsAlwaysInSight) {
  shell::TextPage page("choice", [](std::size_t) { return Texts{"1", "2", "3", "4", "5"}; });
  page.BeChoice(3);
  page.Fit(2, 80);
  EXPECT_EQ(page.Visible(), (Texts{"3", "4"}));
  page.Press({Key::kDown, {}});
  page.Press({Key::kDown, {}});
  EXPECT_EQ(page.Selected(), 4u);
  EXPECT_EQ(page.Visible(), (Texts{"4", "5"}));
}

class ShellHistory : public testing::Test {
 protected:
  void SetUp() override {
    std::string folder = fs::temp_directory_path() / "kyodbc-history-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    m_folder = folder;
    setenv("XDG_STATE_HOME", m_folder.c_str(), 1);
  }
  void TearDown() override { fs::remove_all(m_folder); }
  fs::path File() const { return m_folder / "kyodbc" / "history"; }

  fs::path m_folder;
};

TEST_F(ShellHistory, LinesWithValuesAreKeptOnlyWhenAskedFor) {
  shell::HistoryFile usual(shell::Remember::kCommandsWithoutValues);
  usual.Add("next", false);
  usual.Add("filter name = Miller", true);
  EXPECT_EQ(usual.Load(), Texts{"next"});
  shell::HistoryFile all(shell::Remember::kAll);
  all.Add("filter name = Miller", true);
  EXPECT_EQ(all.Load(), (Texts{"next", "filter name = Miller"}));
}

TEST_F(ShellHistory, NothingIsWrittenWhenNothingIsToBeRemembered) {
  shell::HistoryFile none(shell::Remember::kNothing);
  none.Add("next", false);
  EXPECT_TRUE(fs::is_empty(m_folder));
  EXPECT_EQ(none.Load(), Texts{});
}

TEST_F(ShellHistory, OnlyTheOwnerCanReadIt) {
  shell::HistoryFile file(shell::Remember::kAll);
  file.Add("next", false);
  EXPECT_EQ(fs::status(File()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(fs::status(File().parent_path()).permissions(), fs::perms::owner_all);
  fs::permissions(File(), fs::perms::all);
  file.Add("next", false);
  EXPECT_EQ(fs::status(File()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(ShellHistory, AFileThatHasBecomeLongIsShortened) {
  shell::HistoryFile file(shell::Remember::kAll);
  for (int i = 0; i < 1001; ++i) file.Add(std::to_string(i), false);
  EXPECT_EQ(file.Load().size(), 500u);
  EXPECT_EQ(file.Load().front(), "501");
  std::ifstream lines(File());
  std::string first;
  std::getline(lines, first);
  EXPECT_EQ(first, "501");
}

}  // namespace
}  // namespace shell_tests
