#include "tools/record_text.h"

#include "tools/utf8.h"

std::size_t FittingBytes(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text.size();
  std::size_t kept = 0;
  while (kept < most) {
    const std::size_t next = FirstCharacter(text.substr(kept)).bytes;
    if (kept + next > most) break;
    kept += next;
  }
  return kept;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    if (!character.valid) return false;
    text.remove_prefix(character.bytes);
  }
  return true;
}

std::string_view FieldText(const char* field, std::size_t width) { return {field, strnlen(field, width)}; }
