// Transactions on the library's connection. No state is kept here: the database object has it.
#include <new>

#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "platform/log.h"

namespace {

BOOL Begin(CDatabase& database) { return database.BeginTrans(); }

BOOL Commit(CDatabase& database) { return database.CommitTrans(); }

// A rollback reads no browse set again: what changes have marked is read while it is as they left it.
BOOL RollBack(CDatabase& database) {
  try {
    if (database.InTransaction()) TheConnection().ReadMarkedSets();
  } catch (const std::bad_alloc&) {
    klog::Error("transaction: no memory to read browse sets again");
  }
  return database.Rollback();
}

WORD Run(BOOL (*operation)(CDatabase&), const char* function = __builtin_FUNCTION()) {
  CDatabase* database = TheConnection().m_pDatabase;
  const auto run = [&] {
    // A lost connection is none; what the data source can do does not come into it.
    if (!database->IsOpen()) return kNotOpened;
    if (!database->CanTransact()) return kNoTransactions;
    return operation(*database) ? kOk : kBadArgument;
  };
  return flat::Code(database, run, function);
}

}  // namespace

WORD DB_BeginTransaction() { return Run(Begin); }
WORD DB_CommitTransaction() { return Run(Commit); }
WORD DB_RollbackTransaction() { return Run(RollBack); }
