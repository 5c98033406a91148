#include "tools/data/shape.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <map>

#include "tools/tool_error.h"

namespace {

constexpr std::size_t kDateLength = 10;

Kind KindOf(SWORD type) {
  switch (type) {
    case SQL_INTEGER:
    case SQL_SMALLINT:
    case SQL_TINYINT:
    case SQL_BIGINT:
      return Kind::kNumber;
    case SQL_DATE:
    case SQL_TYPE_DATE:
      return Kind::kDate;
    case SQL_TIMESTAMP:
    case SQL_TYPE_TIMESTAMP:
      return Kind::kTime;
    default:
      return Kind::kText;
  }
}

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

std::map<std::string, Kind> ColumnsOf(PracticeDatabase& database, const std::string& table) {
  std::map<std::string, Kind> columns;
  try {
    CRecordset rows(&database.Connection());
    const std::string sql = "SELECT * FROM " + database.Name(table) + " WHERE 1 = 2";
    rows.Open(CRecordset::snapshot, sql.c_str(), CRecordset::readOnly);
    CODBCFieldInfo info;
    for (short index = 0; index < rows.GetODBCFieldCount(); ++index) {
      rows.GetODBCFieldInfo(index, info);
      columns[Lower(info.m_strName.GetString())] = KindOf(info.m_nSQLType);
    }
  } catch (CDBException* exception) {
    exception->Delete();
    throw ToolError(kFailed,
                    fmt::format("the database has no table {} that can be read; apply the schema file "
                                "of this database first",
                                database.Name(table)));
  }
  return columns;
}

// Behind the day: a time of nothing but zeros, or none.
bool IsMidnight(const std::string& text) {
  return text.find_first_not_of(" :0.T", kDateLength) == std::string::npos;
}

void MakeUniformTime(std::string& text) {
  if (text.size() == kDateLength) text += " 00:00:00";
  if (text.size() > kDateLength && text[kDateLength] == 'T') text[kDateLength] = ' ';
  if (text.find('.') == std::string::npos) return;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
}

}  // namespace

Shape ShapeOf(PracticeDatabase& database, const std::string& table) {
  Shape shape;
  shape.table = table;
  bool found = false;
  for (const auto& [name, kind] : ColumnsOf(database, table)) {
    if (name.ends_with("pk")) {
      shape.key = shape.columns.size();
      found = true;
    }
    shape.columns.push_back(name);
    shape.kinds.push_back(kind);
  }
  if (!found) throw ToolError(kFailed, fmt::format("the table {} has no key", table));
  return shape;
}

std::vector<Shape> ShapesOf(PracticeDatabase& database) {
  std::vector<Shape> shapes;
  for (const char* table : kTableNames) shapes.push_back(ShapeOf(database, table));
  return shapes;
}

void MakeUniform(Value& value, Kind kind) {
  if (!value || value->size() < kDateLength) return;
  if (kind == Kind::kDate && IsMidnight(*value)) value->resize(kDateLength);
  if (kind == Kind::kTime) MakeUniformTime(*value);
}

LONG KeyOf(const Shape& shape, const Row& row) {
  const std::string text = row.at(shape.key).value_or("");
  LONG key = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), key);
  if (error == std::errc() && end == text.data() + text.size()) return key;
  throw ToolError(kFailed,
                  fmt::format("the table {} has a row whose key is no whole number of 32 bits", shape.table));
}
