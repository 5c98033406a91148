// Random texts that something on their way could take for more than characters.
#ifndef KYODBC_TESTS_HOSTILE_DRAW_H
#define KYODBC_TESTS_HOSTILE_DRAW_H

#include <random>
#include <string>
#include <string_view>

namespace hostile {

// The same texts for the same seed.
class Draw {
 public:
  explicit Draw(unsigned seed) : m_engine(seed) {}

  int Below(int count) { return std::uniform_int_distribution(0, count - 1)(m_engine); }
  bool OneIn(int count) { return Below(count) == 0; }
  // One text in three is no UTF-8, one in thirty is long. Never empty, no zero bytes.
  std::string Text();
  // Valid UTF-8 of 1 to `most` bytes.
  std::string Valid(int most);

 private:
  std::string Piece();

  std::mt19937 m_engine;
};

bool IsUtf8(std::string_view text);

// For messages: the bytes of a text, the first of a long one.
std::string Shown(std::string_view text);

}  // namespace hostile

#endif
