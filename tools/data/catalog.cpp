#include "tools/data/catalog.h"

#include <fmt/format.h>

#include <map>

#include "tools/tool_error.h"

namespace {

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
