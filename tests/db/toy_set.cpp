#include "tests/db/toy_set.h"

#include <cctype>

namespace toys {

// A name that an insert leaves out becomes "untold". The column takes longer names than the set binds.
std::string TableOfToys(const std::string& name, const std::string& key) {
  const support::ColumnTypes types = support::CurrentKind().Types();
  return "CREATE TABLE " + name + " (tToyId " + key + ", tToyName " + types.long_text +
         " DEFAULT 'untold', tToyCount INTEGER, tToySmall INTEGER, tToyFlag SMALLINT, tToyDay DATE, "
         "tToyTime " +
         types.timestamp + ", tToyText " + types.long_text + ")";
}

std::string LowerCase(std::string text) {
  for (char& letter : text) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return text;
}

ToySet::ToySet(CDatabase* database, Key key) : CRecordset(database) {
  m_nFields = 7;
  if (key == kRowKey) SetRowKey(&m_id);
}

void ToySet::DoFieldExchange(CFieldExchange* exchange) {
  exchange->SetFieldType(CFieldExchange::outputColumn);
  RFX_Long(exchange, "tToyId", m_id);
  RFX_Text(exchange, "tToyName", m_name);
  RFX_Long(exchange, "tToyCount", m_count);
  RFX_Int(exchange, "tToySmall", m_small);
  RFX_Bool(exchange, "tToyFlag", m_flag);
  RFX_Date(exchange, "tToyDay", m_day);
  RFX_Date(exchange, "tToyTime", m_time);
}

std::string ToySet::Ids() {
  std::string ids;
  if (IsBOF() && IsEOF()) return ids;
  for (MoveFirst(); !IsEOF(); MoveNext()) ids += (ids.empty() ? "" : ",") + std::to_string(m_id);
  return ids;
}

void ExpectAt(const ToySet& set, bool bof, bool eof, LONG current) {
  EXPECT_EQ(set.IsBOF() != FALSE, bof);
  EXPECT_EQ(set.IsEOF() != FALSE, eof);
  EXPECT_EQ(set.m_lCurrentRecord, current);
}

void ExpectOnRow(const ToySet& set, LONG row, LONG id) {
  ExpectAt(set, false, false, row - 1);
  EXPECT_EQ(set.m_id, id);
}

ToyTest::ToyTest() : m_raw(m_practice) {
  m_raw.Exec(TableOfToys("Toy", support::CurrentKind().Types().key));
  m_database.OpenEx(Connect());
}

CString ToyTest::Connect() const {
  std::string text = "DSN=" + m_practice.Dsn();
  const std::string user = support::CurrentKind().User();
  if (!user.empty()) text += ";UID=" + user + ";PWD=" + support::CurrentKind().Password();
  return text.c_str();
}

void ToyTest::AddToys(int count) {
  if (count == 0) return;
  std::string rows;
  for (int id = 1; id <= count; ++id) {
    const std::string number = std::to_string(id);
    if (id > 1) rows += ",";
    rows.append("(").append(number).append(",'toy").append(number).append("',").append(number).append("0)");
  }
  m_raw.Exec("INSERT INTO Toy (tToyId, tToyName, tToyCount) VALUES " + rows);
}

support::Value ToyTest::Stored(const std::string& column, int id) {
  return m_raw.Scalar("SELECT " + column + " FROM Toy WHERE tToyId = " + std::to_string(id));
}

}  // namespace toys
