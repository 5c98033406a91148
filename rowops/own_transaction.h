// A transaction of the library's own around the steps of one change, so that all of them come true or none.
#ifndef KYODBC_ROWOPS_OWN_TRANSACTION_H
#define KYODBC_ROWOPS_OWN_TRANSACTION_H

#include "platform/cdatabase.h"

namespace rowops {

// Without effect where the caller has begun a transaction, which then covers the change, and where the data
// source has none.
class OwnTransaction {
 public:
  OwnTransaction() = default;
  ~OwnTransaction();  // rolls back what was begun and not committed
  OwnTransaction(const OwnTransaction&) = delete;
  OwnTransaction& operator=(const OwnTransaction&) = delete;

  // False: there could be one and it was not begun; the change must not be made.
  bool Begin(CDatabase* database);
  // False: the commit failed, and everything was rolled back, unless the connection was lost at just that
  // moment: then nobody here knows.
  bool Commit();
  bool IsPending() const { return m_begun != nullptr; }  // begun and not committed

 private:
  CDatabase* m_begun = nullptr;
};

}  // namespace rowops

#endif
