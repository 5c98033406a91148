#include "tools/connection.h"

#include <fmt/format.h>

#include <optional>
#include <string>

#include "tools/tool_error.h"

Connection::Connection(const Place& place) {
  const tagDBCONNECT parameters = Parameters(place);
  const WORD code = DB_InitDatabase(&parameters);
  try {
    Check(code, "connecting to " + place.practice);
  } catch (const ToolError& error) {
    const std::optional<std::string> source = SourceOf(place);
    if (!source) throw;
    throw ToolError(kFailed,
                    fmt::format("{}; 'kyodbc doctor {}' looks for the cause", error.what(), *source));
  }
}

Connection::~Connection() { DB_CloseDatabase(); }

Batches::Batches() { Begin(); }

Batches::~Batches() {
  if (m_open) DB_RollbackTransaction();
}

void Batches::Begin() {
  Check(DB_BeginTransaction(), "beginning a transaction");
  m_open = true;
}

void Batches::Commit() {
  Check(DB_CommitTransaction(), "committing a transaction");
  m_open = false;
}

void Batches::Step() {
  if (++m_steps % kSteps != 0) return;
  Commit();
  Begin();
}

void Batches::Finish() { Commit(); }
