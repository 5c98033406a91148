/* KyODBC: the patient and image database of an X-ray practice, reached through ODBC without writing SQL.
 * The chief header: every exported function, readable from C11 and C++20. From C++ it also declares the
 * exported classes, unless KYODBC_FLAT_ONLY is defined before it is included.
 *
 *  1. Result codes. WORD functions return a code of result_codes.h in 16 bits; 0 is success. Codes 3 (no
 *     connection), 14 (out of memory) and 31 (database error) are possible wherever a function works on the
 *     database. KyODBCDiag.h, an extension, tells more of the last failure.
 *  2. Connection. There is one per process, made by DB_InitDatabase. Without it codes are 3, positions and
 *     open states 0. No exception leaves a function.
 *  3. Browse sets. The connection holds one browsable result per table, and one for the joined view of
 *     patients with their doctors (PatEx). Each has its own filter, sort and position and is opened by its
 *     own function.
 *  4. Positions. LONG, counted from 1 under the current filter and sort; 0 means "no row".
 *  5. Ownership. Records and buffers belong to the caller, who also frees them; the library keeps no pointer
 *     to them. Every output text comes with the size of its buffer in bytes, zero byte included. Nothing
 *     that the library returns is to be freed.
 *  6. Texts. UTF-8, zero-terminated; widths count bytes. Longer texts are cut silently, never inside a
 *     character, and always terminated. In a record an unterminated text ends with its field.
 *  7. Filter and sort words pack up to four entries into a LONG, one per byte; see field_words.h.
 *  8. Field masks select what an edit writes, one bit per field of the record; see field_words.h.
 *  9. Failure. Nothing has changed then, neither in the database nor in what the caller passed, unless the
 *     function says so.
 * 10. Threads. One. The library has no locks; calls must not overlap. A build with assertions (without
 *     NDEBUG) refuses a call that meets another thread's: it answers 31, or position, open state or pointer
 *     0, touches nothing, and the log names both functions.
 */
#ifndef KYODBC_FRAME_KYODBC_H
#define KYODBC_FRAME_KYODBC_H

#include "../platform/result_codes.h"
#include "../platform/types.h"
#include "../tables/records.h"
#include "field_words.h"

/* Interface version 1.5: one byte each. */
#define KYODBC_INTERFACE_VERSION 0x0105

#ifdef __cplusplus
class CDatabase;

