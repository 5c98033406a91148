// The only file that knows ncurses.
#define NCURSES_WIDECHAR 1
#include "tools/shell/terminal.h"

#include <curses.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "tools/shell/locale.h"
#include "tools/text_table.h"
#include "tools/tool_error.h"

namespace shell {
namespace {

constexpr int kEscapeMilliseconds = 25;
constexpr int kMostMilliseconds = 200;  // of waiting for a key at one go
constexpr wint_t kCtrlU = 21;
constexpr wint_t kEscape = 27;
constexpr wint_t kDeleteCharacter = 127;

struct NamedKey {
  wint_t code;
  Key key;
};

constexpr NamedKey kFunctionKeys[] = {
    {KEY_UP,        Key::kUp       },
    {KEY_DOWN,      Key::kDown     },
    {KEY_LEFT,      Key::kLeft     },
    {KEY_RIGHT,     Key::kRight    },
    {KEY_PPAGE,     Key::kPageUp   },
    {KEY_NPAGE,     Key::kPageDown },
    {KEY_HOME,      Key::kHome     },
    {KEY_FIND,      Key::kHome     },
    {KEY_END,       Key::kEnd      },
    {KEY_SELECT,    Key::kEnd      },
    {KEY_ENTER,     Key::kEnter    },
    {KEY_BACKSPACE, Key::kBackspace},
    {KEY_DC,        Key::kDelete   },
};

constexpr NamedKey kControlCharacters[] = {
    {'\r',             Key::kEnter    },
    {'\n',             Key::kEnter    },
    {'\t',             Key::kTab      },
    {'\b',             Key::kBackspace},
    {kCtrlU,           Key::kEraseLine},
    {kEscape,          Key::kEscape   },
    {kDeleteCharacter, Key::kBackspace},
};

template <std::size_t N>
Key Find(const NamedKey (&keys)[N], wint_t code) {
  for (const NamedKey& named : keys) {
    if (named.code == code) return named.key;
  }
  return Key::kOther;
}

KeyPress FromCharacter(wint_t code) {
  const Key control = Find(kControlCharacters, code);
  if (control != Key::kOther) return {control, {}};
  if (code < ' ') return {};
  std::array<char, MB_LEN_MAX> bytes{};
  std::mbstate_t state{};
  const std::size_t length = std::wcrtomb(bytes.data(), static_cast<wchar_t>(code), &state);
  if (length > bytes.size()) return {};
  return {Key::kText, std::string(bytes.data(), length)};
}

// A control sequence of the terminal; empty when it has none.
std::string Capability(const char* name) {
  const char* text = tigetstr(name);
  // -1 stands for "no such text".
  if (text == nullptr || text == reinterpret_cast<const char*>(-1)) return {};
  return text;
}

// What ends full screen. CAN first: it ends a sequence that the signal has cut in two.
std::string Farewell() {
  return "\x18" + Capability("sgr0") + Capability("rmkx") + Capability("cnorm") + Capability("rmcup") +
         "\r\n";
}

struct StyleRow {
  short foreground;
  short background;
  attr_t without_colours;
  attr_t with_colours;
};

// One row per Style, in their order.
constexpr StyleRow kStyles[] = {
    {-1,           -1,         A_NORMAL,                         A_NORMAL                        },
    {COLOR_WHITE,  COLOR_BLUE, A_REVERSE,                        A_BOLD                          },
    {COLOR_CYAN,   -1,         A_UNDERLINE,                      A_UNDERLINE                     },
    {COLOR_CYAN,   -1,         A_UNDERLINE | A_BOLD | A_REVERSE, A_UNDERLINE | A_BOLD | A_REVERSE},
    {COLOR_BLACK,  COLOR_CYAN, A_REVERSE,                        A_NORMAL                        },
    {-1,           -1,         A_BOLD,                           A_BOLD                          },
    {COLOR_YELLOW, -1,         A_BOLD,                           A_BOLD                          },
    {-1,           -1,         A_DIM,                            A_DIM                           },
};

bool InputHasEnded() {
  pollfd input{STDIN_FILENO, 0, 0};
  return poll(&input, 1, 0) > 0;  // its other side is gone
}

// Throws ToolError when the terminal is not known.
SCREEN* NewScreen() {
  UseUtf8();
  set_escdelay(kEscapeMilliseconds);
  SCREEN* screen = newterm(nullptr, stdout, stdin);
  if (screen == nullptr) {
    throw ToolError(kFailed, "this terminal cannot show full screens; --lines does without");
  }
  return screen;
}

}  // namespace

Terminal::Terminal() : m_screen(NewScreen()) {
  m_restore.SetFarewell(Farewell());
  m_restore.Take();
  cbreak();
  noecho();
  nonl();
  keypad(stdscr, TRUE);
  curs_set(0);
  SetUpStyles();
}

Terminal::~Terminal() {
  endwin();
  delscreen(static_cast<SCREEN*>(m_screen));
}

void Terminal::SetUpStyles() {
  const char* no_colours = std::getenv("NO_COLOR");
  const bool wanted = no_colours == nullptr || *no_colours == '\0';
  m_colours = wanted && has_colors() && start_color() == OK && use_default_colors() == OK;
  short pair = 0;
  for (const StyleRow& row : kStyles) {
    if (m_colours && pair > 0) init_pair(pair, row.foreground, row.background);
    ++pair;
  }
}

int Terminal::Lines() const { return getmaxy(stdscr); }

int Terminal::Columns() const { return getmaxx(stdscr); }

void Terminal::Clear() { erase(); }

void Terminal::Put(int y, int x, int width, const std::string& text, Style style) {
  if (y < 0 || x < 0 || width <= 0) return;
  const auto index = static_cast<short>(style);
  const StyleRow& row = kStyles[index];
  attr_set(m_colours ? row.with_colours : row.without_colours, m_colours ? index : short{0}, nullptr);
  mvhline(y, x, ' ', width);
  mvaddstr(y, x, Shortened(text, static_cast<std::size_t>(width)).c_str());
  attr_set(A_NORMAL, 0, nullptr);
}

void Terminal::PlaceCursor(int y, int x) {
  curs_set(1);
  move(y, x);
}

void Terminal::HideCursor() { curs_set(0); }

void Terminal::Show() { refresh(); }

// A size that changed while something else was done is told only when no key comes: a wait for one must end.
Terminal::Event Terminal::Wait(int milliseconds, KeyPress& key) {
  timeout(milliseconds < 0 ? kMostMilliseconds : milliseconds);
  wint_t code = 0;
  int kind = ERR;
  do {
    kind = get_wch(&code);
  } while (kind == ERR && milliseconds < 0 && !InputHasEnded());
  if (kind == ERR) return milliseconds < 0 ? Event::kEnd : Event::kNothing;
  if (kind == KEY_CODE_YES && code == KEY_RESIZE) return Event::kResize;
  key = kind == KEY_CODE_YES ? KeyPress{Find(kFunctionKeys, code), {}} : FromCharacter(code);
  return Event::kKey;
}

}  // namespace shell
