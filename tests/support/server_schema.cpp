#include "tests/support/server_schema.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace support {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

// The names stand in statements as TPatient and TPatientRaw, and in lower case where the catalogue is asked.
std::string WithNamesSwapped(const std::string& sql) {
  static const std::regex name(
      R"(\b(t(?:config|diagnosis|doctor|group|image|makro|patient|station|test|unit))(raw)?\b)",
      std::regex::icase);
  std::string swapped;
  auto rest = sql.cbegin();
  for (std::sregex_iterator match(sql.begin(), sql.end(), name), end; match != end; ++match) {
    swapped.append(rest, (*match)[0].first);
    swapped += (*match)[1];
    if (!(*match)[2].matched) swapped += (*match)[1].str()[0] == 't' ? "raw" : "Raw";
    rest = (*match)[0].second;
  }
  return swapped.append(rest, sql.cend());
}

std::string WithoutComments(const std::string& paragraph) {
  std::istringstream lines(paragraph);
  std::string statement;
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("--")) statement += line + "\n";
  }
  return statement;
}

}  // namespace

std::vector<std::string> SchemaStatements(const fs::path& file, Tables tables) {
  const std::string text = ReadFile(file);
  std::vector<std::string> statements;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find("\n\n", start), text.size());
    const std::string statement = WithoutComments(text.substr(start, end - start));
    if (!statement.empty()) {
      statements.push_back(tables == Tables::kFullNames ? WithNamesSwapped(statement) : statement);
    }
    start = end + 2;
  }
  return statements;
}

}  // namespace support
