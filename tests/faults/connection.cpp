#include "tests/faults/connection.h"

namespace faults {
namespace {

tagDBCONNECT the_parameters;

}  // namespace

void UseSource(const FaultSource& source) { the_parameters = source.Parameters(); }

WORD Connect() { return DB_InitDatabase(&the_parameters); }

}  // namespace faults
