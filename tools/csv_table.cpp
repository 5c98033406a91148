#include "tools/csv_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

#include "tools/record_text.h"
#include "tools/tool_error.h"

namespace {

std::ifstream OpenFile(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream || std::filesystem::is_directory(file)) {
    throw ToolError(kFailed, fmt::format("cannot read {}", file.string()));
  }
  return stream;
}

std::string Trimmed(const std::string& text) {
  constexpr const char* kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

CsvTable::CsvTable(const std::filesystem::path& file, const std::vector<std::string>& columns)
    : m_stream(OpenFile(file)), m_reader(m_stream) {
  if (!m_reader.Next(m_row)) throw ToolError(kFailed, fmt::format("{} is empty", file.string()));
  if (!m_row.fault.empty())
    throw ToolError(kFailed, fmt::format("{}: {} in its first row", file.string(), m_row.fault));
  for (const std::string& title : m_row.fields) m_titles.push_back(Trimmed(title));
  for (const std::string& column : columns) {
    const auto times = std::count(m_titles.begin(), m_titles.end(), column);
    if (times == 1) continue;
    throw ToolError(kFailed, fmt::format("{} has {} column {} in its first row", file.string(),
                                         times == 0 ? "no" : "more than one", column));
  }
}

bool CsvTable::Next() {
  if (!m_reader.Next(m_row)) return false;
  if (!m_row.fault.empty()) throw RowRejected(m_row.fault);
  if (m_row.fields.size() != m_titles.size()) {
    throw RowRejected(fmt::format("{} fields instead of {}", m_row.fields.size(), m_titles.size()));
  }
  for (const std::string& field : m_row.fields) {
    if (field.find('\0') != std::string::npos) throw RowRejected("a zero byte in a field");
    if (!IsUtf8(field)) throw RowRejected("a text that is not UTF-8");
  }
  return true;
}

std::string CsvTable::Field(std::string_view column) const {
  const auto found = std::find(m_titles.begin(), m_titles.end(), column);
  return Trimmed(m_row.fields.at(static_cast<std::size_t>(found - m_titles.begin())));
}
