/* KyODBCDiag: an extension of KyODBC. What a 16-bit result code cannot say of a failure, and going on after a
 * lost connection.
 *
 * It stands beside the call interface of KyODBC.h and is no part of it: its names are listed on their own
 * (frame/exports_ext.txt), and a program that does without them runs with every KyODBC. Readable from C11 and
 * C++20.
 *
 *     tagDBERRORDETAIL detail = {0};
 *     if (DB_AddNewTStat(&station) != 0 && DB_GetLastErrorDetail(&detail, sizeof detail) == 0)
 *       fprintf(stderr, "%s: code %d: %s %s\n", detail.szFunction, detail.wCode, detail.szState,
 *               detail.szMessage);
 */
#ifndef KYODBC_FRAME_KYODBCDIAG_H
#define KYODBC_FRAME_KYODBCDIAG_H

#include <assert.h>
#include <stddef.h>

#include "../platform/types.h"

#pragma pack(push, 1)

/* The last failure. Later versions add fields at the end; those below keep their places. */
typedef struct tagDBERRORDETAIL {
  DWORD dwSize;        /* bytes of the record that the library has filled */
  WORD wCode;          /* result code (result_codes.h); never 0 */
  char szFunction[32]; /* the exported function that gave it, the one that the caller called */
  char szState[6];     /* SQLSTATE of the first diagnostic record; empty when no database spoke */
  LONG lNative;        /* the database's own number of the error; 0 without a diagnostic record */
  LONG lRecords;       /* diagnostic records that the driver gave; 0: the library itself refused */
  char szMessage[512]; /* the driver's first message without values of rows, in UTF-8 and cut at a character;
                        * the meaning of the code when no database spoke */
} tagDBERRORDETAIL;

static_assert(sizeof(tagDBERRORDETAIL) == 564, "layout of tagDBERRORDETAIL");
static_assert(offsetof(tagDBERRORDETAIL, wCode) == 4, "layout of tagDBERRORDETAIL");
static_assert(offsetof(tagDBERRORDETAIL, szFunction) == 6, "layout of tagDBERRORDETAIL");
static_assert(offsetof(tagDBERRORDETAIL, szState) == 38, "layout of tagDBERRORDETAIL");
static_assert(offsetof(tagDBERRORDETAIL, lNative) == 44, "layout of tagDBERRORDETAIL");
static_assert(offsetof(tagDBERRORDETAIL, lRecords) == 48, "layout of tagDBERRORDETAIL");
static_assert(offsetof(tagDBERRORDETAIL, szMessage) == 52, "layout of tagDBERRORDETAIL");

#pragma pack(pop)

/* The browse sets, for DB_ReopenAtKey. */
enum {
  KYODBC_SET_TDR = 1,
  KYODBC_SET_TSTAT = 2,
  KYODBC_SET_TUNIT = 3,
  KYODBC_SET_TPAT = 4,
  KYODBC_SET_PATEX = 5,
  KYODBC_SET_TIMG = 6,
  KYODBC_SET_TMAK = 7,
  KYODBC_SET_TGRP = 8,
  KYODBC_SET_TDIAG = 9,
  KYODBC_SET_TCFG = 10,
  KYODBC_SET_TTEST = 11
};

/* Size of the record as its first version has it; the least that DB_GetLastErrorDetail takes. */
#define KYODBC_ERROR_DETAIL_SIZE_1 564u

#ifdef __cplusplus
extern "C" {
#endif

/* Fills the record with the last flat call of this process that failed. `size` is the size of the caller's
 * record: fields that the library does not know are left as they are, and dwSize tells how far it came.
 *
 * A call failed when it returned a code other than 0. A move that gives position 0 failed with 64: szState is
 * empty when there is no such row, and not when the database could not read it. Without a connection a
 * position and DB_GetDatabase fail with 3; DB_CheckVersion fails with 1. Questions whether something is open
 * fail only when the database reports an error (31). Calls that succeed change nothing here, and neither does
 * this function.
 *
 * The message never shows values of rows: quotations, parentheses and the texts of the database's own
 * triggers are replaced by "?", whatever the log shows. Operations of the C++ classes are not recorded.
 *
 * Returns 0; 1 for a null record or a size below KYODBC_ERROR_DETAIL_SIZE_1; 64 when no call has failed yet.
 * The record is then unchanged. */
KYODBC_API WORD DB_GetLastErrorDetail(tagDBERRORDETAIL* detail, DWORD size);

/* Goes on browsing where a lost connection ended it. Restores a lost connection first, as DB_OpenTPat does;
 * opens the browse set, or reads an open one anew; and makes the row with `key` current, which may have
 * another position than before. Each set that was open is reopened by a call of its own.
 *
 * `set` is one of KYODBC_SET_... . The set gets the filter last given to it, also when that was before the
 * connection was lost, and likewise the sort. (A plain open forgets those with the old connection.) They are
 * kept until DB_CloseDatabase. `key` is that of the record that the caller shows; 0 looks for no row.
 * `position` may be null.
 *
 * Returns 0 and writes the row's position to *position, that of the first row for key 0, 0 there in an empty
 * set; 1 for another set; 3 when there was no connection, it could not be restored or the set did not open,
 * and the next call tries again; 31; 64 when the row is gone, or the filter does not let it pass: the set is
 * open then, its first row, if any, is current. After a failure *position is unchanged. */
KYODBC_API WORD DB_ReopenAtKey(LONG set, LONG key, LONG* position);

#ifdef __cplusplus
}
#endif

#endif
