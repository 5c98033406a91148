// What ends a fuzzing run: an answer that is wrong, though nothing crashed.
#ifndef KYODBC_FUZZ_REQUIRE_H
#define KYODBC_FUZZ_REQUIRE_H

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace fuzz {

// Shows `text` with every byte that is not printable as \xHH.
inline void Show(std::string_view text) {
  for (const char c : text) {
    if (c >= ' ' && c <= '~' && c != '\\') {
      std::fputc(c, stderr);
    } else {
      std::fprintf(stderr, "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    }
  }
  std::fputc('\n', stderr);
}

// Unless `holds`, tells `what` and `seen` and ends the program; libFuzzer then keeps the input.
inline void Require(bool holds, const char* what, std::string_view seen = {}) {
  if (holds) return;
  std::fprintf(stderr, "wrong: %s\n", what);
  Show(seen);
  std::abort();
}

}  // namespace fuzz

#endif
