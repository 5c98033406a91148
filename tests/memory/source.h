// Which practice the scenarios connect to.
#ifndef KYODBC_TESTS_MEMORY_SOURCE_H
#define KYODBC_TESTS_MEMORY_SOURCE_H

#include "tests/support/practice.h"

namespace memory {

void UsePractice(const support::Practice& practice);

}  // namespace memory

#endif
