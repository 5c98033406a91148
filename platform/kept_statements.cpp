#include "platform/kept_statements.h"

#include <algorithm>

#include "platform/dialect.h"

namespace {

// Ten tables with their operations in everyday use; servers limit the number, but at thousands.
constexpr std::size_t kMostIdle = 64;
constexpr std::size_t kMostKnown = 1024;

// A statement prepared for values of some types may not fit those of others.
std::string TextOf(const MarkedSQL& query, KeptStatements::Cursor cursor) {
  std::string text(query.sql.View());
  text += cursor == KeptStatements::Cursor::kStatic ? '\1' : '\2';
  for (const odbc::Parameter& value : query.values) text += static_cast<char>(value.sql_type);
  return text;
}

}  // namespace

KeptStatements::KeptStatements(odbc::Connection& connection, DWORD query_timeout)
    : m_connection(connection), m_query_timeout(query_timeout) {
  m_idle.reserve(kMostIdle);
}

std::unique_ptr<KeptStatement> KeptStatements::Take(const MarkedSQL& query, Cursor cursor) {
  const std::string text = TextOf(query, cursor);
  const auto found =
      std::find_if(m_idle.begin(), m_idle.end(), [&text](const auto& kept) { return kept->text == text; });
  if (found != m_idle.end()) {
    std::unique_ptr<KeptStatement> kept = std::move(*found);
    m_idle.erase(found);
    return kept;
  }
  return MakeFresh(cursor);
}

std::unique_ptr<KeptStatement> KeptStatements::MakeFresh(Cursor cursor) {
  auto kept = std::make_unique<KeptStatement>(m_connection);
  if (cursor == Cursor::kStatic) kept->statement.AskForStaticCursor();
  kept->statement.AskForQueryTimeout(m_query_timeout);
  return kept;
}

void KeptStatements::GiveBack(std::unique_ptr<KeptStatement> kept) {
  if (kept == nullptr || kept->text.empty() || kept->statement.Handle() == SQL_NULL_HSTMT) return;
  kept->statement.CloseCursor();
  if (kept->row == nullptr) kept->statement.UnbindColumns();
  if (m_idle.size() >= kMostIdle) m_idle.pop_back();
  m_idle.insert(m_idle.begin(), std::move(kept));
}

void KeptStatements::SetQueryTimeout(DWORD seconds) {
  m_query_timeout = seconds;
  m_idle.clear();
}

RETCODE KeptStatements::RunOnce(const MarkedSQL& query, bool direct, KeptStatement* kept) {
  kept->values = query.values;
  SQLUSMALLINT position = 0;
  for (odbc::Parameter& value : kept->values) {
    const RETCODE code = kept->statement.BindParameter(++position, &value);
    if (!odbc::Succeeded(code)) return code;
  }
  if (direct) return kept->statement.ExecuteDirect(query.sql);
  if (kept->text.empty()) {
    const RETCODE code = kept->statement.Prepare(query.sql);
    if (!odbc::Succeeded(code)) return code;
  }
  return kept->statement.Execute();
}

RETCODE KeptStatements::Run(const MarkedSQL& query, Cursor cursor, std::unique_ptr<KeptStatement>* kept) {
  std::string text = TextOf(query, cursor);
  const bool prepared_before = !(*kept)->text.empty();
  // Queries are always prepared: one driver does not survive the loss of the connection while it runs one
  // directly with values.
  const bool known = IsSelect(query.sql) || m_known.find(text) != m_known.end();
  const bool direct = !prepared_before && !known;
  RETCODE code = RunOnce(query, direct, kept->get());
  if (prepared_before && code == SQL_ERROR && TellsOfStaleStatement((*kept)->statement.Diagnose())) {
    *kept = nullptr;
    *kept = MakeFresh(cursor);
    code = RunOnce(query, false, kept->get());
  }
  (*kept)->text.clear();
  if (!odbc::Succeeded(code) && code != SQL_NO_DATA) return code;
  if (direct) {
    if (m_known.size() >= kMostKnown) m_known.clear();
    m_known.insert(std::move(text));
  } else {
    (*kept)->text = std::move(text);
  }
  return code;
}

const ColumnShape* KeptStatements::FindShape(const CString& select) const {
  const auto found = m_shapes.find(select.View());
  return found == m_shapes.end() ? nullptr : &found->second;
}
