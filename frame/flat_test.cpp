// The exported names of the tests.
#include <cstring>

#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "recset/test_rec.h"

namespace {

CTestRec* Tests() { return TheConnection().m_pTest; }

constexpr char kUnknownPerson[] = "?";

}  // namespace

WORD DB_OpenTTest() { return flat::Open(Tests()); }
WORD DB_CloseTTest() { return flat::Close(Tests()); }
BOOL DB_IsTTestOpen() { return flat::IsOpen(Tests(), FALSE); }
LONG DB_GetTTestIndexPos() { return flat::IndexPos(Tests()); }
LONG DB_MoveToTTestByPos(LONG position) { return flat::MoveToPos(Tests(), position); }
LONG DB_MoveToTTestByDelta(LONG delta) { return flat::MoveToDelta(Tests(), delta); }
WORD DB_SetTTestFilter(LONG fields, LONG operators, const void* value1, const void* value2,
                       const void* value3, const void* value4) {
  return flat::SetFilter(Tests(), fields, operators, value1, value2, value3, value4);
}
WORD DB_SetTTestSortIndex(LONG sort_index) { return flat::SetSortIndex(Tests(), sort_index); }
WORD DB_DeleteTTestByPos(LONG position) { return flat::DeleteByPos(Tests(), position); }
WORD DB_GetTTestByPos(LONG position, tagTTEST* record) { return flat::GetByPos(Tests(), position, record); }
WORD DB_GetTTestMaxPos(LONG* count) { return flat::MaxPos(Tests(), count); }

WORD DB_AddNewTTest(tagTTEST* record) { return flat::Add(Tests(), record); }
WORD DB_EditTTest(tagTTEST* record) {
  return flat::Through([&] { return DB_EditSelTTest(record, KYODBC_MASK_ALL); });
}
// A test without a person gets "?", in the caller's record too and whether or not the edit succeeds.
WORD DB_EditSelTTest(tagTTEST* record, DWORD mask) {
  if (Tests() != nullptr && record != nullptr && record->szPerson[0] == '\0') {
    std::memcpy(record->szPerson, kUnknownPerson, sizeof kUnknownPerson);
  }
  return flat::Edit(Tests(), record, mask);
}
WORD DB_DeleteTTest(const tagTTEST* record) { return flat::Delete(Tests(), record); }
WORD DB_GetTTest(tagTTEST* record) { return flat::Get(Tests(), record); }

WORD DB_GetNumTTest(LONG unit_key, LONG* count) { return flat::NumOf(Tests(), unit_key, count); }
WORD DB_GetLastTestID(LONG* id) { return flat::LastID(Tests(), id); }
WORD DB_GetLastTTestDate(LONG unit_key, LONG* test_key, TIMESTAMP_STRUCT* time) {
  return flat::LastDate(Tests(), unit_key, test_key, time);
}
