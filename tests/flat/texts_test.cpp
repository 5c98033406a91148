// Every text that is valid UTF-8 and fits comes back as it was, from every text column of every table.
#include "tests/flat/texts.h"

#include <type_traits>

#include "tests/flat/family.h"
#include "tests/flat/raw_tables.h"
#include "tests/flat/text_fields.h"

namespace {

using texts::Cut;

constexpr std::size_t kWidth = 255;
constexpr std::size_t kLongWidth = 1000000;

template <class Table>
class RawTexts : public raw::RawTest {
 protected:
  using Record = typename Table::Record;

  void SetUp() override {
    RawTest::SetUp();
    m_key = this->template Add<Table>(raw::MakeRecord<Table>(1));
  }
  // Every text of the record another one of the list, beginning with the n-th. A column never gets the text
  // that the column before it gets, so that none can stand in for another.
  static Record Filled(const std::vector<std::string>& list, std::size_t n) {
    auto record = raw::MakeRecord<Table>(1);
    for (const auto& member : Table::kMembers) {
      if (member.text != nullptr) record.*member.text = list[n++ % list.size()].c_str();
    }
    if constexpr (std::is_same_v<Table, raw::Patients>) Table::Adapt(&record);  // derived
    return record;
  }
  static std::string Expected(const Record& record, const raw::Member<Record>& member) {
    return Cut((record.*member.text).View(), member.kind == 'X' ? kLongWidth : kWidth);
  }
  void Write(Record record) {
    raw::Key<Table>(record) = m_key;
    auto set = Table::MakeSet();
    ASSERT_EQ(set.Edit(record, raw::kAllFields), 0);
  }
  Record Read() {
    Record record;
    raw::Key<Table>(record) = m_key;
    auto set = Table::MakeSet();
    EXPECT_EQ(set.OpenQuery(record), 0);
    set.GetData(record);
    return record;
  }
  // Past the library, and through it.
  void ExpectStored(const Record& record) {
    const support::Row row = this->template RowOf<Table>(m_key);
    const Record read = Read();
    ASSERT_EQ(row.size(), std::size(Table::kMembers));
    for (std::size_t i = 0; i < row.size(); ++i) {
      const auto& member = Table::kMembers[i];
      if (member.text == nullptr) continue;
      EXPECT_EQ(row[i], Expected(record, member)) << member.column;
      EXPECT_EQ((read.*member.text).View(), Expected(record, member)) << member.column;
    }
  }
  void GoThrough(const std::vector<std::string>& list) {
    for (std::size_t n = 0; n < list.size() && !this->HasFailure(); ++n) {
      SCOPED_TRACE("beginning with text " + std::to_string(n));
      const Record record = Filled(list, n);
      Write(record);
      ExpectStored(record);
    }
  }

  LONG m_key = 0;
};
TYPED_TEST_SUITE(RawTexts, raw::AllTables);

TYPED_TEST(RawTexts, EveryColumnGivesBackEveryText) { this->GoThrough(texts::Whole()); }

TYPED_TEST(RawTexts, LongerTextsAreCutAtTheBorderOfACharacterAndNeverRefused) {
  this->GoThrough(texts::Longer());
}

template <class Table>
class RecordTexts : public family::TableTest<Table> {
 protected:
  using Record = typename Table::Record;

  void SetUp() override {
    family::TableTest<Table>::SetUp();
    m_record = this->Added(1);
  }
  // As much of each text as its field takes, again and again where there is room.
  void Fill(const std::vector<std::string>& list, std::size_t n) {
    for (const family::TextField& field : m_fields) {
      const std::string& text = list[n++ % list.size()];
      const std::size_t times = field.width > 2 * kWidth ? field.width / text.size() + 1 : 1;
      field.Set(&m_record, Cut(texts::Repeat(text, times), field.width - 1));
    }
  }
  // Past the library, and through it.
  void ExpectStored() {
    std::string columns;
    for (const family::TextField& field : m_fields)
      columns += (columns.empty() ? "" : ",") + std::string(field.column);
    const auto rows = this->Raw().Query("SELECT " + columns + " FROM " + Table::kTable + " WHERE " +
                                        Table::kKeyColumn + " = " + std::to_string(family::Key(m_record)));
    ASSERT_EQ(rows.size(), 1u);
    Record read{};
    family::SetKey(&read, family::Key(m_record));
    ASSERT_EQ(Table::Get(&read), 0);
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
      EXPECT_EQ(rows[0][i].value_or(""), m_fields[i].Get(m_record)) << m_fields[i].column;
      EXPECT_EQ(m_fields[i].Get(read), m_fields[i].Get(m_record)) << m_fields[i].column;
    }
  }

