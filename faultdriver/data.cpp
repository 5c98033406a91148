// Data on its way to the program, and counts of rows: what can be distorted.
#include <algorithm>
#include <cstring>

#include "faultdriver/hand_on.h"

using kyfault::Action;
using kyfault::BoundColumn;
using kyfault::Call;
using kyfault::Order;

namespace {

constexpr char kMore = '+';  // what lengthened data goes on with

// Changes one value of text or bytes where the program has it. False when it does not fit any more: it is
// cut.
bool Distort(const Order& order, const BoundColumn& column) {
  const bool text = column.type == SQL_C_CHAR;
  if ((!text && column.type != SQL_C_BINARY) || column.indicator == nullptr || *column.indicator < 0)
    return true;
  auto* bytes = static_cast<char*>(column.buffer);
  const SQLLEN room = std::max<SQLLEN>(column.size - (text ? 1 : 0), 0);
  const SQLLEN held = std::min(*column.indicator, room);
  const SQLLEN told = order.action == Action::kCut ? std::min<SQLLEN>(*column.indicator, order.amount)
                                                   : *column.indicator + order.amount;
  const SQLLEN kept = std::min(told, room);
  for (SQLLEN i = held; i < kept; ++i) bytes[i] = kMore;
  if (text && column.size > 0) bytes[kept] = '\0';
  *column.indicator = told;
  return told <= room;
}

bool Distorts(const Order& order) {
  return order.action == Action::kCut || order.action == Action::kLengthen;
}

// Of a fetch that worked, the bound columns of the first row.
SQLRETURN DistortRow(Call& call, SQLRETURN code) {
  if (!SQL_SUCCEEDED(code) || !Distorts(call.Due())) return code;
  bool fits = true;
  for (const auto& [number, column] : call.Target()->columns) fits = Distort(call.Due(), column) && fits;
  if (fits) return code;
  call.Fail("01004", "data was cut on demand");
  return SQL_SUCCESS_WITH_INFO;
}

}  // namespace

KYFAULT_EXPORT SQLRETURN SQLBindCol(SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT type,
                                    SQLPOINTER buffer, SQLLEN size, SQLLEN* indicator) {
  Call call("SQLBindCol", statement, SQL_HANDLE_STMT);
  const SQLRETURN code = call.HandOn<decltype(SQLBindCol)>(number, type, buffer, size, indicator);
  if (!SQL_SUCCEEDED(code)) return code;
  call.Target()->columns.erase(number);
  if (buffer != nullptr) call.Target()->columns[number] = {type, buffer, size, indicator};
  return code;
}

KYFAULT_EXPORT SQLRETURN SQLFreeStmt(SQLHSTMT statement, SQLUSMALLINT what) {
  Call call("SQLFreeStmt", statement, SQL_HANDLE_STMT);
  const SQLRETURN code = call.HandOn<decltype(SQLFreeStmt)>(what);
  if (SQL_SUCCEEDED(code) && what == SQL_UNBIND) call.Target()->columns.clear();
  return code;
}

KYFAULT_EXPORT SQLRETURN SQLFetch(SQLHSTMT statement) {
  Call call("SQLFetch", statement, SQL_HANDLE_STMT);
  return DistortRow(call, call.HandOn<decltype(SQLFetch)>());
}

KYFAULT_EXPORT SQLRETURN SQLFetchScroll(SQLHSTMT statement, SQLSMALLINT orientation, SQLLEN row) {
  Call call("SQLFetchScroll", statement, SQL_HANDLE_STMT);
  return DistortRow(call, call.HandOn<decltype(SQLFetchScroll)>(orientation, row));
}

KYFAULT_EXPORT SQLRETURN SQLExtendedFetch(SQLHSTMT statement, SQLUSMALLINT orientation, SQLLEN row,
                                          SQLULEN* fetched, SQLUSMALLINT* status) {
  Call call("SQLExtendedFetch", statement, SQL_HANDLE_STMT);
  return DistortRow(call, call.HandOn<decltype(SQLExtendedFetch)>(orientation, row, fetched, status));
}

KYFAULT_EXPORT SQLRETURN SQLGetData(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                                    SQLPOINTER buffer, SQLLEN size, SQLLEN* indicator) {
  Call call("SQLGetData", statement, SQL_HANDLE_STMT);
  const SQLRETURN code = call.HandOn<decltype(SQLGetData)>(column, type, buffer, size, indicator);
  if (!SQL_SUCCEEDED(code) || !Distorts(call.Due())) return code;
  if (Distort(call.Due(), {type, buffer, size, indicator})) return code;
  call.Fail("01004", "data was cut on demand");
  return SQL_SUCCESS_WITH_INFO;
}

// Some drivers cannot count the rows changed, some count none.
KYFAULT_EXPORT SQLRETURN SQLRowCount(SQLHSTMT statement, SQLLEN* count) {
  Call call("SQLRowCount", statement, SQL_HANDLE_STMT);
  const SQLRETURN code = call.HandOn<decltype(SQLRowCount)>(count);
  if (!SQL_SUCCEEDED(code)) return code;
  const std::string& capabilities = kyfault::ConnectionOf(call.Target())->capabilities;
  if (capabilities.find("no-row-counts") != std::string::npos) *count = -1;
  if (capabilities.find("zero-row-counts") != std::string::npos) *count = 0;
  return code;
}
