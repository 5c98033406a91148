#include "tools/data/contents.h"

#include "tools/data/row_reader.h"

namespace {

// Rows that the schema files make: those named "-" and the two settings of every practice.
std::string MadeBySchema(const Shape& shape) {
  if (shape.table == "TConfig") return "tCfgSKey IN ('DBVersion', 'DBMS')";
  if (shape.table == "TDoctor") return "tDrSName = '-' AND tDrCulIntDrIDPk = 1";
  if (shape.table == "TStation") return "tStatSName = '-' AND tStatCulIntStatIDPk = 1";
  if (shape.table == "TUnit") return "tUnitSName = '-' AND tUnitCulIntUnitIDPk = 1";
  return "1 = 2";
}

}  // namespace

std::uint64_t CountRows(PracticeDatabase& database, const Shape& shape, const std::string& condition) {
  const std::string sql = "SELECT COUNT(*) FROM " + database.Name(shape.table) + " WHERE " + condition;
  return static_cast<std::uint64_t>(database.Number(sql, "counting the rows of " + shape.table));
}

std::uint64_t RowsBesidesSchema(PracticeDatabase& database, const std::vector<Shape>& shapes) {
  std::uint64_t rows = 0;
  for (const Shape& shape : shapes) {
    rows +=
        CountRows(database, shape, RowsOfPractice(shape)) - CountRows(database, shape, MadeBySchema(shape));
  }
  return rows;
}
