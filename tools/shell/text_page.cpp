#include "tools/shell/text_page.h"

#include <algorithm>
#include <iterator>

namespace shell {

void TextPage::Fit(std::size_t height, std::size_t width) {
  m_height = std::max<std::size_t>(1, height);
  m_lines = m_make(width);
  Step(0);
}

void TextPage::Press(const KeyPress& key) {
  const auto page = static_cast<std::ptrdiff_t>(m_height);
  switch (key.key) {
    case Key::kUp:
      return Step(-1);
    case Key::kDown:
      return Step(1);
    case Key::kPageUp:
      return Step(-page);
    case Key::kPageDown:
      return Step(page);
    case Key::kHome:
      return Step(-std::ssize(m_lines));
    case Key::kEnd:
      return Step(std::ssize(m_lines));
    default:
      return;
  }
}

TextPage::Lines TextPage::Visible() const {
  const auto first = m_lines.begin() + static_cast<std::ptrdiff_t>(m_top);
  const auto count = std::min<std::size_t>(m_height, m_lines.size() - m_top);
  return {first, first + static_cast<std::ptrdiff_t>(count)};
}

// Moves the choice and the page after it, or else the page.
void TextPage::Step(std::ptrdiff_t lines) {
  const auto count = std::ssize(m_lines);
  const auto height = static_cast<std::ptrdiff_t>(m_height);
  const auto last_top = std::max<std::ptrdiff_t>(0, count - height);
  auto top = static_cast<std::ptrdiff_t>(m_top) + (m_is_choice ? 0 : lines);
  if (m_is_choice) {
    const auto selected = std::clamp<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(m_selected) + lines, 0,
                                                     std::max<std::ptrdiff_t>(0, count - 1));
    m_selected = static_cast<std::size_t>(selected);
    top = std::clamp(top, selected - height + 1, selected);
  }
  m_top = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(top, 0, last_top));
}

}  // namespace shell
