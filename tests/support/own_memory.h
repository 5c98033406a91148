// What is in the memory of this program.
#ifndef KYODBC_TESTS_SUPPORT_OWN_MEMORY_H
#define KYODBC_TESTS_SUPPORT_OWN_MEMORY_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace support {

// A text that is computed, so that memory which can be written holds no copies but those that are made of it.
constexpr std::size_t kHiddenLength = 24;
constexpr char HiddenCharacter(std::size_t position) {
  constexpr std::size_t kStep = 7;
  constexpr std::size_t kLetters = 26;
  return static_cast<char>('A' + position * kStep % kLetters);
}
// Writes the text and a zero byte.
void WriteHidden(char* to);

// Where it stands now: in static data, on stacks, in memory that is allocated, or was.
std::vector<std::uintptr_t> FindHidden();

}  // namespace support

#endif