extern "C" {
#else
typedef struct CDatabase CDatabase;
#endif

/* ---- Connection ---- */

/* Connects to a data source, creates the browse sets and reads the settings "DBVersion" and "DBMS" of the
 * station "-". The record is copied. With bExclusive set, the data source opened is szDSN + "Exclusive".
 * Texts are values: nothing in them becomes an option of the connection. An owner is letters, digits and
 * "_$@.-[]" without "--"; data sources have no ";{}" in their names (3).
 * Returns 0; 1 for a null record, an empty szDSN, one longer than 23 bytes with bExclusive, or another owner;
 * 3 when already connected, which keeps the connection but not its stored parameters; 3, 14, 30, 31 or 99
 * when connecting failed, and there is no connection then. The password is kept for as long as a lost
 * connection would be restored. */
KYODBC_API WORD DB_InitDatabase(const tagDBCONNECT* parameters);

/* Closes all browse sets, then the connection. Returns 0, also without a connection; 4 or 31 when something
 * did not close. Call it before the library is unloaded, which closes nothing. */
KYODBC_API WORD DB_CloseDatabase(void);

/* Not 0 while the library holds a connection. */
KYODBC_API BOOL DB_IsDatabaseOpen(void);

/* The library's connection, for record sets of the caller's own; null without one. It belongs to the library
 * and is valid until DB_CloseDatabase, or until DB_OpenTPat or DB_OpenPatEx replaces a lost connection. */
KYODBC_API CDatabase* DB_GetDatabase(void);

/* ---- Information ---- */

/* Not 0 when a caller built for interface version `version` can use this library, that is up to
 * KYODBC_INTERFACE_VERSION. Writes the library's own version to *library_version, which may be null. Needs no
 * connection. */
KYODBC_API BOOL DB_CheckVersion(WORD version, WORD* library_version);

/* Writes the names of the data source and of the database, each cut to 32 bytes. Returns 0; 1 for a null
 * record; 3 without a connection; 5 when the connection would not tell, and the names are empty then. */
KYODBC_API WORD DB_GetInfo(tagDBINFO* info);

/* Writes the version of the database schema, e.g. 4.0, as read by the last successful DB_InitDatabase; 0.0
 * before. `version` may be null. Always returns 0. */
KYODBC_API WORD DB_GetDBVersion(double* version);

/* Write the name of the database system and the owner prefix, as they were at the last DB_InitDatabase, as a
 * text of at most size-1 bytes. Return 0; 1 for a null buffer, or when the text was cut to fit. */
KYODBC_API WORD DB_GetDBMS(char* buffer, LONG size);
KYODBC_API WORD DB_GetDBOwner(char* buffer, LONG size);

/* ---- Transactions ---- */

/* Group changes through the library and through record sets on DB_GetDatabase. There is one level. Return 0;
 * 1 when the driver refuses, a transaction is pending already (begin) or none is (commit, rollback); 3
 * without a connection; 31; 55 when the data source has no transactions. Open browse sets are not read
 * again. A commit gives 1 and rolls everything back when a change failed because of another's transaction (a
 * deadlock), and on PostgreSQL after a statement that is no SQL (a filter without fields). Whatever a commit
 * or rollback returns, no transaction is pending after it: what could not be committed is rolled back, and a
 * connection that cannot even do that is given up, as if it were lost. A connection lost in a transaction
 * leaves nothing of it; only when the commit itself meets the loss is it unknown which way it went. */
KYODBC_API WORD DB_BeginTransaction(void);
KYODBC_API WORD DB_CommitTransaction(void);
KYODBC_API WORD DB_RollbackTransaction(void);

/* ---- Settings ---- */

/* Settings are rows of the configuration table: a key of at most 24 bytes and a value of at most 128 bytes,
 * both cut to fit, of a station given by its name, for the doctor with key 1. The station "-" has the key
 * 1. */

/* Writes the value to `buffer` (`size` bytes, zero byte included) and its length there in bytes to *length,
 * which may be null. An unknown station or setting, or a null key or station, is no error: the default is
 * delivered. Returns 0; 1 for a null buffer, a null default or a size below 1, and a buffer is then empty,
 * even for size 0: it must have room for one byte; 3 without a connection, with the default delivered; 31,
 * and the buffer may be unchanged. */
KYODBC_API WORD DB_GetProfileString(const char* key, const char* station, const char* default_text,
                                    char* buffer, LONG size, LONG* length);

/* Stores the value, adding the setting if needed; an empty value deletes it. Returns 0; 1 for a null
 * argument; 3 without a connection; 6 or 8 when the database refuses; 31; 52 when the setting exists more
 * than once; 64 for an unknown station, or when there is nothing to delete. On failure nothing is stored. */
KYODBC_API WORD DB_WriteProfileString(const char* key, const char* station, const char* value);

/* As the two above with a number: the leading digits of the stored text, 0 when it begins with none. Reading
 * returns 1 for a null `value`. */
KYODBC_API WORD DB_GetProfileInt(const char* key, const char* station, LONG default_value, LONG* value);
KYODBC_API WORD DB_WriteProfileInt(const char* key, const char* station, LONG value);

/* ---- Browse sets: open and close ---- */

/* Which rows a set has, and in which order, is settled when it is opened, filtered or sorted; and, after an
 * add, edit or delete of a single row through this library, when the open set is looked at next: it then
 * stands on its first row. Without an owner a row shows what it holds when a call moves to it (rows that a
 * walk reads ahead, at most a quarter of a second before that). A row that somebody has deleted meanwhile is
 * gone: a step by 1 or -1 passes over it, moving to its position fails, the other rows keep their positions.
 * With an owner rows keep showing what they held when the set was read. */

/* Opens the browse set with the filter and sort last given; its first row, if any, is current. An open set is
 * read anew. Returns 0; 3 when it did not open or there is no connection; 31, and it is closed then. */
KYODBC_API WORD DB_OpenTDr(void);
KYODBC_API WORD DB_OpenTStat(void);
KYODBC_API WORD DB_OpenTUnit(void);
/* First restores a lost connection, which closes all other browse sets and takes the filters and sorts of all
 * sets away, this one's too; 3 when that fails, and the next call tries again. */
KYODBC_API WORD DB_OpenTPat(void);
/* First restores a lost connection, as DB_OpenTPat does. */
KYODBC_API WORD DB_OpenPatEx(void);
KYODBC_API WORD DB_OpenTImg(void);
KYODBC_API WORD DB_OpenTMak(void);
KYODBC_API WORD DB_OpenTGrp(void);
KYODBC_API WORD DB_OpenTDiag(void);
KYODBC_API WORD DB_OpenTCfg(void);
KYODBC_API WORD DB_OpenTTest(void);

/* Closes the browse set; filter and sort stay. Returns 0, also for a closed set; 3 without a connection; 4
 * when it did not close; 31. */
KYODBC_API WORD DB_CloseTDr(void);
KYODBC_API WORD DB_CloseTStat(void);
KYODBC_API WORD DB_CloseTUnit(void);
KYODBC_API WORD DB_CloseTPat(void);
KYODBC_API WORD DB_ClosePatEx(void);
KYODBC_API WORD DB_CloseTImg(void);
KYODBC_API WORD DB_CloseTMak(void);
KYODBC_API WORD DB_CloseTGrp(void);
KYODBC_API WORD DB_CloseTDiag(void);
KYODBC_API WORD DB_CloseTCfg(void);
KYODBC_API WORD DB_CloseTTest(void);

/* Not 0 while the browse set is open; 0 without a connection. */
KYODBC_API BOOL DB_IsTDrOpen(void);
/* Answers 31, "open", where the others answer 0 when the database reports an error. Callers rely on it. */
KYODBC_API BOOL DB_IsTStatOpen(void);
KYODBC_API BOOL DB_IsTUnitOpen(void);
KYODBC_API BOOL DB_IsTPatOpen(void);
KYODBC_API BOOL DB_IsPatExOpen(void);
KYODBC_API BOOL DB_IsTImgOpen(void);
KYODBC_API BOOL DB_IsTMakOpen(void);
KYODBC_API BOOL DB_IsTGrpOpen(void);
KYODBC_API BOOL DB_IsTDiagOpen(void);
KYODBC_API BOOL DB_IsTCfgOpen(void);
KYODBC_API BOOL DB_IsTTestOpen(void);

/* ---- Browse sets: positions ---- */

/* The position of the current row; 0 before the first row, on a closed set and without a connection; -1 after
 * a move that failed. */
KYODBC_API LONG DB_GetTDrIndexPos(void);
KYODBC_API LONG DB_GetTStatIndexPos(void);
KYODBC_API LONG DB_GetTUnitIndexPos(void);
KYODBC_API LONG DB_GetTPatIndexPos(void);
KYODBC_API LONG DB_GetPatExIndexPos(void);
KYODBC_API LONG DB_GetTImgIndexPos(void);
KYODBC_API LONG DB_GetTMakIndexPos(void);
KYODBC_API LONG DB_GetTGrpIndexPos(void);
KYODBC_API LONG DB_GetTDiagIndexPos(void);
KYODBC_API LONG DB_GetTCfgIndexPos(void);
KYODBC_API LONG DB_GetTTestIndexPos(void);

/* Makes the row at `position` current and returns the position. 0 when there is no such row, and no row is
 * current then; 0 also after a database error. */
KYODBC_API LONG DB_MoveToTDrByPos(LONG position);
KYODBC_API LONG DB_MoveToTStatByPos(LONG position);
KYODBC_API LONG DB_MoveToTUnitByPos(LONG position);
KYODBC_API LONG DB_MoveToTPatByPos(LONG position);
KYODBC_API LONG DB_MoveToPatExByPos(LONG position);
KYODBC_API LONG DB_MoveToTImgByPos(LONG position);
KYODBC_API LONG DB_MoveToTMakByPos(LONG position);
KYODBC_API LONG DB_MoveToTGrpByPos(LONG position);
KYODBC_API LONG DB_MoveToTDiagByPos(LONG position);
KYODBC_API LONG DB_MoveToTCfgByPos(LONG position);
KYODBC_API LONG DB_MoveToTTestByPos(LONG position);

/* Moves by `delta` rows, backwards when negative, and returns the new position; 0 stays and returns the
 * current one. Returns 0 when the move passes an end, and no row is current then; 0 without moving when no
 * row was current; 0 after a database error. */
KYODBC_API LONG DB_MoveToTDrByDelta(LONG delta);
KYODBC_API LONG DB_MoveToTStatByDelta(LONG delta);
KYODBC_API LONG DB_MoveToTUnitByDelta(LONG delta);
KYODBC_API LONG DB_MoveToTPatByDelta(LONG delta);
KYODBC_API LONG DB_MoveToPatExByDelta(LONG delta);
KYODBC_API LONG DB_MoveToTImgByDelta(LONG delta);
KYODBC_API LONG DB_MoveToTMakByDelta(LONG delta);
KYODBC_API LONG DB_MoveToTGrpByDelta(LONG delta);
KYODBC_API LONG DB_MoveToTDiagByDelta(LONG delta);
KYODBC_API LONG DB_MoveToTCfgByDelta(LONG delta);
KYODBC_API LONG DB_MoveToTTestByDelta(LONG delta);

/* Makes the row with the key `id` current and returns its position. When there is none, the first row becomes
 * current and its position is returned: compare the key of the row to tell. 0 when the result is empty or no
 * row is current, and after a database error. Looks among the keys that the open read. */
KYODBC_API LONG DB_MoveToTPatByIntID(LONG id);
KYODBC_API LONG DB_MoveToTImgByIntID(LONG id);
/* Jumps by the sort order without reading the rows between; without one, as the two above. 0 for an unknown
 * patient, and the position is kept. For a patient that the filter hides: the row that follows in the
 * order. */
KYODBC_API LONG DB_MoveToPatExByIntID(LONG id);

/* Makes the first row current whose leading sort value is not below `text`, and returns its position. 0, with
 * the first row current, when all rows are below; 0 without moving when there is no sort order; 0 after a
 * database error. Meant for an ascending order whose first field is a text; the database compares. */
KYODBC_API LONG DB_MoveToTPatByString(const char* text);
KYODBC_API LONG DB_MoveToPatExByString(const char* text);

/* Writes the number of rows of the browse set under its filter. The position is kept. Returns 0; 1 for a null
 * pointer; 3 without a connection; 5 when the position could not be restored; 31. After a failure *count is 0
 * or incomplete. */
KYODBC_API WORD DB_GetTDrMaxPos(LONG* count);
KYODBC_API WORD DB_GetTStatMaxPos(LONG* count);
KYODBC_API WORD DB_GetTUnitMaxPos(LONG* count);
KYODBC_API WORD DB_GetTPatMaxPos(LONG* count);
KYODBC_API WORD DB_GetPatExMaxPos(LONG* count);
KYODBC_API WORD DB_GetTImgMaxPos(LONG* count);
KYODBC_API WORD DB_GetTMakMaxPos(LONG* count);
KYODBC_API WORD DB_GetTGrpMaxPos(LONG* count);
KYODBC_API WORD DB_GetTDiagMaxPos(LONG* count);
KYODBC_API WORD DB_GetTCfgMaxPos(LONG* count);
KYODBC_API WORD DB_GetTTestMaxPos(LONG* count);

/* ---- Browse sets: filter and sort ---- */

/* Filters by up to four clauses. Byte i of `fields` holds the field id of clause i, plus KYODBC_OR to join it
 * with OR to the clauses before it, left to right; 0 ends the list. Byte i of `operators` holds its
 * comparison. value1 to value4 belong to the clauses; the field id says what they point to (field_words.h).
 * KYODBC_BETWEEN takes the value of its clause and the next one, and uses up the next clause. Values are
 * copied.
 *
 * An open set is read again and stands on its first row. A closed one takes the filter at its next open.
 *
 * Returns 0; 1 for a field that the table does not know, an id that cannot be filtered on, BETWEEN on a key
 * or text or in the fourth clause, or a null value, and the filter and the rows stay as they were; 3 without
 * a connection; 31 when the database refuses the filter, and the set is closed then.
 *
 * `fields` 0 does not clear a filter, it makes an impossible one (31). To see all rows, filter for
 * KYODBC_FIELD_KEY KYODBC_GREATER 0. */
KYODBC_API WORD DB_SetTDrFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                                const void* value3, const void* value4);
KYODBC_API WORD DB_SetTStatFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                                  const void* value3, const void* value4);
KYODBC_API WORD DB_SetTUnitFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                                  const void* value3, const void* value4);
KYODBC_API WORD DB_SetTPatFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                                 const void* value3, const void* value4);
/* After a 1 the view shows every patient that has a doctor from its next reading on. */
KYODBC_API WORD DB_SetPatExFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                                  const void* value3, const void* value4);
KYODBC_API WORD DB_SetTImgFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                                 const void* value3, const void* value4);
KYODBC_API WORD DB_SetTMakFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                                 const void* value3, const void* value4);
KYODBC_API WORD DB_SetTGrpFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                                 const void* value3, const void* value4);
KYODBC_API WORD DB_SetTDiagFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                                  const void* value3, const void* value4);
KYODBC_API WORD DB_SetTCfgFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                                 const void* value3, const void* value4);
KYODBC_API WORD DB_SetTTestFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                                  const void* value3, const void* value4);

