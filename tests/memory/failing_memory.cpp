#include "tests/memory/failing_memory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace memory {
namespace {

std::atomic<int> g_live{0};
bool g_armed = false;
bool g_failed = false;
int g_number = 0;
int g_seen = 0;
Failing g_failing = Failing::kOne;

bool Fails() {
  if (!g_armed) return false;
  ++g_seen;
  const bool fails = g_failing == Failing::kOne ? g_seen == g_number : g_seen >= g_number;
  g_failed = g_failed || fails;
  return fails;
}

// NOLINTBEGIN(cppcoreguidelines-no-malloc): this is what manages it.
void* Allocate(std::size_t size) noexcept {
  void* allocated = Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (allocated != nullptr) ++g_live;
  return allocated;
}

void Free(void* allocated) noexcept {
  if (allocated != nullptr) --g_live;
  std::free(allocated);
}
// NOLINTEND(cppcoreguidelines-no-malloc)

}  // namespace

void FailAt(int number, Failing failing) {
  g_number = number;
  g_failing = failing;
  g_seen = 0;
  g_failed = false;
  g_armed = true;
}

int StopFailing() {
  g_armed = false;
  return g_seen;
}

bool HasFailed() { return g_failed; }

Spared::Spared() : m_was_armed(g_armed) { g_armed = false; }
Spared::~Spared() { g_armed = m_was_armed; }

int Live() { return g_live; }

}  // namespace memory

void* operator new(std::size_t size) {
  void* allocated = memory::Allocate(size);
  if (allocated == nullptr) throw std::bad_alloc();
  return allocated;
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return memory::Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return memory::Allocate(size); }
void operator delete(void* allocated) noexcept { memory::Free(allocated); }
void operator delete[](void* allocated) noexcept { memory::Free(allocated); }
void operator delete(void* allocated, std::size_t) noexcept { memory::Free(allocated); }
void operator delete[](void* allocated, std::size_t) noexcept { memory::Free(allocated); }
