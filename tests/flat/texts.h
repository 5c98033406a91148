// Texts that something on the way to a column and back could take for more than characters.
#ifndef KYODBC_TESTS_FLAT_TEXTS_H
#define KYODBC_TESTS_FLAT_TEXTS_H

#include <string>
#include <string_view>
#include <vector>

namespace texts {

// As much of a text as fits into `width` bytes, without splitting a character.
inline std::string Cut(std::string_view text, std::size_t width) {
  if (text.size() <= width) return std::string(text);
  while (width > 0 && (text[width] & 0xC0) == 0x80) --width;
  return std::string(text.substr(0, width));
}

inline void Append(std::string* text, char32_t character) {
  const auto byte = [text](char32_t bits) { text->push_back(static_cast<char>(bits)); };
  if (character < 0x80) return byte(character);
  if (character < 0x800) {
    byte(0xC0 | character >> 6);
  } else {
    if (character < 0x10000) {
      byte(0xE0 | character >> 12);
    } else {
      byte(0xF0 | character >> 18);
      byte(0x80 | (character >> 12 & 0x3F));
    }
    byte(0x80 | (character >> 6 & 0x3F));
  }
  byte(0x80 | (character & 0x3F));
}

// The characters from `first` to `last`; surrogates are none.
inline std::string Range(char32_t first, char32_t last) {
  std::string text;
  for (char32_t c = first; c <= last; ++c) {
    if (c < 0xD800 || c > 0xDFFF) Append(&text, c);
  }
  return text;
}

inline std::string Repeat(std::string_view part, std::size_t times) {
  std::string text;
  while (times-- > 0) text += part;
  return text;
}

// Each has at most 255 bytes and is not empty.
inline std::vector<std::string> Whole() {
  return {
      "'",
      "O'Neil ''s \"quoted\" `ticks`",
      "\\",
      "C:\\new\\table\\'; \\\\ \\0 \\x41 \\",
      "100% _under_ %s %d %n [a-z] *",
      "a ? b :name $1 @p %(x)s ?",
      "{d '2001-01-01'}",
      "{ts '2001-01-01 10:00:00'} {call spky_ping} {fn NOW()} {escape '\\'} {} }{",
      "-- comment ' /* comment",
      "*/ # ; DROP TABLE TNone; --",
      "NULL $$body$$ E'\\n' X'41' U&'\\0041' _utf8'x' 0x41",
      " leading and trailing   ",
      "\ttabs\tand line\nline\r\nline\r\n",
      Range(0x01, 0x1F) + "\x7F",
      Range(0x20, 0x7E),
      Range(0x80, 0xBF) + "Z\xC3\xBCrich \xC3\x9F \xC2\xBB",
      Range(0x07F0, 0x07FF) + Range(0x0800, 0x080F) + Range(0xD7F8, 0xE008),
      "\xEF\xBF\xBD" + Range(0xFFF0, 0xFFFF) + Range(0xFDD0, 0xFDDF),
      Range(0x10000, 0x10008) + Range(0x10FFF8, 0x10FFFF),
      // Joined characters, a flag, combining marks.
      "\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x94\xAC \xF0\x9F\x87\xA8\xF0\x9F\x87\xAD e\xCC\x81 "
      "a\xCC\x88\xCC\xA3",
      "\xCC\x81 begins with a combining mark",
      "\xEF\xBB\xBF begins with a byte order mark",
      "\xE2\x80\xAE right to left \xE2\x80\xAC \xE2\x80\xA8 \xE2\x80\xA9 \xC2\xA0 \xE3\x80\x80",
      "I \xC4\xB1 \xC4\xB0 i \xC3\x9F SS \xEF\xAC\x81 \xE1\xBA\x9E",  // letters that change their length
      std::string(255, 'x'),
      std::string(255, ' '),
      Repeat("'\\", 127) + "'",
      std::string(253, 'x') + "\xC3\xBC",
      std::string(252, 'x') + "\xE2\x82\xAC",
      std::string(251, 'x') + "\xF0\x9D\x84\x9E",
  };
}

// Each is longer than 255 bytes, and most are cut elsewhere than a counter of bytes or of characters would.
inline std::vector<std::string> Longer() {
  return {
      std::string(254, 'x') + "\xC3\xBC",
      std::string(253, 'x') + "\xE2\x82\xAC",
      std::string(252, 'x') + "\xF0\x9D\x84\x9E",
      std::string(254, 'x') + "\xF0\x9D\x84\x9E",
      std::string(254, 'x') + "e\xCC\x81",  // the mark goes, the letter stays
      std::string(256, ' '),
      Repeat("'\\", 150),
      Repeat("\xC3\xBC", 255),
      Repeat("\xE2\x82\xAC", 255),
      Repeat("\xF0\x9D\x84\x9E", 255),
  };
}

}  // namespace texts

#endif
