#include "tools/shell/input_line.h"

#include <utility>

#include "tools/utf8.h"

namespace shell {

InputLine::InputLine(std::string label, std::string text, History& history, Complete complete)
    : m_label(std::move(label)),
      m_text(std::move(text)),
      m_cursor(m_text.size()),
      m_history(history),
      m_recalled(history.size()),
      m_complete(std::move(complete)) {}

void InputLine::Press(const KeyPress& key) {
  m_choices.clear();
  switch (key.key) {
    case Key::kText:
      return Insert(key.text);
    case Key::kLeft:
      m_cursor = Previous();
      return;
    case Key::kRight:
      m_cursor = Next();
      return;
    case Key::kHome:
      m_cursor = 0;
      return;
    case Key::kEnd:
      m_cursor = m_text.size();
      return;
    case Key::kBackspace:
      return Erase(Previous(), m_cursor);
    case Key::kDelete:
      return Erase(m_cursor, Next());
    case Key::kEraseLine:
      return Erase(0, m_text.size());
    case Key::kUp:
      return m_recalled > 0 ? Recall(m_recalled - 1) : void();
    case Key::kDown:
      return m_recalled < m_history.size() ? Recall(m_recalled + 1) : void();
    case Key::kTab:
      return CompleteHere();
    default:
      return;
  }
}

void InputLine::Remember() {
  if (m_text.empty() || (!m_history.empty() && m_history.back() == m_text)) return;
  m_history.push_back(m_text);
}

void InputLine::Insert(const std::string& text) {
  m_text.insert(m_cursor, text);
  m_cursor += text.size();
}

void InputLine::Erase(std::size_t from, std::size_t to) {
  m_text.erase(from, to - from);
  m_cursor = from;
}

std::size_t InputLine::Previous() const {
  std::size_t at = 0;
  std::size_t previous = 0;
  while (at < m_cursor) {
    previous = at;
    at += FirstCharacter(std::string_view(m_text).substr(at)).bytes;
  }
  return previous;
}

std::size_t InputLine::Next() const {
  if (m_cursor == m_text.size()) return m_cursor;
  return m_cursor + FirstCharacter(std::string_view(m_text).substr(m_cursor)).bytes;
}

void InputLine::Recall(std::size_t index) {
  if (m_recalled == m_history.size()) m_new = m_text;
  m_recalled = index;
  m_text = index == m_history.size() ? m_new : m_history[index];
  m_cursor = m_text.size();
}

void InputLine::CompleteHere() {
  if (!m_complete) return;
  const std::string before = BeforeCursor();
  const Completion completion = m_complete(before);
  const std::string completed = Completed(before, completion);
  m_text.replace(0, m_cursor, completed);
  m_cursor = completed.size();
  if (completion.words.size() > 1) m_choices = completion.words;
}

}  // namespace shell
