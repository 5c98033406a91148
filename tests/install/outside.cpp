// A caller's record set over a table of the caller's own, with nothing but the installed library: positions,
// counts, filters, sorts, add, edit, delete. Usage: outside SOURCE [USER PASSWORD]
#include <KyODBC.h>
#include <KyODBCDiag.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

int failures = 0;

void Expect(bool holds, const char* what, int line) {
  if (holds) return;
  ++failures;
  std::fprintf(stderr, "outside.cpp:%d: %s\n", line, what);
}

#define EXPECT(condition) Expect((condition), #condition, __LINE__)

// Ids of this table: what the ranges of the ids say of value types, and what they name here.
constexpr LONG kKey = KYODBC_FIELD_KEY;
constexpr LONG kShelf = KYODBC_FIELD_UNIT_KEY;
constexpr LONG kTitle = KYODBC_FIELD_NAME;
constexpr LONG kBought = KYODBC_FIELD_DATE;
constexpr LONG kReturned = KYODBC_FIELD_TIME;

class FilmSet : public CKyRecSet {
 public:
  FilmSet(CDatabase* database, const char* owner) : CKyRecSet(database, owner) { m_nFields = 6; }

  CString GetDefaultSQL() override { return m_strOwner + "TFilm"; }

  void DoFieldExchange(CFieldExchange* exchange) override {
    exchange->SetFieldType(CFieldExchange::outputColumn);
    RFX_Long(exchange, "tFilmIDPk", m_lID);
    RFX_Text(exchange, "tFilmSTitle", m_title);
    RFX_Long(exchange, "tFilmShelf", m_shelf);
    RFX_Bool(exchange, "tFilmFLent", m_lent);
    RFX_Date(exchange, "tFilmDBought", m_bought);
    RFX_Date(exchange, "tFilmTsBack", m_returned);
  }

  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override {
    for (const Field& row : kFields) {
      if (row.id != field) continue;
      if (error != nullptr) *error = 0;
      return row.column;
    }
    return CKyRecSet::GetFieldName(field, error);
  }

  short GetIntFieldID(LONG field) override {
    for (const Field& row : kFields) {
      if (row.id == field) return row.index;
    }
    return CKyRecSet::GetIntFieldID(field);
  }

  void Add(LONG key, const char* title, LONG shelf, SQLSMALLINT year) {
    AddNew();
    m_lID = key;
    m_title = title;
    m_shelf = shelf;
    m_lent = TRUE;
    m_bought = {year, 5, 6, 0, 0, 0, 0};
    m_returned = {year, 7, 8, 9, 10, 11, 0};
    Update();
  }

  // The titles in the order of the set.
  std::string Titles() {
    std::string titles;
    LONG count = 0;
    if (GetMaxPos(&count) != KYODBC_OK) return "no count";
    for (LONG position = 1; position <= count && MoveToPos(position) == position; ++position)
      titles += std::string(m_title) + ";";
    return titles;
  }

  CString m_title;
  LONG m_shelf = 0;
  BOOL m_lent = FALSE;
  TIMESTAMP_STRUCT m_bought{};
  TIMESTAMP_STRUCT m_returned{};

 private:
  struct Field {
    LONG id;
    const char* column;
    short index;
  };
  static constexpr Field kFields[] = {
      {kKey,      " tFilmIDPk",    0},
      {kTitle,    " tFilmSTitle",  1},
      {kShelf,    " tFilmShelf",   2},
      {kBought,   " tFilmDBought", 4},
      {kReturned, " tFilmTsBack",  5},
  };
};

void Fill(FilmSet& films) {
  films.Add(11, "Hand", 1, 2001);
  films.Add(12, "Knee's cap", 2, 2002);
  films.Add(13, "Ülna", 1, 2003);
  films.Add(14, "Foot", 2, 2004);
  EXPECT(films.SetSortIndex(kKey) == KYODBC_OK);
}

void TryPositions(FilmSet& films) {
  EXPECT(films.Titles() == "Hand;Knee's cap;Ülna;Foot;");
  EXPECT(films.MoveToPos(2) == 2 && films.m_lID == 12 && films.m_shelf == 2 && films.m_lent != FALSE);
  EXPECT(films.m_bought.year == 2002 && films.m_bought.day == 6);
  EXPECT(films.m_returned.hour == 9 && films.m_returned.second == 11);
  EXPECT(films.MoveToDelta(2) == 4 && films.m_title == "Foot");
  EXPECT(films.MoveToDelta(-3) == 1 && films.GetIndexPos() == 1);
  EXPECT(films.MoveToIntID(13) == 3 && films.m_lID == 13);
  EXPECT(films.MoveToIntID(99) == 1 && films.m_lID == 11);
  EXPECT(films.MoveToPos(5) == 0 && films.IsEOF() != FALSE);
  LONG position = 3, count = 0, last = 0;
  EXPECT(films.GetByPos(&position) == KYODBC_OK && films.m_title == "Ülna");
  EXPECT(films.GetNum(&count) == KYODBC_OK && count == 4);
  EXPECT(films.GetLastID(&last) == KYODBC_OK && last == 14);
  EXPECT(films.GetIndexPos() == 3);
}

