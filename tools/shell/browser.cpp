#include "tools/shell/browser.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <string_view>
#include <utility>

#include "tools/shell/help_text.h"

namespace shell {
namespace {

constexpr int kTableTitles = 1;
constexpr int kImageTitles = 2;
constexpr const char* kImagesSort = "-time,-key";

// The first word of a sort order that sorts by the column; the opposite one when it is sorted so already.
std::string SortBy(const std::string& title, const std::string& sort) {
  return sort == title ? "-" + title : title;
}

bool IsLetterToJumpTo(const std::string& text) {
  const auto first = static_cast<unsigned char>(text.front());
  return first >= 0x80 || std::isupper(first) != 0;
}

}  // namespace

Browser::Browser(const Table& table, const Words& words) : m_main(std::make_unique<Pane>(table)) {
  m_main->pager.Open(words);
  Refit();
}

void Browser::Press(const KeyPress& key) {
  m_message.clear();
  if (m_page) return PressInPage(key);
  if (m_input) return PressInInput(key);
  PressInTable(key);
}

void Browser::Resize(int lines, int columns) {
  m_lines = lines;
  m_columns = columns;
  Try([this] { Refit(); });
}

// Brings everything into the places it has on this screen.
void Browser::Refit() {
  m_layout = LayOut(m_lines, m_columns, m_images != nullptr);
  if (m_page) {
    m_page->Fit(static_cast<std::size_t>(std::max(1, m_layout.page.height)),
                static_cast<std::size_t>(std::max(1, m_layout.page.width)));
  }
  m_main->Fit(m_layout.table, kTableTitles);
  m_main->columns.See(m_main->pager.Rows());
  if (m_images) {
    m_images->Fit(m_layout.images, kImageTitles);
    m_images->columns.See(m_images->pager.Rows());
  }
}

// A step that the database does not answer is taken once more after connecting again. The user stays on the
// same row, with the same filter and the same order.
void Browser::Try(const std::function<void()>& action) {
  if (m_lost) {
    m_message = "there is no connection; r tries again";
    return;
  }
  try {
    return action();
  } catch (const WordsError& error) {
    m_message = error.what();
    return;
  } catch (const SetError& error) {
    m_message = error.what();
  }
  if (!OpenAgain()) return;
  try {
    action();
    m_message = "the connection was lost; it was made again";
  } catch (const SetError& error) {
    if (OpenAgain()) m_message = error.what();
  }
}

bool Browser::OpenAgain() {
  try {
    Heal();
    m_images_of = 0;
    m_main->pager.Reload();
    m_lost = false;
  } catch (const SetError& error) {
    m_lost = true;
    m_message = fmt::format("the connection is lost; r tries again. {}", error.what());
  }
  return !m_lost;
}

bool Browser::PressMove(Key key) {
  Pane& pane = Active();
  switch (key) {
    case Key::kUp:
      pane.pager.Move(-1);
      break;
    case Key::kDown:
      pane.pager.Move(1);
      break;
    case Key::kPageUp:
      pane.pager.MovePages(-1);
      break;
    case Key::kPageDown:
      pane.pager.MovePages(1);
      break;
    case Key::kHome:
      pane.pager.GoTo(1);
      break;
    case Key::kEnd:
      pane.pager.GoTo(pane.pager.Count());
      break;
    case Key::kLeft:
      pane.columns.Select(-1);
      break;
    case Key::kRight:
      pane.columns.Select(1);
      break;
    default:
      return false;
  }
  pane.columns.See(pane.pager.Rows());
  return true;
}

void Browser::PressInTable(const KeyPress& key) {
  bool moved = false;
  Try([&] { moved = PressMove(key.key); });
  if (moved) return;
  if (key.key == Key::kEnter) return ShowDetails();
  if (key.key == Key::kTab) return SwitchFocus();
  if (key.key == Key::kText) PressLetter(key.text);
}

void Browser::PressLetter(const std::string& text) {
  struct Letter {
    std::string_view text;
    void (Browser::*run)();
  };
  static constexpr Letter kLetters[] = {
      {"f", &Browser::AskFilter   },
      {"s", &Browser::AskSort     },
      {"o", &Browser::SortByColumn},
      {"j", &Browser::AskJump     },
      {"g", &Browser::AskRow      },
      {"i", &Browser::ToggleImages},
      {"t", &Browser::ShowTables  },
      {"r", &Browser::Reload      },
      {"?", &Browser::ShowHelp    },
      {"q", &Browser::Quit        },
  };
  for (const Letter& letter : kLetters) {
    if (text == letter.text) return (this->*letter.run)();
  }
  if (IsLetterToJumpTo(text)) Jump(text);
}

void Browser::PressInPage(const KeyPress& key) {
  const bool leave = key.key == Key::kEscape || key.key == Key::kEnter || key.text == "q";
  if (!leave) return m_page->Press(key);
  const bool chosen = m_page->IsChoice() && key.key == Key::kEnter;
  const std::size_t choice = m_page->Selected();
  m_page.reset();
  if (chosen) OpenTable(*AllTables()[choice]);
}

void Browser::PressInInput(const KeyPress& key) {
  if (key.key != Key::kEnter && key.key != Key::kEscape) return m_input->line.Press(key);
  m_input->line.Remember();
  const Input input = std::move(*m_input);
  m_input.reset();
  if (key.key == Key::kEnter) (this->*input.enter)(input.line.Text());
}

void Browser::Ask(const std::string& label, const std::string& text,
                  void (Browser::*enter)(const std::string&), InputLine::Complete complete) {
  m_input.emplace(Input{InputLine(label, text, m_histories[label], std::move(complete)), enter});
}

void Browser::AskFilter() {
  Ask("filter: ", m_main->pager.OpenedWith().filter, &Browser::EnterFilter,
      [this](const std::string& text) { return CompleteFilter(text, MainFields()); });
}

void Browser::AskSort() {
  Ask("sort by: ", m_main->pager.OpenedWith().sort, &Browser::EnterSort,
      [this](const std::string& text) { return CompleteSort(text, MainFields()); });
}

void Browser::AskJump() { Ask("jump to: ", "", &Browser::Jump); }

void Browser::AskRow() { Ask("go to row: ", "", &Browser::EnterRow); }

void Browser::EnterFilter(const std::string& text) { Reopen({text, m_main->pager.OpenedWith().sort}); }

void Browser::EnterSort(const std::string& text) {
  const std::string sort = text.substr(0, text.find_last_not_of(' ') + 1);
  const std::string& usual = UsualWords(m_main->pager.Of()).sort;
  Reopen({m_main->pager.OpenedWith().filter, sort.empty() ? usual : sort});
}

void Browser::SortByColumn() {
  EnterSort(SortBy(m_main->columns.SelectedTitle(), m_main->pager.OpenedWith().sort));
}

void Browser::Reopen(const Words& words) {
  Try([&] {
    m_main->pager.Open(words);
    m_main->columns.See(m_main->pager.Rows());
  });
}

void Browser::Jump(const std::string& text) {
  if (text.empty()) return;
  Try([&] {
    const bool found = m_main->pager.Jump(text);
    m_main->columns.See(m_main->pager.Rows());
    if (!found) m_message = fmt::format("nothing from '{}' on", text);
  });
}

void Browser::EnterRow(const std::string& text) {
  LONG row = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), row);
  if (error != std::errc() || end != text.data() + text.size() || row < 1) {
    m_message = fmt::format("'{}' is no number of a row", text);
    return;
  }
  Try([&] {
    Active().pager.GoTo(row);
    Active().columns.See(Active().pager.Rows());
  });
}

