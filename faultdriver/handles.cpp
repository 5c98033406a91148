// Allocating and freeing. Environments and connections are the real driver's only from the connecting on,
// when it is known which driver that is.
#include "faultdriver/hand_on.h"

using kyfault::Call;
using kyfault::Handle;

namespace {

SQLRETURN AllocateReal(Call& call, SQLSMALLINT kind, SQLHANDLE* output) {
  Handle* parent = call.Target();
  auto* allocate = call.Real<decltype(SQLAllocHandle)>();
  if (allocate == nullptr) return call.Missing();
  SQLHANDLE real = SQL_NULL_HANDLE;
  const SQLRETURN code = allocate(kind, parent->real, &real);
  if (!SQL_SUCCEEDED(code)) return code;
  Handle* made = kyfault::NewHandle(kind, parent);
  made->real = real;
  *output = made;
  return code;
}

void FreeEnvironments(Handle* environment) {
  for (const auto& [driver, real] : environment->environments) {
    auto* free = driver->Find<decltype(SQLFreeHandle)>("SQLFreeHandle");
    if (free != nullptr) free(SQL_HANDLE_ENV, real);
  }
}

SQLRETURN FreeReal(Call& call, SQLSMALLINT kind) {
  Handle* handle = call.Target();
  SQLRETURN code = SQL_SUCCESS;
  if (kind == SQL_HANDLE_ENV) FreeEnvironments(handle);
  auto* free = call.Real<decltype(SQLFreeHandle)>();
  if (handle->real != SQL_NULL_HANDLE && free != nullptr) code = free(kind, handle->real);
  if (!SQL_SUCCEEDED(code) && kind == SQL_HANDLE_DBC) {
    // A connecting that worked and was said to have failed.
    auto* disconnect = handle->driver->Find<decltype(SQLDisconnect)>("SQLDisconnect");
    if (disconnect != nullptr && SQL_SUCCEEDED(disconnect(handle->real))) code = free(kind, handle->real);
  }
  if (SQL_SUCCEEDED(code)) kyfault::FreeOne(handle);
  return code;
}

SQLRETURN EndAll(const Handle* environment, SQLSMALLINT end) {
  for (const auto& [driver, real] : environment->environments) {
    auto* end_transaction = driver->Find<decltype(SQLEndTran)>("SQLEndTran");
    const SQLRETURN code = end_transaction(SQL_HANDLE_ENV, real, end);
    if (!SQL_SUCCEEDED(code)) return code;
  }
  return SQL_SUCCESS;
}

}  // namespace

KYFAULT_EXPORT SQLRETURN SQLAllocHandle(SQLSMALLINT kind, SQLHANDLE parent, SQLHANDLE* output) {
  *output = SQL_NULL_HANDLE;
  if (kind == SQL_HANDLE_ENV) {
    *output = kyfault::NewHandle(SQL_HANDLE_ENV, nullptr);
    return SQL_SUCCESS;
  }
  Call call("SQLAllocHandle", parent, kind == SQL_HANDLE_DBC ? SQL_HANDLE_ENV : SQL_HANDLE_DBC);
  return call.Run([&]() -> SQLRETURN {
    if (kind != SQL_HANDLE_DBC) return AllocateReal(call, kind, output);
    *output = kyfault::NewHandle(SQL_HANDLE_DBC, call.Target());
    return SQL_SUCCESS;
  });
}

KYFAULT_EXPORT SQLRETURN SQLFreeHandle(SQLSMALLINT kind, SQLHANDLE handle) {
  Call call("SQLFreeHandle", handle, kind);
  return call.Run([&] { return FreeReal(call, kind); });
}

KYFAULT_EXPORT SQLRETURN SQLEndTran(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT end) {
  Call call("SQLEndTran", handle, kind);
  return call.Run([&]() -> SQLRETURN {
    if (kind == SQL_HANDLE_ENV) return EndAll(call.Target(), end);
    auto* end_transaction = call.Real<decltype(SQLEndTran)>();
    return end_transaction == nullptr ? call.Missing() : end_transaction(kind, call.Target()->real, end);
  });
}

KYFAULT_EXPORT SQLRETURN SQLCancel(SQLHSTMT statement) {
  Call call("SQLCancel", statement, SQL_HANDLE_STMT);
  return call.Run([&]() -> SQLRETURN {
    call.Target()->cancelled = true;
    auto* cancel = call.Real<decltype(SQLCancel)>();
    return cancel == nullptr ? call.Missing() : cancel(call.Target()->real);
  });
}

KYFAULT_EXPORT SQLRETURN SQLCopyDesc(SQLHDESC source, SQLHDESC target) {
  Call call("SQLCopyDesc", source, SQL_HANDLE_DESC);
  return call.Run([&]() -> SQLRETURN {
    const Handle* copy = kyfault::Find(target, SQL_HANDLE_DESC);
    if (copy == nullptr) return SQL_INVALID_HANDLE;
    auto* function = call.Real<decltype(SQLCopyDesc)>();
    return function == nullptr ? call.Missing() : function(call.Target()->real, copy->real);
  });
}

KYFAULT_EXPORT SQLRETURN SQLGetFunctions(SQLHDBC connection, SQLUSMALLINT function, SQLUSMALLINT* supported) {
  return Call("SQLGetFunctions", connection, SQL_HANDLE_DBC)
      .HandOn<decltype(SQLGetFunctions)>(function, supported);
}
