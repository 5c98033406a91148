// Characters of UTF-8 texts.
#ifndef KYODBC_TOOLS_UTF8_H
#define KYODBC_TOOLS_UTF8_H

#include <cstddef>
#include <string_view>

// What stands for a byte that belongs to no character.
inline constexpr char32_t kReplacement = 0xFFFD;

struct Character {
  char32_t code = kReplacement;
  std::size_t bytes = 1;
  bool valid = false;
};

// The first character of `text`, which must not be empty. Bytes that form none, overlong forms and surrogates
// included, come singly as replacements.
Character FirstCharacter(std::string_view text);

#endif
