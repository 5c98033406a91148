#include "tools/utf8.h"

namespace {

// By its first byte: how many bytes a character has, 0 for a byte that starts none.
std::size_t LengthBy(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC2) return 0;
  if (lead < 0xE0) return 2;
  if (lead < 0xF0) return 3;
  return lead < 0xF5 ? 4 : 0;
}

bool IsAllowed(char32_t code, std::size_t bytes) {
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  return code >= kSmallest[bytes] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

}  // namespace

Character FirstCharacter(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t bytes = LengthBy(lead);
  if (bytes == 0 || bytes > text.size()) return {};
  if (bytes == 1) return {lead, 1, true};
  char32_t code = lead & (0x7Fu >> bytes);
  for (const char c : text.substr(1, bytes - 1)) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0u) != 0x80u) return {};
    code = (code << 6) | (byte & 0x3Fu);
  }
  if (!IsAllowed(code, bytes)) return {};
  return {code, bytes, true};
}
