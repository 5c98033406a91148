#include "platform/kept_statements.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "platform/dialect.h"
#include "platform/row_fields.h"

namespace {

// Ten tables with their operations in everyday use; servers limit the number, but at thousands.
constexpr std::size_t kMostIdle = 64;
constexpr std::size_t kMostKnown = 1024;
constexpr std::size_t kMostFields = 32;

unsigned NextState() {
  static unsigned state = 0;
  return ++state;
}

// A statement prepared for values of some types may not fit those of others.
void AppendKind(const MarkedSQL& query, bool is_static, std::string* text) {
  *text += is_static ? '\1' : '\2';
  for (const odbc::Parameter& value : query.values) *text += static_cast<char>(value.sql_type);
}

bool IsMadeFor(const KeptStatement& kept, const MarkedSQL& query, bool is_static) {
  if (kept.is_static != is_static || kept.values.size() != query.values.size()) return false;
  const std::string_view sql = query.sql.View();
  if (kept.sql_length != sql.size() || std::string_view(kept.text).substr(0, sql.size()) != sql) return false;
  return std::equal(kept.values.begin(), kept.values.end(), query.values.begin(),
                    [](const auto& one, const auto& other) { return one.sql_type == other.sql_type; });
}

KeptStatement::Bound BindingOf(const odbc::Parameter& value) {
  const void* place = value.c_type == SQL_C_SLONG ? static_cast<const void*>(&value.number)
                                                  : static_cast<const void*>(value.text.data());
  return {place, value.size, value.text.size(), value.digits};
}

RETCODE BindValues(KeptStatement* kept) {
  SQLUSMALLINT position = 0;
  kept->bound.resize(kept->values.size());
  for (odbc::Parameter& value : kept->values) {
    KeptStatement::Bound& bound = kept->bound[position++];
    if (bound == BindingOf(value)) continue;
    bound = {};
    const RETCODE code = kept->statement.BindParameter(position, &value);
    if (!odbc::Succeeded(code)) return code;
    bound = BindingOf(value);
  }
  return SQL_SUCCESS;
}

// Conditions of equality alone: their rows are found by the index whether it holds all that is asked or not.
bool OnlyLooksUp(std::string_view sql) {
  constexpr std::string_view kOthers[] = {"<", ">", "LIKE", " OR ", " IN", "BETWEEN", "ORDER BY"};
  return sql.find('=') != std::string_view::npos &&
         std::none_of(std::begin(kOthers), std::end(kOthers),
                      [&](std::string_view other) { return sql.find(other) != std::string_view::npos; });
}

}  // namespace

bool WorksPlainly() {
  static const bool plainly = std::getenv("KYODBC_PLAIN_STATEMENTS") != nullptr;
  return plainly;
}

KeptStatements::KeptStatements(odbc::Connection& connection, DWORD query_timeout, bool forgets_indexes)
    : m_connection(connection),
      m_query_timeout(query_timeout),
      m_forgets_indexes(forgets_indexes),
      m_state(NextState()) {
  m_idle.reserve(kMostIdle);
  m_fields.reserve(kMostFields);
}

KeptStatements::~KeptStatements() = default;

std::unique_ptr<KeptStatement> KeptStatements::Take(const MarkedSQL& query, Cursor cursor) {
  const bool is_static = cursor == Cursor::kStatic;
  const auto found = std::find_if(m_idle.rbegin(), m_idle.rend(),
                                  [&](const auto& kept) { return IsMadeFor(*kept, query, is_static); });
  if (found != m_idle.rend()) {
    std::unique_ptr<KeptStatement> kept = std::move(*found);
    m_idle.erase(std::next(found).base());
    return kept;
  }
  return MakeFor(query, is_static);
}

std::unique_ptr<KeptStatement> KeptStatements::TakeForIndex(const MarkedSQL& query) {
  if (!m_forgets_indexes || OnlyLooksUp(query.sql.View())) return Take(query, Cursor::kNone);
  std::unique_ptr<KeptStatement> fresh = MakeFor(query, false);
  fresh->once = true;
  return fresh;
}

std::unique_ptr<KeptStatement> KeptStatements::MakeFor(const MarkedSQL& query, bool is_static) {
  std::unique_ptr<KeptStatement> kept = MakeFresh(is_static);
  kept->text = query.sql.View();
  kept->sql_length = kept->text.size();
  AppendKind(query, is_static, &kept->text);
  kept->values = query.values;
  return kept;
}

