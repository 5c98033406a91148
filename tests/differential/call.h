// One flat call with its arguments, what it answered, and its name in scripts.
#ifndef KYODBC_TESTS_DIFFERENTIAL_CALL_H
#define KYODBC_TESTS_DIFFERENTIAL_CALL_H

#include <array>
#include <string>
#include <vector>

#include "tests/differential/cell.h"
#include "tests/differential/layout.h"

namespace differential {

enum class Verb {
  // Of one browse set or table.
  kOpen,
  kClose,
  kIsOpen,
  kIndexPos,
  kMoveByPos,
  kMoveByDelta,
  kMoveByIntID,
  kMoveByString,
  kSetFilter,
  kSetSort,
  kDeleteByPos,
  kGetByPos,
  kMaxPos,
  kAddNew,
  kEdit,
  kEditSel,
  kDelete,
  kGet,
  kGetNum,
  kGetLastID,
  kGetLastDate,
  // Of the whole library.
  kBegin,
  kCommit,
  kRollback,
  kGetString,
  kWriteString,
  kGetInt,
  kWriteInt,
  kAddPat,
  kEditPat,
  kEditSelPat,
  kDeletePat,
  kGetPat,
  kGetPatByPos,
  kAddUnit,
  kEditUnit,
  kEditSelUnit,
  kDeleteUnit,
  kGetUnit,
  kGetUnitByPos,
  kInit,
  kCloseDatabase,
  kIsDatabaseOpen,
  kCheckVersion,
  kGetVersion,
  kGetDbms,
  kGetOwner,
  // No call: sets the clock that the library stamps rows with, in seconds since 1970.
  kClock
};

struct Call {
  Verb verb = Verb::kOpen;
  Stem stem = Stem::kDr;
  // Position, delta, key, fields, sort index, parent key, size of a buffer, version or seconds.
  int a = 0;
  // Operators, field mask, or the number of a setting.
  int b = 0;
  // Values of a filter; the text searched for; key, station and value or default of a setting. Nothing is a
  // null pointer.
  std::array<Cell, 4> operands{};
  // The bytes of the record passed in. Empty where the call only fills one.
  std::string record{};
  // Null pointers for outputs and records.
  bool null_first = false;
  bool null_second = false;
  // The answer of this call is falsified, to see that the comparison finds it.
  bool planted = false;
};

// What came back: the result, and all memory the call could write to, record first.
struct Answer {
  int result = 0;
  std::string memory;
  bool operator==(const Answer&) const = default;
};

struct VerbName {
  Verb verb;
  const char* word;      // in scripts
  const char* function;  // "%s" stands for the name of the table, "%t" for it without its T; empty: no call
  bool has_stem;
};
const VerbName& NameOf(Verb verb);
Verb VerbOf(const std::string& word);  // throws for an unknown one

// "DB_OpenTPat"
std::string FunctionName(const Call& call);

// The layout of the record that the call takes or fills.
Stem RecordStem(const Call& call);
bool TakesRecord(Verb verb);  // in, perhaps also out
bool FillsRecord(Verb verb);  // out only
bool ReturnsCode(Verb verb);  // and not a position or a truth

using Script = std::vector<Call>;

}  // namespace differential

#endif
