// Copies whose end is watched: the address sanitizer sees a read or write behind them.
#ifndef KYODBC_FUZZ_EXACT_H
#define KYODBC_FUZZ_EXACT_H

#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace fuzz {

// The text that a reader of zero-terminated texts sees.
inline std::string UpToZero(const std::string& bytes) { return bytes.substr(0, bytes.find('\0')); }

// The bytes of `text` in memory of just that size, without a zero byte behind them.
inline std::unique_ptr<char[]> ExactBytes(std::string_view text) {
  auto copy = std::make_unique<char[]>(text.size());
  if (!text.empty()) std::memcpy(copy.get(), text.data(), text.size());
  return copy;
}

// The same with a zero byte as its last; `text` ends for its readers at its first zero byte.
inline std::unique_ptr<char[]> ExactText(std::string_view text) {
  auto copy = std::make_unique<char[]>(text.size() + 1);
  if (!text.empty()) std::memcpy(copy.get(), text.data(), text.size());
  return copy;
}

// Begins at an odd address, as a field of a packed record may.
template <class T>
class Packed {
 public:
  explicit Packed(const T& value) : m_memory(new char[1 + sizeof value]) {
    std::memcpy(m_memory.get() + 1, &value, sizeof value);
  }
  void* Get() { return m_memory.get() + 1; }

 private:
  std::unique_ptr<char[]> m_memory;
};

}  // namespace fuzz

#endif
