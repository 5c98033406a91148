#include "tools/data/dump_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <utility>

#include "tools/tool_error.h"

namespace {

constexpr std::string_view kCopy = "COPY ";
constexpr std::string_view kFromInput = " FROM stdin;";
constexpr std::string_view kInsert = "INSERT INTO `";
constexpr std::string_view kValues = " VALUES";

[[noreturn]] void FailAt(std::string_view what) {
  throw ToolError(kFailed, fmt::format("the backup is damaged: {} cannot be read", what));
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return lower;
}

// Names apart by commas, in small letters, without quotes and blanks.
std::vector<std::string> Names(std::string_view list) {
  std::vector<std::string> names(1);
  for (const char c : list) {
    if (c == ',') {
      names.emplace_back();
    } else if (c != ' ' && c != '`' && c != '"') {
      names.back() += c;
    }
  }
  for (std::string& name : names) name = Lower(name);
  return names;
}

char Unescaped(char c) {
  constexpr std::string_view kSigns = "btnfrv0Z";
  constexpr std::string_view kMeant("\b\t\n\f\r\v\0\x1a", 8);
  const std::size_t at = kSigns.find(c);
  return at == std::string_view::npos ? c : kMeant[at];
}

// Takes values in parentheses off the front.
class Tuple {
 public:
  explicit Tuple(std::string_view text) : m_rest(text) {}

  Row Read() {
    Row row;
    if (!Take('(')) FailAt("a row");
    do {
      row.push_back(ReadValue());
    } while (Take(','));
    if (!Take(')')) FailAt("a row");
    return row;
  }
  bool Take(char sign) {
    if (!m_rest.starts_with(sign)) return false;
    m_rest.remove_prefix(1);
    return true;
  }
  bool AtEnd() const { return m_rest.empty(); }

 private:
  Value ReadValue() {
    if (m_rest.starts_with('\'')) return ReadText();
    const std::size_t end = m_rest.find_first_of(",)");
    if (end == std::string_view::npos) FailAt("a value");
    const std::string word(m_rest.substr(0, end));
    m_rest.remove_prefix(end);
    return word == "NULL" ? Value() : Value(word);
  }
  Value ReadText() {
    std::string text;
    for (std::size_t at = 1; at < m_rest.size(); ++at) {
      const char c = m_rest[at];
      if (c == '\\' && at + 1 < m_rest.size()) {
        text += Unescaped(m_rest[++at]);
      } else if (c != '\'') {
        text += c;
      } else if (m_rest.substr(at + 1).starts_with('\'')) {
        text += m_rest[++at];
      } else {
        m_rest.remove_prefix(at + 1);
        return text;
      }
    }
    FailAt("a text");
  }

  std::string_view m_rest;
};

}  // namespace

void UnescapeTo(std::string& text, std::string_view escaped) {
  for (std::size_t at = 0; at < escaped.size(); ++at) {
    const bool escape = escaped[at] == '\\' && at + 1 < escaped.size();
    text += escape ? Unescaped(escaped[++at]) : escaped[at];
  }
}

Row CopyRow(std::string_view line) {
  Row row;
  while (true) {
    const std::size_t tab = line.find('\t');
    const std::string_view field = line.substr(0, tab);
    Value& value = row.emplace_back();
    if (field != "\\N") UnescapeTo(value.emplace(), field);
    if (tab == std::string_view::npos) return row;
    line.remove_prefix(tab + 1);
  }
}

DumpRows::DumpRows(const std::vector<Shape>& shapes) : m_shapes(shapes) {
  for (const Shape& shape : shapes) m_sums[shape.table];
}

bool DumpRows::Begin(std::string_view table, const std::vector<std::string>& columns) {
  const std::string name = Lower(table);
  m_shape = nullptr;
  m_places.clear();
  for (const Shape& shape : m_shapes) {
    const std::string known = Lower(shape.table);
    if (name == known || name == known + "raw") m_shape = &shape;
  }
  if (m_shape == nullptr) return false;
  for (const std::string& column : columns) {
    const auto found = std::find(m_shape->columns.begin(), m_shape->columns.end(), column);
    if (found == m_shape->columns.end() || columns.size() != m_shape->columns.size()) {
      throw ToolError(kFailed, fmt::format("the table {} has other columns in the backup", m_shape->table));
    }
    m_places.push_back(static_cast<std::size_t>(found - m_shape->columns.begin()));
  }
  return true;
}

void DumpRows::Add(const Row& row) {
  if (row.size() != m_places.size()) FailAt("a row of " + m_shape->table);
  Row ordered(row.size());
  for (std::size_t i = 0; i < row.size(); ++i) {
    Value& value = ordered[m_places[i]];
    value = row[i];
    MakeUniform(value, m_shape->kinds[m_places[i]]);
  }
  m_sums[m_shape->table].Add(ordered);
}

bool CopyRows::Line(std::string_view line) {
  if (m_inside && line == "\\.") {
    m_inside = false;
    return m_ours;
  }
  if (m_inside) {
    if (m_ours) Add(CopyRow(line));
    return m_ours;
  }
  if (!line.starts_with(kCopy) || !line.ends_with(kFromInput)) return false;
  const std::size_t open = line.find(" (");
  const std::size_t close = line.rfind(')');
  if (open == std::string_view::npos || close == std::string_view::npos) FailAt("the head of a table");
  std::string_view table = line.substr(kCopy.size(), open - kCopy.size());
  table.remove_prefix(table.rfind('.') + 1);
  m_inside = true;
  m_ours = Begin(table, Names(line.substr(open + 2, close - open - 2)));
  return m_ours;
}

bool InsertRows::Line(std::string_view line) {
  if (!m_inside) {
    if (!line.starts_with(kInsert)) return false;
    const std::size_t name = line.find('`', kInsert.size());
    const std::size_t values = line.find(kValues);
    const std::size_t open = line.find('(');
    if (values == std::string_view::npos || open > values) FailAt("the head of a table");
    const std::string_view columns = line.substr(open + 1, line.rfind(')', values) - open - 1);
    if (!Begin(line.substr(kInsert.size(), name - kInsert.size()), Names(columns))) return false;
    line.remove_prefix(values + kValues.size());
    m_inside = true;
  }
  Tuple tuples(line);
  tuples.Take(' ');
  while (!tuples.AtEnd()) {
    Add(tuples.Read());
    if (tuples.Take(';')) {
      m_inside = false;
      break;
    }
    if (!tuples.Take(',')) FailAt("the end of a row");
  }
  return true;
}
