#include "tools/shell/full_screen.h"

#include "tools/shell/browser.h"
#include "tools/shell/screen.h"
#include "tools/shell/terminal.h"

namespace shell {
namespace {

// How long the user rests on a patient before the images are read.
constexpr int kRestMilliseconds = 60;
constexpr int kNoLimit = -1;

}  // namespace

// What comes before the terminal can still fail with a message on a plain screen.
void RunFullScreen(const Table& table, const Words& words) {
  Browser browser(table, words);
  Terminal terminal;
  browser.Resize(terminal.Lines(), terminal.Columns());
  while (!browser.Ended()) {
    Draw(browser, terminal);
    KeyPress key;
    switch (terminal.Wait(browser.ImagesAreLate() ? kRestMilliseconds : kNoLimit, key)) {
      case Terminal::Event::kKey:
        browser.Press(key);
        break;
      case Terminal::Event::kNothing:
        browser.BringImages();
        break;
      case Terminal::Event::kResize:
        browser.Resize(terminal.Lines(), terminal.Columns());
        break;
      default:
        return;
    }
  }
}

}  // namespace shell
