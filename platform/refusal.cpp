#include "platform/refusal.h"

#include <algorithm>
#include <charconv>
#include <exception>
#include <string>
#include <string_view>

#include "platform/masking.h"
#include "platform/text.h"

namespace refusal {
namespace {

Refusal last;

constexpr std::string_view kState = "State:";
constexpr std::string_view kNative = ",Native:";

// The part of `text` behind `label`, up to a comma or the end of the line; empty without the label.
std::string_view Labelled(std::string_view text, std::string_view label) {
  const std::size_t at = text.find(label);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = text.substr(at + label.size());
  return rest.substr(0, rest.find_first_of(",\n"));
}

template <std::size_t N>
void PutText(char (&field)[N], std::string_view text) {
  text::BoundedCopy(field, N, text.data(), text.size());
}

void Fill(const CDBException& exception, WORD code) {
  last = {};
  last.code = code;
  const Origin origin = OriginOf(exception);
  const std::string_view lines = exception.m_strStateNativeOrigin.View();
  PutText(last.state, origin.state.View());
  last.native = origin.native;
  last.records = lines.empty() ? 0 : 1 + static_cast<LONG>(std::count(lines.begin(), lines.end(), '\n'));
  PutText(last.message, masking::Message(origin.state.View(), origin.native, exception.m_strError.View()));
}

}  // namespace

const Refusal& Last() { return last; }

void Forget() { last.code = 0; }

void Remember(const CDBException& exception, WORD code) noexcept {
  try {
    Fill(exception, code);
  } catch (const std::exception&) {
    // Only memory can have run out; what was filled in until then stands.
  }
}

void BecameCode(WORD code) {
  if (last.code != 0) last.code = code;
}

Origin OriginOf(const CDBException& exception) {
  const std::string_view text = exception.m_strStateNativeOrigin.View();
  const std::string_view native = Labelled(text, kNative);
  Origin origin;
  origin.state = CString(std::string(Labelled(text, kState)));
  std::from_chars(native.data(), native.data() + native.size(), origin.native);
  return origin;
}

bool IsConflict(std::string_view state) { return state == "40001" || state == "40P01"; }

bool IsConflict(const CDBException& exception) { return IsConflict(OriginOf(exception).state.View()); }

}  // namespace refusal
