#include "tests/faults/scenario.h"

namespace faults {

WORD Answers::Code(const char* call, WORD code, const Codes& allowed) {
  m_text += std::string(m_text.empty() ? "" : ", ") + call + " " + std::to_string(code);
  if (code == 0) return code;
  m_all_well = false;
  if (!allowed.contains(code)) m_not_allowed += std::string(call) + " gave " + std::to_string(code) + "; ";
  return code;
}

LONG Answers::Position(const char* call, LONG position) {
  m_text += std::string(m_text.empty() ? "" : ", ") + call + " at " + std::to_string(position);
  if (position == 0) m_all_well = false;
  return position;
}

}  // namespace faults
