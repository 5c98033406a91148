// The bodies of the flat calls, written once for all tables.
//
// Every flat call answers for two things here. Without a connection a code is 3 and a position or an open
// state 0; `set` is then null, and that is the whole test. No exception leaves: see CodeOfCurrentException.
//
// To add an exported function: declare it in KyODBC.h, define it in a flat_*.cpp over a function of this
// file, name it in exports.txt, add it to the calls of tests/flat/no_connection_test.cpp.
#ifndef KYODBC_FRAME_FLAT_CALL_H
#define KYODBC_FRAME_FLAT_CALL_H

#include <cstring>

#include "frame/connection.h"
#include "platform/result_codes.h"
#include "recset/kyrecset.h"

namespace flat {

// Called in a handler: logs and frees the exception and returns its code. 31 for a database exception and
// for any other; 14 when memory ran out.
WORD CodeOfCurrentException();

// Runs `call`, which returns a code. 3 when `connected` is null.
template <class Call>
WORD Code(const void* connected, Call call) {
  if (connected == nullptr) return kNotOpened;
  try {
    return call();
  } catch (...) {
    return CodeOfCurrentException();
  }
}

// As Code, and 1 when the caller's `argument` is null.
template <class Call>
WORD CodeWith(const void* connected, const void* argument, Call call) {
  return Code(connected, [&] { return argument == nullptr ? kBadArgument : call(); });
}

// Runs `call`, which returns a position. 0 when `connected` is null and after an exception.
template <class Call>
LONG Position(const void* connected, Call call) {
  if (connected == nullptr) return 0;
  try {
    return call();
  } catch (...) {
    CodeOfCurrentException();
    return 0;
  }
}

// Callers' variables may be fields of packed records, so they are written by copy.
template <class Number>
void Put(Number* out, Number number) {
  std::memcpy(static_cast<void*>(out), &number, sizeof number);
}

// --- The browse set alone ---

WORD Open(CKyRecSet* set);
WORD Close(CKyRecSet* set);
BOOL IsOpen(const CKyRecSet* set, BOOL after_exception);
LONG IndexPos(const CKyRecSet* set);
LONG MoveToPos(CKyRecSet* set, LONG position);
LONG MoveToDelta(CKyRecSet* set, LONG delta);
LONG MoveToIntID(CKyRecSet* set, LONG id);
WORD SetFilter(CKyRecSet* set, LONG fields, LONG operators, const void* value1, const void* value2,
               const void* value3, const void* value4);
WORD SetSortIndex(CKyRecSet* set, LONG sort_index);
WORD DeleteByPos(CKyRecSet* set, LONG position);
WORD MaxPos(CKyRecSet* set, LONG* count);  // after a failure *count is 0 or incomplete

// Restores a lost connection first. That makes all sets anew, so the set is looked up afterwards.
template <class Set>
WORD KeepAliveAndOpen(Set* CDBConnection::*set) {
  CDBConnection& connection = TheConnection();
  return Code(connection.*set, [&]() -> WORD {
    const WORD alive = connection.KeepAlive();
    if (alive != kOk && alive != kReconnected) return kNotOpened;
    return Open(connection.*set);
  });
}

// 0 for a null text.
template <class Set>
LONG MoveToString(Set* set, const char* text) {
  return Position(set, [&] { return text == nullptr ? 0 : set->MoveToSortValue(text); });
}

template <class Set, class Record>
WORD GetByPos(Set* set, LONG position, Record* record) {
  return CodeWith(set, record, [&] { return set->GetRecByPos(record, &position); });
}

// --- Single rows ---

// Hands `code` on; when it is 0, `set` and then `joined` (may be null) are first read again if they are open.
WORD RequeryAfter(WORD code, CKyRecSet* set, CKyRecSet* joined);

// Runs `change`, a row operation with the caller's `record`.
template <class Call>
WORD Change(CKyRecSet* set, CKyRecSet* joined, const void* record, Call change) {
  return CodeWith(set, record, [&] { return RequeryAfter(change(), set, joined); });
}

template <class Set, class Record>
WORD Add(Set* set, Record* record, CKyRecSet* joined = nullptr) {
  return Change(set, joined, record, [&] { return set->AddRow(record); });
}

template <class Set, class Record>
WORD Edit(Set* set, Record* record, DWORD mask, CKyRecSet* joined = nullptr) {
  return Change(set, joined, record, [&] { return set->EditRow(record, mask); });
}

template <class Set, class Record>
WORD Delete(Set* set, const Record* record, CKyRecSet* joined = nullptr) {
  return Change(set, joined, record, [&] { return set->DeleteRow(record); });
}

template <class Set, class Record>
WORD Get(Set* set, Record* record) {
  return CodeWith(set, record, [&] { return set->GetRow(record); });
}

// --- Counts and newest rows. The browse set is not touched; outputs are written only on 0. ---

// Runs `call` with a number of its own and hands it out on 0.
template <class Call>
WORD Number(const void* connected, LONG* out, Call call) {
  return CodeWith(connected, out, [&]() -> WORD {
    LONG number = 0;
    const WORD code = call(&number);
    if (code == kOk) Put(out, number);
    return code;
  });
}

// All rows of the table, through a set of its own. A null pointer asks for nothing, which is 0.
template <class Set>
WORD Num(const Set* set, LONG* count) {
  if (set != nullptr && count == nullptr) return kOk;
  return Number(set, count,
                [&](LONG* number) { return Set(set->m_pDatabase, set->m_strOwner).GetNum(number); });
}

// The newest key, through a set of its own.
template <class Set>
WORD LastID(const Set* set, LONG* id) {
  return Number(set, id,
                [&](LONG* number) { return Set(set->m_pDatabase, set->m_strOwner).GetLastID(number); });
}

template <class Set>
WORD NumOf(Set* set, LONG owner_key, LONG* count) {
  return Number(set, count, [&](LONG* number) { return set->CountRows(owner_key, number); });
}

template <class Set>
WORD LastDate(Set* set, LONG owner_key, LONG* key, TIMESTAMP_STRUCT* time) {
  return Code(set, [&] { return set->GetNewest(owner_key, key, time); });
}

}  // namespace flat

#endif
