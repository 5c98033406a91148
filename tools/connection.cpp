#include "tools/connection.h"

#include "tools/tool_error.h"

Connection::Connection(const Place& place) {
  const tagDBCONNECT parameters = Parameters(place);
  Check(DB_InitDatabase(&parameters), "connecting to " + place.practice);
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
