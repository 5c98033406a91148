#include "tools/data/manifest.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "tools/tool_error.h"

namespace {

namespace fs = std::filesystem;

class ManifestTest : public testing::Test {
 protected:
  ManifestTest() : m_backup(fs::temp_directory_path() / ("kyodbc-manifest-" + std::to_string(getpid()))) {
    m_document = {
        {"format", "kyodbc backup 1"},
        {"system", "SQLite"         },
        {"made",   "today"          },
        {"sha256", "00"             }
    };
    for (const char* table : kTableNames)
      m_document["tables"].push_back({
          {"table",    table},
          {"rows",     1    },
          {"checksum", "11" },
          {"next_key", 2    }
      });
  }
  ~ManifestTest() override {
    std::error_code ignored;
    fs::remove(ManifestFile(m_backup), ignored);
  }
  std::string Refused(const std::string& text) {
    std::ofstream(ManifestFile(m_backup), std::ios::binary) << text;
    try {
      ReadManifest(m_backup);
    } catch (const ToolError& error) {
      return error.what();
    }
    return {};
  }
  std::string Refused(const Json& document) { return Refused(document.dump()); }

  fs::path m_backup;
  Json m_document;
};

TEST_F(ManifestTest, AManifestIsReadAsItWasWritten) {
  ASSERT_EQ(Refused(m_document), "");
  const Manifest manifest = ReadManifest(m_backup);
  EXPECT_EQ(manifest.tables.size(), kTableNames.size());
  EXPECT_EQ(ManifestAsJson(manifest), m_document);
}

TEST_F(ManifestTest, AManifestThatDoesNotNameEveryTableOnceIsRefused) {
  for (const char* what : {"none", "one less", "one twice", "another one"}) {
    Json document = m_document;
    if (std::string(what) == "none") document["tables"] = Json::array();
    if (std::string(what) == "one less") document["tables"].erase(3);
    if (std::string(what) == "one twice") document["tables"].push_back(document["tables"][3]);
    if (std::string(what) == "another one") document["tables"][3]["table"] = "TOther";
    EXPECT_NE(Refused(document).find("does not name every table once"), std::string::npos) << what;
  }
}

TEST_F(ManifestTest, WhatIsNoManifestIsRefused) {
  for (const char* text : {"", "{", "[]", "null", "{}", "{\"format\":\"kyodbc backup 1\"}", "\xff\xfe\x00"}) {
    EXPECT_NE(Refused(std::string(text)), "") << text;
  }
  EXPECT_NE(Refused(std::string(1000000, '[')), "");
  Json document = m_document;
  document["format"] = "kyodbc backup 2";
  EXPECT_NE(Refused(document).find("another format"), std::string::npos);
  document = m_document;
  document["tables"][0]["rows"] = "many";
  EXPECT_NE(Refused(document).find("is damaged"), std::string::npos);
}

TEST_F(ManifestTest, AMissingManifestIsNamed) {
  try {
    ReadManifest(m_backup);
    FAIL() << "taken";
  } catch (const ToolError& error) {
    EXPECT_NE(std::string(error.what()).find(ManifestFile(m_backup).string()), std::string::npos);
  }
}

}  // namespace
