#include "tests/faults/connection.h"

#include "tests/support/records.h"

namespace faults {
namespace {

tagDBCONNECT the_parameters;

}  // namespace

void UseSource(const FaultSource& source) {
  the_parameters = source.Parameters();
  if (the_parameters.szPWD[0] == '\0') support::SetText(the_parameters.szPWD, kNeedlessPassword);
}

WORD Connect() { return DB_InitDatabase(&the_parameters); }

}  // namespace faults
