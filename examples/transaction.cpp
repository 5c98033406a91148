// Several changes as one: all of them or none. Usage: transaction SOURCE [USER PASSWORD]
#include <KyODBC.h>

#include <cstdio>
#include <iostream>

namespace {

// Begins a transaction, and undoes it at the end of its scope unless it was committed.
class Transaction {
 public:
  Transaction() : m_pending(DB_BeginTransaction() == KYODBC_OK) {}
  ~Transaction() {
    if (m_pending) DB_RollbackTransaction();
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  bool Commit() {
    const bool committed = m_pending && DB_CommitTransaction() == KYODBC_OK;
    if (committed) m_pending = false;
    return committed;
  }

 private:
  bool m_pending;
};

bool AddStation(const char* name) {
  tagTSTATION station{};
  std::snprintf(station.szName, sizeof station.szName, "%s", name);
  return DB_AddNewTStat(&station) == KYODBC_OK;
}

void DeleteStation(const char* name) {
  tagTSTATION station{};
  std::snprintf(station.szName, sizeof station.szName, "%s", name);
  DB_DeleteTStat(&station);
}

// Both stations or none; a name that is taken makes the second add fail.
bool AddPair(const char* first, const char* second) {
  Transaction transaction;
  return AddStation(first) && AddStation(second) && transaction.Commit();
}

void PrintCount(const char* when) {
  LONG count = 0;
  DB_GetNumTStat(&count);
  std::cout << when << ": " << count << " stations\n";
}

}  // namespace

int main(int argc, char** argv) {
  tagDBCONNECT source{};
  std::snprintf(source.szDSN, sizeof source.szDSN, "%s", argc > 1 ? argv[1] : "practice");
  std::snprintf(source.szUID, sizeof source.szUID, "%s", argc > 3 ? argv[2] : "");
  std::snprintf(source.szPWD, sizeof source.szPWD, "%s", argc > 3 ? argv[3] : "");
  if (DB_InitDatabase(&source) != KYODBC_OK) return 1;
  PrintCount("before");
  AddPair("Left", "Left");
  PrintCount("after a pair that failed");
  AddPair("Left", "Right");
  PrintCount("after a pair that worked");
  DeleteStation("Left");
  DeleteStation("Right");
  PrintCount("in the end");
  return DB_CloseDatabase();
}