/* Sorts by up to four keys. Byte i of `sort_index` holds a field id, plus KYODBC_DESCENDING; 0 ends the list.
 * An open set is read again and stands on its first row. Does nothing when the index is the one last set.
 *
 * Returns 0; 1 when the table does not know the first field, 0 included, and the set is then unsorted from
 * its next reading on; 3 without a connection; 31 when the database refuses the order. Name known fields
 * only: an unknown one behind the first leaves an incomplete order, which the database refuses. */
KYODBC_API WORD DB_SetTDrSortIndex(LONG sort_index);
KYODBC_API WORD DB_SetTStatSortIndex(LONG sort_index);
KYODBC_API WORD DB_SetTUnitSortIndex(LONG sort_index);
KYODBC_API WORD DB_SetTPatSortIndex(LONG sort_index);
KYODBC_API WORD DB_SetPatExSortIndex(LONG sort_index);
KYODBC_API WORD DB_SetTImgSortIndex(LONG sort_index);
KYODBC_API WORD DB_SetTMakSortIndex(LONG sort_index);
KYODBC_API WORD DB_SetTGrpSortIndex(LONG sort_index);
KYODBC_API WORD DB_SetTDiagSortIndex(LONG sort_index);
KYODBC_API WORD DB_SetTCfgSortIndex(LONG sort_index);
KYODBC_API WORD DB_SetTTestSortIndex(LONG sort_index);

