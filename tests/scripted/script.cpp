#include "tests/scripted/script.h"

namespace scripted {
namespace {

std::unique_ptr<Script>& Current() {
  static std::unique_ptr<Script> script = std::make_unique<Script>();
  return script;
}

}  // namespace

Script& TheScript() { return *Current(); }
void NewScript() { Current() = std::make_unique<Script>(); }

void Script::Answer(const std::string& function, const std::vector<SQLRETURN>& codes,
                    const Records& records) {
  for (const SQLRETURN code : codes) m_answers[function].push_back({code, records});
}

int Script::Calls(const std::string& function) const {
  const auto found = m_calls.find(function);
  return found == m_calls.end() ? 0 : found->second;
}

Handle* Script::Find(SQLHANDLE handle) {
  if (handle == SQL_NULL_HANDLE) return nullptr;
  const auto found = m_handles.find(static_cast<Handle*>(handle));
  if (found != m_handles.end()) return found->second.get();
  ++m_misuses;
  return nullptr;
}

Handle* Script::Make(SQLSMALLINT kind, Handle* parent) {
  auto made = std::make_unique<Handle>();
  made->kind = kind;
  made->parent = parent;
  Handle* handle = made.get();
  m_handles[handle] = std::move(made);
  return handle;
}

void Script::Free(Handle* handle) {
  for (const auto& [key, other] : m_handles) {
    if (other->parent == handle) ++m_misuses;
  }
  m_handles.erase(handle);
}

SQLRETURN Script::Begin(const std::string& function, Handle* handle) {
  ++m_calls[function];
  if (handle == nullptr) return SQL_INVALID_HANDLE;
  handle->records.clear();
  std::deque<Scripted>& answers = m_answers[function];
  if (answers.empty()) return SQL_SUCCESS;
  const Scripted answer = answers.front();
  answers.pop_front();
  handle->records = answer.records;
  return answer.code;
}

void Script::Run(Handle* statement, const std::string& sql) {
  statement->sql = sql;
  statement->result = Result();
  statement->row = 0;
  m_sent.push_back(sql);
  for (const auto& [text, result] : m_results) {
    if (sql.starts_with(text)) statement->result = result;
  }
}

}  // namespace scripted
