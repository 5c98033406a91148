#include "tests/budget/works.h"

#include <stdexcept>

#include "frame/KyODBC.h"
#include "tests/support/records.h"

namespace budget {
namespace {

constexpr LONG kByPerson = KYODBC_PACK(KYODBC_FIELD_NAME, KYODBC_FIELD_FIRSTNAME, KYODBC_FIELD_BIRTHDAY, 0);
constexpr int kPage = 50;

// Values that have not been written before.
int Next() {
  static int number = 0;
  return ++number;
}

tagTPATIENT NewPatient(const std::string& identifier, const std::string& name) {
  tagTPATIENT patient{};
  patient.lDrID = 1;
  support::SetText(patient.szSlidaID, identifier);
  support::SetText(patient.szName, name);
  support::SetText(patient.szFirstname, "Nora");
  patient.dBirthday = support::Ts(1980, 5, 5);
  return patient;
}

tagTIMAGE NewImage(LONG patient, int number) {
  tagTIMAGE image{};
  image.lPatID = patient;
  image.lUnitID = image.lDrID = 1;
  support::SetText(image.szName, "OPG");
  image.ts = support::Ts(2020, 1 + number / 60 / 24 % 12, 1, number / 60 % 24, number % 60);
  return image;
}

template <class Record>
void Get(WORD (*get)(Record*), LONG key) {
  Record record{};
  std::memcpy(static_cast<void*>(&record), &key, sizeof key);
  Require(get(&record), "get");
}

void GetBySlida() {
  tagTPATIENT patient = NewPatient("S7", "");
  Require(DB_GetTPat(&patient), "get");
}

void EditPatient() {
  tagTPATIENT patient{};
  patient.lPatID = 7;
  support::SetText(patient.szSocID, "E" + std::to_string(Next()));
  Require(DB_EditSelTPat(&patient, KYODBC_MASK_PAT_SOCIAL_ID), "edit");
}

void EditImage() {
  tagTIMAGE image{};
  image.lImgID = 7;
  support::SetText(image.szName, "E" + std::to_string(Next()));
  Require(DB_EditSelTImg(&image, KYODBC_MASK_IMG_NAME), "edit");
}

void EditDoctor() {
  tagTDOCTOR doctor{};
  doctor.lDrID = 2;
  support::SetText(doctor.szSrvID, "E" + std::to_string(Next()));
  Require(DB_EditSelTDr(&doctor, KYODBC_MASK_DR_SERVER_ID), "edit");
}

void AddPatient() {
  tagTPATIENT patient = NewPatient("B" + std::to_string(Next()), "Newcomer");
  Require(DB_AddNewTPat(&patient), "add");
}

void AddDoctor() {
  tagTDOCTOR doctor{};
  support::SetText(doctor.szName, "Dr. B" + std::to_string(Next()));
  Require(DB_AddNewTDr(&doctor), "add");
}

void AddImage() {
  tagTIMAGE image = NewImage(7, kPatients + Next());
  Require(DB_AddNewTImg(&image), "add");
}

void DeletePatient() {
  LONG key = 0;
  Require(DB_GetLastPatID(&key), "last");
  tagTPATIENT patient{};
  patient.lPatID = key;
  Require(DB_DeleteTPat(&patient), "delete");
}

void NewestImage() {
  LONG key = 0;
  TIMESTAMP_STRUCT time{};
  Require(DB_GetLastTImgDate(7, &key, &time), "newest");
}

void Number(WORD (*function)(LONG*)) {
  LONG number = 0;
  Require(function(&number), "number");
}

void CountImages() {
  LONG number = 0;
  Require(DB_GetNumTImg(7, &number), "count");
}

void RequireRow(LONG position) {
  if (position <= 0) throw std::runtime_error("no row was reached");
}

// Every work on open sets begins from the same state, whatever the last one did to the table.
void OpenPatients() {
  Require(DB_SetTPatSortIndex(kByPerson), "sort");
  Require(DB_OpenTPat(), "open");
}

void ClosePatients() { Require(DB_CloseTPat(), "close"); }

void ReadAt(LONG position) {
  tagTPATIENT patient{};
  Require(DB_GetTPatByPos(position, &patient), "read");
}

// Between works that jump, so that no row comes from the page of the last one.
void JumpTo(LONG position) {
  OpenPatients();
  ReadAt(position);
}

void Page() {
  for (LONG position = 201; position <= 200 + kPage; ++position) ReadAt(position);
}

void Walk() {
  OpenPatients();
  LONG rows = 0;
  do {
    ReadAt(0);
    ++rows;
  } while (DB_MoveToTPatByDelta(1) != 0);
  if (rows < kPatients) throw std::runtime_error("the walk ended early");
}

void Filter() {
  const char* name = Next() % 2 == 0 ? "N1%" : "N2%";
  Require(DB_SetTPatFilter(KYODBC_FIELD_NAME, KYODBC_LIKE, name, nullptr, nullptr, nullptr), "filter");
}

void ShowAll() {
  const LONG none = 0;
  Require(DB_SetTPatFilter(KYODBC_FIELD_KEY, KYODBC_GREATER, &none, nullptr, nullptr, nullptr), "filter");
  OpenPatients();
}

void Sort() {
  const bool by_birthday = (DB_SetTPatSortIndex(KYODBC_FIELD_BIRTHDAY) == 0);
  if (!by_birthday) throw std::runtime_error("not sorted");
}

void OpenImages() {
  Require(DB_SetTImgSortIndex(KYODBC_FIELD_KEY), "sort");
  Require(DB_OpenTImg(), "open");
}

void OpenJoined() {
  Require(DB_SetPatExSortIndex(kByPerson), "sort");
  Require(DB_OpenPatEx(), "open");
}

void EditAndLook() {
  EditPatient();
  ReadAt(1);
}

void WriteSetting() {
  const std::string value = "value " + std::to_string(Next());
  Require(DB_WriteProfileString("Budget", "-", value.c_str()), "write");
}

void ReadSetting() {
  char text[40];
  LONG length = 0;
  Require(DB_GetProfileString("Budget", "-", "none", text, sizeof text, &length), "read");
}

void Nothing() {}

std::vector<Work> RowWorks() {
  return {
      {"get a patient by key",             1,  [] { Get(DB_GetTPat, 7); },      Nothing     },
      {"get a patient by identifier",      1,  GetBySlida,                      Nothing     },
      {"get a patient with doctor by key", 2,  [] { Get(DB_GetPatEx, 7); },     Nothing     },
      {"get an image by key",              1,  [] { Get(DB_GetTImg, 7); },      Nothing     },
      {"get a doctor by key",              1,  [] { Get(DB_GetTDr, 2); },       Nothing     },
      {"get a station by key",             1,  [] { Get(DB_GetTStat, 1); },     Nothing     },
      {"get a unit by key",                1,  [] { Get(DB_GetTUnit, 1); },     Nothing     },
      {"edit a patient by key",            2,  EditPatient,                     Nothing     },
      {"edit an image by key",             2,  EditImage,                       Nothing     },
      {"edit a doctor by key",             2,  EditDoctor,                      Nothing     },
      {"add a patient",                    2,  AddPatient,                      Nothing     },
      {"add a doctor",                     2,  AddDoctor,                       Nothing     },
      {"add an image",                     -1, AddImage,                        Nothing     },
      {"delete the newest patient",        3,  DeletePatient,                   AddPatient  },
      {"newest image of a patient",        1,  NewestImage,                     Nothing     },
      {"count the patients",               1,  [] { Number(DB_GetNumTPat); },   Nothing     },
      {"count the patients with doctors",  1,  [] { Number(DB_GetNumPatEx); },  Nothing     },
      {"count the images of a patient",    1,  CountImages,                     Nothing     },
      {"highest key of the patients",      1,  [] { Number(DB_GetLastPatID); }, Nothing     },
      {"highest key of the images",        1,  [] { Number(DB_GetLastImgID); }, Nothing     },
      {"read a setting",                   -1, ReadSetting,                     WriteSetting},
      {"write a setting",                  -1, WriteSetting,                    Nothing     },
  };
}

std::vector<Work> BrowseWorks() {
  return {
      {"open the patients",                      3, OpenPatients,                                    ClosePatients    },
      {"close the patients",                     0, ClosePatients,                                   OpenPatients     },
      {"a position far away",                    1, [] { ReadAt(250); },                             [] { JumpTo(1); }},
      {"a jump and a page of 50 rows",           1, Page,                                            [] { JumpTo(1); }},
      {"open and walk 300 patients",             6, Walk,                                            ClosePatients    },
      {"number of rows of the patients",         1, [] { Number(DB_GetTPatMaxPos); },                OpenPatients     },
      {"filter the open patients",               2, Filter,                                          ShowAll          },
      {"sort the open patients",                 2, Sort,                                            ShowAll          },
      {"edit a patient while patients are open", 2, EditPatient,                                     ShowAll          },
      {"the same and a look at the first row",   4, EditAndLook,                                     OpenPatients     },
      {"edit a patient while the view is open",  2, EditPatient,                                     OpenJoined       },
      {"seek a patient by text",                 2, [] { RequireRow(DB_MoveToTPatByString("N2")); }, OpenPatients     },
      {"seek a patient by key",                  2, [] { RequireRow(DB_MoveToTPatByIntID(250)); },   OpenPatients     },
      {"seek an image by key",                   2, [] { RequireRow(DB_MoveToTImgByIntID(250)); },   OpenImages       },
      {"seek a patient of the view by key",      3, [] { RequireRow(DB_MoveToPatExByIntID(250)); },  OpenJoined       },
  };
}

}  // namespace

void Require(int code, const char* what) {
  if (code != 0) throw std::runtime_error(std::string(what) + " gave " + std::to_string(code));
}

void MakeRows() {
  Require(DB_BeginTransaction(), "begin");
  AddDoctor();
  for (int number = 1; number <= kPatients; ++number) {
    tagTPATIENT patient =
        NewPatient("S" + std::to_string(number), "N" + std::to_string(number * 7 % kPatients));
    Require(DB_AddNewTPat(&patient), "add");
    tagTIMAGE image = NewImage(patient.lPatID, number);
    Require(DB_AddNewTImg(&image), "add");
  }
  Require(DB_CommitTransaction(), "commit");
}

std::vector<Work> Works() {
  std::vector<Work> works = RowWorks();
  for (Work& work : BrowseWorks()) works.push_back(std::move(work));
  return works;
}

}  // namespace budget
