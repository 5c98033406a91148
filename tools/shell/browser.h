// The interactive browser without its terminal: what the keys do, and what is to be seen.
#ifndef KYODBC_TOOLS_SHELL_BROWSER_H
#define KYODBC_TOOLS_SHELL_BROWSER_H

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "tools/shell/input_line.h"
#include "tools/shell/keys.h"
#include "tools/shell/layout.h"
#include "tools/shell/pane.h"
#include "tools/shell/text_page.h"

namespace shell {

class Browser {
 public:
  // Opens the table. Throws WordsError and SetError.
  Browser(const Table& table, const Words& words);

  void Press(const KeyPress& key);
  void Resize(int lines, int columns);
  bool Ended() const { return m_ended; }

  // The images shown are not those of the patient at the cursor. They are read when the user rests, so that
  // walking through patients is not slowed down.
  bool ImagesAreLate() const;
  void BringImages();

  const Layout& Places() const { return m_layout; }
  const Pane& Main() const { return *m_main; }
  const Pane* Images() const { return m_images.get(); }  // null without them
  bool InImages() const { return m_in_images; }
  std::string ImagesTitle() const;
  const TextPage* Page() const { return m_page ? &*m_page : nullptr; }            // over everything else
  const InputLine* Typing() const { return m_input ? &m_input->line : nullptr; }  // at the bottom
  const std::string& Message() const { return m_message; }

 private:
  // A line being typed and what is done with it.
  struct Input {
    InputLine line;
    void (Browser::*enter)(const std::string& text);
  };

  void PressInTable(const KeyPress& key);
  bool PressMove(Key key);
  void PressLetter(const std::string& text);
  void PressInPage(const KeyPress& key);
  void PressInInput(const KeyPress& key);

  void AskFilter();
  void AskSort();
  void AskJump();
  void AskRow();
  void EnterFilter(const std::string& text);
  void EnterSort(const std::string& text);
  void Jump(const std::string& text);
  void EnterRow(const std::string& text);
  void Ask(const std::string& label, const std::string& text, void (Browser::*enter)(const std::string&),
           InputLine::Complete complete = {});

  void SortByColumn();
  void ToggleImages();
  void SwitchFocus();
  void Reload();
  void ShowDetails();
  void ShowHelp();
  void ShowTables();
  void Quit() { m_ended = true; }
  void OpenTable(const Table& table);
  void ShowPage(TextPage page);

  Pane& Active() { return m_in_images ? *m_images : *m_main; }
  FieldIds MainFields() const { return m_main->pager.Of().fields; }
  bool HasImages() const;
  void DropImages();
  void Reopen(const Words& words);
  void Try(const std::function<void()>& action);
  bool OpenAgain();
  void Refit();

  std::unique_ptr<Pane> m_main;
  std::unique_ptr<Pane> m_images;
  LONG m_images_of = 0;  // key of the patient whose images are shown; 0: nobody's
  bool m_in_images = false;
  std::optional<TextPage> m_page;
  std::optional<Input> m_input;
  std::map<std::string, History> m_histories;  // by label
  std::string m_message;
  Layout m_layout;
  int m_lines = 24;
  int m_columns = 80;
  bool m_lost = false;  // the connection could not be restored
  bool m_ended = false;
};

}  // namespace shell

#endif
