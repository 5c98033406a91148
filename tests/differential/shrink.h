// Takes calls out of a script as long as something still goes wrong in it.
#ifndef KYODBC_TESTS_DIFFERENTIAL_SHRINK_H
#define KYODBC_TESTS_DIFFERENTIAL_SHRINK_H

#include "tests/differential/target.h"

namespace differential {

// `script` goes wrong on the target. Returns one that does, too, from which no single call can be taken; or
// the best one found after `tries` plays. Fields of records that do not matter are empty.
Script Shortest(Target& target, Script script, int tries = 1500);

// The first reason why the script's answers cannot be foretold; null when they can.
const char* WhyUndetermined(const ModelOptions& options, const Script& script);

}  // namespace differential

#endif
