// The typical road through a practice, step by step, with a table printed for each. Usage: walk DIR, where
// "kyodbc init DIR" made a practice and "kyodbc sample DIR" filled it. Leaves the practice as it was.
#include <KyODBC.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace {

constexpr LONG kPageRows = 8;

void Title(const char* text) { std::printf("\n-- %s\n", text); }

void Check(WORD code, const char* what) {
  if (code != KYODBC_OK) throw std::runtime_error(std::string(what) + " gave code " + std::to_string(code));
}

template <std::size_t N>
void SetText(char (&field)[N], const char* text) {
  std::snprintf(field, N, "%s", text);
}

// The text with blanks up to `width` characters; bytes that continue a character of UTF-8 take no room.
std::string Cell(const char* text, int width) {
  int characters = 0;
  for (const char* c = text; *c != 0; ++c) characters += (*c & 0xC0) != 0x80 ? 1 : 0;
  return std::string(text) +
         std::string(static_cast<std::size_t>(characters < width ? width - characters : 0), ' ');
}

// Fields of packed records are copied before use.
std::string Date(TIMESTAMP_STRUCT date) {
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", date.year, date.month, date.day);
  return text;
}

void PrintHeader(const char* last) {
  std::printf("%5s %6s  %s%s%-12s%s\n", "pos", "key", Cell("name", 22).c_str(), Cell("firstname", 14).c_str(),
              "birthday", last);
}

void Print(LONG position, const tagTPATIENT& patient) {
  std::printf("%5d %6d  %s%s%-12s%s\n", position, LONG{patient.lPatID}, Cell(patient.szName, 22).c_str(),
              Cell(patient.szFirstname, 14).c_str(), Date(patient.dBirthday).c_str(), patient.szIDDisp);
}

void PrintCurrentRow() {
  tagTPATIENT patient{};
  Check(DB_GetTPatByPos(0, &patient), "DB_GetTPatByPos");
  Print(DB_GetTPatIndexPos(), patient);
}

// The driver manager finds the data source through the environment, so nothing is set up on the machine.
void Connect(const std::filesystem::path& folder) {
  setenv("ODBCSYSINI", folder.c_str(), 1);
  setenv("ODBCINI", (folder / "odbc.ini").c_str(), 1);
  tagDBCONNECT parameters{};
  SetText(parameters.szDSN, "practice");
  Check(DB_InitDatabase(&parameters), "DB_InitDatabase");

  Title("Connected: DB_InitDatabase, DB_GetInfo, DB_GetDBMS, DB_GetDBVersion");
  tagDBINFO info{};
  char system[32];
  double version = 0;
  Check(DB_GetInfo(&info), "DB_GetInfo");
  Check(DB_GetDBMS(system, sizeof system), "DB_GetDBMS");
  Check(DB_GetDBVersion(&version), "DB_GetDBVersion");
  std::printf("data source %s, database system %s, schema %.1f\n", info.szDSN, system, version);
}

void OpenPatients() {
  Title("All patients: DB_OpenTPat, DB_GetTPatMaxPos");
  LONG count = 0;
  Check(DB_OpenTPat(), "DB_OpenTPat");
  Check(DB_GetTPatMaxPos(&count), "DB_GetTPatMaxPos");
  std::printf("%d patients\n", count);
}

void SortAndFilter() {
  Title("Names with M, the youngest first among equals: DB_SetTPatSortIndex, DB_SetTPatFilter");
  LONG count = 0;
  Check(DB_SetTPatSortIndex(KYODBC_PACK(KYODBC_FIELD_NAME, KYODBC_FIELD_BIRTHDAY | KYODBC_DESCENDING, 0, 0)),
        "DB_SetTPatSortIndex");
  Check(DB_SetTPatFilter(KYODBC_FIELD_NAME, KYODBC_LIKE, "M%", nullptr, nullptr, nullptr),
        "DB_SetTPatFilter");
  Check(DB_GetTPatMaxPos(&count), "DB_GetTPatMaxPos");
  std::printf("%d patients\n", count);
}

void PrintPage() {
  Title("A page of them: DB_GetTPatByPos");
  PrintHeader("identifier");
  tagTPATIENT patient{};
  for (LONG position = 1; position <= kPageRows && DB_GetTPatByPos(position, &patient) == KYODBC_OK;
       ++position) {
    Print(position, patient);
  }
}

void Jump() {
  Title("To position 5, then two back: DB_MoveToTPatByPos, DB_MoveToTPatByDelta");
  PrintHeader("identifier");
  if (DB_MoveToTPatByPos(5) == 0)
    throw std::runtime_error("there is no position 5: the practice is too small");
  PrintCurrentRow();
  if (DB_MoveToTPatByDelta(-2) == 0) throw std::runtime_error("DB_MoveToTPatByDelta did not move");
  PrintCurrentRow();
}

void JumpToLetter() {
  Title("All patients again, and to the letter S: DB_SetTPatFilter, DB_MoveToTPatByString");
  const LONG none = 0;
  Check(DB_SetTPatFilter(KYODBC_FIELD_KEY, KYODBC_GREATER, &none, nullptr, nullptr, nullptr),
        "DB_SetTPatFilter");
  PrintHeader("identifier");
  if (DB_MoveToTPatByString("S") == 0) throw std::runtime_error("DB_MoveToTPatByString found nothing");
  PrintCurrentRow();
}

