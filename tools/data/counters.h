// The counters from which a database gives new keys.
#ifndef KYODBC_TOOLS_DATA_COUNTERS_H
#define KYODBC_TOOLS_DATA_COUNTERS_H

#include "tools/data/practice_database.h"
#include "tools/data/shape.h"

// The key that the next added row would get, as far as the database tells; at least 1. The highest key there
// can be when no row can be added any more.
LONG NextKey(PracticeDatabase& database, const Shape& shape);

// Makes it at least `next`. Never lowers it: a key is never given twice.
void RaiseNextKey(PracticeDatabase& database, const Shape& shape, LONG next);

#endif
