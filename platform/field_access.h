// The way of the RFX functions into the record set that they exchange for.
#ifndef KYODBC_PLATFORM_FIELD_ACCESS_H
#define KYODBC_PLATFORM_FIELD_ACCESS_H

class CFieldExchange;
struct FieldRef;

struct FieldAccess {
  static void Exchange(CFieldExchange* exchange, const FieldRef& ref);
};

#endif