LONG AddPatient(LONG doctor) {
  Title("A new patient: DB_AddNewTPat; the record comes back with its key and what the library filled in");
  tagTPATIENT patient{};
  patient.lDrID = doctor;
  SetText(patient.szName, "O'Hara-Müller");
  SetText(patient.szFirstname, "Zoë");
  SetText(patient.szSlidaID, "WALK-0001");
  SetText(patient.szSex, "f");
  patient.dBirthday.year = 1987;
  patient.dBirthday.month = 6;
  patient.dBirthday.day = 5;
  Check(DB_AddNewTPat(&patient), "DB_AddNewTPat");
  PrintHeader("identifier");
  Print(DB_MoveToTPatByIntID(patient.lPatID), patient);
  return patient.lPatID;
}

void EditPatient(LONG key) {
  Title("Only the first name: DB_EditSelTPat with a mask; DB_GetTPat reads the row again");
  tagTPATIENT change{};
  change.lPatID = key;
  SetText(change.szName, "not in the mask");
  SetText(change.szFirstname, "Zoë Anne");
  Check(DB_EditSelTPat(&change, KYODBC_MASK_PAT_FIRSTNAME), "DB_EditSelTPat");
  tagTPATIENT patient{};
  patient.lPatID = key;
  Check(DB_GetTPat(&patient), "DB_GetTPat");
  PrintHeader("identifier");
  Print(DB_MoveToTPatByIntID(key), patient);
}

void PrintJoinedRow() {
  tagTPATIENTEX joined{};
  Check(DB_GetPatExByPos(1, &joined), "DB_GetPatExByPos");
  std::printf("%5d %6d  %s%s%-12s%s\n", 1, LONG{joined.lPatID}, Cell(joined.szName, 22).c_str(),
              Cell(joined.szFirstname, 14).c_str(), Date(joined.dBirthday).c_str(), joined.szDrName);
}

void RenameDoctor(LONG key, const char* name) {
  tagTDOCTOR doctor{};
  doctor.lDrID = key;
  SetText(doctor.szName, name);
  Check(DB_EditSelTDr(&doctor, KYODBC_MASK_DR_NAME), "DB_EditSelTDr");
}

void WatchJoinedView(LONG patient, const tagTDOCTOR& doctor) {
  Title("Patients with their doctors, before and after renaming the doctor: DB_OpenPatEx, DB_EditSelTDr");
  Check(DB_SetPatExFilter(KYODBC_FIELD_KEY, KYODBC_EQUAL, &patient, nullptr, nullptr, nullptr),
        "DB_SetPatExFilter");
  Check(DB_OpenPatEx(), "DB_OpenPatEx");
  PrintHeader("doctor");
  PrintJoinedRow();
  RenameDoctor(doctor.lDrID, "Dr. New Name");
  PrintJoinedRow();
  RenameDoctor(doctor.lDrID, doctor.szName);
  Check(DB_ClosePatEx(), "DB_ClosePatEx");
}

void DeletePatient(LONG key) {
  Title("The patient is deleted: DB_DeleteTPat; reading then says code 21, no such patient");
  tagTPATIENT patient{};
  patient.lPatID = key;
  Check(DB_DeleteTPat(&patient), "DB_DeleteTPat");
  std::printf("DB_GetTPat: %d\n", DB_GetTPat(&patient));
}

void KeepSetting() {
  Title(
      "A setting: DB_WriteProfileString, DB_GetProfileString; written empty it is gone, the default answers");
  constexpr const char* kKey = "WalkColour";
  char value[129];
  Check(DB_WriteProfileString(kKey, "-", "blue"), "DB_WriteProfileString");
  Check(DB_GetProfileString(kKey, "-", "none", value, sizeof value, nullptr), "DB_GetProfileString");
  std::printf("%s=%s\n", kKey, value);
  Check(DB_WriteProfileString(kKey, "-", ""), "DB_WriteProfileString");
  Check(DB_GetProfileString(kKey, "-", "none", value, sizeof value, nullptr), "DB_GetProfileString");
  std::printf("%s=%s\n", kKey, value);
}

tagTDOCTOR NewestDoctor() {
  tagTDOCTOR doctor{};
  LONG key = 0;
  Check(DB_GetLastDrID(&key), "DB_GetLastDrID");
  doctor.lDrID = key;
  Check(DB_GetTDr(&doctor), "DB_GetTDr");
  if (std::strcmp(doctor.szName, "-") == 0) throw std::runtime_error("the practice has no doctors yet");
  return doctor;
}

void Walk(const std::filesystem::path& folder) {
  Connect(folder);
  OpenPatients();
  SortAndFilter();
  PrintPage();
  Jump();
  JumpToLetter();
  const tagTDOCTOR doctor = NewestDoctor();
  const LONG patient = AddPatient(doctor.lDrID);
  EditPatient(patient);
  WatchJoinedView(patient, doctor);
  DeletePatient(patient);
  KeepSetting();
  Title("Closed: DB_CloseDatabase");
  Check(DB_CloseDatabase(), "DB_CloseDatabase");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: walk DIR\n");
    return 2;
  }
  try {
    Walk(std::filesystem::absolute(argv[1]));
    return 0;
  } catch (const std::exception& error) {
    std::fflush(stdout);
    std::fprintf(stderr, "walk: %s\n", error.what());
    DB_CloseDatabase();
    return 1;
  }
}
