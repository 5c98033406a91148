#include "platform/one_row.h"

#include <cstring>

#include "platform/cdbexception.h"
#include "platform/field_value.h"
#include "platform/row_fields.h"

namespace {

constexpr std::size_t kPlace = sizeof(TIMESTAMP_STRUCT);  // bytes for each column

}  // namespace

bool OneRow::Suits(CDatabase* database) {
  return !WorksPlainly() && database != nullptr && database->IsOpen() && database->KeepsStatements();
}

OneRow::OneRow(CDatabase& database, const MarkedSQL& query, std::initializer_list<Column> columns, By by)
    : m_database(database) {
  const RETCODE code = Read(query, columns, by);
  if (!odbc::Succeeded(code) && code != SQL_NO_DATA) {
    AfxThrowDBException(code, &m_database, m_kept->statement.Handle());
  }
  m_is_there = code != SQL_NO_DATA;
}

OneRow::~OneRow() { m_database.Statements().GiveBack(std::move(m_kept)); }

RETCODE OneRow::Read(const MarkedSQL& query, std::initializer_list<Column> columns, By by) {
  KeptStatements& statements = m_database.Statements();
  m_kept = by == By::kIndex ? statements.TakeForIndex(query)
                            : statements.Take(query, KeptStatements::Cursor::kNone);
  RETCODE code = statements.Run(query, &m_kept);
  if (odbc::Succeeded(code) && m_kept->row == nullptr) code = Bind(columns);
  return odbc::Succeeded(code) ? m_kept->statement.ExtendedFetch(SQL_FETCH_NEXT, 0) : code;
}

// The layout tells which columns are dates.
RETCODE OneRow::Bind(std::initializer_list<Column> columns) {
  odbc::Statement& statement = m_kept->statement;
  auto row = std::make_shared<RowBuffer>();
  row->bytes = std::make_unique<char[]>(columns.size() * kPlace);
  row->indicators.resize(columns.size());
  SQLUSMALLINT number = 0;
  for (const Column column : columns) {
    char* const value = row->bytes.get() + number * kPlace;
    SQLLEN* const indicator = &row->indicators[number++];
    Field field;
    const bool time = column == Column::kTime;
    RETCODE code = time ? statement.DescribeColumn(number, &field.column) : SQL_SUCCESS;
    if (!odbc::Succeeded(code)) return code;
    row->layout.push_back(IsDateColumn(field) ? 1 : 0);
    const SWORD type = time ? SWORD{SQL_C_TYPE_TIMESTAMP} : SWORD{SQL_C_SLONG};
    code = statement.BindColumn(number, type, value, kPlace, indicator);
    if (!odbc::Succeeded(code)) {
      statement.UnbindColumns();
      return code;
    }
  }
  m_kept->row = std::move(row);
  return SQL_SUCCESS;
}

bool OneRow::IsNull(std::size_t column) const { return m_kept->row->indicators[column] == SQL_NULL_DATA; }

const char* OneRow::Value(std::size_t column) const { return m_kept->row->bytes.get() + column * kPlace; }

LONG OneRow::Number(std::size_t column) const {
  LONG number = 0;
  if (!IsNull(column)) std::memcpy(&number, Value(column), sizeof number);
  return number;
}

TIMESTAMP_STRUCT OneRow::Time(std::size_t column) const {
  TIMESTAMP_STRUCT time = {};
  if (IsNull(column)) return time;
  std::memcpy(&time, Value(column), sizeof time);
  return m_kept->row->layout[column] != 0 ? DayOf(time) : time;
}
