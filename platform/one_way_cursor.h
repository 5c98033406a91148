// Rows of a query that is looked at once, from the first row on: the cheapest cursor there is. One driver
// reads the statement through, byte by byte, at each execution of any other. A way back runs the query again.
#ifndef KYODBC_PLATFORM_ONE_WAY_CURSOR_H
#define KYODBC_PLATFORM_ONE_WAY_CURSOR_H

#include "platform/static_cursor.h"

class OneWayCursor : public StaticCursor {
 public:
  explicit OneWayCursor(KeptStatements& statements) : StaticCursor(statements) {}

  RETCODE Execute(const RowQuery& query) override;

 protected:
  KeptStatements::Cursor Kind() const override { return KeptStatements::Cursor::kNone; }
  RETCODE FetchRow(SQLLEN row) override;
  RETCODE CountPhysical(SQLLEN* count) override;

 private:
  RETCODE Restart();

  SQLLEN m_row = 0;  // the driver's cursor stands on it; kUnknown after a failed fetch and at the end
  SQLLEN m_count = kUnknown;  // until the end was seen
};

#endif
