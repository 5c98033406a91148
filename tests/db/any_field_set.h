// Sets for tests of generated texts; they need no database.
#ifndef KYODBC_TESTS_DB_ANY_FIELD_SET_H
#define KYODBC_TESTS_DB_ANY_FIELD_SET_H

#include <string>

#include "recset/kyrecset.h"

inline std::string Text(const CString& text) { return std::string(text.View()); }

// Knows every field id from 1 to 127 but those the test takes away.
class AnyFieldSet : public CKyRecSet {
 public:
  AnyFieldSet() : CKyRecSet(nullptr, nullptr) {}
  using CKyRecSet::GetFieldName;
  CString GetFieldName(LONG field, LONG* error) override {
    *error = field == m_unknown || field == 0 ? m_error : 0;
    CString name;
    if (*error == 0) name.Format(" c%d", field);
    return name;
  }
  using CKyRecSet::MakeSQLDate;
  using CKyRecSet::MakeSQLString;
  using CKyRecSet::MakeSQLTimeStamp;

  LONG m_unknown = 0;
  LONG m_error = 1;
};

#endif
