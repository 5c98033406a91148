#include "tools/shell/screen.h"

#include <fmt/format.h>

#include <string>

#include "tools/text_table.h"
#include "tools/utf8.h"

namespace shell {
namespace {

constexpr const char* kHints = "? help  f filter  s sort  j jump  i images  t tables  Enter fields  q quit";
constexpr const char* kPageHints = "Up Down PgUp PgDn scroll  Esc back";
constexpr const char* kChoiceHints = "Up Down choose  Enter open  Esc back";

int Width(const std::string& text) { return static_cast<int>(DisplayWidth(text)); }

std::string Heading(const Browser& browser) {
  if (browser.Page() != nullptr) return " " + browser.Page()->Title();
  const Pager& pager = browser.Main().pager;
  const Words& words = pager.OpenedWith();
  const std::string filter = words.filter.empty() ? "" : fmt::format("   filter: {}", words.filter);
  return Printable(fmt::format(" {}{}   sort: {}", pager.Of().plural, filter, words.sort));
}

void DrawTitles(Terminal& terminal, const Columns& columns, const Area& area, int y) {
  terminal.Put(y, area.x, area.width, "", Style::kTitle);
  for (const Cell& cell : columns.Titles()) {
    const bool selected = cell.column == columns.Selected();
    terminal.Put(y, area.x + static_cast<int>(cell.x), Width(cell.text), cell.text,
                 selected ? Style::kSelectedTitle : Style::kTitle);
  }
}

void DrawRows(Terminal& terminal, const Pane& pane, const Area& area, int y, bool active) {
  DrawTitles(terminal, pane.columns, area, y);
  for (const Row& row : pane.pager.Rows()) {
    ++y;
    Style style = Style::kPlain;
    if (row.position == pane.pager.Cursor()) style = active ? Style::kCursor : Style::kOtherCursor;
    terminal.Put(y, area.x, area.width, "", style);
    for (const Cell& cell : pane.columns.Line(row)) {
      terminal.Put(y, area.x + static_cast<int>(cell.x), Width(cell.text), cell.text, style);
    }
  }
}

void DrawImages(Terminal& terminal, const Browser& browser) {
  const Layout& places = browser.Places();
  const Area& area = places.images;
  if (places.ImagesBeside()) {
    for (int y = area.y; y < area.y + area.height; ++y) terminal.Put(y, area.x - 1, 1, "│", Style::kHint);
  } else {
    for (int x = 0; x < area.width; ++x) terminal.Put(area.y - 1, x, 1, "─", Style::kHint);
  }
  terminal.Put(area.y, area.x, area.width, browser.ImagesTitle(), Style::kMessage);
  if (!browser.ImagesAreLate()) {
    DrawRows(terminal, *browser.Images(), area, area.y + 1, browser.InImages());
  }
}

void DrawPage(Terminal& terminal, const TextPage& page, const Layout& places) {
  int y = places.page.y;
  std::size_t line = page.Top();
  for (const std::string& text : page.Visible()) {
    terminal.Put(y++, 0, places.width, text, page.IsSelected(line++) ? Style::kCursor : Style::kPlain);
  }
}

std::string Status(const Browser& browser) {
  if (browser.Page() != nullptr) return browser.Page()->MoreBelow() ? "more below" : "";
  if (browser.Typing() != nullptr && !browser.Typing()->Choices().empty()) {
    return fmt::format("{}", fmt::join(browser.Typing()->Choices(), "  "));
  }
  const Pager& pager = browser.Main().pager;
  if (pager.Count() == 0) return fmt::format("no {}", pager.Of().plural);
  return fmt::format("row {} of {}", pager.Cursor(), pager.Count());
}

const char* Hints(const Browser& browser) {
  if (browser.Page() == nullptr) return kHints;
  return browser.Page()->IsChoice() ? kChoiceHints : kPageHints;
}

// The part of the line around the cursor, when it is longer than the screen is wide.
void DrawTyping(Terminal& terminal, const InputLine& line, const Layout& places) {
  std::string before = Printable(line.Label() + line.BeforeCursor());
  std::string text = Printable(line.Label() + line.Text());
  while (Width(before) >= places.width) {
    const std::size_t bytes = FirstCharacter(before).bytes;
    before.erase(0, bytes);
    text.erase(0, bytes);
  }
  terminal.Put(places.bottom, 0, places.width, text, Style::kPlain);
  terminal.PlaceCursor(places.bottom, Width(before));
}

void DrawBottom(Terminal& terminal, const Browser& browser) {
  const Layout& places = browser.Places();
  terminal.Put(places.status, 0, places.width, Status(browser), Style::kBar);
  if (browser.Page() == nullptr && browser.Typing() != nullptr) {
    return DrawTyping(terminal, *browser.Typing(), places);
  }
  terminal.HideCursor();
  const bool message = !browser.Message().empty();
  terminal.Put(places.bottom, 0, places.width, message ? Printable(browser.Message()) : Hints(browser),
               message ? Style::kMessage : Style::kHint);
}

}  // namespace

void Draw(const Browser& browser, Terminal& terminal) {
  const Layout& places = browser.Places();
  terminal.Clear();
  if (!places.fits) {
    terminal.Put(0, 0, places.width, "larger, please", Style::kPlain);
    return terminal.Show();
  }
  terminal.Put(0, 0, places.width, Heading(browser), Style::kBar);
  if (browser.Page() != nullptr) {
    DrawPage(terminal, *browser.Page(), places);
  } else {
    DrawRows(terminal, browser.Main(), places.table, places.table.y, !browser.InImages());
    if (browser.Images() != nullptr) DrawImages(terminal, browser);
  }
  DrawBottom(terminal, browser);
  terminal.Show();
}

}  // namespace shell
