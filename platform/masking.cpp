#include "platform/masking.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace masking {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

bool IsWordByte(char byte) { return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '_'; }

// The position behind the literal that opens at `start`. A doubled quote belongs to the literal, and so does
// a quote with a word right behind it: that is a text whose quotes were not doubled. When the quotes do not
// even come in pairs, nobody knows where a text ends, and the rest counts as one.
std::size_t LiteralEnd(std::string_view sql, std::size_t start) {
  const char quote = sql[start];
  if (std::count(sql.begin(), sql.end(), quote) % 2 != 0) return sql.size();
  for (std::size_t at = start + 1; at < sql.size(); ++at) {
    if (sql[at] != quote) continue;
    if (at + 1 == sql.size()) break;
    if (sql[at + 1] == quote) {
      ++at;
    } else if (!IsWordByte(sql[at + 1])) {
      return at + 1;
    }
  }
  return sql.size();
}

constexpr std::string_view kQuotes[] = {"'", "\"", "`", "«", "»", "‹", "›",  "„", "“",
                                        "”", "‟",  "‘", "’", "‚", "‛", "「", "」"};

// The bytes of the quotation mark at `at`; 0 when there is none.
std::size_t QuoteLength(std::string_view text, std::size_t at) {
  for (const std::string_view quote : kQuotes) {
    if (text.substr(at).starts_with(quote)) return quote.size();
  }
  return 0;
}

bool IsLetterAt(std::string_view text, std::size_t at) {
  return at < text.size() && std::isalpha(static_cast<unsigned char>(text[at])) != 0;
}

// Where quotations begin and end in a message.
struct Quotes {
  std::size_t first = kNone;  // the first mark that may open; an apostrophe within a word opens nothing
  std::size_t last = kNone;   // behind the last mark that may close; npos when none closes
  std::size_t count = 0;      // apostrophes between letters do not count
};

Quotes FindQuotes(std::string_view message) {
  Quotes quotes;
  for (std::size_t at = 0, length = 1; at < message.size(); at += length) {
    length = QuoteLength(message, at);
    if (length == 0) {
      length = 1;
      continue;
    }
    const bool behind_letter = IsLetterAt(message, at - 1);
    const bool before_letter = IsLetterAt(message, at + length);
    if (behind_letter && before_letter) continue;
    ++quotes.count;
    if (quotes.first == kNone) {
      if (!behind_letter) quotes.first = at;
    } else if (!before_letter) {
      quotes.last = at + length;
    }
  }
  return quotes;
}

// Databases quote what they complain of as it stands, quotes inside and all. So everything from the first
// quote to the last one is hidden, and all the rest when they do not come in pairs.
std::string HideQuoted(std::string_view message) {
  const Quotes quotes = FindQuotes(message);
  if (quotes.first == kNone) return std::string(message);
  const bool closed = quotes.last != kNone && quotes.count % 2 == 0;
  const std::string_view rest = closed ? message.substr(quotes.last) : std::string_view();
  return std::string(message.substr(0, quotes.first)) + "'?'" + std::string(rest);
}

bool IsNumber(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char byte) { return std::isdigit(static_cast<unsigned char>(byte)) != 0; });
}

// Rows stand in parentheses, and names of columns too, which are not worth telling apart. A number alone is a
// native code or the width of a column.
std::string HideParenthesised(std::string_view message) {
  std::size_t open = message.find('(');
  while (open != kNone) {
    const std::size_t close = message.find(')', open);
    if (close == kNone || !IsNumber(message.substr(open + 1, close - open - 1))) break;
    open = message.find('(', close);
  }
  if (open == kNone) return std::string(message);
  const std::size_t last = message.rfind(')');
  const bool closed = last != kNone && last > open && message.find('(', last) == kNone;
  const std::string_view rest = closed ? message.substr(last + 1) : std::string_view();
  return std::string(message.substr(0, open)) + "(?)" + std::string(rest);
}

// A server spells out the bytes of a text that it cannot read.
std::string HideBytes(std::string message) {
  for (std::size_t at = message.find("0x"); at != kNone; at = message.find("0x", at + 1)) {
    std::size_t end = at + 2;
    while (end < message.size() && std::isxdigit(static_cast<unsigned char>(message[end])) != 0) ++end;
    message.replace(at, end - at, "?");
  }
  return message;
}

constexpr std::string_view kSQLiteConstraints[] = {"UNIQUE", "NOT NULL", "CHECK", "FOREIGN KEY"};

// What triggers raise is their author's text, with values anywhere in it. SQLite gives it the native code of
// constraints that failed, whose messages are known.
bool IsRaisedByTrigger(std::string_view state, int native, std::string_view message) {
  constexpr int kMariaDBSignal = 1644;
  constexpr int kSQLiteConstraint = 19;
  if (state == "P0001" || state.starts_with("45") || native == kMariaDBSignal) return true;
  if (native != kSQLiteConstraint || state != "HY000") return false;
  return std::none_of(std::begin(kSQLiteConstraints), std::end(kSQLiteConstraints), [&](auto kind) {
    return message.starts_with(std::string(kind) + " constraint failed");
  });
}

}  // namespace

std::string Statement(std::string_view sql) {
  std::string masked;
  std::size_t at = 0;
  while (at < sql.size()) {
    if (sql[at] == '\'' || sql[at] == '"') {
      masked += "'?'";
      at = LiteralEnd(sql, at);
    } else if (std::isdigit(static_cast<unsigned char>(sql[at])) != 0 &&
               (at == 0 || !IsWordByte(sql[at - 1]))) {
      masked += '?';
      while (at < sql.size() && (IsWordByte(sql[at]) || sql[at] == '.')) ++at;
    } else {
      masked += sql[at++];
    }
  }
  return masked;
}

std::string Message(std::string_view state, int native, std::string_view message) {
  if (IsRaisedByTrigger(state, native, message)) return "?";
  const std::string_view line = message.substr(0, message.find_first_of("\r\n"));
  const bool names_only = state == "42S02" || state == "42S22" || state == "42P01" || state == "42703";
  if (names_only) return std::string(line);
  return HideBytes(HideParenthesised(HideQuoted(line)));
}

}  // namespace masking
