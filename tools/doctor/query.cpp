#include "tools/doctor/query.h"

std::string Refusal(const std::function<void()>& action) {
  try {
    action();
    return {};
  } catch (CDBException* exception) {
    std::string said = exception->m_strError.GetString();
    exception->Delete();
    while (!said.empty() && (said.back() == '\n' || said.back() == '.')) said.pop_back();
    return said.empty() ? "the database gives no reason" : said;
  }
}

std::string Answer(CDatabase& database, const std::string& query) {
  std::string answer;
  Refusal([&] {
    CRecordset rows(&database);
    rows.Open(CRecordset::snapshot, query.c_str(), CRecordset::readOnly);
    CString value;
    if (!rows.IsEOF()) rows.GetFieldValue(short{0}, value);
    answer = value.GetString();
  });
  return answer;
}
