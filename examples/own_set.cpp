// A record set of one's own over a table of one's own: the images that were lent out. The table is made and
// dropped again. Usage: own_set SOURCE [USER PASSWORD]
#include <KyODBC.h>

#include <cstdio>
#include <iostream>

namespace {

// Field ids as this table uses them. An id also says of what type a filter's value is (field_words.h).
constexpr LONG kKey = KYODBC_FIELD_KEY;
constexpr LONG kBorrower = KYODBC_FIELD_NAME;
constexpr LONG kLentOn = KYODBC_FIELD_DATE;

class LoanSet : public CKyRecSet {
 public:
  // On the library's connection, with its owner prefix.
  LoanSet() : CKyRecSet(nullptr, nullptr) { m_nFields = 3; }

  CString GetDefaultSQL() override { return m_strOwner + "TLoan"; }

  void DoFieldExchange(CFieldExchange* exchange) override {
    exchange->SetFieldType(CFieldExchange::outputColumn);
    RFX_Long(exchange, "tLoanIDPk", m_lID);  // changes find their row by m_lID
    RFX_Text(exchange, "tLoanSBorrower", m_borrower);
    RFX_Date(exchange, "tLoanDLent", m_lent_on);
  }

  // For filters and sort orders.
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override {
    if (error != nullptr) *error = 0;
    if (field == kKey) return " tLoanIDPk";
    if (field == kBorrower) return " tLoanSBorrower";
    if (field == kLentOn) return " tLoanDLent";
    return CKyRecSet::GetFieldName(field, error);
  }

  void Add(LONG key, const char* borrower, SQLSMALLINT year) {
    AddNew();
    m_lID = key;
    m_borrower = borrower;
    m_lent_on = {year, 3, 1, 0, 0, 0, 0};
    Update();
  }

  CString m_borrower;
  TIMESTAMP_STRUCT m_lent_on{};
};

void PrintAll(LoanSet& loans, const char* title) {
  LONG count = 0;
  loans.GetMaxPos(&count);
  std::cout << title << ": " << count << '\n';
  for (LONG position = 1; position <= count; ++position) {
    loans.MoveToPos(position);
    std::cout << "  " << position << ": " << loans.m_borrower << ", " << loans.m_lent_on.year << '\n';
  }
}

void UseLoans() {
  LoanSet loans;
  loans.Add(1, "Dr. Weber", 2019);
  loans.Add(2, "O'Hara", 2024);
  loans.Add(3, "Dr. Adam", 2021);

  loans.SetSortIndex(kBorrower);  // reads the open set again
  PrintAll(loans, "by borrower");

  TIMESTAMP_STRUCT since{2020, 1, 1, 0, 0, 0, 0};
  loans.SetFilter(kLentOn, KYODBC_GREATER_EQUAL, &since, nullptr, nullptr, nullptr);
  PrintAll(loans, "since 2020");

  loans.MoveToIntID(2);
  loans.Edit();
  loans.m_borrower = "O'Hara-Müller";
  loans.Update();
  loans.Requery();
  PrintAll(loans, "edited");

  loans.DeleteByPos(1);
  LONG all = 0;
  loans.GetNum(&all);
  std::cout << "left: " << all << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  tagDBCONNECT source{};
  std::snprintf(source.szDSN, sizeof source.szDSN, "%s", argc > 1 ? argv[1] : "practice");
  std::snprintf(source.szUID, sizeof source.szUID, "%s", argc > 3 ? argv[2] : "");
  std::snprintf(source.szPWD, sizeof source.szPWD, "%s", argc > 3 ? argv[3] : "");
  if (DB_InitDatabase(&source) != KYODBC_OK) return 1;
  int status = 0;
  try {
    DB_GetDatabase()->ExecuteSQL(
        "CREATE TABLE TLoan (tLoanIDPk INTEGER NOT NULL PRIMARY KEY, tLoanSBorrower VARCHAR(40), "
        "tLoanDLent DATE)");
    UseLoans();
    DB_GetDatabase()->ExecuteSQL("DROP TABLE TLoan");
  } catch (CDBException* exception) {
    std::cerr << exception->m_strError << '\n';
    exception->Delete();
    status = 1;
  }
  return DB_CloseDatabase() + status;
}
