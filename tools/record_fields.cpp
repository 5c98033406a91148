#include "tools/record_fields.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>
#include <vector>

#include "tools/record_text.h"
#include "tools/time_text.h"
#include "tools/tool_error.h"

namespace {

template <class Number>
Number ReadNumber(const Column& column, const std::string& text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) {
    throw ToolError(kUsage, fmt::format("{}: '{}' is not a whole number of {} bits", column.title, text,
                                        sizeof(Number) * 8));
  }
  return number;
}

TIMESTAMP_STRUCT ReadMoment(const Column& column, const std::string& text) {
  if (text.empty()) return {};
  const std::optional<TIMESTAMP_STRUCT> time = ReadTime(text);
  const bool clock = time && (time->hour != 0 || time->minute != 0 || time->second != 0);
  if (!time || (column.format == Format::kDate && clock)) {
    throw ToolError(kUsage, fmt::format("{}: '{}' is not a date like 2001-05-06{}", column.title, text,
                                        column.format == Format::kTime ? " or '2001-05-06 10:00:00'" : ""));
  }
  return *time;
}

void CopyText(const Column& column, const std::string& text, char* place) {
  if (!IsUtf8(text)) throw ToolError(kUsage, fmt::format("{}: the text is not UTF-8", column.title));
  if (text.size() >= column.width) {
    throw ToolError(kUsage,
                    fmt::format("{}: the text is longer than {} bytes", column.title, column.width - 1));
  }
  std::memset(place, 0, column.width);
  std::copy(text.begin(), text.end(), place);
}

template <class Value>
void Copy(const Value& value, char* place) {
  std::memcpy(place, &value, sizeof value);
}

}  // namespace

const Column& FindColumn(const Table& table, const std::string& title) {
  std::vector<const char*> titles;
  for (const Column& column : table.data->columns) {
    if (title == column.title) return column;
    titles.push_back(column.title);
  }
  throw ToolError(kUsage, fmt::format("a {} has no field '{}'; there are: {}", table.singular, title,
                                      fmt::join(titles, ", ")));
}

void SetField(const Column& column, const std::string& text, void* record) {
  char* place = static_cast<char*>(record) + column.offset;
  switch (column.format) {
    case Format::kKey:
      return Copy(ReadNumber<LONG>(column, text), place);
    case Format::kWord:
      return Copy(ReadNumber<WORD>(column, text), place);
    case Format::kText:
      return CopyText(column, text, place);
    default:
      return Copy(ReadMoment(column, text), place);
  }
}
