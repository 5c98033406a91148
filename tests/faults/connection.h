// The library's connection through the fault driver to the practice of these tests.
#ifndef KYODBC_TESTS_FAULTS_CONNECTION_H
#define KYODBC_TESTS_FAULTS_CONNECTION_H

#include "frame/KyODBC.h"
#include "tests/faults/fault_driver.h"

namespace faults {

// Which data source Connect takes. A database that asks for no password is given one all the same.
void UseSource(const FaultSource& source);
constexpr char kNeedlessPassword[] = "Pw7Needless";
WORD Connect();

}  // namespace faults

#endif