bool Browser::HasImages() const { return PositioningOf(m_main->pager.Of()).move_to_text != nullptr; }

void Browser::ToggleImages() {
  if (m_images) {
    DropImages();
  } else if (HasImages()) {
    m_images = std::make_unique<Pane>(FindTable("images"));
  } else {
    m_message = "images are shown beside patients";
  }
  Try([this] { Refit(); });
}

void Browser::DropImages() {
  m_images.reset();
  m_images_of = 0;
  m_in_images = false;
}

void Browser::SwitchFocus() {
  if (m_images) m_in_images = !m_in_images;
}

bool Browser::ImagesAreLate() const {
  const Row* patient = m_main->pager.Here();
  return m_images && !m_lost && m_images_of != (patient != nullptr ? patient->Key() : -1);
}

// In an empty table the images of no patient are those of the key -1.
void Browser::BringImages() {
  const Row* patient = m_main->pager.Here();
  const LONG key = patient != nullptr ? patient->Key() : -1;
  Try([&] {
    m_images->pager.Open({fmt::format("patient = {}", key), kImagesSort});
    m_images->columns.See(m_images->pager.Rows());
  });
  m_images_of = key;
}

std::string Browser::ImagesTitle() const {
  const Row* patient = m_main->pager.Here();
  if (patient == nullptr) return "no patient";
  if (ImagesAreLate()) return fmt::format("images of patient {}", patient->Key());
  const LONG count = m_images->pager.Count();
  return fmt::format("images of patient {}: {}", patient->Key(),
                     count == 0 ? "none" : fmt::format("{} of {}", m_images->pager.Cursor(), count));
}

void Browser::Reload() {
  m_lost = false;
  m_images_of = 0;
  Try([this] {
    m_main->pager.Reload();
    m_main->columns.See(m_main->pager.Rows());
  });
}

void Browser::OpenTable(const Table& table) {
  if (&table == &m_main->pager.Of()) return;
  DropImages();
  Try([&] {
    auto next = std::make_unique<Pane>(table);
    next->pager.Open(UsualWords(table));
    m_main = std::move(next);
  });
  Try([this] { Refit(); });
}

void Browser::ShowPage(TextPage page) {
  m_page = std::move(page);
  Try([this] { Refit(); });
}

void Browser::ShowDetails() {
  const Row* row = Active().pager.Here();
  if (row == nullptr) return;
  const Table& table = Active().pager.Of();
  ShowPage(TextPage(fmt::format("{} {}", table.singular, row->Key()),
                    [&table, shown = *row](std::size_t width) { return Details(table, shown, width); }));
}

void Browser::ShowHelp() { ShowPage(TextPage("help", HelpLines)); }

void Browser::ShowTables() {
  const std::vector<const Table*> tables = AllTables();
  TextPage page("tables", [tables](std::size_t) {
    TextPage::Lines lines;
    for (const Table* table : tables) lines.emplace_back(table->plural);
    return lines;
  });
  const auto here = std::find(tables.begin(), tables.end(), &m_main->pager.Of());
  page.BeChoice(static_cast<std::size_t>(here - tables.begin()));
  ShowPage(std::move(page));
}

}  // namespace shell
