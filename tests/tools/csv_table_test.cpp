#include "tools/csv_table.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tools/tool_error.h"

namespace {

namespace fs = std::filesystem;

class CsvTableTest : public testing::Test {
 protected:
  CsvTableTest() : m_file(fs::temp_directory_path() / ("kyodbc-csv-" + std::to_string(getpid()) + ".csv")) {}
  ~CsvTableTest() override {
    std::error_code ignored;
    fs::remove(m_file, ignored);
  }
  const fs::path& Write(const std::string& text) {
    std::ofstream(m_file, std::ios::binary) << text;
    return m_file;
  }
  std::string Reason(CsvTable& table) {
    try {
      table.Next();
    } catch (const RowRejected& reason) {
      return reason.what();
    }
    return "taken";
  }

  fs::path m_file;
};

TEST_F(CsvTableTest, FieldsAreFoundByTheTitlesOfTheFirstRowWhateverTheirOrder) {
  CsvTable table(Write("B,\"A\",C\n1, two ,3\n"), {"A", "B"});
  ASSERT_TRUE(table.Next());
  EXPECT_EQ(table.Field("A"), "two");
  EXPECT_EQ(table.Field("B"), "1");
  EXPECT_EQ(table.Line(), 2);
  EXPECT_FALSE(table.Next());
}

TEST_F(CsvTableTest, AMissingColumnIsNamed) {
  try {
    CsvTable table(Write("A,B\n1,2\n"), {"A", "NAME"});
    FAIL() << "taken";
  } catch (const ToolError& error) {
    EXPECT_NE(std::string(error.what()).find("has no column NAME"), std::string::npos);
    EXPECT_EQ(error.Code(), kFailed);
  }
}

TEST_F(CsvTableTest, TitlesThatCannotBeToldApartAreRefused) {
  EXPECT_THROW(CsvTable(Write("A,B,A\n1,2,3\n"), {"A", "B"}), ToolError);
  EXPECT_THROW(CsvTable(Write("A,\"B\"x,C\n1,2,3\n"), {"A"}), ToolError);
  EXPECT_NO_THROW(CsvTable(Write("A,B,C,C\n1,2,3,4\n"), {"A", "B"}));
}

TEST_F(CsvTableTest, AMissingAndAnEmptyFileAndAFolderAreRefused) {
  EXPECT_THROW(CsvTable("/nowhere/to/be/found.csv", {"A"}), ToolError);
  EXPECT_THROW(CsvTable(fs::temp_directory_path(), {"A"}), ToolError);
  EXPECT_THROW(CsvTable(Write(""), {"A"}), ToolError);
}

TEST_F(CsvTableTest, RowsWithAnotherNumberOfFieldsAreRejectedAndTheNextOneRead) {
  CsvTable table(Write("A,B\n1\n1,2,3\n4,5\n"), {"A"});
  EXPECT_EQ(Reason(table), "1 fields instead of 2");
  EXPECT_EQ(table.Line(), 2);
  EXPECT_EQ(Reason(table), "3 fields instead of 2");
  ASSERT_TRUE(table.Next());
  EXPECT_EQ(table.Field("A"), "4");
}

TEST_F(CsvTableTest, ZeroBytesAndTextsThatAreNotUtf8AreRejected) {
  CsvTable table(Write(std::string("A,B\na\0b,2\nM\xFCller,2\n", 19)), {"A"});
  EXPECT_EQ(Reason(table), "a zero byte in a field");
  EXPECT_EQ(Reason(table), "a text that is not UTF-8");
  EXPECT_EQ(table.Line(), 3);
}

TEST_F(CsvTableTest, WrongQuotesAreRejectedWithTheirReason) {
  CsvTable table(Write("A,B\n\"a\"b,2\n\"c,3\n"), {"A"});
  EXPECT_EQ(Reason(table), "text behind a closing quote");
  EXPECT_EQ(Reason(table), "a quote that is never closed");
  EXPECT_FALSE(table.Next());
}

}  // namespace