/* ---- Browse sets: rows ---- */

/* Makes the row at `position` current, or takes the current row for 0, and copies it into *record. Returns 0;
 * 1 for a null record; 3 without a connection; 31; 64 when there is no such row. After a failure the record
 * is unchanged. */
KYODBC_API WORD DB_GetTDrByPos(LONG position, tagTDOCTOR* record);
KYODBC_API WORD DB_GetTStatByPos(LONG position, tagTSTATION* record);
KYODBC_API WORD DB_GetTUnitByPos(LONG position, tagTUNIT* record);
KYODBC_API WORD DB_GetTPatByPos(LONG position, tagTPATIENT* record);
KYODBC_API WORD DB_GetPatExByPos(LONG position, tagTPATIENTEX* record);
KYODBC_API WORD DB_GetTImgByPos(LONG position, tagTIMAGE* record);
KYODBC_API WORD DB_GetTMakByPos(LONG position, tagTMAKRO* record);
KYODBC_API WORD DB_GetTGrpByPos(LONG position, tagTGROUP* record);
KYODBC_API WORD DB_GetTDiagByPos(LONG position, tagTDIAGNOSIS* record);
KYODBC_API WORD DB_GetTCfgByPos(LONG position, tagTCONFIG* record);
KYODBC_API WORD DB_GetTTestByPos(LONG position, tagTTEST* record);

