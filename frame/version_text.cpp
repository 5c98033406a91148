#include "frame/version_text.h"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

// std::isalnum would ask the process's locale.
bool IsLetterOrDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// As atof in the "C" locale: the leading number, 0 without one.
double LeadingNumber(std::string_view text) {
  static const locale_t c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(std::string(text).c_str(), nullptr, c_locale);
}

}  // namespace

double VersionFromText(const char* text) {
  if (text == nullptr || *text == '\0') return 0.0;
  std::string_view rest(text);
  double sign = 1.0;
  if (rest.front() == '-') {
    rest.remove_prefix(1);
    sign = -1.0;
  }
  std::size_t whole = 0;
  while (whole < rest.size() && IsLetterOrDigit(rest[whole])) ++whole;
  if (whole == rest.size()) return LeadingNumber(rest) * sign;
  const std::string_view fraction = rest.substr(whole + 1);
  const double scale = std::pow(10.0, static_cast<double>(fraction.size()));
  // The sign reaches the fraction only.
  return LeadingNumber(rest.substr(0, whole)) + sign * LeadingNumber(fraction) / scale;
}
