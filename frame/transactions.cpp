// Transactions on the library's connection. No state is kept here: the database object has it.
#include "frame/KyODBC.h"
#include "frame/flat_call.h"

namespace {

WORD Run(BOOL (CDatabase::*operation)(), const char* function = __builtin_FUNCTION()) {
  CDatabase* database = TheConnection().m_pDatabase;
  const auto run = [&] {
    // A lost connection is none; what the data source can do does not come into it.
    if (!database->IsOpen()) return kNotOpened;
    if (!database->CanTransact()) return kNoTransactions;
    return (database->*operation)() ? kOk : kBadArgument;
  };
  return flat::Code(database, run, function);
}

}  // namespace

WORD DB_BeginTransaction() { return Run(&CDatabase::BeginTrans); }
WORD DB_CommitTransaction() { return Run(&CDatabase::CommitTrans); }
WORD DB_RollbackTransaction() { return Run(&CDatabase::Rollback); }
