// Texts going into and out of the text fields of plain records.
#ifndef KYODBC_TOOLS_RECORD_TEXT_H
#define KYODBC_TOOLS_RECORD_TEXT_H

#include <cstddef>
#include <cstring>
#include <string_view>

// How many of the first `most` bytes of `text` can be kept without splitting a character of UTF-8.
std::size_t FittingBytes(std::string_view text, std::size_t most);

bool IsUtf8(std::string_view text);

// Fills the field, with zero bytes behind the text. False when the text had to be cut to fit.
template <std::size_t N>
bool SetText(char (&field)[N], std::string_view text) {
  const std::size_t kept = FittingBytes(text, N - 1);
  std::memset(field, 0, N);
  std::memcpy(field, text.data(), kept);
  return kept == text.size();
}

// The text in a field of `width` bytes: up to its zero byte, or all of it. Valid as long as the field.
std::string_view FieldText(const char* field, std::size_t width);

template <std::size_t N>
std::string_view FieldText(const char (&field)[N]) {
  return FieldText(field, N);
}

#endif
