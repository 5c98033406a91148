#include "tools/commands/import_rows.h"

#include <fmt/format.h>

#include <cstddef>
#include <optional>

#include "tools/record_text.h"
#include "tools/time_text.h"
#include "tools/tool_error.h"

namespace {

constexpr LONG kDefaultDoctor = 1;  // the row "-": the files do not tell whose patient somebody is

std::string Required(const CsvTable& row, std::string_view column) {
  std::string text = row.Field(column);
  if (text.empty()) throw RowRejected(fmt::format("{} is empty", column));
  return text;
}

// 1 when the text had to be cut.
template <std::size_t N>
int SetCut(char (&field)[N], std::string_view text) {
  return SetText(field, text) ? 0 : 1;
}

// What an edit said to a row that may be there: false when it is not. Codes that concern this row alone
// reject it; with any other, going on makes no sense.
bool WasFound(WORD code, WORD not_found, const char* doing) {
  if (code == not_found) return false;
  if (code == KYODBC_BAD_ARGUMENT || code == KYODBC_DELETE_FAILED || code == KYODBC_NOT_UNIQUE) {
    throw RowRejected(fmt::format("{}: {} (code {})", doing, MeaningOf(code), code));
  }
  Check(code, doing);
  return true;
}

TIMESTAMP_STRUCT RequiredDate(const CsvTable& row, std::string_view column) {
  const std::string text = Required(row, column);
  std::optional<TIMESTAMP_STRUCT> date = ReadTime(text);
  if (!date) throw RowRejected(fmt::format("{} '{}' is no date", column, text));
  date->hour = date->minute = date->second = 0;
  return *date;
}

const char* Sex(const std::string& gender) {
  if (gender == "M" || gender == "m") return "m";
  return gender == "F" || gender == "f" ? "f" : "-";
}

}  // namespace

const std::vector<ImportKind>& ImportKinds() {
  static const std::vector<std::string> doctors = {"Id", "NAME"};
  static const std::vector<std::string> patients = {"Id", "LAST", "FIRST", "BIRTHDATE", "GENDER", "SSN"};
  static const std::vector<std::string> images = {"Id", "PATIENT", "DATE", "BODYSITE_DESCRIPTION",
                                                  "MODALITY_CODE"};
  static const std::vector<ImportKind> kinds = {
      {"doctors",  "--doctors",  doctors,  StoreDoctor },
      {"patients", "--patients", patients, StorePatient},
      {"images",   "--images",   images,   StoreImage  },
  };
  return kinds;
}

Stored StoreDoctor(const CsvTable& row) {
  tagTDOCTOR doctor{};
  Stored stored;
  SetIdentifier(doctor.szSrvID, row, "Id");
  const std::string name = Required(row, "NAME");
  if (name == "-") throw RowRejected("'-' is the name of the default row");
  stored.texts_cut += SetCut(doctor.szName, name);
  tagTDOCTOR known = doctor;
  stored.added = !WasFound(DB_EditSelTDr(&known, KYODBC_MASK_DR_NAME), KYODBC_NO_ROW, "updating the doctor");
  if (stored.added) Check(DB_AddNewTDr(&doctor), "adding a doctor");
  return stored;
}

Stored StorePatient(const CsvTable& row) {
  constexpr DWORD kImported = KYODBC_MASK_PAT_SURNAME | KYODBC_MASK_PAT_FIRSTNAME | KYODBC_MASK_PAT_BIRTHDAY |
                              KYODBC_MASK_PAT_SEX | KYODBC_MASK_PAT_SOCIAL_ID;
  tagTPATIENT patient{};
  Stored stored;
  SetIdentifier(patient.szSrvID, row, "Id");
  stored.texts_cut += SetCut(patient.szName, Required(row, "LAST"));
  stored.texts_cut += SetCut(patient.szFirstname, row.Field("FIRST"));
  stored.texts_cut += SetCut(patient.szSocID, row.Field("SSN"));
  patient.dBirthday = RequiredDate(row, "BIRTHDATE");
  SetText(patient.szSex, Sex(row.Field("GENDER")));
  tagTPATIENT known = patient;
  stored.added =
      !WasFound(DB_EditSelTPat(&known, kImported), KYODBC_PATIENT_NOT_FOUND, "updating the patient");
  if (stored.added) {
    patient.lDrID = kDefaultDoctor;
    Check(DB_AddNewTPat(&patient), "adding a patient");
  }
  return stored;
}
