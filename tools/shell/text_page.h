// A text or a list of choices that takes the whole screen and is read from the top.
#ifndef KYODBC_TOOLS_SHELL_TEXT_PAGE_H
#define KYODBC_TOOLS_SHELL_TEXT_PAGE_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "tools/shell/keys.h"

namespace shell {

class TextPage {
 public:
  using Lines = std::vector<std::string>;
  // Makes the lines anew for a screen of another width.
  using MakeLines = std::function<Lines(std::size_t width)>;

  TextPage(std::string title, MakeLines make) : m_title(std::move(title)), m_make(std::move(make)) {}

  // One of the lines is the user's, who chooses it with Enter.
  void BeChoice(std::size_t selected) {
    m_is_choice = true;
    m_selected = selected;
  }

  const std::string& Title() const { return m_title; }
  bool IsChoice() const { return m_is_choice; }
  std::size_t Selected() const { return m_selected; }
  bool IsSelected(std::size_t line) const { return m_is_choice && line == m_selected; }

  void Fit(std::size_t height, std::size_t width);
  void Press(const KeyPress& key);

  std::size_t Top() const { return m_top; }
  // The lines that are in sight.
  Lines Visible() const;
  bool MoreBelow() const { return m_top + m_height < m_lines.size(); }

 private:
  void Step(std::ptrdiff_t lines);

  std::string m_title;
  MakeLines m_make;
  Lines m_lines;
  std::size_t m_height = 1;
  std::size_t m_top = 0;
  bool m_is_choice = false;
  std::size_t m_selected = 0;
};

}  // namespace shell

#endif
