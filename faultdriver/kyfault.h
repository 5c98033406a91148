/* Control of the fault driver by a program that has loaded it, a test for example. The functions are found
 * with dlsym in the file that the data source names as its driver. Readable from C11 and C++. */
#ifndef KYODBC_FAULTDRIVER_KYFAULT_H
#define KYODBC_FAULTDRIVER_KYFAULT_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Gives an order, e.g. "call 12 lost" or "SQLExecDirect 2 error 40001 1213"; docs/fault-driver.md has the
 * language. Calls are counted from here on: 1 is the next one. An order is carried out once, unless it says
 * "always". Returns 1, or 0 for a text that is no order, which then has no effect. */
int KyFaultOrder(const char* order);

/* Forgets all orders. A connection that was lost stays so. */
void KyFaultForget(void);

/* How often an order was carried out since the last KyFaultForget. */
int KyFaultHappened(void);

/* The function that the last order carried out was done to; "" when there was none. The text stays until the
 * next order is carried out; one thread only. */
const char* KyFaultLast(void);

/* The calls of one function since the last KyFaultResetCounts, e.g. of "SQLExecute"; null: of all functions.
 * The wide form of a function counts under the plain name. Repeated calls of an answer "still executing" and
 * the reading of diagnostics are not counted. */
uint64_t KyFaultCalls(const char* function);

/* The statements executed since then: prepared, direct, and those that the catalogue functions make. */
uint64_t KyFaultStatements(void);

/* The calls that make the server answer, as far as a driver's caller can tell: the statements executed, those
 * prepared, and commits and rollbacks. */
uint64_t KyFaultRequests(void);

void KyFaultResetCounts(void);

/* Handles allocated and not yet freed, of one kind (SQL_HANDLE_ENV, _DBC, _STMT, _DESC) or, for 0, of all. */
int KyFaultHandles(int kind);

/* The open connections answer as after a loss from now on. */
void KyFaultLoseConnections(void);

#ifdef __cplusplus
}
#endif

#endif
