// Going on after a lost connection: the exported name of an extension.
#include "frame/KyODBC.h"
#include "frame/KyODBCDiag.h"
#include "frame/flat_call.h"

namespace {

// The plain search for a key: that of the joined view tells of a database that fails as of a row that is
// not there.
WORD MoveToKey(CKyRecSet& set, LONG key, LONG* position) {
  const LONG found = key == 0 ? set.GetIndexPos() : set.CKyRecSet::MoveToIntID(key);
  if (key != 0 && (found == 0 || set.m_lID != key)) return kNoRow;
  if (position != nullptr) flat::Put(position, found);
  return kOk;
}

WORD ReopenAtKey(CDBConnection& connection, LONG number, LONG key, LONG* position) {
  if (number < KYODBC_SET_TDR || number > KYODBC_SET_TTEST) return kBadArgument;
  const WORD alive = connection.KeepAlive();
  if (alive != kOk && alive != kReconnected) {
    refusal::BecameCode(kNotOpened);
    return kNotOpened;
  }
  CKyRecSet* set = connection.SetAsItWas(number);
  if (!set->Open(set->m_nOpenType, nullptr, 0)) return kNotOpened;
  return MoveToKey(*set, key, position);
}

}  // namespace

WORD DB_ReopenAtKey(LONG set, LONG key, LONG* position) {
  CDBConnection& connection = TheConnection();
  return flat::Code(connection.m_bWanted ? &connection : nullptr,
                    [&] { return ReopenAtKey(connection, set, key, position); });
}
