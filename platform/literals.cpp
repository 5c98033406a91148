#include "platform/literals.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <string>

#include "platform/field_value.h"

namespace {

constexpr std::size_t kLongestText = 1024;  // bytes; far from where drivers take a text for a long one
constexpr std::size_t kDateLength = 10;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || IsDigit(c) || c == '_' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool SameWord(std::string_view word, std::string_view upper) {
  if (word.size() != upper.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (std::toupper(static_cast<unsigned char>(word[i])) != upper[i]) return false;
  }
  return true;
}

// Walks over a condition from token to token.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : m_text(text) {}

  bool AtEnd() const { return m_at >= m_text.size(); }
  char Next() const { return m_text[m_at]; }
  bool StartsWith(std::string_view part) const { return m_text.substr(m_at).starts_with(part); }
  std::string_view Take(std::size_t length) {
    const std::string_view taken = m_text.substr(m_at, length);
    m_at += taken.size();
    return taken;
  }
  std::string_view TakeWord() {
    std::size_t end = m_at;
    while (end < m_text.size() && IsWordCharacter(m_text[end])) ++end;
    return Take(end - m_at);
  }
  // A text literal with its quotes; to the end when it is not closed.
  std::string_view TakeText() {
    std::size_t end = m_at + 1;
    while (end < m_text.size()) {
      const bool quote = m_text[end++] == '\'';
      if (!quote) continue;
      if (end >= m_text.size() || m_text[end] != '\'') break;
      ++end;
    }
    return Take(end - m_at);
  }

 private:
  std::string_view m_text;
  std::size_t m_at = 0;
};

std::string Unquoted(std::string_view literal) {
  std::string text;
  for (std::size_t i = 1; i + 1 < literal.size(); ++i) {
    text += literal[i];
    if (literal[i] == '\'') ++i;
  }
  return text;
}

odbc::Parameter TextValue(std::string text) {
  odbc::Parameter value;
  value.size = std::max<SQLULEN>(text.size(), 1);
  value.indicator = static_cast<SQLLEN>(text.size());
  value.text = std::move(text);
  return value;
}

// True when `text` is "yyyy-mm-dd", or with hours, minutes and seconds, of a day and a time that exist.
bool IsPlainTime(const std::string& text, bool date_only) {
  constexpr std::string_view kShape = "0000-00-00 00:00:00";
  if (text.size() != (date_only ? kDateLength : kShape.size())) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (kShape[i] == '0' ? !IsDigit(text[i]) : text[i] != kShape[i]) return false;
  }
  const auto part = [&text](std::size_t at, std::size_t length) {
    return at < text.size() ? std::stoi(text.substr(at, length)) : 0;
  };
  TIMESTAMP_STRUCT time = {};
  time.year = static_cast<SQLSMALLINT>(part(0, 4));
  time.month = static_cast<SQLUSMALLINT>(part(5, 2));
  time.day = static_cast<SQLUSMALLINT>(part(8, 2));
  time.hour = static_cast<SQLUSMALLINT>(part(11, 2));
  time.minute = static_cast<SQLUSMALLINT>(part(14, 2));
  time.second = static_cast<SQLUSMALLINT>(part(17, 2));
  return time.year > 0 && IsStorableDate(time);
}

std::string WithRoom(std::string_view text, std::size_t size) {
  std::string roomy;
  roomy.reserve(size);
  roomy = text;
  return roomy;
}

class Marker {
 public:
  Marker(std::string_view head, std::string_view condition, std::size_t more)
      : m_rest(condition), m_sql(WithRoom(head, head.size() + condition.size() + more)) {}

  // False when the condition holds what this reader does not understand.
  bool Run() {
    while (!m_rest.AtEnd()) {
      const char next = m_rest.Next();
      if (IsForeign(next)) return false;
      if (next == '\'') {
        TakeText();
      } else if (next == '{') {
        TakeEscape();
      } else if (IsDigit(next)) {
        TakeNumber();
      } else if (next == '-') {
        // One server cannot tell what the minus of a value is whose type it is not told.
        m_sql += m_rest.Take(1);
        if (!m_rest.AtEnd() && IsDigit(m_rest.Next())) Keep(m_rest.TakeWord());
      } else if (next == '.') {
        m_sql += m_rest.Take(1);  // of a number or between names: what follows belongs to it
        m_sql += m_rest.TakeWord();
      } else if (IsWordCharacter(next)) {
        TakeWord();
      } else {
        m_sql += m_rest.Take(1);
      }
    }
    return true;
  }

  MarkedSQL Result(std::string_view tail) {
    m_sql += tail;
    return {CString(std::move(m_sql)), std::move(m_values)};
  }

 private:
  // Marks, quoted names and comments.
  bool IsForeign(char next) const {
    if (next == '?' || next == '"' || next == '`' || next == '[' || next == '#') return true;
    return (next == '-' && m_rest.StartsWith("--")) || (next == '/' && m_rest.StartsWith("/*"));
  }
  void Mark(odbc::Parameter value) {
    m_sql += '?';
    m_values.push_back(std::move(value));
    m_after_like = false;
  }
  void Keep(std::string_view text) {
    m_sql += text;
    m_after_like = false;
  }
  void TakeWord() {
    const std::string_view word = m_rest.TakeWord();
    m_sql += word;
    m_after_like = SameWord(word, "LIKE") || SameWord(word, "ESCAPE");
  }
  void TakeText() {
    const std::string_view literal = m_rest.TakeText();
    const bool closed = literal.size() > 1 && literal.back() == '\'';
    if (m_after_like || !closed || literal.size() > kLongestText) return Keep(literal);
    Mark(TextValue(Unquoted(literal)));
  }
  void TakeNumber() {
    const std::string_view word = m_rest.TakeWord();
    LONG number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    const bool whole = error == std::errc() && end == word.data() + word.size();
    const bool fraction = !m_rest.AtEnd() && m_rest.Next() == '.';
    if (!whole || fraction || m_after_like) return Keep(word);
    Mark(NumberValue(number));
  }
  void TakeEscape() {
    const bool date = m_rest.StartsWith("{d '");
    if (!date && !m_rest.StartsWith("{ts '")) return Keep(m_rest.Take(1));
    const std::string_view open = m_rest.Take(date ? 3 : 4);
    const std::string_view literal = m_rest.TakeText();
    std::string text = Unquoted(literal);
    if (m_rest.StartsWith("}") && IsPlainTime(text, date)) {
      m_rest.Take(1);
      odbc::Parameter value = TextValue(std::move(text));
      value.sql_type = date ? SQL_TYPE_DATE : SQL_TYPE_TIMESTAMP;
      return Mark(std::move(value));
    }
    m_sql += open;
    Keep(literal);
  }

  Scanner m_rest;
  std::string m_sql;
  std::vector<odbc::Parameter> m_values;
  bool m_after_like = false;
};

}  // namespace

odbc::Parameter NumberValue(LONG number) {
  odbc::Parameter value;
  value.c_type = SQL_C_SLONG;
  value.sql_type = SQL_INTEGER;
  value.number = number;
  value.indicator = 0;
  return value;
}

MarkedSQL TakeOutLiterals(std::string_view head, std::string_view condition, std::string_view tail) {
  Marker marker(head, condition, tail.size());
  if (marker.Run()) return marker.Result(tail);
  return {CString(std::string(head).append(condition).append(tail)), {}};
}
