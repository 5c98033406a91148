// A record as the caller's memory holds it: bytes, read and written field by field.
#ifndef KYODBC_TESTS_DIFFERENTIAL_PACKED_H
#define KYODBC_TESTS_DIFFERENTIAL_PACKED_H

#include <string>

#include "tests/differential/cell.h"
#include "tests/differential/layout.h"

namespace differential {

// What memory holds that nobody has written: it shows which bytes a call leaves alone.
constexpr char kUntouched = '\xA5';

class Packed {
 public:
  // Every byte untouched.
  explicit Packed(Stem stem);
  Packed(Stem stem, std::string bytes);
  // All numbers 0, all texts empty, all dates zero; the bytes behind the texts untouched.
  static Packed Empty(Stem stem);

  const Layout& Shape() const { return *m_layout; }
  const std::string& Bytes() const { return m_bytes; }

  int Number(int field) const;
  // Up to its zero byte; one byte less than the field when there is none.
  // The bytes skipped may be zero bytes.
  std::string Text(int field, int skipped = 0) const;
  Time Moment(int field) const;
  int Number(const char* name) const { return Number(m_layout->Index(name)); }
  std::string Text(const char* name, int skipped = 0) const { return Text(m_layout->Index(name), skipped); }
  Time Moment(const char* name) const { return Moment(m_layout->Index(name)); }

  void SetNumber(int field, int value);
  // Cuts the text to the field and ends it with a zero byte; the bytes behind that stay.
  void SetText(int field, const std::string& text);
  void SetMoment(int field, const Time& time);
  void SetNumber(const char* name, int value) { SetNumber(m_layout->Index(name), value); }
  void SetText(const char* name, const std::string& text) { SetText(m_layout->Index(name), text); }
  void SetMoment(const char* name, const Time& time) { SetMoment(m_layout->Index(name), time); }
  // Fills the field to its last byte, without a zero byte.
  void SetUnterminated(int field, const std::string& text);

  // By the kind of the field; NULL reads as 0, empty or zero.
  Cell Value(int field) const;
  void Set(int field, const Cell& cell);

 private:
  const Field& At(int field) const { return m_layout->fields[static_cast<std::size_t>(field)]; }

  const Layout* m_layout;
  std::string m_bytes;
};

}  // namespace differential

#endif
