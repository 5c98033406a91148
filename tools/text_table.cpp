#include "tools/text_table.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tools/utf8.h"

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Characters that stand above or below the one before them, or are not seen at all.
constexpr Range kNoWidth[] = {
    {0x0300,  0x036F },
    {0x0483,  0x0489 },
    {0x0591,  0x05BD },
    {0x0610,  0x061A },
    {0x064B,  0x065F },
    {0x1AB0,  0x1AFF },
    {0x1DC0,  0x1DFF },
    {0x200B,  0x200F },
    {0x202A,  0x202E },
    {0x2060,  0x2064 },
    {0x20D0,  0x20F0 },
    {0x3099,  0x309A },
    {0xFE00,  0xFE0F },
    {0xFE20,  0xFE2F },
    {0xFEFF,  0xFEFF },
    {0xE0100, 0xE01EF},
};

// Characters that take two columns.
constexpr Range kWide[] = {
    {0x1100,  0x115F },
    {0x2E80,  0x303E },
    {0x3041,  0xA4CF },
    {0xA960,  0xA97C },
    {0xAC00,  0xD7A3 },
    {0xF900,  0xFAFF },
    {0xFE30,  0xFE6F },
    {0xFF01,  0xFF60 },
    {0xFFE0,  0xFFE6 },
    {0x1F300, 0x1F64F},
    {0x1F680, 0x1F6FF},
    {0x1F900, 0x1F9FF},
    {0x20000, 0x3FFFD},
};

template <std::size_t N>
bool IsIn(const Range (&ranges)[N], char32_t code) {
  return std::any_of(std::begin(ranges), std::end(ranges),
                     [code](const Range& range) { return range.first <= code && code <= range.last; });
}

std::size_t WidthOf(char32_t code) {
  if (IsIn(kNoWidth, code)) return 0;
  return IsIn(kWide, code) ? 2 : 1;
}

bool IsControl(char32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

// The bytes of `text` that fill at most `width` columns.
std::size_t BytesWithin(std::string_view text, std::size_t width) {
  std::size_t bytes = 0;
  while (bytes < text.size()) {
    const Character character = FirstCharacter(text.substr(bytes));
    const std::size_t taken = WidthOf(character.code);
    if (taken > width) break;
    width -= taken;
    bytes += character.bytes;
  }
  return bytes;
}

}  // namespace

std::size_t DisplayWidth(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    width += WidthOf(character.code);
    text.remove_prefix(character.bytes);
  }
  return width;
}

std::string Printable(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    if (character.code == '\n' || character.code == '\t') {
      line += ' ';
    } else if (!character.valid || IsControl(character.code)) {
      line += "\uFFFD";
    } else {
      line += text.substr(0, character.bytes);
    }
    text.remove_prefix(character.bytes);
  }
  return line;
}

std::string Shortened(const std::string& text, std::size_t width) {
  if (DisplayWidth(text) <= width) return text;
  if (width == 0) return {};
  return text.substr(0, BytesWithin(text, width - 1)) + "…";
}

TextTable::TextTable(std::vector<Column> columns, std::size_t widest)
    : m_columns(std::move(columns)), m_widest(widest) {
  for (const Column& column : m_columns) m_widths.push_back(DisplayWidth(column.title));
}

void TextTable::Add(const std::vector<std::string>& cells) {
  std::vector<std::string>& row = m_rows.emplace_back();
  for (std::size_t i = 0; i < m_columns.size(); ++i) {
    row.push_back(Shortened(Printable(cells.at(i)), m_widest));
    m_widths[i] = std::max(m_widths[i], DisplayWidth(row.back()));
  }
}

std::string TextTable::Line(const std::vector<std::string>& cells) const {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) line += "  ";
    const std::string blanks(m_widths[i] - DisplayWidth(cells[i]), ' ');
    line += m_columns[i].align == Align::kRight ? blanks + cells[i] : cells[i] + blanks;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line + '\n';
}

std::string TextTable::Text(bool bold) const {
  std::vector<std::string> titles;
  std::vector<std::string> rules;
  for (std::size_t i = 0; i < m_columns.size(); ++i) {
    titles.push_back(m_columns[i].title);
    rules.emplace_back(m_widths[i], '-');
  }
  std::string text = bold ? "\x1b[1m" + Line(titles) + "\x1b[0m" : Line(titles);
  text += Line(rules);
  for (const std::vector<std::string>& row : m_rows) text += Line(row);
  return text;
}