void TryFilters(FilmSet& films) {
  LONG shelf = 2, low = 11, count = 0;
  char like[] = "%'%";
  TIMESTAMP_STRUCT from{2001, 1, 1, 0, 0, 0, 0}, to{2003, 7, 8, 9, 10, 11, 0};
  EXPECT(films.SetFilter(kShelf, KYODBC_EQUAL, &shelf, nullptr, nullptr, nullptr) == KYODBC_OK);
  EXPECT(films.Titles() == "Knee's cap;Foot;");
  EXPECT(films.GetNum(&count) == KYODBC_OK && count == 4);
  EXPECT(films.SetFilter(kTitle, KYODBC_LIKE, like, nullptr, nullptr, nullptr) == KYODBC_OK);
  EXPECT(films.Titles() == "Knee's cap;");
  EXPECT(films.SetFilter(kReturned, KYODBC_BETWEEN, &from, &to, nullptr, nullptr) == KYODBC_OK);
  EXPECT(films.Titles() == "Hand;Knee's cap;Ülna;");
  EXPECT(films.SetFilter(KYODBC_PACK(kBought, kShelf | KYODBC_OR, 0, 0), KYODBC_PACK(KYODBC_LESS, 0, 0, 0),
                         &from, &shelf, nullptr, nullptr) == KYODBC_OK);
  EXPECT(films.Titles() == "Knee's cap;Foot;");
  EXPECT(films.SetFilter(KYODBC_FIELD_SETTING, 0, like, nullptr, nullptr, nullptr) == KYODBC_BAD_ARGUMENT);
  EXPECT(films.Titles() == "Knee's cap;Foot;");
  EXPECT(films.SetFilter(kKey, KYODBC_GREATER_EQUAL, &low, nullptr, nullptr, nullptr) == KYODBC_OK);
}

void TrySorts(FilmSet& films) {
  EXPECT(films.SetSortIndex(KYODBC_PACK(kShelf, kKey | KYODBC_DESCENDING, 0, 0)) == KYODBC_OK);
  EXPECT(films.Titles() == "Ülna;Hand;Foot;Knee's cap;");
  EXPECT(films.SetSortIndex(KYODBC_FIELD_SETTING) == KYODBC_BAD_ARGUMENT);
  EXPECT(films.SetSortIndex(kKey) == KYODBC_OK);
  EXPECT(films.GetFieldSize(kTitle) == 30 && films.GetFieldSize(kShelf) == -1);
}

void TryChanges(FilmSet& films) {
  EXPECT(films.MoveToIntID(12) == 2);
  films.Edit();
  films.m_title = "Knee";
  films.m_lent = FALSE;
  EXPECT(films.Update() != FALSE);
  films.Requery();
  EXPECT(films.MoveToIntID(12) == 2 && films.m_title == "Knee" && films.m_lent == FALSE &&
         films.m_shelf == 2);
  EXPECT(films.DeleteByPos(1) == KYODBC_OK);
  EXPECT(films.GetIndexPos() == 1 && films.m_lID == 12);
  films.Requery();
  EXPECT(films.Titles() == "Knee;Ülna;Foot;");
  EXPECT(films.DeleteByPos(9) == KYODBC_NO_ROW);
}

void TryFailures(CDatabase* database) {
  FilmSet elsewhere(database, "nosuchowner.");
  try {
    elsewhere.Open(CRecordset::snapshot, nullptr, CRecordset::none);
    EXPECT(!"a table that is not there opened");
  } catch (CDBException* exception) {
    EXPECT(!exception->m_strError.IsEmpty());
    exception->Delete();
  }
}

void TryValues() {
  tagTPATIENT record{};
  record.lPatID = 5;
  CTPatientRaw patient;
  patient.CopyFrom(record);
  const CTPatientRaw copy = patient;
  EXPECT(copy.m_lPatID == 5);
  const TIMESTAMP_STRUCT early{2001, 1, 1, 0, 0, 0, 0}, late{2001, 1, 2, 0, 0, 0, 0};
  const CDBTimeStamp first(early), second(late), again = first;
  EXPECT(first < second && !(second < first) && again == first);
}

int Try() {
  CDatabase* database = DB_GetDatabase();
  database->ExecuteSQL(
      "CREATE TABLE TFilm (tFilmIDPk INTEGER NOT NULL PRIMARY KEY, tFilmSTitle VARCHAR(30), "
      "tFilmShelf INTEGER, tFilmFLent SMALLINT, tFilmDBought DATE, tFilmTsBack TIMESTAMP NULL)");
  FilmSet films(database, nullptr);
  Fill(films);
  TryPositions(films);
  TryFilters(films);
  TrySorts(films);
  TryChanges(films);
  TryFailures(database);
  TryValues();
  films.Close();
  return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  tagDBCONNECT source{};
  std::snprintf(source.szDSN, sizeof source.szDSN, "%s", argc > 1 ? argv[1] : "");
  std::snprintf(source.szUID, sizeof source.szUID, "%s", argc > 3 ? argv[2] : "");
  std::snprintf(source.szPWD, sizeof source.szPWD, "%s", argc > 3 ? argv[3] : "");
  if (DB_InitDatabase(&source) != KYODBC_OK) {
    tagDBERRORDETAIL detail{};
    DB_GetLastErrorDetail(&detail, sizeof detail);
    std::fprintf(stderr, "%s: %d %s\n", detail.szFunction, int{detail.wCode}, detail.szMessage);
    return 2;
  }
  int status = 3;
  try {
    status = Try();
  } catch (CDBException* exception) {
    std::fprintf(stderr, "%s\n", exception->m_strError.GetString());
    exception->Delete();
  }
  return DB_CloseDatabase() == KYODBC_OK ? status : 4;
}
