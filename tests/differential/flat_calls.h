// Makes calls of the library as a program does: exported functions, memory of its own.
#ifndef KYODBC_TESTS_DIFFERENTIAL_FLAT_CALLS_H
#define KYODBC_TESTS_DIFFERENTIAL_FLAT_CALLS_H

#include "tables/records.h"
#include "tests/differential/call.h"

namespace differential {

// `parameters` serves DB_InitDatabase.
Answer CallLibrary(const Call& call, const tagDBCONNECT& parameters);

// Whether the table has this call.
bool HasCall(Stem stem, Verb verb);

// The time that the library sees, in seconds since 1970.
void SetProcessClock(int seconds);

}  // namespace differential

#endif
