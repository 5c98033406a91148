// The conversion of version texts beside another one that follows the rules word for word.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "frame/version_text.h"
#include "fuzz/exact.h"
#include "fuzz/require.h"

namespace {

bool IsSeparator(char c) {
  return !((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'));
}

struct Number {
  double value = 0.0;
  double size = 0.0;  // of its parts, which may take each other away
};

// This program never leaves the locale "C".
Number Expected(std::string text) {
  if (text.empty()) return {};
  double factor = 1.0;
  if (text[0] == '-') {
    text.erase(0, 1);
    factor = -1.0;
  }
  std::size_t at = 0;
  while (at < text.size() && !IsSeparator(text[at])) ++at;
  const double whole = std::strtod(text.substr(0, at).c_str(), nullptr);
  if (at == text.size()) return {whole * factor, std::fabs(whole)};
  const std::string digits = text.substr(at + 1);
  double scale = 1.0;
  for (std::size_t i = 0; i < digits.size(); ++i) scale *= 10.0;
  const double fraction = std::strtod(digits.c_str(), nullptr) / scale;
  return {whole + factor * fraction, std::fabs(whole) + std::fabs(fraction)};
}

// Powers of ten are rounded differently.
bool IsNear(double one, const Number& other) {
  if (std::isnan(one) || std::isnan(other.value)) return std::isnan(one) && std::isnan(other.value);
  return one == other.value || std::fabs(one - other.value) <= 1e-12 * other.size;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = fuzz::UpToZero({reinterpret_cast<const char*>(data), size});
  const auto exact = fuzz::ExactText(text);
  fuzz::Require(IsNear(VersionFromText(exact.get()), Expected(text)), "another number", text);
  return 0;
}
