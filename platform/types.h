/* Integer and date types shared by every header of the library.
 *
 * BOOL, BYTE, WORD, DWORD, UINT and TIMESTAMP_STRUCT come from the ODBC headers; they define no LONG.
 * LONG has 32 bits everywhere: record fields, bound members, positions, counts and keys. The native
 * type of that name has 64 bits on this platform and must not cross the library's boundary.
 */
#ifndef KYODBC_PLATFORM_TYPES_H
#define KYODBC_PLATFORM_TYPES_H

#include <stdint.h>

#include <sql.h>
#include <sqlext.h>

typedef int32_t LONG;

#ifdef __cplusplus
static_assert(sizeof(LONG) == 4 && sizeof(BOOL) == 4 && sizeof(DWORD) == 4 && sizeof(WORD) == 2);
static_assert(sizeof(TIMESTAMP_STRUCT) == 16);
#endif

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

/* Marks the classes and functions that stay visible outside the shared library. */
#if defined(__GNUC__)
#define KYODBC_API __attribute__((visibility("default")))
#else
#define KYODBC_API
#endif

#endif
