// Ways into a record set that are no business of callers' sets.
#ifndef KYODBC_PLATFORM_FIELD_ACCESS_H
#define KYODBC_PLATFORM_FIELD_ACCESS_H

#include <optional>

class CFieldExchange;
class CRecordset;
struct FieldRef;

struct FieldAccess {
  // For the RFX functions.
  static void Exchange(CFieldExchange* exchange, const FieldRef& ref);
  // Whether the first row, which an open or a requery has just made current, is the only one; nothing when
  // the database does not tell. Members stay, and on true the position.
  static std::optional<bool> IsOnOnlyRow(CRecordset& set);
};

#endif
