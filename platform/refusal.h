// What the database said when it last refused something, without values of rows. It outlives the exception,
// so that a failure can be told in more than a code.
#ifndef KYODBC_PLATFORM_REFUSAL_H
#define KYODBC_PLATFORM_REFUSAL_H

#include <string_view>

#include "platform/cdbexception.h"
#include "platform/types.h"

namespace refusal {

struct Refusal {
  WORD code = 0;       // what it was turned into; 0: there was none
  char state[6] = {};  // SQLSTATE; empty when the framework itself refused
  LONG native = 0;
  LONG records = 0;  // diagnostic records that the driver gave
  char message[512] = {};
};

// The last one since Forget. Static memory.
const Refusal& Last();
void Forget();

// Never throws: without memory the message stays empty.
void Remember(const CDBException& exception, WORD code) noexcept;

// The last one, if any, led to another code than it was turned into at first.
void BecameCode(WORD code);

// The SQLSTATE and the native code of the first line of m_strStateNativeOrigin; empty and 0 without one.
struct Origin {
  CString state;
  LONG native = 0;
};
Origin OriginOf(const CDBException& exception);

// Two changes met, and the database took the other one: a deadlock, or another node of a cluster was first.
// `state` is an SQLSTATE.
bool IsConflict(std::string_view state);
bool IsConflict(const CDBException& exception);

}  // namespace refusal

#endif
