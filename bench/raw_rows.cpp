#include "bench/raw_rows.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "bench/task.h"

namespace bench {
namespace {

template <std::size_t N>
void Copy(char (&field)[N], const char* text) {
  const std::size_t length = std::min(std::strlen(text), N - 1);
  std::memcpy(field, text, length);
  field[length] = '\0';
}

}  // namespace

void PatientRow::Bind(Statement& statement) {
  statement.Column(1, SQL_C_SLONG, &key, 0);
  statement.Column(2, SQL_C_SLONG, &doctor, 0);
  statement.Column(3, SQL_C_CHAR, external, kText);
  statement.Column(4, SQL_C_CHAR, server, kText);
  statement.Column(5, SQL_C_CHAR, slida, kText);
  statement.Column(6, SQL_C_CHAR, social, kText);
  statement.Column(7, SQL_C_CHAR, name, kText);
  statement.Column(8, SQL_C_CHAR, firstname, kText);
  statement.Column(9, SQL_C_TYPE_TIMESTAMP, &birthday, 0);
  statement.Column(10, SQL_C_CHAR, sex, kText);
  statement.Column(11, SQL_C_SLONG, &selected, 0);
  statement.Column(12, SQL_C_TYPE_TIMESTAMP, &entry, 0);
  statement.Column(13, SQL_C_CHAR, display, kText);
  statement.Column(14, SQL_C_TYPE_TIMESTAMP, &last_display, 0);
}

void PatientRow::CopyTo(tagTPATIENT* record) const {
  record->lPatID = key;
  record->lDrID = doctor;
  Copy(record->szExtPatID, external);
  Copy(record->szSrvID, server);
  Copy(record->szSlidaID, slida);
  Copy(record->szSocID, social);
  Copy(record->szName, name);
  Copy(record->szFirstname, firstname);
  record->dBirthday = birthday;
  Copy(record->szSex, sex);
  record->lSelect = selected;
  record->dEntry = entry;
  Copy(record->szIDDisp, display);
  record->tsLastDisp = last_display;
}

void ImageRow::Bind(Statement& statement) {
  constexpr int kTextColumns[kTexts] = {5, 6, 7, 9, 10, 11, 12, 13, 14, 15, 16, 19, 20, 21, 22};
  statement.Column(1, SQL_C_SLONG, &key, 0);
  statement.Column(2, SQL_C_SLONG, &patient, 0);
  statement.Column(3, SQL_C_SLONG, &unit, 0);
  statement.Column(4, SQL_C_SLONG, &doctor, 0);
  statement.Column(8, SQL_C_TYPE_TIMESTAMP, &time, 0);
  statement.Column(17, SQL_C_TYPE_TIMESTAMP, &out, 0);
  statement.Column(18, SQL_C_TYPE_TIMESTAMP, &in, 0);
  statement.Column(23, SQL_C_SLONG, &last_makro, 0);
  for (int i = 0; i < kTexts; ++i) statement.Column(kTextColumns[i], SQL_C_CHAR, texts[i], kText);
}

void NewPatientRow::Bind(Statement& statement) {
  statement.Parameter(1, &doctor);
  statement.Parameter(2, external, kText - 1);
  statement.Parameter(3, server, kText - 1);
  statement.Parameter(4, slida, kText - 1);
  statement.Parameter(5, social, kText - 1);
  statement.Parameter(6, name, kText - 1);
  statement.Parameter(7, firstname, kText - 1);
  statement.Parameter(8, birthday, kDate);
  statement.Parameter(9, sex, kText - 1);
  statement.Parameter(10, &selected);
  statement.Parameter(11, entry, kDate);
  statement.Parameter(12, display, kText - 1);
  statement.Parameter(13, last_display, kTime);
}

void NewPatientRow::Fill(const std::string& identifier) {
  const TIMESTAMP_STRUCT today = Today();
  char date[40];
  std::snprintf(date, sizeof date, "%04d-%02d-%02d", today.year, today.month, today.day);
  Copy(entry, date);
  std::strcat(date, " 00:00:00");
  Copy(last_display, date);
  Copy(slida, identifier.c_str());
  Copy(display, identifier.c_str());
}

}  // namespace bench