/* Deletes the row at `position`, or the current row for 0. The row that followed becomes current, or the new
 * last row. Returns 0; 3 without a connection; 8 when the database refuses; 31; 64 when there is no such row.
 * Protected rows are not protected here, and rows that refer to the deleted one stay. */
KYODBC_API WORD DB_DeleteTDrByPos(LONG position);
KYODBC_API WORD DB_DeleteTStatByPos(LONG position);
KYODBC_API WORD DB_DeleteTUnitByPos(LONG position);
KYODBC_API WORD DB_DeleteTPatByPos(LONG position);
/* Also brings the last display of the image's patient up to date. */
KYODBC_API WORD DB_DeleteTImgByPos(LONG position);
KYODBC_API WORD DB_DeleteTMakByPos(LONG position);
KYODBC_API WORD DB_DeleteTGrpByPos(LONG position);
KYODBC_API WORD DB_DeleteTDiagByPos(LONG position);
KYODBC_API WORD DB_DeleteTCfgByPos(LONG position);
KYODBC_API WORD DB_DeleteTTestByPos(LONG position);

/* ---- Single rows ---- */

/* The calls below work on one row that the record names, without disturbing filter, sort and position of the
 * browse set. The row is found by the record's key when that is not 0, else by its natural key:
 *
 *   TDr    szSrvID, else szName        TStat  szName            TUnit  szName
 *   TPat   szSlidaID, else szSrvID, else szName and szFirstname and dBirthday
 *   TMak   lImgID and wNo              TCfg   lDrID and lStatID and szKey
 *   TImg, TGrp   lPatID and ts and szLoc "9"      TTest  lUnitID and ts and szLoc "9"
 *   TDiag  none
 *
 * Location "9" is where the library itself puts added groups, images and tests. A date counts when year,
 * month and day are not 0; its fraction takes no part. After a change, the browse set is read again if it is
 * open; it then stands on its first row. All return 1 for a null record and 3 without a connection. */

/* Adds a row with all fields of the record and reads it back: the record comes back as stored, with its new
 * key. The key passed in is ignored. Returns 0; 3; 6 when the database refuses. The row has been added, too,
 * after 1: the natural key is incomplete; and 52 or 64: it now finds several rows or none. After 6 it may be
 * there when the connection went, or a time-out came, while it was read back: look before you add it again.
 * Where the row is there, the record's key is 0 after a failure. */
KYODBC_API WORD DB_AddNewTDr(tagTDOCTOR* record);
KYODBC_API WORD DB_AddNewTStat(tagTSTATION* record);
KYODBC_API WORD DB_AddNewTUnit(tagTUNIT* record);
/* Stamps date of entry and last display with today and derives the display identifier. The joined view is
 * read again too. Tried up to nine times before 6. */