std::unique_ptr<KeptStatement> KeptStatements::MakeFresh(bool is_static) {
  auto kept = std::make_unique<KeptStatement>(m_connection);
  kept->is_static = is_static;
  if (is_static) kept->statement.AskForStaticCursor();
  kept->statement.AskForQueryTimeout(m_query_timeout);
  return kept;
}

void KeptStatements::GiveBack(std::unique_ptr<KeptStatement> kept) {
  if (kept == nullptr || kept->once || !kept->prepared || kept->statement.Handle() == SQL_NULL_HSTMT) return;
  kept->statement.CloseCursor();
  if (kept->row == nullptr) kept->statement.UnbindColumns();
  if (m_idle.size() >= kMostIdle) m_idle.erase(m_idle.begin());
  m_idle.push_back(std::move(kept));
}

void KeptStatements::SetQueryTimeout(DWORD seconds) {
  m_query_timeout = seconds;
  m_idle.clear();
}

RETCODE KeptStatements::RunOnce(KeptStatement* kept, bool direct) {
  const RETCODE code = BindValues(kept);
  if (!odbc::Succeeded(code)) return code;
  if (direct) return kept->statement.ExecuteDirect(kept->Sql());
  if (!kept->prepared) {
    const RETCODE prepared = kept->statement.Prepare(kept->Sql());
    if (!odbc::Succeeded(prepared)) return prepared;
  }
  return kept->statement.Execute();
}

RETCODE KeptStatements::Run(const MarkedSQL& query, std::unique_ptr<KeptStatement>* kept) {
  // In place: values that stay where they are need not be bound again.
  std::copy(query.values.begin(), query.values.end(), (*kept)->values.begin());
  return RunAgain(kept);
}

RETCODE KeptStatements::RunAgain(std::unique_ptr<KeptStatement>* kept) {
  const bool prepared_before = (*kept)->prepared;
  // Queries are prepared, but for those without values that are run once: values need a prepared statement to
  // survive the loss of the connection in one driver (Connection::PrepareWhatAnswers does that for the rest).
  const bool direct =
      !prepared_before && ((*kept)->once ? (*kept)->values.empty()
                                         : !IsSelect((*kept)->Sql()) && m_known.count((*kept)->text) == 0);
  RETCODE code = RunOnce(kept->get(), direct);
  if (prepared_before && code == SQL_ERROR && TellsOfStaleStatement((*kept)->statement.Diagnose())) {
    NoteStale();
    std::unique_ptr<KeptStatement> fresh = MakeFresh((*kept)->is_static);
    fresh->text = std::move((*kept)->text);
    fresh->sql_length = (*kept)->sql_length;
    fresh->values = std::move((*kept)->values);
    *kept = std::move(fresh);
    code = RunOnce(kept->get(), false);
  }
  const bool ran = odbc::Succeeded(code) || code == SQL_NO_DATA;
  (*kept)->prepared = ran && !direct;
  if (ran && direct && !(*kept)->once) {
    if (m_known.size() >= kMostKnown) m_known.clear();
    m_known.insert((*kept)->text);
  }
  return code;
}

// A table was changed: its columns may be others now.
void KeptStatements::NoteStale() {
  m_state = NextState();
  m_shapes.clear();
}

const ColumnShape* KeptStatements::FindShape(const CString& select) const {
  const auto found = m_shapes.find(select.View());
  return found == m_shapes.end() ? nullptr : &found->second;
}

std::unique_ptr<RowFields> KeptStatements::TakeFields(const CString& tables) {
  const auto found = std::find_if(m_fields.rbegin(), m_fields.rend(),
                                  [&](const auto& fields) { return fields->Tables() == tables; });
  if (found == m_fields.rend()) return nullptr;
  std::unique_ptr<RowFields> fields = std::move(*found);
  m_fields.erase(std::next(found).base());
  return fields;
}

void KeptStatements::GiveBackFields(std::unique_ptr<RowFields> fields) {
  if (m_fields.size() >= kMostFields) m_fields.erase(m_fields.begin());
  m_fields.push_back(std::move(fields));
}
