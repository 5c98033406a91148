// A function `time` of this program's own comes before the C library's for every library the program loads.
// So rows stamped with the current time are the same in every run.
#include <atomic>
#include <ctime>

#include "tests/differential/flat_calls.h"

namespace differential {
namespace {
std::atomic<std::time_t> g_seconds{0};
}  // namespace

void SetProcessClock(int seconds) { g_seconds = seconds; }

}  // namespace differential

extern "C" __attribute__((visibility("default"))) std::time_t time(std::time_t* result) noexcept {
  const std::time_t now = differential::g_seconds;
  if (result != nullptr) *result = now;
  return now;
}
