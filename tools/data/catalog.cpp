#include "tools/data/catalog.h"

#include <fmt/format.h>

#include <map>
#include <sstream>

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

constexpr const char* kSchemas = "looking for the schema of the tables";

std::string SchemaId(const PracticeDatabase& database) {
  return fmt::format("(SELECT relnamespace FROM pg_class WHERE oid = to_regclass('{}'))",
                     database.Name(kTableNames[0]));
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

std::string SchemaOf(PracticeDatabase& database) {
  return database.Answer("SELECT quote_ident(nspname) FROM pg_namespace WHERE oid = " + SchemaId(database),
                         kSchemas);
}

std::vector<std::string> OtherSchemas(PracticeDatabase& database) {
  const std::string names = database.Answer(
      "SELECT string_agg(quote_ident(nspname), chr(10)) FROM pg_namespace WHERE oid <> " +
          SchemaId(database) + " AND nspname NOT LIKE 'pg!_%' ESCAPE '!' AND nspname <> 'information_schema'",
      kSchemas);
  std::istringstream lines(names);
  std::vector<std::string> schemas;
  for (std::string line; std::getline(lines, line);) schemas.push_back(line);
  return schemas;
}

std::vector<Shape> ShapesOf(PracticeDatabase& database) {
  std::vector<Shape> shapes;
  shapes.reserve(std::size(kTableNames));
  for (const char* table : kTableNames) shapes.push_back(ShapeOf(database, table));
  return shapes;
}
