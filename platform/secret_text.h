// Texts that hold a password, and leave no copy of it in memory that is used again.
#ifndef KYODBC_PLATFORM_SECRET_TEXT_H
#define KYODBC_PLATFORM_SECRET_TEXT_H

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

// Overwrites memory before it is given back; explicit_bzero is not optimised away.
template <class T>
struct WipingAllocator {
  using value_type = T;

  WipingAllocator() = default;
  template <class Other>
  WipingAllocator(const WipingAllocator<Other>&) {}

  T* allocate(std::size_t count) { return std::allocator<T>().allocate(count); }
  void deallocate(T* memory, std::size_t count) {
    explicit_bzero(memory, count * sizeof(T));
    std::allocator<T>().deallocate(memory, count);
  }
  bool operator==(const WipingAllocator&) const = default;
};

// Other than std::string, a vector keeps short contents in allocated memory too.
template <class T>
using SecretBuffer = std::vector<T, WipingAllocator<T>>;

class SecretText {
 public:
  SecretText() = default;
  explicit SecretText(std::string_view text) { *this += text; }

  // `text` must not lie in this one.
  SecretText& operator+=(std::string_view text) {
    m_bytes.reserve(m_bytes.size() + text.size() + 1);
    if (!m_bytes.empty()) m_bytes.pop_back();
    m_bytes.insert(m_bytes.end(), text.begin(), text.end());
    m_bytes.push_back('\0');
    return *this;
  }

  bool IsEmpty() const { return View().empty(); }
  // Valid until the text changes; never null.
  operator const char*() const { return m_bytes.empty() ? "" : m_bytes.data(); }
  std::string_view View() const { return {*this, m_bytes.empty() ? 0 : m_bytes.size() - 1}; }

 private:
  SecretBuffer<char> m_bytes;  // with a zero byte, once there is any
};

#endif
