#include "platform/cstring.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

namespace {

constexpr const char* kBlanks = " \t\n\v\f\r";

const char* OrEmpty(const char* text) { return text == nullptr ? "" : text; }

// A count or index as the caller gives it; negative ones count as 0.
std::size_t AtLeastZero(int value) { return value < 0 ? 0 : static_cast<std::size_t>(value); }

int IndexOrMiss(std::size_t position) {
  return position == std::string::npos ? -1 : static_cast<int>(position);
}

// Letters A to Z only, whatever the locale: bytes of longer characters must stay as they are.
char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

CString Joined(std::string_view left, std::string_view right) {
  std::string joined;
  joined.reserve(left.size() + right.size());
  joined.append(left).append(right);
  return CString(std::move(joined));
}

}  // namespace

CString::CString(const char* text) : m_text(OrEmpty(text)) {}

CString::CString(const char* text, int length) {
  if (text != nullptr) m_text.assign(text, AtLeastZero(length));
}

CString::CString(char character, int count) : m_text(AtLeastZero(count), character) {}

CString& CString::operator=(const char* text) {
  m_text = OrEmpty(text);
  return *this;
}

CString& CString::operator+=(const char* text) {
  m_text += OrEmpty(text);
  return *this;
}

CString& CString::operator+=(const CString& text) {
  m_text += text.m_text;
  return *this;
}

CString& CString::operator+=(char character) {
  m_text += character;
  return *this;
}

char CString::GetAt(int index) const {
  return index < 0 || index >= GetLength() ? '\0' : m_text[AtLeastZero(index)];
}

void CString::SetAt(int index, char character) {
  if (index >= 0 && index < GetLength()) m_text[AtLeastZero(index)] = character;
}

CString CString::Left(int count) const { return Mid(0, count); }

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const {
  const std::size_t start = std::min(AtLeastZero(first), m_text.size());
  return CString(m_text.substr(start, AtLeastZero(count)));
}

CString CString::Right(int count) const {
  return CString(m_text.substr(m_text.size() - std::min(AtLeastZero(count), m_text.size())));
}

int CString::Find(char character, int start) const {
  return IndexOrMiss(m_text.find(character, AtLeastZero(start)));
}

int CString::Find(const char* text, int start) const {
  return IndexOrMiss(m_text.find(OrEmpty(text), AtLeastZero(start)));
}

int CString::ReverseFind(char character) const { return IndexOrMiss(m_text.rfind(character)); }

int CString::FindOneOf(const char* characters) const {
  return IndexOrMiss(m_text.find_first_of(OrEmpty(characters)));
}

int CString::Compare(const char* text) const { return m_text.compare(OrEmpty(text)); }

int CString::CompareNoCase(const char* text) const {
  CString left = *this;
  CString right = text;
  return left.MakeLower().Compare(right.MakeLower());
}

int CString::Replace(char from, char to) {
  const auto replaced = std::count(m_text.begin(), m_text.end(), from);
  std::replace(m_text.begin(), m_text.end(), from, to);
  return static_cast<int>(replaced);
}

int CString::Replace(const char* from, const char* to) {
  const std::string_view searched = OrEmpty(from);
  if (searched.empty()) return 0;
  std::string result;
  int replaced = 0;
  std::size_t copied = 0;
  for (std::size_t found; (found = m_text.find(searched, copied)) != std::string::npos; ++replaced) {
    result.append(m_text, copied, found - copied).append(OrEmpty(to));
    copied = found + searched.size();
  }
  result.append(m_text, copied);
  m_text = std::move(result);
  return replaced;
}

int CString::Remove(char character) { return static_cast<int>(std::erase(m_text, character)); }

int CString::Insert(int index, const char* text) {
  m_text.insert(std::min(AtLeastZero(index), m_text.size()), OrEmpty(text));
  return GetLength();
}

int CString::Insert(int index, char character) {
  m_text.insert(std::min(AtLeastZero(index), m_text.size()), 1, character);
  return GetLength();
}

int CString::Delete(int index, int count) {
  m_text.erase(std::min(AtLeastZero(index), m_text.size()), AtLeastZero(count));
  return GetLength();
}

