#include "platform/text.h"

#include <algorithm>
#include <cstring>

namespace text {
namespace {

using Byte = unsigned char;

Byte At(const char* text, std::size_t index) { return static_cast<Byte>(text[index]); }

// The number of bytes of a character that begins with `lead`; 1 for bytes that begin no longer one.
std::size_t CharacterLength(Byte lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 1;
}

bool IsContinuation(Byte byte) { return byte >= 0x80 && byte <= 0xBF; }

// Narrower ranges behind four leads keep out overlong forms, surrogates and numbers above U+10FFFF.
bool MayBeSecond(Byte lead, Byte second) {
  switch (lead) {
    case 0xE0:
      return second >= 0xA0 && second <= 0xBF;
    case 0xED:
      return second >= 0x80 && second <= 0x9F;
    case 0xF0:
      return second >= 0x90 && second <= 0xBF;
    case 0xF4:
      return second >= 0x80 && second <= 0x8F;
    default:
      return IsContinuation(second);
  }
}

// Whether the first `count` bytes begin a character, or are one.
bool IsWellFormed(const char* text, std::size_t count) {
  if (count > 1 && !MayBeSecond(At(text, 0), At(text, 1))) return false;
  for (std::size_t i = 2; i < count; ++i) {
    if (!IsContinuation(At(text, i))) return false;
  }
  return true;
}

// Whether a character begins at `text` that reaches beyond its first `cut` bytes.
bool IsSplit(const char* text, std::size_t length, std::size_t cut) {
  const std::size_t needed = CharacterLength(At(text, 0));
  return needed > cut && IsWellFormed(text, std::min(needed, length));
}

}  // namespace

std::size_t CutLength(const char* text, std::size_t length, std::size_t limit) {
  if (length <= limit) return length;
  constexpr std::size_t kMostBytesBefore = 3;  // a character has four bytes at most
  for (std::size_t back = 1; back <= std::min(kMostBytesBefore, limit); ++back) {
    const std::size_t start = limit - back;
    if (IsContinuation(At(text, start))) continue;
    return IsSplit(text + start, length - start, back) ? start : limit;
  }
  return limit;
}

std::size_t BoundedCopy(char* buffer, std::size_t size, const char* text, std::size_t length) {
  if (buffer == nullptr || size == 0) return 0;
  const std::size_t available = text == nullptr ? 0 : strnlen(text, length);
  const std::size_t copied = CutLength(text, available, size - 1);
  if (copied > 0) std::memmove(buffer, text, copied);
  buffer[copied] = '\0';
  return copied;
}

std::size_t FieldLength(const char* field, std::size_t size) {
  const std::size_t used = strnlen(field, size);
  return used < size || size == 0 ? used : CutLength(field, size, size - 1);
}

}  // namespace text
