#include "rowops/newest.h"

#include <string>
#include <string_view>

#include "platform/one_row.h"

namespace rowops {
namespace {

// Where no statements are kept.
class NewestSet : public CRecordset {
 public:
  NewestSet(CDatabase* database, const CString& tables, const NewestQuery& query)
      : CRecordset(database), m_tables(tables), m_columns(query) {
    m_nFields = 2;
  }
  ~NewestSet() override = default;
  CString GetDefaultSQL() override { return m_tables; }
  void DoFieldExchange(CFieldExchange* exchange) override {
    exchange->SetFieldType(CFieldExchange::outputColumn);
    RFX_Long(exchange, m_columns.key, m_row.key);
    RFX_Date(exchange, m_columns.time, m_row.time);
  }
  bool Read(NewestRow* row) {
    if (m_pDatabase != nullptr && m_pDatabase->IsOpen()) m_strSort += m_pDatabase->FirstRowOnly();
    if (!Open(snapshot, nullptr, readOnly) || !IsOpen()) return false;
    m_row.is_there = !IsEOF();
    *row = m_row;
    return true;
  }

 private:
  NewestRow m_row;
  const CString m_tables;
  const NewestQuery& m_columns;
};

// The same query, with the owner's key taken out of its filter.
MarkedSQL Marked(const CString& tables, const NewestQuery& query, LONG owner_key, const char* first_row) {
  constexpr std::size_t kUsual = 256;
  std::string sql;
  sql.reserve(kUsual);
  sql.append("SELECT ").append(query.key).append(",").append(query.time).append(" FROM ");
  sql.append(tables.View());
  MarkedSQL marked;
  if (owner_key != 0) {
    const std::string_view filter = query.filter;
    const std::size_t key = filter.find("%d");
    sql.append(" WHERE ").append(filter.substr(0, key)).append("?").append(filter.substr(key + 2));
    marked.values.push_back(NumberValue(owner_key));
  }
  sql.append(" ORDER BY ").append(query.sort).append(first_row);
  marked.sql = CString(std::move(sql));
  return marked;
}

}  // namespace

bool ReadNewest(CDatabase* database, const CString& tables, const NewestQuery& query, LONG owner_key,
                NewestRow* row) {
  if (!OneRow::Suits(database)) {
    NewestSet set(database, tables, query);
    if (owner_key != 0) set.m_strFilter.Format(query.filter, owner_key);
    set.m_strSort = query.sort;
    return set.Read(row);
  }
  const MarkedSQL marked = Marked(tables, query, owner_key, database->FirstRowOnly());
  const OneRow newest(*database, marked, {OneRow::Column::kNumber, OneRow::Column::kTime});
  row->is_there = newest.IsThere();
  if (row->is_there) *row = {true, newest.Number(0), newest.Time(1)};
  return true;
}

}  // namespace rowops
