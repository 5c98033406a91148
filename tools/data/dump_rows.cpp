#include "tools/data/dump_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "tools/tool_error.h"

namespace {

[[noreturn]] void FailAt(std::string_view what) {
  throw ToolError(kFailed, fmt::format("the backup is damaged: {} cannot be read", what));
}

bool IsWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

char Unescaped(char c) {
  constexpr std::string_view kSigns = "btnfrv0Z";
  constexpr std::string_view kMeant("\b\t\n\f\r\v\0\x1a", 8);
  const std::size_t at = kSigns.find(c);
  return at == std::string_view::npos ? c : kMeant[at];
}

// Takes a text apart from the front. What must be there and is not fails, naming `what` was being read.
class Scanner {
 public:
  Scanner(std::string_view text, std::string_view what) : m_rest(text), m_what(what) {}

  bool AtEnd() const { return m_rest.empty(); }
  bool Take(std::string_view sign) {
    if (!m_rest.starts_with(sign)) return false;
    m_rest.remove_prefix(sign.size());
    return true;
  }
  void Require(std::string_view sign) {
    if (!Take(sign)) FailAt(m_what);
  }

  // A plain name, or one between `quote`s, which are not part of it.
  std::string Name(char quote) {
    const std::string_view sign(&quote, 1);
    const bool quoted = Take(sign);
    const auto ends = [&](char c) { return quoted ? c == quote : !IsWordCharacter(c); };
    const auto end = std::find_if(m_rest.begin(), m_rest.end(), ends);
    std::string name(m_rest.begin(), end);
    m_rest.remove_prefix(name.size());
    if (quoted) Require(sign);
    if (name.empty()) FailAt(m_what);
    return name;
  }
  // Names in parentheses, in small letters.
  std::vector<std::string> Names(char quote) {
    std::vector<std::string> names;
    Require("(");
    do {
      names.push_back(Lower(Name(quote)));
    } while (Take(", "));
    Require(")");
    return names;
  }
  // Values in parentheses.
  Row Values() {
    Row row;
    Require("(");
    do {
      row.push_back(ReadValue());
    } while (Take(","));
    Require(")");
    return row;
  }

 private:
  Value ReadValue() {
    if (Take("'")) return ReadText();
    if (Take("NULL")) return std::nullopt;
    return ReadNumber();
  }
  std::string ReadText() {
    std::string text;
    for (std::size_t at = 0; at < m_rest.size(); ++at) {
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
    FailAt(m_what);
  }
  std::string ReadNumber() {
    const std::size_t end = std::min(m_rest.find_first_not_of("+-.0123456789eE"), m_rest.size());
    if (end == 0) FailAt(m_what);
    std::string number(m_rest.substr(0, end));
    m_rest.remove_prefix(end);
    return number;
  }

  std::string_view m_rest;
  std::string_view m_what;
};

std::string UnescapedText(std::string_view escaped) {
  std::string text;
  for (std::size_t at = 0; at < escaped.size(); ++at) {
    if (escaped[at] != '\\') {
      text += escaped[at];
    } else if (++at < escaped.size()) {
      text += Unescaped(escaped[at]);
    } else {
      FailAt("a value with a backslash at its end");
    }
  }
  return text;
}

}  // namespace

Row CopyRow(std::string_view line) {
  Row row;
  while (true) {
    const std::size_t tab = line.find('\t');
    const std::string_view field = line.substr(0, tab);
    Value value;
    if (field != "\\N") value = UnescapedText(field);
    row.push_back(std::move(value));
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
  std::vector<std::string> sorted = columns;
  std::sort(sorted.begin(), sorted.end());
  if (sorted != m_shape->columns) {
    throw ToolError(kFailed, fmt::format("the table {} has other columns in the backup", m_shape->table));
  }
  for (const std::string& column : columns) {
    const auto place = std::find(m_shape->columns.begin(), m_shape->columns.end(), column);
    m_places.push_back(static_cast<std::size_t>(place - m_shape->columns.begin()));
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

void DumpRows::End() const {
  if (m_inside) FailAt("the end, which is missing,");
}

std::string DumpRows::For(const std::string&, const std::string& line) const { return line; }

bool CopyRows::Line(std::string_view line) {
  m_head.clear();
  if (m_inside && line == "\\.") {
    m_inside = false;
    return m_ours;
  }
  if (m_inside) {
    if (m_ours) Add(CopyRow(line));
    return m_ours;
  }
  Scanner head(line, "the head of a table");
  if (!head.Take("COPY ")) return false;
  std::string table = head.Name('"');
  if (head.Take(".")) table = head.Name('"');
  head.Require(" ");
  const std::vector<std::string> columns = head.Names('"');
  head.Require(" FROM stdin;");
  if (!head.AtEnd()) FailAt("the head of a table");
  m_inside = true;
  m_ours = Begin(table, columns);
  if (m_ours) m_head = fmt::format("{} ({}) FROM stdin;", table, fmt::join(columns, ", "));
  return m_ours;
}

std::string CopyRows::For(const std::string& owner, const std::string& line) const {
  return m_head.empty() ? line : "COPY " + owner + m_head;
}

bool InsertRows::Line(std::string_view line) {
  Scanner rows(line, "a row");
  if (!m_inside) {
    if (!rows.Take("INSERT INTO ")) return false;
    const std::string table = rows.Name('`');
    rows.Require(" ");
    const std::vector<std::string> columns = rows.Names('`');
    rows.Require(" VALUES");
    if (!Begin(table, columns)) return false;
    m_inside = true;
    rows.Take(" ");
  }
  while (!rows.AtEnd()) {
    Add(rows.Values());
    m_inside = !rows.Take(";");
    if (!m_inside) break;
    rows.Require(",");
  }
  if (!rows.AtEnd()) FailAt("what stands behind the rows of a table");
  return true;
}