CString& CString::Trim() { return Trim(kBlanks); }
CString& CString::TrimLeft() { return TrimLeft(kBlanks); }
CString& CString::TrimRight() { return TrimRight(kBlanks); }

CString& CString::Trim(char character) { return TrimRight(character).TrimLeft(character); }

CString& CString::TrimLeft(char character) {
  m_text.erase(0, m_text.find_first_not_of(character));
  return *this;
}

CString& CString::TrimRight(char character) {
  m_text.erase(m_text.find_last_not_of(character) + 1);  // npos + 1 is 0: nothing stays
  return *this;
}

CString& CString::Trim(const char* characters) {
  const CString kept(characters);  // the argument may be this text, which the first step changes
  return TrimRight(kept.GetString()).TrimLeft(kept.GetString());
}

CString& CString::TrimLeft(const char* characters) {
  m_text.erase(0, m_text.find_first_not_of(OrEmpty(characters)));
  return *this;
}

CString& CString::TrimRight(const char* characters) {
  m_text.erase(m_text.find_last_not_of(OrEmpty(characters)) + 1);
  return *this;
}

CString& CString::MakeUpper() {
  std::transform(m_text.begin(), m_text.end(), m_text.begin(), Upper);
  return *this;
}

CString& CString::MakeLower() {
  std::transform(m_text.begin(), m_text.end(), m_text.begin(), Lower);
  return *this;
}

CString CString::SpanIncluding(const char* characters) const {
  return CString(m_text.substr(0, m_text.find_first_not_of(OrEmpty(characters))));
}

CString CString::SpanExcluding(const char* characters) const {
  return CString(m_text.substr(0, m_text.find_first_of(OrEmpty(characters))));
}

CString CString::Tokenize(const char* separators, int& start) const {
  const std::size_t first =
      start < 0 ? std::string::npos : m_text.find_first_not_of(OrEmpty(separators), AtLeastZero(start));
  if (first == std::string::npos) {
    start = -1;
    return CString();
  }
  const std::size_t end = std::min(m_text.find_first_of(OrEmpty(separators), first), m_text.size());
  start = static_cast<int>(std::min(end + 1, m_text.size()));
  return CString(m_text.substr(first, end - first));
}

char* CString::GetBuffer(int length) {
  m_text.resize(std::max(AtLeastZero(length), m_text.size()));
  return m_text.data();
}

void CString::ReleaseBuffer(int length) {
  const std::size_t kept = length < 0 ? std::string_view(m_text.c_str()).size() : AtLeastZero(length);
  m_text.resize(std::min(kept, m_text.size()));
}

void CString::Preallocate(int length) { m_text.reserve(AtLeastZero(length)); }

CString CString::FormatText(const char* format, ...) {
  va_list arguments;
  va_list again;
  va_start(arguments, format);
  va_copy(again, arguments);
  char small[128];  // enough for most
  const int length = std::vsnprintf(small, sizeof small, OrEmpty(format), arguments);
  std::string result(small, std::min(AtLeastZero(length), sizeof small - 1));
  if (AtLeastZero(length) > result.size()) {
    result.resize(AtLeastZero(length));
    std::vsnprintf(result.data(), result.size() + 1, format, again);
  }
  va_end(again);
  va_end(arguments);
  return CString(std::move(result));
}

CString operator+(const CString& left, const CString& right) { return Joined(left.View(), right.View()); }
CString operator+(const CString& left, const char* right) { return Joined(left.View(), OrEmpty(right)); }
CString operator+(const char* left, const CString& right) { return Joined(OrEmpty(left), right.View()); }
CString operator+(const CString& left, char right) { return Joined(left.View(), {&right, 1}); }
CString operator+(char left, const CString& right) { return Joined({&left, 1}, right.View()); }

bool operator==(const CString& left, const CString& right) { return left.View() == right.View(); }
bool operator==(const CString& left, const char* right) { return left.View() == OrEmpty(right); }

std::strong_ordering operator<=>(const CString& left, const CString& right) {
  return left.View() <=> right.View();
}

std::strong_ordering operator<=>(const CString& left, const char* right) {
  return left.View() <=> std::string_view(OrEmpty(right));
}