KYODBC_API WORD DB_AddNewTPat(tagTPATIENT* record);
/* szLoc must be empty and comes back as "9"; else 1, and nothing is added. Replaces images of the same
 * patient and time (8 when one cannot be deleted, and nothing is added), and brings the patient's last
 * display up to date. */
KYODBC_API WORD DB_AddNewTImg(tagTIMAGE* record);
/* Stamps the last change with the current local time. */
KYODBC_API WORD DB_AddNewTMak(tagTMAKRO* record);
/* szLoc must be empty and comes back as "9"; else 1, and nothing is added. */
KYODBC_API WORD DB_AddNewTGrp(tagTGROUP* record);
/* The record, its key included, comes back as it was: a diagnosis has no natural key to find it by. */
KYODBC_API WORD DB_AddNewTDiag(tagTDIAGNOSIS* record);
KYODBC_API WORD DB_AddNewTCfg(tagTCONFIG* record);
/* szLoc must be empty and comes back as "9"; else 1, and nothing is added. */
KYODBC_API WORD DB_AddNewTTest(tagTTEST* record);

/* Writes the fields of the record whose bits are set in `mask` (KYODBC_MASK_...; KYODBC_MASK_ALL: all of
 * them) to the row that the record names, and the row's key into the record. A row found by its natural key
 * keeps the fields of that key. Returns 0; 1 without key and natural key; 3; 6 when the database refuses; 31;
 * 52 when several rows match; 64 when none does. After a failure row and record are unchanged; only when the
 * answer of the database itself was lost, nobody knows of the row. */
/* 8 for a protected row: named "-" or with key 1. The joined view is read again too when bit 0x1 is set. */
KYODBC_API WORD DB_EditSelTDr(tagTDOCTOR* record, DWORD mask);
/* 8 for a protected row: named "-" or with key 1. */
KYODBC_API WORD DB_EditSelTStat(tagTSTATION* record, DWORD mask);
/* 8 for a protected row: named "-" or with key 1. Not found: 66. */
KYODBC_API WORD DB_EditSelTUnit(tagTUNIT* record, DWORD mask);
/* Not found: 21. The date of entry is never written; display identifier and last display are derived. The
 * joined view is read again too. */
KYODBC_API WORD DB_EditSelTPat(tagTPATIENT* record, DWORD mask);
/* Not found: 65. With bit 0x40, and found by key, brings the last display of record->lPatID up to date. */
KYODBC_API WORD DB_EditSelTImg(tagTIMAGE* record, DWORD mask);
/* Bit 0x4 stamps the last change with the current local time. */
KYODBC_API WORD DB_EditSelTMak(tagTMAKRO* record, DWORD mask);
KYODBC_API WORD DB_EditSelTGrp(tagTGROUP* record, DWORD mask);
KYODBC_API WORD DB_EditSelTDiag(tagTDIAGNOSIS* record, DWORD mask);
KYODBC_API WORD DB_EditSelTCfg(tagTCONFIG* record, DWORD mask);
/* Not found: 67. An empty szPerson is made "?" in the caller's record first, whatever the mask and result. */
KYODBC_API WORD DB_EditSelTTest(tagTTEST* record, DWORD mask);

/* As DB_EditSel... with KYODBC_MASK_ALL. */
KYODBC_API WORD DB_EditTDr(tagTDOCTOR* record);
KYODBC_API WORD DB_EditTStat(tagTSTATION* record);
KYODBC_API WORD DB_EditTUnit(tagTUNIT* record);
KYODBC_API WORD DB_EditTPat(tagTPATIENT* record);
KYODBC_API WORD DB_EditTImg(tagTIMAGE* record);
KYODBC_API WORD DB_EditTMak(tagTMAKRO* record);
KYODBC_API WORD DB_EditTGrp(tagTGROUP* record);
KYODBC_API WORD DB_EditTDiag(tagTDIAGNOSIS* record);
KYODBC_API WORD DB_EditTCfg(tagTCONFIG* record);
KYODBC_API WORD DB_EditTTest(tagTTEST* record);

/* Deletes the row that the record names; rows that refer to it stay. Returns 0; 1 without key and natural
 * key; 3; 8 when the database refuses; 31; 52 when several rows match; 64 when none does. After a failure the
 * row is there; only when the answer of the database itself was lost, nobody knows. */
/* 8 for a protected row: named "-" or with key 1. */
KYODBC_API WORD DB_DeleteTDr(const tagTDOCTOR* record);
/* 8 for a protected row: named "-" or with key 1. */
KYODBC_API WORD DB_DeleteTStat(const tagTSTATION* record);
/* 8 for a protected row: named "-" or with key 1. Not found: 66. */
KYODBC_API WORD DB_DeleteTUnit(const tagTUNIT* record);
/* Not found: 21. A record without key and natural key whose lSelect is not 0 deletes every selected patient.
 * The joined view is read again too. */
