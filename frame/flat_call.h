// The bodies of the flat calls, written once for all tables.
//
// Every flat call answers for three things here. Without a connection a code is 3 and a position or an open
// state 0; `set` is then null, and that is the whole test. No exception leaves: see CodeOfCurrentException.
// A failure is remembered under the name of the exported function, which the default arguments called
// `function` tell: they name the function in which the call stands.
//
// To add an exported function: declare it in KyODBC.h, define it in a flat_*.cpp over a function of this
// file, name it in exports.txt, add it to the calls of tests/flat/no_connection_test.cpp.
#ifndef KYODBC_FRAME_FLAT_CALL_H
#define KYODBC_FRAME_FLAT_CALL_H

#include <cstring>

#include "frame/connection.h"
#include "frame/last_failure.h"
#include "platform/refusal.h"
#include "platform/result_codes.h"
#include "recset/kyrecset.h"

namespace flat {

// Called in a handler: logs and frees the exception and returns its code. 31 for a database exception and
// for any other; 14 when memory ran out.
WORD CodeOfCurrentException();

// Runs `call`, which returns a code. 3 when `connected` is null.
template <class Call>
WORD Code(const void* connected, Call call, const char* function = __builtin_FUNCTION()) {
  const FlatCall flat_call(function);
  if (flat_call.Refused(connected)) return kDbException;
  if (connected == nullptr) return flat_call.Answer(kNotOpened);
  try {
    return flat_call.Answer(call());
  } catch (...) {
    return flat_call.Answer(CodeOfCurrentException());
  }
}

// Answers with a code that is known without further work.
inline WORD Answer(WORD code, const char* function = __builtin_FUNCTION()) {
  return FlatCall(function).Answer(code);
}

// For an exported function that is another one with other arguments: a failure is remembered as its own.
template <class Call>
WORD Through(Call call, const char* function = __builtin_FUNCTION()) {
  const FlatCall flat_call(function);
  if (flat_call.Refused()) return kDbException;
  return flat_call.Answer(call());
}

// As Code, and 1 when the caller's `argument` is null.
template <class Call>
WORD CodeWith(const void* connected, const void* argument, Call call,
              const char* function = __builtin_FUNCTION()) {
  return Code(
      connected, [&] { return argument == nullptr ? kBadArgument : call(); }, function);
}

// Runs `call`, which returns a position. 0 when `connected` is null and after an exception.
template <class Call>
LONG Position(const void* connected, Call call, const char* function = __builtin_FUNCTION()) {
  LONG position = 0;
  Code(
      connected,
      [&] {
        position = call();
        return kOk;
      },
      function);
  return position;
}

// As Position, for a call that moves: the position 0 is the failure "no row".
template <class Call>
LONG Moved(const void* connected, Call call, const char* function = __builtin_FUNCTION()) {
  LONG position = 0;
  Code(
      connected,
      [&] {
        position = call();
        return position == 0 ? kNoRow : kOk;
      },
      function);
  return position;
}

// Callers' variables may be fields of packed records, so they are written by copy.
template <class Number>
void Put(Number* out, Number number) {
  std::memcpy(static_cast<void*>(out), &number, sizeof number);
}

// --- The browse set alone ---

WORD Open(CKyRecSet* set, const char* function = __builtin_FUNCTION());
WORD Close(CKyRecSet* set, const char* function = __builtin_FUNCTION());
BOOL IsOpen(const CKyRecSet* set, BOOL after_exception, const char* function = __builtin_FUNCTION());
LONG IndexPos(CKyRecSet* set, const char* function = __builtin_FUNCTION());
LONG MoveToPos(CKyRecSet* set, LONG position, const char* function = __builtin_FUNCTION());
LONG MoveToDelta(CKyRecSet* set, LONG delta, const char* function = __builtin_FUNCTION());
LONG MoveToIntID(CKyRecSet* set, LONG id, const char* function = __builtin_FUNCTION());
WORD SetFilter(CKyRecSet* set, LONG fields, LONG operators, const void* value1, const void* value2,
               const void* value3, const void* value4, const char* function = __builtin_FUNCTION());
WORD SetSortIndex(CKyRecSet* set, LONG sort_index, const char* function = __builtin_FUNCTION());
WORD DeleteByPos(CKyRecSet* set, LONG position, const char* function = __builtin_FUNCTION());
WORD MaxPos(CKyRecSet* set, LONG* count,
            const char* function = __builtin_FUNCTION());  // after a failure *count is 0 or incomplete

// Restores a lost connection first, also when an earlier attempt has failed and left no set. That makes all
// sets anew, so the set is looked up afterwards.
template <class Set>
WORD KeepAliveAndOpen(Set* CDBConnection::*set, const char* function = __builtin_FUNCTION()) {
  CDBConnection& connection = TheConnection();
  const auto open = [&]() -> WORD {
    const WORD alive = connection.KeepAlive();
    if (alive == kOk || alive == kReconnected) return Open(connection.*set);
    refusal::BecameCode(kNotOpened);
    return kNotOpened;
  };
  return Code(connection.m_bWanted ? &connection : nullptr, open, function);
}

// 0 for a null text.
template <class Set>
LONG MoveToString(Set* set, const char* text, const char* function = __builtin_FUNCTION()) {
  return Moved(
      set, [&] { return text == nullptr ? 0 : set->MoveToSortValue(text); }, function);
}

template <class Set, class Record>
WORD GetByPos(Set* set, LONG position, Record* record, const char* function = __builtin_FUNCTION()) {
  return CodeWith(
      set, record, [&] { return set->GetRecByPos(record, &position); }, function);
}

// --- Single rows ---

// Hands `code` on; when it is 0, `set` and `joined` (may be null) are read again, if they are open, before
// anybody looks at them.
WORD RequeryAfter(WORD code, CKyRecSet* set, CKyRecSet* joined);

// Runs `change`, a row operation with the caller's `record`. Sets that earlier changes have marked and this
// one does not are read before: their rows may be others behind it.
template <class Call>
WORD Change(CKyRecSet* set, CKyRecSet* joined, const void* record, Call change,
            const char* function = __builtin_FUNCTION()) {
  const auto run = [&] {
    TheConnection().ReadMarkedSets(set, joined);
    return RequeryAfter(change(), set, joined);
  };
  return CodeWith(set, record, run, function);
}

template <class Set, class Record>
WORD Add(Set* set, Record* record, CKyRecSet* joined = nullptr, const char* function = __builtin_FUNCTION()) {
  return Change(
      set, joined, record, [&] { return set->AddRow(record); }, function);
}

template <class Set, class Record>
WORD Edit(Set* set, Record* record, DWORD mask, CKyRecSet* joined = nullptr,
          const char* function = __builtin_FUNCTION()) {
  return Change(
      set, joined, record, [&] { return set->EditRow(record, mask); }, function);
}

template <class Set, class Record>
WORD Delete(Set* set, const Record* record, CKyRecSet* joined = nullptr,
            const char* function = __builtin_FUNCTION()) {
  return Change(
      set, joined, record, [&] { return set->DeleteRow(record); }, function);
}

template <class Set, class Record>
WORD Get(Set* set, Record* record, const char* function = __builtin_FUNCTION()) {
  return CodeWith(
      set, record, [&] { return set->GetRow(record); }, function);
}

// --- Counts and newest rows. The browse set is not touched; outputs are written only on 0. ---

// Runs `call` with a number of its own and hands it out on 0.
template <class Call>
WORD Number(const void* connected, LONG* out, Call call, const char* function = __builtin_FUNCTION()) {
  const auto count = [&]() -> WORD {
    LONG number = 0;
    const WORD code = call(&number);
    if (code == kOk) Put(out, number);
    return code;
  };
  return CodeWith(connected, out, count, function);
}

// All rows of the table. A null pointer asks for nothing, which is 0.
template <class Set>
WORD Num(Set* set, LONG* count, const char* function = __builtin_FUNCTION()) {
  if (set != nullptr && count == nullptr) return kOk;
  const auto read = [&](LONG* number) {
    // The owner given last, as for every other short-lived set: an initialisation that is refused because
    // there is a connection stores its parameters all the same.
    const CString owner = TheConnection().Owner();
    // With an owner a set counts by reading its own rows.
    return owner.IsEmpty() && set->m_strOwner.IsEmpty() ? set->GetNum(number)
                                                        : Set(set->m_pDatabase, owner).GetNum(number);
  };
  return Number(set, count, read, function);
}

// The newest key, through a set of its own, with the owner given last.
template <class Set>
WORD LastID(const Set* set, LONG* id, const char* function = __builtin_FUNCTION()) {
  return Number(
      set, id, [&](LONG* number) { return Set(set->m_pDatabase, TheConnection().Owner()).GetLastID(number); },
      function);
}

template <class Set>
WORD NumOf(Set* set, LONG owner_key, LONG* count, const char* function = __builtin_FUNCTION()) {
  return Number(
      set, count, [&](LONG* number) { return set->CountRows(owner_key, number); }, function);
}

template <class Set>
WORD LastDate(Set* set, LONG owner_key, LONG* key, TIMESTAMP_STRUCT* time,
              const char* function = __builtin_FUNCTION()) {
  return Code(
      set, [&] { return set->GetNewest(owner_key, key, time); }, function);
}

}  // namespace flat

#endif
