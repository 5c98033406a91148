/* The result codes: 16-bit values that the flat calls and most operations of the record sets return.
 * Numbers are fixed; callers compare the low 16 bits. Readable from C11 and C++20.
 */
#ifndef KYODBC_PLATFORM_RESULT_CODES_H
#define KYODBC_PLATFORM_RESULT_CODES_H

#include "types.h"

enum {
  /* Success. */
  KYODBC_OK = 0,
  /* A required argument is null or empty; a record has neither a key nor a complete natural key; a data
   * source name is too long for the exclusive suffix; a text did not fit the caller's buffer; a field id is
   * unknown; a group, image or test to be added already has a location; or a plain failure. */
  KYODBC_BAD_ARGUMENT = 1,
  /* There is no connection, or a database or record set could not be opened. Also: initialisation while
   * connected. */
  KYODBC_NOT_OPENED = 3,
  /* Something did not close. */
  KYODBC_CLOSE_FAILED = 4,
  /* The rows could not be counted and the position restored, or the connection would not tell its name. */
  KYODBC_COUNT_FAILED = 5,
  /* The database refused an insert or an update. */
  KYODBC_WRITE_FAILED = 6,
  /* The database refused a delete; or the row is protected: a station, doctor or unit that is named "-" or
   * has the key 1. */
  KYODBC_DELETE_FAILED = 8,
  /* An object could not be allocated. */
  KYODBC_OUT_OF_MEMORY = 14,
  /* There is no such patient. */
  KYODBC_PATIENT_NOT_FOUND = 21,
  /* The server could not be reached or refused the login, or a lost connection could not be restored. */
  KYODBC_CONNECT_FAILED = 30,
  /* The database reported an error that no other code names. */
  KYODBC_DB_EXCEPTION = 31,
  /* More than one row matched where one was wanted. */
  KYODBC_NOT_UNIQUE = 52,
  /* The data source has no transactions. */
  KYODBC_NO_TRANSACTIONS = 55,
  /* The database schema is older than the operation needs. */
  KYODBC_SCHEMA_TOO_OLD = 56,
  /* The connection had been lost and was made again: good news, used inside the library. */
  KYODBC_RECONNECTED = 57,
  /* No row: nothing matches, the result is empty, or the position is outside it. */
  KYODBC_NO_ROW = 64,
  /* There is no such image. */
  KYODBC_IMAGE_NOT_FOUND = 65,
  /* There is no such unit. */
  KYODBC_UNIT_NOT_FOUND = 66,
  /* There is no such test. */
  KYODBC_TEST_NOT_FOUND = 67,
  /* The browse record sets could not be created, or a column's name could not be read. */
  KYODBC_SETS_NOT_CREATED = 99
};

#ifdef __cplusplus
/* The same codes in the type that C++ operations return. */
inline constexpr WORD kOk = KYODBC_OK;
inline constexpr WORD kBadArgument = KYODBC_BAD_ARGUMENT;
inline constexpr WORD kNotOpened = KYODBC_NOT_OPENED;
inline constexpr WORD kCloseFailed = KYODBC_CLOSE_FAILED;
inline constexpr WORD kCountFailed = KYODBC_COUNT_FAILED;
inline constexpr WORD kWriteFailed = KYODBC_WRITE_FAILED;
inline constexpr WORD kDeleteFailed = KYODBC_DELETE_FAILED;
inline constexpr WORD kOutOfMemory = KYODBC_OUT_OF_MEMORY;
inline constexpr WORD kPatientNotFound = KYODBC_PATIENT_NOT_FOUND;
inline constexpr WORD kConnectFailed = KYODBC_CONNECT_FAILED;
inline constexpr WORD kDbException = KYODBC_DB_EXCEPTION;
inline constexpr WORD kNotUnique = KYODBC_NOT_UNIQUE;
inline constexpr WORD kNoTransactions = KYODBC_NO_TRANSACTIONS;
inline constexpr WORD kSchemaTooOld = KYODBC_SCHEMA_TOO_OLD;
inline constexpr WORD kReconnected = KYODBC_RECONNECTED;
inline constexpr WORD kNoRow = KYODBC_NO_ROW;
inline constexpr WORD kImageNotFound = KYODBC_IMAGE_NOT_FOUND;
inline constexpr WORD kUnitNotFound = KYODBC_UNIT_NOT_FOUND;
inline constexpr WORD kTestNotFound = KYODBC_TEST_NOT_FOUND;
inline constexpr WORD kSetsNotCreated = KYODBC_SETS_NOT_CREATED;
#endif

#endif
