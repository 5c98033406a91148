#include "tools/record_json.h"

#include <charconv>
#include <nlohmann/json.hpp>

namespace {

Json Number(const std::string& text) {
  LONG number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

Json FieldAsJson(const Column& column, const void* record) {
  const std::string text = FieldAsText(column, record);
  if (column.format == Format::kKey || column.format == Format::kWord) return Number(text);
  if (column.format != Format::kText && text.empty()) return nullptr;
  return text;
}

Json RecordAsJson(const TableColumns& columns, const void* record) {
  Json row = Json::object();
  for (const Column& column : columns.columns) row[column.title] = FieldAsJson(column, record);
  return row;
}
