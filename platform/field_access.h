// Ways into a record set that are no business of callers' sets.
#ifndef KYODBC_PLATFORM_FIELD_ACCESS_H
#define KYODBC_PLATFORM_FIELD_ACCESS_H

#include <optional>

#include "platform/types.h"

class CFieldExchange;
class CRecordset;
struct FieldRef;

struct FieldAccess {
  // For the RFX functions.
  static void Exchange(CFieldExchange* exchange, const FieldRef& ref);
  // As RFX_Date, for a date without a time of day in a column of any type: written as it is compared with.
  static void ExchangeDay(CFieldExchange* exchange, const char* name, TIMESTAMP_STRUCT& value);
  // Whether the first row, which an open or a requery has just made current, is the only one; nothing when
  // the database does not tell. Members stay, and on true the position.
  static std::optional<bool> IsOnOnlyRow(CRecordset& set);
};

#endif
