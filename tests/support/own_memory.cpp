#include "tests/support/own_memory.h"

#include <sys/mman.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace support {
namespace {

struct Range {
  std::uintptr_t first;
  std::uintptr_t end;
};

// What can be written, without the address space that a sanitizer keeps for itself.
std::vector<Range> WritableRanges() {
  constexpr std::uintptr_t kLargest = std::uintptr_t{1} << 27;
  std::vector<Range> ranges;
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);) {
    std::istringstream words(line);
    Range range{};
    char dash = 0;
    std::string rights;
    words >> std::hex >> range.first >> dash >> range.end >> rights;
    if (rights.starts_with("rw") && range.end - range.first < kLargest) ranges.push_back(range);
  }
  return ranges;
}

// Memory to read into, which is overwritten after each use: what was found is not to be found again.
class Window {
 public:
  Window() {
    void* memory = mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::runtime_error("no memory to search in");
    m_bytes = static_cast<char*>(memory);
  }
  ~Window() { munmap(m_bytes, kSize); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  void Search(const Range& range, std::vector<std::uintptr_t>* found) {
    for (std::uintptr_t first = range.first; first < range.end; first += kSize - kHiddenLength) {
      SearchOnce(first, std::min<std::size_t>(kSize, range.end - first), found);
    }
  }

 private:
  static constexpr std::size_t kSize = std::size_t{1} << 20;

  void SearchOnce(std::uintptr_t first, std::size_t size, std::vector<std::uintptr_t>* found) {
    const iovec here{m_bytes, size};
    const iovec there{reinterpret_cast<void*>(first), size};  // NOLINT(performance-no-int-to-ptr)
    const ssize_t read = process_vm_readv(getpid(), &here, 1, &there, 1, 0);
    const std::size_t got = read < 0 ? 0 : static_cast<std::size_t>(read);
    const char* const end = m_bytes + got;
    for (const char* at = Next(m_bytes, end); at != nullptr; at = Next(at + 1, end)) {
      const std::uintptr_t address = first + static_cast<std::size_t>(at - m_bytes);
      if (IsHidden(at) && !IsOwn(address)) found->push_back(address);
    }
    explicit_bzero(m_bytes, size);
  }
  // Where the text could begin next.
  static const char* Next(const char* at, const char* end) {
    if (end - at < static_cast<std::ptrdiff_t>(kHiddenLength)) return nullptr;
    const std::size_t places = static_cast<std::size_t>(end - at) - kHiddenLength + 1;
    return static_cast<const char*>(std::memchr(at, HiddenCharacter(0), places));
  }
  static bool IsHidden(const char* text) {
    std::size_t at = 0;
    while (at < kHiddenLength && text[at] == HiddenCharacter(at)) ++at;
    return at == kHiddenLength;
  }
  bool IsOwn(std::uintptr_t address) const {
    const auto own = reinterpret_cast<std::uintptr_t>(m_bytes);
    return own <= address && address < own + kSize;
  }

  char* m_bytes;
};

}  // namespace

void WriteHidden(char* to) {
  for (std::size_t at = 0; at < kHiddenLength; ++at) to[at] = HiddenCharacter(at);
  to[kHiddenLength] = '\0';
}

std::vector<std::uintptr_t> FindHidden() {
  std::vector<std::uintptr_t> found;
  Window window;
  for (const Range& range : WritableRanges()) window.Search(range, &found);
  return found;
}

}  // namespace support
