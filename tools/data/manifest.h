// What a backup says of itself, in a file beside it.
#ifndef KYODBC_TOOLS_DATA_MANIFEST_H
#define KYODBC_TOOLS_DATA_MANIFEST_H

#include <filesystem>
#include <string>
#include <vector>

#include "tools/data/dump_rows.h"
#include "tools/json.h"

struct BackedUpTable {
  std::string table;
  std::uint64_t rows = 0;
  std::string checksum;
  LONG next_key = 1;
};

struct Manifest {
  std::string system;  // as NameOf gives it
  std::string made;    // the time, UTC
  std::string sha256;  // of the backup's file
  std::vector<BackedUpTable> tables;
};

// The file beside a backup.
std::filesystem::path ManifestFile(const std::filesystem::path& backup);

Json ManifestAsJson(const Manifest& manifest);
// Throws ToolError when it is missing or makes no sense.
Manifest ReadManifest(const std::filesystem::path& backup);

// The tables whose rows are not those of the manifest; empty when all are.
std::vector<std::string> TablesThatDiffer(const Manifest& manifest, const Checksums& sums);

#endif
