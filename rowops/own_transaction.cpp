#include "rowops/own_transaction.h"

#include <new>

namespace rowops {

OwnTransaction::~OwnTransaction() {
  try {
    if (m_begun != nullptr) m_begun->Rollback();
  } catch (const std::bad_alloc&) {
    // Not even the rollback could be sent: the connection has been given up.
  }
}

bool OwnTransaction::Begin(CDatabase* database) {
  if (!database->CanTransact() || database->InTransaction()) return true;
  if (!database->BeginTrans()) return false;
  m_begun = database;
  return true;
}

bool OwnTransaction::Commit() {
  if (m_begun == nullptr) return true;
  if (!m_begun->CommitTrans()) return false;  // the end rolls back
  m_begun = nullptr;
  return true;
}

}  // namespace rowops
