// Counts what this program takes from the free store by operator new.
#ifndef KYODBC_TESTS_DB_COUNT_ALLOCATIONS_H
#define KYODBC_TESTS_DB_COUNT_ALLOCATIONS_H

int AllocationsSoFar();

#endif
