// Transactions: one level, begun and ended as the database wants it.
#include <new>

#include <fmt/format.h>

#include "platform/cdatabase.h"
#include "platform/cdbexception.h"
#include "platform/dialect.h"
#include "platform/log.h"
#include "platform/odbc.h"
#include "platform/result_codes.h"

namespace {

// A statement whose refusal is an answer, and no failure to be told.
bool Runs(CDatabase& database, const char* sql) {
  try {
    database.ExecuteSQL(sql);
    return true;
  } catch (CDBException* exception) {
    exception->Delete();
    return false;
  }
}

}  // namespace

BOOL CDatabase::BeginTrans() {
  if (!CanTransact() || m_bTransactionPending) return FALSE;
  const char* begin = TransactionBegin(*m_facts);
  if (!(begin != nullptr ? BeginByStatement(begin) : BeginByAttribute())) return FALSE;
  m_bTransactionPending = TRUE;
  m_bTransactionDoomed = FALSE;
  return TRUE;
}

// One database undoes all of a transaction at a deadlock and takes what follows for a new one, another one
// only the statement: a commit would store a part. So there is none on any of them.
BOOL CDatabase::CommitTrans() {
  if (!m_bTransactionDoomed) return EndTrans(true);
  klog::Error("transaction: not committed, the server has refused a part of it");
  EndTrans(false);
  return FALSE;
}

BOOL CDatabase::Rollback() { return EndTrans(false); }

void CDatabase::DoomTransaction() { m_bTransactionDoomed = m_bTransactionPending; }

// When only the answer failed, the transaction is there, and every later change would be lost with it. One
// that the caller has begun by a statement of his own is left alone.
bool CDatabase::BeginByStatement(const char* begin) {
  try {
    ExecuteSQL(begin);
    return true;
  } catch (CDBException* exception) {
    if (exception->m_strError.Find("within a transaction") < 0) TryRollback();
    klog::Caught(exception, kBadArgument);
    return false;
  } catch (const std::bad_alloc&) {
    TryRollback();  // memory may have run out when the statement had been run already
    throw;
  }
}

bool CDatabase::BeginByAttribute() {
  if (odbc::Succeeded(m_connection->SetAutocommit(false))) return true;
  FailTransaction();
  // It may have been switched off all the same.
  if (m_connection != nullptr && !odbc::Succeeded(m_connection->SetAutocommit(true))) ReleaseIfDead(true);
  return false;
}

// Fails, and that is no failure, when there is no transaction.
void CDatabase::TryRollback() { Runs(*this, "ROLLBACK"); }

bool CDatabase::RunTransactionStatement(const char* sql) {
  try {
    ExecuteSQL(sql);
    return true;
  } catch (CDBException* exception) {
    klog::Caught(exception, kBadArgument);
    return false;
  }
}

BOOL CDatabase::EndTrans(bool commit) {
  if (m_connection == nullptr || !m_bTransactionPending) return FALSE;
  CountChange();
  if (TransactionBegin(*m_facts) != nullptr) return EndByStatement(commit);
  // A failed end leaves the transaction pending, so that the caller may still roll it back. A server that
  // refuses a commit has rolled back by itself: a second one would succeed, and store nothing.
  if (!odbc::Succeeded(m_connection->EndTransaction(commit))) {
    if (commit) DoomTransaction();
    return FailTransaction();
  }
  m_bTransactionPending = m_bTransactionDoomed = FALSE;
  // A connection that stayed in the transaction would lose every later change: it is given up.
  if (!odbc::Succeeded(m_connection->SetAutocommit(true))) {
    LogTransactionFailure();
    ReleaseIfDead(true);
  }
  return TRUE;
}

// A rollback fails when the database has rolled back by itself, for want of space or the like. Should it not
// have heard of the rollback, no other transaction can be begun, and the connection, which would lose every
// later change, is given up.
BOOL CDatabase::EndByStatement(bool commit) {
  const bool ended = RunTransactionStatement(commit ? "COMMIT" : "ROLLBACK");
  if (ended || !commit) m_bTransactionPending = m_bTransactionDoomed = FALSE;
  if (ended || commit || m_connection == nullptr) return ended;
  if (!Runs(*this, TransactionBegin(*m_facts)) || !RunTransactionStatement("ROLLBACK")) ReleaseIfDead(true);
  return FALSE;
}

void CDatabase::LogTransactionFailure() const {
  for (const odbc::DiagRecord& record : m_connection->Diagnose()) {
    klog::Error(fmt::format("transaction: {} {} {}{}", record.state, record.native,
                            klog::MaskedMessage(record.state, record.message),
                            klog::ConflictNote(record.state)));
  }
}

// As if the framework had raised what it answers: what the driver says is kept for the last failure.
BOOL CDatabase::FailTransaction() {
  try {
    AfxThrowDBException(SQL_ERROR, this, SQL_NULL_HSTMT);
  } catch (CDBException* exception) {
    klog::Caught(exception, kBadArgument);
  }
  return FALSE;
}
