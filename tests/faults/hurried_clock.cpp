#include "tests/faults/hurried_clock.h"

#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include <atomic>

namespace {

constexpr int kTenthsOfASecond = 10;
constexpr int kNanosecondsOfATenth = 100000000;

std::atomic<bool> hurries = false;
std::atomic<int> tenths = 0;  // passed so far; never taken back

}  // namespace

// In the place of the C library's, for the program and all libraries that it has loaded.
extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
  const auto code = static_cast<int>(syscall(SYS_clock_gettime, clock, time));
  if (code != 0 || clock != CLOCK_MONOTONIC) return code;
  const int passed = hurries ? ++tenths : tenths.load();
  time->tv_sec += passed / kTenthsOfASecond;
  time->tv_nsec += static_cast<decltype(time->tv_nsec)>(passed % kTenthsOfASecond) * kNanosecondsOfATenth;
  constexpr int kNanosecondsOfASecond = kTenthsOfASecond * kNanosecondsOfATenth;
  if (time->tv_nsec >= kNanosecondsOfASecond) {
    time->tv_nsec -= kNanosecondsOfASecond;
    ++time->tv_sec;
  }
  return 0;
}

namespace faults {

HurriedClock::HurriedClock() { hurries = true; }
HurriedClock::~HurriedClock() { hurries = false; }

}  // namespace faults
