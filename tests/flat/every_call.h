// Every exported function, called in a way that works with and without a connection.
#ifndef KYODBC_TESTS_FLAT_EVERY_CALL_H
#define KYODBC_TESTS_FLAT_EVERY_CALL_H

#include <ostream>
#include <span>

#include "frame/KyODBC.h"

namespace every {

struct Call {
  const char* name;
  LONG answer;  // what it gives without a connection
  LONG (*run)();
};

void PrintTo(const Call& call, std::ostream* out);

// In the order of the list of exports.
std::span<const Call> Calls();

}  // namespace every

#endif
