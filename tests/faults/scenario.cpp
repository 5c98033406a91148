#include "tests/faults/scenario.h"

#include <algorithm>

namespace faults {

WORD Answers::Code(const char* call, WORD code, Codes allowed) {
  m_text += std::string(m_text.empty() ? "" : ", ") + call + " " + std::to_string(code);
  if (code == 0) return code;
  m_all_well = false;
  if (std::find(allowed.begin(), allowed.end(), code) == allowed.end())
    m_not_allowed += std::string(call) + " gave " + std::to_string(code) + "; ";
  return code;
}

void Answers::Number(const char* what, LONG number) {
  m_text += std::string(", ") + what + " is " + std::to_string(number);
}

LONG Answers::Position(const char* call, LONG position) {
  m_text += std::string(m_text.empty() ? "" : ", ") + call + " at " + std::to_string(position);
  if (position == 0) m_all_well = false;
  return position;
}

}  // namespace faults
