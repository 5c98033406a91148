#include "tools/shell/line_reader.h"

#include <fmt/format.h>
#include <histedit.h>

#include <cstdio>
#include <iostream>
#include <utility>

#include "tools/shell/locale.h"
#include "tools/shell/restore.h"

namespace shell {
namespace {

class Plain : public LineReader {
 public:
  std::optional<std::string> Read(const std::string&) override {
    std::string line;
    if (!std::getline(std::cin, line)) return std::nullopt;
    return line;
  }
};

// libedit's editor lives until the process ends: its end forgets the texts that EL_ADDFN took, which the leak
// checker would find. The terminal is back in its usual mode after each line.
EditLine* the_editor = nullptr;

// libedit, which finds its owner by the pointer it was given. There is one.
class Editing : public LineReader {
 public:
  Editing(CompleteLine complete, const std::vector<std::string>& lines)
      : m_complete(std::move(complete)), m_history(history_init()) {
    constexpr int kLines = 1000;
    UseUtf8();
    the_editor = el_init("kyodbc", stdin, stdout, stderr);
    HistEvent event{};
    history(m_history, &event, H_SETSIZE, kLines);
    history(m_history, &event, H_SETUNIQUE, 1);
    for (const std::string& line : lines) history(m_history, &event, H_ENTER, line.c_str());
    el_set(the_editor, EL_CLIENTDATA, this);
    el_set(the_editor, EL_PROMPT, Prompt);
    el_set(the_editor, EL_EDITOR, "emacs");
    el_set(the_editor, EL_HIST, history, m_history);
    el_set(the_editor, EL_ADDFN, "kyodbc-complete", "completes the word", Complete);
    el_set(the_editor, EL_BIND, "^I", "kyodbc-complete", nullptr);
  }
  std::optional<std::string> Read(const std::string& prompt) override {
    m_prompt = prompt;
    el_resize(the_editor);
    int bytes = 0;
    const char* read = el_gets(the_editor, &bytes);
    if (read == nullptr || bytes <= 0) {
      std::fputc('\n', stdout);
      return std::nullopt;
    }
    std::string line(read, static_cast<std::size_t>(bytes));
    line.erase(line.find_last_not_of("\r\n") + 1);
    HistEvent event{};
    if (line.find_first_not_of(' ') != std::string::npos) {
      history(m_history, &event, H_ENTER, line.c_str());
    }
    return line;
  }

 private:
  static Editing& Of(EditLine* edit) {
    void* owner = nullptr;
    el_get(edit, EL_CLIENTDATA, &owner);
    return *static_cast<Editing*>(owner);
  }
  static char* Prompt(EditLine* edit) { return Of(edit).m_prompt.data(); }

  // Several words are shown below the line, which is then shown again.
  static unsigned char Complete(EditLine* edit, int) {
    const LineInfo* line = el_line(edit);
    const std::string before(line->buffer, line->cursor);
    const Completion completion = Of(edit).m_complete(before);
    const std::string more = Completed(before, completion).substr(before.size());
    if (!more.empty()) return el_insertstr(edit, more.c_str()) == 0 ? CC_REFRESH : CC_ERROR;
    if (completion.words.empty()) return CC_ERROR;
    fmt::print("\n{}\n", fmt::join(completion.words, "  "));
    return CC_REDISPLAY;
  }

  RestoreOnSignals m_restore;
  CompleteLine m_complete;
  std::string m_prompt;
  ::History* m_history;
};

}  // namespace

std::unique_ptr<LineReader> PlainReader() { return std::make_unique<Plain>(); }

std::unique_ptr<LineReader> EditingReader(CompleteLine complete, const std::vector<std::string>& history) {
  return std::make_unique<Editing>(std::move(complete), history);
}

}  // namespace shell