  const std::vector<family::TextField> m_fields = family::TextFields<Record>();
  Record m_record{};
};
TYPED_TEST_SUITE(RecordTexts, family::AllTables, family::Name);

TYPED_TEST(RecordTexts, EveryFieldGivesBackEveryText) {
  const std::vector<std::string> list = texts::Whole();
  for (std::size_t n = 0; n < list.size() && !this->HasFailure(); ++n) {
    SCOPED_TRACE("beginning with text " + std::to_string(n));
    this->Fill(list, n);
    ASSERT_EQ(TypeParam::Edit(&this->m_record), 0);
    this->ExpectStored();
  }
}

// Texts that stand in a statement as literals.
class TextLiterals : public support::ConnectedTest {};

TEST_F(TextLiterals, FindTheRowOfEveryTextAndNoOther) {
  std::vector<std::string> list;
  for (const std::string& text : texts::Whole()) list.push_back(Cut(text, sizeof(tagTDOCTOR::szSrvID) - 1));
  std::sort(list.begin(), list.end());
  list.erase(std::unique(list.begin(), list.end()), list.end());
  auto set = raw::Doctors::MakeSet();
  for (const std::string& text : list) {
    CTDrRaw doctor;
    doctor.m_strSrvID = text.c_str();
    ASSERT_EQ(set.Insert(doctor, raw::kAllFields), 0) << text;
    EXPECT_EQ(std::string(doctor.m_strSrvID), text);
  }
  ASSERT_EQ(DB_OpenTDr(), 0);
  for (const std::string& text : list) {
    ASSERT_EQ(DB_SetTDrFilter(KYODBC_FIELD_SERVER_ID, KYODBC_EQUAL, text.c_str(), nullptr, nullptr, nullptr),
              0)
        << text;
    tagTDOCTOR doctor{};
    ASSERT_EQ(DB_GetTDrByPos(1, &doctor), 0) << text;
    EXPECT_EQ(support::Text(doctor.szSrvID), text);
    LONG rows = 0;
    EXPECT_EQ(DB_GetTDrMaxPos(&rows), 0);
    EXPECT_EQ(rows, 1) << text;
  }
}

class LongTexts : public RawTexts<raw::Diagnoses> {
 protected:
  // Without printing the texts.
  void ExpectWhole(const std::string& text) {
    CTDiagRaw record = raw::MakeRecord<raw::Diagnoses>(1);
    record.m_strText = text.c_str();
    Write(record);
    const std::string expected = Cut(text, kLongWidth);
    const std::string stored =
        Raw().Text("SELECT tDiagSText FROM TDiagnosis WHERE tDiagCulIntDiagIDPk=" + std::to_string(m_key));
    EXPECT_EQ(stored.size(), expected.size());
    EXPECT_TRUE(stored == expected);
    const CTDiagRaw read = Read();
    EXPECT_EQ(read.m_strText.View().size(), expected.size());
    EXPECT_TRUE(read.m_strText.View() == expected);
  }
};

TEST_F(LongTexts, ComeBackWholeUpTo1000000BytesAndAreCutBeyond) {
  for (const std::size_t size : {kLongWidth - 1, kLongWidth, kLongWidth + 1}) {
    SCOPED_TRACE(size);
    ExpectWhole(std::string(size - 1, 'x') + "'");
  }
}

TEST_F(LongTexts, AreCutAtTheBorderOfACharacter) {
  const struct {
    std::size_t before;
    const char* character;
  } rows[] = {
      {kLongWidth - 2, "\xC3\xBC"        },
      {kLongWidth - 1, "\xC3\xBC"        },
      {kLongWidth - 2, "\xE2\x82\xAC"    },
      {kLongWidth - 3, "\xF0\x9D\x84\x9E"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.before);
    ExpectWhole(std::string(row.before, 'x') + row.character);
  }
}

TEST_F(LongTexts, GiveBackEveryCharacterThereIs) {
  constexpr char32_t kStep = 0x3C000;  // four bytes each stay below the limit
  for (char32_t first = 1; first <= 0x10FFFF; first += kStep) {
    SCOPED_TRACE(static_cast<unsigned>(first));
    ExpectWhole(texts::Range(first, std::min<char32_t>(first + kStep - 1, 0x10FFFF)));
  }
}

}  // namespace
