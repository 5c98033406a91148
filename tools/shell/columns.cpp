#include "tools/shell/columns.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "tools/text_table.h"
#include "tools/utf8.h"

namespace shell {
namespace {

constexpr std::size_t kWidest = 30;
constexpr std::size_t kGap = 2;
constexpr std::size_t kNarrowestValue = 10;

bool IsNumber(const Column& column) {
  return column.format == Format::kKey || column.format == Format::kWord;
}

std::string Text(const Column& column, const Row& row) {
  return Printable(FieldAsText(column, row.record.data()));
}

// A key or a number stands at the right end of its column.
std::string Aligned(const Column& column, const std::string& text, std::size_t width) {
  const std::size_t taken = DisplayWidth(text);
  return IsNumber(column) && taken < width ? std::string(width - taken, ' ') + text : text;
}

// The value in lines, its own and those that the width makes.
std::vector<std::string> ValueLines(const std::string& value, std::size_t width) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start != std::string::npos) {
    const std::size_t end = value.find('\n', start);
    const std::string line = value.substr(start, end == std::string::npos ? end : end - start);
    for (const std::string& piece : Wrapped(Printable(line), width)) lines.push_back(piece);
    start = end == std::string::npos ? end : end + 1;
  }
  return lines;
}

}  // namespace

Columns::Columns(const Table& table) {
  for (const bool listed : {true, false}) {
    for (const Column& column : table.data->columns) {
      if (column.listed == listed) m_columns.push_back(&column);
    }
  }
  for (const Column* column : m_columns) m_widths.push_back(DisplayWidth(column->title));
}

void Columns::See(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < m_columns.size() && !row.Gone(); ++i) {
      const std::size_t width = DisplayWidth(Text(*m_columns[i], row));
      m_widths[i] = std::clamp(width, m_widths[i], std::max(kWidest, m_widths[i]));
    }
  }
  Select(0);
}

void Columns::Fit(std::size_t width) {
  m_width = width;
  Select(0);
}

// The width of these columns and the gaps between them.
std::size_t Columns::Used(std::size_t first, std::size_t last) const {
  std::size_t used = (last - first) * kGap;
  for (std::size_t i = first; i <= last; ++i) used += m_widths[i];
  return used;
}

void Columns::Select(int delta) {
  const auto last = std::ssize(m_columns) - 1;
  m_selected = static_cast<std::size_t>(
      std::clamp<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(m_selected) + delta, 0, last));
  m_first = std::min(m_first, m_selected);
  while (m_first < m_selected && Used(m_first, m_selected) > m_width) ++m_first;
}

template <class MakeText>
std::vector<Cell> Columns::Cells(MakeText text) const {
  std::vector<Cell> cells;
  std::size_t x = 0;
  for (std::size_t i = m_first; i < m_columns.size() && x < m_width; ++i) {
    const std::size_t width = std::min(m_widths[i], m_width - x);
    cells.push_back({x, Shortened(Aligned(*m_columns[i], text(*m_columns[i]), m_widths[i]), width), i});
    x += m_widths[i] + kGap;
  }
  return cells;
}

std::vector<Cell> Columns::Titles() const {
  return Cells([](const Column& column) { return std::string(column.title); });
}

std::vector<Cell> Columns::Line(const Row& row) const {
  if (row.Gone())
    return {
        {0, Shortened("(deleted)", m_width), 0}
    };
  return Cells([&row](const Column& column) { return Text(column, row); });
}

std::vector<std::string> Details(const Table& table, const Row& row, std::size_t width) {
  if (row.Gone()) return {"(deleted)"};
  std::size_t title_width = 0;
  for (const Column& column : table.data->columns)
    title_width = std::max(title_width, std::strlen(column.title));
  const std::size_t indent = title_width + kGap;
  std::vector<std::string> lines;
  for (const Column& column : table.data->columns) {
    std::string title = column.title;
    const std::string value = FieldAsText(column, row.record.data());
    for (const std::string& line : ValueLines(value, std::max(width, indent + kNarrowestValue) - indent)) {
      title.resize(indent, ' ');
      lines.push_back(title + line);
      title.clear();
    }
  }
  return lines;
}

std::vector<std::string> Wrapped(const std::string& text, std::size_t width) {
  std::vector<std::string> lines(1);
  std::size_t used = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::string character = text.substr(at, FirstCharacter(std::string_view(text).substr(at)).bytes);
    const std::size_t taken = DisplayWidth(character);
    if (used + taken > width && used > 0) {
      lines.emplace_back();
      used = 0;
    }
    lines.back() += character;
    used += taken;
    at += character.size();
  }
  return lines;
}

}  // namespace shell
