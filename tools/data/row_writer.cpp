#include "tools/data/row_writer.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "tools/tool_error.h"

namespace {

// Servers refuse statements of some megabytes.
constexpr std::size_t kStatementBytes = std::size_t{256} * 1024;

bool IsNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string Literal(const Value& value, Kind kind) {
  if (!value) return "NULL";
  return kind == Kind::kNumber && IsNumber(*value) ? *value : TextLiteral(*value);
}

}  // namespace

std::string TextLiteral(const std::string& text) {
  std::string literal = "'";
  for (const char c : text) {
    if (c == '\'') literal += c;
    literal += c;
  }
  return literal + '\'';
}

RowWriter::RowWriter(PracticeDatabase& database, const Shape& shape) : m_database(database), m_shape(shape) {}

std::string RowWriter::Values(const Row& row) const {
  std::string values = "(";
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (row[i] && row[i]->find('\0') != std::string::npos) {
      throw ToolError(kFailed, fmt::format("{}, key {}: {} holds a zero byte", m_shape.table,
                                           KeyOf(m_shape, row), m_shape.columns[i]));
    }
    values += (i == 0 ? "" : ", ") + Literal(row[i], m_shape.kinds[i]);
  }
  return values + ")";
}

// As many rows as make a statement that every server takes.
std::string RowWriter::Statement(Iterator& row, const Iterator& end) const {
  std::string sql = fmt::format("INSERT INTO {} ({}) VALUES", m_database.Name(m_shape.table),
                                fmt::join(m_shape.columns, ", "));
  const char* before = " ";
  for (; row != end && sql.size() < kStatementBytes; ++row) {
    sql += before + Values(*row);
    before = ", ";
  }
  return sql;
}

void RowWriter::Store(const std::deque<Row>& rows) {
  const std::string doing = "storing rows of " + m_shape.table;
  try {
    Changes changes(m_database);
    for (Iterator row = rows.begin(); row != rows.end();)
      m_database.Execute(Statement(row, rows.end()), doing);
    return changes.Commit();
  } catch (const ToolError&) {
    if (rows.size() == 1) throw;
  }
  for (Iterator row = rows.begin(); row != rows.end();) {
    const std::string key =
        fmt::format("storing the row of {} with key {}", m_shape.table, KeyOf(m_shape, *row));
    Changes changes(m_database);
    const Iterator next = row + 1;
    m_database.Execute(Statement(row, next), key);
    changes.Commit();
  }
}
