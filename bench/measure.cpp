#include "bench/measure.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include <fmt/format.h>

namespace bench {
namespace {

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2), times.end());
  return times[times.size() / 2];
}

}  // namespace

void PrintHeader() {
  fmt::print("{:<44} {:>12} {:>12} {:>7}\n", "work", "bare ODBC ms", "library ms", "ratio");
}

void Compare(const Pair& pair, int rounds) {
  std::vector<double> raw;
  std::vector<double> library;
  for (int round = 0; round < rounds; ++round) {
    raw.push_back(Milliseconds(pair.raw));
    library.push_back(Milliseconds(pair.library));
  }
  fmt::print("{:<44} {:>12.2f} {:>12.2f} {:>7.2f}\n", pair.work, Median(raw), Median(library),
             Median(library) / Median(raw));
}

}  // namespace bench
