#include "tools/data/shape.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <charconv>

#include "tools/tool_error.h"

namespace {

constexpr std::size_t kDateLength = 10;

// Behind the day: a time of nothing but zeros, or none.
bool IsMidnight(const std::string& text) {
  return text.find_first_not_of(" :0.T", kDateLength) == std::string::npos;
}

void MakeUniformTime(std::string& text) {
  if (text.size() == kDateLength) text += " 00:00:00";
  if (text.size() > kDateLength && text[kDateLength] == 'T') text[kDateLength] = ' ';
  if (text.find('.') == std::string::npos) return;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
}

}  // namespace

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return lower;
}

void MakeUniform(Value& value, Kind kind) {
  if (!value || value->size() < kDateLength) return;
  if (kind == Kind::kDate && IsMidnight(*value)) value->resize(kDateLength);
  if (kind == Kind::kTime) MakeUniformTime(*value);
}

LONG KeyOf(const Shape& shape, const Row& row) {
  const std::string text = row.at(shape.key).value_or("");
  LONG key = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), key);
  if (error == std::errc() && end == text.data() + text.size()) return key;
  throw ToolError(kFailed,
                  fmt::format("the table {} has a row whose key is no whole number of 32 bits", shape.table));
}
