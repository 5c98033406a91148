#include "tools/data/manifest.h"

#include <fmt/format.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <set>

#include "tools/tool_error.h"

namespace {

constexpr const char* kFormat = "kyodbc backup 1";

// A table that is not there would be emptied by restoring and found equal to nothing.
void RequireAllTables(const Manifest& manifest) {
  std::set<std::string> tables;
  for (const BackedUpTable& table : manifest.tables) tables.insert(table.table);
  const bool all = tables == std::set<std::string>(kTableNames.begin(), kTableNames.end());
  if (!all || manifest.tables.size() != kTableNames.size())
    throw ToolError(kFailed, "it does not name every table once");
}

Manifest ManifestOf(const Json& document) {
  if (document.at("format") != kFormat) throw ToolError(kFailed, "it is of another format");
  Manifest manifest{document.at("system"), document.at("made"), document.at("sha256"), {}};
  for (const Json& table : document.at("tables")) {
    manifest.tables.push_back(
        {table.at("table"), table.at("rows"), table.at("checksum"), table.at("next_key").get<LONG>()});
  }
  RequireAllTables(manifest);
  return manifest;
}

}  // namespace

std::filesystem::path ManifestFile(const std::filesystem::path& backup) {
  std::filesystem::path file = backup;
  return file += ".json";
}

Json ManifestAsJson(const Manifest& manifest) {
  Json tables = Json::array();
  for (const BackedUpTable& table : manifest.tables) {
    Json entry;
    entry["table"] = table.table;
    entry["rows"] = table.rows;
    entry["checksum"] = table.checksum;
    entry["next_key"] = table.next_key;
    tables.push_back(entry);
  }
  Json document;
  document["format"] = kFormat;
  document["system"] = manifest.system;
  document["made"] = manifest.made;
  document["sha256"] = manifest.sha256;
  document["tables"] = tables;
  return document;
}

Manifest ReadManifest(const std::filesystem::path& backup) {
  const std::filesystem::path file = ManifestFile(backup);
  std::ifstream stream(file);
  if (!stream) {
    throw ToolError(kFailed, fmt::format("cannot read {}, which tells what is in the backup", file.string()));
  }
  try {
    return ManifestOf(Json::parse(stream));
  } catch (const Json::exception&) {
    throw ToolError(kFailed, fmt::format("{} is damaged", file.string()));
  } catch (const ToolError& error) {
    throw ToolError(kFailed, fmt::format("{} cannot be used: {}", file.string(), error.what()));
  }
}

std::vector<std::string> TablesThatDiffer(const Manifest& manifest, const Checksums& sums) {
  std::vector<std::string> differing;
  for (const BackedUpTable& table : manifest.tables) {
    const auto found = sums.find(table.table);
    const bool same =
        found != sums.end() && found->second.Rows() == table.rows && found->second.Text() == table.checksum;
    if (!same) differing.push_back(table.table);
  }
  return differing;
}
