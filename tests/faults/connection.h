// The library's connection through the fault driver to the practice of these tests.
#ifndef KYODBC_TESTS_FAULTS_CONNECTION_H
#define KYODBC_TESTS_FAULTS_CONNECTION_H

#include "frame/KyODBC.h"
#include "tests/faults/fault_driver.h"

namespace faults {

// Which data source Connect takes.
void UseSource(const FaultSource& source);
WORD Connect();

}  // namespace faults

#endif