KYODBC_API WORD DB_DeleteTPat(const tagTPATIENT* record);
/* Not found: 65. Brings the last display of record->lPatID up to date; 0 there leaves all patients alone. */
KYODBC_API WORD DB_DeleteTImg(const tagTIMAGE* record);
KYODBC_API WORD DB_DeleteTMak(const tagTMAKRO* record);
KYODBC_API WORD DB_DeleteTGrp(const tagTGROUP* record);
KYODBC_API WORD DB_DeleteTDiag(const tagTDIAGNOSIS* record);
KYODBC_API WORD DB_DeleteTCfg(const tagTCONFIG* record);
/* Not found: 67. */
KYODBC_API WORD DB_DeleteTTest(const tagTTEST* record);

/* Fills the record with the row that it names. Returns 0; 1 without key and natural key; 3, also for a
 * database error; 31; 52 when several rows match; 64 when none does. After a failure the record is
 * unchanged. */
KYODBC_API WORD DB_GetTDr(tagTDOCTOR* record);
KYODBC_API WORD DB_GetTStat(tagTSTATION* record);
/* Not found: 66. */
KYODBC_API WORD DB_GetTUnit(tagTUNIT* record);
/* Not found: 21. */
KYODBC_API WORD DB_GetTPat(tagTPATIENT* record);
/* Found as a patient. Not found, or without a doctor: 21. */
KYODBC_API WORD DB_GetPatEx(tagTPATIENTEX* record);
/* Not found: 65. */
KYODBC_API WORD DB_GetTImg(tagTIMAGE* record);
KYODBC_API WORD DB_GetTMak(tagTMAKRO* record);
KYODBC_API WORD DB_GetTGrp(tagTGROUP* record);
KYODBC_API WORD DB_GetTDiag(tagTDIAGNOSIS* record);
KYODBC_API WORD DB_GetTCfg(tagTCONFIG* record);
/* Not found: 67. */
KYODBC_API WORD DB_GetTTest(tagTTEST* record);

/* ---- Counts and newest rows ---- */

/* Writes the number of rows of the whole table, whatever the browse set shows. Returns 0; 3 without a
 * connection; 31. A null pointer is ignored. */
KYODBC_API WORD DB_GetNumTDr(LONG* count);
KYODBC_API WORD DB_GetNumTStat(LONG* count);
KYODBC_API WORD DB_GetNumTUnit(LONG* count);
KYODBC_API WORD DB_GetNumTPat(LONG* count);
/* Counts the patients that have a doctor. 3 also when the view does not open. */
KYODBC_API WORD DB_GetNumPatEx(LONG* count);
KYODBC_API WORD DB_GetNumTDiag(LONG* count);
KYODBC_API WORD DB_GetNumTCfg(LONG* count);

/* Writes the number of rows that belong to the given patient, image or unit; key 0 counts all. Returns 0; 1
 * for a null pointer; 3, also for a database error; 5 or 31 as DB_Get...MaxPos. */
KYODBC_API WORD DB_GetNumTImg(LONG patient_key, LONG* count);
KYODBC_API WORD DB_GetNumTMak(LONG image_key, LONG* count);
KYODBC_API WORD DB_GetNumTGrp(LONG patient_key, LONG* count);
KYODBC_API WORD DB_GetNumTTest(LONG unit_key, LONG* count);

/* Writes the highest key of the table, which is that of the newest row; 0 for an empty table. Returns 0; 1
 * for a null pointer; 3; 31. */
KYODBC_API WORD DB_GetLastDrID(LONG* id);
KYODBC_API WORD DB_GetLastStatID(LONG* id);
KYODBC_API WORD DB_GetLastUnitID(LONG* id);
KYODBC_API WORD DB_GetLastPatID(LONG* id);
KYODBC_API WORD DB_GetLastImgID(LONG* id);
KYODBC_API WORD DB_GetLastMakID(LONG* id);
KYODBC_API WORD DB_GetLastGrpID(LONG* id);
KYODBC_API WORD DB_GetLastDiagID(LONG* id);
KYODBC_API WORD DB_GetLastCfgID(LONG* id);
KYODBC_API WORD DB_GetLastTestID(LONG* id);

/* Writes key and time of the newest row that belongs to the given patient, image or unit; key 0 looks at all.
 * The time of a makro is that of its last change. Each output may be null. Returns 0; 3, also for a database
 * error; 31; and when there is no row 65 (images), 64 (makros) or 67 (tests). After a failure both outputs
 * are unchanged. */
