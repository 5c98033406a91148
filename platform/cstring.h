// A byte string with value semantics. Text is UTF-8; lengths and positions are bytes. A null pointer is
// taken as the empty text everywhere. Arguments may point into the string itself. Nothing throws except
// for want of memory.
#ifndef KYODBC_PLATFORM_CSTRING_H
#define KYODBC_PLATFORM_CSTRING_H

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "types.h"

class KYODBC_API CString {
 public:
  CString() = default;
  CString(const char* text);
  CString(const char* text, int length);   // `length` bytes, zero bytes included; negative counts as 0
  CString(char character, int count = 1);  // negative counts as 0
  explicit CString(std::string text) : m_text(std::move(text)) {}

  CString& operator=(const char* text);
  CString& operator+=(const char* text);
  CString& operator+=(const CString& text);
  CString& operator+=(char character);

  int GetLength() const { return static_cast<int>(m_text.size()); }
  bool IsEmpty() const { return m_text.empty(); }
  void Empty() { m_text.clear(); }

  // Valid until the string changes; never null.
  operator const char*() const { return m_text.c_str(); }
  const char* GetString() const { return m_text.c_str(); }
  std::string_view View() const { return m_text; }

  // An index outside the text reads as a zero byte; writing there does nothing.
  char GetAt(int index) const;
  void SetAt(int index, char character);
  char operator[](int index) const { return GetAt(index); }

  // Counts and starts beyond the ends are clamped.
  CString Left(int count) const;
  CString Mid(int first) const;
  CString Mid(int first, int count) const;
  CString Right(int count) const;

  // The index of the first match at or after `start` (before the text: its begin), or -1. The empty text
  // is found at `start` itself unless that lies beyond the end. ReverseFind gives the last match.
  int Find(char character, int start = 0) const;
  int Find(const char* text, int start = 0) const;
  int ReverseFind(char character) const;
  int FindOneOf(const char* characters) const;

  int Compare(const char* text) const;        // by bytes: negative, 0 or positive
  int CompareNoCase(const char* text) const;  // letters A to Z without regard to case

  int Replace(char from, char to);                // returns the number of replacements
  int Replace(const char* from, const char* to);  // an empty `from` replaces nothing
  int Remove(char character);                     // returns the number of bytes removed
  // Return the new length; an index beyond an end is taken as that end.
  int Insert(int index, const char* text);
  int Insert(int index, char character);
  int Delete(int index, int count = 1);

  // Cut blanks, tabs and line ends, or the characters given, off the ends.
  CString& Trim();
  CString& Trim(char character);
  CString& Trim(const char* characters);
  CString& TrimLeft();
  CString& TrimLeft(char character);
  CString& TrimLeft(const char* characters);
  CString& TrimRight();
  CString& TrimRight(char character);
  CString& TrimRight(const char* characters);

  CString& MakeUpper();  // letters a to z only
  CString& MakeLower();

  // The longest beginning made of these characters, or of others than these.
  CString SpanIncluding(const char* characters) const;
  CString SpanExcluding(const char* characters) const;

  // The next token at or after `start` that holds none of `separators`; `start` moves behind it and the
  // separator that ends it. When no token is left `start` becomes -1 and the result is empty. Without
  // separators the rest of the text is one token.
  CString Tokenize(const char* separators, int& start) const;

  // As sprintf, of any length. CString arguments are taken as texts up to their first zero byte; the
  // string itself may be among them. What cannot be formatted gives the empty text. Arguments are taken by
  // value, so fields of packed records may be passed as they are.
  template <class... Args>
  void Format(const char* format, Args... args) {
    Assign(FormatText(format, Argument(args)...));
  }
  template <class... Args>
  void AppendFormat(const char* format, Args... args) {
    *this += FormatText(format, Argument(args)...);
  }

  // A writable buffer that begins with the text and has room for at least `length` bytes and a zero
  // byte, valid until the string is used otherwise. ReleaseBuffer ends its use: the text is then the
  // buffer up to its first zero byte, or its first `length` bytes.
  char* GetBuffer(int length = 0);
  void ReleaseBuffer(int length = -1);

  // Keeps memory for `length` bytes, so that shorter texts are assigned without allocating.
  void Preallocate(int length);
  void Assign(const char* bytes, std::size_t length) { m_text.assign(bytes, length); }

 private:
  void Assign(CString&& text) { m_text = std::move(text.m_text); }
  static CString FormatText(const char* format, ...);
  static const char* Argument(const CString& text) { return text.m_text.c_str(); }
  template <class T>
  requires(!std::is_class_v<T>) static std::decay_t<const T&> Argument(const T& value) { return value; }

  std::string m_text;
};

KYODBC_API CString operator+(const CString& left, const CString& right);
KYODBC_API CString operator+(const CString& left, const char* right);
KYODBC_API CString operator+(const char* left, const CString& right);
KYODBC_API CString operator+(const CString& left, char right);
KYODBC_API CString operator+(char left, const CString& right);

// By bytes, as Compare; the other comparisons follow from these.
KYODBC_API bool operator==(const CString& left, const CString& right);
KYODBC_API bool operator==(const CString& left, const char* right);
KYODBC_API std::strong_ordering operator<=>(const CString& left, const CString& right);
KYODBC_API std::strong_ordering operator<=>(const CString& left, const char* right);

#endif
