#include "tools/data/dump_rows.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/tool_error.h"

namespace {

using namespace std::string_literals;

const std::vector<Shape> kShapes = {
    {"TDoctor",  {"key", "name"},         {Kind::kNumber, Kind::kText},              0},
    {"TPatient", {"born", "key", "name"}, {Kind::kDate, Kind::kNumber, Kind::kText}, 1},
};

std::string SumOf(const std::vector<Row>& rows) {
  Checksum sum;
  for (const Row& row : rows) sum.Add(row);
  return sum.Text();
}

// A reader and what it said to the lines.
template <class Reader>
class Reading {
 public:
  explicit Reading(std::initializer_list<std::string_view> lines) : m_reader(kShapes) {
    for (const std::string_view line : lines) m_taken += m_reader.Line(line) ? 1 : 0;
    m_reader.End();
  }
  int Taken() const { return m_taken; }
  std::uint64_t Rows(const char* table) const { return m_reader.Sums().at(table).Rows(); }
  bool Holds(const char* table, const std::vector<Row>& rows) const {
    return Rows(table) == rows.size() && m_reader.Sums().at(table).Text() == SumOf(rows);
  }

 private:
  Reader m_reader;
  int m_taken = 0;
};
using Copy = Reading<CopyRows>;
using Insert = Reading<InsertRows>;

constexpr std::string_view kCopyHead = "COPY public.tdoctor (key, name) FROM stdin;";
constexpr std::string_view kInsertHead = "INSERT INTO `TDoctor` (`key`, `name`) VALUES";

std::string CopyOf(std::string_view value) { return "1\t" + std::string(value); }
std::string InsertOf(std::string_view literal) {
  return std::string(kInsertHead) + " (1," + std::string(literal) + ");";
}

// What a refused dump says, which must be a ToolError; empty for one that is taken.
template <class R>
std::string Refused(std::initializer_list<std::string_view> lines) {
  try {
    const R reading(lines);
  } catch (const ToolError& error) {
    EXPECT_EQ(error.Code(), kFailed);
    return error.what();
  }
  return {};
}

TEST(DumpRowsTest, CopiedRowsAreAddedUpByTheirTables) {
  const Copy dump({"SET statement_timeout = 0;", kCopyHead, "1\tAnn", "2\tBob", "\\.", "",
                   "COPY other.tpatientraw (name, key, born) FROM stdin;", "Eve\t7\t1960-02-29", "\\.",
                   "-- PostgreSQL database dump complete"});
  EXPECT_TRUE(dump.Holds("TDoctor", {
                                        {"2", "Bob"},
                                        {"1", "Ann"}
  }));
  EXPECT_TRUE(dump.Holds("TPatient", {
                                         {"1960-02-29", "7", "Eve"}
  }));
  EXPECT_EQ(dump.Taken(), 7);
}

TEST(DumpRowsTest, InsertedRowsAreAddedUpByTheirTables) {
  const std::string head = "INSERT INTO `tpatientraw` (`name`, `key`, `born`) VALUES ";
  const Insert dump({"-- MariaDB dump", kInsertHead, "(1,'Ann'),", "(2,'Bob');", "UNLOCK TABLES;",
                     head + "('Eve',7,'1960-02-29'),('Max',8,NULL);"});
  EXPECT_TRUE(dump.Holds("TDoctor", {
                                        {"2", "Bob"},
                                        {"1", "Ann"}
  }));
  EXPECT_TRUE(dump.Holds("TPatient", {
                                         {"1960-02-29", "7", "Eve"},
                                         {std::nullopt, "8", "Max"}
  }));
  EXPECT_EQ(dump.Taken(), 4);
}

TEST(DumpRowsTest, TablesOfOthersArePassedOverWithAllTheirRows) {
  const Copy copied({"COPY public.theirs (a) FROM stdin;", "COPY public.tdoctor (key, name) FROM stdin;", "x",
                     "\\.", kCopyHead, "1\tAnn", "\\."});
  EXPECT_EQ(copied.Rows("TDoctor"), 1u);
  EXPECT_EQ(copied.Taken(), 3);
  const Insert inserted({"INSERT INTO `theirs` (`a`) VALUES", "(1),", "(2);", kInsertHead, "(1,'Ann');"});
  EXPECT_EQ(inserted.Rows("TDoctor"), 1u);
  EXPECT_EQ(inserted.Taken(), 2);
}

TEST(DumpRowsTest, RowsGoIntoTheSchemaOfThePracticeThatTakesThem) {
  constexpr const char* kRow = "1\tCOPY public.tdoctor (key, name) FROM stdin;";
  CopyRows rows(kShapes);
  EXPECT_TRUE(rows.Line("COPY \"My (1.) practice\".tdoctor (key, name) FROM stdin;"));
  EXPECT_EQ(rows.For("other.", "the head"), "COPY other.tdoctor (key, name) FROM stdin;");
  EXPECT_TRUE(rows.Line(kRow));
  EXPECT_EQ(rows.For("other.", kRow), kRow);
  EXPECT_TRUE(rows.Line("\\."));
  EXPECT_EQ(rows.For("other.", "\\."), "\\.");
}

TEST(DumpRowsTest, NoValueIsNotTheEmptyTextNorTheWord) {
  const Copy copied({kCopyHead, "1\t\\N", "2\t", "3\tNULL", "4\t\\\\N", "\\."});
  EXPECT_TRUE(copied.Holds("TDoctor", {
                                          {"1", std::nullopt},
                                          {"2", ""          },
                                          {"3", "NULL"      },
                                          {"4", "\\N"       }
  }));
  const Insert inserted({kInsertHead, "(1,NULL),(2,''),(3,'NULL'),(4,'\\\\N');"});
  EXPECT_TRUE(inserted.Holds("TDoctor", {
                                            {"1", std::nullopt},
                                            {"2", ""          },
                                            {"3", "NULL"      },
                                            {"4", "\\N"       }
  }));
}

TEST(DumpRowsTest, EveryByteOfATextIsKept) {
  const struct {
    std::string copied;
    std::string inserted;
    std::string meant;
  } texts[] = {
      {"a\\tb\\nc\\rd\\\\e",    "'a\\tb\\nc\\rd\\\\e'",         "a\tb\nc\rd\\e"        },
      {"\\b\\f\\v",             "'\\b\\f\\v'",                  "\b\f\v"               },
      {"O'Neil \"x\", (y); --", "'O''Neil \\\"x\\\", (y); --'", "O'Neil \"x\", (y); --"},
      {"it''s",                 "'it\\'\\'s'",                  "it''s"                },
      {"äß€田🦷",        "'äß€田🦷'",             "äß€田🦷"       },
      {"\xff\xfe\x80",          "'\xff\xfe\x80'",               "\xff\xfe\x80"         },
      {"\x01\x7f",              "'\x01\x7f'",                   "\x01\x7f"             },
      {"\\.",                   "'.'",                          "."                    },
      {"a\0b"s,                 "'a\\0b'",                      "a\0b"s                },
  };
  for (const auto& text : texts) {
    EXPECT_TRUE(Copy({
                         kCopyHead, CopyOf(text.copied), "\\."
    })
                    .Holds("TDoctor", {{"1", text.meant}}))
        << text.copied;
    EXPECT_TRUE(Insert({
                           InsertOf(text.inserted)
    })
                    .Holds("TDoctor", {{"1", text.meant}}))
        << text.inserted;
  }
}

TEST(DumpRowsTest, ATextOfMegabytesIsReadWhole) {
  const std::string text(8u << 20, '\'');
  EXPECT_TRUE(Copy({
                       kCopyHead, CopyOf(text), "\\."
  })
                  .Holds("TDoctor", {{"1", text}}));
  EXPECT_TRUE(Insert({
                         InsertOf("'" + text + text + "'")
  })
                  .Holds("TDoctor", {{"1", text}}));
}

TEST(DumpRowsTest, ALineWithoutEndOfValuesIsRefusedAndNotRead) {
  const std::string many(100000, '\t');
  EXPECT_NE(Refused<Copy>({kCopyHead, many, "\\."}), "");
  EXPECT_NE(Refused<Insert>({std::string(kInsertHead) + std::string(100000, '(')}), "");
}

TEST(DumpRowsTest, ADumpCutShortIsRefusedWhereverItWasCut) {
  const std::string whole = InsertOf("'it''s \\\\'");
  ASSERT_EQ(Refused<Insert>({whole}), "");
  for (std::size_t size = std::string_view("INSERT INTO ").size(); size < whole.size(); ++size) {
    EXPECT_NE(Refused<Insert>({whole.substr(0, size)}), "") << whole.substr(0, size);
  }
  for (std::size_t size = std::string_view("COPY ").size(); size < kCopyHead.size(); ++size) {
    EXPECT_NE(Refused<Copy>({kCopyHead.substr(0, size), "1\tAnn", "\\."}), "") << kCopyHead.substr(0, size);
  }
  EXPECT_NE(Refused<Copy>({kCopyHead}), "");
  EXPECT_NE(Refused<Copy>({kCopyHead, "1\tAnn"}), "");
  EXPECT_NE(Refused<Copy>({kCopyHead, "1\tAnn\\", "\\."}), "");
  EXPECT_NE(Refused<Copy>({kCopyHead, "1", "\\."}), "");
  EXPECT_NE(Refused<Insert>({kInsertHead}), "");
  EXPECT_NE(Refused<Insert>({kInsertHead, "(1,'Ann'),"}), "");
  EXPECT_NE(Refused<Insert>({kInsertHead, "(1,'Ann')"}), "");
}

TEST(DumpRowsTest, RowsOfAnotherNumberOfValuesAreRefused) {
  EXPECT_NE(Refused<Copy>({kCopyHead, "1\tAnn\tx", "\\."}), "");
  EXPECT_NE(Refused<Copy>({kCopyHead, "", "\\."}), "");
  EXPECT_NE(Refused<Insert>({kInsertHead, "(1);"}), "");
  EXPECT_NE(Refused<Insert>({kInsertHead, "(1,'Ann',2);"}), "");
  EXPECT_NE(Refused<Insert>({kInsertHead, "();"}), "");
}

TEST(DumpRowsTest, ATableWithOtherColumnsIsRefusedByName) {
  for (const char* columns : {"key", "key, nom", "key, name, more", "key, key", "name, name"}) {
    const std::string head = "COPY public.tdoctor (" + std::string(columns) + ") FROM stdin;";
    EXPECT_EQ(Refused<Copy>({head, "\\."}), "the table TDoctor has other columns in the backup") << columns;
  }
  EXPECT_EQ(Refused<Insert>({"INSERT INTO `TDoctor` (`key`, `key`) VALUES (1,2);"}),
            "the table TDoctor has other columns in the backup");
}

// Lines that are taken go to the database's client: a dump in other hands must not make it do something else.
TEST(DumpRowsTest, StatementsHiddenInADumpAreRefused) {
  for (const char* line : {
           "COPY public.tdoctor (key, name) FROM PROGRAM 'touch /tmp/x'; -- FROM stdin;",
           "COPY x FROM PROGRAM 'touch /tmp/x'; COPY public.tdoctor (key, name) FROM stdin;",
           "COPY public.tdoctor (key, name) FROM stdin; DROP TABLE tdoctor;",
           "COPY public.tdoctor (key, name) FROM stdin; ; FROM stdin;",
           "COPY a.b.tdoctor (key, name) FROM stdin;",
           "COPY (DELETE FROM x RETURNING y) TO stdout;",
       }) {
    EXPECT_NE(Refused<Copy>({line, "\\."}), "") << line;
  }
  for (const char* line : {
           "INSERT INTO `TDoctor` (`key`, `name`) VALUES (1,'Ann'); DROP TABLE TDoctor;",
           "INSERT INTO `TDoctor` (`key`, `name`) VALUES (1,'Ann');;",
           "INSERT INTO `TDoctor`; DROP TABLE x; INSERT INTO `TDoctor` (`key`, `name`) VALUES (1,'Ann');",
           "INSERT INTO `TDoctor` (`key`, `name`) SELECT 1,2; -- VALUES (1,'Ann');",
           "INSERT INTO `TDoctor` (`key`, `name`) VALUES (1,CURRENT_USER);",
           "INSERT INTO `TDoctor` (`key`, `name`) VALUES (1,LOAD_FILE('/etc/passwd'));",
           "INSERT INTO `TDoctor` (`key`, `name`) VALUES (1,(SELECT 2));",
           "INSERT INTO `TDoctor` (`key`, `name`) VALUES (1,'a' 'b');",
           "INSERT INTO `TDoctor` (`key`, `name`) VALUES \\! touch /tmp/x",
       }) {
    EXPECT_NE(Refused<Insert>({line}), "") << line;
  }
}

TEST(DumpRowsTest, DatesAndTimesCountInTheirOneForm) {
  const Copy copied(
      {"COPY public.tpatient (born, key, name) FROM stdin;", "1960-02-29 00:00:00\t1\ta", "\\."});
  EXPECT_TRUE(copied.Holds("TPatient", {
                                           {"1960-02-29", "1", "a"}
  }));
}

}  // namespace