KYODBC_API WORD DB_GetLastTImgDate(LONG patient_key, LONG* image_key, TIMESTAMP_STRUCT* time);
KYODBC_API WORD DB_GetLastTMakDate(LONG image_key, LONG* makro_key, TIMESTAMP_STRUCT* time);
KYODBC_API WORD DB_GetLastTTestDate(LONG unit_key, LONG* test_key, TIMESTAMP_STRUCT* time);

/* ---- Compact records: patients ---- */

/* Patients in the compact record, which names the doctor by name and packs identifier and sex. The changes
 * read the patients' set and the joined view again if they are open. All return 1 for a null record; 3;
 * 31. */

/* Adds a patient. The doctor must exist: 1 for an empty name, 64 or 52 when none or several have it, and
 * nothing is added. Otherwise as DB_AddNewTPat. The record comes back with its key, and with "}" alone as
 * identifier if it carried an external one; DB_GetPat gives that in full. */
KYODBC_API WORD DB_AddNewPat(tagPATIENTCOMPACT* record);

/* Write doctor, identifiers, names, birthday and sex; the second those of them whose bit is set in `mask`
 * (KYODBC_MASK_PAT_...). No other field is ever written this way. The doctor as in DB_AddNewPat; otherwise as
 * DB_EditSelTPat. */
KYODBC_API WORD DB_EditPat(tagPATIENTCOMPACT* record);
KYODBC_API WORD DB_EditSelPat(tagPATIENTCOMPACT* record, DWORD mask);

/* As DB_DeleteTPat, but never deletes the selected patients. */
KYODBC_API WORD DB_DeletePat(const tagPATIENTCOMPACT* record);

/* Fills the record with the patient that it names. 21 when there is none or it has no doctor; 52 for several.
 * After a failure the record is unchanged. */
KYODBC_API WORD DB_GetPat(tagPATIENTCOMPACT* record);

/* Fills the record with the row of the joined view at `position`, 0 for the current row. Otherwise as
 * DB_GetPatExByPos. The record comes first here. */
KYODBC_API WORD DB_GetPatByPos(tagPATIENTCOMPACT* record, LONG position);

/* ---- Compact records: units ---- */

/* Units in the compact record, with their texts packed and joined by the byte 0xBB. The changes read the
 * units' set again if it is open. All return 1 for a null record; 3; 31. */

/* Adds a unit with the type "X?", since the record has no place for one. As DB_AddNewTUnit; the record comes
 * back with its key. */
KYODBC_API WORD DB_AddNewUnit(tagPATIENTCOMPACT* record);

/* Write all fields, the type as "X?" included, or those whose bit is set in `mask` (KYODBC_MASK_UNIT_...). As
 * DB_EditSelTUnit. The first gives back the record with its key; the second leaves it alone. */
KYODBC_API WORD DB_EditUnit(tagPATIENTCOMPACT* record);
KYODBC_API WORD DB_EditSelUnit(const tagPATIENTCOMPACT* record, DWORD mask);

/* As DB_DeleteTUnit. */
KYODBC_API WORD DB_DeleteUnit(const tagPATIENTCOMPACT* record);

/* Fills the record with the unit that it names. As DB_GetTUnit. */
KYODBC_API WORD DB_GetUnit(tagPATIENTCOMPACT* record);

/* Fills the record with the row of the units' set at `position`, 0 for the current row. As DB_GetTUnitByPos.
 * The record comes first here. */
KYODBC_API WORD DB_GetUnitByPos(tagPATIENTCOMPACT* record, LONG position);

#ifdef __cplusplus
}

#ifndef KYODBC_FLAT_ONLY
#include "../platform/crecordset.h"
#include "../recset/dbtimestamp.h"
#include "../recset/kyrecset.h"
#include "../tables/config.h"
#include "../tables/config_raw_rec.h"
#include "../tables/diagnosis.h"
#include "../tables/diagnosis_raw_rec.h"
#include "../tables/doctor.h"
#include "../tables/doctor_raw_rec.h"
#include "../tables/group.h"
#include "../tables/group_raw_rec.h"
#include "../tables/image.h"
#include "../tables/image_raw_rec.h"
#include "../tables/makro.h"
#include "../tables/makro_raw_rec.h"
#include "../tables/patient.h"
#include "../tables/patient_raw_rec.h"
#include "../tables/station.h"
#include "../tables/station_raw_rec.h"
#include "../tables/test.h"
#include "../tables/test_raw_rec.h"
#include "../tables/unit.h"
#include "../tables/unit_raw_rec.h"
#include "dynamic_rec.h"
#endif
#endif

#endif
