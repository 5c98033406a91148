#include "tests/hostile/draw.h"

#include <cstdio>
#include <iterator>

#include "tests/flat/texts.h"

namespace hostile {
namespace {

constexpr const char* kPieces[] = {
    "'",
    "''",
    "\"",
    "`",
    "\\",
    "\\'",
    "\\\\",
    ";",
    "--",
    "-- ",
    "#",
    "/*",
    "*/",
    "/*!50000 ",
    "{",
    "}",
    "{d '",
    "{ts '2001-01-01 00:00:00'}",
    "{fn NOW()}",
    "{call spky_ping}",
    "{escape '\\'}",
    "%",
    "_",
    "[a-z]",
    "?",
    ":a",
    "$1",
    "@@version",
    "%s",
    "%n",
    "(",
    ")",
    ",",
    "=",
    "||",
    "&&",
    "!",
    "NOT ",
    " OR 1=1",
    "' OR 1=1 -- ",
    "' OR ''='",
    "\\' OR 1=1 -- ",
    "' UNION SELECT 1 -- ",
    "'; DELETE FROM TPatient; --",
    "'; DROP TABLE TStation; --",
    "'); DELETE FROM TDoctor; --",
    "' || (SELECT 1) || '",
    "' AND SLEEP(5) -- ",
    "' AND pg_sleep(5) IS NOT NULL -- ",
    "$$",
    "$a$",
    "E'\\047",
    "U&'\\0027",
    "X'27'",
    "_utf8mb4'",
    "N'",
    "0x27",
    "NULL",
    "canary%",  // never the name of one: two rows of a name are another matter
    "'canary",
    "\t",
    "\r\n",
    "\x01",
    "\x08",
    "\x1A",
    "\x1B",
    "\x7F",
    " ",
    "  ",
    "a",
    "Z",
    "0",
    "9",
    "\xC2\x80",
    "\xC2\xA0",
    "\xC2\xBB",
    "\xC3\xBC",
    "\xCA\xBC",      // a modifier letter that some conversions make an apostrophe
    "\xE2\x80\x99",  // so is this one
    "\xEF\xBC\x87",  // and the full-width apostrophe
    "\xEF\xBC\xBC",  // the full-width backslash
    "\xC2\xA5",      // the yen sign, a backslash in one old character set
    "\xE2\x82\xAC",
    "\xEF\xBB\xBF",
    "\xEF\xBF\xBD",
    "\xED\x9F\xBF",
    "\xF0\x9D\x84\x9E",
    "\xF4\x8F\xBF\xBF",
};

// Bytes that are no UTF-8: ends and beginnings of characters, overlong forms, surrogates, and leading bytes
// of other character sets that would swallow the quote or backslash behind them.
constexpr const char* kBroken[] = {
    "\xBF\x27",
    "\xBF\x5C",
    "\x81\x27",
    "\x95\x5C",
    "\xE5\x27",
    "\xF0\x27",
    "\xC2",
    "\xC2\x27",
    "\xE2\x82",
    "\xE2\x82\x27",
    "\xF0\x9D\x84",
    "\xF0\x9D\x84\x27",
    "\x80",
    "\xBB",
    "\xFF",
    "\xFE",
    "\xC0\xA7",
    "\xE0\x80\xA7",
    "\xC1\x9C",
    "\xED\xA0\x80",
    "\xF5\x80\x80",
    "\xFC\x80\x80\x80",
    "\xC0\x80",
    "\xC2\xC2\xA7",
    "\xF4\x90\x80\x80",
};

// Bytes that follow the leading one; -1 for a byte that leads nothing.
int Following(unsigned char lead) {
  if (lead < 0x80) return 0;
  if (lead >= 0xC2 && lead < 0xE0) return 1;
  if (lead >= 0xE0 && lead < 0xF0) return 2;
  return lead >= 0xF0 && lead < 0xF5 ? 3 : -1;
}

// Which second bytes a leading one takes: no overlong forms, no surrogates, nothing above the last character.
bool SecondFits(unsigned char lead, unsigned char second) {
  if (lead == 0xE0) return second >= 0xA0;
  if (lead == 0xED) return second < 0xA0;
  if (lead == 0xF0) return second >= 0x90;
  return lead != 0xF4 || second < 0x90;
}

}  // namespace

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto lead = static_cast<unsigned char>(text[at]);
    const int following = Following(lead);
    if (following < 0 || at + static_cast<std::size_t>(following) >= text.size()) return false;
    for (int i = 1; i <= following; ++i) {
      const auto byte = static_cast<unsigned char>(text[at + static_cast<std::size_t>(i)]);
      if ((byte & 0xC0) != 0x80 || (i == 1 && !SecondFits(lead, byte))) return false;
    }
    at += static_cast<std::size_t>(following) + 1;
  }
  return true;
}

std::string Shown(std::string_view text) {
  constexpr std::size_t kMost = 300;
  std::string shown;
  for (const char c : text.substr(0, kMost)) {
    const auto byte = static_cast<unsigned char>(c);
    char code[8];
    (void)std::snprintf(code, sizeof code, byte < 0x20 || byte > 0x7E ? "\\x%02X" : "%c", byte);
    shown += code;
  }
  return shown + " (" + std::to_string(text.size()) + " bytes)";
}

std::string Draw::Piece() { return kPieces[Below(static_cast<int>(std::size(kPieces)))]; }

std::string Draw::Valid(int most) {
  std::string text;
  for (int pieces = 1 + Below(6); pieces > 0; --pieces) text += Piece();
  text = texts::Cut(text, static_cast<std::size_t>(most));
  return text.empty() ? "'" : text;
}

std::string Draw::Text() {
  constexpr int kLong = 20000;
  std::string text = Valid(200);
  if (OneIn(30)) {
    text = texts::Repeat(text, 1 + static_cast<std::size_t>(kLong) / text.size());
  }
  if (OneIn(3)) {
    const auto at = static_cast<std::size_t>(Below(static_cast<int>(text.size()) + 1));
    text.insert(at, kBroken[Below(static_cast<int>(std::size(kBroken)))]);
  }
  return text;
}

}  // namespace hostile
