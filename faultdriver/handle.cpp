#include "faultdriver/handle.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <set>

namespace kyfault {
namespace {

struct KindName {
  SQLSMALLINT kind;
  const char* name;
};

constexpr KindName kKinds[] = {
    {SQL_HANDLE_ENV,  "environments"},
    {SQL_HANDLE_DBC,  "connections" },
    {SQL_HANDLE_STMT, "statements"  },
    {SQL_HANDLE_DESC, "descriptors" },
};

// Tells at its end, which is the unloading of the driver, what was not freed.
class LiveHandles {
 public:
  ~LiveHandles() {
    if (Count(0) == 0) return;
    const char* name = std::getenv("KYFAULT_REPORT");
    std::FILE* file = name != nullptr ? std::fopen(name, "a") : stderr;
    if (file == nullptr) return;
    for (const KindName& kind : kKinds) {
      const int count = Count(kind.kind);
      if (count != 0) std::fprintf(file, "kyfault: %s not freed: %d\n", kind.name, count);
    }
    if (file != stderr) std::fclose(file);
  }

  void Insert(Handle* handle) {
    const std::lock_guard lock(m_mutex);
    m_handles.insert(handle);
  }
  bool Erase(Handle* handle) {
    const std::lock_guard lock(m_mutex);
    return m_handles.erase(handle) != 0;
  }
  bool Contains(Handle* handle) {
    const std::lock_guard lock(m_mutex);
    return m_handles.contains(handle);
  }
  int Count(SQLSMALLINT kind) {
    const std::lock_guard lock(m_mutex);
    return static_cast<int>(std::count_if(m_handles.begin(), m_handles.end(), [&](const Handle* handle) {
      const bool by_itself = handle->kind != SQL_HANDLE_DESC || handle->parent->kind == SQL_HANDLE_DBC;
      return by_itself && (kind == 0 || handle->kind == kind);
    }));
  }
  std::vector<Handle*> All(SQLSMALLINT kind) {
    const std::lock_guard lock(m_mutex);
    std::vector<Handle*> found;
    std::copy_if(m_handles.begin(), m_handles.end(), std::back_inserter(found),
                 [&](const Handle* handle) { return handle->kind == kind; });
    return found;
  }

 private:
  std::mutex m_mutex;
  std::set<Handle*> m_handles;
};

LiveHandles& Live() {
  static LiveHandles handles;
  return handles;
}

}  // namespace

Handle* NewHandle(SQLSMALLINT kind, Handle* parent) {
  auto* handle = new Handle;
  handle->kind = kind;
  handle->parent = parent;
  if (parent != nullptr) handle->driver = parent->driver;
  Live().Insert(handle);
  return handle;
}

Handle* DescriptorOf(Handle* statement, SQLHANDLE real) {
  for (Handle* descriptor : Live().All(SQL_HANDLE_DESC)) {
    if (descriptor->real == real) return descriptor;
  }
  Handle* descriptor = NewHandle(SQL_HANDLE_DESC, statement);
  descriptor->real = real;
  statement->descriptors.push_back(descriptor);
  return descriptor;
}

void FreeOne(Handle* handle) {
  for (Handle* descriptor : handle->descriptors) FreeOne(descriptor);
  if (Live().Erase(handle)) delete handle;
}

void FreeChildren(Handle* connection) {
  for (const SQLSMALLINT kind : {SQLSMALLINT{SQL_HANDLE_STMT}, SQLSMALLINT{SQL_HANDLE_DESC}}) {
    for (Handle* handle : Live().All(kind)) {
      if (handle->parent == connection) FreeOne(handle);
    }
  }
}

Handle* FindAny(SQLHANDLE handle) {
  auto* found = static_cast<Handle*>(handle);
  return found != nullptr && Live().Contains(found) ? found : nullptr;
}

Handle* Find(SQLHANDLE handle, SQLSMALLINT kind) {
  Handle* found = FindAny(handle);
  return found != nullptr && found->kind == kind ? found : nullptr;
}

Handle* ConnectionOf(Handle* handle) {
  while (handle != nullptr && handle->kind != SQL_HANDLE_DBC) handle = handle->parent;
  return handle;
}

std::vector<Handle*> Connections() { return Live().All(SQL_HANDLE_DBC); }

int CountHandles(SQLSMALLINT kind) { return Live().Count(kind); }

}  // namespace kyfault
