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

// However it goes, no transaction is pending afterwards: a caller who does not look at the answer would lose
// all that he changes later. What could not be committed is rolled back, and a connection that cannot even do
// that is given up.
BOOL CDatabase::EndTrans(bool commit) {
  if (m_connection == nullptr || !m_bTransactionPending) return FALSE;
  CountChange();
  try {
    const bool ended =
        TransactionBegin(*m_facts) != nullptr ? EndByStatement(commit) : EndByAttribute(commit);
    m_bTransactionPending = m_bTransactionDoomed = FALSE;
    return ended;
  } catch (const std::bad_alloc&) {
    ReleaseIfDead(true);
    throw;
  }
}

bool CDatabase::EndByAttribute(bool commit) {
  const bool ended = odbc::Succeeded(m_connection->EndTransaction(commit));
  if (!ended) FailTransaction();
  if (m_connection == nullptr) return false;
  if (!ended && !odbc::Succeeded(m_connection->EndTransaction(false))) {
    ReleaseIfDead(true);
  } else if (!odbc::Succeeded(m_connection->SetAutocommit(true))) {
    LogTransactionFailure();
    ReleaseIfDead(true);
  }
  return ended;
}

// A rollback is refused when the database has rolled back by itself, for want of space or the like: then a
// transaction can be begun.
bool CDatabase::EndByStatement(bool commit) {
  if (RunTransactionStatement(commit ? "COMMIT" : "ROLLBACK")) return true;
  if (m_connection == nullptr || Runs(*this, "ROLLBACK")) return false;
  if (!Runs(*this, TransactionBegin(*m_facts)) || !RunTransactionStatement("ROLLBACK")) ReleaseIfDead(true);
  return false;
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
