// Scripts as text: one call a line, its word, its table, then what differs from nothing.
//
//   SetFilter TPat a=17 b=16 op0="M%"
//   Clock a=1700000000
//   AddNew TDr szName="O'Neil" szSrvID="S1"
#ifndef KYODBC_TESTS_DIFFERENTIAL_SCRIPT_H
#define KYODBC_TESTS_DIFFERENTIAL_SCRIPT_H

#include <string>

#include "tests/differential/call.h"
#include "tests/differential/packed.h"

namespace differential {

std::string TextOf(const Call& call);
std::string TextOf(const Script& script);
// Throws std::runtime_error with the line it does not understand.
Script ParseScript(const std::string& text);

// `"O'Neil"`, `12`, `@2001-5-6-10-0-0`; a byte that is no printable ASCII as \xHH.
std::string TextOf(const Cell& cell);
// "field=value" for every field that is not empty, 0 or zero.
std::string TextOf(const Packed& record);

}  // namespace differential

#endif
