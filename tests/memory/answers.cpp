// The answers of scenarios where memory may run out: 14 is allowed in every place.
#include <algorithm>

#include "tests/faults/connection.h"
#include "tests/faults/scenario.h"
#include "tests/memory/failing_memory.h"
#include "tests/memory/source.h"

namespace memory {
namespace {
const support::Practice* g_practice = nullptr;
}  // namespace

void UsePractice(const support::Practice& practice) { g_practice = &practice; }

}  // namespace memory

namespace faults {

WORD Answers::Code(const char* call, WORD code, Codes allowed) {
  constexpr WORD kOutOfMemory = 14;
  const memory::Spared spared;
  m_text += std::string(m_text.empty() ? "" : ", ") + call + " " + std::to_string(code);
  if (code == 0) return code;
  m_all_well = false;
  if (code != kOutOfMemory && std::find(allowed.begin(), allowed.end(), code) == allowed.end()) {
    m_not_allowed += std::string(call) + " gave " + std::to_string(code) + "; ";
  }
  return code;
}

void Answers::Number(const char* what, LONG number) {
  const memory::Spared spared;
  m_text += std::string(", ") + what + " is " + std::to_string(number);
}

LONG Answers::Position(const char* call, LONG position) {
  const memory::Spared spared;
  m_text += std::string(m_text.empty() ? "" : ", ") + call + " at " + std::to_string(position);
  if (position == 0) m_all_well = false;
  return position;
}

WORD Connect() {
  tagDBCONNECT parameters;
  {
    const memory::Spared spared;
    parameters = memory::g_practice->Parameters();
  }
  return DB_InitDatabase(&parameters);
}

}  // namespace faults
