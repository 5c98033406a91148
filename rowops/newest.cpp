#include "rowops/newest.h"

namespace rowops {

NewestRow::NewestRow(CDatabase* database, const CString& tables, const NewestQuery& query,
                     const CString& filter)
    : CRecordset(database), m_tables(tables), m_columns(query) {
  m_nFields = 2;
  HoldRows(fewRows);
  m_strFilter = filter;
  m_strSort = query.sort;
}

NewestRow::~NewestRow() = default;

void NewestRow::DoFieldExchange(CFieldExchange* exchange) {
  exchange->SetFieldType(CFieldExchange::outputColumn);
  RFX_Long(exchange, m_columns.key, m_key);
  RFX_Date(exchange, m_columns.time, m_time);
}

bool NewestRow::Read() {
  if (m_pDatabase != nullptr && m_pDatabase->IsOpen()) m_strSort += m_pDatabase->FirstRowOnly();
  return Open(snapshot, nullptr, readOnly) && IsOpen();
}

}  // namespace rowops
