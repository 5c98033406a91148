// Two ways of doing the same work, timed in turns in one run, so that the noise of the machine meets both.
#ifndef KYODBC_BENCH_MEASURE_H
#define KYODBC_BENCH_MEASURE_H

#include <functional>
#include <string>

namespace bench {

struct Pair {
  std::string work;
  std::function<void()> raw;      // by bare ODBC
  std::function<void()> library;  // by the library
};

// Runs both sides `rounds` times in turns and prints the medians in milliseconds and their ratio.
void PrintHeader();
void Compare(const Pair& pair, int rounds);

}  // namespace bench

#endif
