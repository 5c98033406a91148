// Rows bound to buffers of the bare program, and copied from there into the library's plain records: what
// callers of both have in their hands at the end is the same.
#ifndef KYODBC_BENCH_RAW_ROWS_H
#define KYODBC_BENCH_RAW_ROWS_H

#include <string>

#include "bench/statement.h"
#include "tables/records.h"

namespace bench {

inline constexpr int kText = 256;
inline constexpr int kDate = 10;
inline constexpr int kTime = 19;

// The columns of BENCH_PATIENTS.
struct PatientRow {
  SQLINTEGER key, doctor, selected;
  char external[kText], server[kText], slida[kText], social[kText], name[kText], firstname[kText];
  TIMESTAMP_STRUCT birthday, entry, last_display;
  char sex[kText], display[kText];

  void Bind(Statement& statement);
  void CopyTo(tagTPATIENT* record) const;
};

// The columns of BENCH_IMAGES.
struct ImageRow {
  static constexpr int kTexts = 15;

  SQLINTEGER key, patient, unit, doctor, last_makro;
  char texts[kTexts][kText];
  TIMESTAMP_STRUCT time, out, in;

  void Bind(Statement& statement);
};

// The parameters of kAddPatient.
struct NewPatientRow {
  SQLINTEGER doctor = 1, selected = 0;
  char external[kText] = "", server[kText] = "", slida[kText] = "", social[kText] = "";
  char name[kText] = "Newcomer", firstname[kText] = "Nora", birthday[kDate + 1] = "1980-05-05";
  char sex[kText] = "f", entry[kDate + 1] = "", display[kText] = "", last_display[kTime + 1] = "";

  void Bind(Statement& statement);
  // Today, and the identifier.
  void Fill(const std::string& identifier);
};

}  // namespace bench

#endif
