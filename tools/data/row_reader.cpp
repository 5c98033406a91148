#include "tools/data/row_reader.h"

#include <fmt/format.h>

#include <utility>

namespace {

constexpr int kPageRows = 400;

Row ReadRow(CRecordset& rows, const Shape& shape) {
  Row row;
  CDBVariant value;
  for (short index = 0; index < rows.GetODBCFieldCount(); ++index) {
    rows.GetFieldValue(index, value, SQL_C_CHAR);
    Value text;
    if (value.m_dwType == DBVT_STRING) text = std::string(value.m_pstring->View());
    MakeUniform(text, shape.kinds[static_cast<std::size_t>(index)]);
    row.push_back(std::move(text));
  }
  return row;
}

}  // namespace

std::string RowsOfPractice(const Shape& shape) {
  if (shape.table != "TConfig") return "1 = 1";
  return fmt::format("(tCfgSKey IS NULL OR tCfgSKey <> '{}')", kCopyNote);
}

RowReader::RowReader(PracticeDatabase& database, const Shape& shape, LONG after)
    : m_database(database), m_shape(shape), m_after(after) {}

std::string RowReader::Query() const {
  return fmt::format("SELECT {} FROM {} WHERE {} AND {} > {} ORDER BY {} LIMIT {}",
                     fmt::join(m_shape.columns, ", "), m_database.Name(m_shape.table),
                     RowsOfPractice(m_shape), m_shape.KeyName(), m_after, m_shape.KeyName(), kPageRows);
}

std::deque<Row> RowReader::NextPage() {
  if (m_end) return {};
  std::deque<Row> page;
  try {
    CRecordset rows(&m_database.Connection());
    rows.Open(CRecordset::snapshot, Query().c_str(), CRecordset::readOnly);
    for (; !rows.IsEOF(); rows.MoveNext()) page.push_back(ReadRow(rows, m_shape));
  } catch (CDBException* exception) {
    ThrowRefused(exception, "reading " + m_shape.table);
  }
  m_end = page.size() < kPageRows;
  if (!page.empty()) m_after = KeyOf(m_shape, page.back());
  return page;
}

std::optional<Row> RowReader::Next() {
  if (m_page.empty()) m_page = NextPage();
  if (m_page.empty()) return std::nullopt;
  Row row = std::move(m_page.front());
  m_page.pop_front();
  return row;
}
