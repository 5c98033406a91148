// The column lists of the browse sets: their order, against the schema file, and their widths.
#include <cctype>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "tests/db/table_layouts.h"
#include "tests/support/fixtures.h"

namespace {

using layouts::Field;

template <class Layout>
class ColumnLists : public support::ConnectedTest {};
TYPED_TEST_SUITE(ColumnLists, layouts::AllTables, layouts::TableName);

TYPED_TEST(ColumnLists, TheSetSelectsExactlyItsColumnsInTheirOrder) {
  std::string columns;
  for (const Field& field : TypeParam::kFields)
    columns += (columns.empty() ? "" : ",") + std::string(field.column);
  typename TypeParam::Set set(nullptr, nullptr);
  ASSERT_NE(set.Open(set.m_nOpenType, nullptr, 0), 0);
  EXPECT_EQ(std::string(set.GetSQL().View()),
            "SELECT " + columns + " FROM " + this->m_practice.Owner() + TypeParam::kTable);
  EXPECT_EQ(set.GetODBCFieldCount(), static_cast<short>(std::size(TypeParam::kFields)));
  EXPECT_NE(set.CanUpdate(), 0);
}

TYPED_TEST(ColumnLists, NoColumnIsKnownByItsFieldIdSoNamesAndSizesAreUnknown) {
  typename TypeParam::Set set(nullptr, nullptr);
  for (const LONG field : {1, 17, 33}) {
    EXPECT_EQ(set.GetFieldSize(field), -1);
    EXPECT_TRUE(set.GetFieldName(field).IsEmpty());
    EXPECT_EQ(set.AddSortCriteria(field, 0), 1);
  }
  EXPECT_TRUE(set.m_strSort.IsEmpty());
  EXPECT_EQ(set.IsOpen(), 0);
  EXPECT_EQ(set.m_strFilter, "1 = 2");
}

// Column name to type, of one CREATE TABLE of the schema file.
std::map<std::string, std::string> SchemaColumns(const std::string& table) {
  std::ifstream file(std::string(KYODBC_SOURCE_DIR) + "/schema/sqlite.sql");
  std::map<std::string, std::string> columns;
  std::string line;
  while (std::getline(file, line) && line != "CREATE TABLE IF NOT EXISTS " + table + " (") {
  }
  while (std::getline(file, line) && line != ");") {
    std::istringstream words(line);
    std::string name;
    std::string type;
    words >> name >> type;
    if (!type.empty() && type.back() == ',') type.pop_back();
    columns[name] = type;
  }
  return columns;
}

TYPED_TEST(ColumnLists, EveryColumnHasItsTypeInTheSchemaFile) {
  const std::map<char, std::string> types = {
      {'K', "INTEGER"         },
      {'N', "INTEGER"         },
      {'O', "INTEGER"         },
      {'F', "SMALLINT"        },
      {'D', "DATE"            },
      {'S', "TIMESTAMP"       },
      {'T', "VARCHAR(255)"    },
      {'X', "VARCHAR(1000000)"}
  };
  const auto schema = SchemaColumns(TypeParam::kTable);
  ASSERT_FALSE(schema.empty());
  for (const Field& field : TypeParam::kFields) {
    ASSERT_EQ(schema.count(field.column), 1u) << field.column;
    EXPECT_EQ(schema.at(field.column), types.at(field.kind)) << field.column;
  }
}

TYPED_TEST(ColumnLists, EveryFieldHasABitOfItsOwnInOneUnbrokenRow) {
  DWORD bits = 0;
  for (const Field& field : TypeParam::kFields) {
    EXPECT_EQ(bits & field.bit, 0u) << field.column;
    bits |= field.bit;
  }
  // The time of the makros has a bit as well, which stamps instead of copying.
  if (std::string(TypeParam::kTable) == "TMakro") bits |= 0x4;
  EXPECT_EQ(bits & (bits + 1), 0u);
}

class ColumnWidths : public support::ConnectedTest {
 protected:
  static constexpr const char* kTooLong =
      "INSERT INTO TStation (tStatCulIntStatIDPk, tStatSName) VALUES (50,'";
};

class SetsWithoutAnOwner : public support::ConnectedTest {
 protected:
  SetsWithoutAnOwner() : ConnectedTest({.with_owner = false}) {}
};

TEST_F(SetsWithoutAnOwner, AreDynasetsOverTheBareNames) {
  EXPECT_EQ(CStatRec(nullptr, nullptr).GetDefaultSQL(), "TStation");
  EXPECT_EQ(CStatRec(nullptr, nullptr).m_nOpenType, 0u);
}

TEST_F(ColumnWidths, AnOrdinaryTextIsReadUpTo255Bytes) {
  Raw().Exec(kTooLong + std::string(255, 'x') + "')");
  CStatRec stations(nullptr, nullptr);
  stations.m_strFilter = "tStatCulIntStatIDPk=50";
  ASSERT_NE(stations.Open(stations.m_nOpenType, nullptr, 0), 0);
  EXPECT_EQ(stations.m_strName.GetLength(), 255);
}

TEST_F(ColumnWidths, TheTextOfADiagnosisAndTheResultOfATestAreReadWhole) {
  const std::string text(20000, 'd');
  Raw().Exec("INSERT INTO TDiagnosis (tDiagCulIntDiagIDPk, tDiagSText) VALUES (1,'" + text + "')");
  Raw().Exec("INSERT INTO TTest (tTstCulIntTstIDPk, tTstSResult) VALUES (1,'" + text + "')");
  CDiagRec diagnoses(nullptr, nullptr);
  ASSERT_NE(diagnoses.Open(diagnoses.m_nOpenType, nullptr, 0), 0);
  EXPECT_EQ(diagnoses.m_strText, text.c_str());
  CTestRec tests(nullptr, nullptr);
  ASSERT_NE(tests.Open(tests.m_nOpenType, nullptr, 0), 0);
  EXPECT_EQ(tests.m_strResult, text.c_str());
}

TEST_F(ColumnWidths, AnOrdinaryTextIsCutAt255BytesOnTheWayIn) {
  CStatRec stations(nullptr, nullptr);
  stations.AddNew();
  // 254 letters and a character of two bytes: the character is not split.
  stations.m_strName = (std::string(254, 'y') + "\xC3\xBC").c_str();
  ASSERT_NE(stations.Update(), 0);
  EXPECT_EQ(Raw().Count("TStation", "tStatSName='" + std::string(254, 'y') + "'"), 1);
}

TEST_F(ColumnWidths, ALongTextIsWrittenWhole) {
  const std::string text(100000, 'r');
  CTestRec tests(nullptr, nullptr);
  tests.AddNew();
  tests.m_strResult = text.c_str();
  ASSERT_NE(tests.Update(), 0);
  EXPECT_EQ(Raw().Text("SELECT tTstSResult FROM TTest"), text);
}

}  // namespace
