// Transactions on the library's connection. No state is kept here: the database object has it.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"

namespace {

WORD Run(BOOL (CDatabase::*operation)()) {
  CDatabase* database = TheConnection().m_pDatabase;
  return flat::Code(database, [&] {
    if (!database->CanTransact()) return kNoTransactions;
    return (database->*operation)() ? kOk : kBadArgument;
  });
}

}  // namespace

WORD DB_BeginTransaction() { return Run(&CDatabase::BeginTrans); }
WORD DB_CommitTransaction() { return Run(&CDatabase::CommitTrans); }
WORD DB_RollbackTransaction() { return Run(&CDatabase::Rollback); }
